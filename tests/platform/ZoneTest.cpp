#include "nolk/core/platform/Zone.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ctime>
#include <string>

#include "nolk/core/platform/Clock.h"
#include "support/ProcessZone.h"
#include "support/ZoneFile.h"

namespace nolk::platform {
namespace {

// Wine's run-time library keeps two letters of a name.
void expectName(const std::string& told, const std::string& wanted) {
    EXPECT_GE(told.size(), 2u);
    EXPECT_EQ(told, wanted.substr(0, told.size()));
}

TEST(Zone, TellsNamesAndOffsetOfTheProcess) {
    const test::ProcessZone process("EST5EDT");
    const ZoneFacts facts = processZone();
    expectName(facts.standardName, "EST");
    expectName(facts.daylightName, "EDT");
    EXPECT_EQ(facts.secondsWest, 18000);
    EXPECT_TRUE(facts.hasDaylight);
}

TEST(Zone, TellsThatThereIsNoDaylightTime) {
    const test::ProcessZone process("XYZ-3:30");
    const ZoneFacts facts = processZone();
    expectName(facts.standardName, "XYZ");
    EXPECT_EQ(facts.secondsWest, -12600);
    EXPECT_FALSE(facts.hasDaylight);
}

TEST(Zone, ReadsTheEnvironmentAnew) {
    const test::ProcessZone eastern("EST5EDT");
    EXPECT_EQ(processZone().secondsWest, 18000);
    const test::ProcessZone pacific("PST8PDT");
    EXPECT_EQ(processZone().secondsWest, 28800);
}

void expectCivil(std::int64_t instant, const std::tm& wanted) {
    std::tm told{};
    ASSERT_TRUE(localTime(instant, told));
    EXPECT_EQ(told.tm_year, wanted.tm_year);
    EXPECT_EQ(told.tm_mon, wanted.tm_mon);
    EXPECT_EQ(told.tm_mday, wanted.tm_mday);
    EXPECT_EQ(told.tm_hour, wanted.tm_hour);
    EXPECT_EQ(told.tm_min, wanted.tm_min);
    EXPECT_EQ(told.tm_sec, wanted.tm_sec);
    EXPECT_EQ(told.tm_wday, wanted.tm_wday);
    EXPECT_EQ(told.tm_yday, wanted.tm_yday);
    EXPECT_EQ(told.tm_isdst, wanted.tm_isdst);
}

TEST(Zone, TellsTheLocalTimeOfAnInstant) {
    const test::ProcessZone process("EST5EDT");
    for (const std::int64_t instant :
         {test::secondsAt(1971, 1, 1), test::secondsAt(2010, 1, 15) + 12345,
          test::secondsAt(2000, 3, 1) - 1, test::secondsAt(2030, 12, 31) + 86399}) {
        expectCivil(instant, test::civilAt(instant, -18000));
    }
}

// Wine's run-time library knows no daylight time where TZ is set, so the wanted times are what the
// run-time library itself says.
TEST(Zone, HasTheDaylightTimeOfTheRunTimeLibrary) {
    const test::ProcessZone process("EST5EDT");
    const std::int64_t begin = test::secondsAt(2010, 3, 14) + 7 * 3600;
    const std::int64_t end = test::secondsAt(2010, 11, 7) + 6 * 3600;
    for (const std::int64_t instant : {begin - 1, begin, end - 1, end}) {
        const auto time = static_cast<std::time_t>(instant);
        expectCivil(instant, *std::localtime(&time));
    }
}

TEST(Zone, SaysThatItCannotTell) {
    std::tm civil{};
    EXPECT_FALSE(localTime(INT64_MAX, civil));
    EXPECT_FALSE(localTime(INT64_MIN, civil));
}

TEST(Zone, TellsThePresentLocalTime) {
    std::tm before{};
    std::tm told{};
    std::tm after{};
    do {
        ASSERT_TRUE(localTime(currentSeconds(), before));
        told = localTimeNow();
        ASSERT_TRUE(localTime(currentSeconds(), after));
    } while (before.tm_min != after.tm_min);
    EXPECT_EQ(told.tm_year, before.tm_year);
    EXPECT_EQ(told.tm_yday, before.tm_yday);
    EXPECT_EQ(told.tm_hour, before.tm_hour);
    EXPECT_EQ(told.tm_min, before.tm_min);
    EXPECT_LE(before.tm_sec, told.tm_sec);
    EXPECT_LE(told.tm_sec, after.tm_sec);
}

}  // namespace
}  // namespace nolk::platform
