/** @file
 * The decisions of a walk.
 */
#ifndef NOLK_CORE_REGEX_REGEX_DECISIONS_H
#define NOLK_CORE_REGEX_REGEX_DECISIONS_H

#include <nolk/core/regex/RegexArray.h>
#include <nolk/core/regex/RegexDecision.h>
#include <nolk/core/regex/RegexFailures.h>
#include <nolk/core/regex/RegexProgram.h>
#include <nolk/core/regex/RegexRotations.h>
#include <nolk/core/regex/RegexTriedList.h>

#include <cstdint>

namespace nolk {

/**
 * How far the groups of a match have come, and where its walks may go another way: what RegexWalker
 * saves, works out, and comes back to.
 *
 * All state of a match is here. Its memory is kept from one match to the next, and no more of it is
 * cleared than was used; once it is large enough nothing is allocated any more.
 */
template <typename T>
class RegexDecisions {
public:
    using Progress = RegexGroupProgress<T>;

    /** A search that has saved so many decisions remembers from then on how they fail. */
    static constexpr std::uint32_t looksBeforeFailures = 1u << 14;

    /** Begins a search of a subject. @pre both outlive it */
    void begin(const RegexProgram<T>& program, const T* base, const T* end);
    /** Begins an attempt: all captures are unset, and every alternation on its first alternative.
     */
    void beginAttempt();
    /** Puts the alternations on the next rotation that may change what the walks find, and forgets
     * decisions and captures. @return false if there is none */
    bool nextRotation();
    /** Forgets decisions and tried decisions. */
    void dropDecisions();

    /** The progress of the group with this number, from 1. */
    const Progress& group(std::uint32_t captureId) const { return groups_[captureId - 1]; }

    /** @name For tests
     *  @{ */
    /** How many decisions the search has saved, or would have. */
    std::uint32_t looks() const noexcept { return tried_.looks(); }
    /** Decisions that are known to fail. */
    std::uint32_t failures() const noexcept { return failures_.size(); }
    void rememberFailuresAfter(std::uint32_t looks) noexcept { looksBeforeFailures_ = looks; }
    /** @} */

protected:
    using Node = RegexStateNode;
    using Kind = RegexDecisionKind;
    using Decision = RegexDecision<T>;

    struct Group : Progress {
        bool isAccepted;
        bool isRetreating;
        std::uint32_t pendingAlternative;
    };

    static constexpr std::uint32_t fewAlternatives = 4;

    const Node& node(std::uint32_t i) const { return nodes_[i]; }
    std::uint32_t indexOf(const Node& n) const { return static_cast<std::uint32_t>(&n - nodes_); }
    Group& stateOf(const Node& group) { return groups_[group.captureId - 1]; }
    bool isAtEndIfItMust(const Node& n, const T* p) const { return !n.mustEndAtEnd || p == end_; }
    bool mayStartAt(const Node& n, const T* p) const { return !n.mustStartAtBegin || p == base_; }
    bool canBegin(std::uint32_t i, const T* p) const;
    bool hasOther(const Node& head, const T* p, std::uint32_t first, std::uint32_t i) const;
    void resetGroup(const Node& n, Group& group);
    void resetGroups(std::uint32_t from, std::uint32_t to);
    void resetInner(const Node& n);
    void dropCaptures();

    // Saving.
    void saveVisits(const Node& n, const T* first, const T* last, std::uint32_t count,
                    bool isAccepted, bool isFromHead);
    void saveAlternatives(const Node& head, const T* p, std::uint32_t first, std::uint32_t seen);
    void workOutAll();

    // Taking: these return the node to go on with.
    bool isOwn(const Node& group, const Decision& decision) const;
    std::uint32_t takeDecision(const T*& p);
    bool remembersFailures() const { return tried_.looks() >= looksBeforeFailures_; }
    std::uint32_t meetIteration(const Node& n, const T* p);

    const RegexProgram<T>* program_ = nullptr;
    const Node* nodes_ = nullptr;
    const T* base_ = nullptr;
    const T* end_ = nullptr;
    RegexArray<Group, 16> groups_;
    RegexArray<Decision, 16> decisions_;
    RegexFailures failures_;
    RegexRotations rotations_;
    std::uint32_t walk_ = 0;                 // of the attempt: one for each decision taken
    std::uint32_t entryChoice_ = regexNone;  // for the next head alone
    bool isFromHead_ = false;   // the next node is the alternative that its head has chosen
    bool isWorkedOut_ = false;  // all decisions are, and new ones at once
    bool isSaving_ = true;      // visits are saved
    bool isMissing_ = false;    // one wasn't that may have led to a decision

private:
    // Asks what would be saved, and saves nothing.
    struct Probe {
        bool saves = false;
        bool fails = true;  // all of it, and for certain
    };

    static constexpr std::uint32_t mostPending = 1024;

    std::uint32_t chainLength(const Node& n) const { return n.depth + n.isGroup(); }
    std::uint32_t firstInChain(const Node& n) const {
        return n.isGroup() ? indexOf(n) : n.enclosing;
    }
    std::uint32_t takeSnapshot(const Node& n);
    void push(const Decision& pending);

    // What a visit saves.
    void workOut(const Decision& pending);
    void workOutVisit(const Decision& pending, const T* p);
    void workOutVisit(const Decision& pending, const T* p, std::uint32_t count, bool isAccepted,
                      bool isFromHead);
    void workOutReopening(const Decision& pending, const T* p);
    void workOutReentry(const Decision& pending, const T* p);
    void workOutSkip(const Decision& pending, const T* p);
    void workOutAlternatives(const Decision& pending);
    void save(const Decision& pending, Kind kind, const T* p, std::uint32_t resume,
              std::uint32_t alternative);
    bool isEvenRow(const Node& n) const;
    const T* skipFailures(const Decision& pending);
    Probe probeVisit(const Decision& pending, const T* p);

    // States of decisions, for what is known to fail.
    void tellState(const Decision& decision);
    void tellRow(const Decision& pending);
    void beginState(Kind kind, const T* p, std::uint32_t resume, std::uint32_t alternative);
    void addGroup(const Node& group, const Progress& progress, const T* p);
    static std::uint32_t countThatMatters(const Node& group, std::uint32_t count,
                                          std::uint32_t left);
    std::uint32_t meet(RegexFailures::Outcome outcome);

    Decision popDecision();
    std::uint32_t resume(const Decision& decision, const T*& p);
    void tellLeftOut(const Node& n, const T* p);
    void leaveGroups(std::uint32_t from, std::uint32_t to, const T* p);
    void findOtherAlternatives();

    RegexArray<Progress, 32> snapshots_;
    RegexArray<Decision, 16> pending_;  // while decisions are worked out
    RegexTriedList<T> tried_;
    std::uint32_t looksBeforeFailures_ = looksBeforeFailures;
    Probe* probe_ = nullptr;  // while one is made
};

template <typename T>
inline void RegexDecisions<T>::resetGroup(const Node& n, Group& group) {
    group.count = 0;
    group.walk = 0;
    group.lastPosition = nullptr;
    group.isAccepted = n.isOptional();
    group.isRetreating = false;
    group.pendingAlternative = regexNone;
}

// Whether one character of look ahead allows a node.
template <typename T>
inline bool RegexDecisions<T>::canBegin(std::uint32_t i, const T* p) const {
    if (node(i).look == regexNone) {
        return !node(i).isTerminal();
    }
    const Node& n = node(node(i).look);
    if (!mayStartAt(n, p)) {
        return false;
    }
    switch (n.kind) {
        case RegexNodeKind::head:
            return true;
        case RegexNodeKind::text:
            return program_->matchesText(n, p, end_);
        default:
            return p != end_ && program_->matchesUnit(n, *p);
    }
}

extern template class RegexDecisions<char>;
extern template class RegexDecisions<UChar>;

}  // namespace nolk

#endif
