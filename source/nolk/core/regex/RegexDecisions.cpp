// Where one character of look ahead shows two ways, the walk saves a decision to take the other way
// later. It is taken when a walk fails, or when the iteration that it was saved in is taken back.
//
// A search that saves very many decisions remembers how they fail. What follows a decision is then
// walked once for each state (RegexFailures) and not once for each way that leads there.
#include <nolk/core/regex/RegexDecisions.h>

#include <algorithm>

namespace nolk {

// ---------------------------------------------------------------- beginning

template <typename T>
void RegexDecisions<T>::begin(const RegexProgram<T>& program, const T* base, const T* end) {
    program_ = &program;
    nodes_ = program.nodes.data();
    base_ = base;
    end_ = end;
    groups_.clear();
    groups_.extend(program.subCount);
    rotations_.begin(program.alternator);
    tried_.begin();
    failures_.begin();
    probe_ = nullptr;
}

template <typename T>
void RegexDecisions<T>::beginAttempt() {
    dropCaptures();
    rotations_.beginAttempt();
    dropDecisions();
}

template <typename T>
void RegexDecisions<T>::dropCaptures() {
    for (Group& group : groups_) {
        group.captureStart = nullptr;
        group.groupEnd = nullptr;
    }
}

template <typename T>
void RegexDecisions<T>::dropDecisions() {
    decisions_.clear();
    snapshots_.clear();
    tried_.clear();
    failures_.dropOpen();
    walk_ = 0;
    isWorkedOut_ = false;
}

// As a walk begins: the groups from one number up to another, with the ends of their captures.
template <typename T>
void RegexDecisions<T>::resetGroups(std::uint32_t from, std::uint32_t to) {
    for (std::uint32_t i = from; i < to; ++i) {
        resetGroup(nodes_[program_->groupNodes[i]], groups_[i]);
        groups_[i].groupEnd = nullptr;
    }
}

// As an iteration begins: the groups inside.
template <typename T>
void RegexDecisions<T>::resetInner(const Node& n) {
    for (std::uint32_t i = n.captureId; i < nodes_[n.innerEnd].groupsFrom; ++i) {
        resetGroup(nodes_[program_->groupNodes[i]], groups_[i]);
    }
}

// ---------------------------------------------------------------- saving decisions

template <typename T>
std::uint32_t RegexDecisions<T>::takeSnapshot(const Node& n) {
    const std::uint32_t snapshot = snapshots_.size();
    Progress* out = snapshots_.extend(chainLength(n));
    for (std::uint32_t i = firstInChain(n); i != program_->fail(); i = node(i).enclosing) {
        *out++ = stateOf(node(i));
    }
    return snapshot;
}

template <typename T>
void RegexDecisions<T>::saveVisits(const Node& n, const T* first, const T* last,
                                   std::uint32_t count, bool isAccepted, bool isFromHead) {
    if (!isSaving_ && !n.mayReenterAlternation) {
        isMissing_ = true;
        return;
    }
    const Decision decision{first,     last,  takeSnapshot(n), indexOf(n), regexNone,
                            regexNone, count, Kind::visit,     isAccepted, isFromHead};
    push(decision);
}

template <typename T>
void RegexDecisions<T>::saveAlternatives(const Node& head, const T* p, std::uint32_t first,
                                         std::uint32_t seen) {
    const Decision decision{p,    p,     takeSnapshot(head), indexOf(head), regexNone,
                            seen, first, Kind::alternatives, false,         false};
    push(decision);
}

// Most of what is pending leads to nothing, so in a long walk it is worked out to save memory.
template <typename T>
void RegexDecisions<T>::push(const Decision& pending) {
    if (!isWorkedOut_ && decisions_.size() < mostPending) {
        decisions_.push(pending);
        return;
    }
    workOutAll();
    const std::uint32_t before = decisions_.size();
    workOut(pending);
    if (decisions_.size() == before) {
        snapshots_.truncate(pending.snapshot);
    }
}

template <typename T>
void RegexDecisions<T>::workOutAll() {
    if (isWorkedOut_) {
        return;
    }
    isWorkedOut_ = true;
    pending_.assign(decisions_.data(), decisions_.size());
    decisions_.clear();
    for (const Decision& pending : pending_) {
        workOut(pending);
    }
}

template <typename T>
void RegexDecisions<T>::workOut(const Decision& pending) {
    if (pending.kind == Kind::alternatives) {
        workOutAlternatives(pending);
        return;
    }
    workOutVisit(pending, pending.position, pending.count, pending.isAccepted, pending.isFromHead);
    const T* const last = remembersFailures() && pending.position != pending.lastPosition &&
                                  isEvenRow(node(pending.node))
                              ? skipFailures(pending)
                              : pending.lastPosition;
    for (const T* p = pending.position; p != last;) {
        workOutVisit(pending, ++p);
    }
}

template <typename T>
void RegexDecisions<T>::workOutVisit(const Decision& pending, const T* p) {
    const Node& n = node(pending.node);
    const auto count = static_cast<std::uint32_t>(p - pending.position) + pending.count;
    workOutVisit(pending, p, count, count >= n.min && isAtEndIfItMust(n, p), false);
}

// Whether all visits in a row but the first are alike.
template <typename T>
bool RegexDecisions<T>::isEvenRow(const Node& n) const {
    if (n.min > 1 || n.max != ~0u || n.mustEndAtEnd) {
        return false;
    }
    std::uint32_t i = n.enclosing;
    while (i != program_->fail() && node(i).max == ~0u) {
        i = node(i).enclosing;
    }
    return i == program_->fail();
}

// Finds the last visit of a row that needs to be worked out: those behind it save nothing, or what
// is known to fail outright. It does so too if it isn't the only one, and stands for all of them
// then, since they would be taken one after the other and lead nowhere.
template <typename T>
const T* RegexDecisions<T>::skipFailures(const Decision& pending) {
    tellRow(pending);
    const std::uint32_t place = failures_.place();
    const T* from = place == RegexFailures::unknown ? pending.lastPosition + 1 : base_ + place;
    for (const T* p = from; --p > pending.position;) {
        const Probe probe = probeVisit(pending, p);
        if (!probe.fails) {
            break;
        }
        if (probe.saves) {
            from = p;
        }
    }
    if (from > pending.lastPosition) {
        return pending.lastPosition;
    }
    tellRow(pending);
    failures_.place() = static_cast<std::uint32_t>(from - base_);
    rotations_.allOrdersMattered();
    return std::max(from, pending.position);
}

// What a visit would save.
template <typename T>
typename RegexDecisions<T>::Probe RegexDecisions<T>::probeVisit(const Decision& pending,
                                                                const T* p) {
    Probe probe;
    probe_ = &probe;
    workOutVisit(pending, p);
    probe_ = nullptr;
    return probe;
}

// What one visit saves. Nothing, unless the node can go on itself.
template <typename T>
void RegexDecisions<T>::workOutVisit(const Decision& pending, const T* p, std::uint32_t count,
                                     bool isAccepted, bool isFromHead) {
    const Node& n = node(pending.node);
    if (!canBegin(pending.node, p)) {
        return;
    }
    if (n.mayReopenGroup && count >= n.min && count < n.max && !isFromHead) {
        workOutReopening(pending, p);
    }
    if (n.mayReenterAlternation && count != 0 && isAccepted) {
        workOutReentry(pending, p);
    }
    if (n.mayBeSkipped && isAccepted) {
        workOutSkip(pending, p);
    }
}

// The groups that end along with the node, if all of them may be repeated: each may be closed here,
// innermost last, as long as those inside it have the iterations that they need.
template <typename T>
void RegexDecisions<T>::workOutReopening(const Decision& pending, const T* p) {
    const Node& n = node(pending.node);
    const Progress* progress = snapshots_.data() + pending.snapshot + n.isGroup();
    RegexArray<std::uint32_t, 16> closing;
    bool isComplete = true;
    for (std::uint32_t i = n.enclosing; i != program_->fail() && node(i).onSkip == n.onSkip;
         i = node(i).enclosing) {
        const std::uint32_t count = progress++->count;
        if (count >= node(i).max) {
            return;
        }
        isComplete = isComplete && count >= node(i).min;
        if (isComplete) {
            closing.push(i);
        }
    }
    for (; !closing.empty(); closing.pop()) {
        save(pending, Kind::reopen, p, closing.back(), regexNone);
    }
}

template <typename T>
void RegexDecisions<T>::workOutReentry(const Decision& pending, const T* p) {
    const Node& n = node(pending.node);
    const RegexAlternator& alternator = program_->alternator;
    const std::uint32_t alternation = node(n.enclosing + 1).alternation;
    const std::uint32_t count = alternator.alternatives(alternation);
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t number = (i + rotations_.choice(alternation)) % count;
        const std::uint32_t alternative = alternator.alternative(alternation, number);
        if (alternative != pending.node &&
            (node(alternative).isOptional() || canBegin(alternative, p))) {
            rotations_.orderMattered(alternation);
            save(pending, Kind::reenter, p, n.enclosing, number);
        }
    }
}

// Whether every group that is left on the way has the iterations that it needs.
template <typename T>
void RegexDecisions<T>::workOutSkip(const Decision& pending, const T* p) {
    const Node& n = node(pending.node);
    const Node& target = node(n.onSkip);
    if (!target.isOptional() && !canBegin(n.onSkip, p)) {
        return;
    }
    const Progress* around = snapshots_.data() + pending.snapshot + n.isGroup();
    for (std::uint32_t i = n.enclosing; i != program_->fail() && i != target.enclosing;
         i = node(i).enclosing) {
        if (around++->count < node(i).min) {
            return;
        }
    }
    save(pending, Kind::skip, p, n.onSkip, regexNone);
}

template <typename T>
void RegexDecisions<T>::workOutAlternatives(const Decision& pending) {
    const Node& head = node(pending.node);
    const RegexAlternator& alternator = program_->alternator;
    const std::uint32_t count = alternator.alternatives(head.alternation);
    for (std::uint32_t i = pending.alternative; i < count; ++i) {
        const std::uint32_t number = (i + pending.count) % count;
        const std::uint32_t alternative = alternator.alternative(head.alternation, number);
        if (node(alternative).isOptional() || canBegin(alternative, pending.position)) {
            rotations_.orderMattered(head.alternation);
            save(pending, Kind::alternative, pending.position, alternative, number);
        }
    }
}

template <typename T>
void RegexDecisions<T>::save(const Decision& pending, Kind kind, const T* p, std::uint32_t resume,
                             std::uint32_t alternative) {
    Decision decision = pending;
    decision.position = p;
    decision.kind = kind;
    decision.resume = resume;
    decision.alternative = alternative;
    if (probe_ != nullptr) {
        tellState(decision);
        probe_->saves = true;
        probe_->fails &= failures_.outcome() == RegexFailures::outright;
        return;
    }
    const std::uint32_t depth = chainLength(node(pending.node));
    if (tried_.enter(decision, snapshots_.data() + pending.snapshot, depth)) {
        decisions_.push(decision);
    }
}

// ---------------------------------------------------------------- taking decisions

// Whether a decision was saved inside a group, in the iteration that the group is in.
template <typename T>
bool RegexDecisions<T>::isOwn(const Node& group, const Decision& decision) const {
    const Node& n = node(decision.node);
    if (decision.node <= indexOf(group) || decision.node >= group.innerEnd) {
        return false;
    }
    const std::uint32_t place = n.depth - group.depth - 1 + n.isGroup();
    const Progress& then = snapshots_[decision.snapshot + place];
    const Group& now = groups_[group.captureId - 1];
    return then.count == now.count && then.lastPosition == now.lastPosition;
}

template <typename T>
typename RegexDecisions<T>::Decision RegexDecisions<T>::popDecision() {
    const Decision decision = decisions_.back();
    decisions_.pop();
    return decision;
}

// Goes on at the last decision, or right where it is known to end.
template <typename T>
std::uint32_t RegexDecisions<T>::takeDecision(const T*& p) {
    const Decision decision = popDecision();
    ++walk_;
    auto outcome = RegexFailures::unknown;
    if (remembersFailures()) {
        tellState(decision);
        outcome = failures_.open(decisions_.size(), walk_);
    }
    const std::uint32_t i = resume(decision, p);
    return outcome == RegexFailures::unknown ? i : meet(outcome);
}

// The same for a walk that comes to a group again, which is as if it had saved that.
template <typename T>
std::uint32_t RegexDecisions<T>::meetIteration(const Node& n, const T* p) {
    beginState(Kind::reopen, p, indexOf(n), regexNone);
    for (std::uint32_t i = indexOf(n); i != program_->fail(); i = node(i).enclosing) {
        addGroup(node(i), stateOf(node(i)), p);
    }
    const RegexFailures::Outcome outcome = failures_.open(decisions_.size(), ++walk_);
    return outcome == RegexFailures::unknown ? regexNone : meet(outcome);
}

// Goes to where a way ends that isn't walked again.
template <typename T>
std::uint32_t RegexDecisions<T>::meet(RegexFailures::Outcome outcome) {
    rotations_.allOrdersMattered();  // as they may have on that way
    isFromHead_ = false;
    entryChoice_ = regexNone;
    if (outcome == RegexFailures::outright) {
        return program_->fail();
    }
    stateOf(node(outcome)).isRetreating = true;
    return outcome;
}

// What the walk from a decision hangs on, until it goes back into an iteration of the groups
// around.
template <typename T>
void RegexDecisions<T>::tellState(const Decision& decision) {
    const bool beginsIteration = decision.kind == Kind::reopen || decision.kind == Kind::reenter;
    const T* const p = decision.position;
    const Node& n = node(decision.node);
    const Progress* const outermost = snapshots_.data() + decision.snapshot + chainLength(n) - 1;
    beginState(decision.kind, p, decision.resume, decision.alternative);
    for (std::uint32_t i = beginsIteration ? decision.resume : node(decision.resume).enclosing;
         i != program_->fail(); i = node(i).enclosing) {
        addGroup(node(i), *(outermost - node(i).depth), p);
    }
}

template <typename T>
void RegexDecisions<T>::beginState(Kind kind, const T* p, std::uint32_t resume,
                                   std::uint32_t alternative) {
    failures_.beginState();
    failures_.addWord(static_cast<std::uint32_t>(end_ - p));
    failures_.addWord(resume);
    failures_.addWord(static_cast<std::uint32_t>(kind));
    failures_.addWord(alternative);
    failures_.addWord(rotations_.current());
}

// Of iterations as many as make a difference, and whether the current one is empty so far.
template <typename T>
void RegexDecisions<T>::addGroup(const Node& group, const Progress& progress, const T* p) {
    const auto left = static_cast<std::uint32_t>(end_ - p);
    failures_.addWord(countThatMatters(group, progress.count, left));
    failures_.addWord(progress.count != 0 && progress.lastPosition == p);
}

// A row of visits in groups without bounds: one differs from the next by its position alone.
template <typename T>
void RegexDecisions<T>::tellRow(const Decision& pending) {
    const Node& n = node(pending.node);
    const Progress* progress = snapshots_.data() + pending.snapshot;
    failures_.beginState();
    failures_.addWord(static_cast<std::uint32_t>(end_ - pending.lastPosition));
    failures_.addWord(pending.node);
    failures_.addWord(static_cast<std::uint32_t>(Kind::visit));
    failures_.addWord(rotations_.current());
    for (std::uint32_t i = n.enclosing; i != program_->fail(); i = node(i).enclosing) {
        failures_.addWord(countThatMatters(node(i), progress++->count, 0));
    }
}

// Iterations, where `left` units can be consumed yet: beyond the bounds one more makes no
// difference.
template <typename T>
std::uint32_t RegexDecisions<T>::countThatMatters(const Node& group, std::uint32_t count,
                                                  std::uint32_t left) {
    const bool mayEnd = std::uint64_t{count} + left + 2 > group.max;
    const bool isUnbounded = group.max == ~0u;
    return mayEnd && !isUnbounded ? count : std::min(count, std::max(group.min, group.min + 1));
}

// Puts the groups around back to where they were, and those behind to their beginning.
template <typename T>
std::uint32_t RegexDecisions<T>::resume(const Decision& decision, const T*& p) {
    const Node& n = node(decision.node);
    const Progress* progress = snapshots_.data() + decision.snapshot;
    for (std::uint32_t i = firstInChain(n); i != program_->fail(); i = node(i).enclosing) {
        Group& group = stateOf(node(i));
        static_cast<Progress&>(group) = *progress++;
        group.isAccepted = group.count == 0 ? node(i).isOptional() : group.count > node(i).min;
        group.isRetreating = false;
        group.pendingAlternative = regexNone;
    }
    p = decision.position;
    isFromHead_ = false;
    entryChoice_ = regexNone;
    const Node& target = node(decision.resume);
    std::uint32_t from = target.groupsFrom;
    if (decision.kind == Kind::skip) {
        tellLeftOut(n, p);
        leaveGroups(firstInChain(n), target.enclosing, p);
    } else if (decision.kind != Kind::alternative) {
        leaveGroups(firstInChain(n), decision.resume, p);
        Group& group = stateOf(target);
        group.isAccepted = group.count >= target.min;
        group.pendingAlternative = decision.alternative;
        from = target.captureId;
    }
    resetGroups(from, groups_.size());
    // What no decision needs any more.
    const std::uint32_t kept =
        decisions_.empty() ? 0
                           : decisions_.back().snapshot + chainLength(node(decisions_.back().node));
    snapshots_.truncate(std::min(kept, snapshots_.size()));
    return decision.resume;
}

// A group that is left out tells where.
template <typename T>
void RegexDecisions<T>::tellLeftOut(const Node& n, const T* p) {
    if (n.isGroup() && stateOf(n).captureStart == nullptr && stateOf(n).groupEnd == nullptr) {
        stateOf(n).captureStart = p;
    }
}

// Closes the iterations of the groups from one outward to another, the other left out.
template <typename T>
void RegexDecisions<T>::leaveGroups(std::uint32_t from, std::uint32_t to, const T* p) {
    for (std::uint32_t i = from; i != to && i != program_->fail(); i = node(i).enclosing) {
        Group& group = stateOf(node(i));
        if (group.count != 0) {
            group.captureStart = group.lastPosition;
            group.groupEnd = p;
        }
    }
}

// ---------------------------------------------------------------- rotations

template <typename T>
bool RegexDecisions<T>::nextRotation() {
    if (rotations_.isLast()) {
        return false;
    }
    findOtherAlternatives();
    if (!rotations_.next()) {
        return false;
    }
    dropDecisions();
    dropCaptures();
    return true;
}

// Looks through what a walk has saved without working it out.
template <typename T>
void RegexDecisions<T>::findOtherAlternatives() {
    for (const Decision& decision : decisions_) {
        if (decision.kind == Kind::alternatives) {
            const Node& head = node(decision.node);
            rotations_.orderMattered(
                head.alternation,
                hasOther(head, decision.position, decision.count, decision.alternative));
        } else if (decision.kind == Kind::visit && node(decision.node).mayReenterAlternation) {
            rotations_.orderMattered(node(node(decision.node).enclosing + 1).alternation);
        }
    }
}

// Whether the look ahead allows one of the alternatives from a place in the order on.
template <typename T>
bool RegexDecisions<T>::hasOther(const Node& head, const T* p, std::uint32_t first,
                                 std::uint32_t i) const {
    const RegexAlternator& alternator = program_->alternator;
    const std::uint32_t count = alternator.alternatives(head.alternation);
    for (; i < count; ++i) {
        const std::uint32_t number = i + first < count ? i + first : i + first - count;
        const std::uint32_t alternative = alternator.alternative(head.alternation, number);
        if (node(alternative).isOptional() || canBegin(alternative, p)) {
            return true;
        }
    }
    return false;
}

template class RegexDecisions<char>;
template class RegexDecisions<UChar>;

}  // namespace nolk
