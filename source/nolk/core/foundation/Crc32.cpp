// The bytes are taken as one long polynomial over bits, the first bit its highest term; the check
// sum is the remainder of its division by the polynomial P.
//
// By table: the state is the remainder so far, and table k tells what a byte becomes with k zero
// bytes behind it, so that eight bytes are eight independent look-ups.
//
// By product: a block of 16 bytes, h * x^64 + l, moved forward by n bits is congruent to
// h * (x^(n+64) mod P) + l * (x^n mod P), which again has at most 96 bits. So a block is folded
// into the one 64 bytes behind it with two products, and four of them go side by side. What is left
// in the end, 16 bytes with the same remainder as all that was folded, goes through the tables.
#include <nolk/core/Hash.h>

#include "nolk/core/foundation/Crc32.h"

#include <array>
#include <bit>
#include <cstring>

#ifdef NOLK_CORE_X86_VECTORS
#include <immintrin.h>
#endif

namespace nolk {

namespace crc32 {

namespace {

constexpr std::uint32_t polynomial = 0x04C11DB7;  // x^32 is left out

constexpr std::uint32_t timesX(std::uint32_t remainder) {
    return (remainder << 1) ^ ((remainder >> 31) * polynomial);
}

constexpr std::size_t stride = 8;

using Tables = std::array<std::array<std::uint32_t, 256>, stride>;

constexpr Tables makeTables() {
    Tables tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t remainder = byte << 24;
        for (std::size_t k = 0; k < stride; ++k) {
            for (int bit = 0; bit < 8; ++bit) {
                remainder = timesX(remainder);
            }
            tables[k][byte] = remainder;
        }
    }
    return tables;
}

constexpr Tables tables = makeTables();

std::uint32_t byteAt(const char* data, std::size_t i) {
    return static_cast<unsigned char>(data[i]);
}

std::uint32_t bigEndianWord(const char* data) {
    return byteAt(data, 0) << 24 | byteAt(data, 1) << 16 | byteAt(data, 2) << 8 | byteAt(data, 3);
}

// What the four bytes of a word become with `behind` bytes behind them.
std::uint32_t advanceWord(std::uint32_t word, std::size_t behind) {
    return tables[behind + 3][word >> 24] ^ tables[behind + 2][(word >> 16) & 0xFF] ^
           tables[behind + 1][(word >> 8) & 0xFF] ^ tables[behind][word & 0xFF];
}

}  // namespace

std::uint32_t advanceByTable(std::uint32_t state, const char* data, std::size_t length) noexcept {
    for (; length >= stride; data += stride, length -= stride) {
        state =
            advanceWord(state ^ bigEndianWord(data), 4) ^ advanceWord(bigEndianWord(data + 4), 0);
    }
    for (; length > 0; ++data, --length) {
        state = (state << 8) ^ tables[0][(state >> 24) ^ byteAt(data, 0)];
    }
    return state;
}

#ifdef NOLK_CORE_X86_VECTORS

namespace {

constexpr std::size_t blockSize = sizeof(__m128i);
constexpr std::size_t lanes = 4;

// x^n mod P.
constexpr long long powerOfX(unsigned n) {
    std::uint32_t remainder = 1;
    while (n-- > 0) {
        remainder = timesX(remainder);
    }
    return remainder;
}

// A block with its first byte uppermost.
[[gnu::target("pclmul,ssse3"), gnu::always_inline]] inline __m128i loadBlock(const char* data) {
    const __m128i reversal = _mm_set_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    return _mm_shuffle_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(data)), reversal);
}

[[gnu::target("pclmul,ssse3"), gnu::always_inline]] inline void storeBlock(char* data,
                                                                           __m128i block) {
    const __m128i reversal = _mm_set_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(data), _mm_shuffle_epi8(block, reversal));
}

// `block` moved forward as the two powers tell, onto `next`.
[[gnu::target("pclmul,ssse3"), gnu::always_inline]] inline __m128i fold(__m128i block,
                                                                        __m128i powers,
                                                                        __m128i next) {
    const __m128i high = _mm_clmulepi64_si128(block, powers, 0x11);
    const __m128i low = _mm_clmulepi64_si128(block, powers, 0x00);
    return _mm_xor_si128(next, _mm_xor_si128(high, low));
}

}  // namespace

[[gnu::target("pclmul,ssse3")]] std::uint32_t advanceByProduct(std::uint32_t state,
                                                               const char* data,
                                                               std::size_t length) noexcept {
    if (length < lanes * blockSize) {
        return advanceByTable(state, data, length);
    }
    __m128i block[lanes];
    for (std::size_t i = 0; i < lanes; ++i) {
        block[i] = loadBlock(data + i * blockSize);
    }
    block[0] = _mm_xor_si128(block[0], _mm_set_epi32(static_cast<int>(state), 0, 0, 0));
    data += lanes * blockSize;
    length -= lanes * blockSize;

    constexpr long long far[] = {powerOfX(512), powerOfX(512 + 64)};
    const __m128i byLanes = _mm_set_epi64x(far[1], far[0]);
    for (; length >= lanes * blockSize; data += lanes * blockSize, length -= lanes * blockSize) {
        for (std::size_t i = 0; i < lanes; ++i) {
            block[i] = fold(block[i], byLanes, loadBlock(data + i * blockSize));
        }
    }

    constexpr long long near[] = {powerOfX(128), powerOfX(128 + 64)};
    const __m128i byBlock = _mm_set_epi64x(near[1], near[0]);
    for (std::size_t i = 1; i < lanes; ++i) {
        block[i] = fold(block[i - 1], byBlock, block[i]);
    }
    __m128i last = block[lanes - 1];
    for (; length >= blockSize; data += blockSize, length -= blockSize) {
        last = fold(last, byBlock, loadBlock(data));
    }
    char bytes[blockSize];
    storeBlock(bytes, last);
    return advanceByTable(advanceByTable(0, bytes, sizeof bytes), data, length);
}

std::uint32_t advance(std::uint32_t state, const char* data, std::size_t length) noexcept {
    static const bool byProduct = processor::hasCarryLessProduct();
    return byProduct ? advanceByProduct(state, data, length) : advanceByTable(state, data, length);
}

#else

std::uint32_t advance(std::uint32_t state, const char* data, std::size_t length) noexcept {
    return advanceByTable(state, data, length);
}

#endif

}  // namespace crc32

unsigned nolkCrc32(const char* data, unsigned length) noexcept {
    return ~crc32::advance(0xFFFFFFFF, data, length);
}

}  // namespace nolk
