// Sums and differences are made in place, on the digits of the result: the digits of one operand
// are laid down and those of the other added to them, fraction before integer part, eight at a time
// (DigitWords.h). Products go through machine words (DigitProduct.h).
#include "nolk/core/values/DecimalArithmetic.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <span>
#include <vector>

#include "nolk/core/values/DigitProduct.h"
#include "nolk/core/values/DigitSums.h"

namespace nolk {

namespace {

char* appendZeros(char* end, std::size_t count) {
    std::memset(end, '0', count);
    return end + count;
}

// Room for limbs; few ones need no memory. Not initialised.
class LimbBuffer {
public:
    explicit LimbBuffer(std::size_t size) : size_(size) {
        if (size > std::size(few_)) {
            more_.resize(size);
        }
    }

    std::span<std::uint64_t> limbs() {
        return {size_ > std::size(few_) ? more_.data() : few_, size_};
    }

private:
    std::size_t size_;
    std::uint64_t few_[64];
    std::vector<std::uint64_t> more_;
};

// The digits of an integer part and a fraction, as one integer.
class Factor {
public:
    Factor(std::string_view integer, std::string_view fraction)
        : buffer_(limbsOf(integer.size() + fraction.size())) {
        readLimbs(buffer_.limbs(), integer, fraction);
    }

    std::span<const std::uint64_t> limbs() { return buffer_.limbs(); }

private:
    LimbBuffer buffer_;
};

}  // namespace

// A number of digits with `scale` of the fraction, stripped of zeros at both ends. A zero has no
// sign.
Decimal DecimalArithmetic::ofDigits(std::string_view digits, std::size_t scale, bool negative) {
    const std::size_t point = digits.size() - scale;
    const std::string_view integer = withoutLeadingZeros(digits.substr(0, point));
    const std::string_view fraction = withoutTrailingZeros(digits.substr(point));
    return Decimal(negative && !(integer.empty() && fraction.empty()), integer, fraction);
}

Decimal DecimalArithmetic::plus(const Decimal& a, const Decimal& b, bool negative) {
    const bool integers = a.integer_.size() >= b.integer_.size();
    const bool fractions = a.fraction_.size() >= b.fraction_.size();
    const std::string_view integer = integers ? a.integer_ : b.integer_;
    const std::string_view fraction = fractions ? a.fraction_ : b.fraction_;
    const std::string_view otherInteger = integers ? b.integer_ : a.integer_;
    const std::string_view otherFraction = fractions ? b.fraction_ : a.fraction_;

    const std::size_t point = 1 + integer.size();
    const std::size_t above = point - otherInteger.size();
    DigitBuffer buffer(point + fraction.size());
    char* const digits = buffer.data();
    appendText(appendText(appendZeros(digits, 1), integer), fraction);
    const bool carry = asciiAdd(digits + point, otherFraction, false);
    if (asciiAdd(digits + above, otherInteger, carry)) {
        asciiIncrement(digits, above);
    }
    return ofDigits({digits, point + fraction.size()}, fraction.size(), negative);
}

Decimal DecimalArithmetic::minus(const Decimal& a, const Decimal& b, bool negative) {
    const std::size_t scale = std::max(a.fraction_.size(), b.fraction_.size());
    const std::size_t point = a.integer_.size();
    DigitBuffer buffer(point + scale);
    char* const digits = buffer.data();
    appendZeros(appendText(appendText(digits, a.integer_), a.fraction_),
                scale - a.fraction_.size());

    // Not longer than those of the larger operand.
    const std::string_view integer = withoutLeadingZeros(b.integer_);
    const std::size_t above = point - integer.size();
    const bool borrow = asciiSubtract(digits + point, b.fraction_, false);
    if (asciiSubtract(digits + above, integer, borrow)) {
        asciiDecrement(digits, above);
    }
    return ofDigits({digits, point + scale}, scale, negative);
}

int DecimalArithmetic::compare(const Decimal& a, const Decimal& b) noexcept {
    const int integers = compareIntegers(a.integer_, b.integer_);
    return integers != 0 ? integers : compareFractions(a.fraction_, b.fraction_);
}

Decimal DecimalArithmetic::sum(const Decimal& a, const Decimal& b, bool subtract) {
    if (!a.isNumber() || !b.isNumber()) {
        return sumOfOthers(a, b, subtract);
    }
    if (a.negative_ == (b.negative_ != subtract)) {
        return plus(a, b, a.negative_);
    }
    if (compare(a, b) >= 0) {
        return minus(a, b, a.negative_);
    }
    return minus(b, a, !a.negative_);
}

// An operand that is the result: without a sign that nothing bears.
Decimal DecimalArithmetic::unlessZero(const Decimal& value, bool negative) {
    Decimal result(value);
    result.negative_ = negative && value.isNumber() && !value.isZero();
    return result;
}

Decimal DecimalArithmetic::sumOfOthers(const Decimal& a, const Decimal& b, bool subtract) {
    for (const DecimalBase::State state : {DecimalBase::missing, DecimalBase::NaN}) {
        if (a.state() == state || b.state() == state) {
            return Decimal(state);
        }
    }
    if (a.state() == DecimalBase::null) {
        return unlessZero(b, b.negative_ != subtract);
    }
    const bool second = b.state() != DecimalBase::null && a.isNumber();
    return second ? Decimal(b.state()) : unlessZero(a, a.negative_);
}

Decimal DecimalArithmetic::product(const Decimal& a, const Decimal& b) {
    if (!a.isNumber() || !b.isNumber()) {
        // As of sums: beside a null stands the other operand.
        return sumOfOthers(a, b, false);
    }
    const bool negative = a.negative_ != b.negative_;
    if (std::max(a.precision(), b.precision()) <= digitsPerLimb) {
        const std::uint64_t first = readLimb(a.integer_, a.fraction_);
        const std::uint64_t second = readLimb(b.integer_, b.fraction_);
        char digits[2 * digitsPerLimb];
        writeLimbs(digits, multiplyLimb(first, second));
        return ofDigits({digits, std::size(digits)}, a.scale() + b.scale(), negative);
    }
    if (a.precision() == 0 || b.precision() == 0) {
        return {};
    }
    Factor first(a.integer_, a.fraction_);
    Factor second(b.integer_, b.fraction_);
    LimbBuffer product(first.limbs().size() + second.limbs().size());
    multiplyLimbs(product.limbs(), first.limbs(), second.limbs());

    const std::size_t length = product.limbs().size() * digitsPerLimb;
    DigitBuffer digits(length);
    writeLimbs(digits.data(), product.limbs());
    return ofDigits({digits.data(), length}, a.scale() + b.scale(), negative);
}

Decimal DecimalArithmetic::negated(const Decimal& value) {
    Decimal result(value);
    result.negative_ = !value.negative_;
    return result;
}

// The digits without their zeros, as if both were trimmed.
bool DecimalArithmetic::equal(const Decimal& a, const Decimal& b) noexcept {
    if (!a.isNumber() || !b.isNumber()) {
        return a.state() == b.state();
    }
    if (a.negative_ != b.negative_) {
        return a.isZero() && b.isZero();
    }
    return compare(a, b) == 0;
}

bool DecimalArithmetic::less(const Decimal& a, const Decimal& b) noexcept {
    if (a.negative_ && b.negative_) {
        return compare(b, a) < 0;
    }
    if (a.negative_ != b.negative_) {
        // Of what are no numbers, the sign alone counts.
        return a.negative_ && !equal(a, b);
    }
    return compare(a, b) < 0;
}

Decimal operator+(const Decimal& a, const Decimal& b) {
    return DecimalArithmetic::sum(a, b, false);
}

Decimal operator-(const Decimal& a, const Decimal& b) {
    return DecimalArithmetic::sum(a, b, true);
}

Decimal operator*(const Decimal& a, const Decimal& b) {
    return DecimalArithmetic::product(a, b);
}

Decimal operator-(const Decimal& value) {
    return DecimalArithmetic::negated(value);
}

bool operator==(const Decimal& a, const Decimal& b) noexcept {
    return DecimalArithmetic::equal(a, b);
}

bool operator<(const Decimal& a, const Decimal& b) noexcept {
    return DecimalArithmetic::less(a, b);
}

}  // namespace nolk
