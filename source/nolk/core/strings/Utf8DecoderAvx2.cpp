// UTF-8 to UTF-16 by vectors.
//
// The text is taken in blocks of 32 bytes, wherever in a character they begin: a byte knows its
// place from the three in front of it. At most one unit is made at each byte, at the last of a
// character, and of four-byte characters, whose two surrogates make it, also at the third:
//
//     a        E2 82 AC      F0 9F 98 80
//     0061     -  -  20AC    -  -  D83D DE00
//
// So each block is checked, then the low and the high bytes of the units are computed at all its
// places, interleaved, and the places without a unit are squeezed out by a shuffle for each eight.
//
// Mistakes are found by classes of nibbles: each mistake of two neighbouring bytes is told by the
// high and low nibble of the first and the high nibble of the second alone, so that three look-ups,
// a bit for each mistake, find all of them. That a continuation follows another one is a mistake
// unless the bytes in front ask for a third or fourth one.
#include "nolk/core/strings/Utf8Decoder.h"

#ifdef NOLK_CORE_X86_VECTORS

#include <immintrin.h>

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#include "nolk/core/strings/ByteShuffle.h"

namespace nolk::utf8 {

namespace {

constexpr std::ptrdiff_t blockSize = sizeof(__m256i);

// A character begins at most so far in front of a block that it reaches into, and where it ends is
// known by the byte behind the block.
constexpr std::ptrdiff_t lookBehind = 3;
constexpr std::ptrdiff_t lookAhead = 1;

// ---- The mistakes

using Nibbles = std::uint16_t;  // a set of nibbles, a bit for each

constexpr Nibbles nibbles(unsigned first, unsigned last) {
    Nibbles set = 0;
    for (unsigned i = first; i <= last; ++i) {
        set = static_cast<Nibbles>(set | 1u << i);
    }
    return set;
}

struct Mistake {
    Nibbles firstHigh;
    Nibbles firstLow;
    Nibbles secondHigh;
};

constexpr Nibbles any = 0xFFFF;
constexpr Nibbles asciiNibbles = nibbles(0x0, 0x7);
constexpr Nibbles continuation = nibbles(0x8, 0xB);
constexpr Nibbles lead = nibbles(0xC, 0xF);

constexpr Mistake mistakes[] = {
    {lead, any, asciiNibbles | lead},                           // a character that breaks off
    {asciiNibbles, any, continuation},                          // a continuation of nothing
    {nibbles(0xC, 0xC), nibbles(0, 1), continuation},           // ASCII in two bytes
    {nibbles(0xE, 0xE), nibbles(0, 0), nibbles(8, 9)},          // below 0x800 in three
    {nibbles(0xE, 0xE), nibbles(0xD, 0xD), nibbles(0xA, 0xB)},  // surrogates
    {nibbles(0xF, 0xF), nibbles(4, 0xF), nibbles(9, 0xB)},      // above 0x10FFFF
    // Below 0x10000 in four bytes, and the rest of what lies above 0x10FFFF.
    {nibbles(0xF, 0xF), nibbles(0, 0) | nibbles(5, 0xF), nibbles(8, 8)},
    {continuation, any, continuation},  // a second continuation: maybe a mistake
};
constexpr char secondContinuation = static_cast<char>(1 << 7);

// The mistakes that a nibble may have a part in, twice over for the halves of a vector.
using Classes = std::array<std::uint8_t, 32>;

constexpr Classes makeClasses(Nibbles Mistake::*part) {
    Classes classes{};
    for (unsigned i = 0; i < classes.size(); ++i) {
        for (unsigned k = 0; k < std::size(mistakes); ++k) {
            const unsigned member = (mistakes[k].*part >> i % 16) & 1u;
            classes[i] = static_cast<std::uint8_t>(classes[i] | member << k);
        }
    }
    return classes;
}

alignas(32) constexpr Classes firstHighClasses = makeClasses(&Mistake::firstHigh);
alignas(32) constexpr Classes firstLowClasses = makeClasses(&Mistake::firstLow);
alignas(32) constexpr Classes secondHighClasses = makeClasses(&Mistake::secondHigh);

// ---- Blocks

[[gnu::target("avx2"), gnu::always_inline]] inline __m256i load(const void* in) {
    return _mm256_loadu_si256(static_cast<const __m256i*>(in));
}

[[gnu::target("avx2"), gnu::always_inline]] inline __m256i all(unsigned byte) {
    return _mm256_set1_epi8(static_cast<char>(byte));
}

[[gnu::target("avx2"), gnu::always_inline]] inline std::uint32_t maskOf(__m256i bytes) {
    return static_cast<std::uint32_t>(_mm256_movemask_epi8(bytes));
}

// All bits of the bytes that are at least `limit`.
[[gnu::target("avx2"), gnu::always_inline]] inline __m256i atLeast(__m256i bytes, unsigned limit) {
    return _mm256_cmpeq_epi8(_mm256_max_epu8(bytes, all(limit)), bytes);
}

[[gnu::target("avx2"), gnu::always_inline]] inline __m256i areContinuations(__m256i bytes) {
    return _mm256_cmpgt_epi8(all(0xC0), bytes);  // below -64 as signed numbers
}

[[gnu::target("avx2"), gnu::always_inline]] inline __m256i shiftLeft(__m256i bytes, int count) {
    return _mm256_and_si256(_mm256_slli_epi16(bytes, count), all(0xFFu << count & 0xFF));
}

[[gnu::target("avx2"), gnu::always_inline]] inline __m256i shiftRight(__m256i bytes, int count) {
    return _mm256_and_si256(_mm256_srli_epi16(bytes, count), all(0xFFu >> count));
}

[[gnu::target("avx2"), gnu::always_inline]] inline __m256i classesOf(const Classes& classes,
                                                                     __m256i nibbles) {
    return _mm256_shuffle_epi8(load(classes.data()), nibbles);
}

// A block, and for each of its bytes the three in front of it.
struct Block {
    __m256i now;
    __m256i back1;
    __m256i back2;
    __m256i back3;
};

[[gnu::target("avx2"), gnu::always_inline]] inline Block loadBlock(const char* in) {
    return {load(in), load(in - 1), load(in - 2), load(in - 3)};
}

[[gnu::target("avx2"), gnu::always_inline]] inline bool isWellFormed(const Block& block) {
    const __m256i first =
        _mm256_and_si256(classesOf(firstHighClasses, shiftRight(block.back1, 4)),
                         classesOf(firstLowClasses, _mm256_and_si256(block.back1, all(0x0F))));
    const __m256i found =
        _mm256_and_si256(first, classesOf(secondHighClasses, shiftRight(block.now, 4)));
    const __m256i wanted =
        _mm256_and_si256(_mm256_or_si256(atLeast(block.back2, 0xE0), atLeast(block.back3, 0xF0)),
                         _mm256_set1_epi8(secondContinuation));
    const __m256i wrong = _mm256_xor_si256(found, wanted);
    return _mm256_testz_si256(wrong, wrong) != 0;
}

// The bytes of the units at each place of a block, and the places that have one: ASCII, and what
// nothing continues.
struct Units {
    __m256i low;
    __m256i high;
    std::uint32_t mask;
};

[[gnu::target("avx2"), gnu::always_inline]] inline Units unitsOf(const Block& block, __m256i next) {
    const __m256i continued = areContinuations(block.now);
    const __m256i low = _mm256_or_si256(_mm256_and_si256(block.now, all(0x3F)),  //
                                        shiftLeft(block.back1, 6));
    const __m256i middle = _mm256_and_si256(shiftRight(block.back1, 2), all(0x0F));
    const __m256i top = _mm256_and_si256(atLeast(block.back2, 0xE0), shiftLeft(block.back2, 4));
    return {_mm256_blendv_epi8(block.now, low, continued),
            _mm256_and_si256(continued, _mm256_or_si256(middle, top)),
            ~maskOf(_mm256_and_si256(block.now, areContinuations(next)))};
}

// Puts in the surrogates of four-byte characters, of which the low one lacks its mark only. The
// high one is 0xD7C0 + v for the 21 - 10 upper bits v; v is at least 0x40, so 0xD800 + (v - 0x40).
[[gnu::target("avx2"), gnu::always_inline]] inline void addSurrogates(Units& units,
                                                                      const Block& block) {
    const __m256i third = atLeast(block.back2, 0xF0);
    const __m256i fourth = atLeast(block.back3, 0xF0);
    const __m256i v = _mm256_or_si256(shiftLeft(block.back1, 2),
                                      _mm256_and_si256(shiftRight(block.now, 4), all(0x03)));
    const __m256i borrow = _mm256_cmpeq_epi8(_mm256_min_epu8(v, all(0x3F)), v);
    const __m256i upper = _mm256_add_epi8(
        borrow, _mm256_or_si256(_mm256_and_si256(block.back2, all(0x07)), all(0xD8)));
    const __m256i mark = _mm256_or_si256(_mm256_and_si256(units.high, all(0x03)), all(0xDC));
    units.low = _mm256_blendv_epi8(units.low, _mm256_sub_epi8(v, all(0x40)), third);
    units.high = _mm256_blendv_epi8(units.high, upper, third);
    units.high = _mm256_blendv_epi8(units.high, mark, fourth);
    units.mask |= maskOf(third);
}

// The units whose bits are set, of eight.
constexpr ByteShuffles unitShuffles = makeByteShuffles([](std::uint32_t units) {
    std::uint32_t bytes = 0;
    for (unsigned i = 0; i < 8; ++i) {
        bytes |= (units >> i & 1) * 3 << i * 2;
    }
    return bytes;
});

// Writes eight units, of which those that count come first.
[[gnu::target("avx2"), gnu::always_inline]] inline void squeeze(__m128i units, std::uint32_t mask,
                                                                UChar* out) {
    const ByteShuffle& shuffle = unitShuffles[mask & 0xFF];
    const __m128i places = _mm_load_si128(reinterpret_cast<const __m128i*>(shuffle.places.data()));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_shuffle_epi8(units, places));
}

[[gnu::target("avx2,popcnt"), gnu::always_inline]] inline UChar* store(const Units& units,
                                                                       UChar* out) {
    const __m256i even = _mm256_unpacklo_epi8(units.low, units.high);
    const __m256i odd = _mm256_unpackhi_epi8(units.low, units.high);
    const std::uint32_t mask = units.mask;
    const auto written = [mask](int places) {
        return std::popcount(mask & static_cast<std::uint32_t>((std::uint64_t{1} << places) - 1));
    };
    squeeze(_mm256_castsi256_si128(even), mask, out);
    squeeze(_mm256_castsi256_si128(odd), mask >> 8, out + written(8));
    squeeze(_mm256_extracti128_si256(even, 1), mask >> 16, out + written(16));
    squeeze(_mm256_extracti128_si256(odd, 1), mask >> 24, out + written(24));
    return out + written(32);
}

[[gnu::target("avx2"), gnu::always_inline]] inline void widenBlock(const char* in, UChar* out) {
    const auto* halves = reinterpret_cast<const __m128i*>(in);
    auto* units = reinterpret_cast<__m256i*>(out);
    _mm256_storeu_si256(units, _mm256_cvtepu8_epi16(_mm_loadu_si128(halves)));
    _mm256_storeu_si256(units + 1, _mm256_cvtepu8_epi16(_mm_loadu_si128(halves + 1)));
}

// Decodes the block at `in` and moves `out` on; false, and nothing done, if there is a mistake.
[[gnu::target("avx2,popcnt"), gnu::always_inline]] inline bool decodeBlock(const char* in,
                                                                           UChar*& out) {
    const Block block = loadBlock(in);
    if (maskOf(_mm256_or_si256(block.now, block.back3)) == 0) {
        widenBlock(in, out);
        out += blockSize;
        return true;
    }
    if (!isWellFormed(block)) {
        return false;
    }
    Units units = unitsOf(block, load(in + 1));
    if (maskOf(atLeast(_mm256_max_epu8(block.back2, block.back3), 0xF0)) != 0) {
        addSurrogates(units, block);
    }
    out = store(units, out);
    return true;
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// From the end of a block back to the start of the last character in front of it, which may go on
// behind the block. Its units are taken back: the one at the block's last place, which ASCII has
// and others unless what follows looks like a continuation, and the one at the third place of four.
Decoded backToCharacter(const char* in, UChar* out) {
    std::ptrdiff_t back = 1;
    while (isContinuation(in[-back])) {
        ++back;
    }
    const bool four = back >= 3 && static_cast<unsigned char>(in[-back]) >= 0xF0;
    const bool ascii = static_cast<unsigned char>(in[-1]) < 0x80;
    const bool atLast = ascii || !isContinuation(*in) || (four && back == 3);
    const bool atThird = four && back == 4;
    return {in - back, out - atLast - atThird};
}

}  // namespace

[[gnu::target("avx2,popcnt")]] std::size_t countUnitsAvx2(const char* in, const char* last) {
    std::size_t count = 0;
    for (; last - in >= blockSize; in += blockSize) {
        const __m256i block = load(in);
        const std::uint32_t continued = maskOf(areContinuations(block));
        const std::uint32_t longest = maskOf(atLeast(block, 0xF0));
        count +=
            static_cast<std::size_t>(blockSize - std::popcount(continued) + std::popcount(longest));
    }
    return count + countUnitsPortably(in, last);
}

[[gnu::target("avx2")]] Decoded widenAvx2(const char* in, const char* last, UChar* out) {
    for (; last - in >= blockSize && maskOf(load(in)) == 0; in += blockSize, out += blockSize) {
        widenBlock(in, out);
    }
    return widenPortably(in, last, out);
}

[[gnu::target("avx2,popcnt")]] Decoded decodeAvx2(const char* in, const char* last, UChar* out) {
    if (last - in < blockSize + lookAhead) {
        return decodePortably(in, last, out);
    }
    // The first block has nothing to look back at: it is given zero bytes.
    char copy[lookBehind + blockSize + lookAhead] = {};
    std::memcpy(copy + lookBehind, in, blockSize + lookAhead);
    if (!decodeBlock(copy + lookBehind, out)) {
        return decodePortably(in, last, out);
    }
    do {
        in += blockSize;
    } while (last - in >= blockSize + lookAhead && decodeBlock(in, out));
    const Decoded decoded = backToCharacter(in, out);
    return decodePortably(decoded.in, last, decoded.out);
}

}  // namespace nolk::utf8

#endif
