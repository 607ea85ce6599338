#include "nolk/core/values/DigitProduct.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "nolk/core/values/NumberTransform.h"
#include "nolk/core/values/WideWord.h"
#include "support/BigInteger.h"

namespace nolk {
namespace {

using test::BigInteger;
using Limbs = std::vector<std::uint64_t>;

constexpr ProductLimits plainly{.halving = SIZE_MAX};

class Source {
public:
    Limbs limbs(std::size_t length) {
        Limbs result(length);
        for (std::uint64_t& limb : result) {
            const auto kind = engine_() % 4;
            limb = kind == 0 ? 0 : kind == 1 ? limbBase - 1 : engine_() % limbBase;
        }
        return result;
    }

private:
    std::mt19937_64 engine_{4};
};

std::string textOf(const Limbs& limbs) {
    std::string digits(limbs.size() * digitsPerLimb, '#');
    writeLimbs(digits.data(), limbs);
    return digits;
}

Limbs product(const Limbs& a, const Limbs& b, const ProductLimits& limits = {}) {
    Limbs result(a.size() + b.size(), 1);
    multiplyLimbs(result, a, b, limits);
    return result;
}

TEST(DigitProduct, LimbsAreReadAndWritten) {
    const std::string digits = "112345678901234569999999999999999";
    const Limbs expected = {9999999999999999u, 1234567890123456u, 1u, 0u};
    for (std::size_t point = 0; point <= digits.size(); ++point) {
        Limbs limbs(4, 7);
        readLimbs(limbs, digits.substr(0, point), digits.substr(point));
        EXPECT_EQ(limbs, expected) << point;
    }
    EXPECT_EQ(textOf(expected), std::string(64 - digits.size(), '0') + digits);
}

TEST(DigitProduct, OneLimbIsReadAroundThePoint) {
    EXPECT_EQ(readLimb("", ""), 0u);
    EXPECT_EQ(readLimb("12", "034"), 12034u);
    EXPECT_EQ(readLimb("", "00000001"), 1u);
    EXPECT_EQ(readLimb("9999999999999999", ""), limbBase - 1);
    EXPECT_EQ(readLimb("1", "000000000000000"), limbBase / 10);
}

TEST(DigitProduct, DigitsTakeWholeLimbs) {
    EXPECT_EQ(limbsOf(0), 0u);
    EXPECT_EQ(limbsOf(1), 1u);
    EXPECT_EQ(limbsOf(16), 1u);
    EXPECT_EQ(limbsOf(17), 2u);
    EXPECT_EQ(limbsOf(SIZE_MAX), SIZE_MAX / 16 + 1);
}

TEST(DigitProduct, ProductOfTwoLimbs) {
    EXPECT_EQ(multiplyLimb(0, limbBase - 1), (std::array<std::uint64_t, 2>{0, 0}));
    EXPECT_EQ(multiplyLimb(limbBase - 1, limbBase - 1),
              (std::array<std::uint64_t, 2>{1, limbBase - 2}));
    EXPECT_EQ(multiplyLimb(100'000'000, 100'000'000), (std::array<std::uint64_t, 2>{0, 1}));
    EXPECT_EQ(multiplyLimb(123456789, 1000), (std::array<std::uint64_t, 2>{123456789000u, 0}));
}

TEST(DigitProduct, PlainWayAgreesWithIntegersInBinary) {
    Source source;
    for (std::size_t length = 1; length < 24; ++length) {
        const Limbs a = source.limbs(length);
        const Limbs b = source.limbs(24 - length);
        const BigInteger expected =
            BigInteger::ofText(textOf(a)).times(BigInteger::ofText(textOf(b)));
        ASSERT_EQ(BigInteger::ofText(textOf(product(a, b))).compare(expected), 0) << length;
    }
}

TEST(DigitProduct, PlainWayCarriesTheHighestColumns) {
    const Limbs nines(200, limbBase - 1);
    Limbs expected(400, limbBase - 1);
    std::fill(expected.begin(), expected.begin() + 200, 0);
    expected[0] = 1;
    expected[200] = limbBase - 2;
    EXPECT_EQ(product(nines, nines, plainly), expected);
}

TEST(DigitProduct, AllWaysAgree) {
    Source source;
    const ProductLimits ways[] = {
        {.halving = 2, .transform = SIZE_MAX},  // halves down to single limbs
        {.halving = 5, .transform = SIZE_MAX},
        {.halving = 16, .transform = 40},              // both
        {.halving = 1, .transform = 1},                // the transform alone
        {.halving = 3, .transform = 1, .longest = 7},  // in pieces
        {.halving = 3, .transform = SIZE_MAX, .longest = 10},
        {},
    };
    const std::size_t lengths[][2] = {{1, 1},   {2, 2},   {3, 2},    {5, 5},   {7, 6},
                                      {8, 8},   {31, 31}, {32, 31},  {64, 64}, {100, 99},
                                      {150, 3}, {3, 150}, {129, 65}, {1, 70},  {300, 300}};
    for (const auto& [first, second] : lengths) {
        const Limbs a = source.limbs(first);
        const Limbs b = source.limbs(second);
        const Limbs expected = product(a, b, plainly);
        for (const ProductLimits& limits : ways) {
            ASSERT_EQ(product(a, b, limits), expected)
                << first << ' ' << second << ' ' << limits.halving << ' ' << limits.transform;
        }
    }
}

TEST(DigitProduct, LongOnesAgreeAcrossTheWays) {
    Source source;
    const Limbs a = source.limbs(3000);
    const Limbs b = source.limbs(2600);
    EXPECT_TRUE(product(a, b) == product(a, b, {.transform = SIZE_MAX}));
}

TEST(DigitProduct, HalvingKeepsTheLargestSums) {
    const Limbs nines(2499, limbBase - 1);
    EXPECT_TRUE(product(nines, nines, {.halving = 2}) ==
                product(nines, nines, {.halving = 56, .transform = 1}));
}

TEST(NumberTransform, MultipliesPolynomials) {
    // (1 + 2x + 3x^2)(4 + 5x) = 4 + 13x + 22x^2 + 15x^3
    const Limbs a = {1, 2, 3};
    const Limbs b = {4, 5};
    std::vector<WideWord> coefficients(4);
    transformProduct(coefficients, a, b);
    EXPECT_TRUE(coefficients == (std::vector<WideWord>{4, 13, 22, 15}));
    const Limbs one = {7};
    coefficients.resize(1);
    transformProduct(coefficients, one, one);
    EXPECT_TRUE(coefficients[0] == 49);
}

// The middle coefficient of a square of nothing but the largest is the largest there is.
TEST(NumberTransform, HoldsTheLargestCoefficients) {
    const std::size_t length = 1 << 14;
    const Limbs nines(length, limbBase - 1);
    std::vector<WideWord> coefficients(2 * length - 1);
    transformProduct(coefficients, nines, nines);
    for (std::size_t place = 0; place < coefficients.size(); ++place) {
        const std::size_t products = std::min(place + 1, coefficients.size() - place);
        ASSERT_TRUE(coefficients[place] == WideWord{limbBase - 1} * (limbBase - 1) * products)
            << place;
    }
}

}  // namespace
}  // namespace nolk
