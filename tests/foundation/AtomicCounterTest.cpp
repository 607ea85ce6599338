#include <nolk/core/AtomicCounter.h>

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <new>
#include <thread>
#include <type_traits>
#include <vector>

namespace nolk {
namespace {

// Used by an initialiser that runs before the line that defines it.
extern AtomicCounter usedEarly;
const long countedEarly = usedEarly.addReference();
constinit AtomicCounter usedEarly(AtomicCounter::staticCtor);

TEST(AtomicCounter, HasFourBytes) {
    EXPECT_EQ(sizeof(AtomicCounter), 4u);
}

TEST(AtomicCounter, StartsAtTheNumberGiven) {
    EXPECT_EQ(AtomicCounter().references(), 0);
    EXPECT_EQ(AtomicCounter(5).references(), 5);
    EXPECT_EQ(AtomicCounter(-5).references(), -5);
}

// Either `long` is cut to 32 bits in the call already, or the counter does it.
TEST(AtomicCounter, CutsNumbersTo32Bits) {
    const long long wide = 4294967297LL;
    EXPECT_EQ(AtomicCounter(static_cast<long>(wide)).references(), 1);
    EXPECT_EQ(AtomicCounter(LONG_MAX).references(), sizeof(long) == 8 ? -1 : 2147483647);
    EXPECT_EQ(AtomicCounter(LONG_MIN).references(), sizeof(long) == 8 ? 0 : INT_MIN);
}

TEST(AtomicCounter, CountsUpAndDownAndReturnsTheNewValue) {
    AtomicCounter counter;
    EXPECT_EQ(counter.addReference(), 1);
    EXPECT_EQ(counter.addReference(), 2);
    EXPECT_EQ(counter.removeReference(), 1);
    EXPECT_EQ(counter.removeReference(), 0);
    EXPECT_EQ(counter.removeReference(), -1);
    EXPECT_EQ(counter.references(), -1);
}

TEST(AtomicCounter, WrapsAt32Bits) {
    AtomicCounter counter(2147483647);
    EXPECT_EQ(counter.addReference(), INT_MIN);
    EXPECT_EQ(counter.references(), INT_MIN);
    EXPECT_EQ(counter.removeReference(), 2147483647);
}

TEST(AtomicCounter, CopyAndAssignmentTakeTheValue) {
    AtomicCounter counter(7);
    AtomicCounter copy(counter);
    counter.addReference();
    EXPECT_EQ(copy.references(), 7);
    copy = counter;
    EXPECT_EQ(copy.references(), 8);
}

template <typename Tag>
long afterConstructionOver(std::int32_t before, Tag tag) {
    alignas(AtomicCounter) unsigned char storage[sizeof(AtomicCounter)];
    std::memcpy(storage, &before, sizeof(before));
    return (new (storage) AtomicCounter(tag))->references();
}

TEST(AtomicCounter, StaticCtorKeepsTheBytesThatWereThere) {
    EXPECT_EQ(afterConstructionOver(12345, AtomicCounter::staticCtor), 12345);
    EXPECT_EQ(afterConstructionOver(-7, nolk::staticCtor), -7);
}

TEST(AtomicCounter, OfStaticStorageServesEarlierInitialisers) {
    EXPECT_EQ(countedEarly, 1);
    EXPECT_EQ(usedEarly.references(), 1);
}

TEST(UnsafeAtomicCounter, ExchangeStoresTheNewAndReturnsTheOldValue) {
    AtomicCounter target(3);
    EXPECT_EQ(UnsafeAtomicCounter::exchange(target, AtomicCounter(9)).references(), 3);
    EXPECT_EQ(target.references(), 9);
    EXPECT_EQ(UnsafeAtomicCounter::exchange(target, -1).references(), 9);
    EXPECT_EQ(target.references(), -1);
}

template <typename Counter>
concept Exchanges = requires(Counter counter) {
    counter.exchange(counter);
};
static_assert(!Exchanges<AtomicCounter>);

TEST(UnsafeAtomicCounter, HasNoData) {
    EXPECT_TRUE(std::is_empty_v<UnsafeAtomicCounter>);
}

TEST(AtomicCounter, CountsInSeveralThreadsAreNotLost) {
    AtomicCounter counter;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&counter] {
            for (int round = 0; round < 10000; ++round) {
                counter.addReference();
                counter.addReference();
                counter.removeReference();
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(counter.references(), 40000);
}

}  // namespace
}  // namespace nolk
