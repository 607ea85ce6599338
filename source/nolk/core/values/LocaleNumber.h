/** @file
 * Writes and reads numbers by the conventions that a locale tells, and by nothing else.
 */
#ifndef NOLK_CORE_VALUES_LOCALE_NUMBER_H
#define NOLK_CORE_VALUES_LOCALE_NUMBER_H

#include <nolk/core/Locale.h>

#include <string>
#include <string_view>

namespace nolk {

/** What stands before and between the digits of a number. */
struct NumberMarks {
    std::string_view point;
    std::string_view grouping;
    std::string_view separator;
};

/** `negative_sign`, or "-" if that is empty. */
std::string_view negativeSign(const Locale& locale);

/**
 * Appends a number that isn't negative with this many digits behind the point, six if it is below
 * 0. What isn't finite has no marks.
 */
void appendFixed(std::string& text, double magnitude, int precision, const NumberMarks& marks);

std::string writeNumber(const Locale& locale, double value, int precision, bool showGrouping);
std::string writeNumber(const Locale& locale, unsigned long value);
std::string writeNumber(const Locale& locale, long value);

/** The results are set if, and only if, the whole text is a number. @{ */
bool readNumber(const Locale& locale, std::string_view text, unsigned long* value);
bool readNumber(const Locale& locale, std::string_view text, long* value);
bool readNumber(const Locale& locale, std::string_view text, double* value);
/** @} */

}  // namespace nolk

#endif
