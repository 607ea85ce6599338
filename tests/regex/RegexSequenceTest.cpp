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
class RegexSequenceOf : public testing::Test {};
TYPED_TEST_SUITE(RegexSequenceOf, test::Flavours);

TYPED_TEST(RegexSequenceOf, FindsWhatWalksFind) {
    const auto texts = textsOf("ab1", 7);
    for (const std::string pattern :
         {"[ab]*b+a*", "a*ab?", "[a1]{1,2}1b?", "a{0,}ab", "a?a?a?aaa", "[ab]*[b1]+[a1]*ab",
          ".*.*1", "a?[ab]?b$", "[ab]{2,3}b{0,2}b"}) {
        ASSERT_TRUE(compiled<TypeParam>(pattern).program().isSequence) << pattern;
        expectWhatWalksFind<TypeParam>(pattern, texts);
    }
}

TEST(RegexSequence, LeavesManyWaysToWalks) {
    const std::string text(40, 'a');
    RegexImp<char> regex = compiled<char>("a*a*a*a*b");
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
