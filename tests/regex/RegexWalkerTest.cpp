#include <nolk/core/Regex.h>
#include <nolk/core/regex/RegexImp.h>

#include "../support/FailingAllocation.h"
#include "RegexFlavours.h"

#include <gtest/gtest.h>

#include <string>

namespace nolk {
namespace {

using test::told;

// The most decisions on the tried list that a search of `count` characters and one more leaves.
std::uint32_t triedBy(const std::string& pattern, char unit, unsigned count) {
    RegexImp<char> regex(pattern.data(), static_cast<unsigned>(pattern.size()));
    const std::string text = std::string(count, unit);
    auto result = RegexImp<char>::makeResult();
    regex.matchAt(text.data(), 0, count, result);
    return regex.walker().tried();
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

TEST(RegexWalker, LooksCloselyAtSoManyDecisionsAndThenAtTheirPlacesAlone) {
    // n (n + 1) (n + 2) (n + 3) / 24 and the like at first; nodes times positions later.
    EXPECT_LT(triedBy("(a*)*b", 'a', 8), 500u);
    EXPECT_LT(triedBy("(a*)*b", 'a', 16), 6000u);
    const std::uint32_t most = RegexTriedList<char>::closeLooks + 6 * 257;
    for (const unsigned count : {64u, 128u, 256u}) {
        EXPECT_LE(triedBy("(a*)*b", 'a', count), most) << count;
    }
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
