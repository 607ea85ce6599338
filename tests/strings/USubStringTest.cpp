#include <nolk/core/USubString.h>

#include <nolk/core/OutOfBoundsException.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "UnitText.h"

namespace nolk {
namespace {

using namespace test;

constexpr unsigned npos = UString::npos;

std::string failureOf(const auto& action) {
    try {
        action();
    } catch (const OutOfBoundsException& failure) {
        return failure.what();
    }
    return "nothing was thrown";
}

std::string illegalIndex(const std::string& index, unsigned length) {
    return "[BOUNDS_ILLEGAL_INDEX] Illegal Index (" + index + ") for collection or string with " +
           std::to_string(length) + " elements";
}

TEST(USubString, ShowsAPartOfItsString) {
    UString s = text(u"grey sky");
    USubString part = s(5, 3);
    EXPECT_EQ(part.start(), 5u);
    EXPECT_EQ(part.length(), 3u);
    EXPECT_FALSE(part.isNull());
    EXPECT_EQ(part.data(), s.data() + 5);
    EXPECT_EQ(shown(part.view()), u"sky");
    EXPECT_EQ(part[0], unit(u's'));
    EXPECT_EQ(part(2), unit(u'y'));
    EXPECT_EQ(std::as_const(part)[0], unit(u's'));
    EXPECT_EQ(std::as_const(part)(2), unit(u'y'));
    EXPECT_EQ(shown(UString(part)), u"sky");
}

TEST(USubString, WritesUnitsOfItsString) {
    UString s = text(u"grey sky");
    USubString part = s(5, 3);
    part[1] = unit(u'p');
    part(0) = unit(u'S');
    EXPECT_EQ(shown(s), u"grey Spy");
}

TEST(USubString, ChecksAgainstItsOwnExtent) {
    UString s = text(u"grey sky");
    USubString part = s(0, 4);
    EXPECT_EQ(part.boundsCheckIndex(3), 3u);
    EXPECT_EQ(failureOf([&] { part.boundsCheckIndex(4); }), illegalIndex("4", 4));
    EXPECT_EQ(failureOf([&] { part[4]; }), illegalIndex("4", 4));
    EXPECT_EQ(failureOf([&] { std::as_const(part)[4]; }), illegalIndex("4", 4));
    EXPECT_EQ(failureOf([&] { part[npos]; }), illegalIndex("-1", 4));
    EXPECT_EQ(failureOf([&] { std::as_const(part)[npos - 1]; }), illegalIndex("-2", 4));
    EXPECT_EQ(failureOf([&] { part.boundsCheckLength(1, 4); }), illegalIndex("5", 4));
    EXPECT_EQ(failureOf([&] { part.boundsCheckLength(2, npos); }), illegalIndex("4294967297", 4));
    EXPECT_NO_THROW(part.boundsCheckLength(1, 3));
}

TEST(USubString, OfANullPartHasTheDataOfTheStringAndNoExtent) {
    UString s = text(u"grey sky");
    const USubString null(s, npos, 7);
    EXPECT_TRUE(null.isNull());
    EXPECT_EQ(null.start(), npos);
    EXPECT_EQ(null.length(), 0u);
    EXPECT_EQ(null.data(), s.data());
    EXPECT_TRUE(null.view().empty());
    EXPECT_THROW(null[0], OutOfBoundsException);
    EXPECT_TRUE(null == u""_u);
}

TEST(USubString, IsReplacedByAllKindsOfText) {
    const UString sky = text(u"grey sky");
    const auto replaced = [&sky](const auto& source) {
        UString s(sky);
        USubString part = s(0, 4);
        part = source;
        return shown(s);
    };
    UString other = text(u"<light blue>");
    EXPECT_EQ(replaced(text(u"pink")), u"pink sky");
    EXPECT_EQ(replaced(text(u"light blue")), u"light blue sky");
    EXPECT_EQ(replaced(other(1, 10)), u"light blue sky");
    EXPECT_EQ(replaced(std::as_const(other)(1, 5)), u"light sky");
    EXPECT_EQ(replaced(u"no"_u), u"no sky");
    EXPECT_EQ(replaced(U"\U0001F600"_p), u"\U0001F600 sky");
    EXPECT_EQ(replaced(unit(u'a')), u"a sky");
    EXPECT_EQ(replaced(UChar32{0x1F600}), u"\U0001F600 sky");
    EXPECT_EQ(replaced("Z\xC3\xBCrich"), u"Z\u00FCrich sky");
    EXPECT_EQ(replaced(text(u"")), u" sky");
}

TEST(USubString, KeepsItsExtentWhateverReplacesIt) {
    UString s = text(u"grey sky");
    USubString part = s(0, 4);
    part = u"light blue"_u;
    EXPECT_EQ(part.length(), 4u);
    EXPECT_EQ(shown(part.view()), u"ligh");
    part = u"x"_u;
    EXPECT_EQ(shown(s), u"xt blue sky");
    EXPECT_EQ(shown(part.view()), u"xt b");
}

TEST(USubString, OfANullPartIsNotReplaced) {
    UString s = text(u"grey sky");
    USubString null(s, npos, 0);
    null = u"pink"_u;
    null = text(u"pink");
    null = unit(u'p');
    null = UChar32{'p'};
    null = U"pink"_p;
    null = s(0, 2);
    null = std::as_const(s)(0, 2);
    EXPECT_EQ(shown(s), u"grey sky");
}

TEST(USubString, IsReplacedByItsOwnString) {
    UString s = text(u"abc");
    s(1, 1) = s;
    EXPECT_EQ(shown(s), u"aabcc");
    s(0, 2) = s(3, 2);
    EXPECT_EQ(shown(s), u"ccbcc");
}

TEST(USubString, OfAStringThatBecameShorterShowsWhatIsLeft) {
    UString s = text(u"a grey sky");
    USubString part = s(2, 8);
    s.remove(5);
    EXPECT_EQ(shown(part.view()), u"gre");
    EXPECT_EQ(part.length(), 8u);
    EXPECT_EQ(part[2], unit(u'e'));
    EXPECT_EQ(failureOf([&] { part[3]; }), illegalIndex("5", 5));
    s.remove(1);
    EXPECT_EQ(part.data(), s.data() + 1);
    EXPECT_TRUE(part.view().empty());
    EXPECT_EQ(shown(text(u"<").append(part)), u"<");
    part = u" text"_u;
    EXPECT_EQ(shown(s), u"a text");
}

TEST(UConstSubString, ShowsAPartOfItsString) {
    const UString s = text(u"grey sky");
    const UConstSubString part = s(5, 3);
    EXPECT_EQ(part.start(), 5u);
    EXPECT_EQ(part.length(), 3u);
    EXPECT_FALSE(part.isNull());
    EXPECT_EQ(part.data(), s.data() + 5);
    EXPECT_EQ(shown(part.view()), u"sky");
    EXPECT_EQ(part[0], unit(u's'));
    EXPECT_EQ(part(2), unit(u'y'));
    EXPECT_EQ(shown(UString(part)), u"sky");
    EXPECT_EQ(failureOf([&] { part[3]; }), illegalIndex("3", 3));
    EXPECT_EQ(failureOf([&] { part.boundsCheckLength(1, 3); }), illegalIndex("4", 3));
}

TEST(UConstSubString, OfANullPartHasTheDataOfTheStringAndNoExtent) {
    const UString s = text(u"grey sky");
    const UConstSubString null(s, npos, 7);
    EXPECT_TRUE(null.isNull());
    EXPECT_EQ(null.length(), 0u);
    EXPECT_EQ(null.data(), s.data());
    EXPECT_TRUE(null.view().empty());
}

}  // namespace
}  // namespace nolk
