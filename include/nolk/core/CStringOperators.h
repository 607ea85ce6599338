/** @file
 * The free functions of CString. CString.h includes them.
 */
#ifndef NOLK_CORE_CSTRING_OPERATORS_H
#define NOLK_CORE_CSTRING_OPERATORS_H

#include <nolk/core/CString.h>
#include <nolk/core/Export.h>

#include <compare>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string_view>

namespace nolk {

/** @name Comparing
 * Of strings with strings, terminated texts and single bytes, in either order. The order is that of
 * `compareTo` in mode `exact`, in which bytes from 0x80 on come before ASCII. A terminated text
 * ends at its first zero byte, and so equals no string that holds one; null is the empty text. A
 * byte, be it zero, is a text of length 1. Nothing here throws or allocates.
 * @{ */
inline bool operator==(const CString& a, const CString& b) noexcept {
    return a.view() == b.view();
}
inline bool operator==(const CString& a, const char* b) noexcept {
    return a.view() == (b == nullptr ? std::string_view() : std::string_view(b));
}
inline bool operator==(const CString& a, char b) noexcept {
    return a.view() == std::string_view(&b, 1);
}
inline std::strong_ordering operator<=>(const CString& a, const CString& b) noexcept {
    return a.compareTo(b) <=> 0;
}
inline std::strong_ordering operator<=>(const CString& a, const char* b) noexcept {
    return a.compareTo(b) <=> 0;
}
inline std::strong_ordering operator<=>(const CString& a, char b) noexcept {
    return a.compareTo(CString(b, 1)) <=> 0;
}
/** @} */

/** @name Putting together
 * A new string. @throws std::bad_alloc @throws std::length_error beyond 4 GiB - 2 bytes @{ */
NOLK_API CString operator+(const CString& a, const CString& b);
NOLK_API CString operator+(const CString& a, const char* b);
NOLK_API CString operator+(const char* a, const CString& b);
NOLK_API CString operator+(const CString& a, char b);
NOLK_API CString operator+(char a, const CString& b);
/** @} */

/** A copy in lower or upper case, byte by byte, with the current C locale. */
NOLK_API CString toLower(const CString& text);
NOLK_API CString toUpper(const CString& text);

/**
 * What `strxfrm` makes of the text in the current C locale, in a string that is one byte longer: a
 * zero byte stands at its end. Two such strings are in the order of `collate` when their bytes are
 * compared as unsigned. Empty if `strxfrm` fails.
 */
NOLK_API CString strXForm(const CString& text);

/** Write the bytes as a standard string would be written, formatted by the stream's settings. */
NOLK_API std::ostream& operator<<(std::ostream& out, const CString& text);
NOLK_API std::ostream& operator<<(std::ostream& out, const CSubString& text);

}  // namespace nolk

/** `CString::hash` in mode `exact`. */
template <>
struct std::hash<nolk::CString> {
    std::size_t operator()(const nolk::CString& text) const noexcept { return text.hash(); }
};

#endif
