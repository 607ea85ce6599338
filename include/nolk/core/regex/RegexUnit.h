/** @file
 * What differs between the two character types of the regular-expression engine.
 */
#ifndef NOLK_CORE_REGEX_REGEX_UNIT_H
#define NOLK_CORE_REGEX_REGEX_UNIT_H

#include <nolk/core/Types.h>

#include <cstdint>

namespace nolk {

template <typename T>
struct RegexUnit;

/** Bytes, which are compared with their sign whatever the sign of `char` is. */
template <>
struct RegexUnit<char> {
    static constexpr bool isWide = false;
    /** @name What the record of a failure says
     *  @{ */
    static constexpr const char* file = "nolk/core/regex/RegexCompiler";
    static constexpr const char* function =
        "void __thiscall nolk::RegexCompiler<char>::regexThrow(unsigned int,const char *) const";
    /** @} */

    /** The line ends that `.` doesn't match. */
    static constexpr unsigned notInDot[] = {10};
    static constexpr unsigned value(char unit) noexcept { return static_cast<unsigned char>(unit); }
    /** Where a unit sorts. */
    static constexpr int order(char unit) noexcept { return static_cast<signed char>(unit); }
    static constexpr char fromOrder(int order) noexcept { return static_cast<char>(order); }
};

/** UTF-16 code units. */
template <>
struct RegexUnit<UChar> {
    static constexpr bool isWide = true;
    static constexpr const char* file = "nolk/core/UBasicRegex";
    static constexpr const char* function =
        "void __thiscall nolk::RegexCompiler<wchar_t>::regexThrow(unsigned int,const wchar_t *) "
        "const";

    static constexpr unsigned notInDot[] = {10, 11, 12, 13, 133, 8232, 8233};
    static constexpr unsigned value(UChar unit) noexcept {
        return static_cast<std::uint16_t>(unit);
    }
    static constexpr int order(UChar unit) noexcept { return static_cast<std::uint16_t>(unit); }
    static constexpr UChar fromOrder(int order) noexcept { return static_cast<UChar>(order); }
};

}  // namespace nolk

#endif
