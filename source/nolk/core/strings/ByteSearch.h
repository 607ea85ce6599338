#ifndef NOLK_CORE_STRINGS_BYTE_SEARCH_H
#define NOLK_CORE_STRINGS_BYTE_SEARCH_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "nolk/core/foundation/Processor.h"

#ifdef NOLK_CORE_X86_VECTORS
#include <emmintrin.h>
#endif

namespace nolk {

/** What findBytes() gives for no match. */
constexpr std::size_t noBytes = static_cast<std::size_t>(-1);

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

template <typename Word>
bool equalInWords(const char* a, const char* b, std::size_t n) noexcept {
    const std::size_t last = n - sizeof(Word);
    return wordAt<Word>(a) == wordAt<Word>(b) && wordAt<Word>(a + last) == wordAt<Word>(b + last);
}

constexpr std::size_t shortPattern = 16;

/** Whether a short pattern stands at a place where its first byte does. */
inline bool isShortAt(const char* text, const char* pattern, std::size_t patternLength) noexcept {
    if (patternLength >= 8) {
        return equalInWords<std::uint64_t>(text, pattern, patternLength);
    }
    if (patternLength >= 4) {
        return equalInWords<std::uint32_t>(text, pattern, patternLength);
    }
    return patternLength < 2 ||
           (text[1] == pattern[1] && text[patternLength - 1] == pattern[patternLength - 1]);
}

/** findBytes() for any number of offsets from `start` on. */
std::size_t findInLong(const char* text, std::size_t start, std::size_t offsets,
                       const char* pattern, std::size_t patternLength) noexcept;

#ifdef NOLK_CORE_X86_VECTORS

constexpr std::size_t blockSize = 16;

inline __m128i load(const char* from) noexcept {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}

inline unsigned maskOf(__m128i matches) noexcept {
    return static_cast<unsigned>(_mm_movemask_epi8(matches));
}

/** The same as an offset from `text`, among sixteen at most, and with a short pattern. The whole
 * block is read. */
inline std::size_t findInBlock(const char* text, std::size_t offsets, const char* pattern,
                               std::size_t patternLength) noexcept {
    unsigned candidates = maskOf(_mm_cmpeq_epi8(load(text), _mm_set1_epi8(*pattern)));
    for (candidates &= (1u << offsets) - 1; candidates != 0; candidates &= candidates - 1) {
        const auto i = static_cast<std::size_t>(std::countr_zero(candidates));
        if (isShortAt(text + i, pattern, patternLength)) {
            return i;
        }
    }
    return noBytes;
}

#endif

/**
 * Where the pattern begins first in the text, at or behind `start`, byte by byte. Best where its
 * first byte isn't rare: else memchr gets there faster.
 * @param readable the bytes from `text` on that may be read, whatever they hold
 * @pre 1 <= patternLength, start + patternLength <= textLength <= readable
 */
inline std::size_t findBytes(const char* text, std::size_t start, std::size_t textLength,
                             [[maybe_unused]] std::size_t readable, const char* pattern,
                             std::size_t patternLength) noexcept {
    const std::size_t offsets = textLength - start - patternLength + 1;
#ifdef NOLK_CORE_X86_VECTORS
    if (offsets <= blockSize && patternLength <= shortPattern && start + blockSize <= readable)
        [[likely]] {
        const std::size_t found = findInBlock(text + start, offsets, pattern, patternLength);
        return found == noBytes ? noBytes : start + found;
    }
#endif
    return findInLong(text, start, offsets, pattern, patternLength);
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
using Compare = int(const char* a, std::size_t an, const char* b, std::size_t bn,
                    std::size_t n) noexcept;
Compare compareInBlocks;

#ifdef NOLK_CORE_X86_VECTORS
/** The same. @pre processor::hasAvx2() */
Compare compareWithAvx2;
#endif

/** The faster of them that the processor has. In static initialisers of other libraries it may not
 * have been chosen yet, and is the first: that is slower, not wrong. */
extern Compare* compareMany;

/** -1, 0 or 1: the order of the first bytes that differ, as signed numbers, or of the lengths. */
inline int compareBytes(const char* a, std::size_t an, const char* b, std::size_t bn) noexcept {
    const std::size_t n = an < bn ? an : bn;
    if (n >= 16) {
        return compareMany(a, an, b, bn, n);
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
    const std::size_t n = an < bn ? an : bn;
    if (n > 16) [[likely]] {
        return compareMany(a, an, b, bn, n);
    }
#ifdef NOLK_CORE_X86_VECTORS
    const unsigned equal = maskOf(_mm_cmpeq_epi8(load(a), load(b)));
    const unsigned different = ~equal & ((1u << n) - 1);
    const int i = std::countr_zero(different);
    return different == 0 ? orderOfLengths(an, bn) : orderOfBytes(a[i], b[i]);
#else
    return compareBytes(a, an, b, bn);
#endif
}

/** Whether none of the n bytes has its top bit set. */
bool hasOnlyAscii(const char* text, std::size_t n) noexcept;

}  // namespace nolk

#endif
