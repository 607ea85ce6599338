/** @file
 * The character types of the public interfaces.
 */
#ifndef NOLK_CORE_TYPES_H
#define NOLK_CORE_TYPES_H

#include <concepts>

namespace nolk {

/** One UTF-16 code unit: the platform's native 16-bit character type. */
#if defined(_WIN32)
using UChar = wchar_t;
#else
using UChar = char16_t;
#endif

/** One Unicode code point. At least 32 bits; values above 0x10FFFF are not code points. */
using UChar32 = unsigned long;

/** A character type of literals that holds a whole code point: `char32_t`, and `wchar_t` where that
 * isn't the code unit. */
template <typename Character>
concept Utf32Character = std::same_as<Character, char32_t> ||
    (std::same_as<Character, wchar_t> && !std::same_as<wchar_t, UChar>);

static_assert(sizeof(UChar) == 2, "UTF-16 code units have 16 bits");

}  // namespace nolk

#endif
