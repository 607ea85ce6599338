#include <nolk/core/regex/ByteScan.h>

#include <nolk/core/foundation/Processor.h>

#include <bit>
#include <cstring>

#ifdef NOLK_CORE_X86_VECTORS
#include <immintrin.h>
#endif

namespace nolk::regexscan {

namespace {

unsigned value(char c) {
    return static_cast<unsigned char>(c);
}

template <bool wanted>
const char* findByByte(const char* p, const char* end, const RegexBitmap& set) {
    while (p != end && set.contains(value(*p)) != wanted) {
        ++p;
    }
    return p;
}

const char* findTextByByte(const char* p, const char* end, const char* text, std::size_t length) {
    for (; static_cast<std::size_t>(end - p) >= length; ++p) {
        const auto places = static_cast<std::size_t>(end - p) - length + 1;
        p = static_cast<const char*>(std::memchr(p, value(text[0]), places));
        if (p == nullptr) {
            return end;
        }
        if (std::memcmp(p, text, length) == 0) {
            return p;
        }
    }
    return end;
}

#ifdef NOLK_CORE_X86_VECTORS

// Functions of their own and not templates: code for newer processors must not leak into inline
// functions that the rest of the library shares.

[[gnu::target("avx2")]] inline __m256i load(const char* p) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
}

[[gnu::target("avx2")]] inline __m256i row(const std::uint8_t* entries) {
    return _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(entries)));
}

// One bit for each of 32 bytes: whether the bit of its upper half is set in the entry of its lower
// half. A shuffle gives 0 where the index has its top bit set, which keeps the two rows apart.
[[gnu::target("avx2")]] inline std::uint32_t outsideMask(__m256i bytes, __m256i low, __m256i high,
                                                         __m256i bits) {
    const __m256i top = _mm256_set1_epi8(static_cast<char>(0x80));
    const __m256i upper = _mm256_and_si256(_mm256_srli_epi16(bytes, 4), _mm256_set1_epi8(7));
    const __m256i entry = _mm256_or_si256(
        _mm256_shuffle_epi8(low,
                            _mm256_and_si256(bytes, _mm256_set1_epi8(static_cast<char>(0x8F)))),
        _mm256_shuffle_epi8(high, _mm256_and_si256(_mm256_xor_si256(bytes, top),
                                                   _mm256_set1_epi8(static_cast<char>(0x8F)))));
    const __m256i found = _mm256_and_si256(entry, _mm256_shuffle_epi8(bits, upper));
    return static_cast<std::uint32_t>(
        _mm256_movemask_epi8(_mm256_cmpeq_epi8(found, _mm256_setzero_si256())));
}

[[gnu::target("avx2")]] const char* findInSetAvx2(const char* p, const char* end,
                                                  const Nibbles& nibbles, std::uint32_t flip) {
    const __m256i low = row(nibbles[0]);
    const __m256i high = row(nibbles[1]);
    const __m256i bits = _mm256_set1_epi64x(static_cast<long long>(0x8040201008040201));
    for (; end - p >= 32; p += 32) {
        const std::uint32_t mask = outsideMask(load(p), low, high, bits) ^ flip;
        if (mask != 0) {
            return p + std::countr_zero(mask);
        }
    }
    return p;
}

// Places where both the first and the last byte fit are compared.
[[gnu::target("avx2")]] const char* findTextAvx2(const char* p, const char* end, const char* text,
                                                 std::size_t length) {
    const __m256i first = _mm256_set1_epi8(text[0]);
    const __m256i last = _mm256_set1_epi8(text[length - 1]);
    for (; static_cast<std::size_t>(end - p) >= length + 31; p += 32) {
        const __m256i fits = _mm256_and_si256(_mm256_cmpeq_epi8(load(p), first),
                                              _mm256_cmpeq_epi8(load(p + length - 1), last));
        auto mask = static_cast<std::uint32_t>(_mm256_movemask_epi8(fits));
        for (; mask != 0; mask &= mask - 1) {
            const char* const place = p + std::countr_zero(mask);
            if (std::memcmp(place, text, length) == 0) {
                return place;
            }
        }
    }
    return findTextByByte(p, end, text, length);
}

bool hasAvx2() {
    static const bool has = processor::hasAvx2();
    return has;
}

#endif

// The first bytes by themselves: most runs are short.
constexpr std::ptrdiff_t shortRun = 8;

template <bool wanted>
const char* find(const char* p, const char* end, const RegexBitmap& set, const Nibbles& nibbles) {
    const char* const close = end - p > shortRun ? p + shortRun : end;
    p = findByByte<wanted>(p, close, set);
    if (p != close) {
        return p;
    }
#ifdef NOLK_CORE_X86_VECTORS
    if (end - p >= 32 && hasAvx2()) {
        p = findInSetAvx2(p, end, nibbles, wanted ? ~std::uint32_t{0} : 0);
    }
#else
    static_cast<void>(nibbles);
#endif
    return findByByte<wanted>(p, end, set);
}

}  // namespace

void fillNibbles(const RegexBitmap& set, Nibbles& nibbles) noexcept {
    std::memset(nibbles, 0, sizeof nibbles);
    for (unsigned byte = 0; byte < 256; ++byte) {
        const unsigned upper = byte >> 4;
        const unsigned bit = set.contains(byte) ? 1u << (upper & 7) : 0;
        nibbles[upper >> 3][byte & 15] |= static_cast<std::uint8_t>(bit);
    }
}

const char* findInSet(const char* p, const char* end, const RegexBitmap& set,
                      const Nibbles& nibbles) noexcept {
    return find<true>(p, end, set, nibbles);
}

const char* findOutsideSet(const char* p, const char* end, const RegexBitmap& set,
                           const Nibbles& nibbles) noexcept {
    return find<false>(p, end, set, nibbles);
}

const char* findText(const char* p, const char* end, const char* text,
                     std::size_t length) noexcept {
#ifdef NOLK_CORE_X86_VECTORS
    if (hasAvx2()) {
        return findTextAvx2(p, end, text, length);
    }
#endif
    return findTextByByte(p, end, text, length);
}

}  // namespace nolk::regexscan
