#include <nolk/core/TimeZoneSimple.h>

#include <gtest/gtest.h>

#include <chrono>
#include <climits>
#include <ctime>
#include <limits>
#include <string>
#include <type_traits>

#include "support/ZoneFile.h"

namespace nolk {
namespace {

using test::civilAt;
using test::secondsAt;

constexpr int lowest = std::numeric_limits<int>::min();

std::tm civil(int year, int month, int day, int hour = 0, int minute = 0) {
    return civilAt(secondsAt(year, month, day) + hour * 3600 + minute * 60, 0);
}

std::string monthDayTime(const std::tm& tm) {
    char text[80];
    std::snprintf(text, sizeof text, "%d-%d %d:%02d", tm.tm_mon + 1, tm.tm_mday, tm.tm_hour,
                  tm.tm_min);
    return text;
}

std::tm beginIn(const TimeZone& zone, int year) {
    std::tm tm{};
    tm.tm_year = year - 1900;
    zone.getBeginDaylight(&tm);
    return tm;
}

std::tm endIn(const TimeZone& zone, int year) {
    std::tm tm{};
    tm.tm_year = year - 1900;
    zone.getEndDaylight(&tm);
    return tm;
}

void expectClobbered(const std::tm& tm) {
    EXPECT_EQ(tm.tm_sec, lowest);
    EXPECT_EQ(tm.tm_min, lowest);
    EXPECT_EQ(tm.tm_hour, lowest);
    EXPECT_EQ(tm.tm_mday, lowest);
    EXPECT_EQ(tm.tm_mon, lowest);
    EXPECT_EQ(tm.tm_year, lowest);
    EXPECT_EQ(tm.tm_wday, lowest);
    EXPECT_EQ(tm.tm_yday, lowest);
    EXPECT_EQ(tm.tm_isdst, lowest);
}

void expectNoDaylight(const TimeZone& zone, int year) {
    for (int month = 1; month <= 12; ++month) {
        const std::tm tm = civil(year, month, 15);
        EXPECT_FALSE(zone.isDaylight(&tm)) << year << '-' << month;
    }
    expectClobbered(beginIn(zone, year));
    expectClobbered(endIn(zone, year));
}

TEST(TimeZoneSimple, IsAValueAndATimeZone) {
    EXPECT_TRUE((std::is_base_of_v<TimeZone, TimeZoneSimple>));
    EXPECT_TRUE(std::is_copy_constructible_v<TimeZoneSimple>);
    EXPECT_TRUE(std::is_copy_assignable_v<TimeZoneSimple>);
}

TEST(TimeZoneSimple, IsUsEasternTimeFiveHoursWestWithTheNorthAmericanRule) {
    const TimeZoneSimple zone(TimeZone::StdZone(5), TimeZone::DstRule(1));
    EXPECT_EQ(zone.timeZoneOffset(), 18000);
    EXPECT_EQ(zone.altZoneOffset(), 14400);
    EXPECT_EQ(zone.timeZoneName(), "EST");
    EXPECT_EQ(zone.altZoneName(), "EDT");
    EXPECT_TRUE(zone.daylightObserved());
}

TEST(TimeZoneSimple, HasDaylightTimeInSummerAndNoneInWinter) {
    const TimeZoneSimple zone(TimeZone::StdZone(5), TimeZone::NorthAmerica);
    const std::tm july = civil(2010, 7, 15);
    const std::tm january = civil(2010, 1, 15);
    EXPECT_TRUE(zone.isDaylight(&july));
    EXPECT_FALSE(zone.isDaylight(&january));
}

TEST(TimeZoneSimple, BeginsDaylightTimeOnTheSecondSundayOfMarch) {
    const TimeZoneSimple zone(TimeZone::StdZone(5), TimeZone::NorthAmerica);
    EXPECT_EQ(monthDayTime(beginIn(zone, 2010)), "3-14 2:00");
    const std::tm before = civil(2010, 3, 14, 1, 59);
    const std::tm then = civil(2010, 3, 14, 2, 0);
    EXPECT_FALSE(zone.isDaylight(&before));
    EXPECT_TRUE(zone.isDaylight(&then));
}

TEST(TimeZoneSimple, BeginsDaylightTimeInJanuary1974) {
    const TimeZoneSimple zone(TimeZone::StdZone(5), TimeZone::NorthAmerica);
    EXPECT_EQ(monthDayTime(beginIn(zone, 1974)), "1-6 2:00");
    const std::tm january = civil(1974, 1, 15);
    EXPECT_TRUE(zone.isDaylight(&january));
}

TEST(TimeZoneSimple, WithoutARuleTheBoundariesAreLowestValues) {
    expectNoDaylight(TimeZoneSimple(nullptr, 3600, "A", 0, "B"), 2010);
    expectNoDaylight(TimeZoneSimple(3600, "A"), 2010);
    expectNoDaylight(TimeZoneSimple(TimeZone::StdZone(0), TimeZone::NoDST), 2010);
}

TEST(TimeZoneSimple, ASouthernRuleHasDaylightTimeInJanuary) {
    const DaylightRule rule{nullptr, 0, true, {9, 0, 0, 120}, {2, 4, 0, 180}};
    const TimeZoneSimple zone(TimeZone::StdZone(-10), &rule);
    const std::tm january = civil(2010, 1, 15);
    const std::tm july = civil(2010, 7, 15);
    EXPECT_TRUE(zone.isDaylight(&january));
    EXPECT_FALSE(zone.isDaylight(&july));
    EXPECT_EQ(monthDayTime(beginIn(zone, 2010)), "10-3 2:00");
    EXPECT_EQ(monthDayTime(endIn(zone, 2010)), "3-28 3:00");
}

TEST(TimeZoneSimple, MadeOfAnOffsetHasOneNameAndOneOffset) {
    const TimeZoneSimple zone(-19800, "IST");
    EXPECT_EQ(zone.timeZoneOffset(), -19800);
    EXPECT_EQ(zone.altZoneOffset(), -19800);
    EXPECT_EQ(zone.timeZoneName(), "IST");
    EXPECT_EQ(zone.altZoneName(), "IST");
    EXPECT_FALSE(zone.daylightObserved());
}

TEST(TimeZoneSimple, TakesAllThatItIsGiven) {
    const DaylightRule rule{nullptr, 0, true, {2, 0, 0, 0}, {9, 0, 0, 0}};
    const TimeZoneSimple zone(&rule, 1, "one", -2, "two");
    EXPECT_EQ(zone.timeZoneOffset(), 1);
    EXPECT_EQ(zone.altZoneOffset(), -2);
    EXPECT_EQ(zone.timeZoneName(), "one");
    EXPECT_EQ(zone.altZoneName(), "two");
    EXPECT_TRUE(zone.daylightObserved());
    const TimeZoneSimple without(nullptr, LONG_MIN, "", LONG_MAX, "x");
    EXPECT_EQ(without.timeZoneOffset(), LONG_MIN);
    EXPECT_EQ(without.altZoneOffset(), LONG_MAX);
    EXPECT_EQ(without.altZoneName(), "x");
    EXPECT_FALSE(without.daylightObserved());
}

TEST(TimeZoneSimple, ObservesDaylightTimeIfThereIsARuleEvenOneWithout) {
    const DaylightRule rule{};
    const TimeZoneSimple zone(&rule, 0, "A", -3600, "B");
    EXPECT_TRUE(zone.daylightObserved());
    expectNoDaylight(zone, 2010);
}

struct NameRow {
    int zone;
    const char* standard;
    const char* daylight;
};

TEST(TimeZoneSimple, NamesTheStandardZones) {
    const NameRow rows[] = {
        {-12, "GMT+12", "GMT+13"}, {-11, "GMT+11", "GMT+12"}, {-10, "GMT+10", "GMT+11"},
        {-9, "GMT+9", "GMT+10"},   {-8, "GMT+8", "GMT+9"},    {-7, "GMT+7", "GMT+8"},
        {-6, "GMT+6", "GMT+7"},    {-5, "GMT+5", "GMT+6"},    {-4, "GMT+4", "GMT+5"},
        {-3, "GMT+3", "GMT+4"},    {-2, "EET", "EET DST"},    {-1, "MET", "MET DST"},
        {0, "GMT", "WET DST"},     {1, "GMT-1", "GMT+0"},     {2, "GMT-2", "GMT-1"},
        {3, "GMT-3", "GMT-2"},     {4, "GMT-4", "GMT-3"},     {5, "EST", "EDT"},
        {6, "CST", "CDT"},         {7, "MST", "MDT"},         {8, "PST", "PDT"},
        {9, "YST", "YDT"},         {10, "GMT-10", "GMT-9"},   {11, "GMT-11", "GMT-10"},
    };
    const DaylightRule own{nullptr, 0, true, {2, 0, 0, 0}, {9, 0, 0, 0}};
    for (const NameRow& row : rows) {
        const auto number = TimeZone::StdZone(row.zone);
        const TimeZoneSimple plain(number);
        EXPECT_EQ(plain.timeZoneOffset(), row.zone * 3600) << row.zone;
        EXPECT_EQ(plain.altZoneOffset(), row.zone * 3600) << row.zone;
        EXPECT_EQ(plain.timeZoneName(), row.standard) << row.zone;
        EXPECT_EQ(plain.altZoneName(), row.standard) << row.zone;
        EXPECT_FALSE(plain.daylightObserved()) << row.zone;
        for (const TimeZoneSimple& zone :
             {TimeZoneSimple(number, TimeZone::Europe), TimeZoneSimple(number, &own)}) {
            EXPECT_EQ(zone.timeZoneOffset(), row.zone * 3600) << row.zone;
            EXPECT_EQ(zone.altZoneOffset(), (row.zone - 1) * 3600) << row.zone;
            EXPECT_EQ(zone.timeZoneName(), row.standard) << row.zone;
            EXPECT_EQ(zone.altZoneName(), row.daylight) << row.zone;
            EXPECT_TRUE(zone.daylightObserved()) << row.zone;
        }
        const TimeZoneSimple null(number, static_cast<const DaylightRule*>(nullptr));
        EXPECT_EQ(null.altZoneOffset(), row.zone * 3600) << row.zone;
        EXPECT_EQ(null.altZoneName(), row.standard) << row.zone;
    }
}

TEST(TimeZoneSimple, ZonesBesideTheTableHaveNoNames) {
    for (const int number : {INT_MIN, -13, 12, INT_MAX}) {
        const TimeZoneSimple zone(TimeZone::StdZone(number), TimeZone::Europe);
        EXPECT_EQ(zone.timeZoneName(), "");
        EXPECT_EQ(zone.altZoneName(), "");
    }
    EXPECT_EQ(TimeZoneSimple(TimeZone::StdZone(-13)).timeZoneOffset(), -46800);
    EXPECT_EQ(TimeZoneSimple(TimeZone::StdZone(12), TimeZone::Europe).altZoneOffset(), 39600);
}

TEST(TimeZoneSimple, CopiesShareTheRule) {
    DaylightRule rule{nullptr, 0, false, {2, 0, 0, 0}, {9, 0, 0, 0}};
    const TimeZoneSimple zone(&rule, 1, "one", -2, "two");
    const TimeZoneSimple copy(zone);
    TimeZoneSimple assigned(7, "seven");
    assigned = zone;
    const std::tm july = civil(2010, 7, 15);
    for (const TimeZoneSimple* other : {&copy, &static_cast<const TimeZoneSimple&>(assigned)}) {
        EXPECT_EQ(other->timeZoneOffset(), 1);
        EXPECT_EQ(other->altZoneOffset(), -2);
        EXPECT_EQ(other->timeZoneName(), "one");
        EXPECT_EQ(other->altZoneName(), "two");
        EXPECT_TRUE(other->daylightObserved());
        rule.observed = false;
        EXPECT_FALSE(other->isDaylight(&july));
        rule.observed = true;
        EXPECT_TRUE(other->isDaylight(&july));
    }
}

TEST(TimeZoneSimple, AsksTheNewestRuleOfTheYear) {
    DaylightRule oldest{nullptr, 1950, true, {3, -1, 1, 0}, {8, -1, 1, 0}};
    DaylightRule without{&oldest, 1980, false, {0, 0, 0, 0}, {0, 0, 0, 0}};
    const DaylightRule newest{&without, 2000, true, {1, -1, 1, 0}, {10, -1, 1, 0}};
    const TimeZoneSimple zone(&newest, 0, "A", -3600, "B");
    expectNoDaylight(zone, 1949);
    EXPECT_EQ(monthDayTime(beginIn(zone, 1950)), "4-1 0:00");
    EXPECT_EQ(monthDayTime(endIn(zone, 1979)), "9-1 0:00");
    expectNoDaylight(zone, 1980);
    expectNoDaylight(zone, 1999);
    EXPECT_EQ(monthDayTime(beginIn(zone, 2000)), "2-1 0:00");
    EXPECT_EQ(monthDayTime(endIn(zone, 2500)), "11-1 0:00");
}

TEST(TimeZoneSimple, ComparesYearsInSixteenBits) {
    const DaylightRule rule{nullptr, 2000, true, {2, -1, 1, 0}, {9, -1, 1, 0}};
    const TimeZoneSimple zone(&rule, 0, "A", -3600, "B");
    const auto isDaylightInJuly = [&zone](int year) {
        std::tm tm{};
        tm.tm_year = year - 1900;
        tm.tm_mon = 6;
        tm.tm_mday = 1;
        return zone.isDaylight(&tm);
    };
    EXPECT_TRUE(isDaylightInJuly(32767));
    EXPECT_FALSE(isDaylightInJuly(32768));  // -32768
    EXPECT_FALSE(isDaylightInJuly(65536 + 1999));
    EXPECT_TRUE(isDaylightInJuly(65536 + 2000));
    EXPECT_TRUE(isDaylightInJuly(2000 - 65536));
}

struct ChangeRow {
    TimeZone::DstRule chain;
    int year;
    const char* begin;
    const char* end;
};

// First and last year of each row of the chains; the days are from a calendar.
const ChangeRow changes[] = {
    {TimeZone::NorthAmerica, 1900, "4-29 2:00", "10-28 2:00"},
    {TimeZone::NorthAmerica, 1966, "4-24 2:00", "10-30 2:00"},
    {TimeZone::NorthAmerica, 1967, "4-2 2:00", "10-29 2:00"},
    {TimeZone::NorthAmerica, 1973, "4-1 2:00", "10-28 2:00"},
    {TimeZone::NorthAmerica, 1974, "1-6 2:00", "10-27 2:00"},
    {TimeZone::NorthAmerica, 1975, "2-23 2:00", "10-26 2:00"},
    {TimeZone::NorthAmerica, 1976, "4-25 2:00", "10-31 2:00"},
    {TimeZone::NorthAmerica, 1986, "4-27 2:00", "10-26 2:00"},
    {TimeZone::NorthAmerica, 1987, "4-5 2:00", "10-25 2:00"},
    {TimeZone::NorthAmerica, 2006, "4-2 2:00", "10-29 2:00"},
    {TimeZone::NorthAmerica, 2007, "3-11 2:00", "11-4 2:00"},
    {TimeZone::NorthAmerica, 2026, "3-8 2:00", "11-1 2:00"},
    {TimeZone::WesternEurope, 1980, "3-30 2:00", "9-28 2:00"},
    {TimeZone::WesternEurope, 1997, "3-30 2:00", "9-28 2:00"},
    {TimeZone::WesternEurope, 1998, "3-29 1:00", "10-25 1:00"},
    {TimeZone::WesternEurope, 2026, "3-29 1:00", "10-25 1:00"},
    {TimeZone::Europe, 1980, "3-30 2:00", "9-28 2:00"},
    {TimeZone::Europe, 1995, "3-26 2:00", "9-24 2:00"},
    {TimeZone::Europe, 1996, "3-31 2:00", "10-27 3:00"},
    {TimeZone::Europe, 2026, "3-29 2:00", "10-25 3:00"},
};

TEST(TimeZoneSimple, FindsBeginAndEndInTheBuiltInChains) {
    for (const ChangeRow& row : changes) {
        const TimeZoneSimple zone(TimeZone::StdZone(0), row.chain);
        const std::tm begin = beginIn(zone, row.year);
        const std::tm end = endIn(zone, row.year);
        EXPECT_EQ(monthDayTime(begin), row.begin) << row.chain << ' ' << row.year;
        EXPECT_EQ(monthDayTime(end), row.end) << row.chain << ' ' << row.year;
        for (const std::tm& tm : {begin, end}) {
            EXPECT_EQ(tm.tm_year, row.year - 1900);
            EXPECT_EQ(tm.tm_wday, 0);
            EXPECT_EQ(tm.tm_sec, 0);
            EXPECT_EQ(tm.tm_isdst, -1);
        }
        // Daylight time holds from the minute of the one to the minute before the other.
        const std::int64_t at =
            secondsAt(row.year, begin.tm_mon + 1, begin.tm_mday) + begin.tm_hour * 3600;
        const std::int64_t until =
            secondsAt(row.year, end.tm_mon + 1, end.tm_mday) + end.tm_hour * 3600;
        for (const std::int64_t time : {at, at + 60, at + 86400, until - 86400, until - 60}) {
            const std::tm tm = civilAt(time, 0);
            EXPECT_TRUE(zone.isDaylight(&tm)) << row.year << ' ' << monthDayTime(tm);
        }
        for (const std::int64_t time : {at - 86400, at - 60, until, until + 60, until + 86400}) {
            const std::tm tm = civilAt(time, 0);
            EXPECT_FALSE(zone.isDaylight(&tm)) << row.year << ' ' << monthDayTime(tm);
        }
    }
}

TEST(TimeZoneSimple, ALocalYearBeforeTheFirstRuleHasNoDaylightTime) {
    const TimeZoneSimple zone(TimeZone::StdZone(5), TimeZone::NorthAmerica);
    std::tm tm{};
    tm.tm_year = -1901;  // the year -1
    tm.tm_mon = 6;
    tm.tm_mday = 1;
    EXPECT_FALSE(zone.isDaylight(&tm));
    zone.getBeginDaylight(&tm);
    expectClobbered(tm);
}

TEST(TimeZoneSimple, LeavesTheDayOfTheYearAlone) {
    const TimeZoneSimple zone(TimeZone::StdZone(5), TimeZone::NorthAmerica);
    std::tm tm{};
    tm.tm_year = 110;
    tm.tm_yday = 17;
    zone.getBeginDaylight(&tm);
    EXPECT_EQ(tm.tm_yday, 17);
}

TEST(TimeZoneSimple, WritesAFixedDayWithItsWeekDayAsGiven) {
    const DaylightRule rule{nullptr, 0, true, {2, -1, 25, 61}, {12, -1, 0, 0}};
    const TimeZoneSimple zone(&rule, 0, "A", -3600, "B");
    EXPECT_EQ(beginIn(zone, 2010).tm_wday, 25);
    EXPECT_EQ(monthDayTime(beginIn(zone, 2010)), "3-25 1:01");
    // A month that isn't one.
    EXPECT_EQ(endIn(zone, 2010).tm_mon, 12);
}

TEST(TimeZoneSimple, TakesTheEndsOfTheRangeOfAnInt) {
    const int ends[] = {INT_MIN, -1, 0, 1, INT_MAX};
    for (const int a : ends) {
        for (const int b : ends) {
            const DaylightRule rule{nullptr, SHRT_MIN, true, {a, b, b, a}, {b, a, a, b}};
            const TimeZoneSimple zone(&rule, 0, "A", -3600, "B");
            std::tm tm{};
            tm.tm_year = a;
            tm.tm_mon = b;
            tm.tm_mday = b;
            tm.tm_wday = a;
            const bool daylight = zone.isDaylight(&tm);
            tm.tm_sec = 59;
            EXPECT_EQ(zone.isDaylight(&tm), daylight);
            zone.getBeginDaylight(&tm);
            EXPECT_EQ(tm.tm_mon, a);
            EXPECT_EQ(tm.tm_wday, b);
            zone.getEndDaylight(&tm);
            EXPECT_EQ(tm.tm_mon, b);
            EXPECT_EQ(tm.tm_wday, a);
        }
    }
}

}  // namespace
}  // namespace nolk
