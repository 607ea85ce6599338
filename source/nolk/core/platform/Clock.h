/** @file
 * The system's clock.
 */
#ifndef NOLK_CORE_PLATFORM_CLOCK_H
#define NOLK_CORE_PLATFORM_CLOCK_H

#include <cstdint>

namespace nolk::platform {

/** Milliseconds since 1 January 1970, 00:00:00 GMT, by the system's clock. Thread-safe. */
std::int64_t currentMilliseconds() noexcept;

/** Seconds since then, rounded down. Thread-safe. */
std::int64_t currentSeconds() noexcept;

}  // namespace nolk::platform

#endif
