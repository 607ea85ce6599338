#include "nolk/core/values/Instant.h"

#include <nolk/core/Date.h>
#include <nolk/core/TimeZone.h>

namespace nolk {

namespace {

// Days that begin before this have no number above 0.
constexpr long long lowestDay = -208689307200000;

// Daylight time holds if it does by the zone's standard time, and by daylight time as well.
bool extractDaylight(long long count, std::tm& tm, const TimeZone& zone) {
    Instant::extractGMT(Instant::west(count, zone.timeZoneOffset()), tm);
    if (!zone.isDaylight(&tm)) {
        return false;
    }
    std::tm daylight{};
    Instant::extractGMT(Instant::west(count, zone.altZoneOffset()), daylight);
    if (!zone.isDaylight(&daylight)) {
        return false;
    }
    tm = daylight;
    tm.tm_isdst = 1;
    return true;
}

}  // namespace

void Instant::extractGMT(long long count, std::tm& tm) noexcept {
    const long long julian = julianDay(count);
    const unsigned time = rest(count, day);
    const Date::Civil civil = Date::mdy(julian);
    const unsigned before = julian::daysBefore(civil.month, julian::isLeap(civil.year));
    tm.tm_hour = static_cast<int>(time / 3600000);
    tm.tm_min = static_cast<int>(time / 60000 % 60);
    tm.tm_sec = static_cast<int>(time / 1000 % 60);
    tm.tm_mday = static_cast<int>(civil.day);
    tm.tm_mon = static_cast<int>(civil.month - 1);
    tm.tm_year = civil.year - 1900;
    tm.tm_wday = static_cast<int>(((julian + 1) % 7 + 7) % 7);
    tm.tm_yday = static_cast<int>(before + civil.day - 1);
    tm.tm_isdst = 0;
}

bool Instant::extract(long long count, std::tm& tm, const TimeZone& zone) {
    if (zone.daylightObserved()) {
        return extractDaylight(count, tm, zone);
    }
    extractGMT(west(count, zone.timeZoneOffset()), tm);
    return false;
}

std::optional<long long> Instant::build(const Civil& civil, const TimeZone& zone) {
    const long long midnight = buildGMT({civil.julian, 0, 0, 0, 0});
    if (civil.julian == 0 || midnight < lowestDay) {
        return std::nullopt;
    }
    const long long shown = buildGMT(civil);
    if (!zone.daylightObserved()) {
        return east(shown, zone.timeZoneOffset());
    }
    std::tm tm{};
    extractGMT(shown, tm);
    if (!zone.isDaylight(&tm)) {
        return east(shown, zone.timeZoneOffset());
    }
    const long long count = east(shown, zone.altZoneOffset());
    return extractDaylight(count, tm, zone) ? std::optional(count) : std::nullopt;
}

}  // namespace nolk
