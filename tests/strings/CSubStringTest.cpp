#include <nolk/core/CSubString.h>

#include <nolk/core/CString.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "CStringSupport.h"

namespace nolk {

using namespace test;
namespace {

constexpr unsigned npos = CString::npos;
const std::string long100(100, 'x');

TEST(CSubString, HasAStartAndAnExtent) {
    CString text("abcdef");
    const CSubString part = text(2, 3);
    EXPECT_EQ(part.start(), 2u);
    EXPECT_EQ(part.length(), 3u);
    EXPECT_EQ(part.data(), text.data() + 2);
    EXPECT_EQ(part.startData(), text.data() + 2);
    EXPECT_EQ(part.view(), "cde");
    EXPECT_FALSE(part.isNull());
    EXPECT_EQ(!part, 0);
}

TEST(CSubString, StartOfNposIsNull) {
    CString text("abcdef");
    const CSubString part = text(npos, 3);
    EXPECT_TRUE(part.isNull());
    EXPECT_NE(!part, 0);
    EXPECT_EQ(part.start(), npos);
    EXPECT_EQ(part.length(), 0u);
    EXPECT_EQ(part.data(), text.data());
    EXPECT_EQ(part.startData(), text.data());
    EXPECT_EQ(part.view(), "");
}

TEST(CSubString, EmptyOneIsNotNull) {
    CString text("abc");
    EXPECT_FALSE(text(1, 0).isNull());
    EXPECT_FALSE(CString()(0, 0).isNull());
}

TEST(CSubString, OfAConstantStringIsConstant) {
    const CString text("abcdef");
    EXPECT_EQ(text(1, 2), "bc");
    EXPECT_TRUE((std::is_same_v<decltype(text(1, 2)), const CSubString>));
}

TEST(CSubString, CopyViewsTheSameText) {
    CString text("abcdef");
    const CSubString part = text(2, 3);
    CSubString copy(part);
    copy = "-";
    EXPECT_EQ(text.view(), "ab-f");
    EXPECT_EQ(copy.length(), 1u);
    EXPECT_EQ(part.length(), 3u);
}

TEST(CSubString, NumbersBeyondTheStringTakeWhatIsThere) {
    CString text("abcdef");
    EXPECT_EQ(text(4, 100).view(), "ef");
    EXPECT_EQ(text(4, npos).view(), "ef");
    EXPECT_EQ(text(6, 1).view(), "");
    EXPECT_EQ(text(100, 100).view(), "");
    EXPECT_EQ(text(npos - 1, npos).view(), "");
    EXPECT_EQ(text(4, 100).length(), 100u);
}

TEST(CSubString, ParenthesesReadAndWrite) {
    CString text("abcdef");
    CSubString part = text(2, 3);
    EXPECT_EQ(std::as_const(part)(1), 'd');
    part(1) = 'x';
    EXPECT_EQ(text.view(), "abcxef");
}

TEST(CSubString, WritingLeavesCopiesOfTheStringAlone) {
    CString text(long100);
    const CString copy(text);
    CSubString part = text(2, 3);
    EXPECT_EQ(std::as_const(part)[0], 'x');
    EXPECT_TRUE(shareBuffer(text, copy));
    part(0) = 'y';
    part[1] = 'z';
    EXPECT_EQ(text.view().substr(0, 6), "xxyzxx");
    EXPECT_EQ(copy.view(), long100);
}

template <typename Integer>
class CSubStringIndex : public testing::Test {};
using IndexTypes = testing::Types<signed char, unsigned char, char, short, unsigned short, int,
                                  unsigned int, long, unsigned long, long long, unsigned long long>;
TYPED_TEST_SUITE(CSubStringIndex, IndexTypes);

TYPED_TEST(CSubStringIndex, ReadsAndWritesWithinTheExtent) {
    CString text("abcdef");
    CSubString part = text(2, 3);
    EXPECT_EQ(std::as_const(part)[TypeParam{2}], 'e');
    part[TypeParam{0}] = 'x';
    EXPECT_EQ(text.view(), "abxdef");
}

TYPED_TEST(CSubStringIndex, RefusesTheExtent) {
    CString text("abcdef");
    CSubString part = text(2, 3);
    const CSubString& constant = part;
    const char* expected =
        "[BOUNDS_ILLEGAL_INDEX] Illegal Index (3) for collection or string with 3 elements";
    EXPECT_EQ(boundsFailure([&] { constant[TypeParam{3}]; }), expected);
    EXPECT_EQ(boundsFailure([&] { part[TypeParam{3}] = 'x'; }), expected);
    EXPECT_EQ(text.view(), "abcdef");
}

TYPED_TEST(CSubStringIndex, TakesMinusOneForNoPosition) {
    if constexpr (std::is_signed_v<TypeParam> || sizeof(TypeParam) >= sizeof(unsigned)) {
        CString text("abcdef");
        CSubString part = text(2, 3);
        const auto minusOne = static_cast<TypeParam>(-1);
        const char* expected = "[BOUNDS_STRING_NPOS] String index cannot be 'npos'";
        EXPECT_EQ(boundsFailure([&] { std::as_const(part)[minusOne]; }), expected);
        EXPECT_EQ(boundsFailure([&] { part[minusOne] = 'x'; }), expected);
    }
}

TYPED_TEST(CSubStringIndex, IsCheckedBeforeItIsNarrowed) {
    if constexpr (sizeof(TypeParam) == 8) {
        CString text("abcdef");
        CSubString part = text(2, 3);
        EXPECT_EQ(boundsFailure([&] { part[static_cast<TypeParam>(0x100000000)]; }),
                  "[BOUNDS_ILLEGAL_INDEX] Illegal Index (4294967296) for collection or string with "
                  "3 elements");
    }
}

TEST(CSubString, IndexIntoANullOneIsRefused) {
    CString text("abc");
    EXPECT_EQ(boundsFailure([&] { text(npos, 3)[0]; }),
              "[BOUNDS_ILLEGAL_INDEX] Illegal Index (0) for collection or string with 0 elements");
}

TEST(CSubString, IndexWithinTheExtentButBehindTheStringIsRefused) {
    CString text("abc");
    CSubString part = text(2, 10);
    EXPECT_EQ(part[0], 'c');
    const char* expected =
        "[BOUNDS_STRING_ILLEGAL_SUBSTRING] Illegal substring (2, 10) from 3 element CString";
    EXPECT_EQ(boundsFailure([&] { std::as_const(part)[1]; }), expected);
    EXPECT_EQ(boundsFailure([&] { part[9] = 'x'; }), expected);
    EXPECT_THROW(text(100, 10)[0], OutOfBoundsException);
    EXPECT_THROW(text(npos - 1, 10)[5], OutOfBoundsException);
}

TEST(CSubString, FollowsAStringThatShrinks) {
    CString text("abcdef");
    CSubString part = text(2, 3);
    text.remove(3);
    EXPECT_EQ(part.view(), "c");
    EXPECT_THROW(part[1], OutOfBoundsException);
    EXPECT_EQ(part, "c");
}

TEST(CSubString, AssertElementGivesTheIndex) {
    CString text("abcdef");
    EXPECT_EQ(text(2, 3).assertElement(2), 2u);
    EXPECT_THROW(text(2, 3).assertElement(3), OutOfBoundsException);
}

TEST(CSubString, SubStringErrorTellsStartExtentAndLength) {
    EXPECT_EQ(boundsFailure([] { CSubString::subStringError(3, 1, 5); }),
              "[BOUNDS_STRING_ILLEGAL_SUBSTRING] Illegal substring (1, 5) from 3 element CString");
}

// --- Assignment ---

TEST(CSubString, AssignmentPutsTextIntoTheString) {
    CString text("abcdef");
    CSubString part = text(2, 2);
    EXPECT_EQ(&(part = "wxyz"), &part);
    EXPECT_EQ(text.view(), "abwxyzef");
    EXPECT_EQ(part.length(), 4u);
    EXPECT_EQ(part, "wxyz");
    part = CString("-");
    EXPECT_EQ(text.view(), "ab-ef");
    part = "";
    EXPECT_EQ(text.view(), "abef");
    EXPECT_EQ(part.length(), 0u);
    EXPECT_FALSE(part.isNull());
    part = static_cast<const char*>(nullptr);
    EXPECT_EQ(text.view(), "abef");
}

TEST(CSubString, AssignmentOfASubstringCopiesItsText) {
    CString text("abcdef");
    CString other("uvwxyz");
    CSubString part = text(2, 2);
    part = other(1, 4);
    EXPECT_EQ(text.view(), "abvwxyef");
    EXPECT_EQ(part.length(), 4u);
    EXPECT_EQ(part.start(), 2u);
    EXPECT_EQ(other.view(), "uvwxyz");
    part = other(npos, 0);
    EXPECT_EQ(text.view(), "abef");
}

TEST(CSubString, AssignmentTakesTextOfTheSameString) {
    CString text("abcdef");
    text(0, 2) = text(3, 3);
    EXPECT_EQ(text.view(), "defcdef");
    text(6, 1) = text;
    EXPECT_EQ(text.view(), "defcdedefcdef");
    CSubString part = text(0, 3);
    const CSubString& same = part;
    part = same;
    EXPECT_EQ(text.view(), "defcdedefcdef");
    CString large((std::string(60, 'a') + std::string(60, 'b')).c_str());
    large(0, 1) = large(50, 70);
    EXPECT_EQ(large.view(), std::string(10, 'a') + std::string(60, 'b') + std::string(59, 'a') +
                                std::string(60, 'b'));
}

TEST(CSubString, AssignmentToANullOneDoesNothing) {
    CString text("abc");
    CString other("xyz");
    CSubString part = text(npos, 0);
    part = "xyz";
    part = other;
    part = other(0, 2);
    EXPECT_EQ(text.view(), "abc");
    EXPECT_TRUE(part.isNull());
    EXPECT_EQ(part.length(), 0u);
}

TEST(CSubString, AssignmentBehindTheEndAppends) {
    CString text("abc");
    CSubString part = text(100, 5);
    part = "xyz";
    EXPECT_EQ(text.view(), "abcxyz");
    EXPECT_EQ(part, "xyz");
    text(5, 100) = "-";
    EXPECT_EQ(text.view(), "abcxy-");
}

TEST(CSubString, AssignmentLeavesCopiesOfTheStringAlone) {
    CString text(long100);
    const CString copy(text);
    text(0, 99) = "y";
    EXPECT_EQ(text.view(), "yx");
    EXPECT_EQ(copy.view(), long100);
}

// --- Case ---

TEST(CSubString, CaseIsChangedInTheString) {
    CString text("aBcDeF");
    text(1, 3).toUpper();
    EXPECT_EQ(text.view(), "aBCDeF");
    text(2, 100).toLower();
    EXPECT_EQ(text.view(), "aBcdef");
    text(100, 3).toUpper();
    EXPECT_EQ(text.view(), "aBcdef");
}

TEST(CSubString, CaseOfANullOneIsNotChanged) {
    CString text(long100);
    const CString copy(text);
    text(npos, 0).toUpper();
    text(npos, 0).toLower();
    EXPECT_TRUE(shareBuffer(text, copy));
    EXPECT_EQ(text.view(), long100);
}

TEST(CSubString, CaseLeavesCopiesOfTheStringAlone) {
    CString text(long100);
    const CString copy(text);
    text(0, 100).toUpper();
    EXPECT_EQ(text.view(), std::string(100, 'X'));
    EXPECT_EQ(copy.view(), long100);
}

// --- Comparing ---

TEST(CSubString, EqualsTextsStringsAndSubstrings) {
    CString text("abcabc");
    const CString abc("abc");
    EXPECT_TRUE(text(0, 3) == "abc");
    EXPECT_TRUE("abc" == text(0, 3));
    EXPECT_TRUE(text(0, 3) == abc);
    EXPECT_TRUE(abc == text(3, 3));
    EXPECT_TRUE(text(0, 3) == text(3, 3));
    EXPECT_TRUE(text(0, 3) == std::string("abc"));
    EXPECT_FALSE(text(0, 3) == "ab");
    EXPECT_FALSE(text(0, 3) == "abcd");
    EXPECT_FALSE(text(0, 3) == text(2, 3));
    EXPECT_TRUE(text(0, 3) != "abx");
    EXPECT_TRUE(text(0, 3) != CString("abx"));
    EXPECT_TRUE(text(0, 3) != text(0, 2));
}

TEST(CSubString, WithAZeroByteEqualsNoTerminatedText) {
    CString text(std::string("ab\0c", 4));
    EXPECT_FALSE(text(0, 4) == "ab");
    EXPECT_TRUE(text(0, 2) == "ab");
    EXPECT_TRUE(text(0, 4) == text);
}

TEST(CSubString, NullOneEqualsTheEmptyText) {
    CString text("abc");
    EXPECT_TRUE(text(npos, 0) == "");
    EXPECT_TRUE(text(npos, 0) == CString());
    EXPECT_TRUE(text(npos, 0) == text(1, 0));
    EXPECT_TRUE(text(npos, 0) == static_cast<const char*>(nullptr));
    EXPECT_FALSE(text(npos, 0) == "a");
}

}  // namespace
}  // namespace nolk
