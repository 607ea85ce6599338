/** @file
 * The character types of the public interfaces.
 */
#ifndef NOLK_CORE_TYPES_H
#define NOLK_CORE_TYPES_H

namespace nolk {

/** One UTF-16 code unit: the platform's native 16-bit character type. */
#if defined(_WIN32)
using UChar = wchar_t;
#else
using UChar = char16_t;
#endif

/** One Unicode code point. At least 32 bits; values above 0x10FFFF are not code points. */
using UChar32 = unsigned long;

static_assert(sizeof(UChar) == 2, "UTF-16 code units have 16 bits");

}  // namespace nolk

#endif
