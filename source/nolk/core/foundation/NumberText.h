/** @file
 * The decimal texts of numbers, as messages show them.
 */
#ifndef NOLK_CORE_FOUNDATION_NUMBER_TEXT_H
#define NOLK_CORE_FOUNDATION_NUMBER_TEXT_H

#include <string>

namespace nolk {

/** The sign, if negative, and the digits. */
std::string longToString(long value);
std::string unsignedLongToString(unsigned long value);

/**
 * What a string stream in its default format writes: at most `precision` significant digits
 * without trailing zeroes, with an exponent if that is shorter, and with the decimal point and the
 * grouping of `std::locale()`.
 */
std::string floatToString(float value);
std::string doubleToString(double value, int precision = 6);

/** Format "%lld". */
std::string longLongToString(long long value);

/** Format "%Lf", whose decimal point is the C locale's, cut back by `removeNumTrails`. */
std::string longDoubleToString(long double value);

/**
 * Cuts trailing zeroes off, and a decimal point that they leave bare. The first character always
 * stays, whatever it is.
 */
void removeNumTrails(char* text);

}  // namespace nolk

#endif
