#include "nolk/core/foundation/NumberText.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <string>

namespace nolk {
namespace {

std::string withoutTrails(std::string text) {
    removeNumTrails(text.data());
    return text.c_str();
}

TEST(RemoveNumTrails, CutsZeroesAndThenThePoint) {
    EXPECT_EQ(withoutTrails("2.500000"), "2.5");
    EXPECT_EQ(withoutTrails("3.000000"), "3");
    EXPECT_EQ(withoutTrails("0.123456"), "0.123456");
}

TEST(RemoveNumTrails, EndsAtThePoint) {
    EXPECT_EQ(withoutTrails("100.000"), "100");
    EXPECT_EQ(withoutTrails("100."), "100");
    EXPECT_EQ(withoutTrails("1.."), "1.");
}

TEST(RemoveNumTrails, CutsZeroesOfAWholeNumberToo) {
    EXPECT_EQ(withoutTrails("100"), "1");
    EXPECT_EQ(withoutTrails("000"), "0");
}

TEST(RemoveNumTrails, NeverLooksAtTheFirstCharacter) {
    EXPECT_EQ(withoutTrails(".00"), ".");
    EXPECT_EQ(withoutTrails("0"), "0");
    EXPECT_EQ(withoutTrails("."), ".");
}

TEST(RemoveNumTrails, LeavesShortTextsAlone) {
    EXPECT_EQ(withoutTrails(""), "");
    EXPECT_EQ(withoutTrails("7"), "7");
}

TEST(LongToString, WritesSignAndDigits) {
    EXPECT_EQ(longToString(0), "0");
    EXPECT_EQ(longToString(-1), "-1");
    EXPECT_EQ(longToString(LONG_MIN), sizeof(long) == 8 ? "-9223372036854775808" : "-2147483648");
}

TEST(UnsignedLongToString, WritesTheDigits) {
    EXPECT_EQ(unsignedLongToString(0), "0");
    EXPECT_EQ(unsignedLongToString(3000000000ul), "3000000000");
}

TEST(LongLongToString, WritesSignAndDigits) {
    EXPECT_EQ(longLongToString(LLONG_MIN), "-9223372036854775808");
    EXPECT_EQ(longLongToString(LLONG_MAX), "9223372036854775807");
}

TEST(DoubleToString, WritesSixSignificantDigitsByDefault) {
    EXPECT_EQ(doubleToString(3.14159265), "3.14159");
    EXPECT_EQ(doubleToString(1e6), "1e+06");
    EXPECT_EQ(doubleToString(999999.0), "999999");
    EXPECT_EQ(doubleToString(-0.0), "-0");
}

TEST(DoubleToString, WritesAsManyDigitsAsAskedFor) {
    EXPECT_EQ(doubleToString(1.0 / 3.0, 15), "0.333333333333333");
    EXPECT_EQ(doubleToString(2.0, 15), "2");
    EXPECT_EQ(doubleToString(0.5, 100), "0.5");
}

// The stream's own default format is the measure.
TEST(DoubleToString, AgreesWithAStreamOverManyNumbers) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
    for (int round = 0; round < 2000; ++round) {
        const double value = std::ldexp(mantissa(random), static_cast<int>(random() % 600) - 300);
        for (int precision : {6, 15}) {
            std::ostringstream stream;
            stream.imbue(std::locale::classic());
            stream.precision(precision);
            stream << value;
            EXPECT_EQ(doubleToString(value, precision), stream.str());
        }
    }
}

TEST(FloatToString, AgreesWithAStreamOverManyNumbers) {
    std::mt19937 random(8);
    std::uniform_real_distribution<float> mantissa(-10.0f, 10.0f);
    for (int round = 0; round < 2000; ++round) {
        const float value = std::ldexp(mantissa(random), static_cast<int>(random() % 120) - 60);
        std::ostringstream stream;
        stream.imbue(std::locale::classic());
        stream << value;
        EXPECT_EQ(floatToString(value), stream.str());
    }
}

struct CommaPoint : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

// Sets the global locale for a scope.
class GlobalLocale {
public:
    explicit GlobalLocale(const std::locale& locale) : before_(std::locale::global(locale)) {}
    ~GlobalLocale() { std::locale::global(before_); }

private:
    std::locale before_;
};

TEST(NumberText, OfFloatingPointFollowsTheGlobalLocaleAsStreamsDo) {
    const GlobalLocale comma(std::locale(std::locale(), new CommaPoint));
    EXPECT_EQ(doubleToString(12345.5, 15), "12.345,5");
    EXPECT_EQ(doubleToString(0.25), "0,25");
    EXPECT_EQ(floatToString(2.5f), "2,5");
}

TEST(NumberText, OfWholeNumbersIsTheSameUnderEveryGlobalLocale) {
    const GlobalLocale comma(std::locale(std::locale(), new CommaPoint));
    EXPECT_EQ(longToString(-1234567), "-1234567");
    EXPECT_EQ(unsignedLongToString(1234567), "1234567");
    EXPECT_EQ(longLongToString(1234567), "1234567");
}

TEST(LongDoubleToString, HasRoomForTheLargestNumber) {
    const std::string text = longDoubleToString(-std::numeric_limits<long double>::max());
    EXPECT_EQ(text.size(),
              static_cast<std::size_t>(std::numeric_limits<long double>::max_exponent10) + 2);
    EXPECT_EQ(text[0], '-');
}

TEST(LongDoubleToString, CutsTrailingZeroes) {
    EXPECT_EQ(longDoubleToString(2.5L), "2.5");
    EXPECT_EQ(longDoubleToString(100.0L), "100");
    EXPECT_EQ(longDoubleToString(1e-9L), "0");
    EXPECT_EQ(longDoubleToString(-0.0L), "-0");
}

TEST(LongDoubleToString, CutsNothingOffTheNamesOfWhatIsNoNumber) {
    EXPECT_EQ(longDoubleToString(std::numeric_limits<long double>::infinity()), "inf");
    EXPECT_EQ(longDoubleToString(-std::numeric_limits<long double>::infinity()), "-inf");
    EXPECT_EQ(longDoubleToString(std::numeric_limits<long double>::quiet_NaN()), "nan");
}

}  // namespace
}  // namespace nolk
