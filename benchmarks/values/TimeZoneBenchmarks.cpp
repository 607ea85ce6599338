// Instants turned into local civil time: by the rules of a zone, and by localtime_r with the
// system's data for the same zone.
#include <nolk/core/TimeZoneSimple.h>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <vector>

namespace {

using nolk::TimeZone;
using nolk::TimeZoneSimple;

const TimeZoneSimple eastern(TimeZone::StdZone(5), TimeZone::NorthAmerica);

// Between 1974 and 2037, where the zone data and the rules agree.
std::vector<std::int64_t> makeInstants() {
    std::vector<std::int64_t> instants;
    std::uint32_t seed = 1;
    for (int i = 0; i < 1000; ++i) {
        seed = seed * 1664525 + 1013904223;
        instants.push_back(126230400 + std::int64_t{seed} * 2019686400 / 4294967296);
    }
    return instants;
}

const std::vector<std::int64_t> instants = makeInstants();

// Broken down at an offset, in seconds west; years from 1970 on.
std::tm breakDown(std::int64_t instant, long west) {
    const auto local = static_cast<std::uint64_t>(instant - west);
    const auto day = static_cast<std::uint32_t>(local / 86400);
    const auto second = static_cast<std::uint32_t>(local % 86400);
    // Years begin with March here, so that the leap day is their last.
    const std::uint32_t a = 4 * (day + 719468) + 3;
    const std::uint32_t century = a / 146097;
    const std::uint32_t b = (a % 146097) | 3;
    const std::uint32_t yearDay = b % 1461 / 4;
    const std::uint32_t month = (5 * yearDay + 2) / 153;
    const bool nextYear = month >= 10;
    const std::uint32_t year = century * 100 + b / 1461 + nextYear;
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    std::tm tm{};
    tm.tm_year = static_cast<int>(year) - 1900;
    tm.tm_mon = static_cast<int>(month) + (nextYear ? -10 : 2);
    tm.tm_mday = static_cast<int>(yearDay - (153 * month + 2) / 5 + 1);
    tm.tm_yday = static_cast<int>(yearDay) + (nextYear ? -306 : 59 + leap);
    tm.tm_wday = static_cast<int>((day + 4) % 7);
    tm.tm_hour = static_cast<int>(second / 3600);
    tm.tm_min = static_cast<int>(second / 60 % 60);
    tm.tm_sec = static_cast<int>(second % 60);
    return tm;
}

// As DateTime does it: daylight time holds if it does by both offsets.
std::tm localByRules(std::int64_t instant) {
    const TimeZone& zone = eastern;
    std::tm tm = breakDown(instant, zone.timeZoneOffset());
    if (zone.isDaylight(&tm)) {
        std::tm daylight = breakDown(instant, zone.altZoneOffset());
        if (zone.isDaylight(&daylight)) {
            daylight.tm_isdst = 1;
            return daylight;
        }
    }
    return tm;
}

std::tm localByLocaltime(std::int64_t instant) {
    const std::time_t time = instant;
    std::tm tm{};
    localtime_r(&time, &tm);
    return tm;
}

bool same(const std::tm& a, const std::tm& b) {
    return a.tm_year == b.tm_year && a.tm_mon == b.tm_mon && a.tm_mday == b.tm_mday &&
           a.tm_hour == b.tm_hour && a.tm_min == b.tm_min && a.tm_sec == b.tm_sec &&
           a.tm_wday == b.tm_wday && a.tm_yday == b.tm_yday && a.tm_isdst == b.tm_isdst;
}

template <std::tm (*local)(std::int64_t)>
void toLocal(benchmark::State& state) {
    setenv("TZ", "America/New_York", 1);
    tzset();
    for (const std::int64_t instant : instants) {
        if (!same(local(instant), localByLocaltime(instant))) {
            state.SkipWithError("another civil time");
            return;
        }
    }
    std::size_t at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(local(instants[at]));
        at = at + 1 == instants.size() ? 0 : at + 1;
    }
}

BENCHMARK(toLocal<localByRules>)->Name("zone/to_local/nolk_rules");
BENCHMARK(toLocal<localByLocaltime>)->Name("zone/to_local/localtime_r");

}  // namespace
