#include <nolk/core/Decimal.h>

#include <gtest/gtest.h>

#include <climits>
#include <stdexcept>
#include <string>

namespace nolk {
namespace {

std::string rounded(const Decimal& value, long places, int method) {
    return round(value, places, static_cast<Decimal::RoundingMethod>(method)).asString();
}

TEST(DecimalRounding, RoundsByMethod) {
    const struct {
        const char* text;
        long places;
        const char* expected[4];  // halfUp, awayFromZero, towardZero, halfEven
    } rows[] = {
        {"2.5", 0, {"3", "3", "2", "2"}},
        {"3.5", 0, {"4", "4", "3", "4"}},
        {"2.51", 0, {"3", "3", "2", "3"}},
        {"2.49", 0, {"2", "3", "2", "2"}},
        {"2.50", 0, {"3", "3", "2", "2"}},  // the zero is dropped before
        {"-2.5", 0, {"-3", "-3", "-2", "-2"}},
        {"-3.5", 0, {"-4", "-4", "-3", "-4"}},
        {"9.99", 1, {"10.0", "10.0", "9.9", "10.0"}},
        {"9.95", 1, {"10.0", "10.0", "9.9", "10.0"}},
        {"9.85", 1, {"9.9", "9.9", "9.8", "9.8"}},
        {"1.2", 3, {"1.200", "1.200", "1.200", "1.200"}},
        {"1.2", 1, {"1.2", "1.2", "1.2", "1.2"}},
        {"1.20", 1, {"1.2", "1.2", "1.2", "1.2"}},
        {"1.25", 1, {"1.3", "1.3", "1.2", "1.2"}},
        {"1.35", 1, {"1.4", "1.4", "1.3", "1.4"}},
        {"1.2501", 1, {"1.3", "1.3", "1.2", "1.3"}},
        {"1.01", 1, {"1.0", "1.1", "1.0", "1.0"}},
        {"0.4", 0, {"0", "1", "0", "0"}},
        {"-0.4", 0, {"0", "-1", "0", "0"}},
        {"0.5", 0, {"1", "1", "0", "0"}},
        {"1234", -2, {"1200", "1300", "1200", "1200"}},
        {"1250", -2, {"1300", "1300", "1200", "1300"}},
        {"1200", -2, {"1200", "1300", "1200", "1200"}},  // two zeros are dropped as well
        {"250", -2, {"300", "300", "200", "300"}},       // "50" isn't the single "5"
        {"25", -1, {"30", "30", "20", "20"}},
        {"35", -1, {"40", "40", "30", "40"}},
        {"25.0", -1, {"30", "30", "20", "20"}},
        {"25.1", -1, {"30", "30", "20", "30"}},
        {"999", -1, {"1000", "1000", "990", "1000"}},
        {"999", -3, {"1000", "1000", "0000", "1000"}},
        {"499", -3, {"0000", "1000", "0000", "0000"}},
        {"5", -1, {"10", "10", "00", "00"}},
        {"1234", -4, {"00000", "10000", "00000", "00000"}},
        {"5234", -4, {"10000", "10000", "00000", "10000"}},
        {"1234", -6, {"0000000", "1000000", "0000000", "0000000"}},
        {"-1234", -6, {"0000000", "-1000000", "0000000", "0000000"}},
        {"9999.9", -6, {"0000000", "1000000", "0000000", "0000000"}},
        {"007.5", 0, {"008", "008", "007", "008"}},
        {"0", 2, {"0.00", "0.00", "0.00", "0.00"}},
        {"0", 0, {"0", "0", "0", "0"}},
        {"0", -1, {"00", "10", "00", "00"}},
        {"12345678901234567890.123456789",
         4,
         {"12345678901234567890.1235", "12345678901234567890.1235", "12345678901234567890.1234",
          "12345678901234567890.1235"}},
        {"99999999999999999999.99999",
         2,
         {"100000000000000000000.00", "100000000000000000000.00", "99999999999999999999.99",
          "100000000000000000000.00"}},
    };
    for (const auto& row : rows) {
        for (int method = 0; method < 4; ++method) {
            EXPECT_EQ(rounded(Decimal(row.text), row.places, method), row.expected[method])
                << row.text << ' ' << row.places << ' ' << method;
        }
    }
}

TEST(DecimalRounding, OtherMethodsCut) {
    for (const int method : {4, 99, INT_MAX, -1, INT_MIN}) {
        EXPECT_EQ(rounded(Decimal("2.9"), 0, method), "2");
        EXPECT_EQ(rounded(Decimal("-2.9"), 0, method), "-2");
    }
}

TEST(DecimalRounding, WhatIsNoNumberStaysAsItIs) {
    for (const Decimal* value : {&Decimal::null, &Decimal::NaN, &Decimal::missing}) {
        EXPECT_EQ(round(*value, 2, Decimal::halfUp).state(), value->state());
        EXPECT_EQ(round(*value, -2, Decimal::awayFromZero).state(), value->state());
    }
    EXPECT_TRUE(round(-Decimal::null, 0, Decimal::halfUp) < Decimal(0));
}

TEST(DecimalRounding, NumberWithoutIntegerDigits) {
    const Decimal half = Decimal("0.2") + Decimal("0.3");
    ASSERT_EQ(half.precision(), 1u);
    EXPECT_EQ(rounded(half, 0, 0), "1");
    EXPECT_EQ(rounded(half, 0, 3), "0");
    EXPECT_EQ(rounded(half, 2, 0), "0.50");
    EXPECT_EQ(rounded(half, -1, 0), "00");
    const Decimal quarter = half * half;
    ASSERT_EQ(quarter.precision(), 2u);
    EXPECT_EQ(rounded(quarter, 1, 0), "0.3");
    EXPECT_EQ(rounded(Decimal("0.99") - Decimal("0.0"), 1, 0), "1.0");
}

TEST(DecimalRounding, NumberWithoutDigitsGainsOne) {
    const Decimal zero = round(Decimal(), 0, Decimal::halfUp);
    EXPECT_EQ(zero.precision(), 1u);
    EXPECT_EQ(zero.asString(), "0");
    EXPECT_EQ(round(Decimal(), -3, Decimal::towardZero).asString(), "0000");
    EXPECT_EQ(round(Decimal(), -3, Decimal::awayFromZero).asString(), "1000");
    EXPECT_EQ(round(Decimal(), 2, Decimal::halfUp).asString(), "0.00");
}

TEST(DecimalRounding, ZeroKeepsItsSignWhereNothingIsDropped) {
    EXPECT_EQ(rounded(-Decimal(0), 2, 0), "-0.00");
    EXPECT_EQ(rounded(-Decimal("0.00"), 0, 0), "-0");
    EXPECT_EQ(rounded(-Decimal(0), -1, 0), "00");
}

TEST(DecimalRounding, ManyPlaces) {
    EXPECT_EQ(rounded(Decimal("1.5"), 100000, 0), "1.5" + std::string(99999, '0'));
    EXPECT_EQ(rounded(Decimal("1.5"), -100000, 0), std::string(100001, '0'));
    EXPECT_EQ(rounded(Decimal("1.5"), -100000, 1), "1" + std::string(100000, '0'));
}

#if LONG_MAX > 0x7FFFFFFF
// As many zeros as no text can have.
TEST(DecimalRounding, TooManyPlacesAreTooLong) {
    EXPECT_THROW(round(Decimal("1.5"), LONG_MIN, Decimal::halfUp), std::length_error);
}
#endif

// Against the quotient of integers: value = number / 100.
TEST(DecimalRounding, AgreesWithIntegers) {
    for (int number = 0; number < 10000; ++number) {
        const Decimal value = Decimal(number) * Decimal("0.01");
        const int tail = number % 100;
        const int whole = number / 100;
        const int up = tail >= 50;
        const int even = tail == 50 ? whole % 2 : up;
        ASSERT_EQ(rounded(value, 0, 0), std::to_string(whole + up));
        ASSERT_EQ(rounded(value, 0, 1), std::to_string(whole + (tail != 0)));
        ASSERT_EQ(rounded(value, 0, 2), std::to_string(whole));
        ASSERT_EQ(rounded(value, 0, 3), std::to_string(whole + even));
    }
}

}  // namespace
}  // namespace nolk
