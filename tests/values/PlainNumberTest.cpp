#include "nolk/core/values/PlainNumber.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace nolk {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(PlainNumber, TakesANumberOffTheFront) {
    std::string_view text = " 12 x";
    EXPECT_EQ(takeUnsigned(text), 12u);
    EXPECT_EQ(text, " x");
    EXPECT_EQ(takeUnsigned(text), std::nullopt);
    EXPECT_EQ(text, " x");
    text = " 1.5e3x";
    EXPECT_EQ(takeDouble(text), 1500.0);
    EXPECT_EQ(text, "x");
    EXPECT_EQ(takeDouble(text), std::nullopt);
    EXPECT_EQ(text, "x");
}

TEST(PlainNumber, CountsStopAtTheEndOf32BitsAndWrapBelowZero) {
    const struct {
        const char* text;
        std::uint32_t value;
    } rows[] = {
        {"4294967295", 4294967295u},
        {"4294967296", 4294967295u},
        {"99999999999999999999999", 4294967295u},
        {"-1", 4294967295u},
        {"-4294967295", 1u},
        {"-4294967296", 4294967295u},
        {"+7", 7u},
        {"-0", 0u},
    };
    for (const auto& row : rows) {
        std::string_view text = row.text;
        EXPECT_EQ(takeUnsigned(text), row.value) << row.text;
        EXPECT_EQ(text, "");
    }
}

TEST(PlainNumber, TakesTheFormsOfStrtod) {
    const struct {
        const char* text;
        double value;
        const char* rest;
    } rows[] = {
        {"1", 1, ""},
        {"-1", -1, ""},
        {"+1", 1, ""},
        {"\t\n\v\f\r 1", 1, ""},
        {"1.", 1, ""},
        {".5", 0.5, ""},
        {"1e", 1, "e"},
        {"1e+", 1, "e+"},
        {"1e+2", 100, ""},
        {"1.5.5", 1.5, ".5"},
        {"1,5", 1, ",5"},
        {"0x", 0, "x"},
        {"0xg", 0, "xg"},
        {"0x.", 0, "x."},
        {"0x1p4", 16, ""},
        {"0X1P4", 16, ""},
        {"-0x.8", -0.5, ""},
        {"0x1.8p", 1.5, "p"},
        {"inf", infinity, ""},
        {"-INFINITY", -infinity, ""},
        {"infinit", infinity, "init"},
        {"1e400", infinity, ""},
        {"-1e400", -infinity, ""},
        {"1e-400", 0, ""},
        {"0.0001e99999999999999999999", infinity, ""},
        {"1000e-99999999999999999999", 0, ""},
        {"0e99999999999999999999", 0, ""},
        {"0x1p2000", infinity, ""},
        {"0x1p-2000", 0, ""},
        {"0x.0001p99999999999", infinity, ""},
        {"4.9e-324", 4.9e-324, ""},
        {"1.7976931348623157e308", std::numeric_limits<double>::max(), ""},
    };
    for (const auto& row : rows) {
        std::string_view text = row.text;
        EXPECT_EQ(takeDouble(text), row.value) << row.text;
        EXPECT_EQ(text, row.rest) << row.text;
    }
    for (const char* none : {"", " ", ".", "+", "-", "+-1", "--1", "e5", ".e5", "x1", ",5", "i"}) {
        std::string_view text = none;
        EXPECT_EQ(takeDouble(text), std::nullopt) << none;
        EXPECT_EQ(text, none);
    }
    std::string_view text = "nan(12)x";
    EXPECT_TRUE(std::isnan(takeDouble(text).value_or(0)));
    EXPECT_EQ(text, "x");
}

TEST(PlainNumber, LongNumbersBeyondTheRangeAreLargeOrSmallByTheirPlaces) {
    const std::string zeroes(500, '0');
    std::string large = "1" + zeroes;
    std::string small = "0." + zeroes + "1";
    std::string_view text = large;
    EXPECT_EQ(takeDouble(text), infinity);
    text = small;
    EXPECT_EQ(takeDouble(text), 0.0);
    large = "0." + zeroes + "1e900";
    text = large;
    EXPECT_EQ(takeDouble(text), infinity);
    small = "1" + zeroes + "e-900";
    text = small;
    EXPECT_EQ(takeDouble(text), 0.0);
}

// The run-time library's own reading; tests run in the locale "C".
TEST(PlainNumber, ReadsAsTheRunTimeLibraryDoes) {
    std::mt19937 random(1);
    constexpr char letters[] = "0123456789...eE+- ";
    for (int i = 0; i < 200000; ++i) {
        std::string whole;
        for (std::size_t length = random() % 12; length > 0; --length) {
            whole += letters[random() % (sizeof letters - 1)];
        }
        char* end = nullptr;
        const double expected = std::strtod(whole.c_str(), &end);
        std::string_view text = whole;
        const std::optional<double> value = takeDouble(text);
        ASSERT_EQ(value.has_value(), end != whole.c_str()) << whole;
        ASSERT_EQ(text, end) << whole;
        if (value) {
            ASSERT_EQ(std::bit_cast<std::uint64_t>(*value), std::bit_cast<std::uint64_t>(expected))
                << whole;
        }
        const unsigned long long count = std::strtoull(whole.c_str(), &end, 10);
        text = whole;
        const std::optional<std::uint32_t> number = takeUnsigned(text);
        ASSERT_EQ(number.has_value(), end != whole.c_str()) << whole;
        ASSERT_EQ(text, end) << whole;
        if (number && whole.find('-') == std::string::npos) {
            ASSERT_EQ(*number, std::min<unsigned long long>(count, 4294967295u)) << whole;
        }
    }
}

}  // namespace
}  // namespace nolk
