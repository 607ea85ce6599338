// The built-in chains of daylight rules. They stand as they are, also where history differs: all
// the library's civil times in old years depend on them.

#include <nolk/core/DaylightRule.h>
#include <nolk/core/TimeZone.h>

namespace nolk {

namespace {

enum Month : int { january = 0, february, march, april, september = 8, october, november };

constexpr int lastWeek = 4;

// Boundaries are on Sundays.
constexpr DaylightBoundary sunday(Month month, int week, int minute) {
    return {.month = month, .week = week, .weekday = 0, .minute = minute};
}

// Newest first. Linked by the compiler, so that they are there whenever they are asked for.
constinit DaylightRule northAmerica[7] = {
    {&northAmerica[1], 2007, true, sunday(march, 1, 120), sunday(november, 0, 120)},
    {&northAmerica[2], 1987, true, sunday(april, 0, 120), sunday(october, lastWeek, 120)},
    {&northAmerica[3], 1976, true, sunday(april, lastWeek, 120), sunday(october, lastWeek, 120)},
    {&northAmerica[4], 1975, true, sunday(february, lastWeek, 120), sunday(october, lastWeek, 120)},
    {&northAmerica[5], 1974, true, sunday(january, 0, 120), sunday(october, lastWeek, 120)},
    {&northAmerica[6], 1967, true, sunday(april, 0, 120), sunday(october, lastWeek, 120)},
    {nullptr, 0, true, sunday(april, lastWeek, 120), sunday(october, lastWeek, 120)},
};

constinit DaylightRule westernEurope[2] = {
    {&westernEurope[1], 1998, true, sunday(march, lastWeek, 60), sunday(october, lastWeek, 60)},
    {nullptr, 0, true, sunday(march, lastWeek, 120), sunday(september, lastWeek, 120)},
};

constinit DaylightRule europe[2] = {
    {&europe[1], 1996, true, sunday(march, lastWeek, 120), sunday(october, lastWeek, 180)},
    {nullptr, 0, true, sunday(march, lastWeek, 120), sunday(september, lastWeek, 120)},
};

}  // namespace

const DaylightRule* TimeZone::dstRule(DstRule rule) noexcept {
    switch (rule) {
        case NoDST:
            return nullptr;
        case NorthAmerica:
            return northAmerica;
        case WesternEurope:
            return westernEurope;
        case Europe:
            return europe;
    }
    return nullptr;
}

}  // namespace nolk
