#include <nolk/core/UStringOperators.h>

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <string>
#include <utility>

#include "UnitText.h"

namespace nolk {
namespace {

using namespace test;

// All six operators, either way round; `order` is that of a to b.
void checkOperators(const auto& a, const auto& b, int order) {
    EXPECT_EQ(a == b, order == 0);
    EXPECT_EQ(a != b, order != 0);
    EXPECT_EQ(a < b, order < 0);
    EXPECT_EQ(a <= b, order <= 0);
    EXPECT_EQ(a > b, order > 0);
    EXPECT_EQ(a >= b, order >= 0);
    EXPECT_EQ(b == a, order == 0);
    EXPECT_EQ(b != a, order != 0);
    EXPECT_EQ(b<a, order> 0);
    EXPECT_EQ(b <= a, order >= 0);
    EXPECT_EQ(b > a, order < 0);
    EXPECT_EQ(b >= a, order <= 0);
}

TEST(UStringOperators, CompareStringsWithAllKindsOfText) {
    const UString s = text(u"beta");
    checkOperators(s, text(u"alpha"), 1);
    checkOperators(s, text(u"beta"), 0);
    checkOperators(s, text(u"beta tester"), -1);
    checkOperators(s, u"alpha"_u, 1);
    checkOperators(s, u"beta"_u, 0);
    checkOperators(s, u"beta tester"_u, -1);
    checkOperators(s, U"alpha"_p, 1);
    checkOperators(s, U"beta"_p, 0);
    checkOperators(s, U"beta tester"_p, -1);
    EXPECT_TRUE(s == "beta");
    EXPECT_TRUE("alpha" < s);
}

TEST(UStringOperators, CompareUtf16ByUnitsAndUtf32ByCodePoints) {
    const UString s = text(u"\U00010000");
    checkOperators(s, text(u"\uFFFD"), -1);
    checkOperators(s, u"\uFFFD"_u, -1);
    checkOperators(s, U"\uFFFD"_p, 1);
    UString parent = text(u"<\U00010000>");
    checkOperators(parent(1, 2), text(u"\uFFFD"), -1);
    checkOperators(parent(1, 2), u"\uFFFD"_u, -1);
    checkOperators(parent(1, 2), U"\uFFFD"_p, 1);
}

TEST(UStringOperators, FindStringsOfAllFormsEqual) {
    const UString forms[] = {text(u"abc"), UString(u"abc"_u, 3u, 100u),
                             UString(u"abc"_u, UString::persistent), UString(u"abcd"_u, 3)};
    for (const UString& a : forms) {
        for (const UString& b : forms) {
            checkOperators(a, b, 0);
        }
    }
}

void checkPart(const auto& part) {
    checkOperators(part, text(u"alpha"), 1);
    checkOperators(part, text(u"beta"), 0);
    checkOperators(part, text(u"beta tester"), -1);
    checkOperators(part, u"alpha"_u, 1);
    checkOperators(part, u"beta"_u, 0);
    checkOperators(part, U"beta"_p, 0);
    checkOperators(part, U"beta tester"_p, -1);
    UString other = text(u"+beta+");
    checkOperators(part, other(1, 4), 0);
    checkOperators(part, std::as_const(other)(1, 4), 0);
    checkOperators(part, std::as_const(other)(1, 5), -1);
    checkOperators(part, other(0, 5), 1);
}

TEST(UStringOperators, ComparePartsWithAllKindsOfText) {
    UString parent = text(u"<beta>");
    checkPart(parent(1, 4));
    checkPart(std::as_const(parent)(1, 4));
}

TEST(UStringOperators, JoinStringsWithAllKindsOfText) {
    const UString s = text(u"ab");
    EXPECT_EQ(shown(s + text(u"cd")), u"abcd");
    EXPECT_EQ(shown(s + u"cd"_u), u"abcd");
    EXPECT_EQ(shown(s + U"\U0001F600"_p), u"ab\U0001F600");
    EXPECT_EQ(shown(s + unit(u'c')), u"abc");
    EXPECT_EQ(shown(s + UChar32{0x1F600}), u"ab\U0001F600");
    EXPECT_EQ(shown(u"cd"_u + s), u"cdab");
    EXPECT_EQ(shown(U"\U0001F600"_p + s), u"\U0001F600ab");
    EXPECT_EQ(shown(unit(u'c') + s), u"cab");
    EXPECT_EQ(shown(UChar32{0x1F600} + s), u"\U0001F600ab");
    EXPECT_EQ(shown("cd" + s + "ef"), u"cdabef");
    EXPECT_EQ(shown(s), u"ab");
    EXPECT_EQ((s + u"cdefgh"_u).capacity(), 75u);
}

TEST(UStringOperators, WriteUtf8) {
    std::ostringstream stream;
    stream << text(u"Z\u00FCrich \U0001F600") << '|' << std::setw(5) << std::left << text(u"ab")
           << '|' << text(u"\xD800");
    EXPECT_EQ(stream.str(), "Z\xC3\xBCrich \xF0\x9F\x98\x80|ab   |\xED\xA0\x80");
}

}  // namespace
}  // namespace nolk
