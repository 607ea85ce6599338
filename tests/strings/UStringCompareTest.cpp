#include <nolk/core/UString.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "UnitText.h"

namespace nolk {
namespace {

using namespace test;

constexpr unsigned npos = UString::npos;

struct CompareCase {
    std::u16string a;
    std::u16string b;
    int byUnits;
    int byPoints;
};

// Differences of units; where supplementary characters meet others from U+D800 on, of the places
// that these get in the order of code points: U+E000 at D800, U+FFFD at F7FD, D800 at F800.
const CompareCase cases[] = {
    {u"", u"", 0, 0},
    {u"abc", u"abc", 0, 0},
    {u"", u"a", -1, -1},
    {u"a", u"", 1, 1},
    {u"ab", u"abcd", -1, -1},
    {u"abcdefghijk", u"ab", 1, 1},
    {u"a", u"b", -1, -1},
    {u"abz", u"abc", 23, 23},
    {u"a", u"\uFFFF", 0x61 - 0xFFFF, 0x61 - 0xFFFF},
    {u"b", u"aa", 1, 1},
    {std::u16string(u"a\0b", 3), std::u16string(u"a\0c", 3), -1, -1},
    {u"\uD7FF", u"\uE000", -0x801, -0x801},
    {u"\uE000", u"\uFFFD", -0x1FFD, -0x1FFD},
    {u"\U00010000", u"\uFFFD", 0xD800 - 0xFFFD, 0xF800 - 0xF7FD},
    {u"\uE000", u"\U00010000", 0xE000 - 0xD800, 0xD800 - 0xF800},
    {u"\U00010000", u"\uD7FF", 1, 1},
    {u"\U00010000", u"\U0010FFFF", 0xD800 - 0xDBFF, 0xD800 - 0xDBFF},
    {u"\U00010000", u"\U00010001", -1, -1},
    {u"x\xDFFF", u"x\uFFFF", 0xDFFF - 0xFFFF, 0xFFFF - 0xF7FF},
    {u"same text before\U00010000", u"same text before\uFFFD", 0xD800 - 0xFFFD, 0xF800 - 0xF7FD},
};

Points pointsOf(const UString& s) {
    Points points;
    for (UStringConstIterator i(s); i != s.endCodePointIterator(); ++i) {
        points.push_back(*i);
    }
    points.push_back(0);
    return points;
}

TEST(UStringCompare, ByUnitsGivesTheDifferenceOfTheFirstUnitsThatDiffer) {
    for (const CompareCase& c : cases) {
        const UString a = text(c.a);
        const UString b = text(c.b);
        const UString embedded = text(u"<<" + c.b + u">");
        const Units units = test::units(c.b);
        EXPECT_EQ(a.compareCodeUnits(b), c.byUnits);
        EXPECT_EQ(a.compareTo(b), c.byUnits);
        EXPECT_EQ(b.compareTo(a), -c.byUnits);
        EXPECT_EQ(a.compareCodeUnits(embedded, 2, b.length()), c.byUnits);
        EXPECT_EQ(a.compareTo(embedded, 2, b.length()), c.byUnits);
        EXPECT_EQ(a.compareCodeUnits(units.data(), b.length()), c.byUnits);
        EXPECT_EQ(a.compareTo(units.data(), b.length()), c.byUnits);
        EXPECT_EQ(UString::compareCodeUnits(a.view(), b.view()), c.byUnits);
        if (c.b.find(u'\0') == std::u16string::npos) {
            EXPECT_EQ(a.compareCodeUnits(units.c_str()), c.byUnits);
            EXPECT_EQ(a.compareTo(units.c_str()), c.byUnits);
            EXPECT_EQ(a.compareTo(units.c_str(), npos), c.byUnits);
        }
        EXPECT_EQ(a.equals(b), c.byUnits == 0);
    }
}

TEST(UStringCompare, ByCodePointsSortsSupplementaryCharactersBehindAllOthers) {
    for (const CompareCase& c : cases) {
        const UString a = text(c.a);
        const UString b = text(c.b);
        const UString embedded = text(u"<<" + c.b + u">");
        const Units units = test::units(c.b);
        EXPECT_EQ(a.compareCodePoints(b), c.byPoints);
        EXPECT_EQ(b.compareCodePoints(a), -c.byPoints);
        EXPECT_EQ(a.compareCodePoints(embedded, 2, b.length()), c.byPoints);
        EXPECT_EQ(a.compareCodePoints(units.data(), b.length()), c.byPoints);
        if (c.b.find(u'\0') == std::u16string::npos) {
            EXPECT_EQ(a.compareCodePoints(units.c_str()), c.byPoints);
        }
    }
}

TEST(UStringCompare, WithUtf32IsByCodePoints) {
    for (const CompareCase& c : cases) {
        const UString a = text(c.a);
        const Points points = pointsOf(text(c.b));
        if (c.b.find(u'\0') == std::u16string::npos) {
            EXPECT_EQ(a.compareTo(points.data()), c.byPoints);
            EXPECT_EQ(a.compareCodePoints(points.data()), c.byPoints);
        }
        const unsigned n = static_cast<unsigned>(points.size() - 1);
        EXPECT_EQ(a.compareTo(points.data(), n), c.byPoints);
        EXPECT_EQ(a.compareCodePoints(points.data(), n), c.byPoints);
    }
    const Points zero{'a', 0, 'c'};
    EXPECT_EQ(text(std::u16string(u"a\0b", 3)).compareTo(zero.data(), 3), -1);
    EXPECT_EQ(text(std::u16string(u"a\0b", 3)).compareTo(zero.data()), 1);
}

TEST(UStringCompare, WithUtf32ThatEndsInsideOfAPairComparesTheUnitsOfThePair) {
    EXPECT_EQ(text(u"\xD83D").compareTo(U"\U0001F600"_p), -1);
    EXPECT_EQ(text(u"\U0001F600").compareTo(U"\U0001F600"_p), 0);
    EXPECT_EQ(text(u"\U0001F600!").compareTo(U"\U0001F600"_p), 1);
    EXPECT_EQ(text(u"\U0001F600").compareTo(U"\U0001F601"_p), -1);
    EXPECT_EQ(text(u"\U0001F600").compareTo(Points{0xD83D, 0}.data()), 1);
}

TEST(UStringCompare, WithWhatIsNoCodePointSortsBeforeIt) {
    const UChar32 wide = UChar32{0x41} | ~UChar32{0xFFFF};
    for (const UChar32 cp : {UChar32{0x110000}, ~UChar32{}, wide}) {
        const Points points{cp, 0};
        EXPECT_EQ(text(u"\U0010FFFF").compareTo(points.data()), -1);
        EXPECT_EQ(text(u"").compareTo(points.data()), -1);
        EXPECT_FALSE(text(u"A") == points.data());
    }
}

TEST(UStringCompare, ClampsRangesAndEndsAtATerminator) {
    const UString s = text(u"abc");
    EXPECT_EQ(s.compareTo(text(u"xabc"), 1, 100), 0);
    EXPECT_EQ(s.compareTo(text(u"xabc"), 1, npos), 0);
    EXPECT_EQ(s.compareTo(text(u"xabc"), 9, 9), 1);
    EXPECT_EQ(s.compareCodePoints(text(u"xabc"), 9, 9), 1);
    EXPECT_EQ(text(std::u16string(u"abc\0d", 5)).compareTo(u"abc"_u), 1);
    EXPECT_EQ(s.compareTo(u"abcd"_u, 3), 0);
}

TEST(UStringCompare, EqualsGoesByTheDataPointersBeforeTheLengths) {
    const UChar* const units = u"abcdefgh"_u;
    const UString longer(units, 8, UString::persistent);
    const UString shorter(units, 7, UString::persistent);
    EXPECT_TRUE(longer.equals(shorter));
    EXPECT_TRUE(shorter.equals(longer));
    EXPECT_FALSE(longer == shorter);
    EXPECT_TRUE(shorter < longer);
    EXPECT_EQ(shorter.compareTo(longer), -1);
}

TEST(UStringCompare, EqualsGoesByLengthAndUnitsInBuffersOfTheirOwn) {
    const UChar* const units = u"abcdefgh"_u;
    const UString longer(units, 8, UString::persistent);
    EXPECT_TRUE(longer.equals(UString(longer)));
    EXPECT_TRUE(longer.equals(longer));
    EXPECT_TRUE(longer.equals(UString(units, 8)));
    EXPECT_FALSE(longer.equals(UString(units, 7)));
    EXPECT_FALSE(UString(units, 7).equals(longer));
    EXPECT_FALSE(longer.equals(text(u"abcdefgx")));
    EXPECT_TRUE(UString().equals(UString(units, 0, UString::persistent)));
    EXPECT_FALSE(text(std::u16string(u"a\0b", 3)).equals(text(std::u16string(u"a\0c", 3))));
}

int sign(int value) {
    return value < 0 ? -1 : value > 0 ? 1 : 0;
}

TEST(UStringCompare, AgreesWithTheStandardString) {
    std::mt19937 random(20260102);
    const auto number = [&random](unsigned below) {
        return static_cast<unsigned>(random() % below);
    };
    for (int round = 0; round < 20000; ++round) {
        Units a(number(100), unit(u'm'));
        Units b(number(3) == 0 ? number(100) : static_cast<unsigned>(a.size()), unit(u'm'));
        for (Units* s : {&a, &b}) {
            if (!s->empty() && number(2) == 0) {
                (*s)[number(static_cast<unsigned>(s->size()))] = static_cast<UChar>(random());
            }
        }
        const UString s(a);
        const UString t(b);
        ASSERT_EQ(sign(s.compareTo(t)), sign(a.compare(b)));
        ASSERT_EQ(s == t, a == b);
        ASSERT_EQ(s < t, a < b);
        ASSERT_EQ(s.equals(t), a == b);
    }
}

}  // namespace
}  // namespace nolk
