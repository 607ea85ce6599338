/** @file
 * Comparing, joining, hashing and printing strings.
 */
#ifndef NOLK_CORE_USTRING_OPERATORS_H
#define NOLK_CORE_USTRING_OPERATORS_H

#include <nolk/core/Export.h>
#include <nolk/core/Types.h>
#include <nolk/core/UConstSubString.h>
#include <nolk/core/UString.h>
#include <nolk/core/USubString.h>

#include <compare>
#include <concepts>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <utility>

namespace nolk {

/** @name Compare
 *  All six operators, either way round: by code units with UTF-16, by code points with UTF-32.
 *  @{ */
inline bool operator==(const UString& a, const UString& b) noexcept {
    return a.length() == b.length() && a.compareCodeUnits(b) == 0;
}
inline bool operator==(const UString& a, const UChar* b) noexcept {
    return a.compareCodeUnits(b) == 0;
}
inline bool operator==(const UString& a, const UChar32* b) noexcept {
    return a.compareTo(b) == 0;
}
inline std::strong_ordering operator<=>(const UString& a, const UString& b) noexcept {
    return a.compareCodeUnits(b) <=> 0;
}
inline std::strong_ordering operator<=>(const UString& a, const UChar* b) noexcept {
    return a.compareCodeUnits(b) <=> 0;
}
inline std::strong_ordering operator<=>(const UString& a, const UChar32* b) noexcept {
    return a.compareTo(b) <=> 0;
}

/** USubString and UConstSubString. */
template <typename Part>
concept UStringPart = std::same_as<Part, USubString> || std::same_as<Part, UConstSubString>;

template <UStringPart A, UStringPart B>
bool operator==(const A& a, const B& b) noexcept {
    return UString::compareCodeUnits(a.view(), b.view()) == 0;
}
template <UStringPart Part>
bool operator==(const Part& a, const UString& b) noexcept {
    return UString::compareCodeUnits(a.view(), b.view()) == 0;
}
template <UStringPart Part>
bool operator==(const Part& a, const UChar* b) noexcept {
    return UString::compareCodeUnits(a.view(), UString::View(b, UString::codeUnitLength(b))) == 0;
}
template <UStringPart Part>
bool operator==(const Part& a, const UChar32* b) noexcept {
    return UString::compareCodePoints(a.view(), b) == 0;
}
template <UStringPart A, UStringPart B>
std::strong_ordering operator<=>(const A& a, const B& b) noexcept {
    return UString::compareCodeUnits(a.view(), b.view()) <=> 0;
}
template <UStringPart Part>
std::strong_ordering operator<=>(const Part& a, const UString& b) noexcept {
    return UString::compareCodeUnits(a.view(), b.view()) <=> 0;
}
template <UStringPart Part>
std::strong_ordering operator<=>(const Part& a, const UChar* b) noexcept {
    return UString::compareCodeUnits(a.view(), UString::View(b, UString::codeUnitLength(b))) <=> 0;
}
template <UStringPart Part>
std::strong_ordering operator<=>(const Part& a, const UChar32* b) noexcept {
    return UString::compareCodePoints(a.view(), b) <=> 0;
}
/** @} */

/** @name Join
 *  @{ */
inline UString operator+(const UString& a, const UString& b) {
    return std::move(UString(a) += b);
}
inline UString operator+(const UString& a, const UChar* b) {
    return std::move(UString(a) += b);
}
inline UString operator+(const UString& a, const UChar32* b) {
    return std::move(UString(a) += b);
}
inline UString operator+(const UString& a, UChar b) {
    return std::move(UString(a) += b);
}
inline UString operator+(const UString& a, UChar32 b) {
    return std::move(UString(a) += b);
}
inline UString operator+(const UChar* a, const UString& b) {
    return std::move(UString(b).prepend(a));
}
inline UString operator+(const UChar32* a, const UString& b) {
    return std::move(UString(b).prepend(a));
}
inline UString operator+(UChar a, const UString& b) {
    return std::move(UString(b).prepend(a, 1u));
}
inline UString operator+(UChar32 a, const UString& b) {
    return std::move(UString(b).prepend(a, 1u));
}
/** @} */

inline void swap(UString& a, UString& b) noexcept {
    a.swap(b);
}

/** Writes UTF-8; a lone surrogate as its own value. Width and fill of the stream are heeded. */
NOLK_API std::ostream& operator<<(std::ostream& stream, const UString& text);

}  // namespace nolk

/** UString::hash(). */
template <>
struct std::hash<nolk::UString> {
    std::size_t operator()(const nolk::UString& text) const noexcept { return text.hash(); }
};

#endif
