// What holds when the memory runs out, at every single allocation. The program allocates through
// FailingAllocation.cpp. Texts are long enough that no string keeps them in place.

#include <nolk/core/CountingPointer.h>
#include <nolk/core/Exception.h>
#include <nolk/core/FileNotFoundException.h>
#include <nolk/core/HashMap.h>
#include <nolk/core/IntrusiveList.h>
#include <nolk/core/IntrusiveListIterator.h>
#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>

#include <gtest/gtest.h>

#include <cfloat>
#include <new>
#include <optional>
#include <string>

#include "support/FailingAllocation.h"

namespace nolk {

using namespace test;
namespace {

const std::string longText(100, 'x');

struct Settable : Exception {
    using Exception::Exception;
    using Exception::setMessage;
};

class AllocationFailure : public testing::TestWithParam<bool> {
protected:
    bool forEver() const { return GetParam(); }
};

INSTANTIATE_TEST_SUITE_P(OnceAndForEver, AllocationFailure, testing::Bool());

TEST_P(AllocationFailure, MakeCopyGivesAnEmptyTextThatMayBeFreed) {
    const long before = FailingAllocation::live();
    const long failures = failEachAllocation(forEver(), [](FailingRun& run) {
        char* copy = nullptr;
        const Outcome outcome = run([&copy] { copy = makeCopy(longText.c_str()); });
        EXPECT_FALSE(outcome.threw);
        EXPECT_STREQ(copy, outcome.failed ? "" : longText.c_str());
        freeCopy(copy);
        freeCopy(nullptr);
    });
    EXPECT_EQ(failures, 1);
    EXPECT_EQ(FailingAllocation::live(), before);
}

TEST_P(AllocationFailure, MakeCopyOfNullGivesAnEmptyText) {
    const long failures = failEachAllocation(forEver(), [](FailingRun& run) {
        char* copy = nullptr;
        EXPECT_FALSE(run([&copy] { copy = makeCopy(nullptr); }).threw);
        EXPECT_STREQ(copy, "");
        freeCopy(copy);
    });
    EXPECT_EQ(failures, 1);
}

TEST(AllocationFailure, MakeCopyTakesTheBytesOfTheTextAndOneMore) {
    const unsigned long long before = FailingAllocation::bytes();
    char* empty = makeCopy(nullptr);
    EXPECT_EQ(FailingAllocation::bytes(), before + 1);
    char* copy = makeCopy("text");
    EXPECT_EQ(FailingAllocation::bytes(), before + 6);
    freeCopy(empty);
    freeCopy(copy);
}

TEST(AllocationFailure, FailedCopiesAreOneStaticText) {
    char* first = nullptr;
    char* second = nullptr;
    {
        FailingAllocation failing(0, true);
        first = makeCopy(longText.c_str());
        second = makeCopy(nullptr);
    }
    EXPECT_STREQ(first, "");
    EXPECT_EQ(first, second);
    freeCopy(first);
    EXPECT_STREQ(second, "");
    freeCopy(second);
}

TEST_P(AllocationFailure, MakingAndCopyingARecordNeverThrows) {
    const long before = FailingAllocation::live();
    const long failures = failEachAllocation(forEver(), [](FailingRun& run) {
        const Outcome outcome = run([] {
            const ExceptionInfo info("a.cpp", 42, "void f()");
            const ExceptionInfo copy(info);
        });
        EXPECT_FALSE(outcome.threw);
    });
    EXPECT_EQ(failures, 4);
    EXPECT_EQ(FailingAllocation::live(), before);
}

std::string shown(const Exception& failure) {
    return std::string(failure.getFileName()) + "|" + std::to_string(failure.getLineNumber()) +
           "|" + failure.getFunctionName();
}

TEST(AllocationFailure, EachTextOfARecordFailsByItself) {
    auto infoWithFailing = [](long number) {
        FailingAllocation failing(number);
        return ExceptionInfo("a.cpp", 42, "void f()");
    };
    EXPECT_EQ(shown(Exception(infoWithFailing(0))), "|42|void f()");
    EXPECT_EQ(shown(Exception(infoWithFailing(1))), "a.cpp|42|");
    EXPECT_EQ(shown(Exception(infoWithFailing(2))), "a.cpp|42|void f()");
}

TEST_P(AllocationFailure, AssignmentOfARecordLeavesTheTargetUntouched) {
    const long before = FailingAllocation::live();
    const ExceptionInfo source("new.cpp", 2, "void now()");
    const ExceptionInfo old("old.cpp", 1, "void old()");
    for (long number = 0; number < 3; ++number) {
        ExceptionInfo target(old);
        {
            FailingAllocation failing(number, forEver());
            target = source;
        }
        EXPECT_EQ(shown(Exception(target)),
                  number < 2 ? "old.cpp|1|void old()" : "new.cpp|2|void now()");
    }
    EXPECT_EQ(FailingAllocation::live(), before + 4);
}

TEST_P(AllocationFailure, ExceptionOfAMessageIsMadeWithItsTextOrNone) {
    const ExceptionInfo site("site.cpp", 12, "void thrower()");
    const LocalizedMessage text = message(NOLK_CORE_FILE_NOT_FOUND, longText);
    const std::string full = "[FILE_NOT_FOUND] File " + longText + " not found";
    const long before = FailingAllocation::live();
    const long failures = failEachAllocation(forEver(), [&](FailingRun& run) {
        std::optional<Exception> failure;
        const Outcome outcome = run([&] { failure.emplace(site, text); });
        EXPECT_FALSE(outcome.threw);
        EXPECT_TRUE(failure->what() == full || (outcome.failed && *failure->what() == '\0'));
        EXPECT_EQ(failure->getLineNumber(), 12u);
    });
    EXPECT_GT(failures, 3);
    EXPECT_EQ(FailingAllocation::live(), before);
}

TEST_P(AllocationFailure, ExceptionOfATextIsMadeWithItsTextOrNone) {
    const long before = FailingAllocation::live();
    const long failures = failEachAllocation(forEver(), [](FailingRun& run) {
        std::optional<Exception> failure;
        const Outcome outcome = run([&failure] { failure.emplace(longText.c_str()); });
        EXPECT_FALSE(outcome.threw);
        EXPECT_TRUE(failure->what() == longText || (outcome.failed && *failure->what() == '\0'));
    });
    EXPECT_GE(failures, 3);
    EXPECT_EQ(FailingAllocation::live(), before);
}

TEST_P(AllocationFailure, ExceptionIsCopiedAndAssignedWithItsTextOrNone) {
    const Exception source(longText);
    const long before = FailingAllocation::live();
    const long failures = failEachAllocation(forEver(), [&source](FailingRun& run) {
        std::optional<Exception> copy;
        Exception target(ExceptionInfo("a", 1, "f"));
        const Outcome outcome = run([&] {
            copy.emplace(source);
            target = source;
        });
        EXPECT_FALSE(outcome.threw);
        for (const Exception* failure : {&*copy, &target}) {
            EXPECT_TRUE(failure->what() == longText ||
                        (outcome.failed && *failure->what() == '\0'));
        }
    });
    EXPECT_EQ(failures, 6);
    EXPECT_EQ(FailingAllocation::live(), before);
}

// The copy of the text takes the first allocation, those of file and function the next two. The
// record is taken whole or stays.
TEST_P(AllocationFailure, AssignmentOfAnExceptionTakesTextAndRecordEachByItself) {
    Settable source(ExceptionInfo("new.cpp", 2, "void now()"));
    source.setMessage("new text");
    const std::string oldRecord = "old.cpp|1|void old()";
    const std::string newRecord = "new.cpp|2|void now()";
    const std::string expected[] = {"|" + (forEver() ? oldRecord : newRecord),
                                    "new text|" + oldRecord, "new text|" + oldRecord,
                                    "new text|" + newRecord};
    const long before = FailingAllocation::live();
    for (long number = 0; number < 4; ++number) {
        Settable target(ExceptionInfo("old.cpp", 1, "void old()"));
        target.setMessage("old text");
        {
            FailingAllocation failing(number, forEver());
            target = source;
        }
        EXPECT_EQ(std::string(target.what()) + "|" + shown(target), expected[number]) << number;
    }
    EXPECT_EQ(FailingAllocation::live(), before);
}

TEST(AllocationFailure, AssignmentToItselfTouchesNothing) {
    Exception failure("a text that stays");
    const Exception& same = failure;
    const char* const text = failure.what();
    ExceptionInfo record("file.cpp", 1, "void f()");
    const ExceptionInfo& sameRecord = record;
    const long made = FailingAllocation::made();
    {
        FailingAllocation failing(0, true);
        failure = same;
        record = sameRecord;
    }
    EXPECT_EQ(FailingAllocation::made(), made);
    EXPECT_EQ(failure.what(), text);
    EXPECT_STREQ(failure.what(), "a text that stays");
}

TEST(AllocationFailure, UnsetTextIsCopiedAsAnEmptyOneOfItsOwn) {
    const Exception unset(ExceptionInfo("file.cpp", 1, "void f()"));
    long made = FailingAllocation::made();
    const Exception copy(unset);
    EXPECT_EQ(FailingAllocation::made(), made + 3);  // text, file and function
    Exception target("old");
    made = FailingAllocation::made();
    target = unset;
    EXPECT_EQ(FailingAllocation::made(), made + 3);
}

TEST_P(AllocationFailure, ComparisonOfExceptionsStillAnswers) {
    const Exception left(longText);
    const long before = FailingAllocation::live();
    const long failures = failEachAllocation(forEver(), [&left](FailingRun& run) {
        bool equal = false;
        const Outcome outcome = run([&] { equal = left == left; });
        EXPECT_FALSE(outcome.threw);
        // A copy that lacks a text differs.
        EXPECT_EQ(equal, !outcome.failed);
    });
    EXPECT_EQ(failures, 3);
    EXPECT_EQ(FailingAllocation::live(), before);
}

TEST_P(AllocationFailure, SetMessageGivesAnEmptyText) {
    Settable failure("old");
    {
        FailingAllocation failing(0, forEver());
        failure.setMessage(longText.c_str());
    }
    EXPECT_STREQ(failure.what(), "");
    failure.setMessage("new");
    EXPECT_STREQ(failure.what(), "new");
}

TEST_P(AllocationFailure, ThrownExceptionIsCaughtWithAnEmptyText) {
    const ExceptionInfo site("site.cpp", 12, "void thrower()");
    const LocalizedMessage text(NOLK_CORE_NO_MEMORY);
    const long before = FailingAllocation::live();
    try {
        FailingAllocation failing(0, true);
        throw Exception(site, text);
    } catch (const Exception& failure) {
        EXPECT_STREQ(failure.what(), "");
        EXPECT_EQ(failure.getLineNumber(), 12u);
    }
    EXPECT_EQ(FailingAllocation::live(), before);
}

TEST(AllocationFailure, CloneIsNullWhenThereIsNoMemoryForTheObject) {
    const Exception failure(longText);
    const FileNotFoundException derived(ExceptionInfo(), longText);
    {
        FailingAllocation failing(0);
        EXPECT_EQ(failure.clone(), nullptr);
    }
    {
        FailingAllocation failing(0);
        EXPECT_EQ(static_cast<const Exception&>(derived).clone(), nullptr);
    }
}

TEST_P(AllocationFailure, CloneLeaksNothing) {
    const FileNotFoundException failure(ExceptionInfo("a", 1, "f"), longText);
    const Exception& root = failure;
    const long before = FailingAllocation::live();
    const long failures = failEachAllocation(forEver(), [&root](FailingRun& run) {
        const Outcome outcome = run([&root] { delete root.clone(); });
        EXPECT_TRUE(outcome.failed || !outcome.threw);
    });
    EXPECT_GE(failures, 4);
    EXPECT_EQ(FailingAllocation::live(), before);
}

TEST_P(AllocationFailure, ReplaceKeepsTheTextThatItCannotFill) {
    const std::string built = "a long enough text with %1% and %2% and 100%%";
    const std::string argument(200, 'y');
    const std::string full = "a long enough text with " + argument + " and %2% and 100%%";
    const long before = FailingAllocation::live();
    bool returned = false;
    bool threw = false;
    const long failures = failEachAllocation(forEver(), [&](FailingRun& run) {
        LocalizedMessage text(MessageCatalogId("TEST", "KEY", built.c_str()));
        const Outcome outcome = run([&] { text.replace(argument); });
        EXPECT_EQ(text.getMessage(), outcome.failed ? built : full);
        returned = returned || (outcome.failed && !outcome.threw);
        threw = threw || outcome.threw;
    });
    EXPECT_EQ(failures, 2);
    EXPECT_TRUE(returned) << "the longer text finds no room";
    EXPECT_TRUE(threw) << "the copy that is saved finds no room";
    EXPECT_EQ(FailingAllocation::live(), before);
}

// The save takes the first allocation, the growing text the second.
TEST(AllocationFailure, ReplaceThatCannotFillReturnsAndExpectsTheSameNumberAgain) {
    const std::string built = "a long enough text with %1% and %2%";
    LocalizedMessage text(MessageCatalogId("TEST", "KEY", built.c_str()));
    const std::string argument(200, 'y');
    {
        FailingAllocation failing(1);
        EXPECT_NO_THROW(text.replace(argument));
        EXPECT_TRUE(failing.hasFailed());
    }
    EXPECT_EQ(text.getMessage(), built);
    text.replace("one");
    EXPECT_EQ(text.getMessage(), "a long enough text with one and %2%");
}

// The first place is filled in the second allocation, the second one needs a third.
TEST(AllocationFailure, ReplaceThatFailsHalfWayPutsTheTextBack) {
    const std::string built = "a long enough text: %1% and %1%.";
    const std::string argument = std::string(100, 'x') + "%1%" + std::string(100, 'y');
    LocalizedMessage text(MessageCatalogId("TEST", "KEY", built.c_str()));
    {
        FailingAllocation failing(2);
        EXPECT_NO_THROW(text.replace(argument));
        EXPECT_TRUE(failing.hasFailed());
    }
    EXPECT_EQ(text.getMessage(), built);
    text.replace("one");
    EXPECT_EQ(text.getMessage(), "a long enough text: one and %1%.");
}

TEST(AllocationFailure, ReplaceThrowsWhenTheSaveFails) {
    const std::string built = "a long enough text with %1% and %2%";
    LocalizedMessage text(MessageCatalogId("TEST", "KEY", built.c_str()));
    const std::string argument = "x";
    {
        FailingAllocation failing(0);
        EXPECT_THROW(text.replace(argument), std::bad_alloc);
    }
    EXPECT_EQ(text.getMessage(), built);
}

// Without a count of what is left: on Windows the stream allocates through the operator new of
// the run-time library, and frees partly here.
TEST_P(AllocationFailure, ReplaceOfADoubleWritesTheNumberOrThrows) {
    const std::string built = "a long enough text with %1%";
    failEachAllocation(forEver(), [&](FailingRun& run) {
        LocalizedMessage text(MessageCatalogId("TEST", "KEY", built.c_str()));
        const Outcome outcome = run([&] { text.replace(-1.23456789012345e-100); });
        EXPECT_EQ(text.getMessage(),
                  outcome.failed ? built : "a long enough text with -1.23456789012345e-100");
    });
}

TEST(AllocationFailure, ReplaceOfALongDoubleThrowsWhenItsDigitsFindNoRoom) {
    const std::string built = "a long enough text with %1% and %2%";
    LocalizedMessage text(MessageCatalogId("TEST", "KEY", built.c_str()));
    {
        FailingAllocation failing(0);
        EXPECT_THROW(text.replace(LDBL_MAX), std::bad_alloc);
    }
    EXPECT_EQ(text.getMessage(), built);
    text.replace("one");
    EXPECT_EQ(text.getMessage(), "a long enough text with one and %2%");
}

struct Counted {
    explicit Counted(int* counter) : deaths(counter) {}
    ~Counted() { ++*deaths; }
    int* deaths;
};

TEST_P(AllocationFailure, CountingPointerDeletesTheObjectItCannotCount) {
    int deaths = 0;
    auto* object = new Counted(&deaths);
    const long before = FailingAllocation::live();
    {
        FailingAllocation failing(0, forEver());
        EXPECT_THROW(CountingPointer<Counted> pointer(object), std::bad_alloc);
    }
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(FailingAllocation::live(), before - 1);
}

TEST_P(AllocationFailure, CountingPointerIsNullAfterAFailedAssignment) {
    int deaths = 0;
    int others = 0;
    CountingPointer<Counted> pointer(new Counted(&deaths));
    auto* object = new Counted(&others);
    {
        FailingAllocation failing(0, forEver());
        EXPECT_THROW(pointer = object, std::bad_alloc);
    }
    EXPECT_EQ(deaths, 1);
    EXPECT_EQ(others, 1);
    EXPECT_THROW(pointer.operator->(), NullPointerException);
}

// Notes how many allocations are left when it goes.
struct Witness {
    explicit Witness(long* liveAtTheEnd) : live(liveAtTheEnd) {}
    ~Witness() { *live = FailingAllocation::live(); }
    long* live;
};

TEST(AllocationFailure, CountingPointerDeletesTheObjectBeforeTheCounter) {
    const long before = FailingAllocation::live();
    long live = 0;
    { const CountingPointer<Witness> pointer(new Witness(&live)); }
    EXPECT_EQ(live, before + 2);
    EXPECT_EQ(FailingAllocation::live(), before);
}

TEST(AllocationFailure, CountingPointerOfNullAllocatesNoCounter) {
    const long before = FailingAllocation::made();
    const CountingPointer<Counted> pointer(nullptr);
    const CountingPointer<Counted> copy(pointer);
    EXPECT_EQ(FailingAllocation::made(), before);
}

TEST(AllocationFailure, CountingPointerAllocatesOneCounterForAllCopies) {
    int deaths = 0;
    auto* object = new Counted(&deaths);
    const long before = FailingAllocation::made();
    const CountingPointer<Counted> pointer(object);
    const CountingPointer<Counted> copy(pointer);
    EXPECT_EQ(FailingAllocation::made(), before + 1);
}

// Runs every operation of a list and its iterator.
void useList(IntrusiveList& list, IntrusiveListLink (&links)[5]) {
    for (IntrusiveListLink& link : links) {
        list.append(&link);
    }
    list.prepend(list.get());
    list.append(list.removeLast());
    list.insertAt(2, list.removeAt(1));
    list.prepend(list.removeReference(&links[3]));
    IntrusiveListIterator walk(list);
    ++walk;
    walk += 2;
    IntrusiveListLink* taken = walk.remove();
    walk.insertAfterPoint(taken);
    walk.toFirst();
    walk.toLast();
    walk.reset();
    walk.reset(list);
    EXPECT_FALSE(walk.atFirst() || walk.atLast());
}

TEST(AllocationFailure, ListsAndTheirIteratorsAllocateNothing) {
    IntrusiveListLink links[5];
    IntrusiveListLink other;
    const long before = FailingAllocation::made();
    IntrusiveList list;
    useList(list, links);
    const IntrusiveList one(&other);
    const IntrusiveList copy(list);
    IntrusiveList assigned;
    assigned = list;
    const bool found = copy.at(4) == assigned.last() && copy.first() == list.first() &&
                       list.containsReference(&links[1]) &&
                       list.occurrencesOfReference(&other) == 0 && one.count() == 1;
    EXPECT_EQ(FailingAllocation::made(), before);
    EXPECT_TRUE(found);
}

using StringMap = HashMap<std::string, std::string>;

TEST_P(AllocationFailure, PutOfANewKeyAddsItOrNothing) {
    const std::string value(200, 'v');
    const long before = FailingAllocation::live();
    const long failures = failEachAllocation(forEver(), [&value](FailingRun& run) {
        StringMap map;
        const Outcome outcome = run([&] { map.put(longText, value); });
        EXPECT_EQ(outcome.threw, outcome.failed);
        EXPECT_EQ(map.size(), outcome.failed ? 0u : 1u);
        EXPECT_EQ(map.contains(longText), !outcome.failed);
        EXPECT_EQ(StringMap::Walker(map).next(), !outcome.failed);
        map.put(longText, value);
        EXPECT_EQ(*map.find(longText), value);
    });
    // The bucket, the entry, its key and its value.
    EXPECT_EQ(failures, 4);
    EXPECT_EQ(FailingAllocation::live(), before);
}

TEST(AllocationFailure, BucketIsMadeForItsFirstKeyOnly) {
    HashMap<int, int> map(&nolkIntHash);
    const long before = FailingAllocation::made();
    map.put(0, 1);
    EXPECT_EQ(FailingAllocation::made(), before + 2) << "a bucket and an entry";
    map.put(64, 1);
    EXPECT_EQ(FailingAllocation::made(), before + 3) << "an entry";
    map.put(1, 1);
    EXPECT_EQ(FailingAllocation::made(), before + 5) << "a bucket and an entry";
}

TEST_P(AllocationFailure, MakingAMapLeaksNothing) {
    const long before = FailingAllocation::live();
    const long failures = failEachAllocation(forEver(), [](FailingRun& run) {
        const Outcome outcome = run([] { StringMap map; });
        EXPECT_EQ(outcome.threw, outcome.failed);
    });
    EXPECT_EQ(failures, 1);
    EXPECT_EQ(FailingAllocation::live(), before);
}

TEST_P(AllocationFailure, PutOfAnOldKeyChangesItsValueOrNothing) {
    StringMap map;
    map.put(longText, "old");
    const std::string value(200, 'v');
    {
        FailingAllocation failing(0, forEver());
        EXPECT_THROW(map.put(longText, value), std::bad_alloc);
    }
    EXPECT_EQ(*map.find(longText), "old");
    EXPECT_EQ(map.size(), 1u);
}

TEST_P(AllocationFailure, AssignmentOfAMapReplacesAllOrNothing) {
    StringMap source;
    for (int i = 0; i < 5; ++i) {
        source.put(longText + std::to_string(i), longText);
    }
    const long before = FailingAllocation::live();
    const long failures = failEachAllocation(forEver(), [&source](FailingRun& run) {
        StringMap target;
        target.put("a", "1");
        const Outcome outcome = run([&] { target = source; });
        EXPECT_EQ(outcome.threw, outcome.failed);
        EXPECT_EQ(target.contains("a"), outcome.failed);
        EXPECT_EQ(target.size(), outcome.failed ? 1u : 5u);
    });
    EXPECT_GT(failures, 15);
    EXPECT_EQ(FailingAllocation::live(), before);
}

TEST(AllocationFailure, LookUpsInAMapAllocateNothing) {
    StringMap map;
    map.put(longText, "1");
    const std::string absent(150, 'z');
    const long before = FailingAllocation::made();
    EXPECT_TRUE(map.contains(longText));
    EXPECT_EQ(map.find(absent), nullptr);
    StringMap::Walker walker(map);
    EXPECT_TRUE(walker.next());
    EXPECT_EQ(FailingAllocation::made(), before);
}

}  // namespace
}  // namespace nolk
