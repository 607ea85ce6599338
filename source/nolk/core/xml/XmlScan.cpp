#include <nolk/core/xml/XmlScan.h>

#ifdef NOLK_CORE_SCAN_SSE2
#include <immintrin.h>
#endif

namespace nolk::xmlscan {

namespace {

using Scan = const char* (*)(const char*, const char*);

#ifdef NOLK_CORE_SCAN_SSE2

// Functions of their own and not a template like the baseline's: code for newer processors must
// not leak into inline functions that the rest of the library shares.

[[gnu::target("avx2")]] const char* firstOf(std::uint32_t mask, const char* p, const char* last) {
    const char* stop = p + std::countr_zero(mask);
    return stop <= last ? stop : last + 1;
}

[[gnu::target("avx2")]] const char* contentAvx2(const char* p, const char* last) {
    const __m256i lt = _mm256_set1_epi8('<');
    const __m256i amp = _mm256_set1_epi8('&');
    const __m256i cr = _mm256_set1_epi8('\r');
    for (; p <= last; p += 32) {
        const __m256i b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
        const __m256i match =
            _mm256_or_si256(_mm256_cmpeq_epi8(b, lt),
                            _mm256_or_si256(_mm256_cmpeq_epi8(b, amp), _mm256_cmpeq_epi8(b, cr)));
        const auto mask = static_cast<std::uint32_t>(_mm256_movemask_epi8(match));
        if (mask != 0) {
            return firstOf(mask, p, last);
        }
    }
    return last + 1;
}

[[gnu::target("avx2")]] const char* markupAvx2(const char* p, const char* last) {
    const __m256i lt = _mm256_set1_epi8('<');
    for (; p <= last; p += 32) {
        const __m256i b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
        const auto mask =
            static_cast<std::uint32_t>(_mm256_movemask_epi8(_mm256_cmpeq_epi8(b, lt)));
        if (mask != 0) {
            return firstOf(mask, p, last);
        }
    }
    return last + 1;
}

[[gnu::target("avx2")]] const char* highAvx2(const char* p, const char* last) {
    for (; p <= last; p += 32) {
        const __m256i b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
        const auto mask = static_cast<std::uint32_t>(_mm256_movemask_epi8(b));
        if (mask != 0) {
            return firstOf(mask, p, last);
        }
    }
    return last + 1;
}

bool hasAvx2() {
    __builtin_cpu_init();  // static initialisers of other libraries may come first
    return __builtin_cpu_supports("avx2") != 0;
}

Scan choose(Scan wide, Scan baseline) {
    return hasAvx2() ? wide : baseline;
}

#else

constexpr Scan contentAvx2 = nullptr;
constexpr Scan markupAvx2 = nullptr;
constexpr Scan highAvx2 = nullptr;

Scan choose(Scan, Scan baseline) {
    return baseline;
}

#endif

}  // namespace

const char* scanLongContent(const char* p, const char* last) {
    static const Scan chosen = choose(contentAvx2, scanBlocks<BaseBlock, ContentStops>);
    return chosen(p, last);
}

const char* scanLongMarkup(const char* p, const char* last) {
    static const Scan chosen = choose(markupAvx2, scanBlocks<BaseBlock, MarkupStops>);
    return chosen(p, last);
}

const char* scanLongHigh(const char* p, const char* last) {
    static const Scan chosen = choose(highAvx2, scanBlocks<BaseBlock, HighStops>);
    return chosen(p, last);
}

}  // namespace nolk::xmlscan
