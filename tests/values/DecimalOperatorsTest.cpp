#include <nolk/core/DecimalOperators.h>

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace nolk {
namespace {

Decimal ofState(int state) {
    Decimal value;
    value.setState(static_cast<Decimal::State>(state));
    return value;
}

// All six operators; `order` is negative, 0 or positive.
template <typename A, typename B>
void expectOrder(const A& a, const B& b, int order) {
    EXPECT_EQ(a == b, order == 0);
    EXPECT_EQ(a != b, order != 0);
    EXPECT_EQ(a < b, order < 0);
    EXPECT_EQ(a > b, order > 0);
    EXPECT_EQ(a <= b, order <= 0);
    EXPECT_EQ(a >= b, order >= 0);
}

template <typename A, typename B>
void expectOrderBothWays(const A& a, const B& b, int order) {
    expectOrder(a, b, order);
    expectOrder(b, a, -order);
}

const struct {
    const char* a;
    const char* b;
    int order;
} rows[] = {
    {"1.10", "1.1", 0},
    {"-0", "0", 0},
    {"0.0", "000", 0},
    {"1", "2", -1},
    {"-1", "1", -1},
    {"-1", "-2", 1},
    {"-1.5", "-1.50", 0},
    {"10", "9", 1},
    {"0010", "9", 1},
    {"0.5", "0.49", 1},
    {"0.05", "0.5", -1},
    {"1.5", "1.05", 1},
    {"-0.5", "0", -1},
    {"100", "99.99", 1},
    {"-100", "-99.99", -1},
    {"0", "0.001", -1},
    {"12345678901234567890.1", "12345678901234567890.10", 0},
    {"12345678901234567890.1", "12345678901234567890.2", -1},
};

TEST(DecimalOperators, CompareNumbersByValue) {
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.a) + " and " + row.b);
        expectOrderBothWays(Decimal(row.a), Decimal(row.b), row.order);
    }
}

TEST(DecimalOperators, CompareWithTexts) {
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.a) + " and " + row.b);
        expectOrderBothWays(Decimal(row.a), std::string(row.b), row.order);
        expectOrderBothWays(Decimal(row.a), row.b, row.order);
    }
    EXPECT_TRUE(Decimal("1.10") == "1.1");
    EXPECT_TRUE("1,000" > Decimal("999"));
    EXPECT_TRUE(Decimal::null == "");
    EXPECT_TRUE(std::string("nothing") == Decimal::NaN);
}

TEST(DecimalOperators, CompareWithInts) {
    expectOrderBothWays(Decimal("5.0"), 5, 0);
    expectOrderBothWays(Decimal("4.9"), 5, -1);
    expectOrderBothWays(Decimal("-0"), 0, 0);
    expectOrderBothWays(Decimal("-2147483648"), INT_MIN, 0);
    expectOrderBothWays(Decimal("-2147483648.5"), INT_MIN, -1);
    expectOrderBothWays(Decimal("2147483648"), INT_MAX, 1);
}

TEST(DecimalOperators, StatesAreEqualIfTheyAreTheSame) {
    const int states[] = {0, 1, 2, 4, 8, 3};
    for (const int a : states) {
        for (const int b : states) {
            EXPECT_EQ(ofState(a) == ofState(b), a == b) << a << ' ' << b;
            EXPECT_EQ(ofState(a) != ofState(b), a != b) << a << ' ' << b;
        }
    }
    EXPECT_TRUE(-Decimal::NaN == Decimal::NaN);
}

TEST(DecimalOperators, OrderTakesWhatIsNoNumberForZero) {
    for (const int state : {1, 2, 4, 8, 3}) {
        const Decimal value = ofState(state);
        EXPECT_TRUE(value < Decimal(1));
        EXPECT_TRUE(value > Decimal(-1));
        EXPECT_FALSE(value < Decimal(0));
        EXPECT_FALSE(value > Decimal(0));
        EXPECT_TRUE(value <= Decimal(0));
        EXPECT_TRUE(value >= Decimal(0));
        EXPECT_FALSE(value == Decimal(0));
    }
}

TEST(DecimalOperators, NegativeZeroOfAnotherStateStandsBeforeZero) {
    EXPECT_TRUE(-Decimal::null < Decimal(0));
    EXPECT_FALSE(-Decimal::null < Decimal::null);
    EXPECT_FALSE(Decimal(0) < -Decimal::null);
    EXPECT_TRUE(-Decimal::null < Decimal::missing);
    EXPECT_FALSE(-Decimal(0) < Decimal(0));
    EXPECT_FALSE(-Decimal(0) < -Decimal::null);
}

}  // namespace
}  // namespace nolk
