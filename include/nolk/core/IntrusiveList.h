/** @file
 * A singly linked list that allocates nothing.
 */
#ifndef NOLK_CORE_INTRUSIVE_LIST_H
#define NOLK_CORE_INTRUSIVE_LIST_H

#include <nolk/core/Export.h>
#include <nolk/core/IntrusiveListLink.h>

#include <cstdint>

namespace nolk {

/**
 * A list of elements that carry their own links.
 *
 * The list owns nothing and allocates nothing: elements outlive their stay in it. `removeLast`,
 * `removeReference`, `at` and the like walk the list, all else takes constant time. No lock of its
 * own. An element is usually derived from the link:
 *
 *     struct Job : IntrusiveListLink { ... };
 *     jobs.append(new Job);
 *     std::unique_ptr<Job> job(static_cast<Job*>(jobs.get()));
 *
 * Positions run from 0. A position of all bits set stands for no position and is refused with the
 * text of NOLK_CORE_BOUNDS_STRING_NPOS.
 */
class NOLK_API IntrusiveList {
public:
    IntrusiveList() noexcept;
    /** A list of this one element. @pre not null */
    explicit IntrusiveList(IntrusiveListLink* link) noexcept;

    /**
     * Copy the list's own words. The elements' links can't lead into two lists.
     * @pre the other list is empty; this one then becomes an empty list of its own
     */
    IntrusiveList(const IntrusiveList& other) noexcept;
    IntrusiveList& operator=(const IntrusiveList& other) noexcept;

    bool isEmpty() const noexcept { return count_ == 0; }
    /** The number of elements. */
    unsigned count() const noexcept { return count_; }

    /** The first and the last element; null if the list is empty. */
    IntrusiveListLink* first() const noexcept;
    IntrusiveListLink* last() const noexcept;

    /** @throws OutOfBoundsException unless `index` is less than the count */
    IntrusiveListLink* at(unsigned index) const;

    /** Whether, and how often (0 or 1), the element stands in this list. */
    bool containsReference(const IntrusiveListLink* link) const noexcept;
    unsigned occurrencesOfReference(const IntrusiveListLink* link) const noexcept;

    /**
     * Put an element in: behind the last, before the first, or so that it has the index given.
     * @pre not null, and in no list
     */
    void append(IntrusiveListLink* link) noexcept;
    void prepend(IntrusiveListLink* link) noexcept;
    /** @throws OutOfBoundsException if `index` is greater than the count */
    void insertAt(unsigned index, IntrusiveListLink* link);

    /** Take out the first or the last element and return it, cleared; null if the list is empty. */
    IntrusiveListLink* get() noexcept;
    IntrusiveListLink* removeLast() noexcept;

    /** Takes the element out and returns it, cleared; null for null or one not in this list. */
    IntrusiveListLink* removeReference(IntrusiveListLink* link) noexcept;

    /** Takes the element out and returns it, cleared. @throws OutOfBoundsException as `at` */
    IntrusiveListLink* removeAt(unsigned index);

protected:
    /** The link before `link`, which may be the head; null if `link` isn't in this list. */
    IntrusiveListLink* findLeftIsv(IntrusiveListLink* link) noexcept;

    /** @pre `after` is the head or an element of this list */
    void insertAfterLink(IntrusiveListLink* after, IntrusiveListLink* link) noexcept;

    /** Takes out and returns, cleared, what stands right of `left`. @pre that is an element */
    IntrusiveListLink* removeRight(IntrusiveListLink* left) noexcept;

private:
    friend class IntrusiveListIterator;

    void adopt(const IntrusiveList& other) noexcept;
    void requireIndex(unsigned index, std::uint64_t end) const;
    IntrusiveListLink* linkBefore(unsigned index) noexcept;

    // head_.next is the first element, or &tail_; tail_.next is &tail_ itself; last_ is the last
    // element, or &head_.
    IntrusiveListLink head_;
    IntrusiveListLink tail_;
    IntrusiveListLink* last_;
    std::uint32_t count_;
};

}  // namespace nolk

#endif
