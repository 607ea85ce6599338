#include <gtest/gtest.h>

#include <string>

#include "RegexWays.h"

namespace nolk {

using test::compiled;
using test::expectWhatWalksFind;
using test::searched;
using test::textsOf;

namespace {

template <typename T>
class RegexStraightWalkOf : public testing::Test {};
TYPED_TEST_SUITE(RegexStraightWalkOf, test::Flavours);

// It calls itself for each, so it leaves the many to the walker.
TYPED_TEST(RegexStraightWalkOf, TakesAFewGroupsInsideOneAnother) {
    for (const std::size_t depth : {1, 50, 51, 2000}) {
        const std::string pattern = std::string(depth, '(') + "a" + std::string(depth, ')');
        RegexImp<TypeParam> regex = compiled<TypeParam>(pattern);
        EXPECT_EQ(regex.program().isStraight, depth <= 50) << depth;
        std::string expected = "1/1";
        for (std::size_t i = 0; i < depth; ++i) {
            expected += " 1/1";
        }
        EXPECT_EQ(searched(regex, "xa"), expected) << depth;
    }
}

TYPED_TEST(RegexStraightWalkOf, FindsWhatWalksFind) {
    const auto texts = textsOf("ab1-", 5);
    for (const std::string pattern :
         {"ab|ba|1", "-?(a1|b1|ab)(1|b)?", "a*(1[ab]*)?", "((a+1)?(b1)?)?-", "(-[ab]+)|[1]+",
          "(([ab]1)|1a)(1|(-b))?", "(a|(b1?))?(a(b)?)?a", "((a)?(b))?b?", "(a?)b?", "1(ab|b){2,3}",
          "(([ab]+)b)?-", "((1)?a)?(b-|1a|1b)$", "((aa|b)1)?b"}) {
        ASSERT_TRUE(compiled<TypeParam>(pattern).program().isStraight) << pattern;
        expectWhatWalksFind<TypeParam>(pattern, texts);
    }
}

TEST(RegexStraightWalk, GivesUpWhereAGroupMatchesNothing) {
    const std::string text = "b";
    RegexImp<char> regex = compiled<char>("(a?)b");
    auto result = RegexImp<char>::makeResult();
    regex.search(text.data(), 0, 0, result);
    RegexStraightWalk<char> way(regex.program(), text.data(), text.data() + 1);
    EXPECT_EQ(way.walk(text.data(), result), nullptr);
    EXPECT_TRUE(way.isGivenUp());
    EXPECT_EQ(searched(regex, text), "0/1 0/0");
}

}  // namespace
}  // namespace nolk
