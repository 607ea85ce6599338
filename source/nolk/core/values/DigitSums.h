/** @file
 * Sums, differences and comparisons of decimal digits in ASCII, the most significant first.
 */
#ifndef NOLK_CORE_VALUES_DIGIT_SUMS_H
#define NOLK_CORE_VALUES_DIGIT_SUMS_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

#include "nolk/core/values/DigitWords.h"

namespace nolk {

/** Room for text; short ones need no memory. Not initialised. */
class DigitBuffer {
public:
    explicit DigitBuffer(std::size_t size)
        : more_(size > sizeof few_ ? new char[size] : nullptr),
          text_(more_ == nullptr ? few_ : more_.get()) {}
    DigitBuffer(const DigitBuffer&) = delete;
    DigitBuffer& operator=(const DigitBuffer&) = delete;

    char* data() { return text_; }

private:
    char few_[256];
    std::unique_ptr<char[]> more_;
    char* text_;
};

/** Copies text of `half` to twice as many bytes. */
template <std::size_t half>
inline void copyBothEnds(char* to, std::string_view text) noexcept {
    char first[half];
    char last[half];
    std::memcpy(first, text.data(), half);
    std::memcpy(last, text.data() + text.size() - half, half);
    std::memcpy(to, first, half);
    std::memcpy(to + text.size() - half, last, half);
}

/** Adds the digits of `other`, and a carry, to as many digits in place. @return the carry */
bool asciiAdd(char* digits, std::string_view other, bool carry) noexcept;

/** Subtracts the digits of `other`, and a borrow, in place. @return the borrow */
bool asciiSubtract(char* digits, std::string_view other, bool borrow) noexcept;

/** Adds one in place. @return whether all were nines, and are now zeros */
bool asciiIncrement(char* digits, std::size_t length) noexcept;

/** Takes one away in place. @return whether all were zeros, and are now nines */
bool asciiDecrement(char* digits, std::size_t length) noexcept;

/** The digits without their leading zeros. */
inline std::string_view withoutLeadingZeros(std::string_view digits) noexcept {
    const char* begin = digits.data();
    const char* const end = begin + digits.size();
    for (; end - begin >= 8; begin += 8) {
        if (const std::uint64_t others = digits::loadLittle(begin) ^ digits::repeated('0')) {
            begin += std::countr_zero(others) / 8;
            break;
        }
    }
    while (begin != end && *begin == '0') {
        ++begin;
    }
    return {begin, static_cast<std::size_t>(end - begin)};
}

/** The digits without their trailing zeros. */
inline std::string_view withoutTrailingZeros(std::string_view digits) noexcept {
    const char* const begin = digits.data();
    const char* end = begin + digits.size();
    for (; end - begin >= 8; end -= 8) {
        if (const std::uint64_t others = digits::loadLittle(end - 8) ^ digits::repeated('0')) {
            end -= std::countl_zero(others) / 8;
            break;
        }
    }
    while (end != begin && end[-1] == '0') {
        --end;
    }
    return {begin, static_cast<std::size_t>(end - begin)};
}

/** Copies text, of which there is little as a rule. @return the end of the copy */
inline char* appendText(char* to, std::string_view text) noexcept {
    const std::size_t size = text.size();
    if (size > 16) {
        std::memcpy(to, text.data(), size);
    } else if (size >= 8) {
        copyBothEnds<8>(to, text);
    } else if (size >= 4) {
        copyBothEnds<4>(to, text);
    } else {
        for (std::size_t place = 0; place < size; ++place) {
            to[place] = text[place];
        }
    }
    return to + size;
}

/** Compares integers: negative, 0 or positive. Leading zeros don't count. */
int compareIntegers(std::string_view a, std::string_view b) noexcept;

/** Compares fractions: negative, 0 or positive. Trailing zeros don't count. */
int compareFractions(std::string_view a, std::string_view b) noexcept;

}  // namespace nolk

#endif
