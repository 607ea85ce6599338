/** @file
 * Scans over code units, a block of them at a time.
 *
 * A block compares all its units at once and turns the result into a mask with some bits per unit,
 * whose lowest or highest set bit tells the place. Nothing is read outside of the runs given: the
 * last units are taken by a block that overlaps the one before, or one by one in short runs.
 */
#ifndef NOLK_CORE_STRINGS_USTRING_SCAN_H
#define NOLK_CORE_STRINGS_USTRING_SCAN_H

#include <nolk/core/Types.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__) && !defined(NOLK_CORE_PORTABLE_SCAN)
#define NOLK_CORE_USTRING_SCAN_SSE2
#include <emmintrin.h>
#endif

namespace nolk::ustringscan {

/** Four units in a word: the portable block. A match has the top bit of its unit set. */
class WordBlock {
public:
    static constexpr std::size_t size = 4;
    using Match = std::uint64_t;

    static WordBlock load(const UChar* p) {
        WordBlock block;
        std::memcpy(&block.word_, p, sizeof(block.word_));
        return block;
    }
    static WordBlock filled(UChar c) {
        WordBlock block;
        block.word_ = std::uint64_t{0x0001000100010001} * c;
        return block;
    }

    /** The units that are the same in both. */
    Match equal(WordBlock other) const {
        // The sum has the top bit of a unit set where any lower bit is, and doesn't carry out of
        // it.
        const std::uint64_t x = word_ ^ other.word_;
        return ~(((x & ~tops) + ~tops) | x) & tops;
    }

    static bool any(Match match) { return match != 0; }
    static Match inverted(Match match) { return match ^ tops; }
    /** The first and the last unit of a match that isn't empty. */
    static std::size_t first(Match match) {
        return little ? lowest(match) : size - 1 - highest(match);
    }
    static std::size_t last(Match match) {
        return little ? highest(match) : size - 1 - lowest(match);
    }

private:
    static constexpr std::uint64_t tops = 0x8000800080008000;
    static constexpr bool little = std::endian::native == std::endian::little;

    static std::size_t lowest(Match match) {
        return static_cast<std::size_t>(std::countr_zero(match)) / 16;
    }
    static std::size_t highest(Match match) {
        return size - 1 - static_cast<std::size_t>(std::countl_zero(match)) / 16;
    }

    std::uint64_t word_ = 0;
};

#ifdef NOLK_CORE_USTRING_SCAN_SSE2
/** Eight units in a vector of the x86-64 baseline. */
class Sse2Block {
public:
    static constexpr std::size_t size = 8;

    struct Match {
        __m128i units;
        friend Match operator|(Match a, Match b) { return {_mm_or_si128(a.units, b.units)}; }
        friend Match operator&(Match a, Match b) { return {_mm_and_si128(a.units, b.units)}; }
    };

    static Sse2Block load(const UChar* p) {
        return Sse2Block(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)));
    }
    static Sse2Block filled(UChar c) { return Sse2Block(_mm_set1_epi16(static_cast<short>(c))); }

    Match equal(Sse2Block other) const { return {_mm_cmpeq_epi16(units_, other.units_)}; }

    static bool any(Match match) { return bits(match) != 0; }
    static Match inverted(Match match) { return {_mm_xor_si128(match.units, _mm_set1_epi16(-1))}; }
    static std::size_t first(Match match) {
        return static_cast<std::size_t>(std::countr_zero(bits(match))) / 2;
    }
    static std::size_t last(Match match) {
        return size - 1 - (static_cast<std::size_t>(std::countl_zero(bits(match))) - 16) / 2;
    }

private:
    explicit Sse2Block(__m128i units) : units_(units) {}

    static std::uint32_t bits(Match match) {
        return static_cast<std::uint32_t>(_mm_movemask_epi8(match.units));
    }

    __m128i units_;
};
using BaseBlock = Sse2Block;
#else
using BaseBlock = WordBlock;
#endif

/**
 * The first of `n` places at which there is a stop, or `n`. `stops(i)` is the match of the block at
 * `i`, and `isStop(i)` tells it of a single place. Inlined, so that what these hold is in
 * registers.
 */
template <class Block, class Stops, class IsStop>
[[gnu::always_inline]] inline std::size_t firstStop(std::size_t n, const Stops& stops,
                                                    const IsStop& isStop) {
    constexpr std::size_t size = Block::size;
    std::size_t i = 0;
    for (; n - i >= 4 * size; i += 4 * size) {
        if (Block::any((stops(i) | stops(i + size)) |
                       (stops(i + 2 * size) | stops(i + 3 * size)))) {
            break;  // the next loop tells where
        }
    }
    for (; n - i >= size; i += size) {
        const auto match = stops(i);
        if (Block::any(match)) {
            return i + Block::first(match);
        }
    }
    if (n >= size && i < n) {
        const auto match = stops(n - size);
        return Block::any(match) ? n - size + Block::first(match) : n;
    }
    for (; i < n && !isStop(i); ++i) {
    }
    return i;
}

/** The first place at which the runs differ, or `n`. */
template <class Block = BaseBlock>
std::size_t mismatch(const UChar* a, const UChar* b, std::size_t n) {
    return firstStop<Block>(
        n,
        [=](std::size_t i) {
            return Block::inverted(Block::load(a + i).equal(Block::load(b + i)));
        },
        [=](std::size_t i) { return a[i] != b[i]; });
}

/** The first place of `unit`, or `n`. */
template <class Block = BaseBlock>
std::size_t find(const UChar* p, std::size_t n, UChar unit) {
    const Block wanted = Block::filled(unit);
    return firstStop<Block>(
        n, [=](std::size_t i) { return Block::load(p + i).equal(wanted); },
        [=](std::size_t i) { return p[i] == unit; });
}

/** The first place where `first` stands, and `last` so many units behind it, or `n`. Reads
 * `n + distance` units. */
template <class Block = BaseBlock>
std::size_t findEnds(const UChar* p, std::size_t n, UChar first, UChar last, std::size_t distance) {
    const Block firsts = Block::filled(first);
    const Block lasts = Block::filled(last);
    return firstStop<Block>(
        n,
        [=](std::size_t i) {
            return Block::load(p + i).equal(firsts) & Block::load(p + i + distance).equal(lasts);
        },
        [=](std::size_t i) { return p[i] == first && p[i + distance] == last; });
}

/** The last place of `unit`, or `n`. */
template <class Block = BaseBlock>
std::size_t findLast(const UChar* p, std::size_t n, UChar unit) {
    const Block wanted = Block::filled(unit);
    std::size_t i = n;
    for (; i >= Block::size; i -= Block::size) {
        const auto match = Block::load(p + i - Block::size).equal(wanted);
        if (Block::any(match)) {
            return i - Block::size + Block::last(match);
        }
    }
    while (i > 0) {
        if (p[--i] == unit) {
            return i;
        }
    }
    return n;
}

}  // namespace nolk::ustringscan

#endif
