/** @file
 * When in a year daylight time begins or ends.
 */
#ifndef NOLK_CORE_DAYLIGHT_BOUNDARY_H
#define NOLK_CORE_DAYLIGHT_BOUNDARY_H

#include <nolk/core/Export.h>

#include <ctime>

namespace nolk {

/**
 * A moment of each year in civil time, such as 2:00 of the last Sunday of March:
 *
 *     constexpr DaylightBoundary begin{.month = 2, .week = 4, .weekday = 0, .minute = 120};
 *
 * Plain data.
 */
struct NOLK_API DaylightBoundary {
    /** 0 for January. */
    int month = 0;
    /** 0 to 3 for the first to the fourth such week day, 4 for the last; negative: a fixed day. */
    int week = 0;
    /** 0 for Sunday. With a negative week, the day of the month. */
    int weekday = 0;
    /** Minutes after midnight. */
    int minute = 0;

    /**
     * Whether the boundary lies later in the year than `tm`; seconds don't count. `tm_mday` and
     * `tm_wday` are those of one day. @pre `tm` isn't null
     */
    bool after(const struct tm* tm) const noexcept;

    /**
     * Moves `tm` to the boundary's day and time in the month that it is in: `tm_mday`, the time,
     * `tm_wday` to `weekday` as it stands, and `tm_isdst` to -1. `tm_mday` and `tm_wday` are those
     * of one day of the boundary's month before. @pre `tm` isn't null
     */
    void date(struct tm* tm) const noexcept;
};

}  // namespace nolk

#endif
