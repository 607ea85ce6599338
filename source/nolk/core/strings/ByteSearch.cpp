#include "nolk/core/strings/ByteSearch.h"

#ifdef __SSE2__
#include <immintrin.h>
#endif

namespace nolk {

namespace {

template <typename Word>
bool equalInWords(const char* a, const char* b, std::size_t n) noexcept {
    const std::size_t last = n - sizeof(Word);
    return wordAt<Word>(a) == wordAt<Word>(b) && wordAt<Word>(a + last) == wordAt<Word>(b + last);
}

constexpr std::size_t shortPattern = 16;

// Whether the pattern stands at a place where its first byte does.
bool isShortAt(const char* text, const char* pattern, std::size_t patternLength) noexcept {
    if (patternLength >= 8) {
        return equalInWords<std::uint64_t>(text, pattern, patternLength);
    }
    if (patternLength >= 4) {
        return equalInWords<std::uint32_t>(text, pattern, patternLength);
    }
    return patternLength < 2 ||
           (text[1] == pattern[1] && text[patternLength - 1] == pattern[patternLength - 1]);
}

bool isAt(const char* text, const char* pattern, std::size_t patternLength) noexcept {
    return patternLength <= shortPattern ? isShortAt(text, pattern, patternLength)
                                         : std::memcmp(text, pattern, patternLength) == 0;
}

const char* findByte(const char* text, std::size_t n, char c) noexcept {
    return static_cast<const char*>(std::memchr(text, c, n));
}

// Goes from one occurrence of the pattern's first byte to the next.
std::size_t findFromFirstByte(const char* text, std::size_t offsets, const char* pattern,
                              std::size_t patternLength) noexcept {
    const char* const end = text + offsets;
    const char* at = findByte(text, offsets, *pattern);
    while (at != nullptr && !isAt(at, pattern, patternLength)) {
        ++at;
        at = findByte(at, static_cast<std::size_t>(end - at), *pattern);
    }
    return at == nullptr ? noBytes : static_cast<std::size_t>(at - text);
}

#ifdef __SSE2__

constexpr std::size_t blockSize = 16;

__m128i load(const char* from) noexcept {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}

unsigned maskOf(__m128i matches) noexcept {
    return static_cast<unsigned>(_mm_movemask_epi8(matches));
}

// The offsets, of sixteen, at which both the first and the last byte of a pattern stand in their
// places; only there the rest needs to be compared.
class PairSearch {
public:
    PairSearch(const char* pattern, std::size_t patternLength) noexcept
        : last_(patternLength - 1),
          firstByte_(_mm_set1_epi8(pattern[0])),
          lastByte_(_mm_set1_epi8(pattern[patternLength - 1])) {}

    unsigned candidates(const char* text) const noexcept {
        return maskOf(_mm_and_si128(_mm_cmpeq_epi8(load(text), firstByte_),
                                    _mm_cmpeq_epi8(load(text + last_), lastByte_)));
    }

private:
    std::size_t last_;
    __m128i firstByte_;
    __m128i lastByte_;
};

// Among sixteen offsets at most, and with a short pattern. The whole block is read.
std::size_t findInBlock(const char* text, std::size_t offsets, const char* pattern,
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

// Among sixteen offsets at least. The last block begins among offsets that have been tried, so as
// to end at the last one.
std::size_t findInBlocks(const char* text, std::size_t offsets, const char* pattern,
                         std::size_t patternLength) noexcept {
    const PairSearch search(pattern, patternLength);
    for (std::size_t at = 0; at < offsets; at += blockSize) {
        at = at + blockSize <= offsets ? at : offsets - blockSize;
        unsigned candidates = search.candidates(text + at);
        for (; candidates != 0; candidates &= candidates - 1) {
            const std::size_t i = at + static_cast<std::size_t>(std::countr_zero(candidates));
            if (isAt(text + i, pattern, patternLength)) {
                return i;
            }
        }
    }
    return noBytes;
}

[[gnu::target("avx2")]] __m256i equalAvx2(const char* a, const char* b) noexcept {
    return _mm256_cmpeq_epi8(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(a)),
                             _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b)));
}

[[gnu::target("avx2")]] std::uint32_t differentAvx2(__m256i equal) noexcept {
    return ~static_cast<std::uint32_t>(_mm256_movemask_epi8(equal));
}

#endif

}  // namespace

#ifdef __SSE2__

// Apart from findBytes(), which then needs no registers saved.
[[gnu::noinline]] static std::size_t findInLong(const char* text, std::size_t start,
                                                std::size_t offsets, const char* pattern,
                                                std::size_t patternLength) noexcept {
    const std::size_t found =
        offsets >= blockSize ? findInBlocks(text + start, offsets, pattern, patternLength)
                             : findFromFirstByte(text + start, offsets, pattern, patternLength);
    return found == noBytes ? noBytes : start + found;
}

std::size_t findBytes(const char* text, std::size_t start, std::size_t textLength,
                      std::size_t readable, const char* pattern,
                      std::size_t patternLength) noexcept {
    const std::size_t offsets = textLength - start - patternLength + 1;
    if (offsets > blockSize || patternLength > shortPattern || start + blockSize > readable) {
        return findInLong(text, start, offsets, pattern, patternLength);
    }
    const std::size_t found = findInBlock(text + start, offsets, pattern, patternLength);
    return found == noBytes ? noBytes : start + found;
}

const bool hasAvx2 = [] {
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx2") != 0;
}();

// Two blocks at a time. Like the words of a short text, the last block may
// overlap the one before.
[[gnu::target("avx2")]] int compareWithAvx2(const char* a, std::size_t an, const char* b,
                                            std::size_t bn, std::size_t n) noexcept {
    constexpr std::size_t size = 32;
    std::size_t i = 0;
    for (; i + 2 * size <= n; i += 2 * size) {
        const __m256i head = equalAvx2(a + i, b + i);
        const __m256i tail = equalAvx2(a + i + size, b + i + size);
        if (differentAvx2(_mm256_and_si256(head, tail)) != 0) [[unlikely]] {
            const std::uint64_t tails = differentAvx2(tail);
            i += static_cast<std::size_t>(std::countr_zero(tails << 32 | differentAvx2(head)));
            return orderOfBytes(a[i], b[i]);
        }
    }
    for (; i < n; i += size) {
        i = i + size <= n ? i : n - size;
        const std::uint32_t different = differentAvx2(equalAvx2(a + i, b + i));
        if (different != 0) {
            i += static_cast<std::size_t>(std::countr_zero(different));
            return orderOfBytes(a[i], b[i]);
        }
    }
    return orderOfLengths(an, bn);
}

int compareInBlocks(const char* a, std::size_t an, const char* b, std::size_t bn,
                    std::size_t n) noexcept {
    for (std::size_t i = 0; i < n; i += blockSize) {
        i = i + blockSize <= n ? i : n - blockSize;
        const unsigned equal = maskOf(_mm_cmpeq_epi8(load(a + i), load(b + i)));
        if (equal != 0xFFFF) {
            i += static_cast<std::size_t>(std::countr_one(equal));
            return orderOfBytes(a[i], b[i]);
        }
    }
    return orderOfLengths(an, bn);
}

#else

std::size_t findBytes(const char* text, std::size_t start, std::size_t textLength, std::size_t,
                      const char* pattern, std::size_t patternLength) noexcept {
    const std::size_t found = findFromFirstByte(
        text + start, textLength - start - patternLength + 1, pattern, patternLength);
    return found == noBytes ? noBytes : start + found;
}

int compareInBlocks(const char* a, std::size_t an, const char* b, std::size_t bn,
                    std::size_t n) noexcept {
    constexpr std::size_t size = sizeof(std::uint64_t);
    std::size_t i = 0;
    while (i + 2 * size < n && wordAt<std::uint64_t>(a + i) == wordAt<std::uint64_t>(b + i)) {
        i += size;
    }
    return compareInWords<std::uint64_t>(a + i, an, b + i, bn, n - i < 2 * size ? n - i : 2 * size);
}

#endif

bool hasOnlyAscii(const char* text, std::size_t n) noexcept {
    constexpr std::uint64_t tops = 0x8080808080808080;
    constexpr std::size_t size = sizeof tops;
    std::size_t i = 0;
    for (; i + size <= n; i += size) {
        if ((wordAt<std::uint64_t>(text + i) & tops) != 0) {
            return false;
        }
    }
    unsigned rest = 0;
    for (; i < n; ++i) {
        rest |= static_cast<unsigned char>(text[i]);
    }
    return rest < 0x80;
}

}  // namespace nolk
