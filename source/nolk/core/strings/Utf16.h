#ifndef NOLK_CORE_STRINGS_UTF16_H
#define NOLK_CORE_STRINGS_UTF16_H

#include <nolk/core/Types.h>

#include <cstdint>

namespace nolk::utf16 {

constexpr bool isSurrogate(UChar unit) {
    return (unit & 0xF800) == 0xD800;
}

constexpr bool isHighSurrogate(UChar unit) {
    return (unit & 0xFC00) == 0xD800;
}

constexpr bool isLowSurrogate(UChar unit) {
    return (unit & 0xFC00) == 0xDC00;
}

/** Whether a high surrogate is here and a low one behind it. @pre in < last */
constexpr bool isPairAt(const UChar* in, const UChar* last) {
    return isHighSurrogate(in[0]) && last - in > 1 && isLowSurrogate(in[1]);
}

/** The code point of a pair. */
constexpr std::uint32_t joinPair(UChar high, UChar low) {
    return std::uint32_t{high} * 1024 + std::uint32_t{low} - 0x35FDC00;
}

/** The code point of the pair that is here, or else the unit itself. @pre in < last */
constexpr std::uint32_t characterAt(const UChar* in, const UChar* last) {
    return isPairAt(in, last) ? joinPair(in[0], in[1]) : std::uint32_t{in[0]};
}

/**
 * Writes the code points of `length` units at `out`, which has room for so many, and returns the
 * end. @throws ConversionException (INCOMPLETE_SEQUENCE) at a lone surrogate: with its index and
 * the next one for a high surrogate, with its index twice for a low one
 */
UChar32* toUtf32(const UChar* in, unsigned length, UChar32* out);

}  // namespace nolk::utf16

#endif
