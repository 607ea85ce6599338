#include "nolk/core/values/DigitSums.h"

#include <gtest/gtest.h>

#include <cstdint>

#include <string>
#include <string_view>
#include <utility>

#include "nolk/core/values/DigitWords.h"

namespace nolk {
namespace {

std::uint64_t powerOfTen(std::size_t exponent) {
    return exponent == 0 ? 1 : 10 * powerOfTen(exponent - 1);
}

std::string padded(std::uint64_t value, std::size_t length) {
    const std::string digits = std::to_string(value);
    return std::string(length - digits.size(), '0') + digits;
}

// Some values of each length up to 18 digits, the ends included.
template <typename Action>
void forPairs(const Action& action) {
    std::uint64_t seed = 1;
    for (std::size_t length = 1; length <= 18; ++length) {
        const std::uint64_t limit = powerOfTen(length);
        for (int round = 0; round < 50; ++round) {
            seed = seed * 6364136223846793005u + 1442695040888963407u;
            const std::uint64_t a = round == 0 ? limit - 1 : (seed >> 8) % limit;
            seed = seed * 6364136223846793005u + 1442695040888963407u;
            const std::uint64_t b = round < 2 ? limit - 1 : (seed >> 8) % limit;
            action(length, limit, a, b);
        }
    }
}

TEST(DigitSums, AddsInPlace) {
    forPairs([](std::size_t length, std::uint64_t limit, std::uint64_t a, std::uint64_t b) {
        for (const bool carry : {false, true}) {
            std::string digits = "#" + padded(a, length) + "#";
            const std::uint64_t sum = a + b + carry;
            ASSERT_EQ(asciiAdd(&digits[1], padded(b, length), carry), sum >= limit);
            ASSERT_EQ(digits, "#" + padded(sum % limit, length) + "#");
        }
    });
    EXPECT_TRUE(asciiAdd(nullptr, {}, true));
    EXPECT_FALSE(asciiAdd(nullptr, {}, false));
}

TEST(DigitSums, SubtractsInPlace) {
    forPairs([](std::size_t length, std::uint64_t limit, std::uint64_t a, std::uint64_t b) {
        for (const bool borrow : {false, true}) {
            std::string digits = "#" + padded(a, length) + "#";
            const std::uint64_t difference = a + limit - b - borrow;
            ASSERT_EQ(asciiSubtract(&digits[1], padded(b, length), borrow), difference < limit);
            ASSERT_EQ(digits, "#" + padded(difference % limit, length) + "#");
        }
    });
    EXPECT_TRUE(asciiSubtract(nullptr, {}, true));
    EXPECT_FALSE(asciiSubtract(nullptr, {}, false));
}

TEST(DigitSums, CountsUpAndDown) {
    for (const auto& [low, high] : {std::pair<std::string, std::string>{"0", "1"},
                                    {"199", "200"},
                                    {"0999999999", "1000000000"},
                                    {"41", "42"}}) {
        std::string digits = low;
        EXPECT_FALSE(asciiIncrement(digits.data(), digits.size()));
        EXPECT_EQ(digits, high);
        EXPECT_FALSE(asciiDecrement(digits.data(), digits.size()));
        EXPECT_EQ(digits, low);
    }
    std::string digits = "99";
    EXPECT_TRUE(asciiIncrement(digits.data(), digits.size()));
    EXPECT_EQ(digits, "00");
    EXPECT_TRUE(asciiDecrement(digits.data(), digits.size()));
    EXPECT_EQ(digits, "99");
}

TEST(DigitSums, StripsZerosAtEitherEnd) {
    for (std::size_t zeros = 0; zeros < 30; ++zeros) {
        for (const std::string digits : {"", "1", "10203", "1000000002", "900000000000000000009"}) {
            const std::string some(zeros, '0');
            EXPECT_EQ(withoutLeadingZeros(some + digits), digits);
            EXPECT_EQ(withoutTrailingZeros(digits + some), digits);
        }
    }
}

TEST(DigitSums, ComparesIntegersAndFractions) {
    EXPECT_LT(compareIntegers("9", "10"), 0);
    EXPECT_GT(compareIntegers("10", "009"), 0);
    EXPECT_EQ(compareIntegers("000", ""), 0);
    EXPECT_EQ(compareIntegers("0012", "12"), 0);
    EXPECT_GT(compareFractions("9", "10"), 0);
    EXPECT_LT(compareFractions("09", "10"), 0);
    EXPECT_EQ(compareFractions("000", ""), 0);
    EXPECT_EQ(compareFractions("12", "1200"), 0);
    EXPECT_LT(compareFractions("12", "1201"), 0);
}

TEST(DigitSums, CopiesAnyLength) {
    const std::string source = "abcdefghijklmnopqrstuvwxyz0123456789";
    for (std::size_t length = 0; length <= source.size(); ++length) {
        std::string copy(source.size() + 2, '#');
        char* const end = appendText(&copy[1], std::string_view(source).substr(0, length));
        EXPECT_EQ(end, &copy[1] + length);
        EXPECT_EQ(copy,
                  "#" + source.substr(0, length) + std::string(source.size() + 1 - length, '#'));
    }
}

TEST(DigitSums, WordsReadAndWriteDigits) {
    forPairs([](std::size_t length, std::uint64_t, std::uint64_t a, std::uint64_t) {
        const std::string digits = padded(a, length);
        if (length <= 16) {
            ASSERT_EQ(digits::parseFew(digits.data(), length), a);
        }
        if (length == 8) {
            ASSERT_EQ(digits::parseEight(digits.data()), a);
        }
        if (length <= 8) {
            std::string printed = "########";
            digits::printEight(printed.data(), a);
            ASSERT_EQ(printed, padded(a, 8));
        }
        if (length < 8) {
            std::string copy(length, '#');
            digits::storeFew(copy.data(), digits::loadFew(digits.data(), length), length);
            ASSERT_EQ(copy, digits);
        }
    });
    EXPECT_EQ(digits::parseFew("", 0), 0u);
}

}  // namespace
}  // namespace nolk
