#include <nolk/core/DecimalInit.h>

#include <nolk/core/Decimal.h>

#include <gtest/gtest.h>

namespace nolk {
namespace {

// As seen by a static initialiser.
struct Seen {
    Decimal::State null = Decimal::null.state();
    Decimal::State NaN = Decimal::NaN.state();
    Decimal::State missing = Decimal::missing.state();
};
const Seen seen;

TEST(DecimalInit, ConstantsAreRightInStaticInitialisers) {
    EXPECT_EQ(seen.null, 1);
    EXPECT_EQ(seen.NaN, 2);
    EXPECT_EQ(seen.missing, 8);
}

TEST(DecimalInit, FurtherOnesLeaveTheConstantsAlone) {
    const Decimal* const before[] = {&Decimal::null, &Decimal::NaN, &Decimal::missing};
    const DecimalInit another;
    EXPECT_EQ(before[0], &Decimal::null);
    EXPECT_EQ(Decimal::null.state(), Decimal::State::null);
    EXPECT_EQ(Decimal::NaN.state(), Decimal::State::NaN);
    EXPECT_EQ(Decimal::missing.state(), Decimal::State::missing);
    EXPECT_EQ(before[2]->asString(), "(missing)");
}

}  // namespace
}  // namespace nolk
