// Civil time, Julian numbers, zones, and the platform's time. Reserved values are in
// DateTimeReservedTest.cpp, texts in DateTimeTextTest.cpp.

#include <nolk/core/DateTime.h>

#include <gtest/gtest.h>

#include <chrono>
#include <climits>
#include <cmath>
#include <cstdint>
#include <random>
#include <sstream>
#include <type_traits>

#include "support/ZoneFile.h"
#include "values/DateTimeSupport.h"
#include "values/TestLocale.h"

namespace nolk {
namespace {

using std::chrono::sys_days;
using test::at;
using test::eastern;
using test::gmt;
using test::TestLocale;

constexpr long long second = 1000;
constexpr long long minute = 60 * second;
constexpr long long hour = 60 * minute;
constexpr long long day = 24 * hour;

std::string civil(const DateTime& time, const TimeZone& zone) {
    std::tm tm{};
    time.extract(&tm, zone);
    return TestLocale::all(tm);
}

TEST(DateTime, CountsFromTheFirstOfJanuary1901) {
    EXPECT_EQ(DateTime(1, 1, 1901, 0, 0, 0, 0, TimeZone::utc()).milliSeconds(), 0);
    EXPECT_EQ(at(1901, 1, 2).milliSeconds(), day);
    EXPECT_EQ(at(1900, 12, 31, 23, 59, 59, 999).milliSeconds(), -1);
    // 70 years with 17 leap days lie between 1901 and 1971.
    EXPECT_EQ(at(1971, 1, 1).milliSeconds(), (70 * 365 + 17) * day);
}

TEST(DateTime, IsAPlainValueOfOneNumber) {
    EXPECT_EQ(sizeof(DateTime), 8u);
    EXPECT_TRUE(std::is_trivially_copyable_v<DateTime>);
    const DateTime time = at(1994, 11, 6);
    const DateTime copy(time);
    EXPECT_EQ(copy, time);
}

TEST(DateTime, HasItsEnumeratorsByNumber) {
    EXPECT_EQ(DateTime::invalid, 0);
    EXPECT_EQ(DateTime::null, 1);
    EXPECT_EQ(DateTime::setCurrentTime, 2);
    EXPECT_EQ(DateTime::iso8601, 0);
    EXPECT_EQ(DateTime::http, 1);
    EXPECT_EQ(DateTime::setDate, 0);
    EXPECT_EQ(DateTime::setTime, 1);
    EXPECT_EQ(DateTime::setBoth, 2);
}

TEST(DateTime, TakesItsCountAsItIs) {
    for (const long long count : {0ll, -1ll, 12345678901234ll, test::lowest, test::highest}) {
        EXPECT_EQ(DateTime(count).milliSeconds(), count);
    }
}

TEST(DateTime, EveryDayFrom1600To2400IsThatOfTheCivilCalendar) {
    const sys_days last = std::chrono::year(2400) / 12 / 31;
    const sys_days first = std::chrono::year(1901) / 1 / 1;
    for (sys_days date = std::chrono::year(1600) / 1 / 1; date <= last;
         date += std::chrono::days(1)) {
        const std::chrono::year_month_day fields(date);
        const auto year = static_cast<unsigned>(static_cast<int>(fields.year()));
        const auto month = static_cast<unsigned>(fields.month());
        const auto dayOfMonth = static_cast<unsigned>(fields.day());
        const long long midnight = (date - first).count() * day;
        const DateTime time(dayOfMonth, month, year, 13, 14, 15, 16, gmt);
        ASSERT_EQ(time.milliSeconds(), midnight + 13 * hour + 14 * minute + 15 * second + 16);
        const sys_days newYear = fields.year() / 1 / 1;
        const int yday = static_cast<int>((date - newYear).count());
        std::tm tm{};
        for (const long long timeOfDay : {0ll, day - 1}) {
            DateTime(midnight + timeOfDay).extractGMT(&tm);
            ASSERT_EQ(tm.tm_year + 1900, static_cast<int>(year));
            ASSERT_EQ(tm.tm_mon + 1, static_cast<int>(month));
            ASSERT_EQ(tm.tm_mday, static_cast<int>(dayOfMonth));
            ASSERT_EQ(tm.tm_yday, yday);
            ASSERT_EQ(tm.tm_wday, static_cast<int>(std::chrono::weekday(date).c_encoding()));
            ASSERT_EQ(tm.tm_hour, timeOfDay == 0 ? 0 : 23);
            ASSERT_EQ(tm.tm_min, timeOfDay == 0 ? 0 : 59);
            ASSERT_EQ(tm.tm_sec, timeOfDay == 0 ? 0 : 59);
            ASSERT_EQ(tm.tm_isdst, 0);
        }
        ASSERT_EQ(time.toDate(gmt), Date(dayOfMonth, month, year));
    }
}

TEST(DateTime, EveryReaderTellsItsField) {
    const DateTime time = at(2000, 12, 31, 23, 58, 57, 56);  // a Sunday
    EXPECT_EQ(time.yearGMT(), 2000u);
    EXPECT_EQ(time.monthGMT(), 12u);
    EXPECT_EQ(time.dayOfMonthGMT(), 31u);
    EXPECT_EQ(time.dayGMT(), 366u);
    EXPECT_EQ(time.hourGMT(), 23u);
    EXPECT_EQ(time.minuteGMT(), 58u);
    EXPECT_EQ(time.weekDayGMT(), 7u);
    EXPECT_TRUE(time.leapGMT());
    EXPECT_EQ(time.second(), 57u);
    EXPECT_EQ(time.milliSecond(), 56u);
    // Half past five hours on in India.
    EXPECT_EQ(time.year(test::india), 2001u);
    EXPECT_EQ(time.month(test::india), 1u);
    EXPECT_EQ(time.dayOfMonth(test::india), 1u);
    EXPECT_EQ(time.day(test::india), 1u);
    EXPECT_EQ(time.hour(test::india), 5u);
    EXPECT_EQ(time.minute(test::india), 28u);
    EXPECT_EQ(time.weekDay(test::india), 1u);
    EXPECT_FALSE(time.leap(test::india));
    EXPECT_TRUE(time.leap(eastern));
    EXPECT_EQ(time.hour(eastern), 18u);
    EXPECT_EQ(civil(time, test::india), "2001-01-01 05:28:57 wday 1 yday 0 isdst 0");
    EXPECT_EQ(civil(time, eastern), "2000-12-31 18:58:57 wday 0 yday 365 isdst 0");
}

TEST(DateTime, BeforeItsZeroTheTimeOfDayIsInItsRange) {
    const DateTime time = at(1899, 12, 31, 23, 58, 57, 56);
    EXPECT_LT(time.milliSeconds(), 0);
    EXPECT_EQ(time.hourGMT(), 23u);
    EXPECT_EQ(time.minuteGMT(), 58u);
    EXPECT_EQ(time.second(), 57u);
    EXPECT_EQ(time.milliSecond(), 56u);
    EXPECT_EQ(civil(time, gmt), "1899-12-31 23:58:57 wday 0 yday 364 isdst 0");
    EXPECT_EQ(DateTime(-1).milliSecond(), 999u);
    EXPECT_EQ(DateTime(-1000).second(), 59u);
    EXPECT_EQ(DateTime(-60000).minuteGMT(), 59u);
    EXPECT_EQ(DateTime(-3600000).hourGMT(), 23u);
    EXPECT_EQ(DateTime(-day).hourGMT(), 0u);
}

TEST(DateTime, TheTimeOfDayIsNotCheckedAndRollsOn) {
    EXPECT_EQ(at(1994, 11, 6, 25), at(1994, 11, 7, 1));
    EXPECT_EQ(at(1994, 11, 6, 0, 61), at(1994, 11, 6, 1, 1));
    EXPECT_EQ(at(1994, 11, 6, 0, 0, 86400), at(1994, 11, 7));
    EXPECT_EQ(at(1994, 11, 6, 0, 0, 0, 1500), at(1994, 11, 6, 0, 0, 1, 500));
    EXPECT_EQ(at(1994, 11, 6, 0, 0, 0, -1), at(1994, 11, 5, 23, 59, 59, 999));
    EXPECT_EQ(at(1901, 1, 1, UINT_MAX, UINT_MAX, UINT_MAX, INT_MAX).milliSeconds(),
              4294967295ll * (hour + minute + second) + INT_MAX);
}

TEST(DateTime, YearsBelowAHundredAreThemselves) {
    EXPECT_EQ(at(50, 1, 1).yearGMT(), 50u);
    EXPECT_EQ(at(1, 1, 1).yearGMT(), 1u);
    EXPECT_EQ(at(1, 1, 1).toDate(gmt).julian(), 1721426u);
    EXPECT_EQ(at(0, 3, 1).toDate(gmt).julian(), 1721120u);
}

TEST(DateTime, TheCalendarReachesToTheEndsOfTheCount) {
    // The calendar is the same again after 146097 days, of which 64 bits hold 730692 each way.
    const DateTime late(730692ll * 146097 * day);
    EXPECT_EQ(civil(late, gmt), "292278701-01-01 00:00:00 wday 2 yday 0 isdst 0");
    EXPECT_EQ(at(292278701, 1, 1), late);
    const DateTime early(-730692ll * 146097 * day);
    EXPECT_EQ(civil(early, gmt), "-292274899-01-01 00:00:00 wday 2 yday 0 isdst 0");
    EXPECT_EQ(static_cast<int>(early.yearGMT()), -292274899);
    EXPECT_EQ(at(0, 1, 1).toDate(gmt).julian(), 1721060u);
    EXPECT_EQ(at(0, 2, 29) + day, at(0, 3, 1));
    EXPECT_TRUE(at(0, 2, 29).leapGMT());
    // Before day 0 the day begins at midnight as ever, and setting it leaves the time of day.
    DateTime ancient = DateTime(Date(1UL), 0, 0, 0, 0, gmt) - 2 * day + 5 * hour;
    EXPECT_EQ(ancient.hourGMT(), 5u);
    EXPECT_EQ(ancient.julianDay(), -1 + 5.0 / 24);
    EXPECT_EQ(ancient.dayOfMonthGMT(), 23u);
    EXPECT_EQ(ancient.weekDayGMT(), 7u);
    ancient.julian(2415386);
    EXPECT_EQ(ancient, at(1901, 1, 1, 5));
}

TEST(DateTime, WhatIsNoDayIsInvalid) {
    EXPECT_EQ(at(2001, 2, 29), test::invalid);
    EXPECT_EQ(at(2001, 13, 1), test::invalid);
    EXPECT_EQ(at(2001, 0, 1), test::invalid);
    EXPECT_EQ(at(2001, 1, 0), test::invalid);
    EXPECT_EQ(at(2001, 1, 32), test::invalid);
    EXPECT_EQ(DateTime(Date(0UL), 1, 2, 3, 4, gmt), test::invalid);
    std::tm tm{};
    tm.tm_mday = 32;
    EXPECT_EQ(DateTime(&tm, 5, gmt), test::invalid);
}

TEST(DateTime, IsMadeOfADateAndATime) {
    EXPECT_EQ(DateTime(Date(6, 11, 1994), 8, 49, 37, 5, gmt), at(1994, 11, 6, 8, 49, 37, 5));
    EXPECT_EQ(DateTime(Date(1UL), 0, 0, 0, 0, gmt).milliSeconds(), -2415385 * day);
    EXPECT_EQ(DateTime(Date(6, 11, 1994), 8, 49, 37, 5, eastern), at(1994, 11, 6, 13, 49, 37, 5));
}

TEST(DateTime, IsMadeOfTheNameOfAMonth) {
    const TestLocale locale;
    EXPECT_EQ(DateTime(6, "November", 1994, 8, 49, 37, 5, locale, eastern),
              at(1994, 11, 6, 13, 49, 37, 5));
    EXPECT_EQ(DateTime(6, "Nov", 1994, 8, 49, 37, 5, locale, gmt), test::invalid);
}

TEST(DateTime, IsMadeOfABrokenDownTime) {
    std::tm tm{};
    tm.tm_year = 94;
    tm.tm_mon = 10;
    tm.tm_mday = 6;
    tm.tm_hour = 8;
    tm.tm_min = 49;
    tm.tm_sec = 37;
    tm.tm_isdst = 1;  // doesn't count
    EXPECT_EQ(DateTime(&tm, 5, eastern), at(1994, 11, 6, 13, 49, 37, 5));
    EXPECT_EQ(DateTime(&tm, UINT_MAX, gmt).milliSeconds(),
              at(1994, 11, 6, 8, 49, 37).milliSeconds() + 4294967295);
    Date(0UL).extract(&tm);
    EXPECT_EQ(DateTime(&tm, 0, gmt), test::invalid);
}

TEST(DateTime, ACivilTimeThatTheClockJumpsOverIsInvalid) {
    const auto eastern2010 = [](unsigned hour, unsigned minute) {
        return DateTime(14, 3, 2010, hour, minute, 0, 0, eastern);
    };
    EXPECT_EQ(eastern2010(1, 59), at(2010, 3, 14, 6, 59));
    EXPECT_EQ(eastern2010(2, 0), test::invalid);
    EXPECT_EQ(eastern2010(2, 59), test::invalid);
    EXPECT_EQ(eastern2010(3, 0), at(2010, 3, 14, 7, 0));
    // Broken down times, too.
    std::tm tm{};
    tm.tm_year = 110;
    tm.tm_mon = 2;
    tm.tm_mday = 14;
    tm.tm_hour = 2;
    EXPECT_EQ(DateTime(&tm, 3600000, eastern), test::invalid);
}

TEST(DateTime, ACivilTimeThatTheClockShowsTwiceIsTheFirst) {
    // On 7 November 2010 the clock is put back from 2:00 to 1:00.
    EXPECT_EQ(DateTime(7, 11, 2010, 0, 59, 0, 0, eastern), at(2010, 11, 7, 4, 59));
    EXPECT_EQ(DateTime(7, 11, 2010, 1, 0, 0, 0, eastern), at(2010, 11, 7, 5, 0));
    EXPECT_EQ(DateTime(7, 11, 2010, 1, 59, 0, 0, eastern), at(2010, 11, 7, 5, 59));
    EXPECT_EQ(DateTime(7, 11, 2010, 2, 0, 0, 0, eastern), at(2010, 11, 7, 7, 0));
}

TEST(DateTime, HasTheCivilTimeOfNewYorkFrom1974On) {
    const test::ZoneFile newYork("America/New_York");
    for (const test::ZoneFile::Change& change : newYork.changes()) {
        if (change.from < test::secondsAt(1974, 1, 1)) {
            continue;
        }
        for (long long seconds = change.from - 7200; seconds <= change.from + 7200;
             seconds += 600) {
            for (const long long instant : {seconds - 1, seconds}) {
                const DateTime time{std::chrono::sys_seconds(std::chrono::seconds(instant))};
                const std::tm expected = newYork.civil(instant);
                ASSERT_EQ(civil(time, eastern), TestLocale::all(expected));
                ASSERT_EQ(time.isDST(eastern), expected.tm_isdst == 1);
                // Back again, but for the hour that the clock shows twice.
                const DateTime back(&expected, 0, eastern);
                const long long off = back.milliSeconds() - time.milliSeconds();
                ASSERT_TRUE(off == 0 || off == hour || off == -hour) << instant;
                ASSERT_EQ(civil(back, eastern).substr(0, 19), civil(time, eastern).substr(0, 19));
            }
        }
    }
}

TEST(DateTime, DaylightTimeOfAZoneWithoutIsNever) {
    for (unsigned month = 1; month <= 12; ++month) {
        EXPECT_FALSE(at(2010, month, 15).isDST(gmt));
        EXPECT_EQ(at(2010, month, 15).isDST(eastern), month >= 3 && month <= 10) << month;
    }
    EXPECT_EQ(civil(at(2010, 7, 15), eastern), "2010-07-14 20:00:00 wday 3 yday 194 isdst 1");
}

// A zone whose rule isn't a year's: daylight time at even hours of standard time, and at none of
// its own.
class OddZone : public TimeZoneSimple {
public:
    OddZone() : TimeZoneSimple(TimeZone::dstRule(NorthAmerica), 0, "S", -hourWest, "D") {}
    bool isDaylight(const std::tm* tm) const override { return tm->tm_hour % 2 == 0; }

private:
    static constexpr long hourWest = 3600;
};

TEST(DateTime, DaylightTimeHoldsOnlyWhereBothReadingsSaySo) {
    const OddZone zone;
    // 4:00 by standard time is 5:00 by daylight time, which isn't daylight time.
    EXPECT_FALSE(at(2010, 1, 1, 4).isDST(zone));
    EXPECT_EQ(civil(at(2010, 1, 1, 4), zone), "2010-01-01 04:00:00 wday 5 yday 0 isdst 0");
    // Taken as daylight time 4:00 is 3:00 by standard time, which isn't daylight time.
    EXPECT_EQ(DateTime(1, 1, 2010, 4, 0, 0, 0, zone), test::invalid);
    EXPECT_EQ(DateTime(1, 1, 2010, 3, 0, 0, 0, zone), at(2010, 1, 1, 3));
}

TEST(DateTime, ToDateIsTheDayInTheZone) {
    EXPECT_EQ(at(2001, 1, 1, 4, 59).toDate(eastern), Date(31, 12, 2000));
    EXPECT_EQ(at(2001, 1, 1, 5).toDate(eastern), Date(1, 1, 2001));
    EXPECT_EQ(at(2001, 7, 1, 4).toDate(eastern), Date(1, 7, 2001));
    EXPECT_EQ(at(2001, 1, 1, 18, 30).toDate(test::india), Date(2, 1, 2001));
    EXPECT_EQ(at(50, 1, 1).toDate(gmt).year(), 50u);
}

TEST(DateTime, TheFirstDayOfAMonthIsOfTheYearInTheZone) {
    const DateTime time = at(2001, 1, 1, 4);  // still 2000 in the East
    EXPECT_EQ(time.firstDayOfMonth(eastern), 336u);
    EXPECT_EQ(time.firstDayOfMonth(gmt), 1u);
    EXPECT_EQ(time.firstDayOfMonth(3, eastern), 61u);
    EXPECT_EQ(time.firstDayOfMonth(3, gmt), 60u);
    EXPECT_EQ(time.firstDayOfMonth(2, eastern), 32u);
    for (const unsigned none : {0u, 13u, UINT_MAX}) {
        EXPECT_EQ(time.firstDayOfMonth(none, gmt), 0u);
    }
}

TEST(DateTime, NamesAreThoseOfTheCivilTimeInTheZone) {
    const TestLocale locale;
    const DateTime time = at(2001, 1, 1, 4);
    EXPECT_EQ(time.monthName(locale, eastern), "Dezember");
    EXPECT_EQ(time.monthName(locale, gmt), "Januar");
    EXPECT_EQ(time.weekDayName(locale, eastern), "Sonntag");
    EXPECT_EQ(time.weekDayName(locale, gmt), "Montag");
}

TEST(DateTime, NextAndPreviousKeepTheTimeOfDay) {
    const DateTime sunday = at(1994, 11, 6, 8, 49, 37, 5);
    for (int i = 1; i <= 7; ++i) {
        const auto weekday = static_cast<unsigned>(i);
        EXPECT_EQ(sunday.next(weekday, gmt), sunday + i * day);
        EXPECT_EQ(sunday.previous(weekday, gmt), sunday - (i == 7 ? 7 : 7 - i) * day);
    }
    // The week day is that of the zone: Saturday evening in the East.
    const DateTime early = at(1994, 11, 6, 3);
    EXPECT_EQ(early.next(6, eastern), early + 7 * day);
    EXPECT_EQ(early.next(7, eastern), early + day);
    EXPECT_EQ(early.previous(5, eastern), early - day);
}

TEST(DateTime, NextAndPreviousTakeNamesFromTheLocale) {
    const TestLocale locale;
    const DateTime sunday = at(1994, 11, 6);
    EXPECT_EQ(sunday.next("Montag", locale, gmt), sunday + day);
    EXPECT_EQ(sunday.previous("Montag", locale, gmt), sunday - 6 * day);
    for (const char* name : {"Monday", "", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(sunday.next(name, locale, gmt), test::invalid);
        EXPECT_EQ(sunday.previous(name, locale, gmt), test::invalid);
    }
}

TEST(DateTime, JulianNumbersCountFromMidnightAndFromNoon) {
    EXPECT_EQ(at(1901, 1, 1).julian(), 2415386u);
    EXPECT_EQ(at(1901, 1, 1, 23, 59, 59, 999).julian(), 2415386u);
    EXPECT_EQ(at(1900, 12, 31, 23, 59, 59, 999).julian(), 2415385u);
    EXPECT_EQ(at(1901, 1, 1).correctedJulian(), 2415385u);
    EXPECT_EQ(at(1901, 1, 1, 11, 59, 59, 999).correctedJulian(), 2415385u);
    EXPECT_EQ(at(1901, 1, 1, 12).correctedJulian(), 2415386u);
    EXPECT_EQ(at(1901, 1, 1).julianDay(), 2415386.0);
    EXPECT_EQ(at(1901, 1, 1, 6).julianDay(), 2415386.25);
    EXPECT_EQ(at(1900, 12, 31, 18).julianDay(), 2415385.75);
}

TEST(DateTime, SettingTheDayLeavesTheTimeOfDay) {
    DateTime time = at(1994, 11, 6, 8, 49, 37, 5);
    time.julian(2415386);
    EXPECT_EQ(time, at(1901, 1, 1, 8, 49, 37, 5));
    time.julian(2415385);
    EXPECT_EQ(time, at(1900, 12, 31, 8, 49, 37, 5));
    time.julian(0);
    EXPECT_EQ(time, at(1901, 1, 1, 8, 49, 37, 5) - 2415386 * day);
    time.julian(UINT_MAX);
    EXPECT_EQ(time, at(1901, 1, 1, 8, 49, 37, 5) + (4294967295 - 2415386) * day);
}

TEST(DateTime, SettingTheDayOfAReservedValueStartsFromZero) {
    for (DateTime time : test::reserved) {
        time.julian(2415387);
        EXPECT_EQ(time.milliSeconds(), day);
    }
}

TEST(DateTime, SettingTheDayWithItsPartRoundsToMilliseconds) {
    DateTime time(0LL);
    const struct {
        double day;
        long long count;
    } rows[] = {
        {2415386.0, 0},
        {2415386.25, 6 * hour},
        {2415387.5, day + 12 * hour},
        {2415385.75, -6 * hour},
        // Below zero only whole milliseconds of the part count, and nothing is rounded.
        {-0.5, -2415386 * day - 12 * hour},
        {0.0, -2415386 * day},
        {0.75 / 86400000, -2415386 * day + 1},
        {0.25 / 86400000, -2415386 * day},
        {-0.75 / 86400000, -2415386 * day},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(time.julianDay(row.day), row.day);
        EXPECT_EQ(time.milliSeconds(), row.count) << row.day;
    }
}

TEST(DateTime, ADayBeyondAllNumbersIsInvalid) {
    for (const double value : {1e300, -1e300, HUGE_VAL, -HUGE_VAL, 9223372036854775808.0}) {
        DateTime time(0LL);
        EXPECT_EQ(time.julianDay(value), value);
        EXPECT_EQ(time, test::invalid);
    }
    DateTime time(0LL);
    EXPECT_TRUE(std::isnan(time.julianDay(std::nan(""))));
    EXPECT_EQ(time, test::invalid);
    // What 64 bits of days hold wraps as milliseconds do.
    time.julianDay(-9223372036854775808.0);
    EXPECT_EQ(static_cast<unsigned long long>(time.milliSeconds()),
              (0x8000000000000000ull - 2415386) * 86400000);
}

TEST(DateTime, JulianDaysGoBothWays) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 1000; ++i) {
        const long long count =
            static_cast<long long>(random() % (400000ull * 86400000)) - 100000ll * 86400000;
        DateTime time(0LL);
        time.julianDay(DateTime(count).julianDay());
        // A double holds a day of today to 40 microseconds.
        EXPECT_EQ(time.milliSeconds(), count);
    }
}

TEST(DateTime, MovesByHoursMinutesSecondsAndMilliseconds) {
    const DateTime start = at(1994, 11, 6);
    DateTime time = start;
    EXPECT_EQ(&time.incrementHour(2), &time);
    EXPECT_EQ(time, at(1994, 11, 6, 2));
    EXPECT_EQ(&time.incrementMinute(3), &time);
    EXPECT_EQ(time, at(1994, 11, 6, 2, 3));
    EXPECT_EQ(&time.incrementSecond(4), &time);
    EXPECT_EQ(time, at(1994, 11, 6, 2, 3, 4));
    EXPECT_EQ(&time.decrementHour(-1), &time);
    EXPECT_EQ(time, at(1994, 11, 6, 3, 3, 4));
    EXPECT_EQ(&time.decrementHour(3), &time);
    EXPECT_EQ(&time.decrementMinute(3), &time);
    EXPECT_EQ(time, at(1994, 11, 6, 0, 0, 4));
    EXPECT_EQ(&time.decrementSecond(5), &time);
    EXPECT_EQ(time, at(1994, 11, 5, 23, 59, 59));
    EXPECT_EQ(time + 1500, at(1994, 11, 6, 0, 0, 0, 500));
    EXPECT_EQ(start - 1, at(1994, 11, 5, 23, 59, 59, 999));
    EXPECT_EQ(start - time, second);
    EXPECT_EQ(time - start, -second);
}

TEST(DateTime, SumsWrapAtTheEndsOf64Bits) {
    EXPECT_EQ((DateTime(test::highest - 1) + 2).milliSeconds(), test::lowest);
    EXPECT_EQ((DateTime(test::lowest + 257) - 258).milliSeconds(), test::highest);
    EXPECT_EQ((DateTime(0LL) - test::lowest).milliSeconds(), test::lowest);
    EXPECT_EQ(DateTime(test::highest - 1) - DateTime(-2), test::lowest);
    DateTime time(0LL);
    time.incrementHour(test::highest);
    EXPECT_EQ(time.milliSeconds(), -hour);  // highest is -1 modulo 2^63, and hours are even
    time = DateTime(0LL);
    time.decrementSecond(test::lowest);
    EXPECT_EQ(time.milliSeconds(), 0);
}

TEST(DateTime, ExtremeInstantsHaveFieldsInTheirRanges) {
    for (const long long count :
         {test::lowest + 257, test::highest - 1, -2415386 * day, -2415386 * day - 1}) {
        const DateTime time(count);
        for (const TimeZone* zone :
             {static_cast<const TimeZone*>(&gmt), static_cast<const TimeZone*>(&eastern)}) {
            std::tm tm{};
            time.extract(&tm, *zone);
            EXPECT_TRUE(tm.tm_mon >= 0 && tm.tm_mon < 12 && tm.tm_mday >= 1 && tm.tm_mday <= 31);
            EXPECT_TRUE(tm.tm_hour >= 0 && tm.tm_hour < 24 && tm.tm_min >= 0 && tm.tm_min < 60);
            EXPECT_TRUE(tm.tm_sec >= 0 && tm.tm_sec < 60 && tm.tm_wday >= 0 && tm.tm_wday < 7);
            EXPECT_TRUE(tm.tm_yday >= 0 && tm.tm_yday < 366);
            time.toDate(*zone);
            time.next(1, *zone);
            time.previous(7, *zone);
        }
        EXPECT_LT(time.milliSecond(), 1000u);
        EXPECT_TRUE(std::isfinite(time.julianDay()));
        time.julian();
        time.correctedJulian();
        time.hash();
    }
}

TEST(DateTime, TheHashMixesTheCount) {
    const auto expected = [](long long count) {
        const long long h = count / 1024;
        const auto low = static_cast<std::uint32_t>(h & 0xFFFFFFFF);
        const auto high = static_cast<std::uint32_t>((h / 0xFFFFFFFFll) & 0xFFFFFFFF);
        return static_cast<std::uint32_t>((count % 1024) & 0xFFFFFFFF) ^ (low + high);
    };
    EXPECT_EQ(DateTime(0LL).hash(), 0u);
    EXPECT_EQ(DateTime(1023LL).hash(), 1023u);
    EXPECT_EQ(DateTime(1024LL).hash(), 1u);
    EXPECT_EQ(DateTime(1025LL).hash(), 0u);
    EXPECT_EQ(DateTime(-1LL).hash(), 0xFFFFFFFFu);
    EXPECT_EQ(DateTime(-1024LL).hash(), 0xFFFFFFFFu);
    EXPECT_EQ(DateTime(4294967295ll * 1024).hash(), 0u);  // 4294967295 + 1 wraps
    EXPECT_EQ(DateTime(2 * 4294967295ll * 1024 + 3).hash(), 3u);
    for (const DateTime& time : test::reserved) {
        EXPECT_EQ(time.hash(), expected(time.milliSeconds()));
    }
}

TEST(DateTime, NowIsThePresentInstant) {
    const auto present = [] {
        return std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
    };
    const auto before = present();
    const DateTime now = DateTime::now();
    const DateTime current(DateTime::setCurrentTime);
    const auto after = present();
    EXPECT_LE(before, now.toSysTime());
    EXPECT_LE(now.toSysTime(), current.toSysTime());
    EXPECT_LE(current.toSysTime(), after);
}

TEST(DateTime, GoesToTheClockOfTheStandardLibraryAndBack) {
    using Milliseconds = std::chrono::sys_time<std::chrono::milliseconds>;
    const Milliseconds time = sys_days(std::chrono::year(1994) / 11 / 6) + std::chrono::hours(8) +
                              std::chrono::milliseconds(5);
    EXPECT_EQ(DateTime(time), at(1994, 11, 6, 8, 0, 0, 5));
    EXPECT_EQ(at(1994, 11, 6, 8, 0, 0, 5).toSysTime(), time);
    EXPECT_EQ(DateTime(Milliseconds()), at(1970, 1, 1));
    // Coarser times convert by themselves.
    EXPECT_EQ(DateTime(sys_days(std::chrono::year(1800) / 2 / 3)), at(1800, 2, 3));
}

TEST(DateTime, TimesBeyondTheRangeHaveNoCounterpart) {
    using std::chrono::milliseconds;
    using Milliseconds = std::chrono::sys_time<milliseconds>;
    constexpr long long to1970 = 25202 * day;
    const auto from = [](long long count) { return DateTime(Milliseconds(milliseconds(count))); };
    EXPECT_EQ(from(test::highest), test::invalid);
    EXPECT_EQ(from(test::highest - to1970), test::invalid);  // that is future
    EXPECT_EQ(from(test::highest - to1970 - 1).milliSeconds(), test::highest - 1);
    EXPECT_EQ(from(test::lowest).milliSeconds(), test::lowest + to1970);
    EXPECT_EQ(DateTime(test::lowest + to1970).toSysTime().time_since_epoch().count(), test::lowest);
    EXPECT_EQ(test::failureOf([] { DateTime(test::lowest + to1970 - 1).toSysTime(); }),
              test::invalidObject);
}

TEST(DateTime, DaylightTimeBeginsAndEndsAtInstants) {
    EXPECT_EQ(DateTime::beginDST(2010, eastern), at(2010, 3, 14, 7));
    EXPECT_EQ(DateTime::endDST(2010, eastern), at(2010, 11, 7, 6));
    EXPECT_EQ(DateTime::beginDST(1974, eastern), at(1974, 1, 6, 7));
    EXPECT_EQ(DateTime::endDST(1974, eastern), at(1974, 10, 27, 6));
    const TimeZoneSimple berlin(TimeZone::StdZone(-1), TimeZone::Europe);
    EXPECT_EQ(DateTime::beginDST(2010, berlin), at(2010, 3, 28, 1));
    EXPECT_EQ(DateTime::endDST(2010, berlin), at(2010, 10, 31, 1));
}

TEST(DateTime, WithoutDaylightTimeItsEndsAreTheCountZero) {
    EXPECT_EQ(DateTime::beginDST(2010, gmt).milliSeconds(), 0);
    EXPECT_EQ(DateTime::endDST(2010, gmt).milliSeconds(), 0);
    // A chain that begins later, and a rule that observes nothing.
    DaylightRule late = *TimeZone::dstRule(TimeZone::NorthAmerica);
    late.next = nullptr;
    const TimeZoneSimple lateZone(&late, 18000, "S", 14400, "D");
    EXPECT_EQ(DateTime::beginDST(2006, lateZone).milliSeconds(), 0);
    EXPECT_EQ(DateTime::endDST(2006, lateZone).milliSeconds(), 0);
    EXPECT_EQ(DateTime::beginDST(2010, lateZone), at(2010, 3, 14, 7));
    late.observed = false;
    EXPECT_EQ(DateTime::beginDST(2010, lateZone).milliSeconds(), 0);
    EXPECT_EQ(DateTime::endDST(2010, lateZone).milliSeconds(), 0);
}

TEST(DateTime, CalendarFunctionsAreThoseOfDate) {
    const TestLocale locale;
    EXPECT_EQ(DateTime::daysInMonthYear(2, 2000), 29u);
    EXPECT_EQ(DateTime::daysInMonthYear(13, 2000), 0u);
    EXPECT_EQ(DateTime::daysInYear(2000), 366u);
    EXPECT_EQ(DateTime::daysInYear(1900), 365u);
    EXPECT_TRUE(DateTime::dayWithinMonth(2, 29, 2000));
    EXPECT_FALSE(DateTime::dayWithinMonth(2, 29, 1900));
    EXPECT_EQ(DateTime::nameOfMonth(12, locale), "Dezember");
    EXPECT_EQ(DateTime::weekDayName(7, locale), "Sonntag");
}

TEST(DateTime, AnExtremeZoneOffsetIsNoUndefinedBehaviour) {
    const TimeZoneSimple zone(LONG_MIN, "far");
    DateTime(0LL).hour(zone);
    DateTime(1, 1, 2001, 0, 0, 0, 0, zone);
    DateTime(0LL).toDate(zone);
}

}  // namespace
}  // namespace nolk
