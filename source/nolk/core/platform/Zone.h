/** @file
 * The time zone that the system keeps for this process.
 */
#ifndef NOLK_CORE_PLATFORM_ZONE_H
#define NOLK_CORE_PLATFORM_ZONE_H

#include <cstdint>
#include <ctime>
#include <string>

namespace nolk::platform {

/**
 * Writes the local civil time of an instant, in seconds since 1 January 1970 GMT, into `civil`.
 * False, and `civil` unspecified, where the system can't tell: on Windows before 1970 and after
 * 3000. Thread-safe, as long as nobody changes the environment.
 */
bool localTime(std::int64_t seconds, std::tm& civil) noexcept;

/** The present local time; all fields are zero if the system can't tell. Thread-safe. */
std::tm localTimeNow() noexcept;

/** What the run-time library knows of the process's zone. */
struct ZoneFacts {
    std::string standardName;
    std::string daylightName;
    long secondsWest; /**< Of standard time. */
    bool hasDaylight; /**< Whether it has, or ever had, daylight time. */
};

/** Reads the environment anew. Not for several threads at once. @throws std::bad_alloc */
ZoneFacts processZone();

}  // namespace nolk::platform

#endif
