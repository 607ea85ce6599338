#ifndef NOLK_CORE_REGEX_BYTE_SCAN_H
#define NOLK_CORE_REGEX_BYTE_SCAN_H

#include <nolk/core/regex/RegexBitmap.h>

#include <cstddef>
#include <cstdint>

namespace nolk::regexscan {

/**
 * A set of bytes by their halves. Entry `h` of the first row tells which upper halves from 0 to 7
 * go with the lower half `h`, the second row those from 8 to 15: one bit each.
 */
using Nibbles = std::uint8_t[2][16];

void fillNibbles(const RegexBitmap& set, Nibbles& nibbles) noexcept;

/** The first byte of a set, or `end`. Nothing is read outside. */
const char* findInSet(const char* p, const char* end, const RegexBitmap& set,
                      const Nibbles& nibbles) noexcept;

/** The first byte that isn't in a set, or `end`. */
const char* findOutsideSet(const char* p, const char* end, const RegexBitmap& set,
                           const Nibbles& nibbles) noexcept;

/** The first place of a text, or `end`. @pre `length` is at least 2 */
const char* findText(const char* p, const char* end, const char* text, std::size_t length) noexcept;

}  // namespace nolk::regexscan

#endif
