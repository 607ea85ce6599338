// What the conversions leave behind when the memory runs out, at every single allocation. The
// program allocates through FailingAllocation.cpp.

#include <nolk/core/Base64Encoder.h>
#include <nolk/core/ConversionException.h>
#include <nolk/core/QuotedPrintableEncoder.h>
#include <nolk/core/UString.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "support/FailingAllocation.h"

namespace nolk {

using namespace test;
namespace {

class TranscodingAllocation : public testing::TestWithParam<bool> {
protected:
    bool forEver() const { return GetParam(); }

    // Runs an operation with each of its allocations failing: it ends in bad_alloc and leaves
    // nothing behind.
    template <class Operation>
    long failEach(const Operation& operation) {
        const long before = FailingAllocation::live();
        const long failures = failEachAllocation(forEver(), [&](FailingRun& run) {
            const Outcome outcome = run(operation);
            EXPECT_EQ(outcome.threw, outcome.failed);
            EXPECT_EQ(FailingAllocation::live(), before);
        });
        EXPECT_EQ(FailingAllocation::live(), before);
        return failures;
    }
};

INSTANTIATE_TEST_SUITE_P(OnceAndForEver, TranscodingAllocation, testing::Bool());

const std::string ascii(200, 'a');
const std::string mixed = ascii + "\xC3\xA9" + ascii + "\xE2\x82\xAC";

TEST_P(TranscodingAllocation, AStringFromUtf8ComesIntoBeingOrNotAtAll) {
    EXPECT_EQ(failEach([] { const UString text("abc"); }), 0);
    EXPECT_EQ(failEach([] { const UString text("abcdefgh"); }), 1);
    EXPECT_EQ(failEach([] { const UString text(ascii); }), 1);
    EXPECT_EQ(failEach([] { const UString text(mixed); }), 2);
}

TEST_P(TranscodingAllocation, ConversionsLeaveTheStringAsItWas) {
    const UString text(mixed);
    EXPECT_GE(failEach([&text] { text.toUtf8(); }), 1);
    EXPECT_EQ(failEach([&text] { text.unescape(); }), 1);
    const UString escaped(mixed + "\\u0041");
    EXPECT_EQ(failEach([&escaped] { escaped.unescape(); }), 2);
    EXPECT_EQ(text.toUtf8(), mixed);
    EXPECT_EQ(escaped.toUtf8(), mixed + "\\u0041");
}

TEST_P(TranscodingAllocation, EncodersAllocateOnce) {
    const std::string bytes(1000, '\xFF');
    EXPECT_EQ(failEach([&bytes] { Base64Encoder::encode(bytes); }), 1);
    EXPECT_EQ(failEach([&bytes] { QuotedPrintableEncoder::encode(bytes); }), 1);
    const std::string text(1000, 'A');
    EXPECT_EQ(failEach([&text] { Base64Encoder::decode(text); }), 1);
    EXPECT_EQ(failEach([&text] { QuotedPrintableEncoder::decode(text, true); }), 1);
}

TEST(TranscodingAllocation, ABrokenTextLeavesNothingBehind) {
    const long before = FailingAllocation::live();
    for (const std::string& text : {std::string("\xC3"), ascii + "\xC3", mixed + "\x80"}) {
        const auto make = [&text] { return UString(text); };
        EXPECT_THROW(make(), ConversionException);
    }
    EXPECT_EQ(FailingAllocation::live(), before);
}

// So much a short text may cost: one block, and none below eight units.
TEST(TranscodingAllocation, ATextIsDecodedIntoOneBlockAtMostUnlessItIsLongAndNotAscii) {
    const long before = FailingAllocation::made();
    const UString none("\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC");
    EXPECT_EQ(FailingAllocation::made() - before, 0);
    const UString one("twenty-four ASCII bytes!");
    EXPECT_EQ(FailingAllocation::made() - before, 1);
    const UString two(
        "Gr\xC3\xBC\xC3\x9F"
        "e aus der Ferne");
    EXPECT_EQ(FailingAllocation::made() - before, 2);
    const UString three(ascii);
    EXPECT_EQ(FailingAllocation::made() - before, 3);
}

}  // namespace
}  // namespace nolk
