/** @file
 * From when to when daylight time holds, and since which year.
 */
#ifndef NOLK_CORE_DAYLIGHT_RULE_H
#define NOLK_CORE_DAYLIGHT_RULE_H

#include <nolk/core/DaylightBoundary.h>
#include <nolk/core/Export.h>

#include <ctime>

namespace nolk {

/**
 * One period of years in which daylight time begins and ends by the same rule.
 *
 * Rules make chains, the newest first. Plain data, which points at the next rule without owning it.
 */
struct NOLK_API DaylightRule {
    /** The rule for earlier years, or null. */
    DaylightRule* next = nullptr;
    /** The rule holds from this year on. */
    short firstYear = 0;
    /** Whether there is daylight time in this period. */
    bool observed = false;
    DaylightBoundary begin;
    DaylightBoundary end;

    /**
     * Whether this rule, whatever its chain, puts a civil time into daylight time. In the south,
     * where daylight time begins late in a year and ends early in the next, the first year has none
     * before its begin. @pre `tm` isn't null
     */
    bool isDaylight(const struct tm* tm) const noexcept;
};

}  // namespace nolk

#endif
