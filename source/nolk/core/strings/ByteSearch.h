#ifndef NOLK_CORE_STRINGS_BYTE_SEARCH_H
#define NOLK_CORE_STRINGS_BYTE_SEARCH_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace nolk {

/** What findBytes() gives for no match. */
constexpr std::size_t noBytes = static_cast<std::size_t>(-1);

/**
 * Where the pattern begins first in the text, at or behind `start`, byte by byte. Best where its
 * first byte isn't rare: else memchr gets there faster.
 * @param readable the bytes from `text` on that may be read, whatever they hold
 * @pre 1 <= patternLength, start + patternLength <= textLength <= readable
 */
std::size_t findBytes(const char* text, std::size_t start, std::size_t textLength,
                      std::size_t readable, const char* pattern,
                      std::size_t patternLength) noexcept;

/** A number of 4 or 8 bytes as they stand in memory. */
template <typename Word>
Word wordAt(const char* from) noexcept {
    Word word;
    std::memcpy(&word, from, sizeof word);
    return word;
}

/** The place in memory of the first byte that isn't 0. */
template <typename Word>
std::size_t firstByteSet(Word word) noexcept {
    const int bits = std::endian::native == std::endian::little ? std::countr_zero(word)
                                                                : std::countl_zero(word);
    return static_cast<std::size_t>(bits) / 8;
}

/** -1 or 1 for two bytes that differ, as signed numbers. */
inline int orderOfBytes(char a, char b) noexcept {
    return static_cast<signed char>(a) < static_cast<signed char>(b) ? -1 : 1;
}

/** -1, 0 or 1 for the lengths of two texts that differ in nothing else. */
inline int orderOfLengths(std::size_t a, std::size_t b) noexcept {
    return a == b ? 0 : a < b ? -1 : 1;
}

/** compareBytes() where the shorter text has n bytes, one up to two words: compares the first word
 * and the last one, which may overlap. */
template <typename Word>
int compareInWords(const char* a, std::size_t an, const char* b, std::size_t bn,
                   std::size_t n) noexcept {
    std::size_t at = 0;
    Word difference = wordAt<Word>(a) ^ wordAt<Word>(b);
    if (difference == 0) {
        at = n - sizeof(Word);
        difference = wordAt<Word>(a + at) ^ wordAt<Word>(b + at);
    }
    if (difference == 0) {
        return orderOfLengths(an, bn);
    }
    at += firstByteSet(difference);
    return orderOfBytes(a[at], b[at]);
}

/** compareBytes() where the shorter text has n bytes, 16 or more. */
int compareInBlocks(const char* a, std::size_t an, const char* b, std::size_t bn,
                    std::size_t n) noexcept;

#ifdef __SSE2__
/** Whether this processor has AVX2. Not known in static initialisers of other libraries, and then
 * false: that is slower, not wrong. */
extern const bool hasAvx2;

/** The same for 32 bytes or more. @pre hasAvx2 */
int compareWithAvx2(const char* a, std::size_t an, const char* b, std::size_t bn,
                    std::size_t n) noexcept;
#endif

/** -1, 0 or 1: the order of the first bytes that differ, as signed numbers, or of the lengths. */
inline int compareBytes(const char* a, std::size_t an, const char* b, std::size_t bn) noexcept {
    const std::size_t n = an < bn ? an : bn;
    if (n >= 16) {
#ifdef __SSE2__
        if (n >= 32 && hasAvx2) {
            return compareWithAvx2(a, an, b, bn, n);
        }
#endif
        return compareInBlocks(a, an, b, bn, n);
    }
    if (n >= 8) [[likely]] {
        return compareInWords<std::uint64_t>(a, an, b, bn, n);
    }
    if (n >= 4) {
        return compareInWords<std::uint32_t>(a, an, b, bn, n);
    }
    for (std::size_t i = 0; i < n; ++i) {
        if (a[i] != b[i]) {
            return orderOfBytes(a[i], b[i]);
        }
    }
    return orderOfLengths(an, bn);
}

/** The same where 16 bytes of each may be read, whatever they hold. */
inline int compareRoomyBytes(const char* a, std::size_t an, const char* b,
                             std::size_t bn) noexcept {
#ifdef __SSE2__
    const std::size_t n = an < bn ? an : bn;
    if (n <= 16) {
        const __m128i equal = _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(a)),
                                             _mm_loadu_si128(reinterpret_cast<const __m128i*>(b)));
        const auto different = ~static_cast<unsigned>(_mm_movemask_epi8(equal)) & ((1u << n) - 1);
        const int i = std::countr_zero(different);
        return different == 0 ? orderOfLengths(an, bn) : orderOfBytes(a[i], b[i]);
    }
#endif
    return compareBytes(a, an, b, bn);
}

/** Whether none of the n bytes has its top bit set. */
bool hasOnlyAscii(const char* text, std::size_t n) noexcept;

}  // namespace nolk

#endif
