// What becomes of decimals when memory runs out, at every single allocation.

#include <nolk/core/Decimal.h>
#include <nolk/core/Locale.h>

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "support/FailingAllocation.h"

namespace nolk {
namespace {

using test::failEachAllocation;
using test::FailingAllocation;
using test::FailingRun;
using test::Outcome;

const std::string longText = std::string(700, '7') + "." + std::string(700, '8');

TEST(DecimalMemory, OperationsThrowAndLeaveTheirOperandsAlone) {
    const std::pair<const char*, std::function<void(Decimal&, const Decimal&)>> operations[] = {
        {"assign", [](Decimal& a, const Decimal& b) { a = b; }},
        {"add", [](Decimal& a, const Decimal& b) { a += b; }},
        {"subtract", [](Decimal& a, const Decimal& b) { a -= b; }},
        {"multiply", [](Decimal& a, const Decimal& b) { a *= b; }},
        {"round", [](Decimal& a, const Decimal& b) { a = round(b, -3, Decimal::halfUp); }},
        {"negate", [](Decimal& a, const Decimal& b) { a = -b; }},
        {"text", [](Decimal& a, const Decimal& b) { a = Decimal(b.asString()); }},
    };
    const Decimal other(longText);
    Locale::global();  // made for its first user, once
    for (const auto& [name, operation] : operations) {
        const long before = FailingAllocation::live();
        const long failures = failEachAllocation(false, [&](FailingRun& run) {
            Decimal value("1.5");
            const Outcome outcome = run([&] { operation(value, other); });
            EXPECT_EQ(outcome.failed, outcome.threw) << name;
            if (outcome.failed && std::string(name) != "assign") {
                EXPECT_EQ(value.asString(), "1.5") << name;
            }
            EXPECT_TRUE(other == Decimal(longText));
        });
        EXPECT_GE(failures, 2) << name;
        EXPECT_EQ(FailingAllocation::live(), before) << name;
    }
}

TEST(DecimalMemory, MorePlacesThanThereIsMemoryThrow) {
    const Decimal value("1.5");
    FailingAllocation failing(0, true);
    EXPECT_THROW(round(value, LONG_MAX, Decimal::halfUp), std::bad_alloc);
}

TEST(DecimalMemory, ShortOnesNeedNone) {
    const Decimal a("1234567.8");
    const Decimal b("-0.5");
    const long before = FailingAllocation::made();
    const bool equal = a == b;
    Decimal result = a + b;
    result = a - b;
    result = a * b;
    result = round(a, -2, Decimal::halfEven);
    EXPECT_EQ(FailingAllocation::made(), before);
    EXPECT_FALSE(equal);
    EXPECT_EQ(result.asString(), "1234600");
}

}  // namespace
}  // namespace nolk
