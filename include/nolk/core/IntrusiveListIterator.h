/** @file
 * A walk over an intrusive list.
 */
#ifndef NOLK_CORE_INTRUSIVE_LIST_ITERATOR_H
#define NOLK_CORE_INTRUSIVE_LIST_ITERATOR_H

#include <nolk/core/Export.h>
#include <nolk/core/IntrusiveList.h>

namespace nolk {

/**
 * Walks an IntrusiveList and changes it at the point reached.
 *
 * The point stands before the first element, on an element, or after the last one. The iterator
 * owns nothing: the list outlives it, and only this iterator may take out the element at its point.
 *
 *     IntrusiveListIterator walk(jobs);
 *     while (IntrusiveListLink* job = ++walk) { ... }
 */
class NOLK_API IntrusiveListIterator {
public:
    /** The point stands before the first element. */
    explicit IntrusiveListIterator(IntrusiveList& list) noexcept;

    /** Go back before the first element, of the same list or of another. */
    void reset() noexcept;
    void reset(IntrusiveList& list) noexcept;

    /** Go to the first or last element. In an empty list the point is on no element. */
    void toFirst() noexcept;
    void toLast() noexcept;

    /** Go one or `n` elements on; the element reached, or null after the last. */
    IntrusiveListLink* operator++() noexcept;
    IntrusiveListLink* operator+=(unsigned n) noexcept;

    /** The element at the point; null before the first and after the last. */
    IntrusiveListLink* key() const noexcept;

    /** Whether the point is on the first or last element. */
    bool atFirst() const noexcept;
    bool atLast() const noexcept;

    /**
     * Puts an element right behind the point, or last if that is after the last; the point stays.
     * @pre not null, and in no list
     */
    void insertAfterPoint(IntrusiveListLink* link) noexcept;

    /**
     * Takes out the element at the point and returns it, cleared; null if there is none. The point
     * goes back to the element before, so that `++` reaches the one behind. Walks the list.
     */
    IntrusiveListLink* remove() noexcept;

protected:
    /** Moves the point by one link; after the last element it stays. */
    void advance() noexcept { point_ = point_->next; }
    /** Whether the point is on an element. */
    bool isActive() const noexcept;

private:
    IntrusiveList* list_;
    IntrusiveListLink* point_;
};

}  // namespace nolk

#endif
