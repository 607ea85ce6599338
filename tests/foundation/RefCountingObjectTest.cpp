#include <nolk/core/RefCountingObject.h>

#include <gtest/gtest.h>

#include <thread>
#include <type_traits>
#include <vector>

#include "SlotOrder.h"

namespace nolk {
namespace {

class Counted : public RefCountingObject {
public:
    explicit Counted(int* deaths) : deaths_(deaths) {}
    Counted(const Counted& other) = default;
    Counted& operator=(const Counted& other) = default;
    ~Counted() override { ++*deaths_; }

private:
    int* deaths_;
};

TEST(RefCountingObject, LastReleaseDeletesTheObject) {
    int deaths = 0;
    const auto* object = new Counted(&deaths);
    object->addRef();
    object->addRef();
    object->releaseRef();
    EXPECT_EQ(deaths, 0);
    object->releaseRef();
    EXPECT_EQ(deaths, 1);
}

TEST(RefCountingObject, ReleaseWithoutAReferenceDeletesAtOnce) {
    int deaths = 0;
    const RefCountingObject* object = new Counted(&deaths);
    object->releaseRef();
    EXPECT_EQ(deaths, 1);
}

TEST(RefCountingObject, CopyStartsWithoutReferences) {
    int deaths = 0;
    const auto* object = new Counted(&deaths);
    object->addRef();
    object->addRef();
    const auto* copy = new Counted(*object);
    copy->addRef();
    copy->releaseRef();
    EXPECT_EQ(deaths, 1);
    object->releaseRef();
    EXPECT_EQ(deaths, 1);
    object->releaseRef();
    EXPECT_EQ(deaths, 2);
}

TEST(RefCountingObject, AssignmentLeavesTheReferencesOfTheTarget) {
    int deaths = 0;
    auto* target = new Counted(&deaths);
    target->addRef();
    target->addRef();
    {
        const Counted source(&deaths);
        *target = source;
    }
    EXPECT_EQ(deaths, 1);
    target->releaseRef();
    EXPECT_EQ(deaths, 1);
    target->releaseRef();
    EXPECT_EQ(deaths, 2);
}

TEST(RefCountingObject, ReleaseCanBeOverridden) {
    struct Kept : RefCountingObject {
        void releaseRef() const override {}
    };
    const Kept kept;
    static_cast<const RefCountingObject&>(kept).releaseRef();
}

TEST(RefCountingObject, AddRefIsNotVirtual) {
    struct Hiding : RefCountingObject {
        void addRef() const { ++*hidden; }
        int* hidden = nullptr;
    };
    int hidden = 0;
    auto* object = new Hiding;
    object->hidden = &hidden;
    static_cast<const RefCountingObject*>(object)->addRef();
    EXPECT_EQ(hidden, 0);
    object->releaseRef();
}

static_assert(std::is_destructible_v<RefCountingObject>);

TEST(RefCountingObject, VirtualsKeepTheirSlotOrder) {
    EXPECT_EQ(slotOf(&RefCountingObject::releaseRef), 2u);
}

TEST(RefCountingObject, ReferencesAreDroppedInSeveralThreads) {
    int deaths = 0;
    const auto* object = new Counted(&deaths);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        object->addRef();
    }
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([object] {
            for (int round = 0; round < 2000; ++round) {
                object->addRef();
                object->releaseRef();
            }
            object->releaseRef();
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(deaths, 1);
}

}  // namespace
}  // namespace nolk
