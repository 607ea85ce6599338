#ifndef NOLK_CORE_STRINGS_HEX_DIGITS_H
#define NOLK_CORE_STRINGS_HEX_DIGITS_H

#include <array>

namespace nolk {

inline constexpr char upperHexDigits[] = "0123456789ABCDEF";

/** The value of a byte that is no hexadecimal digit. */
inline constexpr unsigned noHexDigit = 16;

inline constexpr std::array<unsigned char, 256> hexDigitValues = [] {
    std::array<unsigned char, 256> values{};
    values.fill(noHexDigit);
    for (unsigned char i = 0; i < 16; ++i) {
        values[static_cast<unsigned char>(upperHexDigits[i])] = i;
        values[static_cast<unsigned char>("0123456789abcdef"[i])] = i;
    }
    return values;
}();

/** The value of a hexadecimal digit of either case, or noHexDigit. */
constexpr unsigned hexDigitValue(unsigned char digit) {
    return hexDigitValues[digit];
}

}  // namespace nolk

#endif
