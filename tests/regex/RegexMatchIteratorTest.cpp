#include "RegexFlavours.h"

#include <nolk/core/RegexMatchIterator.h>

#include <gtest/gtest.h>

#include <string>

namespace nolk {
namespace {

using test::told;
using test::widened;

template <typename T>
class RegexMatchIteratorOf : public testing::Test {};
TYPED_TEST_SUITE(RegexMatchIteratorOf, test::Flavours);

template <typename T>
std::string all(RegexMatchIterator<T> it) {
    std::string text;
    for (; it != RegexMatchIterator<T>(); ++it) {
        text += (text.empty() ? "" : " ") + std::to_string(it->getStart(0)) + "/" +
                std::to_string(it->getLength(0));
    }
    return text;
}

template <typename T>
std::string matches(const std::string& pattern, const std::string& text, unsigned start = 0,
                    unsigned length = ~0u, bool overlap = false) {
    Regex<T> regex(widened<T>(pattern));
    const auto subject = widened<T>(text);
    return all(RegexMatchIterator<T>(regex, subject, start, length, overlap));
}

template <typename T>
std::string matchesOfPointer(const std::string& pattern, const std::string& text,
                             unsigned start = 0, unsigned length = ~0u) {
    Regex<T> regex(widened<T>(pattern));
    const auto subject = widened<T>(text);
    return all(RegexMatchIterator<T>(regex, subject.c_str(), start, length, false));
}

TYPED_TEST(RegexMatchIteratorOf, GoesFromMatchToMatch) {
    EXPECT_EQ(matches<TypeParam>("a+", "aabab"), "0/2 3/1");
    EXPECT_EQ(matches<TypeParam>("aa", "aaaa"), "0/2 2/2");
    EXPECT_EQ(matches<TypeParam>("aa", "aaaa", 0, ~0u, true), "0/2 1/2 2/2");
    EXPECT_EQ(matches<TypeParam>("x", "aaaa"), "");
}

TYPED_TEST(RegexMatchIteratorOf, ReportsEmptyMatchesButNotAtTheEndOfATextThatIsNotEmpty) {
    EXPECT_EQ(matches<TypeParam>("a*", "baaa"), "0/0 1/3");
    EXPECT_EQ(matches<TypeParam>("a*", ""), "0/0");
    EXPECT_EQ(matches<TypeParam>("a*", "bb"), "0/0 1/0");
}

TYPED_TEST(RegexMatchIteratorOf, AnchorsToEachStep) {
    EXPECT_EQ(matches<TypeParam>("^a", "aaba"), "0/1 1/1");
}

TYPED_TEST(RegexMatchIteratorOf, CountsTheLengthOfAStringFromTheStart) {
    EXPECT_EQ(matches<TypeParam>("a", "aaaa", 1, 2), "1/1 2/1");
    // The range ends behind the string, so that an empty match at its end counts.
    EXPECT_EQ(matches<TypeParam>("a*", "baaa", 1), "1/3 4/0");
    EXPECT_EQ(matches<TypeParam>("b*", "baaa", 3), "3/0 4/0");
    EXPECT_EQ(matches<TypeParam>("a*", "baaa", 1, 3), "1/3");
}

TYPED_TEST(RegexMatchIteratorOf, RunsToTheTerminatorFromTheFirstTwoPlacesAlone) {
    EXPECT_EQ(matchesOfPointer<TypeParam>("a", "aaa"), "0/1 1/1 2/1");
    EXPECT_EQ(matchesOfPointer<TypeParam>("a", "aaa", 1), "1/1 2/1");
    EXPECT_EQ(matchesOfPointer<TypeParam>("a", "aaa", 2), "");
    EXPECT_EQ(matchesOfPointer<TypeParam>("a", "aaa", 2, ~0u - 2), "2/1");
    EXPECT_EQ(matchesOfPointer<TypeParam>("a", "aaa", 2, ~0u - 3), "2/1");
    EXPECT_EQ(matchesOfPointer<TypeParam>("a", "aaa", 2, 1), "2/1");
    EXPECT_EQ(matchesOfPointer<TypeParam>("a*", "baaa", 1), "1/3");
}

TYPED_TEST(RegexMatchIteratorOf, MovesAndCompares) {
    Regex<TypeParam> regex(widened<TypeParam>("a"));
    const auto text = widened<TypeParam>("aaba");
    RegexMatchIterator<TypeParam> it(regex, text);
    const RegexMatchIterator<TypeParam> begin(it);
    EXPECT_TRUE(it == begin);
    EXPECT_EQ(told(*it++), "0/1");
    EXPECT_TRUE(it != begin);
    EXPECT_EQ(told(*it), "1/1");
    RegexMatchIterator<TypeParam> other(regex, text);
    other += 2;
    EXPECT_EQ(told(*other), "3/1");
    EXPECT_TRUE(++it == other);
    other += 5;
    EXPECT_TRUE(other == RegexMatchIterator<TypeParam>());
    EXPECT_FALSE(*other);
    other = begin;
    EXPECT_EQ(told(*other), "0/1");
    Regex<TypeParam> same(regex);
    EXPECT_TRUE((RegexMatchIterator<TypeParam>(same, text)) != begin);
}

struct Replacement {
    const char* pattern;
    const char* text;
    const char* with;
    unsigned count;
    unsigned matchIndex;
    bool replaceEmpty;
    const char* expected;
    unsigned done;
};

TYPED_TEST(RegexMatchIteratorOf, ServesReplace) {
    const Replacement rows[] = {
        {"a", "banana", "o", 0, 0, true, "bonono", 3},
        {"a", "banana", "o", 2, 0, true, "bonona", 2},
        {"x", "banana", "o", 0, 0, true, "banana", 0},
        {"b(an)", "banana ban", "X", 0, 1, true, "bXana bX", 2},
        {"(a)|b", "ab", "X", 0, 1, true, "X", 1},
        {"^a", "aaba", "b", 0, 0, true, "bbba", 2},
        {"a", "aa", "$0\\1", 0, 0, true, "$0\\1$0\\1", 2},
        {"x*", "ab", "-", 0, 0, true, "-a-b", 2},
        {"x*", "ab", "-", 0, 0, false, "ab", 0},
        {"a(x*)b", "ab", "-", 0, 1, true, "a-b", 1},
        {"a(x*)b", "ab", "-", 0, 1, false, "ab", 0},
        {"a*", "", "-", 0, 0, true, "-", 1},
    };
    for (const Replacement& row : rows) {
        Regex<TypeParam> regex(widened<TypeParam>(row.pattern));
        auto text = widened<TypeParam>(row.text);
        EXPECT_EQ(regex.replace(text, widened<TypeParam>(row.with), row.count, row.matchIndex, 0,
                                ~0u, row.replaceEmpty),
                  row.done);
        EXPECT_EQ(text, widened<TypeParam>(row.expected)) << row.pattern << " in " << row.text;
    }
}

// The longer alternative fails, and leaves the place of its group behind the match.
TYPED_TEST(RegexMatchIteratorOf, CopiesNoTextTwiceForACaptureOutsideTheMatch) {
    Regex<TypeParam> regex(widened<TypeParam>("(ab(c)d|a)"));
    auto text = widened<TypeParam>("abce");
    EXPECT_EQ(regex.replace(text, widened<TypeParam>("X"), 0, 2, 0, ~0u, true), 1u);
    EXPECT_EQ(text, widened<TypeParam>("aXbce"));
}

TYPED_TEST(RegexMatchIteratorOf, LeavesWhatIsOutsideTheRangeOfReplaceAlone) {
    Regex<TypeParam> regex(widened<TypeParam>("a"));
    auto text = widened<TypeParam>("aaaa");
    EXPECT_EQ(regex.replace(text, widened<TypeParam>("bc"), 0, 0, 1, 2, true), 2u);
    EXPECT_EQ(text, widened<TypeParam>("abcbca"));
    EXPECT_EQ(regex.replace(text, widened<TypeParam>("x"), 0, 0, 1, ~0u, true), 1u);
    EXPECT_EQ(text, widened<TypeParam>("abcbcx"));
}

}  // namespace
}  // namespace nolk
