// What holds when the memory runs out, at every single allocation. The program allocates through
// FailingAllocation.cpp.

#include <nolk/core/UString.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "UnitText.h"
#include "support/FailingAllocation.h"

namespace nolk {
namespace {

using namespace test;

class UStringAllocation : public testing::TestWithParam<bool> {
protected:
    bool forEver() const { return GetParam(); }
};

INSTANTIATE_TEST_SUITE_P(OnceAndForEver, UStringAllocation, testing::Bool());

TEST_P(UStringAllocation, FailureInAConstructorLeaksNothing) {
    const UChar* const units = u"a text of some length"_u;
    const UChar32* const points = U"a text of some length"_p;
    UString parent(units);
    const std::vector<std::function<void()>> constructions = {
        [&] { UString s(units); },
        [&] { UString s(units, 10); },
        [&] { UString s(units, 3u, 100u); },
        [&] { UString s(points); },
        [&] { UString s(points, 10); },
        [&] { UString s(unit(u'x'), 8); },
        [&] { UString s(UChar32{0x1F600}, 4); },
        [&] { UString s(9u); },
        [&] { UString s("a text of some length"); },
        [&] { UString s("a text of some length", 10); },
        [&] { UString s(L"a text of some length"); },
        [&] { UString s(U"a text of some length"); },
        [&] { UString s(parent(0, 10)); },
        [&] { UString s(parent.view()); },
        [&] { const UString s = parent + units; },
        [&] { const UString s = units + parent; },
    };
    const long before = FailingAllocation::live();
    for (const auto& construct : constructions) {
        const long failures = failEachAllocation(forEver(), [&](FailingRun& run) {
            const Outcome outcome = run(construct);
            EXPECT_EQ(outcome.threw, outcome.failed);
        });
        EXPECT_GE(failures, 1);
        EXPECT_EQ(FailingAllocation::live(), before);
    }
}

TEST_P(UStringAllocation, FailureInAChangeLeavesTheStringAsItWas) {
    const UString source(u"another text"_u);
    const std::vector<std::function<void(UString&)>> changes = {
        [&](UString& s) { s.append(source); },
        [&](UString& s) { s.append(source, 1, 9); },
        [&](UString& s) { s.append(u"another text"_u); },
        [&](UString& s) { s.append(U"another text"_p); },
        [&](UString& s) { s.append(unit(u'x'), 10); },
        [&](UString& s) { s.append(UChar32{0x1F600}, 10); },
        [&](UString& s) { s.prepend(source); },
        [&](UString& s) { s.insert(1, source); },
        [&](UString& s) { s.replace(0, 2, source); },
        [&](UString& s) { s.append(s).append(s).append(s); },
        [&](UString& s) { s.resize(20, unit(u'x')); },
        [&](UString& s) { s.resize(20, UChar32{0x1F600}); },
        [&](UString& s) { s.capacity(500); },
        [&](UString& s) { s = u"another text"_u; },
        [&](UString& s) { s = U"another text"_p; },
        [&](UString& s) { s = "another text"; },
        [&](UString& s) { s(0, 1) = source; },
        [&](UString& s) { *s.beginCodePointIterator() = UChar32{0x1F600}, s.append(source); },
    };
    const UString originals[] = {UString(u"abc"_u), UString(u"abcdefgh"_u),
                                 UString(u"a borrowed text"_u, UString::persistent)};
    const long before = FailingAllocation::live();
    for (std::size_t i = 0; i < changes.size(); ++i) {
        for (const UString& original : originals) {
            const bool severalSteps = i == 9 || i == 17;
            const long failures = failEachAllocation(forEver(), [&](FailingRun& run) {
                UString s(original);
                const unsigned capacity = s.capacity();
                const Outcome outcome = run([&] { changes[i](s); });
                EXPECT_EQ(outcome.threw, outcome.failed) << i;
                if (outcome.failed && !severalSteps) {
                    EXPECT_EQ(shown(s), shown(original)) << i;
                    EXPECT_EQ(s.capacity(), capacity) << i;
                    EXPECT_EQ(s.data() == original.data(), s.length() > 7) << i;
                }
                EXPECT_EQ(s.data()[s.length()], UChar()) << i;
            });
            EXPECT_GE(failures, 1) << i;
        }
    }
    EXPECT_EQ(FailingAllocation::live(), before);
}

TEST_P(UStringAllocation, FailureToWriteAUnitLeavesTheStringAsItWas) {
    const UString original(u"abcdefgh"_u);
    UString s(original);
    const long failures = failEachAllocation(forEver(), [&](FailingRun& run) {
        s = original;
        const Outcome outcome = run([&] { s[0] = unit(u'x'); });
        EXPECT_EQ(outcome.threw, outcome.failed);
        EXPECT_EQ(shown(s), outcome.failed ? u"abcdefgh" : u"xbcdefgh");
    });
    EXPECT_EQ(failures, 1);
}

TEST_P(UStringAllocation, FailureToSwapUnitsLeavesBothStringsAsTheyWere) {
    const UString original(u"abcdefgh"_u);
    const UString otherOriginal(u"stuvwxyz"_u);
    UString s(original);
    UString other(otherOriginal);
    const long failures = failEachAllocation(forEver(), [&](FailingRun& run) {
        s = original;
        other = otherOriginal;
        const Outcome outcome = run([&] { swap(s[0], other[0]); });
        EXPECT_EQ(outcome.threw, outcome.failed);
        EXPECT_EQ(shown(s), outcome.failed ? u"abcdefgh" : u"sbcdefgh");
        EXPECT_EQ(shown(other), outcome.failed ? u"stuvwxyz" : u"atuvwxyz");
    });
    EXPECT_EQ(failures, 2);
}

TEST_P(UStringAllocation, FailureToAdoptABufferFreesIt) {
    static int freed;
    UString::StaticDeallocator deallocator([](UChar*) { ++freed; });
    Units units = test::units(u"adopted text");
    const long failures = failEachAllocation(forEver(), [&](FailingRun& run) {
        freed = 0;
        const Outcome outcome = run([&] { UString s(units.data(), &deallocator); });
        EXPECT_EQ(outcome.threw, outcome.failed);
        EXPECT_EQ(freed, 1);
    });
    EXPECT_EQ(failures, 1);
}

TEST(UStringAllocation, UpTo7UnitsAllocateNothing) {
    const long before = FailingAllocation::made();
    UString s(u"abcdefg"_u);
    s = UString(unit(u'x'), 7);
    s = UString(U"abc\U0001F600ab"_p);
    const UString copy(s);
    s.remove(3).append(unit(u'y'), 4).replace(0, 3, s, 1, 3).insert(2, UChar32{'z'}, 0);
    s[0] = unit(u'w');
    s.swap(s);
    s = L"abc";
    EXPECT_EQ(FailingAllocation::made(), before);
}

TEST(UStringAllocation, LongerTextsAllocateOnce) {
    const long before = FailingAllocation::made();
    const UString s(u"abcdefgh"_u);
    EXPECT_EQ(FailingAllocation::made(), before + 1);
    UString copy(s);
    EXPECT_EQ(FailingAllocation::made(), before + 1);
    copy.append(u"ij"_u);
    EXPECT_EQ(FailingAllocation::made(), before + 2);
    const UString borrowed(u"a borrowed text"_u, UString::persistent);
    EXPECT_EQ(FailingAllocation::made(), before + 2);
}

TEST(UStringAllocation, SearchesForUnitsAndComparisonsAllocateNothing) {
    const UString s(u"a text of some length"_u);
    const long before = FailingAllocation::made();
    EXPECT_EQ(s.index(u"some"_u), 10u);
    EXPECT_EQ(s.rindex(unit(u't')), 19u);
    EXPECT_EQ(s.first(u"xyz"_u), 4u);
    EXPECT_EQ(s.last(U"xyz"_p), 4u);
    EXPECT_EQ(s.compareTo(U"a text"_p), 1);
    EXPECT_TRUE(s == u"a text of some length"_u);
    EXPECT_EQ(FailingAllocation::made(), before);
}

}  // namespace
}  // namespace nolk
