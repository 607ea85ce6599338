#include <nolk/core/BodyBase.h>
#include <nolk/core/HandleBase.h>
#include <nolk/core/NullPointerException.h>

#include <gtest/gtest.h>

#include <cstring>
#include <new>
#include <string>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include "SlotOrder.h"

namespace nolk {
namespace {

// A body that tells its count and when it goes.
class Body : public BodyBase {
public:
    explicit Body(int number = 0, bool* gone = nullptr) : number_(number), gone_(gone) {}
    explicit Body(StaticCtor tag) : BodyBase(tag), number_(0), gone_(nullptr) {}
    ~Body() override {
        if (gone_ != nullptr) {
            *gone_ = true;
        }
    }

    unsigned count() {
        countUp();
        return countDown();
    }
    int number() const { return number_; }

    static auto addReferenceMember() { return &Body::addReference; }
    static auto removeReferenceMember() { return &Body::removeReference; }

    // What the base returns.
    unsigned countUp() { return BodyBase::addReference(); }
    unsigned countDown() { return BodyBase::removeReference(); }

    // A sign for each handle counted in or out.
    std::string steps;

protected:
    unsigned int addReference() override {
        steps += '+';
        return BodyBase::addReference();
    }
    unsigned int removeReference() override {
        steps += '-';
        return BodyBase::removeReference();
    }

private:
    int number_;
    bool* gone_;
};

class Handle : public HandleBase {
public:
    Handle() = default;
    explicit Handle(Body* body) : HandleBase(body) {}
    explicit constexpr Handle(StaticCtor tag) noexcept : HandleBase(tag) {}

    int number() const { return body().number(); }
    Body& body() const { return static_cast<Body&>(HandleBase::body()); }
};

extern Handle usedEarly;
const bool assignedEarly = (usedEarly = Handle(new Body(11))).isValid();
constinit Handle usedEarly(staticCtor);

TEST(HandleBase, DefaultHandleIsInvalid) {
    EXPECT_FALSE(Handle().isValid());
}

TEST(HandleBase, HandleOfANullBodyIsInvalid) {
    EXPECT_FALSE(Handle(nullptr).isValid());
}

TEST(HandleBase, AnyUseOfAnInvalidHandleThrows) {
    const Handle handle;
    try {
        handle.number();
        FAIL() << "no exception";
    } catch (const NullPointerException& failure) {
        EXPECT_STREQ(failure.what(), "Attempt to dereference a null pointer");
        EXPECT_NE(std::string(failure.getFunctionName()).find("HandleBase"), std::string::npos);
    }
}

TEST(HandleBase, HandleOfABodyCountsItself) {
    const Handle handle(new Body(3));
    EXPECT_TRUE(handle.isValid());
    EXPECT_EQ(handle.number(), 3);
    EXPECT_EQ(handle.body().count(), 1u);
}

TEST(HandleBase, CopyingSharesTheBody) {
    const Handle handle(new Body(3));
    {
        const Handle copy(handle);
        EXPECT_EQ(&copy.body(), &handle.body());
        EXPECT_EQ(handle.body().count(), 2u);
    }
    EXPECT_EQ(handle.body().count(), 1u);
}

TEST(HandleBase, CopyOfAnInvalidHandleIsInvalid) {
    const Handle handle;
    const Handle copy(handle);
    EXPECT_FALSE(copy.isValid());
}

TEST(HandleBase, LastHandleToGoDeletesTheBody) {
    bool gone = false;
    {
        Handle second;
        {
            const Handle first(new Body(0, &gone));
            second = first;
        }
        EXPECT_FALSE(gone);
    }
    EXPECT_TRUE(gone);
}

// A body that tells its last handle that there is one more.
class Kept : public Body {
public:
    using Body::Body;

protected:
    unsigned int removeReference() override { return Body::removeReference() + 1; }
};

TEST(HandleBase, BodyWhoseRemovalReturnsMoreThanZeroOutlivesItsLastHandle) {
    bool gone = false;
    auto* body = new Kept(3, &gone);
    { const Handle handle(body); }
    EXPECT_FALSE(gone);
    {
        Handle handle(body);
        handle = Handle();
    }
    EXPECT_FALSE(gone);
    EXPECT_EQ(body->steps, "+-+-");
    delete body;
}

TEST(HandleBase, AssignmentReleasesTheOldBody) {
    bool gone = false;
    Handle handle(new Body(1, &gone));
    handle = Handle(new Body(2));
    EXPECT_TRUE(gone);
    EXPECT_EQ(handle.number(), 2);
    EXPECT_EQ(handle.body().count(), 1u);
}

TEST(HandleBase, AssignmentOfAnInvalidHandleReleasesTheBody) {
    bool gone = false;
    Handle handle(new Body(1, &gone));
    handle = Handle();
    EXPECT_TRUE(gone);
    EXPECT_FALSE(handle.isValid());
}

TEST(HandleBase, AssignmentToItselfLeavesTheCount) {
    bool gone = false;
    Handle handle(new Body(1, &gone));
    const Handle& same = handle;
    handle = same;
    EXPECT_FALSE(gone);
    EXPECT_EQ(handle.body().count(), 1u);
    Handle invalid;
    const Handle& sameInvalid = invalid;
    invalid = sameInvalid;
    EXPECT_FALSE(invalid.isValid());
}

TEST(HandleBase, AssignmentBetweenHandlesOfOneBodyLeavesTheCount) {
    Handle first(new Body(1));
    Handle second(first);
    first = second;
    EXPECT_EQ(first.body().count(), 2u);
}

TEST(HandleBase, AssignmentAddsBeforeItRemoves) {
    Handle first(new Body(1));
    Handle second(first);
    Body& body = first.body();
    body.steps.clear();
    first = second;
    EXPECT_EQ(body.steps, "+-");
}

// A body that holds a handle, like a node of a chain.
class Node : public Body {
public:
    explicit Node(int number) : Body(number) {}
    Handle next;
};

TEST(HandleBase, AssignmentFromAHandleInsideTheBodyThatGoesWorks) {
    auto* node = new Node(1);
    node->next = Handle(new Body(2));
    Handle handle(node);
    handle = node->next;
    EXPECT_EQ(handle.number(), 2);
    EXPECT_EQ(handle.body().count(), 1u);
}

TEST(HandleBase, EqualityIsThatOfTheBodies) {
    const Handle first(new Body(1));
    const Handle copy(first);
    const Handle other(new Body(1));
    EXPECT_TRUE(first == copy);
    EXPECT_FALSE(first != copy);
    EXPECT_FALSE(first == other);
    EXPECT_TRUE(first != other);
}

TEST(HandleBase, TwoInvalidHandlesAreEqual) {
    EXPECT_TRUE(Handle() == Handle());
    EXPECT_FALSE(Handle() == Handle(new Body));
}

TEST(HandleBase, CanOnlyBeMadeByADerivedHandle) {
    EXPECT_FALSE(std::is_default_constructible_v<HandleBase>);
    EXPECT_FALSE(std::is_copy_constructible_v<HandleBase>);
    EXPECT_FALSE(std::is_copy_assignable_v<HandleBase>);
    EXPECT_FALSE((std::is_constructible_v<HandleBase, BodyBase*>));
    EXPECT_FALSE((std::is_constructible_v<HandleBase, StaticCtor>));
    EXPECT_FALSE(std::is_destructible_v<HandleBase>);
}

TEST(HandleBase, HoldsOnePointer) {
    EXPECT_EQ(sizeof(HandleBase), 2 * sizeof(void*)) << "with that of its virtual destructor";
}

TEST(HandleBase, StaticCtorKeepsTheBodyThatWasThere) {
    bool gone = false;
    alignas(Handle) unsigned char storage[sizeof(Handle)];
    new (storage) Handle(new Body(5, &gone));
    auto* handle = new (storage) Handle(staticCtor);
    EXPECT_EQ(handle->number(), 5);
    EXPECT_EQ(handle->body().count(), 1u);
    handle->~Handle();
    EXPECT_TRUE(gone);
}

TEST(HandleBase, OfStaticStorageServesEarlierInitialisers) {
    EXPECT_TRUE(assignedEarly);
    ASSERT_TRUE(usedEarly.isValid());
    EXPECT_EQ(usedEarly.number(), 11);
}

TEST(HandleBase, GoesThroughTheBodysOwnBookkeeping) {
    auto* body = new Body(1);
    const Handle first(body);
    {
        const Handle second(first);
        EXPECT_EQ(body->steps, "++");
    }
    EXPECT_EQ(body->steps, "++-");
}

TEST(HandleBase, CopiesAreDroppedInSeveralThreads) {
    bool gone = false;
    class Quiet : public BodyBase {
    public:
        explicit Quiet(bool* flag) : flag_(flag) {}
        ~Quiet() override { *flag_ = true; }

    private:
        bool* flag_;
    };
    struct QuietHandle : HandleBase {
        explicit QuietHandle(Quiet* body) : HandleBase(body) {}
    };
    {
        std::vector<std::thread> threads;
        QuietHandle handle(new Quiet(&gone));
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([handle] {
                for (int round = 0; round < 2000; ++round) {
                    const QuietHandle copy(handle);
                    EXPECT_TRUE(copy.isValid());
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_FALSE(gone);
    }
    EXPECT_TRUE(gone);
}

TEST(BodyBase, StartsWithoutHandles) {
    bool gone = false;
    auto* body = new Body(1, &gone);
    EXPECT_EQ(body->count(), 0u);
    { const Handle handle(body); }
    EXPECT_TRUE(gone);
}

TEST(BodyBase, CopyHasNoHandles) {
    const Handle handle(new Body(1));
    const Handle second(handle);
    auto* copy = new Body(handle.body());
    EXPECT_EQ(copy->count(), 0u);
    EXPECT_EQ(handle.body().count(), 2u);
    const Handle owner(copy);
}

TEST(BodyBase, AssignmentLeavesTheCountOfTheTarget) {
    const Handle target(new Body(1));
    const Handle source(new Body(2));
    const Handle another(source);
    target.body() = source.body();
    EXPECT_EQ(target.body().count(), 1u);
    EXPECT_EQ(source.body().count(), 2u);
    EXPECT_EQ(target.number(), 2);
}

TEST(BodyBase, StaticCtorSetsTheCountToZero) {
    alignas(Body) unsigned char storage[sizeof(Body)];
    std::memset(storage, 0x55, sizeof(storage));
    auto* body = new (storage) Body(staticCtor);
    EXPECT_EQ(body->count(), 0u);
    body->~Body();
}

TEST(BodyBase, CountingReturnsTheNewCount) {
    Body body;
    EXPECT_EQ(body.countUp(), 1u);
    EXPECT_EQ(body.countUp(), 2u);
    EXPECT_EQ(body.countDown(), 1u);
    EXPECT_EQ(body.countDown(), 0u);
}

TEST(BodyBase, RemovalBelowZeroReturnsAllOnes) {
    Body body;
    EXPECT_EQ(body.countDown(), 4294967295u);
    EXPECT_EQ(body.countUp(), 0u);
}

template <typename Class>
concept Counts = requires(Class body) {
    body.addReference();
}
|| requires(Class body) {
    body.removeReference();
};
static_assert(!Counts<BodyBase>);
static_assert(!std::is_destructible_v<BodyBase>);

TEST(BodyBase, VirtualsKeepTheirSlotOrder) {
    EXPECT_EQ(slotOf(Body::addReferenceMember()), 2u);
    EXPECT_EQ(slotOf(Body::removeReferenceMember()), 3u);
}

}  // namespace
}  // namespace nolk
