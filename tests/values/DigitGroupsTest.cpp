#include "nolk/core/values/DigitGroups.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace nolk {
namespace {

const std::string endless(1, static_cast<char>(CHAR_MAX));

TEST(DigitGroups, AreWrittenFromTheRight) {
    const std::string minusOne = "\3\xFF";
    const struct {
        const char* digits;
        std::string grouping;
        const char* separator;
        const char* text;
    } rows[] = {
        {"1", "\3", ",", "1"},
        {"123", "\3", ",", "123"},
        {"1234", "\3", ",", "1,234"},
        {"123456", "\3", ",", "123,456"},
        {"1234567", "\3", ",", "1,234,567"},
        {"1234567", "", ",", "1234567"},
        {"1234567", "\3", "", "1234567"},
        {"123456789", "\3\2", ",", "12,34,56,789"},
        {"123456789", "\3\2\1", ",", "1,2,3,4,56,789"},
        {"123456789", "\3" + endless, ",", "123456,789"},
        {"123456789", endless + "\3", ",", "123456789"},
        {"123456789", minusOne, ",", "123456,789"},
        {"1234567", "\3", "\xE2\x80\xAF",
         "1\xE2\x80\xAF"
         "234\xE2\x80\xAF"
         "567"},
        {"", "\3", ",", ""},
    };
    for (const auto& row : rows) {
        std::string text = "in front ";
        appendGrouped(text, row.digits, row.grouping, row.separator);
        EXPECT_EQ(text, std::string("in front ") + row.text) << row.digits;
    }
}

TEST(DigitGroups, AreReadIfTheyAreThoseOfTheGrouping) {
    const std::string minusOne = "\3\xFF";
    const struct {
        const char* text;
        std::string grouping;
        bool matches;
    } rows[] = {
        {"1234567", "\3", true},
        {"1,234,567", "\3", true},
        {"123,456", "\3", true},
        {"1234,567", "\3", false},
        {"1,23,456", "\3", false},
        {"1,2345", "\3", false},
        {"1,23", "\3", false},
        {"1,234", "", false},
        {"1234", "", true},
        {"12,34,56,789", "\3\2", true},
        {"123,456,789", "\3\2", false},
        {"1,23,456", "\3\2", true},
        {"123456,789", "\3" + endless, true},
        {"123,456,789", "\3" + endless, false},
        {"123456,789", minusOne, true},
        {"1,234", endless, false},
    };
    for (const auto& row : rows) {
        DigitGroups groups;
        std::string_view text = row.text;
        EXPECT_TRUE(groups.take(text, ","));
        EXPECT_EQ(text, "") << row.text;
        EXPECT_EQ(groups.match(row.grouping), row.matches) << row.text;
    }
}

TEST(DigitGroups, ASeparatorStandsBetweenDigits) {
    const struct {
        const char* text;
        const char* digits;
        const char* rest;
    } rows[] = {
        {"1,234", "1234", ""},    {"1,234,", "1234", ","},  {",234", "", ",234"},
        {"1,,234", "1", ",,234"}, {"1 ,234", "1", " ,234"}, {"", "", ""},
        {"x", "", "x"},           {"1,x", "1", ",x"},
    };
    for (const auto& row : rows) {
        DigitGroups groups;
        std::string_view text = row.text;
        EXPECT_TRUE(groups.take(text, ","));
        EXPECT_EQ(groups.digits, row.digits) << row.text;
        EXPECT_EQ(text, row.rest) << row.text;
    }
}

TEST(DigitGroups, MoreSeparatorsThanAskedForFail) {
    std::string_view two = "1,2,3";
    std::string_view three = "1,2,3,4";
    EXPECT_TRUE(DigitGroups().take(two, ",", 2));
    EXPECT_FALSE(DigitGroups().take(three, ",", 2));
}

TEST(DigitGroups, WithoutASeparatorAllDigitsAreOne) {
    DigitGroups groups;
    std::string_view text = "1234,5";
    EXPECT_TRUE(groups.take(text, ""));
    EXPECT_EQ(groups.digits, "1234");
    EXPECT_TRUE(groups.separators.empty());
}

}  // namespace
}  // namespace nolk
