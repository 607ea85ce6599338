// What the arithmetic operators of Decimal give, by tables, against integers in binary, and by the
// laws of arithmetic.

#include <nolk/core/Decimal.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <string>

#include "support/BigInteger.h"

namespace nolk {
namespace {

using test::BigInteger;

// 0 is a number, the others as the states, 3 one that has no name.
Decimal ofKind(int kind) {
    Decimal value("5");
    value.setState(static_cast<Decimal::State>(kind));
    return value;
}

TEST(DecimalArithmetic, AddsAndSubtracts) {
    const struct {
        const char* a;
        const char* b;
        const char* sum;
        const char* difference;
    } rows[] = {
        {"0.1", "0.2", "0.3", "-0.1"},
        {"1.5", "1.5", "3", "0"},
        {"1.5", "-1.5", "0", "3"},
        {"-1.5", "1.5", "0", "-3"},
        {"-1.5", "-1.5", "-3", "0"},
        {"99.99", "0.01", "100", "99.98"},
        {"100", "0.001", "100.001", "99.999"},
        {"0.001", "100", "100.001", "-99.999"},
        {"5", "12", "17", "-7"},
        {"-5", "12", "7", "-17"},
        {"5", "-12", "-7", "17"},
        {"-5", "-12", "-17", "7"},
        {"12", "-5", "7", "17"},
        {"0005", "3", "8", "2"},
        {"5", "0003", "8", "2"},
        {"1.50", "2.500", "4", "-1"},
        {"99999999999999999999", "1", "100000000000000000000", "99999999999999999998"},
        {"100000000000000000000", "-1", "99999999999999999999", "100000000000000000001"},
        {"0", "0", "0", "0"},
        {"-0", "-0", "0", "0"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ((Decimal(row.a) + Decimal(row.b)).asString(), row.sum) << row.a << ' ' << row.b;
        EXPECT_EQ((Decimal(row.a) - Decimal(row.b)).asString(), row.difference)
            << row.a << ' ' << row.b;
    }
}

TEST(DecimalArithmetic, DifferenceOfEqualsHasNoDigits) {
    const Decimal result = Decimal("1.5") - Decimal("1.5");
    EXPECT_EQ(result.precision(), 0u);
    EXPECT_EQ(result.asString(), "0");
}

TEST(DecimalArithmetic, ResultsHaveNoZerosAtTheirEnds) {
    EXPECT_EQ((Decimal("0.5") + Decimal("000.50")).precision(), 1u);
    EXPECT_EQ((Decimal("0.1") + Decimal("0.2")).precision(), 1u);
    EXPECT_EQ((Decimal("100.50") - Decimal("99.50")).precision(), 1u);
    EXPECT_EQ((Decimal("0010") + Decimal("0.00")).asString(), "10");
    EXPECT_EQ((Decimal("0.50") * Decimal("0.20")).precision(), 1u);
    EXPECT_EQ((Decimal("0.50") * Decimal("0.20")).scale(), 1u);
}

TEST(DecimalArithmetic, Multiplies) {
    const struct {
        const char* a;
        const char* b;
        const char* product;
    } rows[] = {
        {"2.5", "2", "5"},
        {"-2.5", "2", "-5"},
        {"2.5", "-2", "-5"},
        {"-2.5", "-2", "5"},
        {"0.001", "0.001", "0.000001"},
        {"00012", "00.50", "6"},
        {"9999999999999999", "9999999999999999", "99999999999999980000000000000001"},
        {"99999999999999999", "10", "999999999999999990"},
        {"10000000000000000", "10000000000000000", "100000000000000000000000000000000"},
        {"123456789", "987654321", "121932631112635269"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ((Decimal(row.a) * Decimal(row.b)).asString(), row.product);
        EXPECT_EQ((Decimal(row.b) * Decimal(row.a)).asString(), row.product);
    }
}

TEST(DecimalArithmetic, ProductWithZeroHasNeitherDigitsNorSign) {
    for (const char* zero : {"0", "-0", "0.00", "000000000000000000000000000000.0"}) {
        for (const char* other : {"-5", "5", "-12345678901234567890.5"}) {
            const Decimal result = Decimal(zero) * Decimal(other);
            EXPECT_EQ(result.precision(), 0u);
            EXPECT_FALSE(result < Decimal());
        }
    }
    EXPECT_EQ((Decimal() * Decimal(5)).asString(), "0");
    EXPECT_EQ((Decimal() * Decimal("12345678901234567890")).asString(), "0");
    EXPECT_EQ((-Decimal() * Decimal()).asString(), "0");
}

// A zero with a sign prints it, and stands before the zero without digits of another state.
TEST(DecimalArithmetic, ZeroThatComesOutHasNoSign) {
    const Decimal negative = -Decimal("0.0");
    ASSERT_EQ(negative.asString(), "-0.0");
    const Decimal results[] = {Decimal("-1.5") + Decimal("1.5"),
                               negative + negative,
                               negative - Decimal(0),
                               Decimal::null + negative,
                               negative + Decimal::null,
                               Decimal::null - Decimal(0),
                               negative * Decimal(5),
                               Decimal::null * negative};
    for (const Decimal& result : results) {
        EXPECT_EQ(result.asString().front(), '0');
        EXPECT_FALSE(result < Decimal::missing);
    }
    EXPECT_FALSE(Decimal::null - Decimal::null < Decimal(0));
}

// Rows and columns: number 5, null, NaN, ctorError, missing, a state without a name.
TEST(DecimalArithmetic, OperandsThatAreNoNumbers) {
    const int kinds[] = {0, 1, 2, 4, 8};
    const char* const sums[5][5] = {
        {"10", "5", "(NaN)", "(ctorError)", "(missing)"},
        {"5", "(null)", "(NaN)", "(ctorError)", "(missing)"},
        {"(NaN)", "(NaN)", "(NaN)", "(NaN)", "(missing)"},
        {"(ctorError)", "(ctorError)", "(NaN)", "(ctorError)", "(missing)"},
        {"(missing)", "(missing)", "(missing)", "(missing)", "(missing)"},
    };
    for (int a = 0; a < 5; ++a) {
        for (int b = 0; b < 5; ++b) {
            const std::string sum = sums[a][b];
            const bool numbers = a == 0 && b == 0;
            const bool turned = a == 1 && b == 0;
            const Decimal first = ofKind(kinds[a]);
            const Decimal second = ofKind(kinds[b]);
            EXPECT_EQ((first + second).asString(), sum) << a << ' ' << b;
            EXPECT_EQ((first - second).asString(), numbers ? "0" : turned ? "-5" : sum);
            EXPECT_EQ((first * second).asString(), numbers ? "25" : sum);
        }
    }
}

TEST(DecimalArithmetic, StateWithoutANameIsAsAFailedConstructor) {
    EXPECT_EQ((ofKind(3) + Decimal(5)).state(), 3);
    EXPECT_EQ((Decimal(5) * ofKind(3)).state(), 3);
    EXPECT_EQ((Decimal::null - ofKind(3)).state(), 3);
    EXPECT_EQ((ofKind(3) + Decimal::NaN).state(), Decimal::State::NaN);
}

TEST(DecimalArithmetic, NullIsAnIdentityThatKeepsTheDigits) {
    EXPECT_EQ((Decimal::null + Decimal(5)).asString(), "5");
    EXPECT_EQ((Decimal("005.50") + Decimal::null).asString(), "005.50");
    EXPECT_EQ((Decimal::null - Decimal("005.50")).asString(), "-005.50");
    EXPECT_EQ((Decimal("-005.50") * Decimal::null).asString(), "-005.50");
    EXPECT_EQ((Decimal::NaN + Decimal::missing).state(), Decimal::State::missing);
}

TEST(DecimalArithmetic, UnaryMinusFlipsTheSignWhateverTheState) {
    EXPECT_EQ((-Decimal("1.50")).asString(), "-1.50");
    EXPECT_EQ((-Decimal("-1.50")).asString(), "1.50");
    EXPECT_EQ((-Decimal(0)).asString(), "-0");
    EXPECT_EQ((-(-Decimal(0))).asString(), "0");
    // The sign shows in the order, which doesn't look at the state.
    EXPECT_TRUE(-Decimal::null < Decimal::null + Decimal(0));
    EXPECT_FALSE(-(-Decimal::null) < Decimal(0));
    EXPECT_TRUE(-Decimal::null == Decimal::null);
}

TEST(DecimalArithmetic, AssignmentOperatorsAreTheOperators) {
    Decimal value("1.5");
    EXPECT_EQ(&(value += Decimal("2.25")), &value);
    EXPECT_EQ(value.asString(), "3.75");
    EXPECT_EQ(&(value -= Decimal("0.75")), &value);
    EXPECT_EQ(value.asString(), "3");
    EXPECT_EQ(&(value *= Decimal("-0.5")), &value);
    EXPECT_EQ(value.asString(), "-1.5");
    value += value;
    EXPECT_EQ(value.asString(), "-3");
    value *= value;
    EXPECT_EQ(value.asString(), "9");
    value -= value;
    EXPECT_EQ(value.asString(), "0");
    value += Decimal::missing;
    EXPECT_EQ(value.state(), Decimal::State::missing);
}

TEST(DecimalArithmetic, TextsAndIntsMixWithDecimals) {
    EXPECT_EQ((Decimal("1.5") + 1).asString(), "2.5");
    EXPECT_EQ(("0.5" + Decimal("1.5")).asString(), "2");
    EXPECT_EQ((2 * Decimal("1.5")).asString(), "3");
}

// ---- Against integers in binary.

// A decimal as its two digit strings.
struct Parts {
    bool negative;
    std::string integer;
    std::string fraction;

    std::string text() const {
        return (negative ? "-" : "") + (integer.empty() ? "0" : integer) +
               (fraction.empty() ? "" : "." + fraction);
    }
};

class Source {
public:
    std::size_t below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(engine_);
    }

    // Many digits 0 and 9, over which carries run.
    std::string digits(std::size_t length) {
        const bool extreme = below(2) == 0;
        std::string text;
        while (text.size() < length) {
            text += static_cast<char>('0' + (extreme ? below(2) * 9 : below(10)));
        }
        return text;
    }

    Parts parts(std::size_t most) {
        const std::size_t length = below(most + 1);
        const std::size_t integer = below(length + 1);
        return {below(2) == 0, digits(integer), digits(length - integer)};
    }

    // Of exactly so many digits.
    Decimal decimal(std::size_t length) {
        const std::size_t integer = below(length + 1);
        return Decimal(Parts{below(2) == 0, digits(integer), digits(length - integer)}.text());
    }

private:
    std::mt19937 engine_{20};
};

// The magnitude as an integer with `scale` digits of the fraction.
BigInteger scaled(const Parts& parts, std::size_t scale) {
    return BigInteger::ofText(parts.integer + parts.fraction +
                              std::string(scale - parts.fraction.size(), '0'));
}

// The shortest text of an integer with `scale` digits of the fraction.
std::string textOf(bool negative, const BigInteger& magnitude, std::size_t scale) {
    std::string digits = magnitude.text();
    digits.insert(0, digits.size() > scale ? 0 : scale + 1 - digits.size(), '0');
    std::string fraction = digits.substr(digits.size() - scale);
    fraction.erase(fraction.find_last_not_of('0') + 1);
    return (negative && !magnitude.isZero() ? "-" : "") + digits.substr(0, digits.size() - scale) +
           (fraction.empty() ? "" : "." + fraction);
}

std::string sumOf(const Parts& a, const Parts& b, bool subtract) {
    const std::size_t scale = std::max(a.fraction.size(), b.fraction.size());
    const BigInteger first = scaled(a, scale);
    const BigInteger second = scaled(b, scale);
    if (a.negative == (b.negative != subtract)) {
        return textOf(a.negative, first.plus(second), scale);
    }
    const bool larger = first.compare(second) >= 0;
    return textOf(larger ? a.negative : !a.negative,
                  larger ? first.minus(second) : second.minus(first), scale);
}

std::string productOf(const Parts& a, const Parts& b) {
    return textOf(a.negative != b.negative,
                  scaled(a, a.fraction.size()).times(scaled(b, b.fraction.size())),
                  a.fraction.size() + b.fraction.size());
}

// -1, 0 or 1.
int orderOf(const Parts& a, const Parts& b) {
    const std::string difference = sumOf(a, b, true);
    return difference == "0" ? 0 : difference.front() == '-' ? -1 : 1;
}

TEST(DecimalArithmetic, AgreesWithIntegersInBinary) {
    Source source;
    for (int round = 0; round < 20000; ++round) {
        const Parts a = source.parts(40);
        const Parts b = round % 16 == 0 ? a : source.parts(40);
        const Decimal first(a.text());
        const Decimal second(b.text());
        SCOPED_TRACE(a.text() + " and " + b.text());
        ASSERT_EQ((first + second).asString(), sumOf(a, b, false));
        ASSERT_EQ((first - second).asString(), sumOf(a, b, true));
        ASSERT_EQ((first * second).asString(), productOf(a, b));
        const int order = orderOf(a, b);
        ASSERT_EQ(first == second, order == 0);
        ASSERT_EQ(first < second, order < 0);
        ASSERT_EQ(first > second, order > 0);
        ASSERT_EQ(first <= second, order <= 0);
        ASSERT_EQ(first >= second, order >= 0);
    }
}

TEST(DecimalArithmetic, LongOnesAgreeWithIntegersInBinary) {
    Source source;
    for (const std::size_t digits : {100u, 255u, 256u, 257u, 511u, 1000u, 1900u, 3500u}) {
        const Parts a = {false, source.digits(digits / 3), source.digits(digits - digits / 3)};
        const Parts b = {true, source.digits(digits / 2), source.digits(digits / 5)};
        ASSERT_EQ((Decimal(a.text()) * Decimal(b.text())).asString(), productOf(a, b)) << digits;
        ASSERT_EQ((Decimal(a.text()) + Decimal(b.text())).asString(), sumOf(a, b, false));
    }
}

TEST(DecimalArithmetic, AddsAndSubtractsAtEveryAlignment) {
    for (std::size_t length = 1; length <= 40; ++length) {
        for (std::size_t shorter = 0; shorter <= length; ++shorter) {
            const Parts a = {false, std::string(length, '9'), "5"};
            const Parts b = {false, std::string(shorter, '9'), "5"};
            ASSERT_EQ((Decimal(a.text()) + Decimal(b.text())).asString(), sumOf(a, b, false));
            const Parts c = {false, "1" + std::string(length, '0'), ""};
            ASSERT_EQ((Decimal(c.text()) - Decimal(b.text())).asString(), sumOf(c, b, true));
        }
    }
}

// ---- By the laws of arithmetic, with equal texts where results have no zeros at their ends.

void checkLaws(const Decimal& a, const Decimal& b, const Decimal& c) {
    ASSERT_EQ((a + b).asString(), (b + a).asString());
    ASSERT_EQ((a * b).asString(), (b * a).asString());
    ASSERT_EQ(((a + b) + c).asString(), (a + (b + c)).asString());
    ASSERT_EQ(((a * b) * c).asString(), (a * (b * c)).asString());
    ASSERT_EQ((a * (b + c)).asString(), (a * b + a * c).asString());
    ASSERT_TRUE(a - b + b == a);
    ASSERT_EQ((a - b).asString(), (a + -b).asString());
    ASSERT_EQ(a < b, (a - b) < Decimal(0));
}

TEST(DecimalArithmetic, KeepsTheLaws) {
    Source source;
    for (int round = 0; round < 300; ++round) {
        checkLaws(source.decimal(source.below(200)), source.decimal(source.below(200)),
                  source.decimal(source.below(200)));
    }
}

TEST(DecimalArithmetic, KeepsTheLawsWithLongNumbers) {
    Source source;
    for (int round = 0; round < 8; ++round) {
        checkLaws(source.decimal(source.below(5001)), source.decimal(source.below(5001)),
                  source.decimal(source.below(5001)));
    }
    checkLaws(source.decimal(5000), source.decimal(5000), source.decimal(5000));
}

// (10^n - 1)^2 = 10^2n - 2 * 10^n + 1, through the transform.
TEST(DecimalArithmetic, SquaresOfManyNines) {
    for (const std::size_t digits : {15u, 16u, 17u, 900u, 100000u}) {
        const Decimal nines(std::string(digits, '9'));
        EXPECT_TRUE((nines * nines).asString() ==
                    std::string(digits - 1, '9') + "8" + std::string(digits - 1, '0') + "1")
            << digits;
    }
}

}  // namespace
}  // namespace nolk
