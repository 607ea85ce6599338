#include <nolk/core/UStringReference.h>

#include <nolk/core/UString.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <type_traits>
#include <utility>

#include "UnitText.h"

namespace nolk {
namespace {

using namespace test;

using Reference = UString::UCharReference;

TEST(UStringReference, IsReadAsAUnit) {
    UString s(u"abca"_u);
    const UChar unit0 = s[0];
    const UChar listed{s[1]};
    EXPECT_EQ(unit0, unit(u'a'));
    EXPECT_EQ(listed, unit(u'b'));
    EXPECT_EQ(static_cast<char>(s[2]), 'c');
    EXPECT_EQ(static_cast<int>(s[2]), 0x63);
    EXPECT_EQ(UChar32{s[2]}, UChar32{0x63});
    EXPECT_EQ(s[2] - s[0], 2);
    EXPECT_EQ(s[0] + 1, 0x62);
    EXPECT_TRUE(s[0] ? true : false);
    EXPECT_FALSE(!s[0]);
    EXPECT_EQ(s[0] ? s[1] : unit(u'x'), unit(u'b'));
    switch (s[1]) {
        case UChar('b'):
            break;
        default:
            ADD_FAILURE();
    }
}

TEST(UStringReference, ComparesWithUnitsAndNumbersAndItsLike) {
    UString s(u"abca"_u);
    EXPECT_TRUE(s[0] == s[3]);
    EXPECT_TRUE(s[0] != s[1]);
    EXPECT_TRUE(s[0] < s[1]);
    EXPECT_TRUE(s[1] >= s[0]);
    EXPECT_TRUE(s[0] == 'a');
    EXPECT_TRUE('a' == s[0]);
    EXPECT_TRUE(s[0] == unit(u'a'));
    EXPECT_TRUE(unit(u'a') == s[0]);
    EXPECT_TRUE(s[0] == 0x61);
    EXPECT_TRUE(s[0] == std::as_const(s)[3]);
    EXPECT_TRUE(s[0] < 'b' && s[0] > 'A' && s[0] <= 0x61u && s[0] >= 0x61L);
    EXPECT_TRUE((s[0] <=> s[1]) < 0);
}

UChar sameUnit(UChar unit) {
    return unit;
}
UChar32 samePoint(UChar32 point) {
    return point;
}

TEST(UStringReference, IsPassedWhereAUnitIsAsked) {
    UString s(u"abc"_u);
    EXPECT_EQ(sameUnit(s[1]), unit(u'b'));
    EXPECT_EQ(samePoint(s[1]), UChar32{'b'});
    EXPECT_EQ(std::max<UChar>(s[0], s[1]), unit(u'b'));
    EXPECT_EQ(s.index(s[1]), 1u);
    EXPECT_EQ(s.rindex(1u, s[2]), 2u);
    EXPECT_TRUE(s.contains(s[0]));
    EXPECT_EQ(shown(s + s[0]), u"abca");
    EXPECT_EQ(shown(s[2] + s), u"cabc");
    EXPECT_EQ(shown(UString(s[1], 3)), u"bbb");
    EXPECT_EQ(shown(s += s[0]), u"abca");
    EXPECT_EQ(shown(s.append(s[1], 2)), u"abcabb");
    EXPECT_EQ(shown(s.insert(0, s[2], 1)), u"cabcabb");
    EXPECT_EQ(shown(s.resize(8, s[0])), u"cabcabbc");
    EXPECT_EQ(shown(s.replace(0, 8, s[1], 2)), u"aa");
    EXPECT_TRUE(UString::isHighSurrogate(text(u"\U0001F600")[0]));
    EXPECT_EQ(shown(s = s[0]), u"a");
}

TEST(UStringReference, IsAssignedUnits) {
    UString s(u"abc"_u);
    s[0] = unit(u'x');
    EXPECT_EQ(shown(s), u"xbc");
    s[1] = 'y';
    EXPECT_EQ(shown(s), u"xyc");
    s[2] = s[0];
    EXPECT_EQ(shown(s), u"xyx");
    s[0] = s[1] = unit(u'z');
    EXPECT_EQ(shown(s), u"zzx");
    s[1] = std::as_const(s)[2];
    EXPECT_EQ(shown(s), u"zxx");
    (s[0] = unit(u'q')) = unit(u'r');
    EXPECT_EQ(shown(s), u"rxx");
    auto&& kept = s[2];
    kept = unit(u'k');
    EXPECT_EQ(shown(s), u"rxk");
}

TEST(UStringReference, IsChangedAsAnInteger) {
    UString s(u"a"_u);
    EXPECT_EQ(s[0] += 2, unit(u'c'));
    EXPECT_EQ(s[0] -= 1, unit(u'b'));
    EXPECT_EQ(s[0] ^= 0x20, unit(u'B'));
    EXPECT_EQ(s[0] |= 0x20, unit(u'b'));
    EXPECT_EQ(s[0] &= 0x5F, unit(u'B'));
    EXPECT_EQ(s[0] <<= 1, UChar(0x84));
    EXPECT_EQ(s[0] >>= 2, UChar(0x21));
    EXPECT_EQ(s[0] *= 3, UChar(0x63));
    EXPECT_EQ(s[0] /= 2, UChar(0x31));
    EXPECT_EQ(s[0] %= 0x10, UChar(1));
    EXPECT_EQ(s[0] += s[0], UChar(2));
    EXPECT_EQ(++s[0], UChar(3));
    EXPECT_EQ(s[0]++, UChar(3));
    EXPECT_EQ(--s[0], UChar(3));
    EXPECT_EQ(s[0]--, UChar(3));
    EXPECT_EQ(s[0], UChar(2));
}

TEST(UStringReference, WrapsAroundAt16Bits) {
    UString s(u"\uFFFF"_u);
    EXPECT_EQ(++s[0], UChar(0));
    EXPECT_EQ(--s[0], UChar(0xFFFF));
    EXPECT_EQ(s[0] += 2, UChar(1));
    EXPECT_EQ(s[0] -= 2, UChar(0xFFFF));
    EXPECT_EQ(s[0] *= 0xFFFF, UChar(1));
    EXPECT_EQ(s[0] *= -1, UChar(0xFFFF));
    EXPECT_EQ(s[0] <<= 31, UChar(0));
}

TEST(UStringReference, ChangesItsStringAlone) {
    UString s(u"abcdefgh"_u);
    const UString copy(s);
    s[0] += 1;
    EXPECT_EQ(shown(s), u"bbcdefgh");
    EXPECT_EQ(shown(copy), u"abcdefgh");
    UString third(copy);
    swap(third[0], third[7]);
    EXPECT_EQ(shown(third), u"hbcdefga");
    EXPECT_EQ(shown(copy), u"abcdefgh");
}

TEST(UStringReference, SwapsUnits) {
    UString s(u"abcdefgh"_u);
    UString other(u"xyz"_u);
    swap(s[0], s[1]);
    EXPECT_EQ(shown(s), u"bacdefgh");
    swap(s[2], s[2]);
    EXPECT_EQ(shown(s), u"bacdefgh");
    swap(s[7], other[0]);
    EXPECT_EQ(shown(s), u"bacdefgx");
    EXPECT_EQ(shown(other), u"hyz");
    using std::swap;
    Reference first = s[0];
    Reference last = s[7];
    swap(first, last);
    EXPECT_EQ(shown(s), u"xacdefgb");
    std::ranges::swap(s[0], s[7]);
    EXPECT_EQ(shown(s), u"bacdefgx");
}

// A swap by way of a copied reference would lose a unit; so none is ever made.
static_assert(!std::is_copy_constructible_v<Reference> && !std::is_move_constructible_v<Reference>);
static_assert(std::is_nothrow_convertible_v<const Reference&, UChar>);

TEST(UStringReference, OutlivesTheBuffer) {
    UString s(u"abcdefgh"_u);
    Reference a = s[0];
    Reference b = s[1];
    const UChar old = a;
    a = b;
    b = old;
    EXPECT_EQ(shown(s), u"bacdefgh");
}

TEST(UStringReference, ChangesUnitsOfParts) {
    UString s(u"<beta>"_u);
    USubString part = s(1, 4);
    part[0] ^= 0x20;
    ++part[1];
    part(2) -= 1;
    swap(part[2], part(3));
    EXPECT_EQ(shown(s), u"<Bfas>");
}

}  // namespace
}  // namespace nolk
