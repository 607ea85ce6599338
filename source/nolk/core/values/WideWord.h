/** @file
 * Words of 128 bits.
 */
#ifndef NOLK_CORE_VALUES_WIDE_WORD_H
#define NOLK_CORE_VALUES_WIDE_WORD_H

#include <cstdint>

namespace nolk {

__extension__ typedef unsigned __int128 WideWord;

constexpr std::uint64_t lowerHalf(WideWord word) {
    return static_cast<std::uint64_t>(word);
}

constexpr std::uint64_t upperHalf(WideWord word) {
    return static_cast<std::uint64_t>(word >> 64);
}

}  // namespace nolk

#endif
