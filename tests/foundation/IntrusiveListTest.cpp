#include <nolk/core/IntrusiveList.h>
#include <nolk/core/IntrusiveListIterator.h>
#include <nolk/core/IntrusiveListLink.h>
#include <nolk/core/OutOfBoundsException.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <new>
#include <string>
#include <type_traits>
#include <vector>

namespace nolk {
namespace {

struct Element : IntrusiveListLink {
    explicit Element(char elementName) : name(elementName) {}
    char name;
};

// Shows the protected operations.
struct Opened : IntrusiveList {
    using IntrusiveList::findLeftIsv;
    using IntrusiveList::insertAfterLink;
    using IntrusiveList::removeRight;
};

// The names of the elements in order. Also holds the list's ends and count against each other.
std::string shown(const IntrusiveList& list) {
    std::string names;
    for (unsigned i = 0; i < list.count(); ++i) {
        names += static_cast<const Element*>(list.at(i))->name;
    }
    EXPECT_EQ(list.isEmpty(), names.empty());
    EXPECT_EQ(list.first(), names.empty() ? nullptr : list.at(0));
    EXPECT_EQ(list.last(), names.empty() ? nullptr : list.at(list.count() - 1));
    return names;
}

// Past the last element a walk stays: a search that goes through the tail has put it right again.
void expectWalkStaysAtTheEnd(IntrusiveList& list) {
    IntrusiveListIterator walk(list);
    walk += list.count() + 1;
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(++walk, nullptr);
    }
}

class IntrusiveListOfThree : public testing::Test {
protected:
    IntrusiveListOfThree() {
        list.append(&a);
        list.append(&b);
        list.append(&c);
    }

    Element a{'a'};
    Element b{'b'};
    Element c{'c'};
    Element d{'d'};
    Opened list;
};

std::string boundsFailure(const auto& operation) {
    try {
        operation();
    } catch (const OutOfBoundsException& failure) {
        return failure.what();
    }
    return "no exception";
}

constexpr const char* noPosition = "[BOUNDS_STRING_NPOS] String index cannot be 'npos'";

TEST(IntrusiveListLink, ClearNullsTheLinkAndReturnsIt) {
    IntrusiveListLink link;
    link.next = &link;
    EXPECT_EQ(link.clear(), &link);
    EXPECT_EQ(link.next, nullptr);
}

TEST(IntrusiveListLink, IsOnePointerThatItsConstructorLeavesAlone) {
    EXPECT_EQ(sizeof(IntrusiveListLink), sizeof(void*));
    IntrusiveListLink other;
    IntrusiveListLink* before = &other;
    alignas(IntrusiveListLink) unsigned char storage[sizeof(IntrusiveListLink)];
    std::memcpy(storage, &before, sizeof(before));
    EXPECT_EQ((new (storage) IntrusiveListLink)->next, before);
}

TEST(IntrusiveList, IsTwoLinksTheLastElementAndACount) {
    struct Words {
        IntrusiveListLink head;
        IntrusiveListLink tail;
        IntrusiveListLink* last;
        std::uint32_t count;
    };
    EXPECT_EQ(sizeof(IntrusiveList), sizeof(Words));
}

TEST(IntrusiveList, StartsEmpty) {
    IntrusiveList list;
    EXPECT_EQ(shown(list), "");
    EXPECT_EQ(list.count(), 0u);
}

TEST(IntrusiveList, EmptyListHasNoEndsAndNothingToTakeOut) {
    IntrusiveList list;
    EXPECT_EQ(list.first(), nullptr);
    EXPECT_EQ(list.last(), nullptr);
    EXPECT_EQ(list.get(), nullptr);
    EXPECT_EQ(list.removeLast(), nullptr);
    EXPECT_EQ(shown(list), "");
}

TEST(IntrusiveList, CanBeMadeOfOneElement) {
    Element a('a');
    IntrusiveList list(&a);
    EXPECT_EQ(shown(list), "a");
    EXPECT_EQ(list.count(), 1u);
}

TEST(IntrusiveList, CopyOfAnEmptyListIsAnEmptyListOfItsOwn) {
    Element a('a');
    Element b('b');
    IntrusiveList list;
    IntrusiveList copy(list);
    EXPECT_EQ(shown(copy), "");
    copy.append(&a);
    EXPECT_EQ(shown(list), "");
    list.append(&b);
    EXPECT_EQ(shown(copy), "a");
    EXPECT_EQ(copy.removeReference(&a), &a);
    EXPECT_EQ(shown(copy), "");
    EXPECT_EQ(shown(list), "b");
}

TEST(IntrusiveList, AssignmentOfAnEmptyListGivesAnEmptyListOfItsOwn) {
    Element a('a');
    Element b('b');
    IntrusiveList list(&a);
    list = IntrusiveList();
    EXPECT_EQ(shown(list), "");
    list.append(&b);
    EXPECT_EQ(shown(list), "b");
}

TEST(IntrusiveList, AssignmentToItselfChangesNothing) {
    Element a('a');
    IntrusiveList list(&a);
    const IntrusiveList& same = list;
    list = same;
    EXPECT_EQ(shown(list), "a");
}

TEST(IntrusiveList, CopyOfAListWithElementsSharesThem) {
    Element a('a');
    Element b('b');
    IntrusiveList list(&a);
    list.append(&b);
    const IntrusiveList copy(list);
    EXPECT_EQ(shown(copy), "ab");
}

// Head, tail (which points at itself), last element and count: all of them, as they stand.
TEST(IntrusiveList, CopyAndAssignmentTakeTheFourWordsAsTheyStand) {
    Element a('a');
    Element b('b');
    IntrusiveList list(&a);
    list.append(&b);
    void* words[3];
    std::memcpy(words, &list, sizeof words);
    EXPECT_EQ(words[0], static_cast<IntrusiveListLink*>(&a));
    EXPECT_EQ(words[1], reinterpret_cast<char*>(&list) + sizeof(void*));
    EXPECT_EQ(words[2], static_cast<IntrusiveListLink*>(&b));

    constexpr std::size_t size = sizeof words + sizeof(std::uint32_t);
    const IntrusiveList copy(list);
    EXPECT_EQ(std::memcmp(&copy, &list, size), 0);
    IntrusiveList assigned;
    assigned = list;
    EXPECT_EQ(std::memcmp(&assigned, &list, size), 0);
}

TEST(IntrusiveList, AssignmentOfAListWithElementsSharesThem) {
    Element a('a');
    Element b('b');
    Element c('c');
    IntrusiveList list(&a);
    list.append(&b);
    IntrusiveList assigned(&c);
    assigned = list;
    EXPECT_EQ(shown(assigned), "ab");
    EXPECT_EQ(assigned.count(), 2u);
    EXPECT_EQ(shown(list), "ab");
}

TEST_F(IntrusiveListOfThree, AppendKeepsTheOrder) {
    EXPECT_EQ(shown(list), "abc");
    EXPECT_EQ(list.count(), 3u);
}

TEST_F(IntrusiveListOfThree, PrependPutsInFront) {
    list.prepend(&d);
    EXPECT_EQ(shown(list), "dabc");
}

TEST(IntrusiveList, PrependToAnEmptyListSetsBothEnds) {
    Element a('a');
    Element b('b');
    IntrusiveList list;
    list.prepend(&a);
    list.append(&b);
    EXPECT_EQ(shown(list), "ab");
}

TEST_F(IntrusiveListOfThree, AtGivesEachElement) {
    EXPECT_EQ(list.at(0), &a);
    EXPECT_EQ(list.at(1), &b);
    EXPECT_EQ(list.at(2), &c);
}

TEST_F(IntrusiveListOfThree, AtTheCountThrows) {
    EXPECT_EQ(boundsFailure([this] { list.at(3); }),
              "[BOUNDS_ILLEGAL_INDEX] Illegal Index (3) for collection or string with 3 elements");
}

TEST_F(IntrusiveListOfThree, AtNoPositionThrowsWithATextOfItsOwn) {
    EXPECT_EQ(boundsFailure([this] { list.at(0xFFFFFFFFu); }), noPosition);
}

TEST_F(IntrusiveListOfThree, LargeIndexShowsAsANegativeNumber) {
    EXPECT_EQ(boundsFailure([this] { list.at(0xFFFFFFFEu); }),
              "[BOUNDS_ILLEGAL_INDEX] Illegal Index (-2) for collection or string with 3 elements");
}

TEST(IntrusiveList, AtInAnEmptyListThrows) {
    const IntrusiveList list;
    EXPECT_EQ(boundsFailure([&list] { list.at(0); }),
              "[BOUNDS_ILLEGAL_INDEX] Illegal Index (0) for collection or string with 0 elements");
}

TEST_F(IntrusiveListOfThree, InsertAtPutsTheElementAtTheIndex) {
    list.insertAt(1, &d);
    EXPECT_EQ(shown(list), "adbc");
}

TEST_F(IntrusiveListOfThree, InsertAtZeroPrepends) {
    list.insertAt(0, &d);
    EXPECT_EQ(shown(list), "dabc");
}

TEST_F(IntrusiveListOfThree, InsertAtTheCountAppends) {
    list.insertAt(3, &d);
    EXPECT_EQ(shown(list), "abcd");
}

TEST(IntrusiveList, InsertAtZeroOfAnEmptyListAppends) {
    Element a('a');
    IntrusiveList list;
    list.insertAt(0, &a);
    EXPECT_EQ(shown(list), "a");
}

TEST_F(IntrusiveListOfThree, InsertPastTheCountThrowsAndChangesNothing) {
    EXPECT_EQ(boundsFailure([this] { list.insertAt(4, &d); }),
              "[BOUNDS_ILLEGAL_INDEX] Illegal Index (4) for collection or string with 3 elements");
    EXPECT_EQ(boundsFailure([this] { list.insertAt(0xFFFFFFFFu, &d); }), noPosition);
    EXPECT_EQ(shown(list), "abc");
}

TEST_F(IntrusiveListOfThree, RemoveAtTakesOutAndClears) {
    EXPECT_EQ(list.removeAt(1), &b);
    EXPECT_EQ(b.next, nullptr);
    EXPECT_EQ(shown(list), "ac");
    EXPECT_EQ(list.removeAt(1), &c);
    EXPECT_EQ(shown(list), "a");
    EXPECT_EQ(list.removeAt(0), &a);
    EXPECT_EQ(shown(list), "");
}

TEST_F(IntrusiveListOfThree, RemoveAtTheCountThrows) {
    EXPECT_EQ(boundsFailure([this] { list.removeAt(3); }),
              "[BOUNDS_ILLEGAL_INDEX] Illegal Index (3) for collection or string with 3 elements");
    EXPECT_EQ(boundsFailure([this] { list.removeAt(0xFFFFFFFFu); }), noPosition);
    EXPECT_EQ(shown(list), "abc");
}

TEST_F(IntrusiveListOfThree, GetTakesOutTheFirst) {
    EXPECT_EQ(list.get(), &a);
    EXPECT_EQ(a.next, nullptr);
    EXPECT_EQ(shown(list), "bc");
    EXPECT_EQ(list.get(), &b);
    EXPECT_EQ(list.get(), &c);
    EXPECT_EQ(list.get(), nullptr);
    list.append(&d);
    EXPECT_EQ(shown(list), "d");
}

TEST_F(IntrusiveListOfThree, RemoveLastTakesOutTheLast) {
    EXPECT_EQ(list.removeLast(), &c);
    EXPECT_EQ(c.next, nullptr);
    EXPECT_EQ(shown(list), "ab");
    EXPECT_EQ(list.removeLast(), &b);
    EXPECT_EQ(list.removeLast(), &a);
    EXPECT_EQ(list.removeLast(), nullptr);
    list.append(&d);
    EXPECT_EQ(shown(list), "d");
}

TEST_F(IntrusiveListOfThree, RemoveReferenceTakesOutTheFirst) {
    EXPECT_EQ(list.removeReference(&a), &a);
    EXPECT_EQ(a.next, nullptr);
    EXPECT_EQ(shown(list), "bc");
}

TEST_F(IntrusiveListOfThree, RemoveReferenceTakesOutAMiddleOne) {
    EXPECT_EQ(list.removeReference(&b), &b);
    EXPECT_EQ(b.next, nullptr);
    EXPECT_EQ(shown(list), "ac");
}

TEST_F(IntrusiveListOfThree, RemoveReferenceTakesOutTheLast) {
    EXPECT_EQ(list.removeReference(&c), &c);
    EXPECT_EQ(shown(list), "ab");
    list.append(&d);
    EXPECT_EQ(shown(list), "abd");
}

TEST_F(IntrusiveListOfThree, RemoveReferenceOfNullReturnsNull) {
    EXPECT_EQ(list.removeReference(nullptr), nullptr);
    EXPECT_EQ(shown(list), "abc");
}

TEST_F(IntrusiveListOfThree, RemoveReferenceOfAStrangerReturnsNullAndChangesNothing) {
    EXPECT_EQ(list.removeReference(&d), nullptr);
    EXPECT_EQ(shown(list), "abc");
    expectWalkStaysAtTheEnd(list);
    EXPECT_EQ(list.removeReference(&d), nullptr);
    list.append(&d);
    EXPECT_EQ(shown(list), "abcd");
}

TEST(IntrusiveList, RemoveReferenceFromAnEmptyListReturnsNull) {
    Element a('a');
    IntrusiveList list;
    EXPECT_EQ(list.removeReference(&a), nullptr);
    EXPECT_EQ(shown(list), "");
}

TEST_F(IntrusiveListOfThree, ContainsReferenceKnowsItsElements) {
    EXPECT_TRUE(list.containsReference(&a));
    EXPECT_TRUE(list.containsReference(&c));
    EXPECT_FALSE(list.containsReference(&d));
    EXPECT_FALSE(list.containsReference(nullptr));
}

TEST(IntrusiveList, EmptyListContainsNothing) {
    Element a('a');
    const IntrusiveList list;
    EXPECT_FALSE(list.containsReference(&a));
    EXPECT_FALSE(list.containsReference(nullptr));
    EXPECT_EQ(list.occurrencesOfReference(&a), 0u);
}

TEST_F(IntrusiveListOfThree, OccurrencesOfReferenceIsOneOrZero) {
    EXPECT_EQ(list.occurrencesOfReference(&b), 1u);
    EXPECT_EQ(list.occurrencesOfReference(&d), 0u);
    EXPECT_EQ(list.occurrencesOfReference(nullptr), 0u);
}

TEST_F(IntrusiveListOfThree, ElementMayGoToAnotherList) {
    IntrusiveList other;
    other.append(list.removeReference(&b));
    EXPECT_EQ(shown(list), "ac");
    EXPECT_EQ(shown(other), "b");
}

TEST_F(IntrusiveListOfThree, FindLeftGivesTheLinkBefore) {
    EXPECT_EQ(list.findLeftIsv(&b), &a);
    EXPECT_EQ(list.findLeftIsv(&c), &b);
    EXPECT_EQ(list.findLeftIsv(&d), nullptr);
    IntrusiveListLink* head = list.findLeftIsv(&a);
    ASSERT_NE(head, nullptr);
    EXPECT_EQ(head->next, &a);
}

TEST_F(IntrusiveListOfThree, FindLeftOfNullIsNullAndChangesNothing) {
    EXPECT_EQ(list.findLeftIsv(nullptr), nullptr);
    EXPECT_EQ(shown(list), "abc");
    expectWalkStaysAtTheEnd(list);
    Opened empty;
    EXPECT_EQ(empty.findLeftIsv(nullptr), nullptr);
    EXPECT_EQ(shown(empty), "");
    expectWalkStaysAtTheEnd(empty);
}

TEST_F(IntrusiveListOfThree, InsertAfterLinkPutsBehind) {
    list.insertAfterLink(&a, &d);
    EXPECT_EQ(shown(list), "adbc");
    Element e('e');
    list.insertAfterLink(&c, &e);
    EXPECT_EQ(shown(list), "adbce");
}

TEST_F(IntrusiveListOfThree, RemoveRightTakesOutTheNext) {
    EXPECT_EQ(list.removeRight(&b), &c);
    EXPECT_EQ(c.next, nullptr);
    EXPECT_EQ(shown(list), "ab");
}

}  // namespace
}  // namespace nolk
