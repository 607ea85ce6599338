/** @file
 * Reads the three forms of HTTP's dates.
 */
#ifndef NOLK_CORE_VALUES_HTTP_DATE_H
#define NOLK_CORE_VALUES_HTTP_DATE_H

#include <optional>
#include <string_view>

namespace nolk {

/** A civil time in GMT, as a text tells it; nothing is checked but the month. */
struct HttpDate {
    unsigned day;
    unsigned month;
    unsigned year;
    unsigned hour;
    unsigned minute;
    unsigned second;
};

/**
 * The form is told by the number of words: 4 for "Sunday, 06-Nov-94 08:49:37 GMT", 5 for
 * "Sun Nov  6 08:49:37 1994", 6 or more for "Sun, 06 Nov 1994 08:49:37 GMT". The week day and the
 * zone can be any words. A year in the first form has two digits, and is the one that is nearest to
 * `presentYear`. Nothing for other numbers of words, and for what is no English month.
 */
std::optional<HttpDate> readHttpDate(std::string_view text, unsigned presentYear) noexcept;

}  // namespace nolk

#endif
