#include <nolk/core/DaylightBoundary.h>

#include <gtest/gtest.h>

#include <chrono>
#include <climits>
#include <ctime>
#include <type_traits>

namespace nolk {
namespace {

using namespace std::chrono;

std::tm civil(sys_days day, int hour = 0, int minute = 0, int second = 0) {
    const year_month_day date(day);
    std::tm tm{};
    tm.tm_year = static_cast<int>(date.year()) - 1900;
    tm.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    tm.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    tm.tm_wday = static_cast<int>(weekday(day).c_encoding());
    tm.tm_hour = hour;
    tm.tm_min = minute;
    tm.tm_sec = second;
    return tm;
}

TEST(DaylightBoundary, IsPlainData) {
    EXPECT_TRUE(std::is_aggregate_v<DaylightBoundary>);
    EXPECT_TRUE(std::is_trivially_copyable_v<DaylightBoundary>);
    constexpr DaylightBoundary boundary{2, 4, 0, 120};
    EXPECT_EQ(boundary.month, 2);
    EXPECT_EQ(boundary.week, 4);
    EXPECT_EQ(boundary.weekday, 0);
    EXPECT_EQ(boundary.minute, 120);
}

// Every week day and week of every month of thirty years, asked from every day of the month.
TEST(DaylightBoundary, FindsItsDayFromAnyDayOfTheMonth) {
    for (int y = 1990; y < 2020; ++y) {
        for (unsigned m = 1; m <= 12; ++m) {
            const year_month month = year(y) / m;
            const sys_days last = month / std::chrono::last;
            for (unsigned w = 0; w < 35; ++w) {
                const weekday day(w % 7);
                const int week = static_cast<int>(w / 7);
                const sys_days expected = week < 4 ? sys_days(month / day[w / 7 + 1])
                                                   : sys_days(month / day[std::chrono::last]);
                const DaylightBoundary boundary{static_cast<int>(m) - 1, week,
                                                static_cast<int>(w % 7), 150};
                for (sys_days from = month / 1; from <= last; from += days(1)) {
                    std::tm tm = civil(from, 23, 59, 58);
                    tm.tm_isdst = 1;
                    boundary.date(&tm);
                    const std::tm wanted = civil(expected, 2, 30);
                    ASSERT_EQ(tm.tm_mday, wanted.tm_mday);
                    ASSERT_EQ(tm.tm_wday, wanted.tm_wday);
                    ASSERT_EQ(tm.tm_mon, wanted.tm_mon);
                    ASSERT_EQ(tm.tm_hour, 2);
                    ASSERT_EQ(tm.tm_min, 30);
                    ASSERT_EQ(tm.tm_sec, 0);
                    ASSERT_EQ(tm.tm_isdst, -1);
                    ASSERT_EQ(boundary.after(&wanted), false);
                    const std::tm other = civil(from);
                    ASSERT_EQ(boundary.after(&other), from <= expected);
                }
            }
        }
    }
}

TEST(DaylightBoundary, AnyWeekAboveFourMeansTheLast) {
    const DaylightBoundary last{2, 4, 0, 0};
    for (const int week : {5, 17, INT_MAX}) {
        const DaylightBoundary boundary{2, week, 0, 0};
        std::tm tm = civil(2010y / 3 / 1);
        std::tm wanted = tm;
        boundary.date(&tm);
        last.date(&wanted);
        EXPECT_EQ(tm.tm_mday, 28);
        EXPECT_EQ(wanted.tm_mday, 28);
    }
}

TEST(DaylightBoundary, TheLastWeekDayOfAFebruaryKnowsLeapYears) {
    const DaylightBoundary sunday{1, 4, 0, 0};
    struct Row {
        int year;
        int day;
    };
    // 29 February was a Sunday in 2004; 28 February in 2010; 1900 had no 29 February.
    for (const Row& row : {Row{2004, 29}, Row{2010, 28}, Row{2000, 27}, Row{1900, 25}}) {
        std::tm tm = civil(year(row.year) / 2 / 1);
        sunday.date(&tm);
        EXPECT_EQ(tm.tm_mday, row.day) << row.year;
    }
}

TEST(DaylightBoundary, AFixedDayIsWrittenWithTheWeekDayAsGiven) {
    for (const int week : {-1, -5, INT_MIN}) {
        const DaylightBoundary boundary{9, week, 31, 61};
        std::tm tm = civil(2010y / 10 / 1);
        boundary.date(&tm);
        EXPECT_EQ(tm.tm_mday, 31);
        EXPECT_EQ(tm.tm_wday, 31);
        EXPECT_EQ(tm.tm_hour, 1);
        EXPECT_EQ(tm.tm_min, 1);
        const std::tm before = civil(2010y / 10 / 31, 1, 0);
        const std::tm then = civil(2010y / 10 / 31, 1, 1);
        EXPECT_TRUE(boundary.after(&before));
        EXPECT_FALSE(boundary.after(&then));
    }
}

TEST(DaylightBoundary, ComparesMonthThenDayThenMinute) {
    const DaylightBoundary boundary{2, 1, 0, 120};  // 14 March 2010, 2:00
    struct Row {
        std::tm tm;
        bool after;
    };
    const Row rows[] = {
        {civil(2010y / 1 / 31, 23, 59), true}, {civil(2010y / 2 / 28, 23, 59), true},
        {civil(2010y / 3 / 1), true},          {civil(2010y / 3 / 13, 23, 59), true},
        {civil(2010y / 3 / 14), true},         {civil(2010y / 3 / 14, 1, 59), true},
        {civil(2010y / 3 / 14, 2, 0), false},  {civil(2010y / 3 / 14, 23, 59), false},
        {civil(2010y / 3 / 15), false},        {civil(2010y / 4 / 1), false},
        {civil(2010y / 12 / 31), false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(boundary.after(&row.tm), row.after) << row.tm.tm_mon << '/' << row.tm.tm_mday;
    }
}

TEST(DaylightBoundary, SecondsDoNotCount) {
    const DaylightBoundary boundary{2, 1, 0, 120};
    const std::tm late = civil(2010y / 3 / 14, 1, 59, 59);
    EXPECT_TRUE(boundary.after(&late));
    const std::tm early = civil(2010y / 3 / 14, 2, 0, -1);
    EXPECT_FALSE(boundary.after(&early));
}

TEST(DaylightBoundary, TakesTheEndsOfTheRangeOfAnInt) {
    const int ends[] = {INT_MIN, -1, 0, 1, 11, 12, INT_MAX};
    for (const int a : ends) {
        for (const int b : ends) {
            for (const int c : ends) {
                std::tm tm{};
                tm.tm_year = a;
                tm.tm_mon = b;
                tm.tm_mday = c;
                tm.tm_wday = b;
                tm.tm_hour = a;
                tm.tm_min = b;
                const DaylightBoundary boundary{b, c, a, a};
                const bool before = boundary.after(&tm);
                tm.tm_sec = 59;
                EXPECT_EQ(boundary.after(&tm), before);
                boundary.date(&tm);
                EXPECT_EQ(tm.tm_wday, a);
            }
        }
    }
}

}  // namespace
}  // namespace nolk
