#include "nolk/core/strings/ByteSearch.h"

#ifdef NOLK_CORE_X86_VECTORS
#include <immintrin.h>
#endif

namespace nolk {

namespace {

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

#ifdef NOLK_CORE_X86_VECTORS

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

[[gnu::target("avx2")]] std::uint32_t maskOf(__m256i matches) noexcept {
    return static_cast<std::uint32_t>(_mm256_movemask_epi8(matches));
}

[[gnu::target("avx2")]] std::uint64_t maskOf(__m256i low, __m256i high) noexcept {
    return std::uint64_t{maskOf(high)} << 32 | maskOf(low);
}

constexpr std::size_t wideSize = sizeof(__m256i);
constexpr std::size_t wideBlock = 4 * wideSize;
constexpr std::uint32_t allOf32 = ~std::uint32_t{0};

// The first byte that differs in a block. Inline, as a call would take longer.
[[gnu::target("avx2"), gnu::always_inline]] inline std::size_t findDifference(
    const char* a, const char* b) noexcept {
    const __m256i equal0 = equalAvx2(a, b);
    const __m256i equal1 = equalAvx2(a + wideSize, b + wideSize);
    const __m256i equal2 = equalAvx2(a + 2 * wideSize, b + 2 * wideSize);
    const __m256i equal3 = equalAvx2(a + 3 * wideSize, b + 3 * wideSize);
    const __m256i equal =
        _mm256_and_si256(_mm256_and_si256(equal0, equal1), _mm256_and_si256(equal2, equal3));
    if (maskOf(equal) == allOf32) [[likely]] {
        return noBytes;
    }
    const std::uint64_t low = maskOf(equal0, equal1);
    return static_cast<std::size_t>(low != ~std::uint64_t{0}
                                        ? std::countr_one(low)
                                        : 64 + std::countr_one(maskOf(equal2, equal3)));
}

// The same for half a block and for a quarter.
[[gnu::target("avx2"), gnu::always_inline]] inline std::size_t findDifferenceInHalf(
    const char* a, const char* b) noexcept {
    const __m256i equal0 = equalAvx2(a, b);
    const __m256i equal1 = equalAvx2(a + wideSize, b + wideSize);
    return maskOf(_mm256_and_si256(equal0, equal1)) == allOf32
               ? noBytes
               : static_cast<std::size_t>(std::countr_one(maskOf(equal0, equal1)));
}

[[gnu::target("avx2"), gnu::always_inline]] inline std::size_t findDifferenceInQuarter(
    const char* a, const char* b) noexcept {
    const std::uint32_t equal = maskOf(equalAvx2(a, b));
    return equal == allOf32 ? noBytes : static_cast<std::size_t>(std::countr_one(equal));
}

#endif

}  // namespace

#ifdef NOLK_CORE_X86_VECTORS

std::size_t findInLong(const char* text, std::size_t start, std::size_t offsets,
                       const char* pattern, std::size_t patternLength) noexcept {
    const std::size_t found =
        offsets >= blockSize ? findInBlocks(text + start, offsets, pattern, patternLength)
                             : findFromFirstByte(text + start, offsets, pattern, patternLength);
    return found == noBytes ? noBytes : start + found;
}

// Up to two blocks are compared from both ends: like the words of a short text, the last block,
// half or quarter may overlap the first. Jumps would take more time here than what they save.
[[gnu::target("avx2")]] int compareWithAvx2(const char* a, std::size_t an, const char* b,
                                            std::size_t bn, std::size_t n) noexcept {
    std::size_t at = 0;
    if (n >= wideBlock) [[likely]] {
        for (; n > 2 * wideBlock; n -= wideBlock) {
            at = findDifference(a, b);
            if (at != noBytes) [[unlikely]] {
                return orderOfBytes(a[at], b[at]);
            }
            a += wideBlock;
            b += wideBlock;
        }
        at = findDifference(a, b);
        if (at == noBytes) [[likely]] {
            a = a + n - wideBlock;
            b = b + n - wideBlock;
            at = findDifference(a, b);
        }
    } else if (n >= wideBlock / 2) {
        at = findDifferenceInHalf(a, b);
        if (at == noBytes) {
            a = a + n - wideBlock / 2;
            b = b + n - wideBlock / 2;
            at = findDifferenceInHalf(a, b);
        }
    } else if (n >= wideSize) {
        at = findDifferenceInQuarter(a, b);
        if (at == noBytes) {
            a = a + n - wideSize;
            b = b + n - wideSize;
            at = findDifferenceInQuarter(a, b);
        }
    } else {
        return compareInBlocks(a, an, b, bn, n);
    }
    return at == noBytes ? orderOfLengths(an, bn) : orderOfBytes(a[at], b[at]);
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

std::size_t findInLong(const char* text, std::size_t start, std::size_t offsets,
                       const char* pattern, std::size_t patternLength) noexcept {
    const std::size_t found = findFromFirstByte(text + start, offsets, pattern, patternLength);
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

constinit Compare* compareMany = compareInBlocks;

#ifdef NOLK_CORE_X86_VECTORS

namespace {

[[maybe_unused]] const bool isChosen = [] {
    if (processor::hasAvx2()) {
        compareMany = compareWithAvx2;
    }
    return true;
}();

}  // namespace

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
