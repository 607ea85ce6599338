#include <nolk/core/CStringTokenizer.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "CStringSupport.h"

namespace nolk {

using namespace test;
namespace {

using Tokens = std::vector<std::string>;

// The tokens up to the null one, each in quotes would do as well: null is what ends the list.
template <typename Next>
Tokens tokensOf(const CString& text, const Next& next) {
    CStringTokenizer tokenizer(text);
    Tokens tokens;
    while (tokens.size() < 100) {
        const CSubString token = next(tokenizer);
        if (token.isNull()) {
            break;
        }
        tokens.emplace_back(token.view());
    }
    return tokens;
}

CString bytes(std::string_view text) {
    return CString(text);
}

struct Row {
    CString text;
    Tokens skipping;
    Tokens separating;
};

const Row rows[] = {
    {"", {}, {}},
    {"a", {"a"}, {"a"}},
    {"a,b", {"a", "b"}, {"a", "b"}},
    {",a,,b", {"a", "b"}, {"", "a", "", "b"}},
    {"a,", {"a"}, {"a"}},
    {",", {}, {""}},
    {",;,", {}, {"", "", ""}},
    {"ab;cd", {"ab", "cd"}, {"ab", "cd"}},
    {";;ab,,", {"ab"}, {"", "", "ab", ""}},
};

TEST(CStringTokenizer, CallSkipsRunsOfDelimiters) {
    for (const Row& row : rows) {
        const CString set(",;");
        EXPECT_EQ(tokensOf(row.text, [](auto& next) { return next(",;"); }), row.skipping)
            << row.text;
        EXPECT_EQ(tokensOf(row.text, [](auto& next) { return next(",;x", 2); }), row.skipping)
            << row.text;
        EXPECT_EQ(tokensOf(row.text, [&](auto& next) { return next(set); }), row.skipping)
            << row.text;
    }
}

TEST(CStringTokenizer, NextTokenSeparatesAtEachDelimiter) {
    for (const Row& row : rows) {
        const CString set(",;");
        EXPECT_EQ(tokensOf(row.text, [](auto& next) { return next.nextToken(",;"); }),
                  row.separating)
            << row.text;
        EXPECT_EQ(tokensOf(row.text, [](auto& next) { return next.nextToken(",;x", 2); }),
                  row.separating)
            << row.text;
        EXPECT_EQ(tokensOf(row.text, [&](auto& next) { return next.nextToken(set); }),
                  row.separating)
            << row.text;
    }
}

TEST(CStringTokenizer, WithoutArgumentBlankTabAndNewlineDelimit) {
    const CString text(" a\t\nb,c\rd ");
    EXPECT_EQ(tokensOf(text, [](auto& next) { return next(); }), (Tokens{"a", "b,c\rd"}));
    EXPECT_EQ(tokensOf(text, [](auto& next) { return next.nextToken(); }),
              (Tokens{"", "a", "", "b,c\rd"}));
}

TEST(CStringTokenizer, IsDoneAtTheEnd) {
    CStringTokenizer next("a b");
    EXPECT_FALSE(next.done());
    EXPECT_EQ(next(), "a");
    EXPECT_FALSE(next.done());
    EXPECT_EQ(next(), "b");
    EXPECT_TRUE(next.done());
    EXPECT_TRUE(next().isNull());
    EXPECT_TRUE(next().isNull());
    EXPECT_TRUE(CStringTokenizer("").done());
}

TEST(CStringTokenizer, OfOnlyDelimitersIsNotDoneAtFirst) {
    CStringTokenizer next("   ");
    EXPECT_FALSE(next.done());
    EXPECT_TRUE(next().isNull());
    EXPECT_TRUE(next.done());
}

TEST(CStringTokenizer, IsNotDoneWhileDelimitersRemain) {
    CStringTokenizer next("a ");
    EXPECT_EQ(next(), "a");
    EXPECT_FALSE(next.done());
    EXPECT_TRUE(next().isNull());
    EXPECT_TRUE(next.done());
}

TEST(CStringTokenizer, NextTokenIsDoneBehindADelimiterAtTheEnd) {
    CStringTokenizer next(",a,,b");
    const char* expected[] = {"", "a", "", "b"};
    for (const char* token : expected) {
        EXPECT_FALSE(next.done());
        const CSubString found = next.nextToken(",");
        EXPECT_FALSE(found.isNull());
        EXPECT_EQ(found, token);
    }
    EXPECT_TRUE(next.done());
    CStringTokenizer trailing("a,");
    EXPECT_EQ(trailing.nextToken(","), "a");
    EXPECT_TRUE(trailing.done());
    EXPECT_TRUE(trailing.nextToken(",").isNull());
    EXPECT_TRUE(trailing.nextToken(",").isNull());
    EXPECT_TRUE(trailing.done());
}

TEST(CStringTokenizer, EmptyTokenStandsAtItsDelimiter) {
    CStringTokenizer next("a,,b");
    EXPECT_EQ(next.nextToken(",").start(), 0u);
    const CSubString empty = next.nextToken(",");
    EXPECT_EQ(empty.start(), 2u);
    EXPECT_EQ(empty.length(), 0u);
    EXPECT_EQ(next.nextToken(",").start(), 3u);
}

TEST(CStringTokenizer, ZeroByteSeparatesForTerminatedDelimiters) {
    const CString text = bytes(std::string_view("a\0\0b \0c", 7));
    EXPECT_EQ(tokensOf(text, [](auto& next) { return next(" "); }), (Tokens{"a", "b", "c"}));
    EXPECT_EQ(tokensOf(text, [](auto& next) { return next(); }), (Tokens{"a", "b", "c"}));
}

TEST(CStringTokenizer, ZeroByteIsADelimiterWhereItIsCounted) {
    const CString text = bytes(std::string_view("a\0b c", 5));
    const CString set = bytes(std::string_view("\0x", 2));
    EXPECT_EQ(tokensOf(text, [](auto& next) { return next("\0x", 2); }), (Tokens{"a", "b c"}));
    EXPECT_EQ(tokensOf(text, [&](auto& next) { return next(set); }), (Tokens{"a", "b c"}));
    EXPECT_EQ(tokensOf(text, [](auto& next) { return next.nextToken("\0x", 2); }),
              (Tokens{"a", "b c"}));
    EXPECT_EQ(tokensOf(text, [&](auto& next) { return next.nextToken(set); }),
              (Tokens{"a", "b c"}));
}

TEST(CStringTokenizer, ZeroByteIsPartOfATokenWhereItIsNotCounted) {
    const CString text = bytes(std::string_view("a\0b c", 5));
    const Tokens expected{std::string("a\0b", 3), "c"};
    const CString set(" ");
    EXPECT_EQ(tokensOf(text, [](auto& next) { return next(" ", 1); }), expected);
    EXPECT_EQ(tokensOf(text, [&](auto& next) { return next(set); }), expected);
    EXPECT_EQ(tokensOf(text, [](auto& next) { return next.nextToken(" ", 1); }), expected);
    EXPECT_EQ(tokensOf(text, [](auto& next) { return next.nextToken(" "); }), expected);
    EXPECT_EQ(tokensOf(text, [&](auto& next) { return next.nextToken(set); }), expected);
}

TEST(CStringTokenizer, WithoutDelimitersGivesTheWholeText) {
    const char* none = nullptr;
    EXPECT_EQ(tokensOf("a b", [](auto& next) { return next(""); }), (Tokens{"a b"}));
    EXPECT_EQ(tokensOf("a b", [](auto& next) { return next("", 0); }), (Tokens{"a b"}));
    EXPECT_EQ(tokensOf("a b", [&](auto& next) { return next(none); }), (Tokens{"a b"}));
    EXPECT_EQ(tokensOf("a b", [&](auto& next) { return next(none, 3); }), (Tokens{"a b"}));
    EXPECT_EQ(tokensOf("a b", [&](auto& next) { return next.nextToken(none); }), (Tokens{"a b"}));
    EXPECT_EQ(tokensOf("a b", [](auto& next) { return next.nextToken(CString()); }),
              (Tokens{"a b"}));
}

TEST(CStringTokenizer, DelimitersMayChangeFromCallToCall) {
    CStringTokenizer next("key=a,b");
    EXPECT_EQ(next.nextToken("="), "key");
    EXPECT_EQ(next(","), "a");
    EXPECT_EQ(next(","), "b");
    EXPECT_TRUE(next.done());
}

TEST(CStringTokenizer, DelimitersMayHaveTheirTopBitSet) {
    EXPECT_EQ(tokensOf("a\xE9"
                       "b",
                       [](auto& next) { return next("\xE9"); }),
              (Tokens{"a", "b"}));
}

TEST(CStringTokenizer, WorksOnACopyThatSharesTheBuffer) {
    CString text('x', 100);
    CStringTokenizer next(text);
    const CSubString token = next();
    EXPECT_EQ(token.data(), text.data());
    text = "y";
    EXPECT_EQ(token.view(), std::string(100, 'x'));
}

TEST(CStringTokenizer, TokenThatIsWrittenLeavesTheTextOfTheCallerAlone) {
    const CString text("ab cd");
    CStringTokenizer next(text);
    next() = "xyz";
    EXPECT_EQ(text.view(), "ab cd");
}

TEST(CStringTokenizer, CopyGoesItsOwnWay) {
    CStringTokenizer next("a b");
    next();
    CStringTokenizer copy(next);
    EXPECT_EQ(copy(), "b");
    EXPECT_TRUE(copy.done());
    EXPECT_EQ(next(), "b");
}

TEST(CStringTokenizer, HasAVirtualDestructor) {
    EXPECT_TRUE((std::has_virtual_destructor_v<CStringTokenizer>));
}

}  // namespace
}  // namespace nolk
