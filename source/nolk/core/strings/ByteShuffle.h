#ifndef NOLK_CORE_STRINGS_BYTE_SHUFFLE_H
#define NOLK_CORE_STRINGS_BYTE_SHUFFLE_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace nolk {

/** The places in a vector of 16 bytes from which its new bytes are taken. */
struct alignas(16) ByteShuffle {
    std::array<std::uint8_t, 16> places;
};

/** Moves the bytes whose bits are set to the front, in their order; zeroes follow. */
constexpr ByteShuffle shuffleKeeping(std::uint32_t kept) {
    ByteShuffle shuffle{};
    shuffle.places.fill(0x80);
    std::size_t count = 0;
    for (std::uint8_t place = 0; place < shuffle.places.size(); ++place) {
        if ((kept >> place & 1) != 0) {
            shuffle.places[count++] = place;
        }
    }
    return shuffle;
}

/** A shuffle for each value of eight bits; `kept` tells the bytes that it keeps. */
using ByteShuffles = std::array<ByteShuffle, 256>;

constexpr ByteShuffles makeByteShuffles(std::uint32_t (*kept)(std::uint32_t)) {
    ByteShuffles shuffles{};
    for (std::uint32_t i = 0; i < shuffles.size(); ++i) {
        shuffles[i] = shuffleKeeping(kept(i));
    }
    return shuffles;
}

}  // namespace nolk

#endif
