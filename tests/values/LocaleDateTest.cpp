// Dates in orders and by names of the test's choice.

#include "nolk/core/values/LocaleDate.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <string>

#include "values/TestLocale.h"

namespace nolk {
namespace {

using Names = std::array<std::string, 12>;

const Names english = {"January", "February", "March",     "April",   "May",      "June",
                       "July",    "August",   "September", "October", "November", "December"};
const Names shortEnglish = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
const Names japanese = {"1M", "2M", "3M", "4M", "5M", "6M", "7M", "8M", "9M", "10M", "11M", "12M"};

DateForm inOrder(int order) {
    return {english, shortEnglish, true, order};
}

// "year-month-day" of what was read, and "none" where nothing was, with `tm` untouched.
std::string read(const DateForm& form, std::string_view text) {
    std::tm tm{};
    tm.tm_year = tm.tm_mon = tm.tm_mday = tm.tm_hour = tm.tm_min = tm.tm_sec = 77;
    tm.tm_wday = tm.tm_yday = tm.tm_isdst = 77;
    const std::string before = test::TestLocale::all(tm);
    if (!readDate(form, text, &tm)) {
        EXPECT_EQ(test::TestLocale::all(tm), before);
        return "none";
    }
    const std::string date = std::to_string(tm.tm_year + 1900) + "-" +
                             std::to_string(tm.tm_mon + 1) + "-" + std::to_string(tm.tm_mday);
    tm.tm_year = tm.tm_mon = tm.tm_mday = 77;
    EXPECT_EQ(test::TestLocale::all(tm), before) << "nothing else is set";
    return date;
}

TEST(LocaleDate, FieldsComeInTheOrderOfTheLocale) {
    EXPECT_EQ(read(inOrder(0), "3/2/1994"), "1994-2-3");
    EXPECT_EQ(read(inOrder(1), "3/2/1994"), "1994-3-2");
    EXPECT_EQ(read(inOrder(2), "1994/3/2"), "1994-2-3");
    EXPECT_EQ(read(inOrder(3), "1994/3/2"), "1994-3-2");
}

TEST(LocaleDate, FieldsHaveTheirWidths) {
    EXPECT_EQ(read(inOrder(0), "03021994"), "1994-2-3");
    EXPECT_EQ(read(inOrder(1), "03021994"), "1994-3-2");
    EXPECT_EQ(read(inOrder(2), "19940302"), "1994-2-3");
    EXPECT_EQ(read(inOrder(3), "19940302"), "1994-3-2");
    EXPECT_EQ(read(inOrder(0), "1994/3/2"), "none") << "19, 94 and 3, and a trailing 2";
    EXPECT_EQ(read(inOrder(3), "3/2/1994"), "none");
    EXPECT_EQ(read(inOrder(0), "3/2/19940"), "none");
    EXPECT_EQ(read(inOrder(0), "003/2/1994"), "none");
}

TEST(LocaleDate, AnythingSeparatesNumbers) {
    for (const char* text :
         {"3.2.1994", "3-2-1994", "3 2 1994", "3, 2 - 1994", " 3x2\t1994 ", "on 3.2. in 1994, noon",
          "3\xE5\xB9\xB4"
          "2\xFF"
          "1994"}) {
        EXPECT_EQ(read(inOrder(0), text), "1994-2-3") << text;
    }
}

TEST(LocaleDate, ThreeNumbersAreADate) {
    for (const char* text : {"", " ", "x", "3", "3.2", "3.2.", "3.2.1994 4", "3.2.1994.4"}) {
        EXPECT_EQ(read(inOrder(0), text), "none") << text;
    }
}

TEST(LocaleDate, AMonthHasItsNameAnywhere) {
    for (const char* text :
         {"6 November 1994", "November 6 1994", "6 1994 November", "6. NOVEMBER 1994",
          "Sunday, 6-nov-94", "6Nov1994", "Nov 6, 1994", "6 Nov  1994", "xNovembery 6 1994"}) {
        EXPECT_EQ(read(inOrder(0), text), "1994-11-6") << text;
        EXPECT_EQ(read(inOrder(1), text), "1994-11-6") << text;
    }
    for (const char* text : {"1994 November 6", "November 1994, 6", "1994 6 Nov"}) {
        EXPECT_EQ(read(inOrder(2), text), "1994-11-6") << text;
        EXPECT_EQ(read(inOrder(3), text), "1994-11-6") << text;
    }
}

TEST(LocaleDate, WithANameTwoNumbersAreADate) {
    for (const char* text : {"November", "6 November", "6 November 1994 7", "6 7 November 1994"}) {
        EXPECT_EQ(read(inOrder(0), text), "none") << text;
    }
}

TEST(LocaleDate, EachNameIsFound) {
    for (std::size_t i = 0; i < 12; ++i) {
        const std::string date = "1994-" + std::to_string(i + 1) + "-6";
        EXPECT_EQ(read(inOrder(0), "6 " + english[i] + " 1994"), date);
        EXPECT_EQ(read(inOrder(0), "6 " + shortEnglish[i] + " 1994"), date);
    }
}

TEST(LocaleDate, LaterMonthsAreLookedForFirstAndLongNamesBeforeShortOnes) {
    EXPECT_EQ(read(inOrder(0), "6 January December 1994"), "1994-12-6");
    EXPECT_EQ(read(inOrder(0), "6 January Dec 1994"), "1994-1-6");
    EXPECT_EQ(read(inOrder(0), "6 Jan Dec 1994"), "1994-12-6");
}

TEST(LocaleDate, NamesAreUsedOnlyIfMonthsHaveAny) {
    const DateForm numeric{english, shortEnglish, false, 0};
    EXPECT_EQ(read(numeric, "6 November 1994"), "none");
    EXPECT_EQ(read(numeric, "6 November 2 1994"), "1994-2-6");
}

TEST(LocaleDate, EmptyNamesAreNowhere) {
    const Names empty;
    EXPECT_EQ(read({empty, empty, true, 0}, "6.2.1994"), "1994-2-6");
}

TEST(LocaleDate, NamesMayHoldDigits) {
    const DateForm form{japanese, japanese, true, 3};
    for (int month = 1; month <= 12; ++month) {
        const std::string number = std::to_string(month);
        const std::string padded = month < 10 ? "0" + number : number;
        const std::string date = "1994-" + number + "-6";
        EXPECT_EQ(read(form, "1994Y" + number + "M06D"), date);
        EXPECT_EQ(read(form, "1994Y" + padded + "M06D"), date);
        EXPECT_EQ(read(form, "1994 6 " + number + "M"), date) << "the name isn't a trailing number";
        EXPECT_EQ(read(form, "1994/" + padded + "/06"), date);
    }
    EXPECT_EQ(read(form, "199411M06"), "1994-11-6");
}

TEST(LocaleDate, YearsBelowAHundredAreOfTheTwentiethCentury) {
    const struct {
        const char* text;
        const char* date;
    } rows[] = {
        {"3.2.94", "1994-2-3"},   {"3.2.0", "1900-2-3"},  {"3.2.7", "1907-2-3"},
        {"3.2.99", "1999-2-3"},   {"3.2.100", "100-2-3"}, {"3.2.0094", "1994-2-3"},
        {"3.2.9999", "9999-2-3"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(read(inOrder(0), row.text), row.date) << row.text;
    }
}

TEST(LocaleDate, TheDayIsOneOfTheMonth) {
    const int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month) {
        for (int day = 0; day <= 32; ++day) {
            const std::string text = std::to_string(day) + "." + std::to_string(month) + ".1995";
            const bool exists = day >= 1 && day <= lengths[month - 1];
            EXPECT_EQ(read(inOrder(0), text) != "none", exists) << text;
        }
    }
    EXPECT_EQ(read(inOrder(0), "3.0.1994"), "none");
    EXPECT_EQ(read(inOrder(0), "3.13.1994"), "none");
}

TEST(LocaleDate, February29NeedsALeapYear) {
    EXPECT_EQ(read(inOrder(0), "29.2.1996"), "1996-2-29");
    EXPECT_EQ(read(inOrder(0), "29.2.2000"), "2000-2-29");
    EXPECT_EQ(read(inOrder(0), "29 February 96"), "1996-2-29");
    EXPECT_EQ(read(inOrder(0), "29.2.0"), "none") << "1900";
    EXPECT_EQ(read(inOrder(0), "29.2.1995"), "none");
    EXPECT_EQ(read(inOrder(0), "29 Feb 1900"), "none");
}

}  // namespace
}  // namespace nolk
