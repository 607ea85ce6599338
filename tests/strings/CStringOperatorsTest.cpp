#include <nolk/core/CStringOperators.h>

#include <nolk/core/CSubString.h>
#include <nolk/core/Hash.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <iomanip>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "CStringSupport.h"

namespace nolk {

using namespace test;
namespace {

const std::string zeros("a\0b", 3);

// All six comparisons of a with b, as three signs would make them.
template <typename A, typename B>
void expectOrder(const A& a, const B& b, int order) {
    EXPECT_EQ(a == b, order == 0);
    EXPECT_EQ(a != b, order != 0);
    EXPECT_EQ(a < b, order < 0);
    EXPECT_EQ(a > b, order > 0);
    EXPECT_EQ(a <= b, order <= 0);
    EXPECT_EQ(a >= b, order >= 0);
}

struct Row {
    const char* a;
    const char* b;
    int order;
};

const Row rows[] = {
    {"", "", 0},      {"abc", "abc", 0}, {"abc", "abd", -1}, {"abc", "ab", 1},   {"\xE9", "a", -1},
    {"a", "\x80", 1}, {"b", "abc", 1},   {"", "a", -1},      {"ABC", "abc", -1},
};

TEST(CStringOperators, CompareStringsWithStrings) {
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.a) + " and " + row.b);
        expectOrder(CString(row.a), CString(row.b), row.order);
        expectOrder(CString(row.b), CString(row.a), -row.order);
    }
}

TEST(CStringOperators, CompareStringsWithTerminatedTexts) {
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.a) + " and " + row.b);
        expectOrder(CString(row.a), row.b, row.order);
        expectOrder(row.a, CString(row.b), row.order);
    }
}

TEST(CStringOperators, CompareStringsWithBytes) {
    expectOrder(CString("a"), 'a', 0);
    expectOrder('a', CString("a"), 0);
    expectOrder(CString("ab"), 'a', 1);
    expectOrder('a', CString("ab"), -1);
    expectOrder(CString(""), 'a', -1);
    expectOrder('a', CString(""), 1);
    expectOrder(CString("\xE9"), 'a', -1);
    expectOrder('a', CString("\xE9"), 1);
    expectOrder(CString(""), '\0', -1);
    expectOrder(CString('\0', 1), '\0', 0);
}

TEST(CStringOperators, CompareStringsWithStandardStrings) {
    expectOrder(CString("abc"), std::string("abc"), 0);
    expectOrder(std::string("abb"), CString("abc"), -1);
}

TEST(CStringOperators, StringThatGoesOnBehindAZeroByteEqualsNoTerminatedText) {
    expectOrder(CString(zeros), "a", 1);
    expectOrder("a", CString(zeros), -1);
    EXPECT_FALSE(CString(zeros) == "a\0b");
    EXPECT_TRUE(CString(zeros) == CString(zeros));
    EXPECT_FALSE(CString(zeros) == CString("a\0c", 3));
}

TEST(CStringOperators, NullIsTheEmptyText) {
    const char* none = nullptr;
    expectOrder(CString(), none, 0);
    expectOrder(CString("a"), none, 1);
    expectOrder(none, CString("a"), -1);
}

TEST(CStringOperators, EqualitySeesEveryByte) {
    for (const unsigned length : {1u, 3u, 4u, 8u, 13u, 64u, 200u}) {
        const CString a('x', length);
        for (unsigned i = 0; i < length; ++i) {
            CString b = a.copy();
            EXPECT_TRUE(a == b);
            b(i) = 'y';
            EXPECT_FALSE(a == b) << i << " of " << length;
        }
        EXPECT_FALSE(a == CString('x', length + 1));
    }
}

TEST(CStringOperators, PlusPutsTextsTogether) {
    const CString ab("ab");
    EXPECT_EQ((ab + CString("cd")).view(), "abcd");
    EXPECT_EQ((ab + "cd").view(), "abcd");
    EXPECT_EQ(("cd" + ab).view(), "cdab");
    EXPECT_EQ((ab + 'c').view(), "abc");
    EXPECT_EQ(('c' + ab).view(), "cab");
    EXPECT_EQ((ab + std::string("cd")).view(), "abcd");
    EXPECT_EQ((ab + CString(zeros)).view(), "ab" + zeros);
    EXPECT_EQ((ab + static_cast<const char*>(nullptr)).view(), "ab");
    EXPECT_EQ((static_cast<const char*>(nullptr) + ab).view(), "ab");
    EXPECT_EQ((ab + "-" + ab + "-" + ab).view(), "ab-ab-ab");
}

TEST(CStringOperators, PlusTakesABufferOfJustTheLength) {
    const CString half('x', 50);
    EXPECT_EQ((half + half).view(), std::string(100, 'x'));
    EXPECT_EQ((half + half).capacity(), 100u);
    EXPECT_TRUE(isInline(half + "y"));
}

TEST(CStringOperators, CaseMappingGivesANewString) {
    const CString text("aBc");
    EXPECT_EQ(toLower(text).view(), "abc");
    EXPECT_EQ(toUpper(text).view(), "ABC");
    EXPECT_EQ(text.view(), "aBc");
    const CString large('x', 100);
    EXPECT_EQ(toUpper(large).view(), std::string(100, 'X'));
    EXPECT_EQ(large.view(), std::string(100, 'x'));
}

// In the C locale a text transforms to itself.
TEST(CStringOperators, StrXFormGivesTheTransformedTextAndAZeroByte) {
    EXPECT_EQ(strXForm(CString("abc")).view(), std::string_view("abc\0", 4));
    EXPECT_EQ(strXForm(CString()).view(), std::string_view("\0", 1));
    EXPECT_EQ(strXForm(CString('x', 200)).view(), std::string(200, 'x') + '\0');
}

TEST(CStringOperators, StrXFormTakesTheTextUpToAZeroByte) {
    EXPECT_EQ(strXForm(CString(zeros)).view(), std::string_view("a\0", 2));
}

TEST(CStringOperators, StreamsWriteAllBytes) {
    CString text(zeros);
    std::ostringstream out;
    out << text << '|' << text(1, 2) << '|' << text(CString::npos, 0) << '|';
    EXPECT_EQ(out.str(), zeros + "|" + std::string("\0b", 2) + "||");
}

TEST(CStringOperators, StreamsAlignAsTheyAreTold) {
    CString text("abc");
    std::ostringstream out;
    out << std::setw(5) << text << std::left << std::setw(4) << text(0, 2) << '|';
    EXPECT_EQ(out.str(), "  abcab  |");
}

TEST(CStringOperators, HashesAreTheHashOfTheString) {
    const CString text("abc");
    EXPECT_EQ(std::hash<CString>()(text), 0x616203u);  // 3 << 5 ^ 0x616263
    EXPECT_EQ(nolkhash(text), 0x616203u);
    EXPECT_EQ(nolkhash(&text), 0x616203u);
    EXPECT_EQ(nolkhash(static_cast<const CString*>(nullptr)), 0u);
    EXPECT_EQ(nolkhash(CString()), 0u);
}

TEST(CStringOperators, StringsAreKeys) {
    std::unordered_set<CString> hashed{"a", "b", "a"};
    EXPECT_EQ(hashed.size(), 2u);
    EXPECT_EQ(hashed.count("b"), 1u);
    std::map<CString, int> ordered{{"b", 2}, {"a", 1}, {"\xE9", 0}};
    EXPECT_EQ(ordered.begin()->second, 0);
}

TEST(CStringOperators, StringsCanBeSorted) {
    std::vector<CString> texts{"b", "\xE9", "a", "", "ab"};
    std::sort(texts.begin(), texts.end());
    EXPECT_EQ(texts, (std::vector<CString>{"", "\xE9", "a", "ab", "b"}));
}

}  // namespace
}  // namespace nolk
