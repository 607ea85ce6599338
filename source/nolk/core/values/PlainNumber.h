/** @file
 * Reads numbers as the C run-time library does in the locale "C", whatever the process's locale.
 */
#ifndef NOLK_CORE_VALUES_PLAIN_NUMBER_H
#define NOLK_CORE_VALUES_PLAIN_NUMBER_H

#include <cstdint>
#include <optional>
#include <string_view>

namespace nolk {

/**
 * The number at the front of a text, which is taken off: blanks, a sign and digits. Beyond 32 bits
 * it is 4294967295; a negative number comes out modulo 2^32. Nothing, and the text stays, if it
 * doesn't begin with a number.
 */
std::optional<std::uint32_t> takeUnsigned(std::string_view& text) noexcept;

/**
 * The same for `strtod`: decimal and hexadecimal numbers, "inf", "infinity", "nan" and "nan(...)".
 * What is too large is infinite.
 */
std::optional<double> takeDouble(std::string_view& text) noexcept;

}  // namespace nolk

#endif
