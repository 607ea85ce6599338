/** @file
 * Vector scans of the XML reader: each finds the next byte that ends a run of ordinary ones.
 *
 * A scan compares a block of bytes at a time and turns the result into a mask, one bit or more per
 * byte, whose lowest set bit tells the first stop. Short runs end in the first block, which is
 * therefore tested inline with the baseline instruction set; longer ones go on in a loop that is
 * chosen at run time for the widest vectors the processor has.
 *
 * Every scan looks at the bytes from `p` to `last` and returns the first stop, or `last + 1`. It
 * may read up to scanPadding bytes behind `last`, which the caller's buffer must have.
 */
#ifndef NOLK_CORE_XML_XML_SCAN_H
#define NOLK_CORE_XML_XML_SCAN_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__) && !defined(NOLK_CORE_PORTABLE_SCAN)
#define NOLK_CORE_SCAN_SSE2
#include <emmintrin.h>
#endif

namespace nolk::xmlscan {

/** How many bytes behind `last` a scan may read. */
inline constexpr std::size_t scanPadding = 64;

/** The bytes that end a run of text: `<`, and `&` and CR where these are replaced. */
struct ContentStops {
    template <class Block>
    static auto match(Block b) {
        return b.equal('<') | b.equal('&') | b.equal('\r');
    }
};

/** The byte that ends raw text. */
struct MarkupStops {
    template <class Block>
    static auto match(Block b) {
        return b.equal('<');
    }
};

/** The bytes that end a run of an attribute value. */
template <char quote>
struct ValueStops {
    template <class Block>
    static auto match(Block b) {
        return b.equal(quote) | b.equal('<') | b.equal('&');
    }
};

/** The same where references stay as they are. */
template <char quote>
struct RawValueStops {
    template <class Block>
    static auto match(Block b) {
        return b.equal(quote) | b.equal('<');
    }
};

/** Any byte that is no ASCII name character; the bytes of other characters are told apart later. */
struct NameStops {
    template <class Block>
    static auto match(Block b) {
        return b.notNameByte();
    }
};

/** Any byte of a character outside ASCII. */
struct HighStops {
    template <class Block>
    static auto match(Block b) {
        return b.high();
    }
};

/** Eight bytes in a word: the portable block. A match has its byte's top bit set; only the lowest
 * one is exact, since a borrow may mark bytes above it. */
class WordBlock {
public:
    static constexpr std::size_t size = 8;
    using Mask = std::uint64_t;

    static WordBlock load(const char* p) {
        WordBlock block;
        std::memcpy(&block.word_, p, size);
        if constexpr (std::endian::native == std::endian::big) {
            block.word_ = byteSwapped(block.word_);
        }
        return block;
    }

    Mask equal(char c) const {
        const std::uint64_t x = word_ ^ (ones * static_cast<unsigned char>(c));
        return (x - ones) & ~x & tops;
    }
    Mask high() const { return word_ & tops; }
    Mask notNameByte() const;

    static Mask mask(Mask match) { return match; }
    static std::size_t first(Mask mask) {
        return static_cast<std::size_t>(std::countr_zero(mask)) / 8;
    }

private:
    static constexpr std::uint64_t ones = 0x0101010101010101;
    static constexpr std::uint64_t tops = 0x8080808080808080;

    /** Marks the bytes, all below 0x80, that lie in [low, high]. */
    static Mask between(std::uint64_t x, unsigned low, unsigned high) {
        // Adding to seven-bit values carries into the top bit and never beyond it.
        return (x + ones * (0x80 - low)) & ~(x + ones * (0x7F - high)) & tops;
    }
    static std::uint64_t byteSwapped(std::uint64_t x) {
        std::uint64_t y = 0;
        for (int i = 0; i < 8; ++i, x >>= 8) {
            y = (y << 8) | (x & 0xFF);
        }
        return y;
    }

    std::uint64_t word_ = 0;
};

inline WordBlock::Mask WordBlock::notNameByte() const {
    const std::uint64_t low = word_ & ~tops;
    const Mask letters = between(low | (ones * 0x20), 'a', 'z');
    const Mask marks = between(low, '-', ':') & ~between(low, '/', '/');
    const Mask name = letters | marks | between(low, '_', '_');
    return (~name & tops) | high();
}

#ifdef NOLK_CORE_SCAN_SSE2
/** Sixteen bytes in a vector of the x86-64 baseline. */
class Sse2Block {
public:
    static constexpr std::size_t size = 16;
    using Mask = std::uint32_t;

    struct Match {
        __m128i bytes;
        friend Match operator|(Match a, Match b) { return {_mm_or_si128(a.bytes, b.bytes)}; }
    };

    static Sse2Block load(const char* p) {
        return Sse2Block(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)));
    }

    Match equal(char c) const { return {_mm_cmpeq_epi8(bytes_, _mm_set1_epi8(c))}; }
    Match high() const { return {bytes_}; }
    Match notNameByte() const {
        const __m128i letter =
            atMost(_mm_sub_epi8(_mm_or_si128(bytes_, _mm_set1_epi8(0x20)), _mm_set1_epi8('a')), 25);
        const __m128i mark = _mm_andnot_si128(
            equal('/').bytes, atMost(_mm_sub_epi8(bytes_, _mm_set1_epi8('-')), ':' - '-'));
        const __m128i name = _mm_or_si128(_mm_or_si128(letter, mark), equal('_').bytes);
        return {_mm_xor_si128(name, _mm_set1_epi8(-1))};
    }

    static Mask mask(Match match) { return static_cast<Mask>(_mm_movemask_epi8(match.bytes)); }
    static std::size_t first(Mask mask) { return static_cast<std::size_t>(std::countr_zero(mask)); }

private:
    explicit Sse2Block(__m128i bytes) : bytes_(bytes) {}

    /** Marks the bytes that are at most `limit`, taken as unsigned. */
    static __m128i atMost(__m128i bytes, char limit) {
        return _mm_cmpeq_epi8(_mm_min_epu8(bytes, _mm_set1_epi8(limit)), bytes);
    }

    __m128i bytes_;
};
using BaseBlock = Sse2Block;
#else
using BaseBlock = WordBlock;
#endif

/** The scan loop over blocks of one kind. */
template <class Block, class Stops>
const char* scanBlocks(const char* p, const char* last) {
    for (; p <= last; p += Block::size) {
        const auto mask = Block::mask(Stops::match(Block::load(p)));
        if (mask != 0) {
            const char* stop = p + Block::first(mask);
            return stop <= last ? stop : last + 1;
        }
    }
    return last + 1;
}

/** The loops for long runs, chosen once for this processor. */
const char* scanLongContent(const char* p, const char* last);
const char* scanLongMarkup(const char* p, const char* last);
const char* scanLongHigh(const char* p, const char* last);

template <class Stops>
const char* scanLong(const char* p, const char* last) {
    return scanBlocks<BaseBlock, Stops>(p, last);
}
template <>
inline const char* scanLong<ContentStops>(const char* p, const char* last) {
    return scanLongContent(p, last);
}
template <>
inline const char* scanLong<MarkupStops>(const char* p, const char* last) {
    return scanLongMarkup(p, last);
}
template <>
inline const char* scanLong<HighStops>(const char* p, const char* last) {
    return scanLongHigh(p, last);
}

/** The first stop in [p, last], or `last + 1`. */
template <class Stops>
inline const char* scan(const char* p, const char* last) {
    if (p <= last) [[likely]] {
        const auto mask = BaseBlock::mask(Stops::match(BaseBlock::load(p)));
        if (mask != 0) [[likely]] {
            const char* stop = p + BaseBlock::first(mask);
            return stop <= last ? stop : last + 1;
        }
        return scanLong<Stops>(p + BaseBlock::size, last);
    }
    return last + 1;
}

template <class Stops>
inline char* scan(char* p, const char* last) {
    return const_cast<char*>(scan<Stops>(static_cast<const char*>(p), last));
}

}  // namespace nolk::xmlscan

#endif
