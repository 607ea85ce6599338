#include "nolk/core/values/DaylightProbe.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ctime>

#include "nolk/core/platform/Zone.h"
#include "support/ProcessZone.h"
#include "support/ZoneFile.h"

namespace nolk {
namespace {

using test::secondsAt;

// A function has no state of its own: this is what `inZone` looks at.
const test::ZoneFile* zone = nullptr;

bool inZone(std::int64_t seconds, std::tm& civil) noexcept {
    civil = zone->civil(seconds);
    return true;
}

bool never(std::int64_t, std::tm&) noexcept {
    return false;
}

DaylightRule probe(const char* name, int year) {
    const test::ZoneFile file(name);
    zone = &file;
    return probeDaylight(secondsAt(year, 6, 15), inZone);
}

void expectBoundary(const DaylightBoundary& found, int month, int day, int minute) {
    EXPECT_EQ(found.month, month);
    EXPECT_EQ(found.week, -1);
    EXPECT_EQ(found.weekday, day);
    EXPECT_EQ(found.minute, minute);
}

TEST(DaylightProbe, FindsTheDaysOfTheYear) {
    struct Row {
        const char* zone;
        int year;
        int begin[3];
        int end[3];
    };
    const Row rows[] = {
        {"America/New_York", 2010, {2, 14, 120}, {10, 7, 120}},
        {"America/New_York", 1974, {0, 6, 120}, {9, 27, 120}},
        {"Europe/Berlin", 2020, {2, 29, 120}, {9, 25, 180}},
        {"Europe/London", 2020, {2, 29, 60}, {9, 25, 120}},
        // The south: the first change of the year is the end.
        {"Australia/Sydney", 2020, {9, 4, 120}, {3, 5, 180}},
        // Half an hour, and changes at midnight.
        {"Australia/Lord_Howe", 2020, {9, 4, 120}, {3, 5, 120}},
        {"America/Havana", 2020, {2, 8, 0}, {10, 1, 60}},
        // From the end of a day on: at 24:00 of 26 March.
        {"Asia/Amman", 2020, {2, 27, 0}, {9, 30, 60}},
        // Twice in one year, with none in the month of fasting: the first time counts.
        {"Africa/Cairo", 2010, {3, 30, 0}, {7, 11, 0}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.zone);
        const DaylightRule rule = probe(row.zone, row.year);
        EXPECT_EQ(rule.next, nullptr);
        EXPECT_EQ(rule.firstYear, 0);
        EXPECT_TRUE(rule.observed);
        expectBoundary(rule.begin, row.begin[0], row.begin[1], row.begin[2]);
        expectBoundary(rule.end, row.end[0], row.end[1], row.end[2]);
    }
}

TEST(DaylightProbe, TheRuleHoldsInItsYear) {
    for (const char* name : {"America/New_York", "Europe/Berlin", "Australia/Sydney",
                             "America/Santiago", "Asia/Beirut"}) {
        for (const int year : {1994, 2004, 2014, 2024}) {
            const DaylightRule rule = probe(name, year);
            const test::ZoneFile file(name);
            for (int day = 1; day < 365; ++day) {
                const std::tm noon = file.civil(secondsAt(year, 1, 1) + (day * 24 + 12) * 3600);
                ASSERT_EQ(rule.isDaylight(&noon), noon.tm_isdst > 0)
                    << name << ' ' << year << ' ' << day;
            }
        }
    }
}

TEST(DaylightProbe, WithoutAnyChangeThereIsNoDaylightTime) {
    for (const DaylightRule& rule :
         {probe("Asia/Tokyo", 2020), probe("UTC", 2020), probeDaylight(0, never)}) {
        EXPECT_FALSE(rule.observed);
        EXPECT_EQ(rule.begin.month, 12);
        EXPECT_EQ(rule.end.month, 12);
    }
}

TEST(DaylightProbe, AYearThatIsAllDaylightTimeHasNoBeginAndSoNone) {
    const DaylightRule rule = probe("America/Havana", 2005);
    EXPECT_FALSE(rule.observed);
}

TEST(DaylightProbe, ABeginWithoutEndLastsToTheEndOfTheYear) {
    // The year before war time ended again.
    const DaylightRule rule = probe("America/New_York", 1942);
    EXPECT_TRUE(rule.observed);
    expectBoundary(rule.begin, 1, 9, 120);
    EXPECT_EQ(rule.end.month, 12);
    std::tm december{};
    december.tm_year = 42;
    december.tm_mon = 11;
    december.tm_mday = 31;
    EXPECT_TRUE(rule.isDaylight(&december));
}

TEST(DaylightProbe, AnEndWithoutBeginIsNoDaylightTime) {
    const DaylightRule rule = probe("America/New_York", 1945);
    EXPECT_FALSE(rule.observed);
    EXPECT_EQ(rule.begin.month, 12);
    expectBoundary(rule.end, 8, 30, 120);
}

// GMT, with daylight time, of no hours, from 2011 on, and from an hour later on.
bool daylightFrom2011(std::int64_t seconds, std::tm& civil) noexcept {
    civil = test::civilAt(seconds, 0);
    civil.tm_isdst = seconds >= secondsAt(2011, 1, 1);
    return true;
}

bool daylightFromOneOClock(std::int64_t seconds, std::tm& civil) noexcept {
    civil = test::civilAt(seconds, 0);
    civil.tm_isdst = seconds >= secondsAt(2011, 1, 1) + 3600;
    return true;
}

TEST(DaylightProbe, AChangeAtTheVeryEndOfTheYearIsOfThatYear) {
    const DaylightRule rule = probeDaylight(secondsAt(2010, 6, 15), daylightFrom2011);
    EXPECT_TRUE(rule.observed);
    expectBoundary(rule.begin, 11, 31, 1440);
    EXPECT_FALSE(probeDaylight(secondsAt(2011, 6, 15), daylightFrom2011).observed);
}

TEST(DaylightProbe, AChangeOfTheNextYearIsNot) {
    EXPECT_FALSE(probeDaylight(secondsAt(2010, 6, 15), daylightFromOneOClock).observed);
    const DaylightRule rule = probeDaylight(secondsAt(2011, 6, 15), daylightFromOneOClock);
    EXPECT_TRUE(rule.observed);
    expectBoundary(rule.begin, 0, 1, 60);
}

// Whether there is daylight time at all is the run-time library's word: Wine's has none where TZ is
// set.
TEST(DaylightProbe, AsksThePlatform) {
    const test::ProcessZone process("EST5EDT");
    const DaylightRule rule = probeDaylight(secondsAt(2010, 6, 15), &platform::localTime);
    for (int day = 0; day < 365; ++day) {
        const auto time = static_cast<std::time_t>(secondsAt(2010, 1, 1) + (day * 24 + 17) * 3600);
        const std::tm noon = *std::localtime(&time);
        ASSERT_EQ(rule.isDaylight(&noon), noon.tm_isdst > 0) << day;
    }
}

}  // namespace
}  // namespace nolk
