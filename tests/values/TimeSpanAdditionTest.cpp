// Spans added to instants: the examples of XML Schema, the edges, and a second implementation on
// the calendar of the standard library.

#include <nolk/core/TimeSpan.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>

#include "values/DateTimeSupport.h"

namespace nolk {
namespace {

using test::at;

constexpr std::uint32_t most = 4294967295;

DateTime sum(const char* span, const DateTime& time) {
    return TimeSpan(span) + time;
}

TEST(TimeSpanAddition, GivesTheExamplesOfTheStandard) {
    EXPECT_EQ(sum("P1Y3M5DT7H10M3.3S", at(2000, 1, 12, 12, 13, 14)),
              at(2001, 4, 17, 19, 23, 17, 300));
    EXPECT_EQ(sum("-P3M", at(2000, 1, 1)), at(1999, 10, 1));
    EXPECT_EQ(sum("PT33H", at(2000, 1, 12)), at(2000, 1, 13, 9));
    // The order of additions counts.
    EXPECT_EQ(sum("P1M", sum("P1D", at(2000, 3, 30))), at(2000, 4, 30));
    EXPECT_EQ(sum("P1D", sum("P1M", at(2000, 3, 30))), at(2000, 5, 1));
}

TEST(TimeSpanAddition, TheDayIsCutToTheLengthOfTheMonth) {
    const DateTime start = at(2001, 1, 31, 1, 2, 3, 4);
    EXPECT_EQ(sum("P1M", start), at(2001, 2, 28, 1, 2, 3, 4));
    EXPECT_EQ(sum("P1Y1M", at(1999, 1, 31)), at(2000, 2, 29));
    EXPECT_EQ(sum("P1Y", at(2000, 2, 29)), at(2001, 2, 28));
    EXPECT_EQ(sum("P4Y", at(2000, 2, 29)), at(2004, 2, 29));
    EXPECT_EQ(sum("-P1M", at(2001, 3, 31)), at(2001, 2, 28));
    EXPECT_EQ(sum("P1M1D", start), at(2001, 3, 1, 1, 2, 3, 4));
    EXPECT_EQ(sum("-P1M1D", at(2001, 3, 31)), at(2001, 2, 27));
}

TEST(TimeSpanAddition, MonthsCarryIntoYears) {
    EXPECT_EQ(sum("P11M", at(2001, 1, 1)), at(2001, 12, 1));
    EXPECT_EQ(sum("P12M", at(2001, 1, 1)), at(2002, 1, 1));
    EXPECT_EQ(sum("P25M", at(2001, 12, 1)), at(2004, 1, 1));
    EXPECT_EQ(sum("-P1M", at(2001, 1, 1)), at(2000, 12, 1));
    EXPECT_EQ(sum("-P13M", at(2001, 1, 1)), at(1999, 12, 1));
    EXPECT_EQ(sum("-P12M", at(2001, 12, 1)), at(2000, 12, 1));
}

TEST(TimeSpanAddition, TheTimeCarriesIntoDays) {
    EXPECT_EQ(sum("PT1S", at(2001, 12, 31, 23, 59, 59)), at(2002, 1, 1));
    EXPECT_EQ(sum("-PT1S", at(2001, 1, 1)), at(2000, 12, 31, 23, 59, 59));
    EXPECT_EQ(sum("PT1M", at(2001, 2, 28, 23, 59)), at(2001, 3, 1));
    EXPECT_EQ(sum("-PT24H", at(2000, 3, 1)), at(2000, 2, 29));
    EXPECT_EQ(sum("PT86400S", at(2001, 1, 1)), at(2001, 1, 2));
    EXPECT_EQ(sum("-PT3661S", at(2001, 1, 1)), at(2000, 12, 31, 22, 58, 59));
}

TEST(TimeSpanAddition, FractionsOfSecondsAreCutToMilliseconds) {
    const DateTime start = at(2001, 1, 1);
    EXPECT_EQ(sum("PT0.5S", start), start + 500);
    EXPECT_EQ(sum("-PT0.5S", start), start - 500);
    EXPECT_EQ(sum("-PT1.5S", start), start - 1500);
    EXPECT_EQ(sum("PT0.0009S", start), start);
    EXPECT_EQ(sum("-PT0.0009S", start), start);
    EXPECT_EQ(sum("PT0.5S", start + 750), start + 1250);
    EXPECT_EQ(sum("-PT0.5S", start + 250), start - 250);
    // The sum of milliseconds is cut, not each part: 5 - 1.5 is 3.
    EXPECT_EQ(sum("-PT0.0015S", start + 5), start + 3);
    EXPECT_EQ(sum("PT0.0015S", start + 5), start + 6);
}

TEST(TimeSpanAddition, NothingAddedIsTheSameInstant) {
    for (const char* text : {"", "P", "-", "P0D", "P0Y0M0D"}) {
        EXPECT_EQ(sum(text, at(2000, 2, 29, 23, 59, 59, 999)), at(2000, 2, 29, 23, 59, 59, 999));
    }
}

TEST(TimeSpanAddition, WhatAnInvalidSpanHoldsIsAdded) {
    EXPECT_EQ(sum("P1D2Y", at(2001, 1, 1)), at(2001, 1, 2));
}

TEST(TimeSpanAddition, AReservedInstantThrows) {
    for (const DateTime& time : test::reserved) {
        EXPECT_EQ(test::failureOf([&] { sum("P1D", time); }), test::invalidObject);
    }
}

TEST(TimeSpanAddition, AYearThatIsNoneIsInvalid) {
    EXPECT_EQ(sum("-P2002Y", at(2001, 6, 1)), test::invalid);
    EXPECT_EQ(sum("-P4294967295Y", at(2001, 6, 1)), test::invalid);
    EXPECT_EQ(sum("P4294967295Y", at(2001, 6, 1)), test::invalid);
    EXPECT_EQ(sum("-P2001Y", at(2001, 6, 1)), at(0, 6, 1));
}

TEST(TimeSpanAddition, ExtremeFieldsAreDefinedAndFast) {
    const DateTime start = at(2001, 6, 15, 12, 13, 14, 15);
    for (const double seconds : {0.0, 1e300, -1e300, HUGE_VAL, -HUGE_VAL, std::nan("")}) {
        for (const std::uint32_t n : {0u, 1u, most}) {
            TimeSpan span(n, n, n, n, n, seconds);
            for (int i = 0; i < 2; ++i) {
                static_cast<void>(span + start);
                -span;
            }
        }
    }
    // Far more days than months can be walked through in a moment.
    const DateTime sumOfDays = TimeSpan(0, 0, most) + start;
    EXPECT_EQ(sumOfDays - start, 4294967295ll * 86400000);
    const DateTime difference = sum("-P730000D", start);
    EXPECT_EQ(difference - start, -730000ll * 86400000);
}

// By the calendar of the standard library, and whole milliseconds.
DateTime byTheStandard(const TimeSpan& span, const DateTime& start) {
    using namespace std::chrono;
    const int sign = span.isNegative() ? -1 : 1;
    const auto time = start.toSysTime();
    const sys_days date = floor<days>(time);
    const year_month_day civil(date);
    const year_month month = year_month(civil.year(), civil.month()) +
                             years(sign * static_cast<int>(span.getYears())) +
                             months(sign * static_cast<int>(span.getMonths()));
    const year_month_day_last last(month.year(), month_day_last(month.month()));
    const sys_days clamped = month / std::min(civil.day(), last.day());
    const auto result =
        clamped + (time - date) +
        sign * (days(span.getDays()) + hours(span.getHours()) + minutes(span.getMinutes()) +
                milliseconds(std::llround(span.getSeconds() * 1000)));
    return DateTime(sys_time<milliseconds>(result));
}

TEST(TimeSpanAddition, IsThatOfASecondImplementation) {
    std::mt19937_64 random(1);
    const auto below = [&random](std::uint64_t limit) {
        return static_cast<std::uint32_t>(random() % limit);
    };
    for (int i = 0; i < 50000; ++i) {
        // Between the years 5000 and 20000, to which the standard library has room on both sides.
        const DateTime start =
            at(5000, 1, 1) + static_cast<long long>(random() % (15000ull * 365 * 86400000));
        const bool small = below(2) == 0;
        TimeSpan span(below(small ? 3 : 2000), below(small ? 30 : 20000),
                      below(small ? 100 : 500000), below(small ? 50 : 100000),
                      below(small ? 100 : 1000000), below(small ? 400 : 40000000) * 0.25);
        if (below(2) == 0) {
            -span;
        }
        ASSERT_EQ((span + start).milliSeconds(), byTheStandard(span, start).milliSeconds())
            << span << ' ' << start;
    }
}

// The order as it is told: by sums with the four instants.
bool lessByInstants(const TimeSpan& a, const TimeSpan& b) {
    for (const DateTime& reference :
         {at(1696, 9, 1), at(1697, 2, 1), at(1903, 3, 1), at(1903, 7, 1)}) {
        if (!(a + reference < b + reference)) {
            return false;
        }
    }
    return true;
}

TEST(TimeSpanAddition, ThePartialOrderIsThatOfSums) {
    std::mt19937_64 random(2);
    const auto below = [&random](std::uint64_t limit) {
        return static_cast<std::uint32_t>(random() % limit);
    };
    const auto span = [&below] {
        TimeSpan span(below(2), below(14), below(400), below(30), below(70), below(300) * 0.25);
        if (below(2) == 0) {
            -span;
        }
        return span;
    };
    int less = 0;
    for (int i = 0; i < 20000; ++i) {
        const TimeSpan a = span();
        const TimeSpan b = span();
        ASSERT_EQ(a < b, lessByInstants(a, b)) << a << ' ' << b;
        less += a < b;
    }
    EXPECT_GT(less, 1000);
}

}  // namespace
}  // namespace nolk
