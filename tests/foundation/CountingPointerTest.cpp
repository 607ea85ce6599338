#include <nolk/core/CountingPointer.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace nolk {
namespace {

struct Counted {
    explicit Counted(int* counter, int value = 0) : deaths(counter), number(value) {}
    ~Counted() { ++*deaths; }

    int* deaths;
    int number;
};

constinit CountingPointer<Counted> madeAtCompileTime;

// The object and its counter, which stands on the heap.
static_assert(sizeof(CountingPointer<Counted>) == 2 * sizeof(void*));

TEST(CountingPointer, DefaultIsNullAndThrowsWhenFollowed) {
    const CountingPointer<Counted> pointer;
    try {
        EXPECT_EQ(pointer->number, 0);
        FAIL() << "no exception";
    } catch (const NullPointerException& failure) {
        EXPECT_STREQ(failure.what(), "Attempt to dereference a null pointer");
        EXPECT_NE(std::string(failure.getFunctionName()).find("CountingPointer"),
                  std::string::npos);
    }
}

TEST(CountingPointer, OfStaticStorageIsNullFromTheStart) {
    EXPECT_THROW(madeAtCompileTime.operator->(), NullPointerException);
}

TEST(CountingPointer, OfANullPointerThrowsWhenFollowed) {
    const CountingPointer<Counted> pointer(nullptr);
    const CountingPointer<Counted> copy(pointer);
    EXPECT_THROW(pointer.operator->(), NullPointerException);
    EXPECT_THROW(copy.operator->(), NullPointerException);
}

TEST(CountingPointer, LastToGoDeletesTheObject) {
    int deaths = 0;
    {
        CountingPointer<Counted> second;
        {
            const CountingPointer<Counted> first(new Counted(&deaths, 3));
            second = first;
            EXPECT_EQ(first.operator->(), second.operator->());
        }
        EXPECT_EQ(deaths, 0);
        EXPECT_EQ(second->number, 3);
    }
    EXPECT_EQ(deaths, 1);
}

TEST(CountingPointer, CopySharesTheObject) {
    int deaths = 0;
    {
        const CountingPointer<Counted> first(new Counted(&deaths));
        const CountingPointer<Counted> copy(first);
        copy->number = 9;
        EXPECT_EQ(first->number, 9);
    }
    EXPECT_EQ(deaths, 1);
}

TEST(CountingPointer, AssignmentReleasesWhatItHeld) {
    int deaths = 0;
    int others = 0;
    CountingPointer<Counted> pointer(new Counted(&deaths));
    const CountingPointer<Counted> other(new Counted(&others, 2));
    pointer = other;
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(pointer->number, 2);
    EXPECT_EQ(others, 0);
}

TEST(CountingPointer, AssignmentOfARawPointerReleasesWhatItHeld) {
    int deaths = 0;
    int others = 0;
    {
        CountingPointer<Counted> pointer(new Counted(&deaths));
        pointer = new Counted(&others, 2);
        EXPECT_EQ(deaths, 1);
        EXPECT_EQ(pointer->number, 2);
    }
    EXPECT_EQ(others, 1);
}

TEST(CountingPointer, AssignmentOfARawNullMakesItNull) {
    int deaths = 0;
    CountingPointer<Counted> pointer(new Counted(&deaths));
    pointer = static_cast<Counted*>(nullptr);
    EXPECT_EQ(deaths, 1);
    EXPECT_THROW(pointer.operator->(), NullPointerException);
}

TEST(CountingPointer, AssignmentToItselfIsHarmless) {
    int deaths = 0;
    {
        CountingPointer<Counted> pointer(new Counted(&deaths, 4));
        const CountingPointer<Counted>& same = pointer;
        pointer = same;
        EXPECT_EQ(deaths, 0);
        EXPECT_EQ(pointer->number, 4);
    }
    EXPECT_EQ(deaths, 1);
}

TEST(CountingPointer, AssignmentBetweenPointersToOneObjectIsHarmless) {
    int deaths = 0;
    {
        CountingPointer<Counted> first(new Counted(&deaths));
        CountingPointer<Counted> second(first);
        first = second;
        EXPECT_EQ(deaths, 0);
    }
    EXPECT_EQ(deaths, 1);
}

TEST(CountingPointer, AssignmentOfNullReleasesWhatItHeld) {
    int deaths = 0;
    CountingPointer<Counted> pointer(new Counted(&deaths));
    pointer = CountingPointer<Counted>();
    EXPECT_EQ(deaths, 1);
    EXPECT_THROW(pointer.operator->(), NullPointerException);
}

TEST(CountingPointer, AsksNothingOfTheClassOfItsObject) {
    const CountingPointer<int> pointer(new int(5));
    const CountingPointer<int> copy(pointer);
    EXPECT_EQ(*copy.operator->(), 5);
    const CountingPointer<const std::string> constant(new std::string("text"));
    EXPECT_EQ(constant->size(), 4u);
}

struct Chained {
    explicit Chained(int* counter) : deaths(counter) {}
    ~Chained() { ++*deaths; }

    int* deaths;
    CountingPointer<Chained> next;
};

TEST(CountingPointer, AssignmentFromAPointerInsideTheObjectThatGoesWorks) {
    int deaths = 0;
    CountingPointer<Chained> head(new Chained(&deaths));
    head->next = new Chained(&deaths);
    head = head->next;
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(head->deaths, &deaths);
    head = static_cast<Chained*>(nullptr);
    EXPECT_EQ(deaths, 2);
}

// Looks, as it goes, at the pointer that releases it.
struct Looking {
    Looking(CountingPointer<Looking>* pointer, bool* seen) : releasing(pointer), sawNull(seen) {}
    ~Looking() {
        try {
            releasing->operator->();
        } catch (const NullPointerException&) {
            *sawNull = true;
        }
    }

    CountingPointer<Looking>* releasing;
    bool* sawNull;
};

TEST(CountingPointer, ObjectSeesThePointerThatReleasesItAsNull) {
    bool byRaw = false;
    bool byCopy = false;
    bool atTheEnd = false;
    {
        CountingPointer<Looking> pointer;
        pointer = new Looking(&pointer, &byRaw);
        pointer = new Looking(&pointer, &byCopy);
        EXPECT_TRUE(byRaw);
        pointer = CountingPointer<Looking>(new Looking(&pointer, &atTheEnd));
        EXPECT_TRUE(byCopy);
        EXPECT_FALSE(atTheEnd);
    }
    EXPECT_TRUE(atTheEnd);
}

TEST(CountingPointer, CopiesAreDroppedInSeveralThreads) {
    int deaths = 0;
    {
        std::vector<std::thread> threads;
        const CountingPointer<Counted> pointer(new Counted(&deaths));
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([pointer] {
                for (int round = 0; round < 2000; ++round) {
                    const CountingPointer<Counted> copy(pointer);
                    EXPECT_EQ(copy->number, 0);
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_EQ(deaths, 0);
    }
    EXPECT_EQ(deaths, 1);
}

}  // namespace
}  // namespace nolk
