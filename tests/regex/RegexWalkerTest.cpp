#include <nolk/core/Regex.h>
#include <nolk/core/regex/RegexImp.h>

#include "../support/FailingAllocation.h"
#include "RegexFlavours.h"
#include "RegexOracle.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace nolk {
namespace {

using test::told;

template <typename T>
std::string searched(RegexImp<T>& regex, const std::string& text) {
    const std::basic_string<T> subject = test::widened<T>(text);
    auto result = RegexImp<T>::makeResult();
    regex.search(subject.data(), 0, static_cast<unsigned>(subject.size()), result);
    return told(result);
}

// How many decisions a search of `count` characters asks for.
std::uint32_t looksOf(const std::string& pattern, char unit, unsigned count) {
    RegexImp<char> regex(pattern.data(), static_cast<unsigned>(pattern.size()));
    const std::string text = std::string(count, unit);
    auto result = RegexImp<char>::makeResult();
    regex.search(text.data(), 0, count, result);
    return regex.walker().looks();
}

struct Explosive {
    const char* pattern;
    char unit;
};

// Explosive patterns end, for every place of the text and every size.
TEST(RegexWalker, EndsForExplosivePatterns) {
    const Explosive rows[] = {
        {"(a*)*b", 'a'},           {"(a+)+b", 'a'},
        {"(a|aa)+$", 'a'},         {"(x+x+)+y", 'x'},
        {"((a*)*)*b", 'a'},        {"((((a+)+)+)+)+b", 'a'},
        {"(a*a*a*a*)*b", 'a'},     {"(aa|a|aaa)*b", 'a'},
        {"(.*)*(.*)*(.*)*b", 'a'}, {"((a|aa)+(a|aa)+)+b", 'a'},
        {"(a?){50}a{50}b", 'a'},   {"(([ab]*|a+)*|(a|aa)*)*c", 'a'},
    };
    for (const Explosive& row : rows) {
        for (const unsigned count : {8u, 64u, 256u}) {
            Regex<char> regex(row.pattern);
            EXPECT_FALSE(regex.search(std::string(count, row.unit) + "!", 0, count) &&
                         std::string(row.pattern).back() != '$')
                << row.pattern << " on " << count;
        }
    }
}

TEST(RegexWalker, GrowsWithTheSquareOfTheTextOnceFailuresAreRemembered) {
    // n (n + 1) (n + 2) (n + 3) / 24 and the like for each place at first.
    EXPECT_LT(looksOf("(a*)*b", 'a', 8), 2000u);
    for (const char* const pattern : {"(a*)*b", "(a+)+b", "(x+x+)+y", "((a*)*)*b"}) {
        for (const unsigned count : {64u, 128u, 256u}) {
            EXPECT_LT(looksOf(pattern, pattern[1] == 'x' ? 'x' : 'a', count),
                      RegexWalker<char>::looksBeforeFailures + 20 * count * count)
                << pattern << " on " << count;
        }
    }
}

// The first two alternatives of each take the time; the last is the match.
TEST(RegexWalker, FindsWhatLiesBehindExplosiveAlternatives) {
    for (const char* const pattern :
         {"(a*)*b|(a*)*c|a+d", "(x+x+)+y|(a|aa|aaa)*b|a+d", "((aa?)*)*b|((a+)+)+[ce]|[a-b]+d"}) {
        for (const unsigned count : {20u, 64u, 256u}) {
            const std::string text = std::string(count, 'a') + "d!";
            RegexImp<char> regex(pattern, static_cast<unsigned>(std::strlen(pattern)));
            const std::string whole = searched(regex, text).substr(0, 6);
            EXPECT_EQ(whole.substr(0, whole.find(' ')), "0/" + std::to_string(count + 1))
                << pattern << " on " << count;
        }
    }
}

// However early failures are remembered: the match is the one that trying everything finds.
TEST(RegexWalker, FindsTheSameMatchWithFailuresRememberedFromTheBeginning) {
    test::PatternMaker maker(2906);
    std::uint32_t known = 0;
    for (int i = 0; i < 5000; ++i) {
        const std::vector<test::Part> parts = maker.fixedPattern();
        const std::string pattern = written(parts);
        RegexImp<char> regex(pattern.data(), static_cast<unsigned>(pattern.size()));
        regex.walker().rememberFailuresAfter(0);
        test::NaiveMatcher naive(parts, maker.groups());
        for (int j = 0; j < 5; ++j) {
            const std::string text = maker.text(10);
            std::vector<test::Place> expected(maker.groups() + 1);
            auto result = RegexImp<char>::makeResult();
            ASSERT_EQ(regex.search(text.data(), 0, static_cast<unsigned>(text.size()), result),
                      naive.search(text, expected))
                << pattern << " on " << text;
            known += regex.walker().failures();
            if (result) {
                ASSERT_EQ(static_cast<int>(result.getStart(0)), expected[0].start);
                ASSERT_EQ(static_cast<int>(result.getStart(0) + result.getLength(0)),
                          expected[0].end)
                    << pattern << " on " << text;
            }
        }
    }
    EXPECT_GT(known, 10000u);
}

TEST(RegexWalker, AllocatesNothingOnceItHasWorked) {
    const char* const patterns[] = {"[0-9]{4}-[0-9]{2}", "(foo|bar|baz)+", "(a*ab?)*c",
                                    "(([A-Z]|[a-z])+)://(([^:/]*))(:([0-9]*))?(/.*)"};
    const std::string text = "xx 2024-10 foobarbaz aaabaac http://example.com:80/x";
    for (const char* const pattern : patterns) {
        Regex<char> regex(pattern);
        const std::string first = told(regex.search(text));
        const long before = test::FailingAllocation::made();
        for (int i = 0; i < 3; ++i) {
            regex.search(text);
            regex.matchAt(text, 3);
        }
        EXPECT_EQ(test::FailingAllocation::made(), before) << pattern;
        EXPECT_EQ(told(regex.search(text)), first);
    }
}

TEST(RegexWalker, SurvivesWhenMemoryRunsOut) {
    const std::string pattern =
        "((a|bc)*[x-z]d{2,3}|ef)+(gh|i[^jk])?(((a+)+)+)+" + std::string(200, 'l');
    const std::string text = std::string(40, 'a') + "xdd" + std::string(40, 'a') + "!";
    const long before = test::FailingAllocation::live();
    const unsigned long failures = test::failEachAllocation([&] {
        Regex<char> regex(pattern);
        Regex<char> copy(regex);
        copy = regex;
        copy.search(text);
    });
    EXPECT_GT(failures, 10u);
    EXPECT_EQ(test::FailingAllocation::live(), before);
}

TEST(RegexWalker, WorksOnAfterASearchThatRanOutOfMemory) {
    Regex<char> regex("(a*)*b");
    const std::string text(20, 'a');
    EXPECT_GT(test::failEachAllocation([&] { Regex<char>(regex).search(text); }), 3u);
    Regex<char> again(regex);
    test::failEachAllocation([&] { again.search(text); },
                             [&] { EXPECT_EQ(told(again.search("aab")), "0/3 0/2"); });
    EXPECT_EQ(told(again.search(text + "b")), "0/21 0/20");
}

}  // namespace
}  // namespace nolk
