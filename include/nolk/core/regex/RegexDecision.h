/** @file
 * Points of a walk to come back to.
 */
#ifndef NOLK_CORE_REGEX_REGEX_DECISION_H
#define NOLK_CORE_REGEX_REGEX_DECISION_H

#include <cstdint>

namespace nolk {

/** How far a group has come. */
template <typename T>
struct RegexGroupProgress {
    /** Iterations, the current one included. */
    std::uint32_t count;
    /** The number of the walk that began the current iteration. */
    std::uint32_t walk;
    /** Where the current iteration began. */
    const T* lastPosition;
    /** The capture: null where it is unset. The end is that of the last finished iteration. */
    const T* captureStart;
    const T* groupEnd;

    /** Compares how far they have come, and not by which walk. */
    bool operator==(const RegexGroupProgress& other) const noexcept {
        return count == other.count && lastPosition == other.lastPosition &&
               captureStart == other.captureStart && groupEnd == other.groupEnd;
    }
};

/** What a decision does when it is taken. */
enum class RegexDecisionKind : std::uint8_t {
    visit,         ///< not yet worked out: what the visits of a node may have to save
    alternatives,  ///< not yet worked out: the other alternatives of an alternation
    skip,          ///< goes on at the node's `onSkip`
    reopen,        ///< closes a group around the node and begins its next iteration
    alternative,   ///< goes on at another alternative
    reenter        ///< closes the node's group and begins its next iteration with an alternative
};

/**
 * A point to come back to when a walk fails: a node that was visited, where it was visited, and how
 * far the groups around it had come (the node itself first, if it is a group, then outward).
 *
 * Most walks succeed, and their decisions are thrown away; so what a visit saves is not worked out
 * before the first one is needed. Until then one entry stands for all visits of a repeated node in
 * a row, or for all other alternatives of a head.
 */
template <typename T>
struct RegexDecision {
    const T* position;
    /** Of visits: the last one's position. */
    const T* lastPosition;
    /** Where the groups' progress stands. */
    std::uint32_t snapshot;
    std::uint32_t node;
    std::uint32_t resume;
    /** Which alternative; of `alternatives`, how many have been looked at. */
    std::uint32_t alternative;
    /** Of visits: the first alternative in the order, or the node's iterations at `position`. */
    std::uint32_t count;
    RegexDecisionKind kind;
    /** Of visits: whether it needs no more iterations at `position`. */
    bool isAccepted;
    /** Of visits: whether the first comes from the head of an alternation. */
    bool isFromHead;
};

}  // namespace nolk

#endif
