/** @file
 * Decimal digits in ASCII, eight and sixteen at a time in one machine word.
 *
 * A packed word holds eight digits, one in each byte, the most significant in the highest byte:
 * sums and comparisons of packed words then run in the order of the digits.
 */
#ifndef NOLK_CORE_VALUES_DIGIT_WORDS_H
#define NOLK_CORE_VALUES_DIGIT_WORDS_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace nolk::digits {

/** The digits in a packed word. */
inline constexpr std::size_t perWord = 8;

/** A word of this byte in each place. */
constexpr std::uint64_t repeated(unsigned byte) {
    return 0x0101010101010101u * std::uint64_t{byte};
}

constexpr std::uint64_t reversed(std::uint64_t word) {
    return __builtin_bswap64(word);
}

/** The first byte in the lowest place, on every machine. */
inline std::uint64_t loadLittle(const char* text) {
    std::uint64_t word;
    std::memcpy(&word, text, sizeof word);
    return std::endian::native == std::endian::little ? word : reversed(word);
}

inline void storeLittle(char* text, std::uint64_t word) {
    word = std::endian::native == std::endian::little ? word : reversed(word);
    std::memcpy(text, &word, sizeof word);
}

/** Eight ASCII digits as a packed word of values 0 to 9. */
inline std::uint64_t load(const char* text) {
    return reversed(loadLittle(text)) & repeated(0x0F);
}

inline void store(char* text, std::uint64_t packed) {
    storeLittle(text, reversed(packed | repeated(0x30)));
}

/**
 * Sums and differences are made of whole words, with 0xF6 added in each byte so that decimal
 * carries become binary ones. The bytes that then carried hold their digit, the others have 0xF in
 * the upper half and a lower half that is 6 too high.
 */
constexpr std::uint64_t adjusted(std::uint64_t word) {
    return (word & repeated(0x0F)) - (word >> 4 & repeated(0x06));
}

/** a + b + carry; `carry`, 0 or 1, becomes what doesn't fit. */
constexpr std::uint64_t add(std::uint64_t a, std::uint64_t b, std::uint64_t& carry) {
    const std::uint64_t raised = a + repeated(0xF6);
    const std::uint64_t sum = raised + b;
    const std::uint64_t total = sum + carry;
    carry = (sum < raised) | (total < sum);
    return adjusted(total);
}

/** a - b - borrow; `borrow`, 0 or 1, becomes what was taken from the word above. */
constexpr std::uint64_t subtract(std::uint64_t a, std::uint64_t b, std::uint64_t& borrow) {
    const std::uint64_t difference = a - b;
    const std::uint64_t total = difference - borrow;
    borrow = (a < b) | (difference < borrow);
    return adjusted(total);
}

inline std::uint64_t loadFour(const char* text) {
    std::uint32_t word;
    std::memcpy(&word, text, sizeof word);
    const std::uint64_t wide = word;
    return std::endian::native == std::endian::little ? reversed(wide) >> 32 : wide;
}

inline void storeFour(char* text, std::uint64_t packed) {
    const std::uint64_t bytes = packed | repeated(0x30);
    const auto word = static_cast<std::uint32_t>(
        std::endian::native == std::endian::little ? reversed(bytes << 32) : bytes);
    std::memcpy(text, &word, sizeof word);
}

/** Fewer than eight ASCII digits, as the lowest of a packed word. Loads overlap, not loop. */
inline std::uint64_t loadFew(const char* text, std::size_t length) {
    if (length >= 4) {
        return (loadFour(text) << 8 * (length - 4) | loadFour(text + length - 4)) & repeated(0x0F);
    }
    if (length == 0) {
        return 0;
    }
    const auto digit = [text, length](std::size_t place) {
        return (static_cast<std::uint64_t>(text[place]) & 0x0F) << 8 * (length - 1 - place);
    };
    return digit(0) | digit(length / 2) | digit(length - 1);
}

/** The lowest digits, fewer than eight. */
inline void storeFew(char* text, std::uint64_t packed, std::size_t length) {
    if (length >= 4) {
        storeFour(text, packed >> 8 * (length - 4) & 0xFFFFFFFFu);
        storeFour(text + length - 4, packed & 0xFFFFFFFFu);
        return;
    }
    if (length == 0) {
        return;
    }
    const auto digit = [packed, length](std::size_t place) {
        return static_cast<char>('0' + (packed >> 8 * (length - 1 - place) & 0x0F));
    };
    text[0] = digit(0);
    text[length / 2] = digit(length / 2);
    text[length - 1] = digit(length - 1);
}

/** The value of a word of digits, the first in the lowest byte: of pairs of digits, then of pairs
 * of pairs, then of both fours. */
constexpr std::uint64_t valueOfLittle(std::uint64_t word) {
    word = (word * (10 * 0x100 + 1)) >> 8 & 0x00FF00FF00FF00FFu;
    word = (word * (100 * 0x10000 + 1)) >> 16 & 0x0000FFFF0000FFFFu;
    return (word * (10000 * 0x100000000u + 1)) >> 32;
}

/** The value of eight ASCII digits. */
inline std::uint64_t parseEight(const char* text) {
    return valueOfLittle(loadLittle(text) & repeated(0x0F));
}

/** The value of at most sixteen ASCII digits. */
inline std::uint64_t parseFew(const char* text, std::size_t length) {
    if (length < perWord) {
        return valueOfLittle(reversed(loadFew(text, length)));
    }
    if (length == 2 * perWord) {
        return parseEight(text) * 100'000'000 + parseEight(text + perWord);
    }
    const std::size_t few = length - perWord;
    return valueOfLittle(reversed(loadFew(text, few))) * 100'000'000 + parseEight(text + few);
}

/** Eight ASCII digits of a value below 10^8. The products are exact quotients in their lanes. */
inline void printEight(char* text, std::uint64_t value) {
    const std::uint64_t fours = value / 10000 | (value % 10000) << 32;
    const std::uint64_t hundreds = (fours * 10486) >> 20 & 0x0000007F0000007Fu;
    const std::uint64_t pairs = hundreds | (fours - hundreds * 100) << 16;
    const std::uint64_t tens = (pairs * 103) >> 10 & 0x000F000F000F000Fu;
    storeLittle(text, (tens | (pairs - tens * 10) << 8) | repeated(0x30));
}

}  // namespace nolk::digits

#endif
