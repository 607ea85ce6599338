#include "nolk/core/platform/Clock.h"

#include <windows.h>

namespace nolk::platform {

namespace {

// File times count 100 nanoseconds from 1 January 1601.
constexpr std::int64_t ticksPerMillisecond = 10000;
constexpr std::int64_t from1601To1970 = 11644473600000;

}  // namespace

std::int64_t currentMilliseconds() noexcept {
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    const std::int64_t ticks =
        static_cast<std::int64_t>(now.dwHighDateTime) << 32 | now.dwLowDateTime;
    return ticks / ticksPerMillisecond - from1601To1970;
}

std::int64_t currentSeconds() noexcept {
    const std::int64_t milliseconds = currentMilliseconds();
    const std::int64_t seconds = milliseconds / 1000;
    return milliseconds % 1000 < 0 ? seconds - 1 : seconds;
}

}  // namespace nolk::platform
