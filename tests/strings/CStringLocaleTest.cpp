// Multibyte characters, and case beyond ASCII.

#include <nolk/core/CString.h>

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <string>
#include <string_view>

#include "CStringSupport.h"

namespace nolk {

using namespace test;
namespace {

constexpr unsigned npos = CString::npos;

TEST(CStringLocale, InTheCLocaleEachByteIsACharacter) {
    const InLocale locale(LC_CTYPE, {"C"});
    EXPECT_EQ(CString("abc").mbLength(), 3u);
    EXPECT_EQ(CString::mbLength("abc", npos), 3u);
    EXPECT_EQ(CString::mbLength("abc", 2), 2u);
    EXPECT_EQ(CString::mbLength("abc", 0), 0u);
    EXPECT_EQ(CString::byteCount("abc", 2), 2u);
    EXPECT_EQ(CString::byteCount("abc", npos), 3u);
    EXPECT_EQ(CString::byteCount("abc", 0), 0u);
}

TEST(CStringLocale, ZeroByteWithinTheRangeIsOneCharacter) {
    const InLocale locale(LC_CTYPE, {"C"});
    const std::string text("a\0\0b", 4);
    EXPECT_EQ(CString(text).mbLength(), 4u);
    EXPECT_EQ(CString::mbLength(text.data(), 2), 2u);
    EXPECT_EQ(CString::mbLength(text.data(), npos), 1u);
    EXPECT_EQ(CString::byteCount(text.data(), 4), 4u);
    EXPECT_EQ(CString::byteCount(text.data(), npos), 1u);
    EXPECT_EQ(CString().mbLength(), 0u);
}

TEST(CStringLocale, NullHasNoCharacters) {
    EXPECT_EQ(CString::mbLength(nullptr, npos), 0u);
    EXPECT_EQ(CString::mbLength(nullptr, 5), 0u);
    EXPECT_EQ(CString::byteCount(nullptr, npos), 0u);
    EXPECT_EQ(CString::byteCount(nullptr, 5), 0u);
}

// A locale with characters of two bytes, and one of these: UTF-8 where the system has it, a code
// page else.
struct TwoBytes : testing::Test {
    const InLocale locale{LC_CTYPE, {"C.UTF-8", "C.utf8", "en_US.UTF-8", "Japanese_Japan.932"}};
    const std::string wide = locale.name() == "Japanese_Japan.932" ? "\x82\xA0" : "\xC3\xA9";

    void SetUp() override { ASSERT_FALSE(locale.name().empty()) << "no such locale"; }
};

using CStringMultibyte = TwoBytes;

TEST_F(CStringMultibyte, CharactersOfTwoBytesCountOnce) {
    const std::string text = "a" + wide + wide + "b";
    EXPECT_EQ(CString(text).mbLength(), 4u);
    EXPECT_EQ(CString(text).length(), 6u);
    EXPECT_EQ(CString::mbLength(text.c_str(), npos), 4u);
    EXPECT_EQ(CString::mbLength(text.c_str(), 3), 2u);
    EXPECT_EQ(CString::mbLength((wide + '\0' + wide).data(), 5), 3u);
}

TEST_F(CStringMultibyte, RangeThatEndsInsideACharacterHasNoCount) {
    const std::string text = "a" + wide;
    EXPECT_EQ(CString::mbLength(text.c_str(), 2), npos);
    EXPECT_EQ(CString(text.substr(0, 2)).mbLength(), npos);
    EXPECT_EQ(CString::mbLength(text.substr(0, 2).c_str(), npos), npos);
}

TEST_F(CStringMultibyte, CharactersAreCountedInBytes) {
    const std::string text = "a" + wide + "b" + wide;
    const unsigned bytes[] = {0, 1, 3, 4, 6};
    for (unsigned n = 0; n < 5; ++n) {
        EXPECT_EQ(CString::byteCount(text.c_str(), n), bytes[n]) << n;
    }
    EXPECT_EQ(CString::byteCount(text.c_str(), npos), 6u);
    EXPECT_EQ(CString::byteCount((wide + '\0' + wide).data(), 3), 5u);
}

TEST_F(CStringMultibyte, BytesThatAreNoCharacterHaveNoCount) {
    const std::string text = "a" + wide.substr(0, 1);
    EXPECT_EQ(CString::byteCount(text.c_str(), 1), 1u);
    EXPECT_EQ(CString::byteCount(text.c_str(), 2), npos);
    EXPECT_EQ(CString::byteCount(text.c_str(), npos), npos);
}

TEST_F(CStringMultibyte, ZeroByteIsNotTheRestOfACharacter) {
    const std::string text = wide.substr(0, 1) + '\0' + "b";
    EXPECT_EQ(CString(text).mbLength(), npos);
    EXPECT_EQ(CString::byteCount(text.data(), 1), npos);
}

TEST_F(CStringMultibyte, FailureLeavesNothingBehind) {
    EXPECT_EQ(CString::mbLength(wide.c_str(), 1), npos);
    EXPECT_EQ(CString::mbLength(wide.c_str(), 2), 1u);
}

}  // namespace
}  // namespace nolk
