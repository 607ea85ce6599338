/** @file
 * Texts of code units and code points for tests on both platforms: literals are UTF-16 or UTF-32,
 * whatever the library's types are.
 */
#ifndef NOLK_TESTS_STRINGS_UNIT_TEXT_H
#define NOLK_TESTS_STRINGS_UNIT_TEXT_H

#include <nolk/core/UString.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace nolk::test {

/** Terminated texts as constants. */
template <std::size_t size>
struct UnitConstant {
    consteval UnitConstant(const char16_t (&s)[size]) { std::copy_n(s, size, elements); }

    UChar elements[size] = {};
};
template <std::size_t size>
struct PointConstant {
    consteval PointConstant(const char32_t (&s)[size]) { std::copy_n(s, size, elements); }

    UChar32 elements[size] = {};
};

/** u"..."_u: terminated code units. */
template <UnitConstant text>
constexpr const UChar* operator""_u() {
    return text.elements;
}

/** U"..."_p: terminated code points. */
template <PointConstant text>
constexpr const UChar32* operator""_p() {
    return text.elements;
}

using Units = std::basic_string<UChar>;
using Points = std::vector<UChar32>;

inline Units units(std::u16string_view s) {
    return Units(s.begin(), s.end());
}

/** The same code points in UTF-16; a surrogate gives itself. */
inline Units units(const Points& points) {
    Units s;
    for (const UChar32 cp : points) {
        if (cp > 0xFFFF) {
            s += static_cast<UChar>(0xD800 + ((cp - 0x10000) >> 10));
            s += static_cast<UChar>(0xDC00 + ((cp - 0x10000) & 0x3FF));
        } else {
            s += static_cast<UChar>(cp);
        }
    }
    return s;
}

inline UString text(std::u16string_view s) {
    return UString(units(s).data(), static_cast<unsigned>(s.size()));
}

/** What a string holds, to be compared with a literal. */
inline std::u16string shown(UString::View s) {
    return std::u16string(s.begin(), s.end());
}
inline std::u16string shown(const UString& s) {
    return shown(s.view());
}

/** The character as a code unit. */
inline UChar unit(char16_t c) {
    return static_cast<UChar>(c);
}

}  // namespace nolk::test

#endif
