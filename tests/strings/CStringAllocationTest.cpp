// What holds when the memory runs out, at every single allocation: a string keeps its state, and
// nothing is lost. The program allocates through FailingAllocation.cpp.

#include <nolk/core/CString.h>
#include <nolk/core/CStringTokenizer.h>
#include <nolk/core/CSubString.h>
#include <nolk/core/StringTokenizer.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "support/FailingAllocation.h"

namespace nolk {

using namespace test;
namespace {

const std::string longText(100, 'x');
const CString longString(longText);

class CStringAllocation : public testing::TestWithParam<bool> {
protected:
    bool forEver() const { return GetParam(); }
};

INSTANTIATE_TEST_SUITE_P(OnceAndForEver, CStringAllocation, testing::Bool());

struct Change {
    const char* name;
    std::function<void(CString&)> apply;
    long allocations = 1;
};

// Each needs a new buffer of a string of 100 bytes that shares a full buffer.
const Change changes[] = {
    {"=", [](CString& s) { s = std::string(300, 'y').c_str(); }, 2},
    {"()", [](CString& s) { s(0) = 'y'; }},
    {"[]", [](CString& s) { s[0] = 'y'; }},
    {"append char", [](CString& s) { s.append('y', 3); }},
    {"append text", [](CString& s) { s.append("yyy", 3); }},
    {"append string", [](CString& s) { s.append(longString); }},
    {"append itself", [](CString& s) { s.append(s); }},
    {"+= char", [](CString& s) { s += 'y'; }},
    {"+= text", [](CString& s) { s += "yyy"; }},
    {"+= string", [](CString& s) { s += longString; }},
    {"prepend char", [](CString& s) { s.prepend('y', 3); }},
    {"prepend text", [](CString& s) { s.prepend("yyy"); }},
    {"insert text", [](CString& s) { s.insert(5, "yyy"); }},
    {"insert itself", [](CString& s) { s.insert(5, s.data() + 7, 20); }},
    {"remove", [](CString& s) { s.remove(80); }},
    {"replace", [](CString& s) { s.replace(5, 9, "yyy"); }},
    {"replace same length", [](CString& s) { s.replace(5, 3, "yyy"); }},
    {"resize", [](CString& s) { s.resize(200); }},
    {"resize shorter", [](CString& s) { s.resize(70); }},
    {"capacity", [](CString& s) { s.capacity(300); }},
    {"toLower", [](CString& s) { s.toLower(); }},
    {"toUpper", [](CString& s) { s.toUpper(); }},
    {"substring = text", [](CString& s) { s(0, 3) = "yyyy"; }},
    {"substring = string", [](CString& s) { s(0, 3) = longString; }},
    {"substring toUpper", [](CString& s) { s(0, 3).toUpper(); }},
    {"substring []", [](CString& s) { s(0, 3)[1] = 'y'; }},
};

TEST_P(CStringAllocation, EachChangeOfASharedStringKeepsItsState) {
    for (const Change& change : changes) {
        const long before = FailingAllocation::live();
        const long failures = failEachAllocation(forEver(), [&](FailingRun& run) {
            const CString original(longText);
            CString text(original);
            const Outcome outcome = run([&] { change.apply(text); });
            EXPECT_EQ(outcome.threw, outcome.failed) << change.name;
            if (outcome.threw) {
                EXPECT_EQ(text.view(), longText) << change.name;
                EXPECT_EQ(text.data(), original.data()) << change.name;
            }
            EXPECT_EQ(original.view(), longText) << change.name;
        });
        EXPECT_EQ(failures, change.allocations) << change.name;
        EXPECT_EQ(FailingAllocation::live(), before) << change.name;
    }
}

// Those that also need one for a full buffer that isn't shared, and for the small one.
const Change growths[] = {
    {"=", [](CString& s) { s = longText.c_str(); }},
    {"append char", [](CString& s) { s.append('y', 300); }},
    {"append string", [](CString& s) { s.append(longString); }},
    {"append itself", [](CString& s) { s.append(s).append(s); }, 2},
    {"prepend char", [](CString& s) { s.prepend('y', 300); }},
    {"prepend string", [](CString& s) { s.prepend(longString); }},
    {"insert", [](CString& s) { s.insert(1, longString); }},
    {"replace", [](CString& s) { s.replace(1, 1, longString); }},
    {"capacity", [](CString& s) { s.capacity(300); }},
    {"resize", [](CString& s) { s.resize(300); }},
    {"substring = string", [](CString& s) { s(0, 3) = longString; }},
};

TEST_P(CStringAllocation, EachGrowthKeepsTheStateOfASmallBuffer) {
    for (const Change& growth : growths) {
        const std::string content(40, 'a');
        const long before = FailingAllocation::live();
        const long failures = failEachAllocation(forEver(), [&](FailingRun& run) {
            CString text(content);
            const Outcome outcome = run([&] { growth.apply(text); });
            EXPECT_EQ(outcome.threw, outcome.failed) << growth.name;
            if (outcome.threw && run.hasFailed() && growth.allocations == 1) {
                EXPECT_EQ(text.view(), content) << growth.name;
                EXPECT_EQ(text.capacity(), 64u) << growth.name;
            }
        });
        EXPECT_EQ(failures, growth.allocations) << growth.name;
        EXPECT_EQ(FailingAllocation::live(), before) << growth.name;
    }
}

TEST_P(CStringAllocation, EachGrowthKeepsTheStateOfABufferOnTheHeap) {
    for (const Change& growth : growths) {
        if (growth.allocations != 1) {
            continue;
        }
        const std::string content(70, 'a');
        failEachAllocation(forEver(), [&](FailingRun& run) {
            CString text(content);
            const char* data = text.data();
            if (run([&] { growth.apply(text); }).threw) {
                EXPECT_EQ(text.view(), content) << growth.name;
                EXPECT_EQ(text.data(), data) << growth.name;
            }
        });
    }
}

TEST_P(CStringAllocation, StringIsMadeOrLeaksNothing) {
    const std::function<void()> makings[] = {
        [] { CString text(64); },
        [] { CString text('x', 100); },
        [] { CString text(longText); },
        [] { CString text(longText.c_str()); },
        [] { CString text(longText.data(), 100); },
        [] { CString text(longString(0, 70)); },
        [] { CString text = longString.copy(); },
        [] { CString text = longString + "y"; },
        [] { CString text = toUpper(longString); },
        [] { CString text = strXForm(longString); },
        [] { std::string text = longString; },
    };
    for (const auto& make : makings) {
        const long before = FailingAllocation::live();
        const long failures = failEachAllocation(forEver(), [&](FailingRun& run) {
            const Outcome outcome = run(make);
            EXPECT_EQ(outcome.threw, outcome.failed);
        });
        EXPECT_EQ(failures, 1);
        EXPECT_EQ(FailingAllocation::live(), before);
    }
}

TEST(CStringAllocation, ShortStringsAllocateNothing) {
    const long before = FailingAllocation::made();
    CString text("abc");
    text.append('x', 57).insert(2, "yyy").remove(0, 10);
    text.prepend("0123456789");
    CString copy(text);
    copy = "def";
    copy += text(0, 30);
    text = copy.copy() + "x";
    text.toUpper();
    copy(0, 2) = text(1, 4);
    copy.resize(63);
    EXPECT_EQ(CString(63).capacity(), 64u);
    EXPECT_EQ(CString('x', 63).length(), 63u);
    EXPECT_EQ(FailingAllocation::made(), before);
}

TEST(CStringAllocation, CopyOfALongStringAllocatesNothing) {
    const long before = FailingAllocation::made();
    CString copy(longString);
    const CString another(copy);
    copy = another;
    EXPECT_EQ(FailingAllocation::made(), before);
}

TEST(CStringAllocation, SearchingAndComparingAllocateNothing) {
    const long before = FailingAllocation::made();
    EXPECT_EQ(longString.index("xy"), CString::npos);
    EXPECT_EQ(longString.index(longString, 0, CString::ignoreCase), 0u);
    EXPECT_EQ(longString.compareTo(longString), 0);
    EXPECT_TRUE(longString == longString);
    EXPECT_TRUE(longString > 'x');
    EXPECT_NE(longString.hash(), 0u);
    EXPECT_EQ(FailingAllocation::made(), before);
}

TEST_P(CStringAllocation, TokenizerOfStandardStringsGoesOnWhereItFailed) {
    const std::string text = longText + ' ' + longText;
    failEachAllocation(forEver(), [&](FailingRun& run) {
        StringTokenizer next(text);
        std::string token;
        if (run([&] { token = next(); }).threw) {
            token = next();
        }
        EXPECT_EQ(token, longText);
        EXPECT_EQ(next(), longText);
        EXPECT_TRUE(next.done());
    });
    failEachAllocation(forEver(), [&](FailingRun& run) {
        StringTokenizer next(text);
        next.nextToken();
        std::string token;
        if (run([&] { token = next.nextToken(); }).threw) {
            token = next.nextToken();
        }
        EXPECT_EQ(token, longText);
        EXPECT_TRUE(next.done());
    });
}

TEST(CStringAllocation, TokenizerOfStringsAllocatesNothing) {
    const CString text("a b c");
    const long before = FailingAllocation::made();
    CStringTokenizer next(text);
    EXPECT_EQ(next(), "a");
    EXPECT_EQ(next.nextToken(), "");
    EXPECT_EQ(next(), "b");
    EXPECT_EQ(FailingAllocation::made(), before);
}

}  // namespace
}  // namespace nolk
