#include <nolk/core/IntrusiveListIterator.h>

#include <gtest/gtest.h>

#include <string>

namespace nolk {
namespace {

struct Element : IntrusiveListLink {
    explicit Element(char elementName) : name(elementName) {}
    char name;
};

std::string nameOf(const IntrusiveListLink* link) {
    return link == nullptr ? "-" : std::string(1, static_cast<const Element*>(link)->name);
}

std::string shown(IntrusiveList& list) {
    std::string names;
    IntrusiveListIterator walk(list);
    while (const IntrusiveListLink* link = ++walk) {
        names += nameOf(link);
    }
    EXPECT_EQ(names.size(), list.count());
    return names;
}

// Shows the protected operations.
struct Opened : IntrusiveListIterator {
    using IntrusiveListIterator::advance;
    using IntrusiveListIterator::IntrusiveListIterator;
    using IntrusiveListIterator::isActive;
};

class IteratorOfThree : public testing::Test {
protected:
    IteratorOfThree() {
        list.append(&a);
        list.append(&b);
        list.append(&c);
    }

    Element a{'a'};
    Element b{'b'};
    Element c{'c'};
    Element d{'d'};
    IntrusiveList list;
    Opened walk{list};
};

static_assert(sizeof(IntrusiveListIterator) == 2 * sizeof(void*), "the list and the point");

TEST_F(IteratorOfThree, StartsBeforeTheFirst) {
    EXPECT_EQ(walk.key(), nullptr);
    EXPECT_FALSE(walk.isActive());
    EXPECT_FALSE(walk.atFirst());
    EXPECT_FALSE(walk.atLast());
}

TEST_F(IteratorOfThree, IncrementReachesEachElementAndThenNull) {
    EXPECT_EQ(++walk, &a);
    EXPECT_EQ(walk.key(), &a);
    EXPECT_EQ(++walk, &b);
    EXPECT_EQ(++walk, &c);
    EXPECT_EQ(++walk, nullptr);
    EXPECT_EQ(walk.key(), nullptr);
}

TEST_F(IteratorOfThree, IncrementAfterTheLastStays) {
    walk += 4;
    EXPECT_EQ(++walk, nullptr);
    EXPECT_EQ(++walk, nullptr);
}

TEST_F(IteratorOfThree, AdditionGoesSeveralElements) {
    EXPECT_EQ(walk += 2, &b);
    EXPECT_EQ(walk += 0, &b);
    EXPECT_EQ(walk += 1, &c);
    EXPECT_EQ(walk += 1, nullptr);
}

TEST_F(IteratorOfThree, AdditionFarPastTheEndEndsThere) {
    EXPECT_EQ(walk += 4294967295u, nullptr);
    EXPECT_FALSE(walk.isActive());
}

TEST_F(IteratorOfThree, ResetGoesBeforeTheFirst) {
    walk += 2;
    walk.reset();
    EXPECT_EQ(walk.key(), nullptr);
    EXPECT_EQ(++walk, &a);
}

TEST_F(IteratorOfThree, ResetOnAnotherListWalksThatOne) {
    IntrusiveList other(&d);
    walk += 2;
    walk.reset(other);
    EXPECT_EQ(walk.key(), nullptr);
    EXPECT_EQ(++walk, &d);
    EXPECT_EQ(++walk, nullptr);
}

TEST_F(IteratorOfThree, GoesToFirstAndLast) {
    walk.toLast();
    EXPECT_EQ(walk.key(), &c);
    EXPECT_TRUE(walk.atLast());
    EXPECT_FALSE(walk.atFirst());
    walk.toFirst();
    EXPECT_EQ(walk.key(), &a);
    EXPECT_TRUE(walk.atFirst());
    EXPECT_FALSE(walk.atLast());
}

TEST_F(IteratorOfThree, OnlyElementIsFirstAndLast) {
    IntrusiveList one(&d);
    walk.reset(one);
    ++walk;
    EXPECT_TRUE(walk.atFirst());
    EXPECT_TRUE(walk.atLast());
}

TEST(IntrusiveListIterator, InAnEmptyListIsOnNoElement) {
    IntrusiveList list;
    IntrusiveListIterator walk(list);
    walk.toFirst();
    EXPECT_EQ(walk.key(), nullptr);
    EXPECT_FALSE(walk.atFirst());
    walk.toLast();
    EXPECT_EQ(walk.key(), nullptr);
    EXPECT_FALSE(walk.atLast());
    EXPECT_EQ(++walk, nullptr);
    EXPECT_EQ(walk.remove(), nullptr);
}

TEST_F(IteratorOfThree, InsertsRightBehindThePointWhichStays) {
    walk += 1;
    walk.insertAfterPoint(&d);
    EXPECT_EQ(walk.key(), &a);
    EXPECT_EQ(shown(list), "adbc");
    EXPECT_EQ(++walk, &d);
}

TEST_F(IteratorOfThree, InsertsInFrontFromBeforeTheFirst) {
    walk.insertAfterPoint(&d);
    EXPECT_EQ(shown(list), "dabc");
    EXPECT_EQ(list.first(), &d);
}

TEST_F(IteratorOfThree, InsertsBehindTheLast) {
    walk.toLast();
    walk.insertAfterPoint(&d);
    EXPECT_EQ(shown(list), "abcd");
    EXPECT_EQ(list.last(), &d);
}

TEST_F(IteratorOfThree, InsertsLastFromAfterTheLast) {
    walk += 4;
    walk.insertAfterPoint(&d);
    EXPECT_EQ(shown(list), "abcd");
    EXPECT_EQ(list.last(), &d);
    EXPECT_EQ(++walk, nullptr);
}

TEST_F(IteratorOfThree, RemoveTakesOutAndGoesBackByOne) {
    walk += 2;
    EXPECT_EQ(walk.remove(), &b);
    EXPECT_EQ(b.next, nullptr);
    EXPECT_EQ(walk.key(), &a);
    EXPECT_EQ(shown(list), "ac");
    EXPECT_EQ(++walk, &c);
}

TEST_F(IteratorOfThree, RemoveOfTheFirstGoesBeforeTheFirst) {
    walk.toFirst();
    EXPECT_EQ(walk.remove(), &a);
    EXPECT_EQ(walk.key(), nullptr);
    EXPECT_EQ(++walk, &b);
}

TEST_F(IteratorOfThree, RemoveOfTheLastMovesTheListsEnd) {
    walk.toLast();
    EXPECT_EQ(walk.remove(), &c);
    EXPECT_EQ(list.last(), &b);
    EXPECT_TRUE(walk.atLast());
}

TEST_F(IteratorOfThree, RemoveOutsideOfTheElementsReturnsNull) {
    EXPECT_EQ(walk.remove(), nullptr);
    walk += 4;
    EXPECT_EQ(walk.remove(), nullptr);
    EXPECT_EQ(shown(list), "abc");
}

TEST_F(IteratorOfThree, EveryElementCanBeRemovedOnTheWay) {
    std::string removed;
    while (++walk != nullptr) {
        removed += nameOf(walk.remove());
    }
    EXPECT_EQ(removed, "abc");
    EXPECT_TRUE(list.isEmpty());
}

TEST_F(IteratorOfThree, AdvanceMovesThePoint) {
    walk.advance();
    EXPECT_TRUE(walk.isActive());
    EXPECT_EQ(walk.key(), &a);
    walk.advance();
    walk.advance();
    walk.advance();
    EXPECT_FALSE(walk.isActive());
    walk.advance();
    EXPECT_EQ(walk.key(), nullptr);
}

}  // namespace
}  // namespace nolk
