// The texts of instants, both ways.

#include <nolk/core/DateTime.h>

#include <gtest/gtest.h>

#include <cctype>
#include <climits>
#include <cstdio>
#include <random>
#include <sstream>
#include <string>

#include "values/DateTimeSupport.h"
#include "values/TestLocale.h"

namespace nolk {
namespace {

using test::at;
using test::eastern;
using test::gmt;
using test::india;
using test::invalid;

const test::TestLocale locale;

DateTime fromIso(const std::string& text, const TimeZone& zone = gmt) {
    return DateTime(text, DateTime::iso8601, locale, zone);
}

DateTime fromHttp(const std::string& text) {
    return DateTime(text, DateTime::http, locale, eastern);
}

std::string iso(const DateTime& time, const TimeZone& zone = gmt) {
    return time.asString(DateTime::iso8601, locale, zone);
}

std::string http(const DateTime& time) {
    return time.asString(DateTime::http, locale, eastern);
}

TEST(DateTimeText, FormatsWithLocaleAndZone) {
    const DateTime time = at(2010, 7, 1, 3, 49, 37);
    EXPECT_EQ(time.asString('B', locale, eastern), "Juni");
    EXPECT_EQ(time.asString('c', locale, eastern), "2010-06-30 23:49:37 wday 3 yday 180 isdst 1");
    EXPECT_EQ(time.asString("%d.%m.%Y %Z", locale, eastern), "30.6.2010 EDT");
    EXPECT_EQ(time.asString("%d.%m.%Y %Z", locale, gmt), "1.7.2010 GMT");
    const char* none = nullptr;
    EXPECT_EQ(time.asString(none, locale, gmt), "");
}

TEST(DateTimeText, IsoOfAWholeSecondHasNoMilliseconds) {
    EXPECT_EQ(iso(at(1994, 11, 6, 8, 49, 37)), "1994-11-06T08:49:37Z");
    EXPECT_EQ(iso(at(1994, 11, 6, 8, 49, 37, 5)), "1994-11-06T08:49:37,005Z");
    EXPECT_EQ(iso(at(1900, 1, 2, 3, 4, 5, 678)), "1900-01-02T03:04:05,678Z");
    EXPECT_EQ(iso(at(7, 1, 2)), "0007-01-02T00:00:00Z");
    EXPECT_EQ(iso(at(12345, 12, 31, 23, 59, 59, 999)), "12345-12-31T23:59:59,999Z");
}

TEST(DateTimeText, IsoTellsTheOffsetOfTheZone) {
    const DateTime time = at(2010, 1, 15, 12);
    const struct {
        long secondsWest;
        const char* text;
    } rows[] = {
        {0, "2010-01-15T12:00:00Z"},
        {18000, "2010-01-15T07:00:00-05:00"},
        {12600, "2010-01-15T08:30:00-03:30"},
        {300, "2010-01-15T11:55:00-00:05"},
        {-3600, "2010-01-15T13:00:00+01:00"},
        {-43200, "2010-01-16T00:00:00+12:00"},
        // Half hours east of GMT have negative minutes.
        {-19800, "2010-01-15T17:30:00+05:-30"},
        {-20700, "2010-01-15T17:45:00+05:-45"},
        {-300, "2010-01-15T12:05:00+00:-5"},
        // Seconds of an offset show nowhere, and the second is that of the instant.
        {30, "2010-01-15T11:59:00-00:00"},
        {-3630, "2010-01-15T13:00:00+01:00"},
        {-90, "2010-01-15T12:01:00+00:-1"},
        {360000, "2010-01-11T08:00:00-100:00"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(iso(time, TimeZoneSimple(row.secondsWest, "x")), row.text);
    }
}

TEST(DateTimeText, IsoTellsTheOffsetOfDaylightTimeWhereItHolds) {
    EXPECT_EQ(iso(at(2010, 7, 1), eastern), "2010-06-30T20:00:00-04:00");
    EXPECT_EQ(iso(at(2010, 1, 1), eastern), "2009-12-31T19:00:00-05:00");
    EXPECT_EQ(iso(at(2010, 7, 1), test::newfoundland), "2010-06-30T21:30:00-02:30");
    EXPECT_EQ(iso(at(2010, 11, 7, 5, 59, 59), eastern), "2010-11-07T01:59:59-04:00");
    EXPECT_EQ(iso(at(2010, 11, 7, 6), eastern), "2010-11-07T01:00:00-05:00");
}

TEST(DateTimeText, HttpIsInGmtWhateverTheZone) {
    EXPECT_EQ(http(at(1994, 11, 6, 8, 49, 37, 999)), "Sun, 06 Nov 1994 08:49:37 GMT");
    EXPECT_EQ(http(at(7, 1, 2, 3, 4, 5)), "Tue, 02 Jan 0007 03:04:05 GMT");
    const char* days[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    const char* months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    for (unsigned i = 0; i < 7; ++i) {
        EXPECT_EQ(http(at(1994, 11, 6 + i)).substr(0, 3), days[i]);
    }
    for (unsigned month = 1; month <= 12; ++month) {
        EXPECT_EQ(http(at(1994, month, 1)).substr(8, 3), months[month - 1]);
    }
}

TEST(DateTimeText, AFormatThatIsNoneGivesInvalidAndAnEmptyText) {
    for (const int number : {-1, 2, INT_MAX, INT_MIN}) {
        const auto format = static_cast<DateTime::Format>(number);
        EXPECT_EQ(DateTime("1994-11-06T08:49:37Z", format, locale, gmt), invalid);
        EXPECT_EQ(at(1994, 11, 6).asString(format, locale, gmt), "");
        EXPECT_EQ(invalid.asString(format, locale, gmt), "");
    }
}

TEST(DateTimeText, IsoIsReadInTheZoneThatItNames) {
    const DateTime expected = at(1994, 11, 6, 8, 49, 37, 5);
    for (const char* text :
         {"1994-11-06T08:49:37.005Z", "1994-11-06T08:49:37,005Z", "19941106T084937.005Z",
          "1994-310T08:49:37.005Z", "1994-W44-7T08:49:37.005Z", "1994-11-06T10:19:37.005+01:30",
          "1994-11-05T20:49:37.005-12", "1994-11-06T08:49:37.005+00:00"}) {
        EXPECT_EQ(fromIso(text, eastern), expected) << text;
        EXPECT_EQ(fromIso(text, gmt), expected) << text;
    }
}

TEST(DateTimeText, IsoWithoutAZoneIsReadInTheGivenOneWithItsMilliseconds) {
    EXPECT_EQ(fromIso("1994-11-06T08:49:37.005", gmt), at(1994, 11, 6, 8, 49, 37, 5));
    EXPECT_EQ(fromIso("1994-11-06T08:49:37.005", eastern), at(1994, 11, 6, 13, 49, 37, 5));
    EXPECT_EQ(fromIso("2010-07-01T00:00:00.005", eastern), at(2010, 7, 1, 4, 0, 0, 5));
    EXPECT_EQ(fromIso("1994-11-06T08:49", india), at(1994, 11, 6, 3, 19));
    EXPECT_EQ(fromIso("2010-03-14T02:30:00", eastern), invalid);
    EXPECT_EQ(fromIso("2010-03-14T02:30:00Z", eastern), at(2010, 3, 14, 2, 30));
}

TEST(DateTimeText, IsoTakesHoursAndDaysAsTheParserDoes) {
    EXPECT_EQ(fromIso("1994-11-06T25:00:00Z"), at(1994, 11, 7, 1));
    EXPECT_EQ(fromIso("2001-02-31T00:00:00Z"), at(2001, 3, 3));
    EXPECT_EQ(fromIso("0001-01-01T00:00:00Z"), at(1, 1, 1));
    EXPECT_EQ(fromIso("4095-12-31T00:00:00Z"), at(4095, 12, 31));
}

TEST(DateTimeText, WhatIsNoCompleteIsoDateAndTimeIsInvalid) {
    for (const char* text :
         {"", "x", "1994-11-06", "T08:49:37Z", "1994-11-06T", "1994-11-06 08:49:37Z",
          "1994-11-06T08:49:37x", "1994-11-06T08:49:37.0005Z", "1994-13-06T08:49:37Z",
          "1994-11-32T08:49:37Z", "0000-01-01T00:00:00Z", "Sun, 06 Nov 1994 08:49:37 GMT"}) {
        EXPECT_EQ(fromIso(text), invalid) << text;
    }
}

TEST(DateTimeText, IsoTextEndsAtAZeroByte) {
    EXPECT_EQ(fromIso(std::string("1994-11-06T08:49:37Z\0x", 22)), at(1994, 11, 6, 8, 49, 37));
}

TEST(DateTimeText, WhatIsWrittenInIsoIsReadBack) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i) {
        // The years 1000 to 4000.
        const DateTime time =
            at(1000, 1, 1) + static_cast<long long>(random() % (3000ull * 365 * 86400000));
        EXPECT_EQ(fromIso(iso(time), eastern), time);
        EXPECT_EQ(fromIso(iso(time, eastern), gmt), time);
        EXPECT_EQ(fromIso(iso(time, test::newfoundland), gmt), time);
        EXPECT_EQ(fromHttp(http(time)), time - time.milliSecond());
    }
}

TEST(DateTimeText, TheThreeFormsOfHttpAreOneInstant) {
    const DateTime expected = at(1994, 11, 6, 8, 49, 37);
    EXPECT_EQ(fromHttp("Sun, 06 Nov 1994 08:49:37 GMT"), expected);
    EXPECT_EQ(fromHttp("Sunday, 06-Nov-94 08:49:37 GMT"), expected);
    EXPECT_EQ(fromHttp("Sun Nov  6 08:49:37 1994"), expected);
}

TEST(DateTimeText, HttpIsToldByTheNumberOfItsWords) {
    const DateTime expected = at(1994, 11, 6, 8, 49, 37);
    const struct {
        const char* text;
        DateTime time;
    } rows[] = {
        {"", invalid},
        {"Sun,", invalid},
        {"Sun, 06", invalid},
        {"Sun, 06 Nov", invalid},
        {"Sun, 06 Nov 1994", invalid},
        {"   \t\n", invalid},
        // Week days and zones can be anything.
        {"x 06 nOV 1994 08:49:37 y", expected},
        {"x 06 November 1994 08:49:37 +0500", expected},
        {"x 06 Nov 1994 08:49:37 y and more words", expected},
        {" x\t06\nNov 1994   08:49:37 y ", expected},
        {"x 06-NOVEMBER-94 08:49:37 y", expected},
        {"x nov 06 08:49:37 1994", expected},
        // Other delimiters make no words.
        {"x\r06 Nov 1994 08:49:37 y", invalid},
        // Months are known by their English names alone.
        {"x 06 Dezember 1994 08:49:37 y", invalid},
        {"x 06 No 1994 08:49:37 y", invalid},
        {"x 06 Novem 1994 08:49:37 y", invalid},
        {"x 06-- 08:49:37 y", invalid},
        {"x 06--Nov--94 08:49:37 y", expected},
        {"x 06-Nov-94-95 08:49:37 y", expected},
        // What is no number is 0, and days are checked.
        {"x six Nov 1994 08:49:37 y", invalid},
        {"x 31 Nov 1994 08:49:37 y", invalid},
        {"x -6 Nov 1994 08:49:37 y", invalid},
        {"x +6th Nov 1994 08:49:37 y", expected},
        {"x 06 Nov 1994 08:49:37.5 y", expected},
        {"x 06 Nov 1994 :08::49:37: y", expected},
        {"x 06 Nov 1994 08:49 y", at(1994, 11, 6, 8, 49)},
        {"x 06 Nov 1994 noon y", at(1994, 11, 6)},
        {"x 06 Nov 1994 25:61:61 y", at(1994, 11, 7, 2, 2, 1)},
        {"x 06 Nov 94 08:49:37 y", at(94, 11, 6, 8, 49, 37)},
        {"x 99999999999999999999 Nov 1994 08:49:37 y", invalid},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(fromHttp(row.text), row.time) << row.text;
    }
}

TEST(DateTimeText, HttpKnowsAllMonths) {
    const char* months[] = {"January", "February", "March",     "April",   "May",      "June",
                            "July",    "August",   "September", "October", "November", "December"};
    for (unsigned month = 1; month <= 12; ++month) {
        const std::string name = months[month - 1];
        std::string upper = name;
        for (char& c : upper) {
            c = static_cast<char>(std::toupper(c));
        }
        for (const std::string& text : {name, name.substr(0, 3), upper, upper.substr(0, 3)}) {
            EXPECT_EQ(fromHttp("x 06 " + text + " 1994 00:00:00 y"), at(1994, month, 6)) << text;
        }
    }
}

TEST(DateTimeText, ATwoDigitYearInHttpIsNearThePresentOne) {
    const unsigned now = DateTime::now().yearGMT();
    const unsigned century = now / 100 * 100;
    for (unsigned year = 0; year < 100; ++year) {
        char text[64];
        std::snprintf(text, sizeof text, "x 06-Nov-%02u 00:00:00 y", year);
        const unsigned expected = now % 100 + 50 <= year ? century + year - 100 : century + year;
        ASSERT_EQ(fromHttp(text), at(expected, 11, 6)) << text;
    }
    // Years of more digits are counted on from the century alike.
    ASSERT_EQ(fromHttp("x 06-Nov-1994 00:00:00 y"), at(century + 1894, 11, 6));
}

TEST(DateTimeText, ADateInTheLocalesFormIsMidnightInTheZone) {
    EXPECT_EQ(DateTime("6.11.1994", DateTime::setDate, locale, eastern), at(1994, 11, 6, 5));
    EXPECT_EQ(DateTime("6.11.1994", DateTime::setDate, locale, gmt), at(1994, 11, 6));
    EXPECT_EQ(DateTime("31.11.1994", DateTime::setDate, locale, gmt), invalid);
    EXPECT_EQ(DateTime("8-49", DateTime::setDate, locale, gmt), invalid);
    EXPECT_EQ(DateTime("", DateTime::setDate, locale, gmt), invalid);
}

TEST(DateTimeText, ATimeInTheLocalesFormIsToday) {
    for (;;) {
        const Date before = DateTime::now().toDate(TimeZone::local());
        const DateTime inIndia("8-49", DateTime::setTime, locale, india);
        const DateTime inGmt("8-49", DateTime::setTime, locale, gmt);
        if (DateTime::now().toDate(TimeZone::local()) == before) {
            EXPECT_EQ(inGmt, DateTime(before, 8, 49, 59, 0, gmt));
            EXPECT_EQ(inIndia, DateTime(before, 8, 49, 59, 0, india));
            break;
        }
    }
    EXPECT_EQ(DateTime("6.11.1994", DateTime::setTime, locale, gmt), invalid);
}

TEST(DateTimeText, ADateAndATimeStandOnBothSidesOfASemicolon) {
    const DateTime expected = at(1994, 11, 6, 13, 49, 59);
    for (const char* text : {"6.11.1994;8-49", ";6.11.1994;8-49", ";;;6.11.1994;8-49"}) {
        EXPECT_EQ(DateTime(text, DateTime::setBoth, locale, eastern), expected) << text;
    }
    for (const char* text : {"", ";", ";;", "6.11.1994", "6.11.1994 8-49", "6.11.1994;", ";8-49",
                             "6.11.1994;8-49;", "6.11.1994;;8-49", "8-49;6.11.1994"}) {
        EXPECT_EQ(DateTime(text, DateTime::setBoth, locale, eastern), invalid) << text;
    }
}

TEST(DateTimeText, ASetTypeThatIsNoneIsInvalid) {
    for (const int number : {-1, 3, INT_MAX}) {
        EXPECT_EQ(DateTime("6.11.1994", static_cast<DateTime::SetType>(number), locale, gmt),
                  invalid);
    }
}

TEST(DateTimeText, IsWrittenToStreamsInIsoAndGmt) {
    std::ostringstream stream;
    stream << at(1994, 11, 6, 8, 49, 37) << ' ' << at(1994, 11, 6, 8, 49, 37, 5) << ' '
           << test::null << ' ' << invalid << ' ' << test::past << ' ' << DateTime::userSentinel(1);
    EXPECT_EQ(stream.str(),
              "1994-11-06T08:49:37Z 1994-11-06T08:49:37,005Z NULL #INVALID# #INVALID# #INVALID#");
}

}  // namespace
}  // namespace nolk
