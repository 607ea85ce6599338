#include <nolk/core/DaylightBoundary.h>

#include "nolk/core/values/Calendar.h"

#include <cstdint>

namespace nolk {

namespace {

// The boundary's day in the month that `tm` is in.
std::int64_t dayInMonth(const DaylightBoundary& boundary, const std::tm& tm) {
    const std::int64_t weekday = boundary.weekday;
    const std::int64_t day = tm.tm_mday;
    if (boundary.week < 0) {
        return weekday;
    }
    if (boundary.week <= 3) {
        return (day - tm.tm_wday + weekday + 6) % 7 + 7 * boundary.week + 1;
    }
    const int length = calendar::lengthOfMonth(std::int64_t{tm.tm_year} + 1900, tm.tm_mon);
    return length - (tm.tm_wday - day - weekday + length + 7) % 7;
}

}  // namespace

bool DaylightBoundary::after(const struct tm* tm) const noexcept {
    if (tm->tm_mon != month) {
        return tm->tm_mon < month;
    }
    if (const std::int64_t day = dayInMonth(*this, *tm); day != tm->tm_mday) {
        return tm->tm_mday < day;
    }
    return tm->tm_min + std::int64_t{60} * tm->tm_hour < minute;
}

void DaylightBoundary::date(struct tm* tm) const noexcept {
    tm->tm_mday = static_cast<int>(dayInMonth(*this, *tm));
    // With a fixed day this is that day, too.
    tm->tm_wday = weekday;
    tm->tm_hour = minute / 60;
    tm->tm_min = minute % 60;
    tm->tm_sec = 0;
    tm->tm_isdst = -1;
}

}  // namespace nolk
