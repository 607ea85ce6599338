/** @file
 * What the Gregorian calendar knows of years and months. Nothing overflows, whatever the year.
 */
#ifndef NOLK_CORE_VALUES_CALENDAR_H
#define NOLK_CORE_VALUES_CALENDAR_H

#include <cstdint>

namespace nolk::calendar {

constexpr bool isLeap(std::int64_t year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr int lengthOfYear(std::int64_t year) {
    return isLeap(year) ? 366 : 365;
}

/** The days before each month, in a common year and in a leap year. */
inline constexpr int daysBefore[2][12] = {
    {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334},
    {0, 31, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335},
};

/** Of a month counted from 0; a month that isn't one has 31 days. */
constexpr int lengthOfMonth(std::int64_t year, int month) {
    if (month < 0 || month >= 11) {
        return 31;
    }
    const int* days = daysBefore[isLeap(year)] + month;
    return days[1] - days[0];
}

/** The month, 1 to 12, of a day of the year, counted from 0. Days beside it count to its ends. */
constexpr int monthOf(bool leap, int yday) {
    if (yday < 0) {
        return 1;
    }
    if (yday >= 334) {
        return yday >= daysBefore[leap][11] ? 12 : 11;
    }
    // No month has more than 32 days, and none so few that this is wrong by two.
    const int month = yday / 32;
    return month + 1 + (yday >= daysBefore[leap][month + 1]);
}

/**
 * 1 for Monday to 7 for Sunday, of a month and day counted from 1; years count from 1 on.
 */
constexpr int weekDay(std::int64_t year, std::int64_t month, std::int64_t day) {
    const std::int64_t a = (14 - month) / 12;
    const std::int64_t y = year - a;
    const std::int64_t sum =
        (day + y + y / 4 - y / 100 + y / 400 + (31 * (month + 12 * a - 2)) / 12) % 7;
    // Negative only for what no calendar has; the result is in its range all the same.
    return static_cast<int>(sum <= 0 ? sum + 7 : sum);
}

/** The days from 1 January 1970 to 1 January of a year from 1 on. */
constexpr std::int64_t daysFrom1970(std::int64_t year) {
    const std::int64_t before = year - 1;
    return before * 365 + before / 4 - before / 100 + before / 400 - 719162;
}

}  // namespace nolk::calendar

#endif
