/** @file
 * Sets of the units below 256.
 */
#ifndef NOLK_CORE_REGEX_REGEX_BITMAP_H
#define NOLK_CORE_REGEX_REGEX_BITMAP_H

#include <cstdint>

namespace nolk {

/** One bit for each of the values 0 to 255. */
class RegexBitmap {
public:
    constexpr RegexBitmap() noexcept : words_{} {}

    constexpr bool contains(unsigned value) const noexcept {
        return (words_[value >> 6] >> (value & 63) & 1) != 0;
    }
    constexpr void add(unsigned value) noexcept {
        words_[value >> 6] |= std::uint64_t{1} << (value & 63);
    }
    /** Adds the values from `low` to `high`, both included; nothing if `low` is above `high`. */
    constexpr void addRange(unsigned low, unsigned high) noexcept {
        for (unsigned word = low >> 6; low <= high && word <= high >> 6; ++word) {
            const unsigned from = word == low >> 6 ? low & 63 : 0;
            const unsigned to = word == high >> 6 ? high & 63 : 63;
            words_[word] |= (~std::uint64_t{0} >> (63 - to)) & (~std::uint64_t{0} << from);
        }
    }
    constexpr void addAll(const RegexBitmap& other) noexcept {
        for (unsigned i = 0; i < 4; ++i) {
            words_[i] |= other.words_[i];
        }
    }
    constexpr void removeAll(const RegexBitmap& other) noexcept {
        for (unsigned i = 0; i < 4; ++i) {
            words_[i] &= ~other.words_[i];
        }
    }
    constexpr void invert() noexcept {
        for (std::uint64_t& word : words_) {
            word = ~word;
        }
    }
    constexpr bool meets(const RegexBitmap& other) const noexcept {
        std::uint64_t common = 0;
        for (unsigned i = 0; i < 4; ++i) {
            common |= words_[i] & other.words_[i];
        }
        return common != 0;
    }
    constexpr unsigned count() const noexcept {
        unsigned bits = 0;
        for (unsigned value = 0; value < 256; ++value) {
            bits += contains(value);
        }
        return bits;
    }

private:
    std::uint64_t words_[4];
};

}  // namespace nolk

#endif
