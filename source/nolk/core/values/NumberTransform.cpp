// The coefficients of the product are found modulo two primes near 2^63, and put together from
// there by the Chinese remainder theorem. Modulo each prime the polynomials are transformed (a
// Fourier transform in the field of the prime, whose order allows lengths up to 2^32), multiplied
// place by place, and transformed back.
//
// The forward transform leaves its values in bit-reversed order, and the way back takes them so:
// nothing is ever put in order. Numbers are kept in Montgomery's form, x * 2^64 modulo the prime,
// where a product costs three multiplications and no division.
#include "nolk/core/values/NumberTransform.h"

#include <bit>
#include <vector>

namespace nolk {

namespace {

// Arithmetic modulo an odd prime below 2^63. Numbers are below the prime.
class Field {
public:
    constexpr explicit Field(std::uint64_t prime)
        : prime_(prime),
          inverse_(inverseOf(prime)),
          one_((~std::uint64_t{0}) % prime + 1),
          square_(lowerHalf(WideWord{one_} * one_ % prime)) {}

    constexpr std::uint64_t prime() const { return prime_; }
    constexpr std::uint64_t one() const { return one_; }

    constexpr std::uint64_t add(std::uint64_t a, std::uint64_t b) const {
        const std::uint64_t sum = a + b;
        return sum >= prime_ ? sum - prime_ : sum;
    }

    constexpr std::uint64_t subtract(std::uint64_t a, std::uint64_t b) const {
        return a >= b ? a - b : a - b + prime_;
    }

    // a * b / 2^64. Both products below agree in their lower half, which so falls away.
    constexpr std::uint64_t multiply(std::uint64_t a, std::uint64_t b) const {
        const WideWord product = WideWord{a} * b;
        const std::uint64_t multiple = lowerHalf(product) * inverse_;
        return subtract(upperHalf(product), upperHalf(WideWord{multiple} * prime_));
    }

    constexpr std::uint64_t enter(std::uint64_t value) const { return multiply(value, square_); }
    constexpr std::uint64_t leave(std::uint64_t value) const { return multiply(value, 1); }

    constexpr std::uint64_t power(std::uint64_t base, std::uint64_t exponent) const {
        std::uint64_t result = one_;
        for (; exponent != 0; exponent >>= 1) {
            result = (exponent & 1) != 0 ? multiply(result, base) : result;
            base = multiply(base, base);
        }
        return result;
    }

private:
    // Of an odd word modulo 2^64: each step doubles how many bits are right, from three on.
    static constexpr std::uint64_t inverseOf(std::uint64_t word) {
        std::uint64_t inverse = word;
        for (int step = 0; step < 5; ++step) {
            inverse *= 2 - word * inverse;
        }
        return inverse;
    }

    std::uint64_t prime_;
    std::uint64_t inverse_;
    std::uint64_t one_;     // 2^64 modulo the prime
    std::uint64_t square_;  // 2^128 modulo the prime
};

// The largest primes below 2^63 that are 1 modulo 2^32, and their least generators.
constexpr Field first(0x7FFFFFF900000001u);
constexpr std::uint64_t firstGenerator = 3;
constexpr Field second(0x7FFFFFE900000001u);
constexpr std::uint64_t secondGenerator = 19;

// Transforms of one length, a power of two, in one field.
class Transform {
public:
    Transform(const Field& field, std::uint64_t generator, std::size_t length)
        : field_(field), length_(length), roots_(length) {
        const std::uint64_t root =
            field.power(field.enter(generator), (field.prime() - 1) / length);
        fillRoots(root);
    }

    // The values of a polynomial at all powers of the root, in bit-reversed order.
    std::vector<std::uint64_t> forward(std::span<const std::uint64_t> coefficients) const {
        std::vector<std::uint64_t> values(length_);
        for (std::size_t place = 0; place < coefficients.size(); ++place) {
            values[place] = field_.enter(coefficients[place]);
        }
        for (std::size_t half = length_ / 2; half > 0; half /= 2) {
            for (std::size_t start = 0; start < length_; start += 2 * half) {
                split(&values[start], half);
            }
        }
        return values;
    }

    // The way back, in place; gives ordinary numbers.
    void backward(std::vector<std::uint64_t>& values) const {
        for (std::size_t half = 1; half < length_; half *= 2) {
            for (std::size_t start = 0; start < length_; start += 2 * half) {
                join(&values[start], half);
            }
        }
        const std::uint64_t scale =
            field_.leave(field_.power(field_.enter(length_), field_.prime() - 2));
        for (std::uint64_t& value : values) {
            value = field_.multiply(value, scale);
        }
    }

private:
    // From `half` on stand the first `half` powers of the root of order 2 * half.
    void fillRoots(std::uint64_t root) {
        std::uint64_t power = field_.one();
        for (std::size_t place = length_ / 2; place < length_; ++place) {
            roots_[place] = power;
            power = field_.multiply(power, root);
        }
        for (std::size_t place = length_ / 2; place-- > 1;) {
            roots_[place] = roots_[2 * place];
        }
    }

    void split(std::uint64_t* values, std::size_t half) const {
        const std::uint64_t* roots = &roots_[half];
        for (std::size_t place = 0; place < half; ++place) {
            const std::uint64_t a = values[place];
            const std::uint64_t b = values[place + half];
            values[place] = field_.add(a, b);
            values[place + half] = field_.multiply(field_.subtract(a, b), roots[place]);
        }
    }

    // The powers of the inverse root are those of the root from behind, with the other sign.
    void join(std::uint64_t* values, std::size_t half) const {
        const std::uint64_t* behind = &roots_[half] + half;
        const std::uint64_t lowest = values[half];
        values[half] = field_.subtract(values[0], lowest);
        values[0] = field_.add(values[0], lowest);
        for (std::size_t place = 1; place < half; ++place) {
            const std::uint64_t a = values[place];
            const std::uint64_t b = field_.multiply(values[place + half], *(behind - place));
            values[place] = field_.subtract(a, b);
            values[place + half] = field_.add(a, b);
        }
    }

    const Field& field_;
    std::size_t length_;
    std::vector<std::uint64_t> roots_;
};

// The coefficients of the product modulo the prime.
std::vector<std::uint64_t> convolution(const Field& field, std::uint64_t generator,
                                       std::span<const std::uint64_t> a,
                                       std::span<const std::uint64_t> b) {
    const Transform transform(field, generator, std::bit_ceil(a.size() + b.size() - 1));
    std::vector<std::uint64_t> values = transform.forward(a);
    const std::vector<std::uint64_t> others = transform.forward(b);
    for (std::size_t place = 0; place < values.size(); ++place) {
        values[place] = field.multiply(values[place], others[place]);
    }
    transform.backward(values);
    return values;
}

// 1 / the first prime modulo the second, in the second field's form.
constexpr std::uint64_t firstInverse =
    second.power(second.enter(first.prime() % second.prime()), second.prime() - 2);

}  // namespace

void transformProduct(std::span<WideWord> product, std::span<const std::uint64_t> a,
                      std::span<const std::uint64_t> b) {
    const std::vector<std::uint64_t> low = convolution(first, firstGenerator, a, b);
    const std::vector<std::uint64_t> high = convolution(second, secondGenerator, a, b);
    for (std::size_t place = 0; place < a.size() + b.size() - 1; ++place) {
        // The first prime is the larger one, by less than the second.
        const std::uint64_t wanted = second.subtract(high[place], low[place] % second.prime());
        const std::uint64_t multiple = second.multiply(wanted, firstInverse);
        product[place] = WideWord{multiple} * first.prime() + low[place];
    }
}

}  // namespace nolk
