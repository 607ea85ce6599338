#include <nolk/core/Date.h>

#include <gtest/gtest.h>

#include <chrono>
#include <climits>
#include <cstdint>
#include <ctime>
#include <sstream>
#include <type_traits>

#include "values/TestLocale.h"

namespace nolk {
namespace {

using std::chrono::sys_days;

// The number of 1 January 1970, by the almanac.
constexpr unsigned long of1970 = 2440588;

sys_days daysOf(const Date& date) {
    return sys_days(std::chrono::days(static_cast<int>(date.julian()) - static_cast<int>(of1970)));
}

std::tm civilOf(const Date& date) {
    std::tm tm{};
    tm.tm_hour = tm.tm_min = tm.tm_sec = 99;
    date.extract(&tm);
    return tm;
}

// Opens what is for derived classes.
struct OpenDate : Date {
    using Date::assertIndexOfMonth;
    using Date::assertWeekDayNumber;
    using Date::clobber;
};

TEST(Date, TheFirstOfJanuary1901HasItsNumberAndIsATuesday) {
    const Date date(1, 1, 1901);
    EXPECT_EQ(date.julian(), 2415386u);
    EXPECT_EQ(date.weekDay(), 2u);
    EXPECT_TRUE(date.isValid());
}

TEST(Date, IsAPlainValueOfOneNumber) {
    EXPECT_EQ(sizeof(Date), sizeof(unsigned long));
    EXPECT_TRUE(std::is_trivially_copyable_v<Date>);
}

TEST(Date, WhatIsNoDayIsNotValid) {
    const Date dates[] = {Date(29, 2, 1900), Date(0, 1, 2001),        Date(1, 0, 2001),
                          Date(1, 13, 2001), Date(32, 1, 2001),       Date(29, 2, 2001),
                          Date(31, 4, 2001), Date(UINT_MAX, 1, 2001), Date(1, UINT_MAX, 2001)};
    for (const Date& date : dates) {
        EXPECT_FALSE(date.isValid());
        EXPECT_EQ(date.julian(), 0u);
    }
    EXPECT_TRUE(Date(29, 2, 2000).isValid());
    EXPECT_TRUE(Date(29, 2, 2004).isValid());
}

TEST(Date, YearsBelowAHundredAreOfTheTwentiethCentury) {
    EXPECT_EQ(Date(1, 1, 99), Date(1, 1, 1999));
    EXPECT_EQ(Date(29, 2, 0), Date(0UL));  // 1900 was no leap year
    EXPECT_EQ(Date(28, 2, 0), Date(28, 2, 1900));
    EXPECT_EQ(Date(1, 1, 100).year(), 100u);
}

TEST(Date, EveryDayFrom1600To2400IsThatOfTheCivilCalendar) {
    unsigned long expected = Date(1, 1, 1600).julian();
    const sys_days last = std::chrono::year(2400) / 12 / 31;
    for (sys_days day = std::chrono::year(1600) / 1 / 1; day <= last; day += std::chrono::days(1)) {
        const std::chrono::year_month_day civil(day);
        const auto year = static_cast<unsigned>(static_cast<int>(civil.year()));
        const auto month = static_cast<unsigned>(civil.month());
        const auto dayOfMonth = static_cast<unsigned>(civil.day());
        const Date date(dayOfMonth, month, year);
        ASSERT_EQ(date.julian(), expected++);
        ASSERT_EQ(daysOf(date), day);
        ASSERT_EQ(date.year(), year);
        ASSERT_EQ(date.month(), month);
        ASSERT_EQ(date.dayOfMonth(), dayOfMonth);
        ASSERT_EQ(date.weekDay(), std::chrono::weekday(day).iso_encoding());
        const sys_days first = civil.year() / 1 / 1;
        const int yday = static_cast<int>((day - first).count());
        ASSERT_EQ(date.day(), static_cast<unsigned>(yday) + 1);
        ASSERT_EQ(date.leap(), civil.year().is_leap());
        const std::tm tm = civilOf(date);
        ASSERT_EQ(tm.tm_year + 1900, static_cast<int>(year));
        ASSERT_EQ(tm.tm_mon + 1, static_cast<int>(month));
        ASSERT_EQ(tm.tm_mday, static_cast<int>(dayOfMonth));
        ASSERT_EQ(tm.tm_yday, yday);
        ASSERT_EQ(tm.tm_wday, static_cast<int>(std::chrono::weekday(day).c_encoding()));
        ASSERT_EQ(tm.tm_hour + tm.tm_min + tm.tm_sec, 0);
        ASSERT_EQ(tm.tm_isdst, -1);
        ASSERT_EQ(Date(&tm), date);
        ASSERT_EQ(Date(static_cast<unsigned>(yday) + 1, year), date);
        const sys_days firstOfMonth = civil.year() / civil.month() / 1;
        ASSERT_EQ(date.firstDayOfMonth(),
                  static_cast<unsigned>((firstOfMonth - first).count()) + 1);
    }
}

TEST(Date, TheCalendarIsRightToTheEndsOfItsRange) {
    EXPECT_EQ(Date(1721120UL).year(), 0u);
    EXPECT_EQ(Date(1721120UL).month(), 3u);
    EXPECT_EQ(Date(1721120UL).dayOfMonth(), 1u);
    EXPECT_EQ(Date(1721120UL).day(), 61u);  // the year 0 is a leap year
    EXPECT_EQ(Date(1721426UL).year(), 1u);
    EXPECT_EQ(Date(1721426UL).day(), 1u);
    for (unsigned year = 100; year <= 11754508; year += 101) {
        const unsigned before = year - 1;
        const Date first(1, 1, year);
        ASSERT_EQ(first.julian(),
                  1721426 + 365ul * before + before / 4 - before / 100 + before / 400);
        ASSERT_TRUE(first.year() == year && first.month() == 1 && first.dayOfMonth() == 1) << year;
        const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
        ASSERT_EQ((Date(28, 2, year) + 1).month(), leap ? 2u : 3u) << year;
    }
}

TEST(Date, TheCalendarIsProlepticBeforeTheYearZero) {
    // By the almanac day 0 began at noon of 24 November of the year -4713.
    const Date first(1UL);
    EXPECT_EQ(static_cast<int>(first.year()), -4713);
    EXPECT_EQ(first.month(), 11u);
    EXPECT_EQ(first.dayOfMonth(), 25u);
    const sys_days epoch{};
    for (unsigned long julian = 1; julian < 1721426; julian += 13) {
        const Date date(julian);
        const std::chrono::year_month_day civil(
            epoch + std::chrono::days(static_cast<int>(julian) - static_cast<int>(of1970)));
        ASSERT_EQ(static_cast<int>(date.year()), static_cast<int>(civil.year()));
        ASSERT_EQ(date.month(), static_cast<unsigned>(civil.month()));
        ASSERT_EQ(date.dayOfMonth(), static_cast<unsigned>(civil.day()));
        ASSERT_EQ(date.leap(), civil.year().is_leap());
        ASSERT_EQ(civilOf(date).tm_year + 1900, static_cast<int>(civil.year()));
    }
}

TEST(Date, ADayWhoseNumberLeaves32BitsIsNotValid) {
    const Date last(4294967295UL);
    EXPECT_EQ(last.year(), 11754508u);
    EXPECT_EQ(last.month(), 12u);
    EXPECT_EQ(last.dayOfMonth(), 13u);
    EXPECT_EQ(Date(13, 12, 11754508), last);
    EXPECT_FALSE(Date(14, 12, 11754508).isValid());
    for (const unsigned year : {11754509u, 100000000u, UINT_MAX - 1, UINT_MAX}) {
        EXPECT_FALSE(Date(1, 1, year).isValid()) << year;
        EXPECT_FALSE(Date(1, 3, year).isValid()) << year;
    }
}

TEST(Date, AnyNumberGivesFieldsInTheirRanges) {
    for (const unsigned long julian : {0ul, 1ul, 1721119ul, 4294967295ul, ULONG_MAX}) {
        const Date date(julian);
        EXPECT_TRUE(date.month() >= 1 && date.month() <= 12) << julian;
        EXPECT_TRUE(date.dayOfMonth() >= 1 && date.dayOfMonth() <= 31) << julian;
        EXPECT_TRUE(date.day() >= 1 && date.day() <= 366) << julian;
        EXPECT_TRUE(date.weekDay() >= 1 && date.weekDay() <= 7) << julian;
    }
}

TEST(Date, TodayIsTheLocalDay) {
    for (;;) {
        const std::time_t before = std::time(nullptr);
        const std::tm tm = *std::localtime(&before);
        const Date today;
        const Date now = Date::now();
        const std::time_t after = std::time(nullptr);
        if (std::localtime(&after)->tm_mday == tm.tm_mday) {
            EXPECT_EQ(today, Date(&tm));
            EXPECT_EQ(now, Date(&tm));
            return;
        }
    }
}

TEST(Date, ADayOfTheYearCountsFromTheLastOfTheYearBefore) {
    EXPECT_EQ(Date(1, 2001), Date(1, 1, 2001));
    EXPECT_EQ(Date(366, 2000), Date(31, 12, 2000));
    EXPECT_EQ(Date(366, 2001), Date(1, 1, 2002));
    EXPECT_EQ(Date(0, 2001), Date(31, 12, 2000));
    EXPECT_EQ(Date(34, 50), Date(3, 2, 1950));
    // The year before 100 counts as 1999.
    EXPECT_EQ(Date(1, 100), Date(1, 1, 2000));
    EXPECT_EQ(Date(1, 101).year(), 101u);
}

TEST(Date, ADayOfTheYearZeroCountsFrom1901) {
    EXPECT_EQ(Date(0, 0).julian(), 2415386u);
    EXPECT_EQ(Date(5, 0).julian(), 2415391u);
}

TEST(Date, ADayOfAYearWithoutOneBeforeIsNotValid) {
    EXPECT_EQ(Date(1, 11754510).julian(), 0u);
    EXPECT_EQ(Date(1, UINT_MAX).julian(), 0u);
}

TEST(Date, ACivilTimeOfLowestValuesIsNoDay) {
    std::tm tm{};
    OpenDate::clobber(&tm);
    EXPECT_FALSE(Date(&tm).isValid());
}

TEST(Date, ReadsTextAsTheLocaleDoes) {
    const test::TestLocale locale;
    EXPECT_EQ(Date("6.11.1994", locale), Date(6, 11, 1994));
    EXPECT_FALSE(Date("6.11", locale).isValid());
    EXPECT_FALSE(Date("31.11.1994", locale).isValid());
}

TEST(Date, TakesTheNameOfAMonthFromTheLocale) {
    const test::TestLocale locale;
    EXPECT_EQ(Date(6, "Dezember", 1994, locale), Date(6, 12, 1994));
    EXPECT_FALSE(Date(6, "December", 1994, locale).isValid());
    EXPECT_FALSE(Date(6, nullptr, 1994, locale).isValid());
}

TEST(Date, ExtractOfWhatIsNoDayGivesTheLowestValues) {
    const std::tm tm = civilOf(Date(0UL));
    for (const int field : {tm.tm_sec, tm.tm_min, tm.tm_hour, tm.tm_mday, tm.tm_mon, tm.tm_year,
                            tm.tm_wday, tm.tm_yday, tm.tm_isdst}) {
        EXPECT_EQ(field, INT_MIN);
    }
}

TEST(Date, TheFirstDaysOfMonthsCountTheLeapDay) {
    const unsigned common[] = {1, 32, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335};
    for (unsigned month = 1; month <= 12; ++month) {
        EXPECT_EQ(Date(15, 6, 2001).firstDayOfMonth(month), common[month - 1]);
        EXPECT_EQ(Date(15, 6, 2000).firstDayOfMonth(month), common[month - 1] + (month > 2));
    }
    EXPECT_EQ(Date(15, 6, 2001).firstDayOfMonth(0), 0u);
    EXPECT_EQ(Date(15, 6, 2001).firstDayOfMonth(13), 0u);
    EXPECT_EQ(Date(15, 6, 2001).firstDayOfMonth(UINT_MAX), 0u);
    EXPECT_EQ(Date(15, 6, 2001).firstDayOfMonth(), 152u);
}

TEST(Date, NextAndPreviousAreTheNearestSuchDayThatIsAnother) {
    for (unsigned long julian = 2415386; julian < 2415400; ++julian) {
        for (unsigned weekday = 1; weekday <= 7; ++weekday) {
            Date later(julian + 1);
            while (later.weekDay() != weekday) {
                ++later;
            }
            Date earlier(julian - 1);
            while (earlier.weekDay() != weekday) {
                --earlier;
            }
            EXPECT_EQ(Date(julian).next(weekday), later);
            EXPECT_EQ(Date(julian).previous(weekday), earlier);
        }
    }
}

TEST(Date, NextAndPreviousTakeNamesFromTheLocale) {
    const test::TestLocale locale;
    const Date sunday(6, 11, 1994);
    EXPECT_EQ(sunday.next("Montag", locale), Date(7, 11, 1994));
    EXPECT_EQ(sunday.next("Sonntag", locale), Date(13, 11, 1994));
    EXPECT_EQ(sunday.previous("Samstag", locale), Date(5, 11, 1994));
    EXPECT_EQ(sunday.previous("Sonntag", locale), Date(30, 10, 1994));
    for (const char* name : {"Monday", "", static_cast<const char*>(nullptr)}) {
        EXPECT_FALSE(sunday.next(name, locale).isValid());
        EXPECT_FALSE(sunday.previous(name, locale).isValid());
    }
}

TEST(Date, FormatsWithTheLocale) {
    const test::TestLocale locale;
    const Date date(6, 11, 1994);
    EXPECT_EQ(date.asString('B', locale), "November");
    EXPECT_EQ(date.asString("%d.%m.%Y%Z", locale), "6.11.1994");
    EXPECT_EQ(date.asString('c', locale), "1994-11-06 00:00:00 wday 0 yday 309 isdst -1");
    EXPECT_EQ(date.monthName(locale), "November");
    EXPECT_EQ(date.weekDayName(locale), "Sonntag");
}

TEST(Date, NamesGoBothWays) {
    const test::TestLocale locale;
    for (unsigned month = 1; month <= 12; ++month) {
        EXPECT_EQ(Date::nameOfMonth(month, locale), test::TestLocale::months[month - 1]);
        EXPECT_EQ(Date::indexOfMonth(test::TestLocale::months[month - 1], locale), month);
    }
    for (unsigned day = 1; day <= 7; ++day) {
        EXPECT_EQ(Date::weekDayName(day, locale), test::TestLocale::weekDays[day % 7]);
        EXPECT_EQ(Date::dayOfWeek(test::TestLocale::weekDays[day % 7], locale), day);
    }
    for (const unsigned none : {0u, 13u, UINT_MAX}) {
        EXPECT_EQ(Date::nameOfMonth(none, locale), "");
        EXPECT_EQ(Date::weekDayName(none, locale), "");
    }
    EXPECT_EQ(Date::weekDayName(8, locale), "");
    EXPECT_EQ(Date::indexOfMonth("x", locale), 0u);
    EXPECT_EQ(Date::dayOfWeek("x", locale), 0u);
    EXPECT_EQ(Date::dayOfWeek(nullptr, locale), 0u);
}

TEST(Date, ComparesByItsNumber) {
    const Date early(1, 1, 2001);
    const Date late(2, 1, 2001);
    EXPECT_EQ(early.compareTo(late), -1);
    EXPECT_EQ(late.compareTo(early), 1);
    EXPECT_EQ(early.compareTo(early), 0);
    EXPECT_TRUE(early < late && !(late < early) && !(early < early));
    EXPECT_TRUE(late > early && !(early > late) && !(early > early));
    EXPECT_TRUE(early <= late && early <= early && !(late <= early));
    EXPECT_TRUE(late >= early && early >= early && !(early >= late));
    EXPECT_TRUE(early == early && !(early == late));
    EXPECT_TRUE(early != late && !(early != early));
    EXPECT_EQ(early.max(late), late);
    EXPECT_EQ(late.max(early), late);
    EXPECT_EQ(early.min(late), early);
    EXPECT_EQ(late.min(early), early);
    EXPECT_EQ(early.compareTo(Date(0UL)), 1);
}

TEST(Date, BetweenIncludesBothEnds) {
    const Date first(10, 1, 2001);
    const Date last(12, 1, 2001);
    const bool expected[] = {false, true, true, true, false};
    for (unsigned i = 0; i < 5; ++i) {
        EXPECT_EQ((first - 1 + i).between(first, last), expected[i]);
    }
    EXPECT_FALSE((first + 1).between(last, first));
}

TEST(Date, CountsDaysUpAndDown) {
    Date date(31, 12, 2000);
    EXPECT_EQ(date++, Date(31, 12, 2000));
    EXPECT_EQ(date, Date(1, 1, 2001));
    EXPECT_EQ(++date, Date(2, 1, 2001));
    EXPECT_EQ(date--, Date(2, 1, 2001));
    EXPECT_EQ(--date, Date(31, 12, 2000));
    EXPECT_EQ(date += 60, Date(1, 3, 2001));
    EXPECT_EQ(date -= 1, Date(28, 2, 2001));
    EXPECT_EQ(date + 1, Date(1, 3, 2001));
    EXPECT_EQ(1 + date, Date(1, 3, 2001));
    EXPECT_EQ(date - 1, Date(27, 2, 2001));
    EXPECT_EQ(date, Date(28, 2, 2001));
}

TEST(Date, ADifferenceIsUnsigned) {
    EXPECT_EQ(Date(1, 3, 2001) - Date(28, 2, 2001), 1u);
    EXPECT_EQ(Date(28, 2, 2001) - Date(1, 3, 2001), ULONG_MAX);
    EXPECT_TRUE((std::is_same_v<decltype(Date(1UL) - Date(1UL)), unsigned long>));
}

TEST(Date, TheNumberCanBeSetAndIsTheHash) {
    Date date(0UL);
    date.julian(2415386);
    EXPECT_EQ(date, Date(1, 1, 1901));
    EXPECT_EQ(date.hash(), 2415386u);
    EXPECT_EQ(date.julian(), 2415386u);
}

TEST(Date, LeapYearsAreGregorian) {
    for (const unsigned year : {4u, 400u, 1600u, 1996u, 2000u, 2400u, 0u}) {
        EXPECT_TRUE(Date::leapYear(year)) << year;
        EXPECT_EQ(Date::daysInYear(year), 366u) << year;
    }
    for (const unsigned year : {1u, 100u, 1700u, 1900u, 2001u, 2002u, 2100u}) {
        EXPECT_FALSE(Date::leapYear(year)) << year;
        EXPECT_EQ(Date::daysInYear(year), 365u) << year;
    }
}

TEST(Date, MonthsHaveTheirLengths) {
    const unsigned lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (unsigned month = 1; month <= 12; ++month) {
        const unsigned length = lengths[month - 1];
        EXPECT_EQ(Date::daysInMonthYear(month, 2001), length);
        EXPECT_EQ(Date::daysInMonthYear(month, 2000), length + (month == 2));
        EXPECT_EQ(Date::daysInMonthYear(month, 1900), length);
        EXPECT_TRUE(Date::dayWithinMonth(month, 1, 2001));
        EXPECT_TRUE(Date::dayWithinMonth(month, length, 2001));
        EXPECT_FALSE(Date::dayWithinMonth(month, length + 1, 2001));
        EXPECT_FALSE(Date::dayWithinMonth(month, 0, 2001));
    }
    EXPECT_TRUE(Date::dayWithinMonth(2, 29, 2000));
    for (const unsigned none : {0u, 13u, UINT_MAX}) {
        EXPECT_EQ(Date::daysInMonthYear(none, 2001), 0u);
        EXPECT_FALSE(Date::dayWithinMonth(none, 1, 2001));
    }
}

TEST(Date, TellsWhichNumbersAreWeekDaysAndMonths) {
    for (unsigned n = 0; n < 20; ++n) {
        EXPECT_EQ(OpenDate::assertWeekDayNumber(n), n >= 1 && n <= 7);
        EXPECT_EQ(OpenDate::assertIndexOfMonth(n), n >= 1 && n <= 12);
    }
}

TEST(Date, IsWrittenToStreamsYearFirst) {
    std::ostringstream stream;
    stream << Date(6, 11, 1994) << ' ' << Date(1, 1, 101) << ' ' << Date(0UL) << ' '
           << Date(31, 12, 12345);
    EXPECT_EQ(stream.str(), "1994-11-06 0101-01-01 #INVALID# 12345-12-31");
}

}  // namespace
}  // namespace nolk
