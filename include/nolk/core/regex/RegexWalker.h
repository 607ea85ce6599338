/** @file
 * Walks over a compiled pattern.
 */
#ifndef NOLK_CORE_REGEX_REGEX_WALKER_H
#define NOLK_CORE_REGEX_REGEX_WALKER_H

#include <nolk/core/regex/RegexArray.h>
#include <nolk/core/regex/RegexDecision.h>
#include <nolk/core/regex/RegexProgram.h>
#include <nolk/core/regex/RegexTriedList.h>

#include <cstdint>

namespace nolk {

/**
 * Walks from node to node along a subject, greedily and with one character of look ahead, and comes
 * back to saved decisions where a walk fails.
 *
 * All state of a match is here. Its memory is kept from one match to the next, and no more of it is
 * cleared than was used; once it is large enough nothing is allocated any more.
 */
template <typename T>
class RegexWalker {
public:
    using Progress = RegexGroupProgress<T>;

    /** Begins a search of a subject. @pre both outlive it */
    void begin(const RegexProgram<T>& program, const T* base, const T* end);

    /** Begins an attempt: all captures are unset, and every alternation on its first alternative.
     */
    void beginAttempt();

    /** @name Rotations
     *  @{ */
    /** Puts the alternations on the next rotation that may change what the walks find, and forgets
     * decisions and captures. @return false if there is none */
    bool nextRotation();
    /** @} */

    /** Walks from the first node. @return the end of the match, or null */
    const T* walk(const T* p);
    /** Takes the last decision saved and walks on from there, until a walk succeeds. @return the
     * end of the match, or null once none is left */
    const T* retry();
    /** Forgets decisions and tried decisions. */
    void dropDecisions();

    /** The progress of the group with this number, from 1. */
    const Progress& group(std::uint32_t captureId) const { return groups_[captureId - 1]; }

    /** Decisions on the list of tried ones. */
    std::uint32_t tried() const noexcept { return tried_.size(); }

private:
    using Node = RegexStateNode;
    using Kind = RegexDecisionKind;
    using Decision = RegexDecision<T>;

    struct Group : Progress {
        bool isAccepted;
        bool isRetreating;
        std::uint32_t pendingAlternative;
    };

    static constexpr std::uint32_t mostPending = 1024;
    static constexpr std::uint32_t fewAlternatives = 4;

    const Node& node(std::uint32_t i) const { return nodes_[i]; }
    std::uint32_t indexOf(const Node& n) const { return static_cast<std::uint32_t>(&n - nodes_); }
    Group& stateOf(const Node& group) { return groups_[group.captureId - 1]; }
    bool isAtEndIfItMust(const Node& n, const T* p) const { return !n.mustEndAtEnd || p == end_; }
    bool mayStartAt(const Node& n, const T* p) const { return !n.mustStartAtBegin || p == base_; }
    bool canBegin(std::uint32_t i, const T* p) const;

    // The steps. Each moves `p` on or back and returns the node to go on with.
    const T* walkFrom(std::uint32_t i, const T* p);
    std::uint32_t stepText(const Node& n, const T*& p);
    std::uint32_t stepUnit(const Node& n, const T*& p);
    std::uint32_t stepRun(const Node& n, const T*& p);
    std::uint32_t stepHead(const Node& n, const T* p);
    std::uint32_t stepGroup(const Node& n, const T*& p);
    std::uint32_t stepGroupRun(const Node& n, const T*& p);
    std::uint32_t stepRetreat(const Node& n, const T*& p);
    std::uint32_t closeEmptyIteration(const Node& n, Group& group);
    std::uint32_t matched(const Node& n, const T* p);
    std::uint32_t notMatched(const Node& n, const T* p, std::uint32_t count);
    std::uint32_t guardEnd(const Node& n, const T* p, std::uint32_t next) const;
    std::uint32_t retreatToGroup(const Node& n);
    std::uint32_t leaveOutward(const Node& n);
    void acceptGroup(const Node& n);
    const T* runEnd(const Node& n, const T* p) const;
    void resetGroup(const Node& n, Group& group);
    void resetGroups(std::uint32_t from, std::uint32_t to);
    void resetInner(const Node& n);

    // Decisions.
    bool savesVisits(const Node& n) const {
        return n.mayBeSkipped || n.mayReopenGroup || n.mayReenterAlternation;
    }
    std::uint32_t chainLength(const Node& n) const { return n.depth + n.isGroup(); }
    std::uint32_t firstInChain(const Node& n) const {
        return n.isGroup() ? indexOf(n) : n.enclosing;
    }
    std::uint32_t takeSnapshot(const Node& n);
    void saveVisits(const Node& n, const T* first, const T* last, std::uint32_t count,
                    bool isAccepted, bool isFromHead);
    void saveAlternatives(const Node& head, const T* p, std::uint32_t first, std::uint32_t seen);
    void push(const Decision& pending);
    void workOutAll();
    void workOut(const Decision& pending);
    void workOutVisit(const Decision& pending, const T* p, std::uint32_t count, bool isAccepted,
                      bool isFromHead);
    void workOutReopening(const Decision& pending, const T* p);
    void workOutReentry(const Decision& pending, const T* p);
    void workOutSkip(const Decision& pending, const T* p);
    void workOutAlternatives(const Decision& pending);
    void save(const Decision& pending, Kind kind, const T* p, std::uint32_t resume,
              std::uint32_t alternative);
    bool isOwn(const Node& group, const Decision& decision) const;
    Decision popDecision();
    std::uint32_t resume(const Decision& decision, const T*& p);
    void leaveGroups(std::uint32_t from, std::uint32_t to, const T* p);

    // Rotations.
    void applyRotation(std::uint32_t rotation);
    bool mayDiffer(std::uint32_t rotation);
    bool isChosen(std::uint32_t rotation, const RegexAlternator::Choice& choice) const;
    bool differsAnywhere(std::uint32_t a, std::uint32_t b) const;
    void findOtherAlternatives();
    bool hasOther(const Node& head, const T* p, std::uint32_t first, std::uint32_t i) const;

    const RegexProgram<T>* program_ = nullptr;
    const Node* nodes_ = nullptr;
    const T* base_ = nullptr;
    const T* end_ = nullptr;

    RegexArray<Group, 16> groups_;
    RegexArray<Decision, 16> decisions_;
    RegexArray<Progress, 32> snapshots_;
    RegexArray<Decision, 16> pending_;  // while decisions are worked out
    RegexTriedList<T> tried_;
    RegexArray<std::uint32_t, 16> choices_;   // by alternation: the alternative to be tried first
    RegexArray<std::uint8_t, 16> hadOthers_;  // by alternation: whether the choice has mattered
    std::uint32_t rotation_ = 0;
    std::uint32_t walkedRotation_ = 0;
    std::uint32_t entryChoice_ = regexNone;  // for the next head alone
    bool isFromHead_ = false;                // the next node is an alternative just chosen
    bool isWorkedOut_ = false;               // all decisions are, and new ones at once
};

extern template class RegexWalker<char>;
extern template class RegexWalker<UChar>;

}  // namespace nolk

#endif
