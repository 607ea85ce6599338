// Amounts by conventions that no locale of the run-time library needs to have.

#include "nolk/core/values/LocaleMoney.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <string>

#include "values/MadeLocale.h"

namespace nolk {
namespace {

using test::MadeLocale;

constexpr Locale::CurrSymbol noSymbol = Locale::NoSymbol;
constexpr Locale::CurrSymbol local = Locale::LocalSymbol;
constexpr Locale::CurrSymbol international = Locale::IntlSymbol;

// One pattern for both signs.
MoneyForm formOf(const char* pattern) {
    return {pattern, pattern, 100, 100};
}

std::string pattern(char precedes, char posn) {
    return std::string(moneyPattern(precedes, posn), 4);
}

double readOr(double otherwise, const Locale& locale, const char* text,
              Locale::CurrSymbol symbol = local) {
    double value = otherwise;
    const bool isRead = readMoney(locale, text, &value, symbol);
    EXPECT_EQ(isRead, value != otherwise) << text;
    return value;
}

constexpr double unread = 0.125;

TEST(LocaleMoney, HasItsPatternsByPlaceOfSymbolAndSign) {
    const char* const behind[] = {"(m $", "-m $", "m $-", "m- $", "m $-"};
    const char* const before[] = {"($ m", "-$ m", "$ m-", "-$ m", "$ -m"};
    for (char posn = 0; posn < 5; ++posn) {
        EXPECT_EQ(pattern(0, posn), behind[static_cast<int>(posn)]);
        EXPECT_EQ(pattern(1, posn), before[static_cast<int>(posn)]);
        EXPECT_EQ(pattern(static_cast<char>(CHAR_MAX), posn), before[static_cast<int>(posn)]);
    }
}

TEST(LocaleMoney, IsWrittenByEachPattern) {
    const struct {
        char precedes;
        char posn;
        const char* close;
        const char* spaced;
    } rows[] = {
        {0, 0, "(12.34$)", "(12.34 $)"}, {0, 1, "-12.34$", "-12.34 $"},
        {0, 2, "12.34$-", "12.34 $-"},   {0, 3, "12.34-$", "12.34- $"},
        {0, 4, "12.34$-", "12.34 $-"},   {1, 0, "($12.34)", "($ 12.34)"},
        {1, 1, "-$12.34", "-$ 12.34"},   {1, 2, "$12.34-", "$ 12.34-"},
        {1, 3, "-$12.34", "-$ 12.34"},   {1, 4, "$-12.34", "$ -12.34"},
    };
    for (const auto& row : rows) {
        MadeLocale locale;
        const MoneyForm form = formOf(moneyPattern(row.precedes, row.posn));
        EXPECT_EQ(writeMoney(locale, form, -1234, local), row.close);
        EXPECT_EQ(readOr(unread, locale, row.close), -1234);
        for (const char by : {1, 2}) {
            locale.negativeSpace = by;
            EXPECT_EQ(writeMoney(locale, form, -1234, local), row.spaced);
            EXPECT_EQ(readOr(unread, locale, row.spaced), -1234);
        }
        locale.negativeSpace = static_cast<char>(CHAR_MAX);
        EXPECT_EQ(writeMoney(locale, form, -1234, local), row.close) << "no telling, no space";
    }
}

TEST(LocaleMoney, SignChoosesPatternAndSeparation) {
    MadeLocale locale;
    locale.negativeSpace = 1;
    const MoneyForm form{moneyPattern(0, 2), moneyPattern(1, 1), 100, 100};
    EXPECT_EQ(writeMoney(locale, form, 1234, local), "12.34$");
    EXPECT_EQ(writeMoney(locale, form, -1234, local), "-$ 12.34");
    EXPECT_EQ(writeMoney(locale, form, 0, local), "0.00$");
    EXPECT_EQ(writeMoney(locale, form, -0.0, local), "0.00$");
    locale.positive = "+";
    EXPECT_EQ(writeMoney(locale, form, 1234, local), "12.34$+");
    EXPECT_EQ(writeMoney(locale, form, 0, local), "0.00$");
    locale.negative = "";
    EXPECT_EQ(writeMoney(locale, form, -1234, local), "-$ 12.34");
}

TEST(LocaleMoney, SymbolIsOnRequest) {
    MadeLocale locale;
    locale.positiveSpace = 1;
    const MoneyForm form = formOf(moneyPattern(0, 1));
    EXPECT_EQ(writeMoney(locale, form, 1234, local), "12.34 $");
    EXPECT_EQ(writeMoney(locale, form, 1234, noSymbol), "12.34 ");  // the blank stays
    EXPECT_EQ(writeMoney(locale, form, 1234, Locale::CurrSymbol(9)), "12.34 ");
}

TEST(LocaleMoney, InternationalFormHasAPatternDigitsAndScaleOfItsOwn) {
    MadeLocale locale;
    locale.internationalDigits = 3;
    const MoneyForm form{moneyPattern(0, 0), moneyPattern(0, 0), 100, 1000};
    EXPECT_EQ(writeMoney(locale, form, 1234567, international), "XTS 1,234.567");
    EXPECT_EQ(writeMoney(locale, form, -1234567, international), "XTS -1,234.567");
    locale.negativeSpace = 1;
    EXPECT_EQ(writeMoney(locale, form, -1234567, international), "XTS -1,234.567 ");
    EXPECT_EQ(readOr(unread, locale, "XTS -1,234.567 ", international), -1234567);
}

TEST(LocaleMoney, NumberHasMarksOfItsOwn) {
    MadeLocale locale;
    locale.moneyPoint = ":";
    locale.moneySeparator = "'";
    locale.moneyGroups = "\2";
    EXPECT_EQ(writeMoney(locale, formOf("-m $"), 1234567, local), "1'23'45:67$");
    EXPECT_EQ(readOr(unread, locale, "1'23'45:67$"), 1234567);
    locale.digits = 0;
    EXPECT_EQ(writeMoney(locale, {"-m $", "-m $", 1, 1}, 1234567, local), "1'23'45'67$");
    EXPECT_EQ(readOr(unread, locale, "1'23'45'67$"), 1234567);
}

TEST(LocaleMoney, WhatIsNotFiniteIsWritten) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(writeMoney(MadeLocale(), formOf("-$ m"), -infinity, local), "-$inf");
    EXPECT_EQ(
        writeMoney(MadeLocale(), formOf("-$ m"), std::numeric_limits<double>::quiet_NaN(), local),
        "$nan");
}

TEST(LocaleMoney, PartsAreReadInAnyOrder) {
    MadeLocale locale;
    locale.positive = "cr";
    locale.negative = "dr";
    const struct {
        const char* text;
        double value;
    } rows[] = {
        {"12.34", 1234},
        {"$12.34", 1234},
        {"12.34$", 1234},
        {"-12.34$", -1234},
        {"12.34-$", -1234},
        {"12.34$-", -1234},
        {"-$12.34", -1234},
        {"$-12.34", -1234},
        {"$12.34-", -1234},
        {" \t$ - 12.34 \n", -1234},
        {"+ $ 12.34", 1234},
        {"12.34 $ +", 1234},
        {"12.34dr", -1234},
        {"dr 12.34 $", -1234},
        {"$12.34 cr", 1234},
        {"(12.34)", -1234},
        {"( 12.34 )  ", -1234},
        {"($12.34)", -1234},
        {"(12.34$)", -1234},
        {"  (  $ 12.34 ) ", -1234},
        {"1,234,567.89", 123456789},
        {"1234567.89", 123456789},
        {"5", 500},
        {".50", 50},
        {"0.05$", 5},
        {"-0.00$", -0.0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(readOr(unread, locale, row.text), row.value) << row.text;
    }
}

TEST(LocaleMoney, WhatIsNoAmountIsNotRead) {
    MadeLocale locale;
    locale.positive = "cr";
    locale.negative = "dr";
    for (const char* text :
         {"",         " ",         "$",          "-",       "()",      "(",           "x",
          "12.34x",   "12.3",      "12.345",     "12.",     "1,23.00", "1234,567.00", "12.34 56.78",
          "$$12.34",  "12.34$$",   "--12.34",    "-12.34-", "(12.34",  "12.34)",      "(-12.34)",
          "(12.34))", "((12.34))", ". 5",        ".5",      ",123",    "12,",         "12.34 XTS",
          "1 2",      "cr",        "12.34 dr dr"}) {
        EXPECT_EQ(readOr(unread, locale, text), unread) << text;
    }
}

TEST(LocaleMoney, NothingIsAnAmountWithoutSymbol) {
    for (const char* text : {"", "12.34", "$12.34"}) {
        EXPECT_EQ(readOr(unread, MadeLocale(), text, noSymbol), unread);
        EXPECT_EQ(readOr(unread, MadeLocale(), text, Locale::CurrSymbol(9)), unread);
    }
}

// One round: the symbol, then the sign, then the number.
TEST(LocaleMoney, InternationalFormHasOneOrder) {
    MadeLocale locale;
    locale.positive = "cr";
    locale.negative = "dr";
    locale.internationalDigits = 3;
    const struct {
        const char* text;
        double value;
    } rows[] = {
        {"XTS 1.234", 1234},    {"XTS -1.234", -1234},  {"XTS + 1.234 ", 1234},
        {"1.234", 1234},        {"-1.234", -1234},      {"(XTS 1.234)", -1234},
        {"1.234 XTS ", unread}, {"-XTS 1.234", unread}, {"XTS dr1.234", unread},
        {"XTS1.234", unread},   {"$1.234", unread},     {"XTS 1.23", unread},
        {"1.234-", unread},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(readOr(unread, locale, row.text, international), row.value) << row.text;
    }
}

TEST(LocaleMoney, TenSeparatorsAreTheMost) {
    MadeLocale locale;
    locale.moneyGroups = "\1";
    locale.digits = 0;
    EXPECT_EQ(readOr(unread, locale, "1,2,3,4,5,6,7,8,9,0,1"), 12345678901.0);
    EXPECT_EQ(readOr(unread, locale, "1,2,3,4,5,6,7,8,9,0,1,2"), unread);
}

TEST(LocaleMoney, WithoutDigitsBehindThePointThereIsNoPoint) {
    MadeLocale locale;
    locale.digits = 0;
    EXPECT_EQ(readOr(unread, locale, "12"), 12);
    EXPECT_EQ(readOr(unread, locale, "12."), unread);
    EXPECT_EQ(readOr(unread, locale, "12.34"), unread);
}

// The point of money, then that of numbers unless the digits of money are unset, then ".".
TEST(LocaleMoney, DecimalTextHasItsFallbacks) {
    MadeLocale locale;
    locale.moneyPoint = ":";
    locale.point = ";";
    EXPECT_EQ(readOr(unread, locale, "1:00"), 100);
    EXPECT_EQ(readOr(unread, locale, "1;00"), unread);
    locale.moneyPoint = "";
    EXPECT_EQ(readOr(unread, locale, "1;00"), 100);
    EXPECT_EQ(readOr(unread, locale, "1.00"), unread);
    locale.point = "";
    EXPECT_EQ(readOr(unread, locale, "1.00"), 100);

    const std::string digits(CHAR_MAX, '0');
    locale.point = ";";
    locale.digits = static_cast<char>(CHAR_MAX);
    EXPECT_EQ(readOr(unread, locale, ("0;" + digits).c_str()), 0);
    locale.internationalDigits = static_cast<char>(CHAR_MAX);
    EXPECT_EQ(readOr(unread, locale, ("0;" + digits).c_str()), unread);
    EXPECT_EQ(readOr(unread, locale, ("0." + digits).c_str()), 0);
}

TEST(LocaleMoney, EmptySignsAndSymbolsAreNotThere) {
    MadeLocale locale;
    locale.symbol = locale.negative = locale.positive = "";
    EXPECT_EQ(readOr(unread, locale, ".50"), 50);
    EXPECT_EQ(readOr(unread, locale, "12.34"), 1234);
    EXPECT_EQ(readOr(unread, locale, "-12.34"), -1234);
}

TEST(LocaleMoney, ABlankThatSeparatesGroupsAlsoStandsBeforeTheSymbol) {
    MadeLocale locale;
    locale.moneySeparator = " ";
    locale.digits = 0;
    EXPECT_EQ(readOr(unread, locale, "1 234 $"), 1234);
}

TEST(LocaleMoney, MarksMayBeOfSeveralBytes) {
    MadeLocale locale;
    locale.moneySeparator = "\xE2\x80\xAF";
    locale.moneyPoint = "\xD9\xAB";
    locale.symbol = "\xE2\x82\xAC";
    locale.positiveSpace = 1;
    const std::string text =
        "1\xE2\x80\xAF"
        "234\xD9\xAB"
        "56 \xE2\x82\xAC";
    EXPECT_EQ(writeMoney(locale, formOf("-m $"), 123456, local), text);
    EXPECT_EQ(readOr(unread, locale, text.c_str()), 123456);
    EXPECT_EQ(readOr(unread, locale,
                     "\xD9"
                     "50"),
              unread);
}

}  // namespace
}  // namespace nolk
