#include <nolk/core/StringTokenizer.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

namespace nolk {
namespace {

using Tokens = std::vector<std::string>;

// The tokens up to the call that ends in done().
template <typename Next>
Tokens tokensOf(const std::string& text, const Next& next) {
    StringTokenizer tokenizer(text);
    Tokens tokens;
    while (!tokenizer.done() && tokens.size() < 100) {
        tokens.push_back(next(tokenizer));
    }
    return tokens;
}

struct Row {
    std::string text;
    Tokens skipping;
    Tokens separating;
};

const Row rows[] = {
    {"", {""}, {""}},
    {"a", {"a"}, {"a"}},
    {"a,b", {"a", "b"}, {"a", "b"}},
    {"a,b,", {"a", "b", ""}, {"a", "b"}},
    {",a", {"a"}, {"", "a"}},
    {",a,,b", {"a", "b"}, {"", "a", "", "b"}},
    {",", {""}, {""}},
    {",;,", {""}, {"", "", ""}},
    {";;ab,,", {"ab", ""}, {"", "", "ab", ""}},
    {"ab;;cd", {"ab", "cd"}, {"ab", "", "cd"}},
};

TEST(StringTokenizer, CallSkipsRunsOfDelimiters) {
    for (const Row& row : rows) {
        const std::string set(",;");
        EXPECT_EQ(tokensOf(row.text, [](auto& next) { return next(",;"); }), row.skipping)
            << row.text;
        EXPECT_EQ(tokensOf(row.text, [](auto& next) { return next(",;x", 2); }), row.skipping)
            << row.text;
        EXPECT_EQ(tokensOf(row.text, [&](auto& next) { return next(set); }), row.skipping)
            << row.text;
    }
}

TEST(StringTokenizer, NextTokenSeparatesAtEachDelimiter) {
    for (const Row& row : rows) {
        const std::string set(",;");
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

TEST(StringTokenizer, WithoutArgumentBlankTabAndNewlineDelimit) {
    const std::string text(" a\t\nb,c\rd");
    EXPECT_EQ(tokensOf(text, [](auto& next) { return next(); }), (Tokens{"a", "b,c\rd"}));
    EXPECT_EQ(tokensOf(text, [](auto& next) { return next.nextToken(); }),
              (Tokens{"", "a", "", "b,c\rd"}));
}

TEST(StringTokenizer, IsNotDoneBeforeTheFirstCall) {
    StringTokenizer next("");
    EXPECT_FALSE(next.done());
    EXPECT_EQ(next.nextToken(), "");
    EXPECT_TRUE(next.done());
    StringTokenizer other("");
    EXPECT_EQ(other(), "");
    EXPECT_TRUE(other.done());
}

TEST(StringTokenizer, OnceDoneGivesEmptyTexts) {
    StringTokenizer next("a");
    EXPECT_EQ(next(), "a");
    EXPECT_TRUE(next.done());
    EXPECT_EQ(next(), "");
    EXPECT_EQ(next.nextToken(), "");
    EXPECT_EQ(next(""), "");
    EXPECT_TRUE(next.done());
}

TEST(StringTokenizer, CallIsNotDoneWhileDelimitersRemain) {
    StringTokenizer next("a ");
    EXPECT_EQ(next(), "a");
    EXPECT_FALSE(next.done());
    EXPECT_EQ(next(), "");
    EXPECT_TRUE(next.done());
}

TEST(StringTokenizer, NextTokenIsDoneBehindADelimiterAtTheEnd) {
    StringTokenizer next("a,b,");
    EXPECT_EQ(next.nextToken(","), "a");
    EXPECT_FALSE(next.done());
    EXPECT_EQ(next.nextToken(","), "b");
    EXPECT_TRUE(next.done());
    EXPECT_EQ(next.nextToken(","), "");
}

TEST(StringTokenizer, ZeroByteIsAByteLikeAnyOther) {
    const std::string text("a\0b c", 5);
    const std::string set("\0", 1);
    EXPECT_EQ(tokensOf(text, [](auto& next) { return next(); }),
              (Tokens{std::string("a\0b", 3), "c"}));
    EXPECT_EQ(tokensOf(text, [](auto& next) { return next("\0x", 2); }), (Tokens{"a", "b c"}));
    EXPECT_EQ(tokensOf(text, [&](auto& next) { return next(set); }), (Tokens{"a", "b c"}));
    EXPECT_EQ(tokensOf(text, [](auto& next) { return next.nextToken("\0x", 2); }),
              (Tokens{"a", "b c"}));
    EXPECT_EQ(tokensOf(text, [&](auto& next) { return next.nextToken(set); }),
              (Tokens{"a", "b c"}));
}

TEST(StringTokenizer, WithoutDelimitersGivesTheWholeText) {
    const char* none = nullptr;
    EXPECT_EQ(tokensOf("a b", [](auto& next) { return next(""); }), (Tokens{"a b"}));
    EXPECT_EQ(tokensOf("a b", [&](auto& next) { return next(none); }), (Tokens{"a b"}));
    EXPECT_EQ(tokensOf("a b", [&](auto& next) { return next(none, 3); }), (Tokens{"a b"}));
    EXPECT_EQ(tokensOf("a b", [&](auto& next) { return next.nextToken(none); }), (Tokens{"a b"}));
    EXPECT_EQ(tokensOf("a b", [&](auto& next) { return next.nextToken(none, 3); }),
              (Tokens{"a b"}));
    EXPECT_EQ(tokensOf("a b", [](auto& next) { return next.nextToken(std::string()); }),
              (Tokens{"a b"}));
}

TEST(StringTokenizer, DelimitersMayChangeFromCallToCall) {
    StringTokenizer next("key=a,b;c");
    EXPECT_EQ(next.nextToken("="), "key");
    EXPECT_EQ(next(","), "a");
    EXPECT_EQ(next.nextToken(";"), ",b");
    EXPECT_EQ(next(), "c");
    EXPECT_TRUE(next.done());
}

TEST(StringTokenizer, CallLeavesItsDelimiterForNextToken) {
    StringTokenizer next("a,b");
    EXPECT_EQ(next(","), "a");
    EXPECT_EQ(next.nextToken(","), "");
    EXPECT_EQ(next.nextToken(","), "b");
    EXPECT_TRUE(next.done());
}

TEST(StringTokenizer, KeepsATextOfItsOwn) {
    std::string text("a b");
    StringTokenizer next(text);
    text = "other";
    EXPECT_EQ(next(), "a");
    EXPECT_EQ(next(), "b");
}

TEST(StringTokenizer, CopyGoesItsOwnWay) {
    StringTokenizer next("a b");
    next();
    StringTokenizer copy(next);
    EXPECT_EQ(copy(), "b");
    EXPECT_TRUE(copy.done());
    EXPECT_FALSE(next.done());
    EXPECT_EQ(next(), "b");
}

TEST(StringTokenizer, HasAVirtualDestructor) {
    EXPECT_TRUE((std::has_virtual_destructor_v<StringTokenizer>));
}

}  // namespace
}  // namespace nolk
