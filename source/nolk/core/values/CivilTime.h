/** @file
 * What is done to the standard library's broken-down times.
 */
#ifndef NOLK_CORE_VALUES_CIVIL_TIME_H
#define NOLK_CORE_VALUES_CIVIL_TIME_H

#include <ctime>
#include <limits>

namespace nolk {

/** Sets the nine standard fields to the lowest 32-bit value, which stands for no time at all. */
inline void clobber(std::tm& tm) noexcept {
    constexpr int lowest = std::numeric_limits<int>::min();
    tm.tm_sec = tm.tm_min = tm.tm_hour = lowest;
    tm.tm_mday = tm.tm_mon = tm.tm_year = lowest;
    tm.tm_wday = tm.tm_yday = tm.tm_isdst = lowest;
}

}  // namespace nolk

#endif
