#include <nolk/core/DaylightRule.h>

#include <gtest/gtest.h>

#include <climits>
#include <ctime>
#include <type_traits>

namespace nolk {
namespace {

// Rules here have fixed days, so that no week day is needed.
constexpr DaylightBoundary on(int month, int day, int minute = 0) {
    return {month, -1, day, minute};
}

std::tm civil(int year, int month, int day, int hour = 0) {
    std::tm tm{};
    tm.tm_year = year - 1900;
    tm.tm_mon = month;
    tm.tm_mday = day;
    tm.tm_hour = hour;
    return tm;
}

struct Row {
    int month;
    int day;
    int hour;
    bool daylight;
};

void expectDaylight(const DaylightRule& rule, int year, const Row& row) {
    const std::tm tm = civil(year, row.month, row.day, row.hour);
    EXPECT_EQ(rule.isDaylight(&tm), row.daylight)
        << year << '-' << row.month + 1 << '-' << row.day << ' ' << row.hour;
}

TEST(DaylightRule, IsPlainData) {
    EXPECT_TRUE(std::is_aggregate_v<DaylightRule>);
    EXPECT_TRUE(std::is_trivially_copyable_v<DaylightRule>);
    EXPECT_TRUE((std::is_same_v<decltype(DaylightRule::firstYear), short>));
    DaylightRule older{};
    const DaylightRule rule{&older, 1996, true, on(2, 31), on(9, 27)};
    EXPECT_EQ(rule.next, &older);
    EXPECT_EQ(rule.firstYear, 1996);
    EXPECT_EQ(rule.end.weekday, 27);
}

TEST(DaylightRule, WithoutDaylightTimeNothingIsInIt) {
    const DaylightRule rule{nullptr, 0, false, on(2, 1), on(9, 1)};
    for (int month = 0; month < 12; ++month) {
        const std::tm tm = civil(2010, month, 15);
        EXPECT_FALSE(rule.isDaylight(&tm));
    }
}

TEST(DaylightRule, InTheNorthDaylightTimeLiesInsideTheYear) {
    const DaylightRule rule{nullptr, 2000, true, on(2, 14, 120), on(10, 7, 120)};
    const Row rows[] = {
        {0, 15, 0, false}, {2, 13, 23, false}, {2, 14, 1, false},
        {2, 14, 2, true},  {6, 15, 12, true},  {10, 7, 1, true},
        {10, 7, 2, false}, {10, 8, 0, false},  {11, 31, 23, false},
    };
    for (const Row& row : rows) {
        expectDaylight(rule, 2000, row);
        expectDaylight(rule, 2010, row);
    }
}

TEST(DaylightRule, InTheSouthDaylightTimeLiesAroundTheNewYear) {
    const DaylightRule rule{nullptr, 2000, true, on(9, 3, 120), on(3, 1, 180)};
    const Row rows[] = {
        {0, 15, 0, true}, {3, 1, 2, true}, {3, 1, 3, false},   {6, 15, 0, false},
        {9, 3, 1, false}, {9, 3, 2, true}, {11, 31, 23, true},
    };
    for (const Row& row : rows) {
        expectDaylight(rule, 2001, row);
        expectDaylight(rule, 2010, row);
    }
}

TEST(DaylightRule, ASouthernRuleHasNoDaylightTimeBeforeItsFirstBegin) {
    const DaylightRule rule{nullptr, 2000, true, on(9, 3, 120), on(3, 1, 180)};
    const Row rows[] = {
        {0, 15, 0, false}, {3, 1, 2, false}, {3, 1, 3, false},
        {9, 3, 1, false},  {9, 3, 2, true},  {11, 31, 23, true},
    };
    for (const Row& row : rows) {
        expectDaylight(rule, 2000, row);
    }
}

TEST(DaylightRule, WithinOneMonthItCountsAsSouthern) {
    // From the 20th to the 10th of the next year's same month.
    const DaylightRule rule{nullptr, 2000, true, on(5, 20), on(5, 10)};
    const Row rows[] = {{5, 9, 0, true}, {5, 10, 0, false}, {5, 19, 0, false}, {5, 20, 0, true}};
    for (const Row& row : rows) {
        expectDaylight(rule, 2001, row);
    }
    // Told the other way round it is daylight time outside of the two days, not between them.
    const DaylightRule other{nullptr, 2000, true, on(5, 10), on(5, 20)};
    const Row others[] = {{0, 1, 0, true}, {5, 10, 0, false}, {5, 15, 0, false}, {5, 20, 0, true}};
    for (const Row& row : others) {
        expectDaylight(other, 2001, row);
    }
}

TEST(DaylightRule, ComparesItsFirstYearInSixteenBits) {
    const DaylightRule rule{nullptr, 2000, true, on(9, 3), on(3, 1)};
    expectDaylight(rule, 2000 + 65536, {0, 15, 0, false});
    expectDaylight(rule, 2001 + 65536, {0, 15, 0, true});
    expectDaylight(rule, 2000 - 65536, {0, 15, 0, false});
}

TEST(DaylightRule, TakesTheEndsOfTheRangeOfAnInt) {
    const DaylightRule rule{nullptr, 0, true, on(9, 3), on(3, 1)};
    for (const int year : {INT_MIN, INT_MIN + 1900, INT_MAX - 1900, INT_MAX}) {
        std::tm tm{};
        tm.tm_year = year;
        tm.tm_mon = 6;
        tm.tm_mday = 15;
        EXPECT_FALSE(rule.isDaylight(&tm)) << year;
        tm.tm_mon = 10;
        EXPECT_TRUE(rule.isDaylight(&tm)) << year;
    }
}

}  // namespace
}  // namespace nolk
