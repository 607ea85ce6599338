#include "nolk/core/platform/Zone.h"

#include "nolk/core/platform/Clock.h"

namespace nolk::platform {

bool localTime(std::int64_t seconds, std::tm& civil) noexcept {
    const __time64_t instant = seconds;
    return _localtime64_s(&civil, &instant) == 0;
}

std::tm localTimeNow() noexcept {
    std::tm civil{};
    return localTime(currentSeconds(), civil) ? civil : std::tm{};
}

ZoneFacts processZone() {
    _tzset();
    return {_tzname[0], _tzname[1], _timezone, _daylight != 0};
}

}  // namespace nolk::platform
