#include <nolk/core/UStringIterator.h>

#include <nolk/core/ConversionException.h>
#include <nolk/core/OutOfBoundsException.h>
#include <nolk/core/UStringConstIterator.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "UnitText.h"

namespace nolk {
namespace {

using namespace test;

std::string failureOf(const auto& action) {
    try {
        action();
    } catch (const OutOfBoundsException& failure) {
        return failure.what();
    } catch (const ConversionException& failure) {
        return failure.what();
    } catch (const Exception& failure) {
        return std::string("plain ") + failure.what();
    }
    return "nothing was thrown";
}

std::string illegalIndex(unsigned index, unsigned length) {
    return "[BOUNDS_ILLEGAL_INDEX] Illegal Index (" + std::to_string(index) +
           ") for collection or string with " + std::to_string(length) + " elements";
}

std::string incompleteAt(unsigned position) {
    const std::string n = std::to_string(position);
    return "[CONVERSION_INCOMPLETE_SEQUENCE] The byte values at elements " + n + " through " + n +
           " form an incomplete encoding sequence";
}

// Both kinds behave alike but for writing.
template <typename Iterator>
class UStringIterators : public testing::Test {
public:
    static UChar32 read(const Iterator& i) { return *i; }
};
using BothKinds = testing::Types<UStringIterator, UStringConstIterator>;
TYPED_TEST_SUITE(UStringIterators, BothKinds);

TYPED_TEST(UStringIterators, WalkForwardByCodePoints) {
    UString s = text(u"a\U0001F600\uFFFF");
    TypeParam i(s);
    EXPECT_EQ(unsigned{i}, 0u);
    EXPECT_EQ(TestFixture::read(i), UChar32{'a'});
    EXPECT_EQ(i.data(), s.data());
    EXPECT_EQ(&++i, &i);
    EXPECT_EQ(unsigned{i}, 1u);
    EXPECT_EQ(TestFixture::read(i), UChar32{0x1F600});
    const TypeParam before = i++;
    EXPECT_EQ(unsigned{before}, 1u);
    EXPECT_EQ(unsigned{i}, 3u);
    EXPECT_EQ(i.data(), s.data() + 3);
    EXPECT_EQ(TestFixture::read(i), UChar32{0xFFFF});
    ++i;
    EXPECT_TRUE(i == s.endCodePointIterator());
    EXPECT_EQ(failureOf([&] { ++i; }), illegalIndex(4, 4));
    EXPECT_EQ(failureOf([&] { i++; }), illegalIndex(4, 4));
    EXPECT_EQ(failureOf([&] { TestFixture::read(i); }), illegalIndex(4, 4));
    EXPECT_EQ(unsigned{i}, 4u);
}

TYPED_TEST(UStringIterators, WalkBackByCodePoints) {
    UString s = text(u"a\U0001F600z");
    TypeParam i = s.endCodePointIterator();
    EXPECT_EQ(unsigned{i}, 4u);
    EXPECT_EQ(&--i, &i);
    EXPECT_EQ(TestFixture::read(i), UChar32{'z'});
    const TypeParam before = i--;
    EXPECT_EQ(unsigned{before}, 3u);
    EXPECT_EQ(unsigned{i}, 1u);
    EXPECT_EQ(TestFixture::read(i), UChar32{0x1F600});
    --i;
    EXPECT_TRUE(i == s.beginCodePointIterator());
    EXPECT_EQ(failureOf([&] { --i; }), illegalIndex(0, 0));
    EXPECT_EQ(failureOf([&] { i--; }), illegalIndex(0, 0));
    EXPECT_EQ(unsigned{i}, 0u);
}

TYPED_TEST(UStringIterators, AdvanceBySeveralCodePoints) {
    UString s = text(u"a\U0001F600\U0001F600z");
    TypeParam i(s);
    EXPECT_EQ(unsigned{i.advanceCodePoints(3)}, 5u);
    EXPECT_EQ(unsigned{i.advanceCodePoints(-2)}, 1u);
    EXPECT_EQ(unsigned{i.advanceCodePoints(0)}, 1u);
    EXPECT_EQ(failureOf([&] { i.advanceCodePoints(4); }), illegalIndex(6, 6));
    EXPECT_EQ(failureOf([&] { i.advanceCodePoints(-5); }), illegalIndex(0, 0));
}

TYPED_TEST(UStringIterators, WithoutAStringThrow) {
    TypeParam i;
    EXPECT_EQ(i.data(), nullptr);
    EXPECT_EQ(unsigned{i}, 0u);
    const std::string start = "plain [INVALID_ITERATOR]";
    for (const std::string& failure :
         {failureOf([&] { ++i; }), failureOf([&] { --i; }), failureOf([&] { i++; }),
          failureOf([&] { i--; }), failureOf([&] { TestFixture::read(i); }), failureOf([&] { *i; }),
          failureOf([&] { i.advanceCodePoints(1); })}) {
        EXPECT_TRUE(failure.starts_with(start)) << failure;
    }
    EXPECT_NO_THROW(i.advanceCodePoints(0));
    EXPECT_TRUE(i == TypeParam());
}

TYPED_TEST(UStringIterators, StopBehindALoneSurrogateAndNameItTwice) {
    for (const std::u16string& s :
         {std::u16string(u"ab\xD800"), std::u16string(u"ab\xD800z"), std::u16string(u"ab\xDC00"),
          std::u16string(u"ab\xDC00\xD800"), std::u16string(u"ab\xD800\xD800\xDC00")}) {
        UString string = text(s);
        TypeParam i(string);
        i.advanceCodePoints(2);
        EXPECT_EQ(failureOf([&] { TestFixture::read(i); }), incompleteAt(2));
        EXPECT_EQ(failureOf([&] { *i; }), incompleteAt(2));
        EXPECT_EQ(unsigned{i}, 2u);
        EXPECT_EQ(failureOf([&] { ++i; }), incompleteAt(2));
        EXPECT_EQ(unsigned{i}, 3u);
    }
}

TYPED_TEST(UStringIterators, StopBeforeALoneSurrogateGoingBack) {
    for (const std::u16string& s :
         {std::u16string(u"a\xD800"), std::u16string(u"a\xDC00"), std::u16string(u"\xD800\xD800"),
          std::u16string(u"\xDC00\xDC00")}) {
        UString string = text(s);
        TypeParam i = string.endCodePointIterator();
        EXPECT_EQ(failureOf([&] { --i; }), incompleteAt(1));
        EXPECT_EQ(unsigned{i}, 1u);
    }
    UString pair = text(u"\xDC00\U0001F600");
    TypeParam i = pair.endCodePointIterator();
    --i;
    EXPECT_EQ(unsigned{i}, 1u);
    EXPECT_EQ(failureOf([&] { --i; }), incompleteAt(0));
}

TYPED_TEST(UStringIterators, AreEqualAtOnePlaceOfOneString) {
    UString s = text(u"abc");
    UString other = text(u"abc");
    TypeParam i(s);
    TypeParam j(s);
    EXPECT_TRUE(i == j);
    EXPECT_FALSE(i != j);
    ++j;
    EXPECT_FALSE(i == j);
    EXPECT_TRUE(i != j);
    EXPECT_FALSE(i == TypeParam(other));
    EXPECT_FALSE(i == TypeParam());
    const UStringIterator writing(s);
    const UStringConstIterator reading(s);
    EXPECT_TRUE(i == writing);
    EXPECT_TRUE(i == reading);
    EXPECT_TRUE(writing == reading);
    EXPECT_TRUE(reading == writing);
    EXPECT_TRUE(writing != s.endCodePointIterator());
    EXPECT_TRUE(std::as_const(s).endCodePointIterator() != writing);
}

TYPED_TEST(UStringIterators, KeepTheEndThatTheyWereMadeWith) {
    UString s = text(u"ab");
    TypeParam i(s);
    s.append(u"cd"_u);
    i.advanceCodePoints(2);
    EXPECT_EQ(failureOf([&] { ++i; }), illegalIndex(2, 2));
    EXPECT_EQ(failureOf([&] { TestFixture::read(i); }), illegalIndex(2, 2));
}

TYPED_TEST(UStringIterators, OfAStringThatBecameShorterDoNotLeaveIt) {
    UString s = text(u"abcdefghij");
    TypeParam i(s);
    i.advanceCodePoints(8);
    s.remove(3);
    EXPECT_EQ(failureOf([&] { ++i; }), illegalIndex(8, 3));
    EXPECT_EQ(failureOf([&] { TestFixture::read(i); }), illegalIndex(8, 3));
    EXPECT_EQ(failureOf([&] { --i; }), illegalIndex(7, 3));
    UString other = text(u"abcdefghij");
    TypeParam end = other.endCodePointIterator();
    other.remove(3);
    EXPECT_EQ(failureOf([&] { ++end; }), illegalIndex(10, 10));  // that is its end
    EXPECT_EQ(failureOf([&] { TestFixture::read(end); }), illegalIndex(10, 10));
    s = u"ab\xD83D"_u;
    TypeParam j(s);
    j.advanceCodePoints(2);
    s.append(unit(u'\xDE00'), 1);
    EXPECT_EQ(failureOf([&] { TestFixture::read(j); }), incompleteAt(2));  // within its end
}

TEST(UStringIterator, ReplacesCodePointsAndFollowsTheEnd) {
    UString s = text(u"abc");
    UStringIterator i(s);
    *i = UChar32{0x10000};
    EXPECT_EQ(shown(s), u"\U00010000bc");
    EXPECT_EQ(UStringIterators<UStringIterator>::read(i), UChar32{0x10000});
    ++i;
    EXPECT_EQ(unsigned{i}, 2u);
    ++i;
    ++i;
    EXPECT_EQ(unsigned{i}, 4u);
    EXPECT_TRUE(i == s.endCodePointIterator());
    EXPECT_EQ(failureOf([&] { ++i; }), illegalIndex(4, 4));
}

TEST(UStringIterator, ReplacesAPairByAUnitAndFollowsTheEnd) {
    UString s = text(u"\U0001F600\U0001F601z");
    UStringIterator i(s);
    *i = UChar32{'a'};
    EXPECT_EQ(shown(s), u"a\U0001F601z");
    ++i;
    *i = unit(u'b');
    EXPECT_EQ(shown(s), u"abz");
    i.advanceCodePoints(2);
    EXPECT_EQ(failureOf([&] { ++i; }), illegalIndex(3, 3));
}

TEST(UStringIterator, ReplacesAPairByAPairAndAUnitByAUnit) {
    UString s = text(u"\U0001F600z");
    UStringIterator i(s);
    *i = UChar32{0x1F601};
    ++i;
    *i = UChar32{'y'};
    EXPECT_EQ(shown(s), u"\U0001F601y");
    ++i;
    EXPECT_TRUE(i == s.endCodePointIterator());
}

TEST(UStringIterator, CopiesCodePointsFromPlaceToPlace) {
    UString s = text(u"\U0001F600z");
    UStringIterator from(s);
    UStringIterator to(s);
    ++to;
    *to = *from;
    EXPECT_EQ(shown(s), u"\U0001F600\U0001F600");
    const UChar32 read = *to;
    EXPECT_EQ(read, UChar32{0x1F600});
}

TEST(UStringIterator, LeavesOtherCopiesOfTheStringAlone) {
    UString s = text(u"abcdefgh");
    const UString copy(s);
    UStringIterator i(s);
    *i = UChar32{'x'};
    EXPECT_EQ(shown(s), u"xbcdefgh");
    EXPECT_EQ(shown(copy), u"abcdefgh");
}

TEST(UStringIterator, RefusesToReplaceWhatItCannotRead) {
    UString s = text(u"a\xD800");
    UStringIterator i(s);
    ++i;
    EXPECT_EQ(failureOf([&] { *i = unit(u'x'); }), incompleteAt(1));
    UStringIterator end = s.endCodePointIterator();
    EXPECT_EQ(failureOf([&] { *end = unit(u'x'); }), illegalIndex(2, 2));
    EXPECT_EQ(shown(s), u"a\xD800");
}

TEST(UStringIterator, WritesTheGreatestCodePoint) {
    UString s = text(u"abc");
    UStringIterator i(s);
    *i = UChar32{0x10FFFF};
    EXPECT_EQ(shown(s), u"\U0010FFFFbc");
}

TEST(UStringIterator, RefusesToWriteWhatIsNoCodePoint) {
    UString s = text(u"abc");
    UStringIterator i(s);
    EXPECT_THROW(*i = UChar32{0x110000}, ConversionException);
    EXPECT_EQ(shown(s), u"abc");
}

}  // namespace
}  // namespace nolk
