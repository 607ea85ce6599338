/** @file
 * Finds out when the platform keeps daylight time.
 */
#ifndef NOLK_CORE_VALUES_DAYLIGHT_PROBE_H
#define NOLK_CORE_VALUES_DAYLIGHT_PROBE_H

#include <nolk/core/DaylightRule.h>

#include <cstdint>
#include <ctime>

namespace nolk {

/** Writes the civil time of an instant in seconds since 1970; false if it can't. */
using LocalTime = bool (*)(std::int64_t seconds, std::tm& civil) noexcept;

/**
 * The rule, for all years, of the civil year of `now`: fixed days on which daylight time begins and
 * ends for the first time in it. A month that isn't found is 12, and without a begin there is no
 * daylight time.
 */
DaylightRule probeDaylight(std::int64_t now, LocalTime localTime) noexcept;

}  // namespace nolk

#endif
