// Times by formats and markers of the test's choice.

#include "nolk/core/values/LocaleTime.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "nolk/core/values/TimeFormatProbe.h"
#include "values/TestLocale.h"

namespace nolk {
namespace {

// The time format of a sample at 22:54:56, whose hour of 12 is 10 and whose marker is "PM".
class Format {
public:
    explicit Format(const char* sample) {
        std::vector<std::string> texts(timeConversions.size());
        texts[second] = "56";
        texts[minute] = "54";
        texts[hourOf12] = "10";
        texts[hourOf24] = "22";
        texts[halfOfDay] = "PM";
        learnFormat(format_, sample, texts);
    }

    // "hour:minute:second" of what was read, and "none" where nothing was, with `tm` untouched.
    std::string read(std::string_view text, const char* am = "AM", const char* pm = "PM") const {
        std::tm tm{};
        tm.tm_year = tm.tm_mon = tm.tm_mday = tm.tm_hour = tm.tm_min = tm.tm_sec = 77;
        tm.tm_wday = tm.tm_yday = tm.tm_isdst = 77;
        const std::string before = test::TestLocale::all(tm);
        if (!readTime({format_, am, pm}, text, &tm)) {
            EXPECT_EQ(test::TestLocale::all(tm), before);
            return "none";
        }
        const std::string time = std::to_string(tm.tm_hour) + ":" + std::to_string(tm.tm_min) +
                                 ":" + std::to_string(tm.tm_sec);
        tm.tm_hour = tm.tm_min = tm.tm_sec = 77;
        EXPECT_EQ(test::TestLocale::all(tm), before) << "nothing else is set";
        return time;
    }

private:
    LocaleTimeFormat format_;
};

TEST(LocaleTime, HoursMinutesAndSecondsHaveOneDigitOrTwo) {
    const Format format("22:54:56");
    EXPECT_EQ(format.read("22:54:56"), "22:54:56");
    EXPECT_EQ(format.read("1:2:3"), "1:2:3");
    EXPECT_EQ(format.read("01:02:03"), "1:2:3");
    EXPECT_EQ(format.read("22:54"), "22:54:0");
    EXPECT_EQ(format.read("0:0"), "0:0:0");
    EXPECT_EQ(format.read("122:54"), "none");
    EXPECT_EQ(format.read("22:545"), "none");
    EXPECT_EQ(format.read("22:54:567"), "none");
}

TEST(LocaleTime, PointsAndColonsSeparateEverywhere) {
    const Format format("22h54m56");
    for (const char* text : {"22:54:56", "22.54.56", "22h54m56", "22:54.56", "22. 54: 56",
                             "22:x54.y56", "22h54.56", "22:54m56"}) {
        EXPECT_EQ(format.read(text), "22:54:56") << text;
    }
    for (const char* text : {"22x54", "22m54", "22 54", "22h 54", "22H54"}) {
        EXPECT_EQ(format.read(text), "none") << text;
    }
    EXPECT_EQ(format.read("22h54h56"), "none") << "what separates hours doesn't separate seconds";
}

TEST(LocaleTime, ASeparatorHasANumberBehindIt) {
    const Format format("22h54m56s");
    for (const char* text : {"22:", "22", "22h", "22:54:", "22:54.", "22h54m", "", ":", "x"}) {
        EXPECT_EQ(format.read(text), "none") << text;
    }
}

TEST(LocaleTime, WithoutSeparatorDigitsFollowEachOther) {
    for (const char* sample : {"22:54:56", "225456"}) {
        const Format format(sample);
        EXPECT_EQ(format.read("225456"), "22:54:56");
        EXPECT_EQ(format.read("22545"), "22:54:5");
        EXPECT_EQ(format.read("2254"), "22:54:0");
        EXPECT_EQ(format.read("225"), "22:5:0");
        EXPECT_EQ(format.read("22"), "none");
        EXPECT_EQ(format.read("2254:56"), "none");
        EXPECT_EQ(format.read("2254567"), "none");
        EXPECT_EQ(format.read("1054 PM"), "22:54:0");
    }
}

TEST(LocaleTime, TheTailIsSteppedOverByItsLength) {
    const Format format("22h54m56sec");
    EXPECT_EQ(format.read("22h54m56sec"), "22:54:56");
    EXPECT_EQ(format.read("22:54:56abc"), "22:54:56");
    EXPECT_EQ(format.read("22:54sec"), "22:54:0");
    EXPECT_EQ(format.read("22:54:56se"), "22:54:56");
    EXPECT_EQ(format.read("22:54:56secs"), "none");
    EXPECT_EQ(format.read("10:54:56secPM"), "22:54:56");
    EXPECT_EQ(format.read("10:54:56sec PM"), "22:54:56");
    for (const char* blank : {" ", "\t", "\n"}) {
        EXPECT_EQ(format.read("10:54" + std::string(blank) + "PM"), "22:54:0") << "no tail there";
    }
}

TEST(LocaleTime, AMarkerTellsTheHalfOfTheDay) {
    const Format format("10:54:56 PM");
    EXPECT_EQ(format.read("10:54:56 PM"), "22:54:56");
    EXPECT_EQ(format.read("10:54:56 AM"), "10:54:56");
    EXPECT_EQ(format.read("10:54 pm"), "22:54:0");
    EXPECT_EQ(format.read("10:54Pm"), "22:54:0");
    EXPECT_EQ(format.read("10:54 \t pM"), "22:54:0");
    EXPECT_EQ(format.read("PM10:54"), "22:54:0");
    EXPECT_EQ(format.read(" am10:54"), "10:54:0");
    EXPECT_EQ(format.read("PM 10:54"), "none") << "a digit stands behind the marker";
    EXPECT_EQ(format.read("PM10:54 PM"), "none");
    EXPECT_EQ(format.read("AM10:54 PM"), "none");
    EXPECT_EQ(format.read("10:54 P"), "none");
    EXPECT_EQ(format.read("10:54 PMx"), "none");
    EXPECT_EQ(format.read("10:54 PM PM"), "none");
    EXPECT_EQ(format.read("PM"), "none");
}

TEST(LocaleTime, HoursOfTwelveBecomeHoursOfTwentyFour) {
    const Format format("10:54:56 PM");
    for (int hour = 0; hour < 25; ++hour) {
        const std::string text = std::to_string(hour) + ":30";
        const auto at = [](int result) { return std::to_string(result) + ":30:0"; };
        EXPECT_EQ(format.read(text), hour < 24 ? at(hour) : "none");
        const bool onDial = hour >= 1 && hour <= 12;
        EXPECT_EQ(format.read(text + " AM"), !onDial ? "none" : hour == 12 ? at(0) : at(hour));
        EXPECT_EQ(format.read(text + " PM"), !onDial      ? "none"
                                             : hour == 12 ? at(12)
                                                          : at(hour + 12));
    }
}

TEST(LocaleTime, FieldsHaveTheirRanges) {
    const Format format("22:54:56");
    EXPECT_EQ(format.read("23:59:59"), "23:59:59");
    EXPECT_EQ(format.read("24:00:00"), "none");
    EXPECT_EQ(format.read("23:60:00"), "none");
    EXPECT_EQ(format.read("23:59:60"), "none");
}

TEST(LocaleTime, EmptyMarkersAreNotThere) {
    const Format format("22:54:56");
    EXPECT_EQ(format.read("10:54", "", ""), "10:54:0");
    EXPECT_EQ(format.read("10:54 PM", "", "PM"), "22:54:0");
    EXPECT_EQ(format.read("0:54", "", ""), "0:54:0");
    EXPECT_EQ(format.read("10:54 PM", "", ""), "none");
}

TEST(LocaleTime, BlanksMayStandAround) {
    const Format format("22:54:56");
    EXPECT_EQ(format.read(" \t22:54:56 \n"), "22:54:56");
    EXPECT_EQ(format.read("22 :54"), "none");
}

TEST(LocaleTime, AFormatWithoutComponentsHasNoSeparators) {
    for (const char* sample : {"", "hh", "22"}) {
        const Format format(sample);
        EXPECT_EQ(format.read("22:54:56"), "22:54:56");
        EXPECT_EQ(format.read("22h54"), "none");
    }
}

}  // namespace
}  // namespace nolk
