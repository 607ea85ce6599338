#include <nolk/core/DecimalBase.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace nolk {
namespace {

TEST(DecimalBase, HasTheStatesByNumber) {
    EXPECT_EQ(DecimalBase::number, 0);
    EXPECT_EQ(DecimalBase::null, 1);
    EXPECT_EQ(DecimalBase::NaN, 2);
    EXPECT_EQ(DecimalBase::ctorError, 4);
    EXPECT_EQ(DecimalBase::missing, 8);
}

TEST(DecimalBase, HasTheRoundingMethodsByNumber) {
    EXPECT_EQ(DecimalBase::halfUp, 0);
    EXPECT_EQ(DecimalBase::awayFromZero, 1);
    EXPECT_EQ(DecimalBase::towardZero, 2);
    EXPECT_EQ(DecimalBase::halfEven, 3);
}

TEST(DecimalBase, EnumerationsTakeAnyInt) {
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<DecimalBase::State>, int>));
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<DecimalBase::RoundingMethod>, int>));
}

}  // namespace
}  // namespace nolk
