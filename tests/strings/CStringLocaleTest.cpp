// Multibyte characters, and letters, blanks and an order beyond those of the C locale.

#include <nolk/core/CString.h>
#include <nolk/core/Hash.h>

#include <gtest/gtest.h>

#include <cctype>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "CStringSupport.h"
#include "support/RuntimeLocale.h"

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

// A with two dots is 0xC4, a with two dots 0xE4; a multiplication sign is 0xD7.
struct CStringInGerman : testing::Test {
    void SetUp() override { ASSERT_EQ(locale.name(), name); }

    const char* const name = runtimeName(Culture::germanOfBytes);
    const RuntimeLocales locales;
    const InLocale locale{LC_ALL, {name}};
};

TEST_F(CStringInGerman, CaseIsMappedBeyondAscii) {
    CString text("a\xE4\xC4\xD7");
    EXPECT_EQ(toUpper(text).view(), "A\xC4\xC4\xD7");
    EXPECT_EQ(toLower(text).view(), "a\xE4\xE4\xD7");
    text.toUpper();
    EXPECT_EQ(text.view(), "A\xC4\xC4\xD7");
    text.toLower();
    EXPECT_EQ(text.view(), "a\xE4\xE4\xD7");
    text(1, 1).toUpper();
    EXPECT_EQ(text.view(), "a\xC4\xE4\xD7");
}

TEST_F(CStringInGerman, CaseIsIgnoredBeyondAscii) {
    const CString capital("\xC4");
    for (const char* other : {"\xE4", "\xC4"}) {
        EXPECT_EQ(capital.compareTo(other, CString::ignoreCase), 0);
        EXPECT_EQ(capital.compareTo(other, CString::ignoreCaseStrict), 0);
        EXPECT_EQ(CString("x\xC4").index(other, 0, CString::ignoreCase), 1u);
        EXPECT_EQ(CString("x\xC4").index(other, 0, CString::ignoreCaseStrict), 1u);
    }
    EXPECT_EQ(capital.compareTo("\xE4"), -1);
    EXPECT_EQ(CString("x\xC4").index("\xE4"), npos);
}

// 0xE4 is -28 as a signed number, 0xD7 is -41, and 0xC4 is -60.
TEST_F(CStringInGerman, StrictCaseIsIgnoredOfTwoLettersOnly) {
    EXPECT_EQ(CString("\xC4").compareTo("\xD7", CString::ignoreCase), 1);
    EXPECT_EQ(CString("\xC4").compareTo("\xD7", CString::ignoreCaseStrict), -1);
}

TEST_F(CStringInGerman, HashesFoldLettersBeyondAscii) {
    EXPECT_EQ(CString("\xC4").hash(CString::ignoreCase), 0xE4u);  // 0x20 ^ 0xC4
    EXPECT_EQ(CString("\xE4").hash(CString::ignoreCase), 0xE4u);
    EXPECT_EQ(nolkCaseInsensitiveStringHash("\xC4"), 0xFFFFFFC4u);  // 0x20 ^ 0xFFFFFFE4
    EXPECT_EQ(nolkCaseInsensitiveStringHash("\xE4"), 0xFFFFFFC4u);
    EXPECT_EQ(nolkCaseInsensitiveStringHash("A\xC4\xD6\xDC"
                                            "B"),
              nolkStringHash("a\xE4\xF6\xFC"
                             "b"));
}

// The systems don't agree about the blank that breaks no line.
TEST_F(CStringInGerman, BlanksAreThoseOfTheLocale) {
    const CString text("\xA0x");
    EXPECT_EQ(text.stripWhitespace(CString::leading).start(), std::isspace(0xA0) != 0 ? 1u : 0u);
}

TEST_F(CStringInGerman, TextsCollateByTheLocale) {
    EXPECT_EQ(CString("a").compareTo("B"), 1);
    EXPECT_LT(CString("a").collate("B"), 0);
    EXPECT_LT(CString("a").collate(CString("B")), 0);
    EXPECT_GT(CString("B").collate("a"), 0);
    EXPECT_LT(CString("\xE4").collate("b"), 0);
}

TEST_F(CStringInGerman, TransformedTextsCompareAsTheTextsCollate) {
    const CString a = strXForm("a");
    const CString b = strXForm("B");
    EXPECT_LT(std::strcmp(a.data(), b.data()), 0);
    EXPECT_EQ(strXForm("aB").length(), std::strxfrm(nullptr, "aB", 0) + 1);
}

}  // namespace
}  // namespace nolk
