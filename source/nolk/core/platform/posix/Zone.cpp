#include "nolk/core/platform/Zone.h"

#include "nolk/core/platform/Clock.h"

namespace nolk::platform {

bool localTime(std::int64_t seconds, std::tm& civil) noexcept {
    const auto instant = static_cast<std::time_t>(seconds);
    return localtime_r(&instant, &civil) != nullptr;
}

std::tm localTimeNow() noexcept {
    std::tm civil{};
    return localTime(currentSeconds(), civil) ? civil : std::tm{};
}

ZoneFacts processZone() {
    tzset();
    return {tzname[0], tzname[1], timezone, daylight != 0};
}

}  // namespace nolk::platform
