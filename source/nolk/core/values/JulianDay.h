/** @file
 * From civil dates to the numbers of days.
 */
#ifndef NOLK_CORE_VALUES_JULIAN_DAY_H
#define NOLK_CORE_VALUES_JULIAN_DAY_H

#include <cstdint>

namespace nolk::julian {

/** The number of 1 January 1901, a Tuesday. */
inline constexpr std::int64_t from1901 = 2415386;
/** The number of 1 January 1970. */
inline constexpr std::int64_t of1970 = from1901 + 25202;

template <typename Year>
constexpr bool isLeap(Year year) {
    // A year that 100 divides is divided by 16 if and only if 400 divides it.
    return year % 100 == 0 ? year % 16 == 0 : year % 4 == 0;
}

/** 0 for what is no month. */
constexpr unsigned lengthOfMonth(unsigned month, unsigned year) {
    constexpr unsigned char lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month == 2) {
        return isLeap(year) ? 29 : 28;
    }
    return month - 1 < 12 ? lengths[month - 1] : 0;
}

/** The days of the year before a month, 1 to 12. */
constexpr unsigned daysBefore(unsigned month, bool leap) {
    constexpr short days[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    return static_cast<unsigned>(days[month - 1]) + (month > 2 && leap ? 1 : 0);
}

/** The number of a civil date, or 0 if there is no such day. */
constexpr std::int64_t fromCivil(unsigned month, unsigned day, unsigned year) {
    // Every month has 28 days; day 0 wraps to the highest number.
    if (month - 1 >= 12 || (day - 1 >= 28 && (day == 0 || day > lengthOfMonth(month, year)))) {
        return 0;
    }
    // A cycle of 400 years later, so that nothing is negative in the year 0 either. Years begin
    // with March, so that the leap day is their last.
    const bool ofYearBefore = month <= 2;
    const std::uint32_t m = ofYearBefore ? month + 9 : month - 3;
    const std::uint64_t y = std::uint64_t{year} + 400 - ofYearBefore;
    const std::uint64_t century = y / 100;
    const auto yearPart = static_cast<std::uint32_t>(y - 100 * century);
    const std::uint64_t number =
        146097 * century / 4 + 1461 * yearPart / 4 + (153 * m + 2) / 5 + day;
    return static_cast<std::int64_t>(number) + 1721119 - 146097;
}

}  // namespace nolk::julian

#endif
