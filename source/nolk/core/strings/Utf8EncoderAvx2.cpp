// UTF-16 to UTF-8 by vectors.
//
// Eight units are taken at a time. Each is spread to all the bytes that it may need, in a lane of
// two or four bytes, and the bytes that it doesn't need are squeezed out by a shuffle:
//
//     two to a unit     0061 -> 61          00E9 -> C3 A9
//     four to a unit    0061 -> 61          00E9 -> A9 C3       20AC -> AC 82 E2
//
// where the lanes of four have their last byte first until the shuffle turns them round. Units with
// surrogates among them go one by one.
#include "nolk/core/strings/Utf8Encoder.h"

#ifdef NOLK_CORE_X86_VECTORS

#include <immintrin.h>

#include <bit>
#include <cstdint>

#include "nolk/core/strings/ByteShuffle.h"
#include "nolk/core/strings/Utf16.h"

namespace nolk::utf8 {

namespace {

constexpr std::ptrdiff_t step = sizeof(__m128i) / sizeof(UChar);
constexpr std::ptrdiff_t wideStep = 2 * step;

[[gnu::target("avx2"), gnu::always_inline]] inline __m128i load(const UChar* in) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(in));
}

[[gnu::target("avx2"), gnu::always_inline]] inline __m256i loadWide(const UChar* in) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(in));
}

[[gnu::target("avx2"), gnu::always_inline]] inline __m128i all16(unsigned unit) {
    return _mm_set1_epi16(static_cast<short>(unit));
}

[[gnu::target("avx2"), gnu::always_inline]] inline __m256i all32(unsigned lane) {
    return _mm256_set1_epi32(static_cast<int>(lane));
}

// High or low surrogates, as `mark` tells.
[[gnu::target("avx2"), gnu::always_inline]] inline __m256i areHalves(__m256i units, unsigned mark) {
    const __m256i marks = _mm256_and_si256(units, _mm256_set1_epi16(static_cast<short>(0xFC00)));
    return _mm256_cmpeq_epi16(marks, _mm256_set1_epi16(static_cast<short>(mark)));
}

[[gnu::target("avx2"), gnu::always_inline]] inline __m256i areSurrogates(__m256i units) {
    const __m256i marks = _mm256_and_si256(units, _mm256_set1_epi16(static_cast<short>(0xF800)));
    return _mm256_cmpeq_epi16(marks, _mm256_set1_epi16(static_cast<short>(0xD800)));
}

[[gnu::target("avx2"), gnu::always_inline]] inline bool hasSurrogates(__m128i units) {
    const __m128i found = _mm_cmpeq_epi16(_mm_and_si128(units, all16(0xF800)), all16(0xD800));
    return _mm_testz_si128(found, found) == 0;
}

[[gnu::target("avx2"), gnu::always_inline]] inline char* squeeze(__m128i bytes,
                                                                 const ByteShuffle& shuffle,
                                                                 int count, char* out) {
    const __m128i places = _mm_load_si128(reinterpret_cast<const __m128i*>(shuffle.places.data()));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_shuffle_epi8(bytes, places));
    return out + count;
}

// Lanes of two bytes, of which the second stays where the bit is set.
constexpr ByteShuffles pairShuffles = makeByteShuffles([](std::uint32_t longs) {
    std::uint32_t bytes = 0x5555;
    for (unsigned i = 0; i < 8; ++i) {
        bytes |= (longs >> i & 1) << (i * 2 + 1);
    }
    return bytes;
});

// Writes sixteen units below 0x800.
[[gnu::target("avx2,popcnt"), gnu::always_inline]] inline char* encodePairs(__m256i units,
                                                                            char* out) {
    const __m256i ascii = _mm256_cmpgt_epi16(_mm256_set1_epi16(0x80), units);
    const __m256i tails = _mm256_slli_epi16(_mm256_and_si256(units, _mm256_set1_epi16(0x3F)), 8);
    const __m256i both = _mm256_or_si256(_mm256_or_si256(_mm256_srli_epi16(units, 6), tails),
                                         _mm256_set1_epi16(static_cast<short>(0x80C0)));
    const __m256i bytes = _mm256_blendv_epi8(both, units, ascii);
    const __m128i halves =
        _mm_packs_epi16(_mm256_castsi256_si128(ascii), _mm256_extracti128_si256(ascii, 1));
    const auto longs = ~static_cast<std::uint32_t>(_mm_movemask_epi8(halves));
    out = squeeze(_mm256_castsi256_si128(bytes), pairShuffles[longs & 0xFF],
                  step + std::popcount(longs & 0xFF), out);
    return squeeze(_mm256_extracti128_si256(bytes, 1), pairShuffles[longs >> 8 & 0xFF],
                   step + std::popcount(longs & 0xFF00), out);
}

// Lanes of four bytes, the last byte of the character first, four of them: the lower bits tell that
// there is a second byte, the upper ones that there is a third.
constexpr ByteShuffle makeTripleShuffle(std::uint32_t lengths) {
    ByteShuffle shuffle{};
    shuffle.places.fill(0x80);
    std::size_t count = 0;
    for (unsigned i = 0; i < 4; ++i) {
        const unsigned length = 1 + (lengths >> i & 1) + (lengths >> (i + 4) & 1);
        for (unsigned place = length; place > 0; --place) {
            shuffle.places[count++] = static_cast<std::uint8_t>(i * 4 + place - 1);
        }
    }
    return shuffle;
}

constexpr ByteShuffles makeTripleShuffles() {
    ByteShuffles shuffles{};
    for (std::uint32_t i = 0; i < shuffles.size(); ++i) {
        shuffles[i] = makeTripleShuffle(i);
    }
    return shuffles;
}

constexpr ByteShuffles tripleShuffles = makeTripleShuffles();

[[gnu::target("avx2,popcnt"), gnu::always_inline]] inline char* squeezeTriples(
    __m128i lanes, std::uint32_t lengths, char* out) {
    return squeeze(lanes, tripleShuffles[lengths], 4 + std::popcount(lengths), out);
}

[[gnu::target("avx2"), gnu::always_inline]] inline std::uint32_t laneMask(__m256i lanes) {
    return static_cast<std::uint32_t>(_mm256_movemask_ps(_mm256_castsi256_ps(lanes)));
}

// Writes eight units, none of them a surrogate.
[[gnu::target("avx2,popcnt"), gnu::always_inline]] inline char* encodeTriples(__m128i units,
                                                                              char* out) {
    const __m256i lanes = _mm256_cvtepu16_epi32(units);
    const __m256i two = _mm256_cmpgt_epi32(lanes, all32(0x7F));
    const __m256i three = _mm256_cmpgt_epi32(lanes, all32(0x7FF));
    const __m256i tail = all32(0x80);
    const __m256i sixBits = all32(0x3F);
    const __m256i upper = _mm256_srli_epi32(lanes, 6);
    const __m256i last =
        _mm256_blendv_epi8(lanes, _mm256_or_si256(_mm256_and_si256(lanes, sixBits), tail), two);
    const __m256i middle =
        _mm256_blendv_epi8(_mm256_or_si256(upper, all32(0xC0)),
                           _mm256_or_si256(_mm256_and_si256(upper, sixBits), tail), three);
    const __m256i first = _mm256_or_si256(_mm256_srli_epi32(lanes, 12), all32(0xE0));
    const __m256i bytes = _mm256_or_si256(
        last, _mm256_or_si256(_mm256_slli_epi32(middle, 8), _mm256_slli_epi32(first, 16)));
    const std::uint32_t twos = laneMask(two);
    const std::uint32_t threes = laneMask(three);
    out = squeezeTriples(_mm256_castsi256_si128(bytes), (twos & 0x0F) | (threes & 0x0F) << 4, out);
    return squeezeTriples(_mm256_extracti128_si256(bytes, 1), twos >> 4 | (threes & 0xF0), out);
}

// What a block of 32 units needs, told by the bits that are set in any of them.
constexpr std::ptrdiff_t blockUnits = 4 * step;

struct Block {
    __m256i low;
    __m256i high;
};

[[gnu::target("avx2"), gnu::always_inline]] inline Block loadBlock(const UChar* in) {
    return {loadWide(in), loadWide(in + wideStep)};
}

[[gnu::target("avx2"), gnu::always_inline]] inline bool hasBits(const Block& block, unsigned bits) {
    return _mm256_testz_si256(_mm256_or_si256(block.low, block.high),
                              _mm256_set1_epi16(static_cast<short>(bits))) == 0;
}

// All bits of the units that are at least `limit`.
[[gnu::target("avx2"), gnu::always_inline]] inline Block atLeast(const Block& block,
                                                                 unsigned limit) {
    const __m256i limits = _mm256_set1_epi16(static_cast<short>(limit));
    return {_mm256_cmpeq_epi16(_mm256_max_epu16(block.low, limits), block.low),
            _mm256_cmpeq_epi16(_mm256_max_epu16(block.high, limits), block.high)};
}

// All bits of the high surrogates with a low one in the next unit.
[[gnu::target("avx2"), gnu::always_inline]] inline Block pairsOf(const Block& block,
                                                                 const Block& next) {
    return {_mm256_and_si256(areHalves(block.low, 0xD800), areHalves(next.low, 0xDC00)),
            _mm256_and_si256(areHalves(block.high, 0xD800), areHalves(next.high, 0xDC00))};
}

// How many units have all their bits set, the others having none.
[[gnu::target("avx2,popcnt"), gnu::always_inline]] inline std::size_t countUnits(
    const Block& block) {
    const __m256i bytes = _mm256_packs_epi16(block.low, block.high);
    const auto mask = static_cast<std::uint32_t>(_mm256_movemask_epi8(bytes));
    return static_cast<std::size_t>(std::popcount(mask));
}

[[gnu::target("avx2"), gnu::always_inline]] inline bool hasSurrogates(const Block& block) {
    const __m256i found = _mm256_or_si256(areSurrogates(block.low), areSurrogates(block.high));
    return _mm256_testz_si256(found, found) == 0;
}

[[gnu::target("avx2"), gnu::always_inline]] inline void narrowBlock(const Block& block, char* out) {
    // Packing goes by halves of the vectors, so that quarters two and three change places.
    const __m256i packed =
        _mm256_permute4x64_epi64(_mm256_packus_epi16(block.low, block.high), 0xD8);
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), packed);
}

// The units of a block with surrogates, by steps: without any they go together, else one by one. A
// step that ends within a pair leaves that to the next one.
[[gnu::target("avx2,popcnt"), gnu::always_inline]] inline Encoded encodeMixed(const UChar* in,
                                                                              const UChar* last,
                                                                              char* out) {
    const __m128i units = load(in);
    if (!hasSurrogates(units)) {
        return {in + step, encodeTriples(units, out)};
    }
    const UChar* const stop = in + step - utf16::isPairAt(in + step - 1, last);
    return {stop, encodeSingly(in, stop, out)};
}

}  // namespace

[[gnu::target("avx2")]] Encoded narrowAvx2(const UChar* in, const UChar* last, char* out) {
    for (; last - in >= blockUnits; in += blockUnits, out += blockUnits) {
        const Block block = loadBlock(in);
        if (hasBits(block, 0xFF80)) {
            break;
        }
        narrowBlock(block, out);
    }
    return narrowPortably(in, last, out);
}

[[gnu::target("avx2,popcnt")]] std::size_t countBytesAvx2(const UChar* in, const UChar* last) {
    std::size_t count = 0;
    // One unit behind a block is looked at, too.
    for (; last - in > blockUnits; in += blockUnits) {
        const Block block = loadBlock(in);
        count += blockUnits;
        if (!hasBits(block, 0xFF80)) {
            continue;
        }
        count += countUnits(atLeast(block, 0x80));
        if (hasBits(block, 0xF800)) {
            count += countUnits(atLeast(block, 0x800));
            // Halves of a pair come to six bytes so far, and are four.
            const Block next = loadBlock(in + 1);
            count -= 2 * countUnits(pairsOf(block, next));
        }
    }
    return count + countBytesPortably(in, last);
}

[[gnu::target("avx2,popcnt")]] char* encodeAvx2(const UChar* in, const UChar* last, char* out) {
    while (last - in >= blockUnits) {
        const Block block = loadBlock(in);
        const UChar* const next = in + blockUnits;
        if (!hasBits(block, 0xFF80)) {
            narrowBlock(block, out);
            out += blockUnits;
            in = next;
        } else if (!hasBits(block, 0xF800)) {
            out = encodePairs(block.high, encodePairs(block.low, out));
            in = next;
        } else if (!hasSurrogates(block)) {
            for (; in != next; in += step) {
                out = encodeTriples(load(in), out);
            }
        } else {
            const Encoded encoded = encodeMixed(in, last, out);
            in = encoded.in;
            out = encoded.out;
        }
    }
    while (last - in >= step) {
        const Encoded encoded = encodeMixed(in, last, out);
        in = encoded.in;
        out = encoded.out;
    }
    return encodePortably(in, last, out);
}

}  // namespace nolk::utf8

#endif
