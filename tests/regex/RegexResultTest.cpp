#include "RegexFlavours.h"

#include <nolk/core/Regex.h>
#include <nolk/core/RegexResult.h>

#include <gtest/gtest.h>

namespace nolk {
namespace {

using test::told;
using test::widened;

template <typename T>
class RegexResultOf : public testing::Test {};
TYPED_TEST_SUITE(RegexResultOf, test::Flavours);

TYPED_TEST(RegexResultOf, TellsTheTextOfAMatch) {
    const auto text = widened<TypeParam>("xaby");
    Regex<TypeParam> regex(widened<TypeParam>("(a)(b|(c))"));
    const RegexResult<TypeParam> result = regex.search(text);
    ASSERT_TRUE(result);
    EXPECT_EQ(result.size(), 4u);
    EXPECT_EQ(result.subString(text, 0), widened<TypeParam>("ab"));
    EXPECT_EQ(result.subString(text, 2), widened<TypeParam>("b"));
    EXPECT_EQ(result.subString(text, 3), widened<TypeParam>(""));
    const RegexResult<TypeParam> copy(result);
    EXPECT_EQ(told(copy), told(result));
    EXPECT_FALSE(RegexResult<TypeParam>());
}

}  // namespace
}  // namespace nolk
