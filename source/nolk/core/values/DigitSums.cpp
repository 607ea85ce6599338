#include "nolk/core/values/DigitSums.h"

#include "nolk/core/values/DigitWords.h"

#include <cstdint>

namespace nolk {

bool asciiAdd(char* digits, std::string_view other, bool carry) noexcept {
    std::uint64_t rest = carry;
    std::size_t length = other.size();
    for (; length >= digits::perWord; length -= digits::perWord) {
        const std::size_t place = length - digits::perWord;
        const std::uint64_t sum =
            digits::add(digits::load(digits + place), digits::load(other.data() + place), rest);
        digits::store(digits + place, sum);
    }
    // The digits at the upper end are too few for a word, whose next digit has the carry.
    const std::uint64_t sum =
        digits::add(digits::loadFew(digits, length), digits::loadFew(other.data(), length), rest);
    digits::storeFew(digits, sum, length);
    return sum >> 8 * length != 0;
}

bool asciiSubtract(char* digits, std::string_view other, bool borrow) noexcept {
    std::uint64_t rest = borrow;
    std::size_t length = other.size();
    for (; length >= digits::perWord; length -= digits::perWord) {
        const std::size_t place = length - digits::perWord;
        const std::uint64_t difference = digits::subtract(digits::load(digits + place),
                                                          digits::load(other.data() + place), rest);
        digits::store(digits + place, difference);
    }
    const std::uint64_t difference = digits::subtract(digits::loadFew(digits, length),
                                                      digits::loadFew(other.data(), length), rest);
    digits::storeFew(digits, difference, length);
    return rest != 0;
}

bool asciiIncrement(char* digits, std::size_t length) noexcept {
    while (length > 0 && digits[length - 1] == '9') {
        digits[--length] = '0';
    }
    if (length == 0) {
        return true;
    }
    ++digits[length - 1];
    return false;
}

bool asciiDecrement(char* digits, std::size_t length) noexcept {
    while (length > 0 && digits[length - 1] == '0') {
        digits[--length] = '9';
    }
    if (length == 0) {
        return true;
    }
    --digits[length - 1];
    return false;
}

int compareIntegers(std::string_view a, std::string_view b) noexcept {
    a = withoutLeadingZeros(a);
    b = withoutLeadingZeros(b);
    return a.size() != b.size() ? (a.size() < b.size() ? -1 : 1) : a.compare(b);
}

int compareFractions(std::string_view a, std::string_view b) noexcept {
    return withoutTrailingZeros(a).compare(withoutTrailingZeros(b));
}

}  // namespace nolk
