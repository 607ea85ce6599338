#include <nolk/core/Decimal.h>

#include <nolk/core/Hash.h>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <sstream>
#include <string>
#include <type_traits>

#include "values/OtherLocale.h"

namespace nolk {
namespace {

using test::GlobalLocale;
using test::OtherLocale;

Decimal ofState(int state) {
    Decimal value("-12.5");
    value.setState(static_cast<Decimal::State>(state));
    return value;
}

std::string sumText(const char* a, const char* b) {
    return (Decimal(a) + Decimal(b)).asString();
}

TEST(Decimal, DefaultIsZeroWithoutDigits) {
    const Decimal value;
    EXPECT_TRUE(value.isNumber());
    EXPECT_TRUE(value.isZero());
    EXPECT_EQ(value.precision(), 0u);
    EXPECT_EQ(value.asString(), "0");
}

TEST(Decimal, IsMadeOfInts) {
    const struct {
        int value;
        const char* text;
    } rows[] = {{0, "0"},
                {7, "7"},
                {-7, "-7"},
                {2147483647, "2147483647"},
                {-2147483647 - 1, "-2147483648"}};
    for (const auto& row : rows) {
        EXPECT_EQ(Decimal(row.value).asString(), row.text);
    }
    EXPECT_EQ(Decimal(0).precision(), 1u);
}

TEST(Decimal, IsMadeOfTexts) {
    EXPECT_EQ(Decimal("-12.50").asString(), "-12.50");
    EXPECT_EQ(Decimal(std::string("-12.50")).asString(), "-12.50");
    const char* const none = nullptr;
    EXPECT_EQ(Decimal(none).state(), Decimal::State::null);
    EXPECT_EQ(Decimal(std::string()).state(), Decimal::State::null);
}

TEST(Decimal, TextEndsAtItsFirstZeroByte) {
    EXPECT_EQ(Decimal(std::string("12\0"
                                  "34",
                                  5))
                  .asString(),
              "12");
    EXPECT_EQ(Decimal(std::string("\0"
                                  "34",
                                  3))
                  .state(),
              Decimal::State::null);
}

TEST(Decimal, ZeroOfATextHasNoSign) {
    for (const char* text : {"-0", "-0.00", "-.0", "(0)", "( -000 )"}) {
        EXPECT_EQ(Decimal(text).asString().front(), '0') << text;
        EXPECT_FALSE(Decimal(text) < Decimal(0)) << text;
    }
}

TEST(Decimal, TextWithoutDigitsAndEmptyTextDiffer) {
    EXPECT_EQ(Decimal("abc").state(), Decimal::State::NaN);
    EXPECT_EQ(Decimal("").state(), Decimal::State::null);
    EXPECT_FALSE(Decimal("abc") == Decimal(""));
}

TEST(Decimal, CopiesShareNothing) {
    Decimal value("12345678901234567890.5");
    const Decimal copy(value);
    value += Decimal(1);
    EXPECT_EQ(copy.asString(), "12345678901234567890.5");
    value = copy;
    EXPECT_EQ(value.asString(), "12345678901234567890.5");
    value = value;
    EXPECT_EQ(value.asString(), "12345678901234567890.5");
}

TEST(Decimal, ConstantsHaveTheirStates) {
    EXPECT_EQ(Decimal::null.state(), Decimal::State::null);
    EXPECT_EQ(Decimal::NaN.state(), Decimal::State::NaN);
    EXPECT_EQ(Decimal::missing.state(), Decimal::State::missing);
    for (const Decimal* constant : {&Decimal::null, &Decimal::NaN, &Decimal::missing}) {
        EXPECT_FALSE(constant->isNumber());
        EXPECT_TRUE(constant->isZero());
        EXPECT_EQ(constant->precision(), 0u);
        EXPECT_EQ(constant->hash(), 0u);
    }
}

TEST(Decimal, SetStateTakesDigitsAndSignAway) {
    for (const int state : {1, 2, 4, 8, 16, -1, INT_MIN}) {
        Decimal value = ofState(state);
        EXPECT_EQ(value.state(), state);
        EXPECT_FALSE(value.isNumber());
        EXPECT_EQ(value.precision(), 0u);
        value.setState(Decimal::number);
        EXPECT_EQ(value.asString(), "0");
        EXPECT_FALSE(value < Decimal());
    }
}

TEST(Decimal, SetStateNumberLeavesTheDigits) {
    Decimal value("-12.50");
    value.setState(Decimal::number);
    EXPECT_EQ(value.asString(), "-12.50");
}

TEST(Decimal, CountsItsDigits) {
    const struct {
        const char* text;
        std::size_t precision, scale, significant;
    } rows[] = {
        {"0", 1, 0, 0},        {"00.00", 4, 2, 2}, {"12.50", 4, 2, 4}, {"0012.50", 6, 2, 4},
        {"-0012", 4, 0, 2},    {".5", 2, 1, 1},    {"0.005", 4, 3, 3}, {"(null)", 0, 0, 0},
        {"1,000.10", 6, 2, 6}, {"50%", 4, 2, 2},
    };
    for (const auto& row : rows) {
        const Decimal value(row.text);
        EXPECT_EQ(value.precision(), row.precision) << row.text;
        EXPECT_EQ(value.scale(), row.scale) << row.text;
        EXPECT_EQ(value.numSignificantDigits(), row.significant) << row.text;
    }
}

TEST(Decimal, IsZeroWithoutOtherDigits) {
    for (const char* text : {"0", "000.000", "-0", ".0", "(NaN)", "", "0000000000.0000000000"}) {
        EXPECT_TRUE(Decimal(text).isZero()) << text;
    }
    for (const char* text : {"1", "0.0001", "-10", "00000000000000001", "0.00000000000000001"}) {
        EXPECT_FALSE(Decimal(text).isZero()) << text;
    }
}

TEST(Decimal, TrimZerosStripsBothEnds) {
    const struct {
        const char* text;
        const char* trimmed;
        std::size_t precision;
    } rows[] = {
        {"0012.500", "12.5", 3},
        {"12", "12", 2},
        {"-0010.010", "-10.01", 4},
        {"000.000", "0", 0},
        {"0.5", "0.5", 1},
        {"100", "100", 3},
        {"00000000000012.300000000000", "12.3", 3},
        {"(missing)", "(missing)", 0},
    };
    for (const auto& row : rows) {
        Decimal value(row.text);
        value.trimZeros();
        EXPECT_EQ(value.asString(), row.trimmed);
        EXPECT_EQ(value.precision(), row.precision) << row.text;
    }
}

TEST(Decimal, HashIsThatOfBothTexts) {
    EXPECT_EQ(Decimal("12.50").hash(), nolkStringHash("50") + nolkStringHash("12"));
    EXPECT_EQ(Decimal("-12.50").hash(), 0u - (nolkStringHash("50") + nolkStringHash("12")));
    EXPECT_EQ(Decimal(7).hash(), nolkStringHash("7"));
    EXPECT_EQ(Decimal().hash(), 0u);
    EXPECT_NE(Decimal("1.10").hash(), Decimal("1.1").hash());
}

TEST(Decimal, WritesStatesInParentheses) {
    const struct {
        int state;
        const char* text;
    } rows[] = {{1, "(null)"},
                {2, "(NaN)"},
                {4, "(ctorError)"},
                {8, "(missing)"},
                {3, "(Impossible value)"},
                {-1, "(Impossible value)"}};
    for (const auto& row : rows) {
        EXPECT_EQ(ofState(row.state).asString(), row.text);
        EXPECT_EQ((-ofState(row.state)).asString(), row.text);
    }
}

TEST(Decimal, WritesTheDigitsAsTheyAre) {
    for (const char* text :
         {"0", "00", "-1", "1.0", "001.100", "-0.5", "12345678901234567890123"}) {
        EXPECT_EQ(Decimal(text).asString(), text);
    }
}

TEST(Decimal, WritesAZeroForAnEmptyIntegerPart) {
    EXPECT_EQ(sumText("0.1", "0.2"), "0.3");
    EXPECT_EQ(sumText("-0.1", "-0.2"), "-0.3");
    EXPECT_EQ(sumText("0.1", "0.2"), "0.3");
}

TEST(Decimal, WritesASignUnlessThereAreNoDigits) {
    EXPECT_EQ((-Decimal()).asString(), "0");
    EXPECT_EQ((-Decimal(0)).asString(), "-0");
    EXPECT_EQ((-Decimal("0.0")).asString(), "-0.0");
}

TEST(Decimal, WritesWithTheSeparatorOfTheLocale) {
    const OtherLocale german(",", ".");
    const OtherLocale arabic("\xD9\xAB", "\xD9\xAC");
    EXPECT_EQ(Decimal("-1234567.50").asString(german), "-1234567,50");
    EXPECT_EQ(Decimal("1.5").asString(arabic),
              "1\xD9\xAB"
              "5");
    EXPECT_EQ(Decimal("15").asString(german), "15");
    EXPECT_EQ(Decimal::NaN.asString(german), "(NaN)");
    EXPECT_EQ(Decimal("1.5").asString(), "1.5");

    const Decimal value("1.5");
    const GlobalLocale global(german);
    EXPECT_EQ(value.asString(), "1,5");
    std::ostringstream stream;
    stream << value;
    EXPECT_EQ(stream.str(), "1,5");
}

TEST(Decimal, SeparatorsComeFromTheLocaleOrAreMadeUp) {
    const struct {
        const char* point;
        const char* separator;
        const char* decimal;
        const char* thousands;
    } rows[] = {
        {".", ",", ".", ","}, {",", ".", ",", "."}, {".", "", ".", ","}, {",", "", ",", ""},
        {"", ".", "", "."},   {"", ",", ".", ","},  {"", "", ".", ","},  {"::", "__", "::", "__"},
    };
    for (const auto& row : rows) {
        const OtherLocale locale(row.point, row.separator);
        EXPECT_EQ(Decimal::decimalSeparator(locale), row.decimal);
        EXPECT_EQ(Decimal::thousandsSeparator(locale), row.thousands);
        const GlobalLocale global(locale);
        EXPECT_EQ(Decimal::decimalSeparator(), row.decimal);
        EXPECT_EQ(Decimal::thousandsSeparator(), row.thousands);
    }
    EXPECT_EQ(Decimal::decimalSeparator(), ".");
    EXPECT_EQ(Decimal::thousandsSeparator(), ",");
}

TEST(Decimal, WithoutAnyDecimalSeparatorDigitsRunTogether) {
    EXPECT_EQ(Decimal("1.5").asString(OtherLocale("", ".")), "15");
}

TEST(Decimal, GoesToStreamsAsItsText) {
    std::ostringstream stream;
    stream << Decimal("-1.50") << ' ' << Decimal::missing;
    EXPECT_EQ(stream.str(), "-1.50 (missing)");
}

TEST(Decimal, ToDoubleReadsItsTextByTheGlobalLocale) {
    EXPECT_EQ(toDouble(Decimal("-12.5")), -12.5);
    EXPECT_EQ(toDouble(Decimal()), 0.0);
    EXPECT_EQ(toDouble(Decimal("0.1")), 0.1);
    EXPECT_EQ(toDouble(Decimal("0.1000000000000000055511151231257827")), 0.1);

    const Decimal value("12.5");
    OtherLocale locale(",", ".");
    locale.setNumber("12,5", 99.0);
    const GlobalLocale global(locale);
    EXPECT_EQ(toDouble(value), 99.0);
}

TEST(Decimal, ToDoubleOfWhatIsNoNumberIsNaN) {
    for (const int state : {1, 2, 4, 8, 5}) {
        EXPECT_TRUE(std::isnan(toDouble(ofState(state)))) << state;
    }
}

TEST(Decimal, ToDoubleGoesToTheEndsOfTheRange) {
    const std::string zeros(400, '0');
    EXPECT_EQ(toDouble(Decimal("1" + zeros)), std::numeric_limits<double>::infinity());
    EXPECT_EQ(toDouble(Decimal("-1" + zeros)), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(toDouble(Decimal("0." + zeros + "1")), 0.0);
    EXPECT_EQ(toDouble(Decimal("1" + std::string(308, '0'))), 1e308);
}

TEST(Decimal, IsAnOrdinaryValue) {
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<Decimal>);
    EXPECT_TRUE(std::is_copy_assignable_v<Decimal>);
    EXPECT_TRUE((std::is_convertible_v<int, Decimal>));
    EXPECT_TRUE((std::is_convertible_v<const char*, Decimal>));
    EXPECT_TRUE((std::is_convertible_v<std::string, Decimal>));
}

}  // namespace
}  // namespace nolk
