#include <nolk/core/Locale.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "support/OtherLocale.h"

namespace nolk {
namespace {

TEST(Locale, GlobalIsThatOfCUntilAnotherIsInstalled) {
    EXPECT_EQ(Locale::global().decimal_point(), ".");
    EXPECT_EQ(Locale::global().thousands_sep(), "");
    const test::OtherLocale other(",", ".");
    const Locale* const first = &Locale::global();
    EXPECT_EQ(Locale::global(&other), first);
    EXPECT_EQ(&Locale::global(), &other);
    EXPECT_EQ(Locale::global(first), &other);
    EXPECT_EQ(&Locale::global(), first);
}

TEST(Locale, ReadsNumbers) {
    const struct {
        const char* text;
        double value;
    } rows[] = {{"12", 12},  {" \t12.5\n", 12.5}, {"-1.5", -1.5}, {"+ 1.5 ", 1.5}, {".5", 0.5},
                {"5.", 5},   {"-0", 0},           {"1e", -1},     {"", -1},        {" ", -1},
                {"-", -1},   {".", -1},           {"1,000", -1},  {"1.2.3", -1},   {"1 2", -1},
                {"--1", -1}, {"0x10", -1},        {"inf", -1},    {"nan", -1},     {"12a", -1}};
    for (const auto& row : rows) {
        double value = -1;
        EXPECT_EQ(Locale::global().stringToNum(row.text, &value), row.value != -1) << row.text;
        EXPECT_EQ(value, row.value) << row.text;
    }
}

}  // namespace
}  // namespace nolk
