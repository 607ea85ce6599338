/** @file
 * Walks over a compiled pattern.
 */
#ifndef NOLK_CORE_REGEX_REGEX_WALKER_H
#define NOLK_CORE_REGEX_REGEX_WALKER_H

#include <nolk/core/regex/RegexDecisions.h>

#include <cstdint>

namespace nolk {

/**
 * Walks from node to node along a subject, greedily and with one character of look ahead, and comes
 * back to saved decisions where a walk fails.
 */
template <typename T>
class RegexWalker : public RegexDecisions<T> {
public:
    /** Walks from the first node. @return the end of the match, or null */
    const T* walk(const T* p);
    /** Takes the last decision saved and walks on from there, until a walk succeeds. @return the
     * end of the match, or null once none is left */
    const T* retry();

private:
    using Base = RegexDecisions<T>;
    using typename Base::Group;
    using typename Base::Node;

    using Base::base_;
    using Base::decisions_;
    using Base::end_;
    using Base::entryChoice_;
    using Base::failures_;
    using Base::groups_;
    using Base::isFromHead_;
    using Base::isMissing_;
    using Base::isSaving_;
    using Base::isWorkedOut_;
    using Base::nodes_;
    using Base::program_;
    using Base::rotations_;
    using Base::walk_;

    using Base::canBegin;
    using Base::dropCaptures;
    using Base::dropDecisions;
    using Base::fewAlternatives;
    using Base::hasOther;
    using Base::indexOf;
    using Base::isAtEndIfItMust;
    using Base::isOwn;
    using Base::mayStartAt;
    using Base::meetIteration;
    using Base::node;
    using Base::remembersFailures;
    using Base::resetGroups;
    using Base::resetInner;
    using Base::saveAlternatives;
    using Base::saveVisits;
    using Base::stateOf;
    using Base::takeDecision;
    using Base::workOutAll;

    // The steps. Each moves `p` on or back and returns the node to go on with.
    const T* walkFrom(std::uint32_t i, const T* p);
    std::uint32_t stepText(const Node& n, const T*& p);
    std::uint32_t stepUnit(const Node& n, const T*& p);
    std::uint32_t stepRun(const Node& n, const T*& p);
    std::uint32_t stepHead(const Node& n, const T* p);
    std::uint32_t stepGroup(const Node& n, const T*& p);
    std::uint32_t stepGroupRun(const Node& n, const T*& p);
    std::uint32_t stepChoices(const Node& n, const T*& p);
    std::uint32_t endRun(const Node& n, const T* p);
    std::uint32_t stepRetreat(const Node& n, const T*& p);
    std::uint32_t closeEmptyIteration(const Node& n, Group& group);
    std::uint32_t matched(const Node& n, const T* p);
    std::uint32_t notMatched(const Node& n, const T* p, std::uint32_t count);
    std::uint32_t guardEnd(const Node& n, const T* p, std::uint32_t next) const;
    std::uint32_t retreatToGroup(const Node& n);
    std::uint32_t leaveOutward(const Node& n);
    void acceptGroup(const Node& n);
    const T* runEnd(const Node& n, const T* p) const;

    const T* walkOnce(const T* p);
    const T* walkWithoutSaving(const T* p);

    bool isHopeful_ = true;  // the last first walk would have needed no decisions
};

extern template class RegexWalker<char>;
extern template class RegexWalker<UChar>;

}  // namespace nolk

#endif
