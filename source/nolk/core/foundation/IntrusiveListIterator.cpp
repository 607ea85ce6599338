#include <nolk/core/IntrusiveListIterator.h>

namespace nolk {

IntrusiveListIterator::IntrusiveListIterator(IntrusiveList& list) noexcept
    : list_(&list), point_(&list.head_) {}

void IntrusiveListIterator::reset() noexcept {
    point_ = &list_->head_;
}

void IntrusiveListIterator::reset(IntrusiveList& list) noexcept {
    list_ = &list;
    reset();
}

void IntrusiveListIterator::toFirst() noexcept {
    point_ = list_->head_.next;
}

void IntrusiveListIterator::toLast() noexcept {
    point_ = list_->last_;
}

IntrusiveListLink* IntrusiveListIterator::operator++() noexcept {
    advance();
    return key();
}

IntrusiveListLink* IntrusiveListIterator::operator+=(unsigned n) noexcept {
    while (n-- != 0 && point_ != &list_->tail_) {
        advance();
    }
    return key();
}

IntrusiveListLink* IntrusiveListIterator::key() const noexcept {
    return isActive() ? point_ : nullptr;
}

bool IntrusiveListIterator::atFirst() const noexcept {
    return isActive() && point_ == list_->head_.next;
}

bool IntrusiveListIterator::atLast() const noexcept {
    return isActive() && point_ == list_->last_;
}

void IntrusiveListIterator::insertAfterPoint(IntrusiveListLink* link) noexcept {
    // Nothing may stand behind the tail sentinel.
    IntrusiveListLink* after = point_ == &list_->tail_ ? list_->last_ : point_;
    list_->insertAfterLink(after, link);
}

IntrusiveListLink* IntrusiveListIterator::remove() noexcept {
    if (!isActive()) {
        return nullptr;
    }
    IntrusiveListLink* left = list_->findLeftIsv(point_);
    point_ = left;
    return list_->removeRight(left);
}

bool IntrusiveListIterator::isActive() const noexcept {
    return point_ != &list_->head_ && point_ != &list_->tail_;
}

}  // namespace nolk
