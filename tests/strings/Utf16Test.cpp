#include <nolk/core/ConversionException.h>
#include <nolk/core/UString.h>
#include <nolk/core/strings/Utf16.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Utf8Reference.h"

namespace nolk {

// A private member may be named where a template is instantiated explicitly.
using ToUtf32 = UChar32* (UString::*)(UChar32*) const;
ToUtf32 privateToUtf32();
template <ToUtf32 member>
struct Reach {
    friend ToUtf32 privateToUtf32() { return member; }
};
template struct Reach<&UString::toUtf32>;

namespace {

using Points = std::vector<UChar32>;

// A value that no text has, behind what is written.
constexpr UChar32 untouched = 0xABCDEF01;

Points toUtf32(const test::Units& units) {
    const UString text(units.data(), static_cast<unsigned>(units.size()));
    Points points(units.size() + 1, untouched);
    UChar32* const end = (text.*privateToUtf32())(points.data());
    EXPECT_EQ(points.back(), untouched);
    points.resize(static_cast<std::size_t>(end - points.data()));
    return points;
}

std::string failureOf(const test::Units& units) {
    try {
        return std::to_string(toUtf32(units).size()) + " points";
    } catch (const ConversionException& failure) {
        return failure.what();
    }
}

std::string incomplete(const std::string& places) {
    return "[CONVERSION_INCOMPLETE_SEQUENCE] The byte values at elements " + places +
           " form an incomplete encoding sequence";
}

test::Units unitsOf(std::initializer_list<unsigned> values) {
    test::Units units;
    for (const unsigned value : values) {
        units += static_cast<UChar>(value);
    }
    return units;
}

TEST(ToUtf32, UnitsBecomeCodePointsAndPairsOne) {
    EXPECT_EQ(toUtf32(unitsOf({})), Points());
    EXPECT_EQ(toUtf32(unitsOf({'a', 0, 0xE9, 0x20AC, 0xFFFF})),
              (Points{'a', 0, 0xE9, 0x20AC, 0xFFFF}));
    EXPECT_EQ(toUtf32(unitsOf({0xD800, 0xDC00})), Points{0x10000});
    EXPECT_EQ(toUtf32(unitsOf({0xD83D, 0xDE00, 'b'})), (Points{0x1F600, 'b'}));
    EXPECT_EQ(toUtf32(unitsOf({0xDBFF, 0xDFFF})), Points{0x10FFFF});
    EXPECT_EQ(toUtf32(unitsOf({0xD7FF, 0xE000})), (Points{0xD7FF, 0xE000}));
}

TEST(ToUtf32, ALoneHighSurrogateIsToldWithItsIndexAndTheNext) {
    EXPECT_EQ(failureOf(unitsOf({0xD800})), incomplete("0 through 1"));
    EXPECT_EQ(failureOf(unitsOf({'a', 'b', 0xDBFF})), incomplete("2 through 3"));
    EXPECT_EQ(failureOf(unitsOf({0xD800, 'a'})), incomplete("0 through 1"));
    EXPECT_EQ(failureOf(unitsOf({0xD800, 0xD800, 0xDC00})), incomplete("0 through 1"));
    EXPECT_EQ(failureOf(unitsOf({0xD800, 0xDC00, 0xD800})), incomplete("2 through 3"));
}

TEST(ToUtf32, ALoneLowSurrogateIsToldWithItsIndexTwice) {
    EXPECT_EQ(failureOf(unitsOf({0xDC00})), incomplete("0 through 0"));
    EXPECT_EQ(failureOf(unitsOf({'a', 0xDFFF, 'b'})), incomplete("1 through 1"));
    EXPECT_EQ(failureOf(unitsOf({0xDC00, 0xD800})), incomplete("0 through 0"));
    EXPECT_EQ(failureOf(unitsOf({0xD800, 0xDC00, 0xDC00})), incomplete("2 through 2"));
}

TEST(ToUtf32, EveryCharacterComesBackFromItsUnits) {
    for (std::uint32_t c = 0; c < 0x110000; ++c) {
        if (c >= 0xD800 && c <= 0xDFFF) {
            continue;
        }
        test::Units units;
        test::appendUtf16(units, c);
        UChar32 point = 0;
        ASSERT_EQ(utf16::toUtf32(units.data(), static_cast<unsigned>(units.size()), &point),
                  &point + 1);
        ASSERT_EQ(point, c);
    }
}

}  // namespace
}  // namespace nolk
