#include <nolk/core/CString.h>

#include <nolk/core/CSubString.h>

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "CStringSupport.h"

namespace nolk {

using namespace test;
namespace {

const std::string long100(100, 'x');
const std::string zeros("a\0b", 3);

// Opens what is for derived classes.
struct Open : CString {
    using CString::adjustCapacity;
    using CString::clobber;
    using CString::clone;
    using CString::cow;
    using CString::CString;
    Open(const CString& text) : CString(text) {}
    static CString joined(const char* a, unsigned an, const char* b, unsigned bn) {
        return Open(a, an, b, bn);
    }
};

// --- Making ---

TEST(CString, IsEmptyAtFirst) {
    const CString text;
    EXPECT_EQ(text.length(), 0u);
    EXPECT_EQ(text.capacity(), 64u);
    EXPECT_STREQ(text.data(), "");
    EXPECT_TRUE(text.isNull());
}

TEST(CString, NposIsMinusOneAsUnsigned) {
    EXPECT_EQ(CString::npos, 0xFFFFFFFFu);
}

TEST(CString, ModesAndStripTypesHaveTheirNumbers) {
    EXPECT_EQ(static_cast<int>(CString::exact), 0);
    EXPECT_EQ(static_cast<int>(CString::ignoreCase), 1);
    EXPECT_EQ(static_cast<int>(CString::ignoreCaseStrict), 2);
    EXPECT_EQ(static_cast<int>(CString::leading), 1);
    EXPECT_EQ(static_cast<int>(CString::trailing), 2);
    EXPECT_EQ(static_cast<int>(CString::both), 3);
}

TEST(CString, CapacityOf63StaysInTheObject) {
    const CString text(63);
    EXPECT_TRUE(text.isNull());
    EXPECT_TRUE(isInline(text));
    EXPECT_EQ(text.capacity(), 64u);
}

TEST(CString, CapacityOf64GoesToTheHeap) {
    const CString text(64);
    EXPECT_TRUE(text.isNull());
    EXPECT_FALSE(isInline(text));
    EXPECT_EQ(text.capacity(), 64u);
}

TEST(CString, CapacityIsTakenAsAskedFromTheHeap) {
    EXPECT_EQ(CString(65).capacity(), 65u);
    EXPECT_EQ(CString(1000u).capacity(), 1000u);
    EXPECT_EQ(CString('x', 200).capacity(), 200u);
    EXPECT_EQ(CString(long100).capacity(), 100u);
}

TEST(CString, CapacityMayBeOfAnyIntegerType) {
    EXPECT_EQ(CString(0).capacity(), 64u);
    EXPECT_EQ(CString(0u).capacity(), 64u);
    EXPECT_EQ(CString(short{70}).capacity(), 70u);
    EXPECT_EQ(CString(70L).capacity(), 70u);
    EXPECT_EQ(CString(70UL).capacity(), 70u);
    EXPECT_EQ(CString(70LL).capacity(), 70u);
    EXPECT_EQ(CString(std::size_t{70}).capacity(), 70u);
}

TEST(CString, CapacityOfNoPositionIsRefused) {
    EXPECT_THROW(CString{CString::npos}, std::length_error);
    EXPECT_THROW(CString(-1), std::length_error);
    EXPECT_THROW(CString(short{-1}), std::length_error);
    EXPECT_THROW(CString(0x100000000LL), std::length_error);
    EXPECT_THROW(CString('x', CString::npos), std::length_error);
    EXPECT_THROW(CString("x", CString::npos), std::length_error);
}

TEST(CString, CharacterIsNoCapacity) {
    EXPECT_FALSE((std::is_constructible_v<CString, char>));
    EXPECT_FALSE((std::is_convertible_v<int, CString>));
}

TEST(CString, IsMadeOfATerminatedText) {
    EXPECT_EQ(CString("abc").view(), "abc");
    EXPECT_EQ(CString("").length(), 0u);
    EXPECT_EQ(CString(long100.c_str()).view(), long100);
    EXPECT_EQ(CString("a\0b").length(), 1u);
}

TEST(CString, IsMadeOfCountedBytesWithZeroBytes) {
    const CString text("a\0b", 3);
    EXPECT_EQ(text.view(), zeros);
    EXPECT_EQ(text.data()[3], '\0');
    EXPECT_EQ(CString("abc", 2).view(), "ab");
    EXPECT_EQ(CString("abc", 0).view(), "");
}

TEST(CString, IsMadeOfOneByteManyTimes) {
    EXPECT_EQ(CString('x', 3).view(), "xxx");
    EXPECT_EQ(CString('x', 0).view(), "");
    EXPECT_EQ(CString('\0', 2).view(), std::string(2, '\0'));
    EXPECT_EQ(CString('x', 100).view(), long100);
}

TEST(CString, IsMadeOfStandardTexts) {
    EXPECT_EQ(CString(zeros).view(), zeros);
    EXPECT_EQ(CString(long100).view(), long100);
    EXPECT_EQ(CString(std::string_view("abc").substr(1)).view(), "bc");
    EXPECT_EQ(CString(std::string_view()).view(), "");
}

TEST(CString, IsMadeOfASubstring) {
    CString text("abcdef");
    EXPECT_EQ(CString(text(2, 3)).view(), "cde");
    EXPECT_EQ(CString(text(2, 0)).view(), "");
    EXPECT_EQ(CString(text(CString::npos, 0)).view(), "");
    EXPECT_EQ(CString(text(4, 100)).view(), "ef");
    EXPECT_EQ(CString(text(100, 1)).view(), "");
}

TEST(CString, NullPointerIsAnEmptyText) {
    const char* none = nullptr;
    EXPECT_TRUE(CString(none).isNull());
    EXPECT_TRUE(CString(nullptr).isNull());
    EXPECT_TRUE(CString(none, 5).isNull());
    EXPECT_TRUE(CString(none, 500).isNull());
    EXPECT_EQ(CString(none, 500).capacity(), 500u);
}

TEST(CString, IsJoinedOfTwoTexts) {
    EXPECT_EQ(Open::joined("abc", 2, "def", 3).view(), "abdef");
    EXPECT_EQ(Open::joined("", 0, "d", 1).view(), "d");
    EXPECT_EQ(Open::joined(nullptr, 4, "d", 1).view(), "d");
    EXPECT_EQ(Open::joined("a", 1, nullptr, 4).view(), "a");
    const CString joined = Open::joined(long100.data(), 100, long100.data(), 30);
    EXPECT_EQ(joined.view(), std::string(130, 'x'));
    EXPECT_EQ(joined.capacity(), 130u);
    EXPECT_THROW(Open::joined("a", CString::npos - 1, "b", 1), std::length_error);
}

// --- Copying ---

TEST(CString, CopyOfShortStringSharesNothing) {
    const CString text("abc");
    const CString copy(text);
    EXPECT_FALSE(shareBuffer(text, copy));
    EXPECT_TRUE(isInline(copy));
    EXPECT_EQ(copy.view(), "abc");
}

TEST(CString, CopyOfLongStringSharesUntilOneIsWritten) {
    CString text(long100);
    CString copy(text);
    EXPECT_TRUE(shareBuffer(text, copy));
    copy(0) = 'y';
    EXPECT_FALSE(shareBuffer(text, copy));
    EXPECT_EQ(text.view(), long100);
    EXPECT_EQ(copy.view(), "y" + long100.substr(1));
}

TEST(CString, WritingTheOriginalLeavesTheCopyAlone) {
    CString text(long100);
    const CString copy(text);
    text += 'y';
    EXPECT_EQ(text.view(), long100 + "y");
    EXPECT_EQ(copy.view(), long100);
}

TEST(CString, CopyOfShortTextOnTheHeapSharesIt) {
    const CString text(500);
    const CString copy(text);
    EXPECT_TRUE(shareBuffer(text, copy));
}

TEST(CString, CopyOfAFullSmallBufferStaysInTheObject) {
    CString text('x', 63);
    text += 'y';
    const CString copy(text);
    EXPECT_TRUE(isInline(text));
    EXPECT_TRUE(isInline(copy));
    EXPECT_EQ(copy.view(), std::string(63, 'x') + "y");
}

TEST(CString, CopyOperationSharesNothing) {
    const CString text(long100);
    const CString copy = text.copy();
    EXPECT_FALSE(shareBuffer(text, copy));
    EXPECT_EQ(copy.view(), long100);
    EXPECT_EQ(CString(zeros).copy().view(), zeros);
}

TEST(CString, BufferOutlivesTheStringThatMadeIt) {
    CString copy;
    {
        const CString text(long100);
        copy = text;
    }
    EXPECT_EQ(copy.view(), long100);
}

TEST(CString, MovedFromStringIsEmpty) {
    for (const std::string& content : {std::string("abc"), long100}) {
        CString text(content);
        CString moved(std::move(text));
        EXPECT_EQ(moved.view(), content);
        EXPECT_EQ(text.view(), "");
        text = "new";
        text = std::move(moved);
        EXPECT_EQ(text.view(), content);
        EXPECT_EQ(moved.view(), "");
    }
}

TEST(CString, MovingTakesTheBufferOnTheHeap) {
    CString text(long100);
    const char* data = text.data();
    const CString moved(std::move(text));
    EXPECT_EQ(moved.data(), data);
}

TEST(CString, MovingToItselfChangesNothing) {
    CString text(long100);
    CString& same = text;
    text = std::move(same);
    EXPECT_EQ(text.view(), long100);
}

TEST(CString, MayStandInAVector) {
    std::vector<CString> texts;
    for (unsigned i = 0; i < 100; ++i) {
        texts.emplace_back('x', i);
    }
    for (unsigned i = 0; i < 100; ++i) {
        EXPECT_EQ(texts[i].view(), std::string(i, 'x'));
    }
}

TEST(CString, AssignmentSharesOrCopiesAsCopyingDoes) {
    const CString shortText("abc");
    const CString longText(long100);
    CString text;
    text = longText;
    EXPECT_TRUE(shareBuffer(text, longText));
    text = longText;
    EXPECT_TRUE(shareBuffer(text, longText));
    text = shortText;
    EXPECT_TRUE(isInline(text));
    EXPECT_EQ(text.view(), "abc");
    EXPECT_EQ(longText.view(), long100);
}

TEST(CString, AssignmentToItselfChangesNothing) {
    for (const std::string& content : {std::string("abc"), long100}) {
        CString text(content);
        const CString& same = text;
        text = same;
        EXPECT_EQ(text.view(), content);
    }
}

TEST(CString, AssignmentOfAShortStringLeavesALargeBuffer) {
    CString text(500);
    text = CString("abc");
    const CString shortText("abc");
    text = shortText;
    EXPECT_EQ(text.capacity(), 64u);
}

TEST(CString, AssignmentOfATextKeepsABufferThatHoldsIt) {
    CString text(500);
    const char* data = text.data();
    text = "abc";
    EXPECT_EQ(text.view(), "abc");
    EXPECT_EQ(text.data(), data);
    EXPECT_EQ(text.capacity(), 500u);
}

TEST(CString, AssignmentOfATextMayFillTheBuffer) {
    const std::string text64(64, 'x');
    CString text;
    text = text64.c_str();
    EXPECT_EQ(text.view(), text64);
    EXPECT_TRUE(isInline(text));
    CString large(100);
    const char* data = large.data();
    large = long100.c_str();
    EXPECT_EQ(large.view(), long100);
    EXPECT_EQ(large.data(), data);
}

TEST(CString, AssignmentOfATextLeavesASharedBuffer) {
    CString text(long100);
    const CString copy(text);
    text = "abc";
    EXPECT_EQ(text.view(), "abc");
    EXPECT_TRUE(isInline(text));
    EXPECT_EQ(copy.view(), long100);
}

TEST(CString, AssignmentOfALongerTextGrows) {
    CString text("abc");
    text = long100.c_str();
    EXPECT_EQ(text.view(), long100);
    EXPECT_EQ(text.capacity(), 128u);
}

TEST(CString, MayBeAssignedAPointerIntoItself) {
    CString shortText("abcdef");
    shortText = shortText.data() + 2;
    EXPECT_EQ(shortText.view(), "cdef");
    CString longText((std::string(50, 'a') + std::string(50, 'b')).c_str());
    longText = longText.data() + 10;
    EXPECT_EQ(longText.view(), std::string(40, 'a') + std::string(50, 'b'));
    CString shared(long100);
    const CString copy(shared);
    shared = shared.data() + 1;
    EXPECT_EQ(shared.view(), long100.substr(1));
    EXPECT_EQ(copy.view(), long100);
}

TEST(CString, AssignmentOfNullEmpties) {
    const char* none = nullptr;
    CString text("abc");
    text = none;
    EXPECT_EQ(text.view(), "");
}

TEST(CString, AssignmentTakesStandardStrings) {
    CString text;
    text = zeros;
    EXPECT_EQ(text.view(), zeros);
}

// --- Reading ---

TEST(CString, BecomesAStandardStringWithItsZeroBytes) {
    const std::string text = CString(zeros);
    EXPECT_EQ(text, zeros);
    EXPECT_EQ(std::string(CString(zeros)), zeros);
    std::string assigned;
    assigned = CString(zeros);
    EXPECT_EQ(assigned, zeros);
}

TEST(CString, IsNullWhenItsLengthIsZero) {
    EXPECT_TRUE(CString("").isNull());
    EXPECT_TRUE(CString(500).isNull());
    EXPECT_FALSE(CString('\0', 1).isNull());
}

TEST(CString, IsAsciiWithoutATopBit) {
    EXPECT_TRUE(CString().isAscii());
    EXPECT_TRUE(CString("\x01\x7F").isAscii());
    EXPECT_FALSE(CString("\x80").isAscii());
}

TEST(CString, IsAsciiSeesEveryByte) {
    for (unsigned length : {1u, 7u, 8u, 9u, 23u, 100u}) {
        for (unsigned i = 0; i < length; ++i) {
            CString text('a', length);
            EXPECT_TRUE(text.isAscii());
            text(i) = '\xFF';
            EXPECT_FALSE(text.isAscii()) << i << " of " << length;
        }
    }
}

TEST(CString, HashOfAbcStartsFromItsLength) {
    EXPECT_EQ(CString("abc").hash(CString::exact), 0x616203u);  // 3 << 5 ^ 0x616263
    EXPECT_EQ(CString("abc").hash(), 0x616203u);
    EXPECT_EQ(CString::hash(CString("abc")), 0x616203u);
}

TEST(CString, HashOfTheEmptyStringIsZeroInAllModes) {
    for (auto mode : {CString::exact, CString::ignoreCase, CString::ignoreCaseStrict}) {
        EXPECT_EQ(CString().hash(mode), 0u);
    }
}

TEST(CString, HashFoldsCaseInTheOtherModes) {
    for (auto mode : {CString::ignoreCase, CString::ignoreCaseStrict}) {
        EXPECT_EQ(CString("abc").hash(mode), 0x8C03u);
        EXPECT_EQ(CString("ABC").hash(mode), 0x8C03u);
        EXPECT_EQ(CString("12").hash(mode), 0xE12u);
    }
    EXPECT_EQ(CString("12").hash(), 0x3172u);
}

TEST(CString, CollatesAsTheLocaleTells) {
    EXPECT_EQ(CString("abc").collate("abc"), 0);
    EXPECT_LT(CString("abb").collate("abc"), 0);
    EXPECT_GT(CString("abc").collate(CString("abb")), 0);
    EXPECT_EQ(CString("abc").collate(CString("abc")), 0);
}

// --- Bytes ---

TEST(CString, ParenthesesReadTheTerminator) {
    const CString text("abc");
    EXPECT_EQ(text(0), 'a');
    EXPECT_EQ(text(text.length()), '\0');
}

TEST(CString, ParenthesesWriteIntoAPrivateBuffer) {
    CString text(long100);
    const CString copy(text);
    text(99) = 'y';
    EXPECT_EQ(text.view(), long100.substr(1) + "y");
    EXPECT_EQ(copy.view(), long100);
}

template <typename Integer>
class CStringIndex : public testing::Test {};
using IndexTypes = testing::Types<signed char, unsigned char, char, short, unsigned short, int,
                                  unsigned int, long, unsigned long, long long, unsigned long long>;
TYPED_TEST_SUITE(CStringIndex, IndexTypes);

TYPED_TEST(CStringIndex, ReadsAndWritesWithinTheLength) {
    CString text("abc");
    const CString& constant = text;
    EXPECT_EQ(constant[TypeParam{2}], 'c');
    text[TypeParam{1}] = 'x';
    EXPECT_EQ(text.view(), "axc");
}

TYPED_TEST(CStringIndex, MakesTheBufferPrivateForWritingOnly) {
    CString text(long100);
    const CString copy(text);
    EXPECT_EQ(std::as_const(text)[TypeParam{0}], 'x');
    EXPECT_TRUE(shareBuffer(text, copy));
    text[TypeParam{0}] = 'y';
    EXPECT_EQ(copy.view(), long100);
}

TYPED_TEST(CStringIndex, RefusesTheLength) {
    CString text("abc");
    const CString& constant = text;
    const char* expected =
        "[BOUNDS_ILLEGAL_INDEX] Illegal Index (3) for collection or string with 3 elements";
    EXPECT_EQ(boundsFailure([&] { constant[TypeParam{3}]; }), expected);
    EXPECT_EQ(boundsFailure([&] { text[TypeParam{3}] = 'x'; }), expected);
    EXPECT_EQ(text.view(), "abc");
}

TYPED_TEST(CStringIndex, TakesMinusOneForNoPosition) {
    if constexpr (std::is_signed_v<TypeParam> || sizeof(TypeParam) >= sizeof(unsigned)) {
        CString text("abc");
        const CString& constant = text;
        const auto minusOne = static_cast<TypeParam>(-1);
        const char* expected = "[BOUNDS_STRING_NPOS] String index cannot be 'npos'";
        EXPECT_EQ(boundsFailure([&] { constant[minusOne]; }), expected);
        EXPECT_EQ(boundsFailure([&] { text[minusOne] = 'x'; }), expected);
    }
}

TYPED_TEST(CStringIndex, RefusesNegativeNumbers) {
    if constexpr (std::is_signed_v<TypeParam>) {
        const CString text("abc");
        EXPECT_EQ(
            boundsFailure([&] { text[static_cast<TypeParam>(-2)]; }),
            "[BOUNDS_ILLEGAL_INDEX] Illegal Index (-2) for collection or string with 3 elements");
    }
}

TYPED_TEST(CStringIndex, IsCheckedBeforeItIsNarrowed) {
    if constexpr (sizeof(TypeParam) == 8) {
        CString text("abc");
        const auto wide = static_cast<TypeParam>(0x100000000);
        EXPECT_EQ(boundsFailure([&] { text[wide]; }),
                  "[BOUNDS_ILLEGAL_INDEX] Illegal Index (4294967296) for collection or string with "
                  "3 elements");
        EXPECT_THROW(text[static_cast<TypeParam>(wide + 1)], OutOfBoundsException);
        EXPECT_THROW(text[static_cast<TypeParam>(-wide)], OutOfBoundsException);
        EXPECT_THROW(text[std::numeric_limits<TypeParam>::max()], OutOfBoundsException);
        EXPECT_THROW(text[std::numeric_limits<TypeParam>::min() | wide], OutOfBoundsException);
    }
}

TEST(CString, IndexMayBeAnEnumerator) {
    enum Column { name, value };
    const CString text("ab");
    EXPECT_EQ(text[value], 'b');
    EXPECT_EQ(text[name], 'a');
}

TEST(CString, LargeUnsignedShortIsAnIndexAndNotMinusOne) {
    const auto index = static_cast<unsigned short>(-1);
    CString text('x', 65535);
    EXPECT_THROW(text[index], OutOfBoundsException);
    text += 'y';
    EXPECT_EQ(std::as_const(text)[index], 'y');
}

TEST(CString, AssertElementGivesTheIndex) {
    const CString text("abc");
    EXPECT_EQ(text.assertElement(2), 2u);
    EXPECT_THROW(text.assertElement(3), OutOfBoundsException);
    EXPECT_THROW(CString().assertElement(0), OutOfBoundsException);
}

TEST(CString, SubStringErrorTellsStartExtentAndLength) {
    EXPECT_EQ(boundsFailure([] { CString::subStringError(3, 1, 5); }),
              "[BOUNDS_STRING_ILLEGAL_SUBSTRING] Illegal substring (1, 5) from 3 element CString");
}

// --- Buffers ---

TEST(CString, GrowsFrom64To128) {
    CString text('x', 63);
    text += 'x';
    EXPECT_EQ(text.capacity(), 64u);
    EXPECT_TRUE(isInline(text));
    text += 'x';
    EXPECT_EQ(text.capacity(), 128u);
    EXPECT_FALSE(isInline(text));
    EXPECT_EQ(text.view(), std::string(65, 'x'));
}

TEST(CString, DoublesUntilItReachesTheRequest) {
    struct Row {
        unsigned from;
        unsigned length;
        unsigned capacity;
    };
    const Row rows[] = {{0, 65, 128},    {0, 128, 128},   {0, 129, 256},
                        {0, 1000, 1024}, {64, 65, 128},   {100, 101, 200},
                        {100, 200, 200}, {100, 201, 400}, {100, 900, 1600}};
    for (const Row& row : rows) {
        CString text(row.from);
        text.append('x', row.length);
        EXPECT_EQ(text.capacity(), row.capacity) << row.from << " to " << row.length;
    }
}

TEST(CString, CapacityMakesRoomByDoublingAsAllGrowthDoes) {
    CString text("abc");
    EXPECT_EQ(text.capacity(100), 128u);
    EXPECT_EQ(text.capacity(), 128u);
    EXPECT_EQ(text.view(), "abc");
    EXPECT_EQ(text.capacity(300), 512u);
}

TEST(CString, CapacityChangesNothingBelowTheLength) {
    CString text(long100);
    const CString copy(text);
    EXPECT_EQ(text.capacity(99), 100u);
    EXPECT_TRUE(shareBuffer(text, copy));
}

TEST(CString, CapacityChangesNothingIfItIsThere) {
    CString text(200);
    const CString copy(text);
    EXPECT_EQ(text.capacity(200), 200u);
    EXPECT_TRUE(shareBuffer(text, copy));
}

TEST(CString, CapacityGivesNoRoomBackFromAPrivateBuffer) {
    CString text(200);
    text = "abc";
    EXPECT_EQ(text.capacity(100), 200u);
    EXPECT_EQ(text.capacity(10), 200u);
}

TEST(CString, CapacityOfTheLengthLeavesALargerSharedBuffer) {
    CString text(200);
    text.append('x', 100);
    CString copy(text);
    EXPECT_EQ(copy.capacity(100), 100u);
    EXPECT_FALSE(shareBuffer(text, copy));
    EXPECT_EQ(copy.view(), long100);
}

TEST(CString, CapacityLeavesASharedBufferForOneAsAskedFor) {
    CString text(200);
    text = "abc";
    CString copy(text);
    EXPECT_EQ(copy.capacity(150), 150u);
    EXPECT_FALSE(shareBuffer(text, copy));
    EXPECT_EQ(copy.view(), "abc");
    CString other(text);
    EXPECT_EQ(other.capacity(10), 64u);
    EXPECT_TRUE(isInline(other));
    EXPECT_EQ(other.view(), "abc");
}

TEST(CString, CowMakesASharedBufferPrivate) {
    for (void (*unshare)(Open&) :
         {+[](Open& text) { text.cow(); }, +[](Open& text) { text.clone(); }}) {
        Open text(long100);
        const char* data = text.data();
        unshare(text);
        EXPECT_EQ(text.data(), data);
        const CString copy(text);
        unshare(text);
        EXPECT_FALSE(shareBuffer(text, copy));
        EXPECT_EQ(text.view(), long100);
        EXPECT_EQ(text.capacity(), 100u);
    }
}

TEST(CString, CowTakesNoMoreThanTheText) {
    CString text(500);
    text.append('x', 100);
    CString copy(text);
    copy(0) = 'y';
    EXPECT_EQ(copy.capacity(), 100u);
    EXPECT_EQ(text.capacity(), 500u);
}

TEST(CString, CowOf64BytesStaysOnTheHeap) {
    const CString text('x', 64);
    CString copy(text);
    copy(0) = 'y';
    EXPECT_EQ(copy.view(), "y" + std::string(63, 'x'));
    EXPECT_EQ(copy.capacity(), 64u);
    EXPECT_FALSE(isInline(copy));
    EXPECT_TRUE(shareBuffer(copy, CString(copy)));
}

TEST(CString, CowWithACapacityKeepsABufferThatIsEnough) {
    using Unshare = void (*)(Open&, unsigned);
    for (Unshare unshare : {Unshare([](Open&text, unsigned n) { text.cow(n); }),
                            Unshare([](Open&text, unsigned n) { text.clone(n); })}) {
        Open text(long100);
        const char* data = text.data();
        unshare(text, 50);
        EXPECT_EQ(text.data(), data);
        EXPECT_EQ(text.view(), long100);
        unshare(text, 101);
        EXPECT_EQ(text.capacity(), 200u);
        EXPECT_EQ(text.view(), long100);
    }
}

TEST(CString, CowWithACapacityCutsWhatItCopies) {
    Open text(long100);
    const CString copy(text);
    text.cow(70);
    EXPECT_EQ(text.view(), long100.substr(0, 70));
    EXPECT_EQ(text.capacity(), 70u);
    EXPECT_EQ(copy.view(), long100);
    Open other(copy);
    other.clone(20);
    EXPECT_EQ(other.view(), long100.substr(0, 20));
    EXPECT_TRUE(isInline(other));
}

TEST(CString, ClobberEmptiesInPlaceOrMakesANewBuffer) {
    Open text(long100);
    const char* data = text.data();
    text.clobber(100);
    EXPECT_EQ(text.view(), "");
    EXPECT_EQ(text.data(), data);
    text.clobber(101);
    EXPECT_EQ(text.view(), "");
    EXPECT_EQ(text.capacity(), 200u);
    Open shared(long100);
    const CString copy(shared);
    shared.clobber(80);
    EXPECT_EQ(shared.view(), "");
    EXPECT_EQ(shared.capacity(), 80u);
    EXPECT_EQ(copy.view(), long100);
}

TEST(CString, RefusesToGrowBeyondItsPositions) {
    volatile unsigned all = CString::npos;  // unknown to the compiler, which would warn
    CString text("abc");
    EXPECT_THROW(text.append("x", all), std::length_error);
    EXPECT_THROW(text.append('x', all), std::length_error);
    EXPECT_THROW(text.append('x', all - 3), std::length_error);
    EXPECT_THROW(text.prepend('x', all), std::length_error);
    EXPECT_THROW(text.insert(1, "x", all), std::length_error);
    EXPECT_THROW(text.replace(0, 2, "x", all - 1), std::length_error);
    EXPECT_THROW(text.resize(all), std::length_error);
    EXPECT_THROW(text.capacity(all), std::length_error);
    EXPECT_EQ(text.view(), "abc");
    CString large(long100);
    EXPECT_THROW(large.append("x", all), std::length_error);
    EXPECT_THROW(large.append("x", all - 100), std::length_error);
    EXPECT_EQ(large.view(), long100);
}

// --- Settings ---

TEST(CString, SettingsGiveTheOldValue) {
    EXPECT_EQ(CString::getInitialCapacity(), 15u);
    EXPECT_EQ(CString::getResizeIncrement(), 16u);
    EXPECT_EQ(CString::getMaxWaste(), 15u);
    EXPECT_EQ(CString::initialCapacity(20), 15u);
    EXPECT_EQ(CString::resizeIncrement(30), 16u);
    EXPECT_EQ(CString::maxWaste(40), 15u);
    EXPECT_EQ(CString::getInitialCapacity(), 20u);
    EXPECT_EQ(CString::getResizeIncrement(), 30u);
    EXPECT_EQ(CString::getMaxWaste(), 40u);
    EXPECT_EQ(CString::initialCapacity(15), 20u);
    EXPECT_EQ(CString::resizeIncrement(16), 30u);
    EXPECT_EQ(CString::maxWaste(15), 40u);
}

TEST(CString, AdjustCapacityRoundsUpBySteps) {
    struct Row {
        unsigned n;
        unsigned capacity;
    };
    // (16 - 15 + n - 1) / 16 * 16 + 15
    const Row rows[] = {{0, 15}, {14, 15}, {15, 15}, {16, 31}, {31, 31}, {32, 47}, {100, 111}};
    for (const Row& row : rows) {
        EXPECT_EQ(Open::adjustCapacity(row.n), row.capacity) << row.n;
    }
}

TEST(CString, AdjustCapacityFollowsTheSettings) {
    CString::initialCapacity(10);
    CString::resizeIncrement(4);
    EXPECT_EQ(Open::adjustCapacity(10), 10u);
    EXPECT_EQ(Open::adjustCapacity(11), 14u);
    EXPECT_EQ(Open::adjustCapacity(15), 18u);
    CString::resizeIncrement(0);
    EXPECT_EQ(Open::adjustCapacity(15), 15u);
    CString::initialCapacity(15);
    CString::resizeIncrement(16);
}

}  // namespace
}  // namespace nolk
