#include "RegexFlavours.h"

#include <nolk/core/Regex.h>
#include <nolk/core/RegexException.h>

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace nolk {
namespace {

using test::fault;
using test::found;
using test::told;
using test::widened;

template <typename T>
class RegexOf : public testing::Test {};
TYPED_TEST_SUITE(RegexOf, test::Flavours);

struct Row {
    const char* pattern;
    const char* text;
    const char* expected;
};

template <typename T, std::size_t n>
void expectFound(const Row (&rows)[n]) {
    for (const Row& row : rows) {
        EXPECT_EQ(found<T>(row.pattern, row.text), row.expected)
            << row.pattern << " on " << row.text;
    }
}

TYPED_TEST(RegexOf, FindsTheFirstAndLongestOverTheAlternatives) {
    expectFound<TypeParam>({
        {"", "abc", "0/0"},
        {"b", "abc", "1/1"},
        {"a|ab|abc", "abc", "0/3"},
        {"ab|a|abc", "xabc", "1/3"},
        {"(a|b)(c|d)", "bd", "0/2 0/1 1/1"},
        {"(aa|bb)(cc|dd)", "bbdd", "0/4 0/2 2/2"},
        {"(aa|bb)(cc|dd)(ee|ff)", "bbddff", "0/6 0/2 2/2 4/2"},
        {"(a|ab)(c|bcd)(d*)", "abcd", "0/4 0/1 1/3 4/0"},
        {"((a|bc)|d)e", "bce", "0/3 0/2 0/2"},
        {"((a|bc)|d)e", "de", "0/2 0/1 -"},
        {"(foo|bar|baz)+", "xfoobarbazq", "1/9 7/3"},
        {"(a|aa)+", "aaaa", "0/4 3/1"},
    });
}

TYPED_TEST(RegexOf, RepeatsGreedily) {
    expectFound<TypeParam>({
        {"a*", "baaa", "0/0"},
        {"a+", "baaa", "1/3"},
        {"a?a", "aa", "0/2"},
        {"ab{2}c", "abbc", "0/4"},
        {"ab{2}c", "abbbc", "-"},
        {"a{2,}", "aaaa", "0/4"},
        {"a{2,3}", "aaaa", "0/3"},
        {"a{ 2 , 3 }", "aaaa", "0/3"},
        {"a{2, }", "aaaa", "0/4"},
        {"a{0}b", "ab", "1/1"},
        {"abc{2}", "abcc", "0/4"},
        {"abc{2}", "abcabc", "-"},
        {".*b", "abab", "0/4"},
        {".*ab", "ababa", "0/4"},
        {"[ab]*ab", "abba", "0/2"},
        {"a*ab?", "aab", "0/3"},
        {"a{99999999999}", "aaa", "-"},
    });
}

TYPED_TEST(RegexOf, CapturesTheLastCompleteIteration) {
    expectFound<TypeParam>({
        {"(ab)*", "ababx", "0/4 2/2"},
        {"(ab)*", "ababa", "0/4 2/2"},
        {"(a*)*", "aa", "0/2 0/2"},
        {"(a*)+", "b", "0/0 0/0"},
        {"(a*)*b", "aab", "0/3 0/2"},
        {"(a)|b", "b", "0/1 -"},
        {"((a)|bc)+", "abc", "0/3 1/2 0/1"},
        {"(a*ab)*", "aab", "0/3 0/3"},
        {"((ab){2}c)*", "ababcababc", "0/10 5/5 7/2"},
    });
}

TYPED_TEST(RegexOf, FindsThePartsOfAnAddress) {
    const char* const address = "(([A-Z]|[a-z])+)://(([^:/]*))(:([0-9]*))?(/.*)";
    expectFound<TypeParam>({
        {address, "svc://h:80/p?x=1", "0/16 0/3 2/1 6/1 6/1 7/3 8/2 10/6"},
        {address, "http://example.com/", "0/19 0/4 3/1 7/11 7/11 18/0 - 18/1"},
        {address, "svc://h", "- - - - - - - -"},
    });
}

// `{0,}` isn't optional, so no decision is saved where it has not matched yet; an end anchor asks
// the end of the first walk alone; a group left out tells where; an empty group is never closed.
TYPED_TEST(RegexOf, IsOddOnPurpose) {
    expectFound<TypeParam>({
        {"a{0,}ab", "ab", "-"},
        {"a{0,}ab", "aab", "0/3"},
        {"a$b|c", "c", "-"},
        {"a?(ab)?$", "ab", "2/0 2/0"},
        {"a(b)?", "a", "0/1 1/0"},
        {"(a)?a", "a", "0/1 0/0"},
        {"()", "a", "0/0 -"},
        {"(a())b", "ab", "0/2 - -"},
        {"(a?){3}", "a", "- -"},
        {"(a?){3}b", "ab", "0/2 0/1"},
        {"((a)b|a)", "ac", "0/1 0/1 0/1"},
        {"((a)b)*", "aba", "0/2 0/2 2/1"},
        {"a{2}$|b", "aac", "0/2"},
        {"(ab){2}$|c", "ababx", "0/4 2/2"},
        {"(a$|b)+", "ab", "0/2 1/1"},
        {"(a*)*$|b", "aac", "0/2 0/2"},
    });
}

// The end of an inner alternation in front of a `|` is served with that of its next sibling, so
// what may be left out in front of it is left for what follows the sibling.
// Where `$` fails the walk, another alternative in front may lead to an empty match.
TYPED_TEST(RegexOf, WalksEveryRotationThatEndsDifferently) {
    expectFound<TypeParam>({
        {"((b)$|b)*", "a", "0/0 0/0 -"},
        {"((b)$|c)?", "a", "0/0 0/0 -"},
        {"((b)$|ab)+", "aba", "0/2 0/2 -"},
        {"((b)$|bc$)*", "aaaa", "0/0 0/0 -"},
    });
}

TYPED_TEST(RegexOf, TakesOneOfTextsThatExcludeEachOther) {
    expectFound<TypeParam>({
        {"(foo|bar){2}", "foobarfoo", "0/6 3/3"},
        {"(foo|bar){2,3}x", "foobarfoofoox", "3/10 9/3"},
        {"(foo|b\\x61r){0}x", "foox", "3/1 3/0"},
        {"(ab|cd)?ef", "cdab ef", "5/2 5/0"},
        {"(ab|cd)+$", "abcd", "0/4 2/2"},
        {"(0a|0b|1)-(0a|0b|1)", "0b-1", "0/4 0/2 3/1"},
        {"((ab|cd)e)+", "abecde", "0/6 3/3 3/2"},
        {"(ab|cd)", "ac", "- -"},
    });
}

// `{0,}` has no optional bit, so only closing the group leads past it.
TYPED_TEST(RegexOf, AnAlternativeTakenLaterMayCloseItsGroup) {
    expectFound<TypeParam>({
        {"a(b|[ab]{0,})+b", "ab", "0/2 1/0"},
        {"a(a{0,}|a)+a", "aa", "0/2 1/0"},
        {"(.{0,}|.){0,}b", "b", "0/1 0/0"},
    });
}

TYPED_TEST(RegexOf, AGroupLeftOutTellsWhereButNotOnOtherWays) {
    expectFound<TypeParam>({
        {"([bc]+(cc|b)*)+c{3}", "bccc", "0/4 0/1 1/0"},
        {"((a)*)+a{3}|a", "a", "0/1 0/0 -"},
        {"(([ab])*)*.b|b", "b", "0/1 0/0 -"},
        {"(ba(b)*)*[bc]a", "bab", "0/2 0/0 -"},
    });
}

TYPED_TEST(RegexOf, LinksAnInnerAlternationAtTheEndOfAnAlternativeToTheNextOne) {
    expectFound<TypeParam>({
        {"((a[xy]?|bc)|(dd|ef)xi|h)j", "axij", "0/4 0/3 0/1 -"},
        {"((a|bc)|(d|ef)g|h)i", "ai", "0/2 0/1 0/1 -"},
        {"((a|bc)|(d|ef)g|h)i", "efgi", "0/4 0/3 - 0/2"},
    });
}

TYPED_TEST(RegexOf, AnchorsToTheSearchOrTheSubject) {
    EXPECT_EQ(found<TypeParam>("^a", "xxa", 2), "2/1");
    EXPECT_EQ(found<TypeParam>("^a", "xxa", 1), "-");
    EXPECT_EQ(found<TypeParam>("(^a)", "xa"), "- -");
    EXPECT_EQ(found<TypeParam>("(x|^a)", "bbba", 3), "- -");
    EXPECT_EQ(found<TypeParam>("(x|^a)", "abba"), "0/1 0/1");
    EXPECT_EQ(found<TypeParam>("(xy|^(ab|cd))", "cd"), "0/2 0/2 0/2");
    EXPECT_EQ(found<TypeParam>("(xy|^(ab|cd))", "bcd", 1), "- - -");
    EXPECT_EQ(found<TypeParam>("x^a|b", "b"), "0/1");
    EXPECT_EQ(found<TypeParam>("^a|b", "xb"), "-");
    EXPECT_EQ(found<TypeParam>("^a|b", "b"), "0/1");
    EXPECT_EQ(found<TypeParam>("^*a", "a"), "0/1");
    EXPECT_EQ(found<TypeParam>("a^", "a"), "-");
    EXPECT_EQ(found<TypeParam>("$a", "a"), "-");
    EXPECT_EQ(found<TypeParam>("^$", ""), "0/0");
    EXPECT_EQ(found<TypeParam>("^$", "a"), "-");
    EXPECT_EQ(found<TypeParam>("a$", "aa"), "1/1");
    EXPECT_EQ(found<TypeParam>("a$", "aab", 0, 2), "1/1");
    EXPECT_EQ(found<TypeParam>(".*time$", "datetime"), "0/8");
    EXPECT_EQ(found<TypeParam>(".*time$", "dateTime"), "-");
    EXPECT_EQ(found<TypeParam>("(a|ab)$", "ab"), "0/2 0/2");
    EXPECT_EQ(found<TypeParam>("(ab)+$|c", "ababx"), "- -");
    EXPECT_EQ(found<TypeParam>("(ab)+$|c", "abab"), "0/4 2/2");
    EXPECT_EQ(found<TypeParam>("a+$|c", "aabaa"), "3/2");
    EXPECT_EQ(found<TypeParam>("b(a|xy)$|c", "bxybxy"), "3/3 4/2");
    EXPECT_EQ(found<TypeParam>("(a$)b", "ab"), "- -");
}

// What a node has matched is forgotten once it is left, another alternative begins only where one
// has ended, and the groups around a group that is left out don't begin.
TYPED_TEST(RegexOf, KeepsToOneWayWhereAWalkIsOddest) {
    expectFound<TypeParam>({
        {"(c|b?$)|((c|b+)b)", "bc", "1/1 1/1 - -"},
        {"(a{1}a*)*b|a", "aa", "0/1 0/2"},
        {"(aa{2}(b*b|aa))?b{0}a", "aaaaa", "1/1 1/0 -"},
        {"(c?|.{1}a)*", "bb", "0/0 0/0"},
    });
}

// Backtracking to an empty match, alternatives that begin again in a repeated group, and what keeps
// a way from being given up too early or too late.
TYPED_TEST(RegexOf, TakesTheWaysThatAreLeft) {
    expectFound<TypeParam>({
        {"a?c|c*", "", "-"},
        {"a?c|c*", "b", "0/0"},
        {"(c|.*){2}c", "ac", "0/2 1/0"},
        {"(.+|.){2}", "cab", "0/3 2/1"},
        {"([bc]*a|b)+", "cb", "1/1 1/1"},
        {"(a|c$)", "cb", "- -"},
        {"((a)?)", "", "0/0 0/0 0/0"},
        {".+a{0}.", "bc", "-"},
        {"$|^ba", "aba", "-"},
        {"a|^.{2}", "ca", "1/1"},
        {"([^a]{2}|[ab]){2,}[ab]", "acba", "0/4 1/2"},
        {"c|(a{1,}$){0,}", "ab", "0/1 0/1"},
        {"(b)*", "", "0/0 0/0"},
        {"(a)+$|c", "ab", "- -"},
    });
}

// What stands in no alternation separates nothing, an alternative of anchors alone is none, and
// its `^` falls to the next node.
TYPED_TEST(RegexOf, TakesStrayPipesAndAlternativesOfAnchorsForWhatTheyAre) {
    expectFound<TypeParam>({
        {"a\\\\|b", "a\\b", "0/3"},
        {"[(]a|b[)]", "(ab)", "0/4"},
        {"(a|b[)][(])", "ab)(", "0/4 0/4"},
        {"[a|b]", "|", "0/1"},
        {"([a|b]|xy)+", "a|xy", "0/4 2/2"},
        {"(a|$)", "ba", "1/1 1/1"},
        {"a|$", "b", "-"},
        {"(^|a)b", "ab", "0/2 0/1"},
        {"(^|a)b", "xab", "- -"},
        {"(a|^)b", "ab", "- -"},
        {"(a|^)b", "b", "- -"},
        {"(^|^)b", "b", "0/1 -"},
    });
}

TYPED_TEST(RegexOf, ReadsEscapesAndSets) {
    expectFound<TypeParam>({
        {"\\x41\\u0042\\n\\r\\t\\.\\q", "AB\n\r\t.q", "0/7"},
        {"\\x 9", "\t", "0/1"},
        {"]", "a]", "1/1"},
        {"a]b", "a]b", "0/3"},
        {"[]a]+", "b]a]", "1/3"},
        {"[^]a]", "]ab", "2/1"},
        {"[a-c]+", "xabcd", "1/3"},
        {"[c-a]+", "xabcd", "1/3"},
        {"[a\\-c]+", "-abc-", "1/3"},
        {"[-a]+", "b-a-", "1/3"},
        {"[a-]+", "b-a-", "1/3"},
        {"[--/]+", "a-./", "1/3"},
        {"[\\x41-\\x43]+", "xABCD", "1/3"},
        {"[\\n]", "\n", "0/1"},
        {"[(]", "a(", "1/1"},
        {"[.+*]+", "a.+*", "1/3"},
        {"[^a]", "a", "-"},
        {".", "\n", "-"},
        {"(a|b|[x-z])+", "aybq", "0/3 2/1"},
        {"(a|[^b])", "b", "- -"},
        {"(\\x41|b)", "A", "0/1 0/1"},
    });
}

TYPED_TEST(RegexOf, HasNoBraceThatIsLiteralInASetOfBytesOnly) {
    if (sizeof(TypeParam) == 1) {
        EXPECT_EQ(found<TypeParam>("[{a]+", "x{a"), "1/2");
        EXPECT_EQ(found<TypeParam>("[a-[b]]", "[]"), "0/2");
        EXPECT_EQ(found<TypeParam>("\\u0141", "A"), "0/1");
    } else {
        EXPECT_EQ(fault<TypeParam>(widened<TypeParam>("[{a]+")), "17@1");
        EXPECT_EQ(found<TypeParam>("[a-[b]]", "[]a"), "2/1");
        EXPECT_EQ(found<TypeParam>("\\u0141", "A"), "-");
    }
}

TYPED_TEST(RegexOf, TellsWhatIsWrongAndWhere) {
    const std::tuple<const char*, const char*> rows[] = {
        {"+a", "14@0"},       {"*a", "14@0"},       {"?a", "14@0"},       {"{2}a", "14@0"},
        {"a**", "12@2"},      {"a+?", "12@2"},      {"a{2}*", "12@4"},    {"(+a)", "9@1"},
        {"a|*", "10@2"},      {"|a", "11@0"},       {"(|a)", "11@1"},     {"(+a|b)", "11@1"},
        {"a|", "10@2"},       {"(a|)", "10@3"},     {"a||b", "10@2"},     {"a|+b", "10@2"},
        {"a{2,1}", "13@1"},   {"a{,2}", "13@2"},    {"a{}", "13@1"},      {"a{ }", "13@1"},
        {"a{x}", "13@2"},     {"a{1x}", "13@3"},    {"a{1,2,3}", "15@5"}, {"a{1 2}", "15@3"},
        {"a{1,2 3}", "15@5"}, {"[a", "5@0"},        {"a[", "5@1"},        {"[]", "5@0"},
        {"[^]", "5@0"},       {"a{1", "6@1"},       {"a}", "16@1"},       {"}", "16@0"},
        {"(a", "7@0"},        {"(a|b", "7@0"},      {"((a)", "7@0"},      {"a)", "8@1"},
        {"a|b)", "8@3"},      {"\\", "1@0"},        {"ab\\", "1@2"},      {"[\\]]", "1@1"},
        {"\\x4", "3@0"},      {"[\\x4]", "3@1"},    {"\\u123", "4@0"},    {"\\xZZ", "2@2"},
        {"\\x4Z", "2@3"},     {"\\u12G4", "2@4"},   {"\\x  ", "2@2"},     {"[(]|a", "7@1"},
        {"^|a", "11@1"},      {"(a|b[)]", "7@0"},   {"{", "14@0"},        {"a+{", "12@2"},
        {"\\\\(a|b)", "8@6"}, {"(a|b\\\\)", "7@0"},
    };
    for (const auto& [pattern, expected] : rows) {
        EXPECT_EQ(fault<TypeParam>(widened<TypeParam>(pattern)), expected) << pattern;
    }
}

template <typename T>
void expectMessage(const char* pattern, unsigned code, const char* message) {
    try {
        Regex<T> regex(widened<T>(pattern));
        FAIL() << pattern;
    } catch (const RegexException& failure) {
        EXPECT_EQ(failure.getCode(), code) << pattern;
        EXPECT_STREQ(failure.what(), message) << pattern;
    }
}

struct MessageRow {
    const char* pattern;
    unsigned code;
    const char* message;
};

TYPED_TEST(RegexOf, TellsEachCodeByItsMessage) {
    const MessageRow rows[] = {
        {"\\", 1, "[REGEX_MISSING_ESCAPE] Missing escape sequence"},
        {"\\xZZ", 2, "[REGEX_INVALID_HEX] Invalid hex nibble"},
        {"\\x4", 3,
         "[REGEX_INSUFFICIENT_8BIT_DATA] Inusfficient data for 8-bit hex escape sequence"},
        {"\\u123", 4,
         "[REGEX_INSUFFICIENT_16BIT_DATA] Inusfficient data for 16-bit hex escape sequence"},
        {"[a", 5, "[REGEX_MISSING_CLOSING_BRACKET] Missing closing bracket"},
        {"a{1", 6, "[REGEX_MISSING_CLOSING_BRACE] Missing closing curly brace"},
        {"(a", 7, "[REGEX_MISSING_CLOSING_PAREN] Missing closing parenthesis"},
        {"a)", 8, "[REGEX_UNMATCHED_CLOSING_PAREN] Unmatched closing parenthesis"},
        {"(+a)", 9, "[REGEX_INVALID_SUBEXPRESSION] Invalid sub-expression"},
        {"a|", 10, "[REGEX_INVALID_DATA_AFTER_PIPE] Invalid data after |"},
        {"|a", 11, "[REGEX_INVALID_DATA_BEFORE_PIPE] Invalid data before |"},
        {"a**", 12, "[REGEX_CONSECUTIVE_CARDINALITIES] Consecutive cardinalities"},
        {"a{}", 13, "[REGEX_INVALID_CARDINATLIY_RANGE] Invalid cardinality range"},
        {"+a", 14, "[REGEX_LEADING_CARDINATLIY] Leading cardinality"},
        {"a{1,2,3}", 15, "[REGEX_INVALID_DECIMAL] Invalid decimal digit"},
        {"a}", 16, "[REGEX_UNMATCHED_CLOSING_BRACE] Unmatched closing curly brace"},
    };
    for (const MessageRow& row : rows) {
        expectMessage<TypeParam>(row.pattern, row.code, row.message);
    }
}

TEST(RegexOfUnits, TellsTheCodesOfCategoriesByTheirMessages) {
    expectMessage<UChar>("[{Lu]", 17, "[REGEX_INFINTE_CATEGORY_NAME] Never-ending category name");
    expectMessage<UChar>("[{Foo}]", 18, "[REGEX_INVALID_CATEGORY] Invalid category name");
}

TYPED_TEST(RegexOf, RecordsTheCompilersNameForAFailure) {
    const bool isWide = sizeof(TypeParam) != 1;
    try {
        Regex<TypeParam> regex(widened<TypeParam>("a{2,1}"));
        FAIL() << "compiled";
    } catch (const RegexException& failure) {
        EXPECT_STREQ(failure.what(), "[REGEX_INVALID_CARDINATLIY_RANGE] Invalid cardinality range");
        EXPECT_STREQ(failure.getFileName(),
                     isWide ? "nolk/core/UBasicRegex" : "nolk/core/regex/RegexCompiler");
        EXPECT_STREQ(
            failure.getFunctionName(),
            isWide ? "void __thiscall nolk::RegexCompiler<wchar_t>::regexThrow(unsigned int,const "
                     "wchar_t *) const"
                   : "void __thiscall nolk::RegexCompiler<char>::regexThrow(unsigned int,const "
                     "char *) const");
        EXPECT_NE(failure.getLineNumber(), 0u);
    }
}

TYPED_TEST(RegexOf, TakesAsMuchOfAPatternAsItIsTold) {
    const auto text = widened<TypeParam>("abc");
    Regex<TypeParam> two(text.c_str(), 2);
    EXPECT_EQ(told(two.search(text)), "0/2");
    EXPECT_EQ(told(Regex<TypeParam>(text, 1).search(text)), "0/1");
    EXPECT_EQ(told(Regex<TypeParam>(text, 9).search(text)), "0/3");
    EXPECT_EQ(told(Regex<TypeParam>(text.c_str()).search(text)), "0/3");
    const std::basic_string<TypeParam> zero(1, TypeParam());
    EXPECT_EQ(told(Regex<TypeParam>(zero, 1).search(text + zero)), "3/1");
}

TYPED_TEST(RegexOf, WithoutAPatternFindsNothing) {
    Regex<TypeParam> none;
    EXPECT_EQ(none.subCount(), 0u);
    EXPECT_EQ(told(none.search(widened<TypeParam>(""))), "-");
    EXPECT_EQ(told(none.matchAt(widened<TypeParam>("a"))), "-");
    EXPECT_EQ(none.getStatus().getCode(), 0u);
    EXPECT_STREQ(none.getStatus().what(), "[REGEX_NO_ERROR] No error");
}

TYPED_TEST(RegexOf, CopiesShareNothing) {
    const auto text = widened<TypeParam>("xabcx");
    Regex<TypeParam> first(widened<TypeParam>("(ab|b)c"));
    Regex<TypeParam> copy(first);
    Regex<TypeParam> assigned;
    assigned = first;
    first = Regex<TypeParam>(widened<TypeParam>("x$"));
    EXPECT_EQ(told(first.search(text)), "4/1");
    EXPECT_EQ(told(copy.search(text)), "1/3 1/2");
    EXPECT_EQ(told(assigned.search(text)), "1/3 1/2");
    EXPECT_EQ(assigned.subCount(), 1u);
    assigned = *&assigned;
    EXPECT_EQ(told(assigned.search(text)), "1/3 1/2");
}

TYPED_TEST(RegexOf, ComparesPatternsByTheirCharactersAndThenLengths) {
    const auto make = [](const char* pattern) {
        return Regex<TypeParam>(widened<TypeParam>(pattern));
    };
    EXPECT_TRUE(make("ab") == make("ab"));
    EXPECT_FALSE(make("ab") == make("abc"));
    EXPECT_TRUE(make("ab") < make("abc"));
    EXPECT_FALSE(make("abc") < make("ab"));
    EXPECT_TRUE(make("ab") < make("b"));
    // Bytes from 128 on are below the others, code units above.
    EXPECT_EQ(make("\xE9") < make("a"), sizeof(TypeParam) == 1);
}

TYPED_TEST(RegexOf, RangesOfBytesGoByTheirSign) {
    const bool isWide = sizeof(TypeParam) != 1;
    EXPECT_EQ(found<TypeParam>("[\\xF0-a]", "\x90"), isWide ? "0/1" : "-");
    EXPECT_EQ(found<TypeParam>("[\\xF0-a]", "\xF8"), isWide ? "-" : "0/1");
    EXPECT_EQ(found<TypeParam>("[\\xF0-a]", "A"), isWide ? "-" : "0/1");
}

TYPED_TEST(RegexOf, SearchesBetweenStartAndEnd) {
    const auto text = widened<TypeParam>("abab");
    Regex<TypeParam> regex(widened<TypeParam>("ab"));
    EXPECT_EQ(told(regex.search(text, 1)), "2/2");
    EXPECT_EQ(told(regex.search(text.c_str(), 1)), "2/2");
    EXPECT_EQ(told(regex.search(text, 1, 3)), "-");
    EXPECT_EQ(told(regex.search(text.c_str(), 0, 3)), "0/2");
    EXPECT_EQ(told(regex.search(text, 3, 2)), "-");
    EXPECT_EQ(told(regex.search(text, 5)), "-");
    EXPECT_EQ(told(regex.search(text, 0, 99)), "0/2");
    EXPECT_EQ(told(regex.matchAt(text, 0)), "0/2");
    EXPECT_EQ(told(regex.matchAt(text, 1)), "-");
    EXPECT_EQ(told(regex.matchAt(text.c_str(), 2)), "2/2");
    EXPECT_EQ(told(regex.matchAt(text, 3, 2)), "-");
    EXPECT_EQ(told(Regex<TypeParam>(widened<TypeParam>("a*")).search(text, 4)), "4/0");
}

TYPED_TEST(RegexOf, MatchesAtAPlaceThoughThePatternIsAnchored) {
    Regex<TypeParam> regex(widened<TypeParam>("^b"));
    EXPECT_EQ(told(regex.matchAt(widened<TypeParam>("ab"), 1)), "1/1");
}

TYPED_TEST(RegexOf, TellsTheIndexAndLength) {
    const auto text = widened<TypeParam>("xaay");
    Regex<TypeParam> regex(widened<TypeParam>("a+"));
    unsigned length = 7;
    EXPECT_EQ(regex.index(text, &length), 1u);
    EXPECT_EQ(length, 2u);
    EXPECT_EQ(regex.index(text.c_str(), &length, 3), ~0u);
    EXPECT_EQ(length, 0u);
    EXPECT_EQ(regex.index(text, nullptr, 2, 4), 2u);
}

TYPED_TEST(RegexOf, HasRoomForMoreThanUsual) {
    std::string pattern;
    std::string text;
    for (int i = 0; i < 150; ++i) {
        pattern += "(ab|b|c)";
        text += i % 2 == 0 ? "ab" : "c";
    }
    Regex<TypeParam> regex(widened<TypeParam>(pattern));
    const RegexResult<TypeParam> result = regex.search(widened<TypeParam>(text));
    EXPECT_EQ(result.size(), 151u);
    EXPECT_EQ(result.getLength(0), text.size());
    EXPECT_EQ(result.getStart(150), text.size() - 1);
    const Regex<TypeParam> copy(regex);
    EXPECT_TRUE(copy == regex);
}

}  // namespace
}  // namespace nolk
