/** @file
 * The decisions that an attempt has saved before.
 */
#ifndef NOLK_CORE_REGEX_REGEX_TRIED_LIST_H
#define NOLK_CORE_REGEX_REGEX_TRIED_LIST_H

#include <nolk/core/Types.h>
#include <nolk/core/regex/RegexArray.h>
#include <nolk/core/regex/RegexDecision.h>

#include <cstdint>

namespace nolk {

/**
 * Remembers every decision of a walk and its retries, so that none is saved twice.
 *
 * Two decisions are the same if they lead from the same node to the same place, at the same
 * position, with the same progress of the groups around.
 *
 * The list is a hash table, and clearing it costs nothing. It holds 262,144 decisions at most and
 * then begins anew: up to some 20 MB, and 8 MB more for each level of groups.
 */
template <typename T>
class RegexTriedList {
public:
    using Progress = RegexGroupProgress<T>;

    static constexpr std::uint32_t mostEntries = 1u << 18;

    /** Begins a search. */
    void begin() noexcept {
        looks_ = 0;
        clear();
    }

    /** Ends an attempt or a rotation of one: forgets the decisions. */
    void clear() noexcept;

    /** Enters a decision with the progress of `depth` groups. @return false if it is known */
    bool enter(const RegexDecision<T>& decision, const Progress* progress, std::uint32_t depth);

    std::uint32_t size() const noexcept { return entries_.size(); }
    /** How many decisions the search has asked for. It stops at the highest number. */
    std::uint32_t looks() const noexcept { return looks_; }

private:
    struct Entry {
        const T* position;
        std::uint32_t node;
        std::uint32_t resume;
        std::uint32_t alternative;
        RegexDecisionKind kind;
        std::uint32_t depth;
        std::uint32_t snapshot;
        std::uint32_t hash;
    };
    struct Slot {
        std::uint32_t generation;
        std::uint32_t entry;
    };

    static constexpr std::uint32_t firstSlots = 64;

    std::uint32_t hash(const Entry& entry, const Progress* progress) const noexcept;
    bool isSame(const Entry& known, const Entry& entry, const Progress* progress) const noexcept;
    Slot& freeSlot(std::uint32_t hash) noexcept;
    void add(Entry entry, const Progress* progress);
    void grow();

    RegexArray<Entry, 16> entries_;
    RegexArray<Progress, 16> progress_;
    RegexArray<Slot, firstSlots> slots_;
    std::uint32_t generation_ = 0;
    std::uint32_t looks_ = 0;
};

extern template class RegexTriedList<char>;
extern template class RegexTriedList<UChar>;

}  // namespace nolk

#endif
