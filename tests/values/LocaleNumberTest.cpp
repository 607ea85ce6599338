// Numbers by conventions that no locale of the run-time library needs to have.

#include "nolk/core/values/LocaleNumber.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <string>

#include "support/RuntimeLocale.h"
#include "values/MadeLocale.h"

namespace nolk {
namespace {

using test::MadeLocale;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

MadeLocale german() {
    MadeLocale locale;
    locale.point = ",";
    locale.separator = ".";
    return locale;
}

MadeLocale signedLocale() {
    MadeLocale locale;
    locale.positive = "plus ";
    locale.negative = "minus ";
    return locale;
}

TEST(LocaleNumber, DoublesAreWrittenWithTheirPrecision) {
    const MadeLocale locale;
    const struct {
        double value;
        int precision;
        const char* text;
    } rows[] = {
        {0, 0, "0"},
        {0, 2, "0.00"},
        {-0.0, 1, "-0.0"},
        {1234567.891, 2, "1,234,567.89"},
        {-1234567.891, 1, "-1,234,567.9"},
        {0.5, 0, "0"},  // halves go to the even digit
        {1.5, 0, "2"},
        {2.5, 0, "2"},
        {0.125, 2, "0.12"},
        {-0.001, 2, "-0.00"},
        {999.5, 0, "1,000"},
        {0.1, 20, "0.10000000000000000555"},
        {1.5, -1, "1.500000"},
        {1e21, 0, "1,000,000,000,000,000,000,000"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(writeNumber(locale, row.value, row.precision, true), row.text);
    }
}

TEST(LocaleNumber, AnyPrecisionIsPossible) {
    const MadeLocale locale;
    EXPECT_EQ(writeNumber(locale, 0.5, 2000, false), "0.5" + std::string(1999, '0'));
    const std::string smallest =
        writeNumber(locale, std::numeric_limits<double>::denorm_min(), 1080, false);
    EXPECT_EQ(smallest.size(), 1082u);
    EXPECT_EQ(smallest.substr(0, 330), "0." + std::string(323, '0') + "49406");
    EXPECT_EQ(smallest.substr(1070),
              "265625000000");  // the end of 5 to the power of 1074, and padding
    const std::string largest = writeNumber(locale, std::numeric_limits<double>::max(), 1, false);
    EXPECT_EQ(largest.size(), 311u);
    EXPECT_EQ(largest.substr(0, 17), "17976931348623157");
}

TEST(LocaleNumber, GroupsAreShownOnRequest) {
    EXPECT_EQ(writeNumber(german(), 1234567.5, 1, true), "1.234.567,5");
    EXPECT_EQ(writeNumber(german(), 1234567.5, 1, false), "1234567,5");
}

TEST(LocaleNumber, SignsAreTheLocales) {
    const MadeLocale locale = signedLocale();
    EXPECT_EQ(writeNumber(locale, 1.5, 1, true), "plus 1.5");
    EXPECT_EQ(writeNumber(locale, 0.001, 1, true), "plus 0.0");
    EXPECT_EQ(writeNumber(locale, 0.0, 1, true), "0.0");
    EXPECT_EQ(writeNumber(locale, -1.5, 1, true), "minus 1.5");
    EXPECT_EQ(writeNumber(locale, 1000L), "plus 1,000");
    EXPECT_EQ(writeNumber(locale, 1000UL), "plus 1,000");
    EXPECT_EQ(writeNumber(locale, 0L), "0");
    EXPECT_EQ(writeNumber(locale, 0UL), "0");
    EXPECT_EQ(writeNumber(locale, -1000L), "minus 1,000");
}

TEST(LocaleNumber, WithoutANegativeSignThereIsAHyphen) {
    MadeLocale locale;
    locale.negative = "";
    EXPECT_EQ(writeNumber(locale, -1.5, 1, true), "-1.5");
    EXPECT_EQ(writeNumber(locale, -15L), "-15");
}

TEST(LocaleNumber, WhatIsNotFiniteHasNoMarksOfTheLocale) {
    const MadeLocale locale = signedLocale();
    EXPECT_EQ(writeNumber(locale, infinity, 2, true), "inf");
    EXPECT_EQ(writeNumber(locale, -infinity, 2, true), "-inf");
    EXPECT_EQ(writeNumber(locale, std::copysign(nan, 1.0), 2, true), "nan");
}

TEST(LocaleNumber, IntegersGoToTheEndsOfTheirRange) {
    const MadeLocale locale;
    for (const long value :
         {std::numeric_limits<long>::min(), std::numeric_limits<long>::max(), -1L, 0L, 1L}) {
        std::string digits = writeNumber(locale, value);
        long back = 7;
        EXPECT_TRUE(readNumber(locale, digits, &back)) << digits;
        EXPECT_EQ(back, value);
        std::erase(digits, ',');
        EXPECT_EQ(digits, std::to_string(value));
    }
    const unsigned long largest = std::numeric_limits<unsigned long>::max();
    std::string digits = writeNumber(locale, largest);
    unsigned long back = 7;
    EXPECT_TRUE(readNumber(locale, digits, &back));
    EXPECT_EQ(back, largest);
    std::erase(digits, ',');
    EXPECT_EQ(digits, std::to_string(largest));
}

// One more than the largest, in a text of digits.
std::string next(std::string digits) {
    std::size_t at = digits.size() - 1;
    for (; digits[at] == '9'; --at) {
        digits[at] = '0';
    }
    ++digits[at];
    return digits;
}

TEST(LocaleNumber, WhatIsOutOfRangeIsNotRead) {
    const MadeLocale locale;
    long number = 7;
    unsigned long natural = 7;
    const std::string largest = std::to_string(std::numeric_limits<long>::max());
    EXPECT_FALSE(readNumber(locale, next(largest), &number));
    EXPECT_FALSE(readNumber(locale, "-" + next(next(largest)), &number));
    EXPECT_FALSE(readNumber(locale, largest + "0", &number));
    EXPECT_FALSE(readNumber(locale, next(std::to_string(std::numeric_limits<unsigned long>::max())),
                            &natural));
    EXPECT_FALSE(readNumber(locale, std::string(400, '9'), &natural));
    EXPECT_EQ(number, 7);
    EXPECT_EQ(natural, 7u);
    EXPECT_TRUE(readNumber(locale, std::string(400, '0') + "5", &natural));
    EXPECT_EQ(natural, 5u);
}

TEST(LocaleNumber, IntegersAreRead) {
    const MadeLocale locale = signedLocale();
    const struct {
        const char* text;
        long value;
    } rows[] = {
        {"0", 0},
        {"42", 42},
        {" \t\n\v\f\r42 \t\n\v\f\r", 42},
        {"+42", 42},
        {"-42", -42},
        {"- 42", -42},
        {"+\t42", 42},
        {"plus 42", 42},
        {"minus 42", -42},
        {"minus   42", -42},
        {"-0", 0},
        {"1,234,567", 1234567},
        {"007", 7},
    };
    for (const auto& row : rows) {
        long number = 7;
        EXPECT_TRUE(readNumber(locale, row.text, &number)) << row.text;
        EXPECT_EQ(number, row.value) << row.text;
        unsigned long natural = 7;
        const bool isNegative = std::string(row.text).find_first_of("-m") != std::string::npos;
        EXPECT_EQ(readNumber(locale, row.text, &natural), !isNegative) << row.text;
        EXPECT_EQ(natural, isNegative ? 7ul : static_cast<unsigned long>(row.value)) << row.text;
        double real = 7;
        EXPECT_TRUE(readNumber(locale, row.text, &real)) << row.text;
        EXPECT_EQ(real, static_cast<double>(row.value)) << row.text;
    }
}

TEST(LocaleNumber, WhatIsNoNumberIsNotRead) {
    const MadeLocale locale = signedLocale();
    for (const char* text :
         {"",       " ",   "-",    "+",        "x",    "42x",    "4 2",       "--42", "+-42",
          "- - 42", "42-", "1,23", "1234,567", ",123", "1,,234", "123,",      "0x10", "1e3",
          "1.5e3",  "inf", "nan",  ".",        "-.",   "1.2.3",  "1.234,567", "plus", "minus"}) {
        long number = 7;
        unsigned long natural = 7;
        double real = 7;
        EXPECT_FALSE(readNumber(locale, text, &number)) << text;
        EXPECT_FALSE(readNumber(locale, text, &natural)) << text;
        EXPECT_FALSE(readNumber(locale, text, &real)) << text;
        EXPECT_EQ(number, 7);
        EXPECT_EQ(natural, 7u);
        EXPECT_EQ(real, 7);
    }
}

TEST(LocaleNumber, AByteZeroIsNoBlank) {
    long number = 7;
    EXPECT_FALSE(readNumber(MadeLocale(), std::string_view("42\0", 3), &number));
}

TEST(LocaleNumber, DoublesAreRead) {
    const struct {
        const char* text;
        double value;
    } rows[] = {
        {"1,5", 1.5},
        {"-1,5", -1.5},
        {" + 1,5 ", 1.5},
        {"1.234.567,891", 1234567.891},
        {"1234567,891", 1234567.891},
        {",5", 0.5},
        {"5,", 5},
        {"0,1", 0.1},
        {"0,1000000000000000055511151231257827", 0.1},
        {"9007199254740993", 9007199254740992.0},
    };
    for (const auto& row : rows) {
        double value = 7;
        EXPECT_TRUE(readNumber(german(), row.text, &value)) << row.text;
        EXPECT_EQ(value, row.value) << row.text;
    }
    double value = 7;
    EXPECT_TRUE(readNumber(german(), "-0", &value));
    EXPECT_TRUE(std::signbit(value));
    EXPECT_FALSE(readNumber(german(), "1.5", &value));
    EXPECT_FALSE(readNumber(german(), "1,5,", &value));
    EXPECT_FALSE(readNumber(german(), "1,234.567", &value));
}

TEST(LocaleNumber, IntegersHaveNoFraction) {
    long number = 7;
    EXPECT_FALSE(readNumber(MadeLocale(), "1.0", &number));
    EXPECT_FALSE(readNumber(MadeLocale(), "1.", &number));
}

TEST(LocaleNumber, DoublesBeyondTheirRangeAreInfiniteOrZero) {
    const MadeLocale locale;
    const std::string zeros(400, '0');
    double value = 7;
    EXPECT_TRUE(readNumber(locale, "1" + zeros, &value));
    EXPECT_EQ(value, infinity);
    EXPECT_TRUE(readNumber(locale, "-1" + zeros, &value));
    EXPECT_EQ(value, -infinity);
    EXPECT_TRUE(readNumber(locale, "0." + zeros + "1", &value));
    EXPECT_EQ(value, 0);
}

TEST(LocaleNumber, MarksMayBeOfSeveralBytes) {
    MadeLocale locale;
    locale.separator = "\xE2\x80\xAF";
    locale.point = "\xD9\xAB";
    const std::string text =
        "12\xE2\x80\xAF"
        "345\xD9\xAB"
        "5";
    EXPECT_EQ(writeNumber(locale, 12345.5, 1, true), text);
    double value = 7;
    EXPECT_TRUE(readNumber(locale, text, &value));
    EXPECT_EQ(value, 12345.5);
    EXPECT_FALSE(readNumber(locale,
                            "12\xE2\x80"
                            "345",
                            &value));
}

TEST(LocaleNumber, BlanksThatSeparateGroupsAlsoStandBehind) {
    MadeLocale locale;
    locale.separator = " ";
    long value = 7;
    EXPECT_TRUE(readNumber(locale, "1 234 567  ", &value));
    EXPECT_EQ(value, 1234567);
    EXPECT_TRUE(readNumber(locale, "5 ", &value));
    EXPECT_EQ(value, 5);
    EXPECT_FALSE(readNumber(locale, "1 23", &value));
}

TEST(LocaleNumber, IndianGroupsAreThreeThenTwo) {
    MadeLocale locale;
    locale.groups = "\3\2";
    EXPECT_EQ(writeNumber(locale, 123456789L), "12,34,56,789");
    long value = 7;
    EXPECT_TRUE(readNumber(locale, "12,34,56,789", &value));
    EXPECT_EQ(value, 123456789);
    EXPECT_FALSE(readNumber(locale, "123,456,789", &value));
}

TEST(LocaleNumber, WithoutADecimalPointThereIsNoFraction) {
    MadeLocale locale;
    locale.point = "";
    double value = 7;
    EXPECT_TRUE(readNumber(locale, "15", &value));
    EXPECT_FALSE(readNumber(locale, "1.5", &value));
    EXPECT_EQ(writeNumber(locale, 1.5, 1, true), "15");
}

// printf and strtod would write and read a comma here.
TEST(LocaleNumber, TheLocaleOfTheProcessDoesNotShow) {
    const test::RuntimeLocales locales;
    ASSERT_NE(std::setlocale(LC_ALL, test::runtimeName(test::Culture::german)), nullptr);
    double value = 7;
    const std::string text = writeNumber(MadeLocale(), 1.5, 2, true);
    const bool isRead = readNumber(MadeLocale(), "1.5", &value);
    std::setlocale(LC_ALL, "C");
    EXPECT_EQ(text, "1.50");
    EXPECT_TRUE(isRead);
    EXPECT_EQ(value, 1.5);
}

}  // namespace
}  // namespace nolk
