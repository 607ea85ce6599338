// An integer is a row of limbs below 10^16, and a product is first made as a product of
// polynomials with the limbs as coefficients, in words of 128 bits and without any carry; one pass
// then carries. There are three ways to that product:
//
// - Short ones take every limb by every limb, column by column.
// - Karatsuba's way cuts both factors into halves, a = a0 + a1 x and b = b0 + b1 x, and makes do
//   with three products in place of four: a0 b0, a1 b1 and (a0 + a1)(b0 + b1), which less the other
//   two is the middle one. Since nothing is carried, the sums just grow by a bit at each cut: after
//   eight of them they are below 2^62.
// - The longest go through a number-theoretic transform.
//
// A coefficient is a sum of at most as many products below 10^32 as the shorter factor has limbs,
// and 128 bits hold three million of those.
#include "nolk/core/values/DigitProduct.h"

#include <algorithm>
#include <vector>

#include "nolk/core/values/DigitWords.h"
#include "nolk/core/values/NumberTransform.h"
#include "nolk/core/values/WideWord.h"

namespace nolk {

namespace {

using Limbs = std::span<const std::uint64_t>;

constexpr auto powersOfTen = [] {
    std::array<std::uint64_t, digitsPerLimb + 1> powers{1};
    for (std::size_t place = 1; place < powers.size(); ++place) {
        powers[place] = powers[place - 1] * 10;
    }
    return powers;
}();

// A divisor whose highest bit is set, ten bits above the base of limbs, and the reciprocal that
// makes one multiplication of a division (Möller and Granlund, 2011).
constexpr int shift = 10;
constexpr std::uint64_t divisor = limbBase << shift;
constexpr std::uint64_t reciprocal = lowerHalf(~WideWord{0} / divisor);
static_assert(divisor >> 63 == 1, "the divisor is normalised");

// Quotient and remainder by the base, of a number below 2^64 times the base.
std::uint64_t divideByBase(WideWord number, std::uint64_t& remainder) {
    number <<= shift;
    const WideWord estimate = WideWord{reciprocal} * upperHalf(number) + number;
    std::uint64_t quotient = upperHalf(estimate) + 1;
    std::uint64_t rest = lowerHalf(number) - quotient * divisor;
    if (rest > lowerHalf(estimate)) {
        --quotient;
        rest += divisor;
    }
    if (rest >= divisor) {
        ++quotient;
        rest -= divisor;
    }
    remainder = rest >> shift;
    return quotient;
}

// Takes a limb off `number` and leaves the rest.
std::uint64_t takeLimb(WideWord& number) {
    WideWord above = 0;
    if (upperHalf(number) >= limbBase) {
        above = WideWord{upperHalf(number) / limbBase} << 64;
        number = WideWord{upperHalf(number) % limbBase} << 64 | lowerHalf(number);
    }
    std::uint64_t limb = 0;
    number = above + divideByBase(number, limb);
    return limb;
}

// The coefficient of the product at a place: up one factor and down the other.
WideWord column(Limbs a, Limbs b, std::size_t place) {
    const std::size_t begin = place < b.size() ? 0 : place - b.size() + 1;
    std::size_t count = std::min(place + 1, a.size()) - begin;
    const std::uint64_t* up = a.data() + begin;
    const std::uint64_t* down = b.data() + (place - begin);
    WideWord sum = 0;
    for (; count >= 4; count -= 4, up += 4, down -= 4) {
        sum += WideWord{up[0]} * down[0];
        sum += WideWord{up[1]} * *(down - 1);
        sum += WideWord{up[2]} * *(down - 2);
        sum += WideWord{up[3]} * *(down - 3);
    }
    for (std::size_t at = 0; at < count; ++at) {
        sum += WideWord{up[at]} * *(down - at);
    }
    return sum;
}

// Every limb by every limb, with carries. The shorter one has less than a thousand limbs, so that
// one division takes a limb off any column, and doesn't wait for the carry.
void multiplyPlainly(std::span<std::uint64_t> product, Limbs a, Limbs b) {
    std::uint64_t carry = 0;
    for (std::size_t place = 0; place + 1 < product.size(); ++place) {
        std::uint64_t rest = 0;
        const std::uint64_t above = divideByBase(column(a, b, place), rest);
        carry += rest;
        product[place] = carry % limbBase;
        carry = above + carry / limbBase;
    }
    product.back() = carry;
}

// Karatsuba's way, of polynomials of equal length.
class Halving {
public:
    explicit Halving(std::size_t least) : least_(std::max<std::size_t>(least, 2)) {}

    // The coefficients of the product, of which there are twice as many less one. `cuts` is how
    // often the factors may still be cut.
    void multiply(WideWord* product, Limbs a, Limbs b, int cuts = 8) const {
        if (a.size() < least_ || cuts == 0) {
            for (std::size_t place = 0; place + 1 < 2 * a.size(); ++place) {
                product[place] = column(a, b, place);
            }
            return;
        }
        const std::size_t half = (a.size() + 1) / 2;
        const std::size_t rest = a.size() - half;
        multiply(product, a.first(half), b.first(half), cuts - 1);
        product[2 * half - 1] = 0;
        multiply(product + 2 * half, a.subspan(half), b.subspan(half), cuts - 1);

        std::vector<WideWord> middle(2 * half - 1);
        multiply(middle.data(), sumOfHalves(a, half), sumOfHalves(b, half), cuts - 1);
        for (std::size_t place = 0; place < middle.size(); ++place) {
            const bool both = place + 1 < 2 * rest;
            middle[place] -= product[place] + (both ? product[2 * half + place] : 0);
        }
        for (std::size_t place = 0; place < middle.size(); ++place) {
            product[half + place] += middle[place];
        }
    }

private:
    static std::vector<std::uint64_t> sumOfHalves(Limbs limbs, std::size_t half) {
        const Limbs lower = limbs.first(half);
        std::vector<std::uint64_t> sum(lower.begin(), lower.end());
        for (std::size_t place = half; place < limbs.size(); ++place) {
            sum[place - half] += limbs[place];
        }
        return sum;
    }

    std::size_t least_;
};

// Adds coefficients, or limbs, to limbs; a carry goes on behind them.
template <typename Coefficient>
void addCoefficients(std::span<std::uint64_t> limbs, const std::vector<Coefficient>& coefficients) {
    WideWord carry = 0;
    std::size_t place = 0;
    for (const Coefficient coefficient : coefficients) {
        carry += coefficient;
        carry += limbs[place];
        limbs[place++] = takeLimb(carry);
    }
    for (; carry != 0; ++place) {
        carry += limbs[place];
        limbs[place] = takeLimb(carry);
    }
}

// Adds the product of two pieces, the second the longer one if they differ, to the limbs at its
// place.
void addProduct(std::span<std::uint64_t> sum, Limbs a, Limbs b, const ProductLimits& limits) {
    if (a.size() >= limits.transform) {
        std::vector<WideWord> coefficients(a.size() + b.size() - 1);
        transformProduct(coefficients, a, b);
        addCoefficients(sum, coefficients);
    } else if (a.size() == b.size()) {
        std::vector<WideWord> coefficients(a.size() + b.size() - 1);
        Halving(limits.halving).multiply(coefficients.data(), a, b);
        addCoefficients(sum, coefficients);
    } else {
        std::vector<std::uint64_t> product(a.size() + b.size());
        multiplyLimbs(product, a, b, limits);
        addCoefficients(sum, product);
    }
}

}  // namespace

std::uint64_t readLimb(std::string_view integer, std::string_view fraction) noexcept {
    return digits::parseFew(integer.data(), integer.size()) * powersOfTen[fraction.size()] +
           digits::parseFew(fraction.data(), fraction.size());
}

void readLimbs(std::span<std::uint64_t> limbs, std::string_view integer,
               std::string_view fraction) noexcept {
    for (std::uint64_t& limb : limbs) {
        const std::size_t low = std::min(fraction.size(), digitsPerLimb);
        const std::size_t high = std::min(integer.size(), digitsPerLimb - low);
        limb =
            readLimb(integer.substr(integer.size() - high), fraction.substr(fraction.size() - low));
        integer.remove_suffix(high);
        fraction.remove_suffix(low);
    }
}

void writeLimbs(char* digits, std::span<const std::uint64_t> limbs) noexcept {
    for (std::size_t place = limbs.size(); place-- > 0; digits += digitsPerLimb) {
        digits::printEight(digits, limbs[place] / 100'000'000);
        digits::printEight(digits + 8, limbs[place] % 100'000'000);
    }
}

std::array<std::uint64_t, 2> multiplyLimb(std::uint64_t a, std::uint64_t b) noexcept {
    std::uint64_t lower = 0;
    const std::uint64_t upper = divideByBase(WideWord{a} * b, lower);
    return {lower, upper};
}

// Long factors are cut to pieces as long as the shorter one, or as the longest that may be.
void multiplyLimbs(std::span<std::uint64_t> product, Limbs a, Limbs b,
                   const ProductLimits& limits) {
    if (a.size() < b.size()) {
        std::swap(a, b);
    }
    if (b.size() < limits.halving) {
        multiplyPlainly(product, a, b);
        return;
    }
    std::fill(product.begin(), product.end(), 0);
    const std::size_t piece = std::min(b.size(), limits.longest);
    for (std::size_t low = 0; low < b.size(); low += piece) {
        const Limbs second = b.subspan(low, std::min(piece, b.size() - low));
        for (std::size_t at = 0; at < a.size(); at += piece) {
            const Limbs first = a.subspan(at, std::min(piece, a.size() - at));
            const bool ordered = first.size() <= second.size();
            addProduct(product.subspan(low + at), ordered ? first : second,
                       ordered ? second : first, limits);
        }
    }
}

}  // namespace nolk
