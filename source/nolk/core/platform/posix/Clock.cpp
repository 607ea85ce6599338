#include "nolk/core/platform/Clock.h"

#include <ctime>

namespace nolk::platform {

std::int64_t currentMilliseconds() noexcept {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return static_cast<std::int64_t>(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
}

std::int64_t currentSeconds() noexcept {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return now.tv_sec;
}

}  // namespace nolk::platform
