#include <nolk/core/IntrusiveList.h>

#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>
#include <nolk/core/OutOfBoundsException.h>

#include <limits>

namespace nolk {

IntrusiveList::IntrusiveList() noexcept : last_(&head_), count_(0) {
    head_.next = &tail_;
    tail_.next = &tail_;
}

IntrusiveList::IntrusiveList(IntrusiveListLink* link) noexcept : IntrusiveList() {
    append(link);
}

IntrusiveList::IntrusiveList(const IntrusiveList& other) noexcept : IntrusiveList() {
    adopt(other);
}

IntrusiveList& IntrusiveList::operator=(const IntrusiveList& other) noexcept {
    if (this != &other) {
        adopt(other);
    }
    return *this;
}

// The words of an empty list point to its own head and tail, so those of this list stand for them.
void IntrusiveList::adopt(const IntrusiveList& other) noexcept {
    const bool empty = other.isEmpty();
    head_.next = empty ? &tail_ : other.head_.next;
    tail_.next = empty ? &tail_ : other.tail_.next;
    last_ = empty ? &head_ : other.last_;
    count_ = other.count_;
}

IntrusiveListLink* IntrusiveList::first() const noexcept {
    return isEmpty() ? nullptr : head_.next;
}

IntrusiveListLink* IntrusiveList::last() const noexcept {
    return isEmpty() ? nullptr : last_;
}

IntrusiveListLink* IntrusiveList::at(unsigned index) const {
    requireIndex(index, count_);
    IntrusiveListLink* link = head_.next;
    while (index-- != 0) {
        link = link->next;
    }
    return link;
}

bool IntrusiveList::containsReference(const IntrusiveListLink* link) const noexcept {
    const IntrusiveListLink* walk = head_.next;
    while (walk != &tail_ && walk != link) {
        walk = walk->next;
    }
    return walk != &tail_;
}

unsigned IntrusiveList::occurrencesOfReference(const IntrusiveListLink* link) const noexcept {
    return containsReference(link) ? 1 : 0;
}

void IntrusiveList::append(IntrusiveListLink* link) noexcept {
    insertAfterLink(last_, link);
}

void IntrusiveList::prepend(IntrusiveListLink* link) noexcept {
    insertAfterLink(&head_, link);
}

void IntrusiveList::insertAt(unsigned index, IntrusiveListLink* link) {
    requireIndex(index, std::uint64_t{count_} + 1);
    insertAfterLink(index == count_ ? last_ : linkBefore(index), link);
}

IntrusiveListLink* IntrusiveList::get() noexcept {
    return isEmpty() ? nullptr : removeRight(&head_);
}

IntrusiveListLink* IntrusiveList::removeLast() noexcept {
    return isEmpty() ? nullptr : removeRight(linkBefore(count_ - 1));
}

IntrusiveListLink* IntrusiveList::removeReference(IntrusiveListLink* link) noexcept {
    if (link == nullptr) {
        return nullptr;
    }
    IntrusiveListLink* left = findLeftIsv(link);
    return left == nullptr ? nullptr : removeRight(left);
}

IntrusiveListLink* IntrusiveList::removeAt(unsigned index) {
    requireIndex(index, count_);
    return removeRight(linkBefore(index));
}

// The tail leads to the link for the time of the walk, so that the walk needs no other end.
IntrusiveListLink* IntrusiveList::findLeftIsv(IntrusiveListLink* link) noexcept {
    tail_.next = link;
    IntrusiveListLink* left = &head_;
    while (left->next != link) {
        left = left->next;
    }
    tail_.next = &tail_;
    return left == &tail_ ? nullptr : left;
}

void IntrusiveList::insertAfterLink(IntrusiveListLink* after, IntrusiveListLink* link) noexcept {
    link->next = after->next;
    after->next = link;
    if (after == last_) {
        last_ = link;
    }
    ++count_;
}

IntrusiveListLink* IntrusiveList::removeRight(IntrusiveListLink* left) noexcept {
    IntrusiveListLink* link = left->next;
    left->next = link->next;
    if (link == last_) {
        last_ = left;
    }
    --count_;
    return link->clear();
}

void IntrusiveList::requireIndex(unsigned index, std::uint64_t end) const {
    if (index < end) {
        return;
    }
    if (index == std::numeric_limits<std::uint32_t>::max()) {
        throw OutOfBoundsException(here(), message(NOLK_CORE_BOUNDS_STRING_NPOS));
    }
    throw OutOfBoundsException(here(), message(NOLK_CORE_BOUNDS_ILLEGAL_INDEX, index, count_));
}

IntrusiveListLink* IntrusiveList::linkBefore(unsigned index) noexcept {
    IntrusiveListLink* link = &head_;
    while (index-- != 0) {
        link = link->next;
    }
    return link;
}

}  // namespace nolk
