// What the zones of the process are made of, in zones of the test's choice.

#include "nolk/core/values/TimeZoneCache.h"

#include <nolk/core/DaylightRule.h>
#include <nolk/core/TimeZone.h>
#include <nolk/core/TimeZoneSimple.h>

#include <gtest/gtest.h>

#include <ctime>
#include <string>

#include "nolk/core/platform/Zone.h"
#include "support/FailingAllocation.h"
#include "support/ProcessZone.h"

namespace nolk {
namespace {

class TimeZoneCache : public testing::Test {
protected:
    TimeZoneCache() { releaseTimeZones(); }
    ~TimeZoneCache() override { releaseTimeZones(); }
};

std::tm july() {
    std::tm tm{};
    tm.tm_year = 110;
    tm.tm_mon = 6;
    tm.tm_mday = 15;
    tm.tm_wday = 4;
    return tm;
}

TEST_F(TimeZoneCache, LocalIsThePlatformsZoneWithTheNorthAmericanRule) {
    const test::ProcessZone process("EST5EDT");
    for (const TimeZone* zone : {&TimeZone::local(), &TimeZone::system()}) {
        EXPECT_EQ(zone->timeZoneOffset(), 18000);
        EXPECT_EQ(zone->altZoneOffset(), 14400);
        // Wine's run-time library keeps two letters of a name.
        const platform::ZoneFacts facts = platform::processZone();
        EXPECT_EQ(zone->timeZoneName(), facts.standardName);
        EXPECT_EQ(zone->altZoneName(), facts.daylightName);
        EXPECT_TRUE(zone->daylightObserved());
        std::tm tm{};
        tm.tm_year = 74;
        zone->getBeginDaylight(&tm);
        EXPECT_EQ(tm.tm_mon, 0);
        EXPECT_EQ(tm.tm_mday, 6);
    }
}

TEST_F(TimeZoneCache, LocalHasTheNorthAmericanRuleWhereverDaylightTimeIs) {
    const test::ProcessZone process("CET-1CEST");
    EXPECT_EQ(TimeZone::local().timeZoneOffset(), -3600);
    EXPECT_EQ(TimeZone::local().altZoneOffset(), -7200);
    std::tm tm{};
    tm.tm_year = 110;
    TimeZone::local().getBeginDaylight(&tm);
    EXPECT_EQ(tm.tm_mon, 2);
    EXPECT_EQ(tm.tm_mday, 14);
}

TEST_F(TimeZoneCache, WithoutDaylightTimeTheAlternativeOffsetIsAnHourAheadAllTheSame) {
    const test::ProcessZone process("XYZ-3");
    EXPECT_EQ(TimeZone::local().timeZoneOffset(), -10800);
    EXPECT_EQ(TimeZone::local().altZoneOffset(), -14400);
    EXPECT_EQ(TimeZone::local().timeZoneName(), platform::processZone().standardName);
    EXPECT_FALSE(TimeZone::local().daylightObserved());
    const std::tm tm = july();
    EXPECT_FALSE(TimeZone::local().isDaylight(&tm));
}

TEST_F(TimeZoneCache, StandardIsMadeOfLocalWhateverThatIs) {
    const TimeZoneSimple own(TimeZone::StdZone(8), TimeZone::NorthAmerica);
    TimeZone::local(&own);
    EXPECT_EQ(TimeZone::standard().timeZoneOffset(), 28800);
    EXPECT_EQ(TimeZone::standard().altZoneOffset(), 28800);
    EXPECT_EQ(TimeZone::standard().timeZoneName(), "PST");
    EXPECT_EQ(TimeZone::standard().altZoneName(), "PST");
    EXPECT_FALSE(TimeZone::standard().daylightObserved());
    EXPECT_EQ(TimeZone::local(nullptr), &own);
}

TEST_F(TimeZoneCache, BeforeItIsAskedForAZoneIsNull) {
    const TimeZoneSimple own(1, "own");
    EXPECT_EQ(TimeZone::local(&own), nullptr);
    EXPECT_EQ(TimeZone::standard(&own), nullptr);
    EXPECT_EQ(TimeZone::system(&own), nullptr);
    EXPECT_EQ(TimeZone::local(nullptr), &own);
    EXPECT_EQ(TimeZone::standard(nullptr), &own);
    EXPECT_EQ(TimeZone::system(nullptr), &own);
    // And from null it is made.
    EXPECT_EQ(TimeZone::local().altZoneOffset(), TimeZone::local().timeZoneOffset() - 3600);
}

TEST_F(TimeZoneCache, ReleaseDeletesWhatTheLibraryMade) {
    {
        const test::ProcessZone process("EST5EDT");
        const long before = test::FailingAllocation::live();
        TimeZone::local();
        TimeZone::standard();
        TimeZone::system();
        TimeZone::utc();
        EXPECT_EQ(test::FailingAllocation::live(), before + 4);
        releaseTimeZones();
        EXPECT_EQ(test::FailingAllocation::live(), before);
    }
    const test::ProcessZone process("PST8PDT");
    EXPECT_EQ(TimeZone::local().timeZoneOffset(), 28800);
    EXPECT_EQ(TimeZone::standard().timeZoneOffset(), 28800);
    EXPECT_EQ(TimeZone::system().timeZoneOffset(), 28800);
}

TEST_F(TimeZoneCache, ReleaseLeavesACallersZoneInItsPlace) {
    const TimeZoneSimple own(1, "own");
    const TimeZone* made = &TimeZone::local();
    EXPECT_EQ(TimeZone::local(&own), made);
    releaseTimeZones();
    EXPECT_EQ(&TimeZone::local(), &own);
    // The one that was replaced is still there to be put back, and is released then.
    EXPECT_EQ(TimeZone::local(made), &own);
    EXPECT_EQ(TimeZone::local().altZoneOffset(), made->timeZoneOffset() - 3600);
}

TEST_F(TimeZoneCache, WhereMemoryRunsOutAZoneIsMadeTheNextTime) {
    const test::ProcessZone process("EST5EDT");
    const long before = test::FailingAllocation::live();
    const long failures = test::failEachAllocation(false, [before](test::FailingRun& run) {
        const test::Outcome outcome = run([] {
            TimeZone::local();
            TimeZone::standard();
            TimeZone::utc();
        });
        EXPECT_EQ(outcome.threw, outcome.failed);
        if (outcome.failed) {
            releaseTimeZones();
            EXPECT_EQ(test::FailingAllocation::live(), before);
        }
    });
    EXPECT_EQ(failures, 3);
    EXPECT_EQ(TimeZone::standard().timeZoneOffset(), 18000);
    EXPECT_EQ(TimeZone::utc().timeZoneName(), "GMT");
}

TEST(TimeZoneSimpleMemory, AFailedAssignmentOrCopyLeaksNothing) {
    const std::string longName(100, 'x');
    const TimeZoneSimple zone(nullptr, 1, longName, 2, longName);
    const long before = test::FailingAllocation::live();
    EXPECT_EQ(test::failEachAllocation([&zone] { const TimeZoneSimple copy(zone); }), 2u);
    EXPECT_EQ(test::failEachAllocation([&zone] {
                  TimeZoneSimple target(3, "x");
                  target = zone;
              }),
              2u);
    EXPECT_EQ(test::FailingAllocation::live(), before);
}

}  // namespace
}  // namespace nolk
