#include <nolk/core/regex/RegexImp.h>

#include "RegexFlavours.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace nolk {
namespace {

template <typename T>
class RegexStraightWalkOf : public testing::Test {};
TYPED_TEST_SUITE(RegexStraightWalkOf, test::Flavours);

template <typename T>
std::string searched(RegexImp<T>& regex, const std::string& text) {
    const std::basic_string<T> subject = test::widened<T>(text);
    auto result = RegexImp<T>::makeResult();
    regex.search(subject.data(), 0, static_cast<unsigned>(subject.size()), result);
    return test::told(result);
}

// All texts of some units up to a length.
std::vector<std::string> texts(const std::string& units, std::size_t length) {
    std::vector<std::string> all(1);
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].size() < length) {
            for (const char unit : units) {
                all.push_back(all[i] + unit);
            }
        }
    }
    return all;
}

// It calls itself for each, so it leaves the many to the walker.
TYPED_TEST(RegexStraightWalkOf, TakesAFewGroupsInsideOneAnother) {
    for (const std::size_t depth : {1, 50, 51, 2000}) {
        const std::string pattern = std::string(depth, '(') + "a" + std::string(depth, ')');
        const auto units = test::widened<TypeParam>(pattern);
        RegexImp<TypeParam> regex(units.data(), static_cast<unsigned>(units.size()));
        EXPECT_EQ(regex.program().isStraight, depth <= 50) << depth;
        std::string expected = "1/1";
        for (std::size_t i = 0; i < depth; ++i) {
            expected += " 1/1";
        }
        EXPECT_EQ(searched(regex, "xa"), expected) << depth;
    }
}

TYPED_TEST(RegexStraightWalkOf, FindsWhatWalksFind) {
    for (const std::string pattern :
         {"ab|ba|1", "-?(a1|b1|ab)(1|b)?", "a*(1[ab]*)?", "((a+1)?(b1)?)?-", "(-[ab]+)|[1]+",
          "(([ab]1)|1a)(1|(-b))?", "(a|(b1?))?(a(b)?)?a", "((a)?(b))?b?", "(a?)b?", "1(ab|b){2,3}",
          "(([ab]+)b)?-", "((1)?a)?(b-|1a|1b)$", "((aa|b)1)?b"}) {
        const auto units = test::widened<TypeParam>(pattern);
        RegexImp<TypeParam> regex(units.data(), static_cast<unsigned>(units.size()));
        RegexImp<TypeParam> walking(regex);
        walking.walkAlways();
        ASSERT_TRUE(regex.program().isStraight) << pattern;
        for (const std::string& text : texts("ab1-", 5)) {
            ASSERT_EQ(searched(regex, text), searched(walking, text)) << pattern << " on " << text;
        }
    }
}

TEST(RegexStraightWalk, GivesUpWhereAGroupMatchesNothing) {
    const std::string pattern = "(a?)b";
    const std::string text = "b";
    RegexImp<char> regex(pattern.data(), static_cast<unsigned>(pattern.size()));
    auto result = RegexImp<char>::makeResult();
    regex.search(text.data(), 0, 0, result);
    RegexStraightWalk<char> way(regex.program(), text.data(), text.data() + 1);
    EXPECT_EQ(way.walk(text.data(), result), nullptr);
    EXPECT_TRUE(way.isGivenUp());
    EXPECT_EQ(searched(regex, text), "0/1 0/0");
}

}  // namespace
}  // namespace nolk
