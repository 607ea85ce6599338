// The North American rules against the machine's zone data for New York, hour by hour around each
// change from 1967 to 2037.
//
// They differ in the years 1967 to 1973, and nowhere else: there daylight time began on the last
// Sunday of April, and the chain has the first Sunday of that month. Programs depend on the chain
// as it is, and so does this test.

#include <nolk/core/TimeZoneSimple.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <ctime>
#include <set>

#include "support/ZoneFile.h"

namespace nolk {
namespace {

constexpr std::int64_t hour = 3600;
constexpr std::int64_t day = 24 * hour;

// As instants are turned into civil time: daylight time holds if it does by standard time and by
// daylight time.
std::tm civilIn(const TimeZone& zone, std::int64_t instant) {
    const std::tm standard = test::civilAt(instant, -zone.timeZoneOffset());
    if (!zone.isDaylight(&standard)) {
        return standard;
    }
    std::tm daylight = test::civilAt(instant, -zone.altZoneOffset());
    if (!zone.isDaylight(&daylight)) {
        return standard;
    }
    daylight.tm_isdst = 1;
    return daylight;
}

bool same(const std::tm& a, const std::tm& b) {
    return a.tm_year == b.tm_year && a.tm_mon == b.tm_mon && a.tm_mday == b.tm_mday &&
           a.tm_hour == b.tm_hour && a.tm_min == b.tm_min && a.tm_sec == b.tm_sec &&
           a.tm_wday == b.tm_wday && a.tm_yday == b.tm_yday && a.tm_isdst == b.tm_isdst;
}

// Whether history and the chain are known to differ: from 2:00 of the first Sunday of April to 2:00
// of the last one, in the years 1967 to 1973.
bool historyDiffers(std::int64_t instant) {
    const std::tm civil = test::civilAt(instant, -5 * hour);
    if (civil.tm_year < 67 || civil.tm_year > 73 || civil.tm_mon != 3) {
        return false;
    }
    const int sundays = (civil.tm_mday - 1 + 7 - civil.tm_wday) / 7;  // up to and with this day
    const bool begun = sundays > 1 || (sundays == 1 && (civil.tm_wday != 0 || civil.tm_hour >= 2));
    const bool lastWeek = civil.tm_mday - civil.tm_wday + 7 > 30;
    const bool ended = lastWeek && (civil.tm_wday != 0 || civil.tm_hour >= 2);
    return begun && !ended;
}

TEST(NorthAmerica, HasTheCivilTimeOfNewYorkAroundEachChange) {
    const TimeZoneSimple eastern(TimeZone::StdZone(5), TimeZone::NorthAmerica);
    const test::ZoneFile newYork("America/New_York");
    int changes = 0;
    for (const test::ZoneFile::Change& change : newYork.changes()) {
        if (change.from < test::secondsAt(1967, 1, 1)) {
            continue;
        }
        ++changes;
        for (std::int64_t at = change.from - 10 * day; at <= change.from + 10 * day; at += hour) {
            for (const std::int64_t instant : {at - 1, at, at + hour / 2}) {
                ASSERT_NE(same(civilIn(eastern, instant), newYork.civil(instant)),
                          historyDiffers(instant))
                    << instant;
            }
        }
    }
    EXPECT_EQ(changes, 142);  // two in each of 71 years
}

TEST(NorthAmerica, HasTheCivilTimeOfNewYorkAtEachHourOfTheYears) {
    const TimeZoneSimple eastern(TimeZone::StdZone(5), TimeZone::NorthAmerica);
    const test::ZoneFile newYork("America/New_York");
    std::set<int> differing;
    for (std::int64_t at = test::secondsAt(1967, 1, 2); at < test::secondsAt(2037, 12, 31);
         at += hour) {
        const bool differs = !same(civilIn(eastern, at), newYork.civil(at));
        ASSERT_EQ(differs, historyDiffers(at)) << at;
        if (differs) {
            differing.insert(newYork.civil(at).tm_year + 1900);
        }
    }
    EXPECT_EQ(differing, std::set<int>({1967, 1968, 1969, 1970, 1971, 1972, 1973}));
}

TEST(NorthAmerica, NamesTheCivilTimesOfTheChanges) {
    const TimeZoneSimple eastern(TimeZone::StdZone(5), TimeZone::NorthAmerica);
    const test::ZoneFile newYork("America/New_York");
    for (const test::ZoneFile::Change& change : newYork.changes()) {
        if (change.from < test::secondsAt(1974, 1, 1)) {
            continue;
        }
        // What the clocks showed when they were put on or back.
        std::tm shown = test::civilAt(change.from, (change.daylight ? -5 : -4) * hour);
        std::tm told{};
        told.tm_year = shown.tm_year;
        told.tm_yday = shown.tm_yday;
        if (change.daylight) {
            eastern.getBeginDaylight(&told);
        } else {
            eastern.getEndDaylight(&told);
        }
        shown.tm_isdst = -1;
        EXPECT_TRUE(same(told, shown)) << change.from;
    }
}

TEST(NorthAmerica, EasternNamesAreThoseOfNewYork) {
    const TimeZoneSimple eastern(TimeZone::StdZone(5), TimeZone::NorthAmerica);
    const test::ZoneFile newYork("America/New_York");
    EXPECT_EQ(newYork.at(test::secondsAt(2010, 1, 15)).name, eastern.timeZoneName());
    EXPECT_EQ(newYork.at(test::secondsAt(2010, 7, 15)).name, eastern.altZoneName());
}

}  // namespace
}  // namespace nolk
