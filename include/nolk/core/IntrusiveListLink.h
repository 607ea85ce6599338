/** @file
 * The link inside an element of an intrusive list.
 */
#ifndef NOLK_CORE_INTRUSIVE_LIST_LINK_H
#define NOLK_CORE_INTRUSIVE_LIST_LINK_H

namespace nolk {

/**
 * The link that an element carries, mostly as its base, to stand in an IntrusiveList.
 *
 * An element stands in one list at a time. The link belongs to the list while it does.
 */
struct IntrusiveListLink {
    /** Leaves `next` without a value; a list sets it. */
    IntrusiveListLink() noexcept {}  // NOLINT(modernize-use-equals-default)

    /** Nulls the link, and returns it. */
    IntrusiveListLink* clear() noexcept {
        next = nullptr;
        return this;
    }

    IntrusiveListLink* next;
};

}  // namespace nolk

#endif
