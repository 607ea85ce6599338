#include <nolk/core/regex/RegexImp.h>

#include "RegexFlavours.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace nolk {
namespace {

template <typename T>
class RegexSequenceOf : public testing::Test {};
TYPED_TEST_SUITE(RegexSequenceOf, test::Flavours);

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

TYPED_TEST(RegexSequenceOf, FindsWhatWalksFind) {
    for (const std::string pattern :
         {"[ab]*b+a*", "a*ab?", "[a1]{1,2}1b?", "a{0,}ab", "a?a?a?aaa", "[ab]*[b1]+[a1]*ab",
          ".*.*1", "a?[ab]?b$", "[ab]{2,3}b{0,2}b"}) {
        const auto units = test::widened<TypeParam>(pattern);
        RegexImp<TypeParam> regex(units.data(), static_cast<unsigned>(units.size()));
        RegexImp<TypeParam> walking(regex);
        walking.walkAlways();
        ASSERT_TRUE(regex.program().isSequence) << pattern;
        for (const std::string& text : texts("ab1", 7)) {
            ASSERT_EQ(searched(regex, text), searched(walking, text)) << pattern << " on " << text;
        }
    }
}

TEST(RegexSequence, LeavesManyWaysToWalks) {
    const std::string pattern = "a*a*a*a*b";
    const std::string text(40, 'a');
    RegexImp<char> regex(pattern.data(), static_cast<unsigned>(pattern.size()));
    EXPECT_EQ(searched(regex, text), "-");
    EXPECT_GT(regex.walker().looks(), 0u);
    EXPECT_EQ(searched(regex, text + "b"), "0/41");
    RegexSequence<char> few(regex.program(), text.data() + 4);
    EXPECT_EQ(few.walk(text.data()), nullptr);
    EXPECT_FALSE(few.isTooLong());
    RegexSequence<char> many(regex.program(), text.data() + 40);
    EXPECT_EQ(many.walk(text.data()), nullptr);
    EXPECT_TRUE(many.isTooLong());
}

}  // namespace
}  // namespace nolk
