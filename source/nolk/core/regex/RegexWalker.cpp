// The walk. It stands on one node at one position. A step asks the node whether it matches here,
// moves the position on if it does, and goes on at one of the node's successors; it ends on one of
// the two terminal nodes. A group is stepped on when it is entered and each time its inside is
// through, so its step begins an iteration, or ends the last one. An inside that fails leaves the
// group retreating: the group's next step takes the iteration back.
//
// Only groups have a state that outlasts a step. What a plain node counts, it counts within one
// step: that of a repeated node makes all its iterations.
#include <nolk/core/regex/RegexWalker.h>

#include <algorithm>
#include <utility>

namespace nolk {

// ---------------------------------------------------------------- the walk

// The decisions of a walk that succeeds are thrown away, but for those that tell whether an order
// mattered. So as long as walks succeed the others aren't saved; one that fails is done again.
template <typename T>
const T* RegexWalker<T>::walk(const T* p) {
    if (isHopeful_ && !remembersFailures()) {
        const T* const end = walkWithoutSaving(p);
        if (end != nullptr || !isMissing_) {
            return end;
        }
        dropDecisions();
        dropCaptures();
    }
    isSaving_ = true;
    const T* const end = walkOnce(p);
    isHopeful_ = end != nullptr;
    return end;
}

template <typename T>
const T* RegexWalker<T>::walkWithoutSaving(const T* p) {
    isSaving_ = false;
    isMissing_ = false;
    const T* const end = walkOnce(p);
    isSaving_ = true;
    return end;
}

template <typename T>
const T* RegexWalker<T>::walkOnce(const T* p) {
    resetGroups(0, groups_.size());
    isFromHead_ = false;
    entryChoice_ = regexNone;
    return walkFrom(0, p);
}

template <typename T>
const T* RegexWalker<T>::retry() {
    while (!decisions_.empty()) {
        workOutAll();
        failures_.failed(decisions_.size());
        if (decisions_.empty()) {
            break;
        }
        const T* p = nullptr;
        const std::uint32_t i = takeDecision(p);
        if (const T* const end = walkFrom(i, p)) {
            return end;
        }
    }
    failures_.failed(0);
    return nullptr;
}

template <typename T>
const T* RegexWalker<T>::walkFrom(std::uint32_t i, const T* p) {
    for (;;) {
        const Node& n = node(i);
        switch (n.kind) {
            case RegexNodeKind::success:
                return p;
            case RegexNodeKind::fail:
                return nullptr;
            case RegexNodeKind::group:
                i = stepGroup(n, p);
                break;
            case RegexNodeKind::head:
                i = stepHead(n, p);
                break;
            case RegexNodeKind::text:
                i = stepText(n, p);
                break;
            default:
                i = n.repeats() ? stepRun(n, p) : stepUnit(n, p);
                break;
        }
    }
}

// ---------------------------------------------------------------- steps of plain nodes

template <typename T>
std::uint32_t RegexWalker<T>::stepText(const Node& n, const T*& p) {
    isFromHead_ = false;
    if (mayStartAt(n, p) && program_->matchesText(n, p, end_)) {
        p += n.operandLength;
        return matched(n, p);
    }
    return notMatched(n, p, 0);
}

template <typename T>
std::uint32_t RegexWalker<T>::stepUnit(const Node& n, const T*& p) {
    isFromHead_ = false;
    if (mayStartAt(n, p) && p != end_ && program_->matchesUnit(n, *p)) {
        if (n.mayBeSkipped) {
            saveVisits(n, p, p, 0, true, false);
        }
        ++p;
        return matched(n, p);
    }
    return notMatched(n, p, 0);
}

// All iterations of a repeated node.
template <typename T>
std::uint32_t RegexWalker<T>::stepRun(const Node& n, const T*& p) {
    const bool isFromHead = std::exchange(isFromHead_, false);
    const T* const first = p;
    p = runEnd(n, first);
    if (p != first && n.savesVisits()) {
        saveVisits(n, first, p, 0, n.isOptional(), isFromHead);
    }
    const auto count = static_cast<std::uint32_t>(p - first);
    if (count < n.max) {
        return notMatched(n, p, count);
    }
    if (count != 0 && isAtEndIfItMust(n, p)) {
        acceptGroup(n);
    }
    return n.onFail;
}

template <typename T>
const T* RegexWalker<T>::runEnd(const Node& n, const T* p) const {
    std::uint32_t most = n.max;
    if (n.mustStartAtBegin) {
        most = p == base_ ? std::min(most, 1u) : 0;
    }
    const T* const end = static_cast<std::size_t>(end_ - p) > most ? p + most : end_;
    return program_->runEnd(n, p, end);
}

// Behind the only iteration of a node.
template <typename T>
std::uint32_t RegexWalker<T>::matched(const Node& n, const T* p) {
    if (!isAtEndIfItMust(n, p)) {
        return guardEnd(n, p, n.onMatch);
    }
    acceptGroup(n);
    return n.onMatch;
}

template <typename T>
std::uint32_t RegexWalker<T>::notMatched(const Node& n, const T* p, std::uint32_t count) {
    const bool isAtEnd = isAtEndIfItMust(n, p);
    const bool isAccepted = count == 0 ? n.isOptional() : count >= n.min && isAtEnd;
    if (n.isLast() && isAccepted) {
        if (!isAtEnd) {
            return program_->fail();
        }
        acceptGroup(n);
        return n.enclosing;
    }
    if (count >= n.min) {
        return guardEnd(n, p, n.onFail);
    }
    return retreatToGroup(n);
}

// A node that ends its group, and has what it needs, ends the iteration well.
template <typename T>
void RegexWalker<T>::acceptGroup(const Node& n) {
    if (n.isLast() && n.enclosing != program_->fail()) {
        const Node& around = node(n.enclosing);
        Group& group = stateOf(around);
        if (group.count >= around.min) {
            group.isAccepted = true;
        }
    }
}

// Short of the end, `$` lets a node be repeated and nothing else.
template <typename T>
std::uint32_t RegexWalker<T>::guardEnd(const Node& n, const T* p, std::uint32_t next) const {
    if (isAtEndIfItMust(n, p)) {
        return next;
    }
    const bool isBeyond = next > indexOf(n);
    const bool endsGroup = next == n.enclosing && !node(next).repeats();
    return isBeyond || endsGroup ? program_->fail() : next;
}

template <typename T>
std::uint32_t RegexWalker<T>::retreatToGroup(const Node& n) {
    if (n.isInGroup()) {
        stateOf(node(n.enclosing)).isRetreating = true;
    }
    return n.enclosing;
}

// ---------------------------------------------------------------- steps of heads and groups

// Chooses the first alternative that the look ahead allows, in the order of the rotation.
template <typename T>
std::uint32_t RegexWalker<T>::stepHead(const Node& n, const T* p) {
    const RegexAlternator& alternator = program_->alternator;
    const std::uint32_t entry = std::exchange(entryChoice_, regexNone);
    if (!mayStartAt(n, p)) {
        return retreatToGroup(n);
    }
    const std::uint32_t count = alternator.alternatives(n.alternation);
    const std::uint32_t first = entry != regexNone ? entry : rotations_.choice(n.alternation);
    bool failsAnyway = true;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t alternative = alternator.alternative(
            n.alternation, i + first < count ? i + first : i + first - count);
        if (node(alternative).isOptional() || canBegin(alternative, p)) {
            const bool mayHaveOthers = !n.isExclusive && i + 1 < count &&
                                       (count > fewAlternatives || hasOther(n, p, first, i + 1));
            if (mayHaveOthers) {
                saveAlternatives(n, p, first, i + 1);
            }
            isFromHead_ = true;
            return alternative;
        }
        failsAnyway &= node(alternative).failsUnseen;
    }
    rotations_.orderMattered(n.alternation, !failsAnyway);
    return alternator.alternative(n.alternation, first);
}

template <typename T>
std::uint32_t RegexWalker<T>::stepGroup(const Node& n, const T*& p) {
    Group& group = stateOf(n);
    const bool isFromHead = std::exchange(isFromHead_, false);
    if (group.isRetreating) {
        return stepRetreat(n, p);
    }
    if (n.isRun && group.count == 0) {
        return n.operandLength == 0 ? stepGroupRun(n, p) : stepChoices(n, p);
    }
    if (group.count != 0 && remembersFailures() && !isFromHead &&
        group.pendingAlternative == regexNone) {
        const std::uint32_t known = meetIteration(n, p);
        if (known != regexNone) {
            return known;
        }
    }
    if (n.savesVisits()) {
        saveVisits(n, p, p, group.count, group.isAccepted, isFromHead);
    }
    const std::uint32_t pending = std::exchange(group.pendingAlternative, regexNone);
    if (group.count != 0) {
        resetInner(n);
        if (group.lastPosition == p) {
            return closeEmptyIteration(n, group);
        }
        if (!n.repeats() && !isAtEndIfItMust(n, p)) {
            return program_->fail();
        }
        group.captureStart = group.lastPosition;
        group.groupEnd = p;
    }
    group.lastPosition = p;
    group.walk = walk_;
    group.isAccepted = group.count >= n.min;
    ++group.count;
    if (group.count <= n.max) {
        entryChoice_ = pending;
        return n.onMatch;
    }
    if (group.groupEnd == nullptr) {
        group.captureStart = group.lastPosition;
    }
    return leaveOutward(n);
}

// All iterations of a group of one unit at once: the last one that was good is its capture.
template <typename T>
std::uint32_t RegexWalker<T>::stepGroupRun(const Node& n, const T*& p) {
    Group& group = stateOf(n);
    const Node& inner = (&n)[1];
    const T* const first = p;
    p = program_->runEnd(inner, p, static_cast<std::size_t>(end_ - p) > n.max ? p + n.max : end_);
    group.count = static_cast<std::uint32_t>(p - first);
    if (p != first) {
        group.captureStart = p - 1;
        group.groupEnd = p;
    }
    return endRun(n, p);
}

// The same where each iteration is one of several texts.
template <typename T>
std::uint32_t RegexWalker<T>::stepChoices(const Node& n, const T*& p) {
    Group& group = stateOf(n);
    const T* end = nullptr;
    while (group.count < n.max && (end = program_->choiceEnd(n, p, end_)) != nullptr) {
        ++group.count;
        group.captureStart = p;
        group.groupEnd = end;
        p = end;
    }
    return endRun(n, p);
}

template <typename T>
std::uint32_t RegexWalker<T>::endRun(const Node& n, const T* p) {
    Group& group = stateOf(n);
    group.walk = walk_;
    group.lastPosition = p;
    group.isAccepted = group.count >= n.min;
    group.pendingAlternative = regexNone;
    if (!group.isAccepted) {
        return retreatToGroup(n);
    }
    if (group.groupEnd == nullptr) {
        group.captureStart = p;
    }
    return leaveOutward(n);
}

// An iteration that consumed nothing is the last: this ends `(a*)*`.
template <typename T>
std::uint32_t RegexWalker<T>::closeEmptyIteration(const Node& n, Group& group) {
    if (group.groupEnd == nullptr) {
        group.captureStart = group.lastPosition;
    }
    if (!group.isAccepted && n.onFail == program_->success()) {
        return program_->fail();
    }
    return leaveOutward(n);
}

// Goes on behind a group. Where that is the group around, its iteration ends well.
template <typename T>
std::uint32_t RegexWalker<T>::leaveOutward(const Node& n) {
    if (n.onFail == n.enclosing && n.isInGroup()) {
        const Node& around = node(n.enclosing);
        Group& group = stateOf(around);
        if (group.count >= around.min) {
            group.isAccepted = true;
        }
    }
    return n.onFail;
}

// Takes an iteration back that failed: at another decision of the same iteration if there is one,
// or else by leaving the group with the iterations before.
template <typename T>
std::uint32_t RegexWalker<T>::stepRetreat(const Node& n, const T*& p) {
    if (!isSaving_ && n.savesInside) {
        isMissing_ = true;
        return program_->fail();
    }
    while (!isWorkedOut_ && !decisions_.empty() && isOwn(n, decisions_.back())) {
        workOutAll();
    }
    Group& group = stateOf(n);
    const bool hasOwn = !decisions_.empty() && isOwn(n, decisions_.back());
    failures_.retreated(indexOf(n), decisions_.size(), group.walk, hasOwn);
    if (hasOwn) {
        return takeDecision(p);
    }
    group.isRetreating = false;
    if (group.count == 0) {
        return program_->fail();  // a decision went into the middle of it
    }
    --group.count;
    p = group.lastPosition;
    if (!isAtEndIfItMust(n, p)) {
        return program_->fail();
    }
    if (group.count < n.min) {
        return retreatToGroup(n);
    }
    if (group.groupEnd == nullptr) {
        group.captureStart = group.lastPosition;
    }
    return leaveOutward(n);
}

template class RegexWalker<char>;
template class RegexWalker<UChar>;

}  // namespace nolk
