/** @file
 * Code points in runs of code units.
 */
#ifndef NOLK_CORE_STRINGS_USTRING_CODE_POINTS_H
#define NOLK_CORE_STRINGS_USTRING_CODE_POINTS_H

#include <nolk/core/Types.h>
#include <nolk/core/UString.h>

#include <cstddef>
#include <cstdint>

namespace nolk {

/** The number of elements before the zero element. @pre `s` isn't null */
template <typename Element>
unsigned terminatedLength(const Element* s) noexcept {
    const Element* end = s;
    while (*end != Element()) {
        ++end;
    }
    return static_cast<unsigned>(end - s);
}

/** The number of elements of a run, which is terminated if `n` is `npos`; 0 for a null pointer. */
template <typename Element>
unsigned runLength(const Element* s, unsigned n) noexcept {
    if (s == nullptr) {
        return 0;
    }
    return n != UString::npos ? n : terminatedLength(s);
}

/** A code point as it stands in a text; a surrogate without its partner stands for itself. */
struct CodePoint {
    UChar32 value;
    unsigned units;  ///< 1 or 2
};

/** Whether units [pos, pos + 2) of a text are one code point. */
inline bool isPairAt(UString::View text, std::size_t pos) noexcept {
    return pos + 1 < text.size() && UString::isHighSurrogate(text[pos]) &&
           UString::isLowSurrogate(text[pos + 1]);
}

/** Whether the text's units before and at `pos` are one code point. */
inline bool isInsidePair(UString::View text, std::size_t pos) noexcept {
    return pos > 0 && isPairAt(text, pos - 1);
}

/** The code point that begins at `pos`. @pre `pos` lies in the text */
inline CodePoint codePointAt(UString::View text, std::size_t pos) noexcept {
    if (isPairAt(text, pos)) {
        return {UString::computeCodePointValue(text[pos], text[pos + 1]), 2};
    }
    return {text[pos], 1};
}

/** The code point that ends before `pos`. @pre 0 < `pos`, at most the length */
inline CodePoint codePointBefore(UString::View text, std::size_t pos) noexcept {
    return pos > 1 && isPairAt(text, pos - 2) ? codePointAt(text, pos - 2)
                                              : CodePoint{text[pos - 1], 1};
}

/** A character of UTF-32 as a code point, whether its type has a sign or not. */
inline UChar32 codePointOf(UChar32 c) noexcept {
    return c;
}
inline UChar32 codePointOf(char32_t c) noexcept {
    return c;
}
inline UChar32 codePointOf(wchar_t c) noexcept {
    return static_cast<std::uint32_t>(c);
}

/** The number of units that `cp` takes. */
inline unsigned unitCount(UChar32 cp) noexcept {
    return UString::requiresSurrogatePair(cp) ? 2 : 1;
}

/** Writes `cp` as one or two units. @return the place behind them @pre `cp` is at most 0x10FFFF */
inline UChar* putCodePoint(UChar* out, UChar32 cp) noexcept {
    if (UString::requiresSurrogatePair(cp)) {
        *out++ = UString::highSurrogate(cp);
        *out++ = UString::lowSurrogate(cp);
    } else {
        *out++ = static_cast<UChar>(cp);
    }
    return out;
}

}  // namespace nolk

#endif
