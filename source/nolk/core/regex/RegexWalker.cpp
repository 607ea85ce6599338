// The walk. It stands on one node at one position. A step asks the node whether it matches here,
// moves the position on if it does, and goes on at one of the node's successors; it ends on one of
// the two terminal nodes. A group is stepped on when it is entered and each time its inside is
// through, so its step begins an iteration, or ends the last one. An inside that fails leaves the
// group retreating: the group's next step takes the iteration back.
//
// Where one character of look ahead shows two ways, the step saves a decision to take the other way
// later. It is taken when a walk fails, or when the iteration that it was saved in is taken back.
//
// Only groups have a state that outlasts a step. What a plain node counts, it counts within one
// step: that of a repeated node makes all its iterations.
#include <nolk/core/regex/RegexWalker.h>

#include <algorithm>
#include <utility>

namespace nolk {

// ---------------------------------------------------------------- beginning

template <typename T>
void RegexWalker<T>::begin(const RegexProgram<T>& program, const T* base, const T* end) {
    program_ = &program;
    nodes_ = program.nodes.data();
    base_ = base;
    end_ = end;
    groups_.clear();
    groups_.extend(program.subCount);
    choices_.fill(program.alternator.alternations(), 0);
    hadOthers_.fill(program.alternator.alternations(), false);
    rotation_ = 0;
    tried_.begin();
}

template <typename T>
void RegexWalker<T>::beginAttempt() {
    for (Group& group : groups_) {
        group.captureStart = nullptr;
        group.groupEnd = nullptr;
    }
    if (rotation_ != 0) {
        applyRotation(0);
    }
    walkedRotation_ = 0;
    if (!hadOthers_.empty()) {
        std::fill(hadOthers_.begin(), hadOthers_.end(), std::uint8_t{0});
    }
    dropDecisions();
}

template <typename T>
void RegexWalker<T>::dropDecisions() {
    decisions_.clear();
    snapshots_.clear();
    tried_.clear();
    isWorkedOut_ = false;
}

template <typename T>
void RegexWalker<T>::resetGroup(const Node& n, Group& group) {
    group.count = 0;
    group.lastPosition = nullptr;
    group.isAccepted = n.isOptional();
    group.isRetreating = false;
    group.pendingAlternative = regexNone;
}

// As a walk begins: the groups from one number up to another, with the ends of their captures.
template <typename T>
void RegexWalker<T>::resetGroups(std::uint32_t from, std::uint32_t to) {
    for (std::uint32_t i = from; i < to; ++i) {
        resetGroup(nodes_[program_->groupNodes[i]], groups_[i]);
        groups_[i].groupEnd = nullptr;
    }
}

// As an iteration begins: the groups inside.
template <typename T>
void RegexWalker<T>::resetInner(const Node& n) {
    for (std::uint32_t i = n.captureId; i < nodes_[n.innerEnd].groupsFrom; ++i) {
        resetGroup(nodes_[program_->groupNodes[i]], groups_[i]);
    }
}

// ---------------------------------------------------------------- the walk

template <typename T>
const T* RegexWalker<T>::walk(const T* p) {
    resetGroups(0, groups_.size());
    isFromHead_ = false;
    entryChoice_ = regexNone;
    return walkFrom(0, p);
}

template <typename T>
const T* RegexWalker<T>::retry() {
    while (!decisions_.empty()) {
        workOutAll();
        if (decisions_.empty()) {
            break;
        }
        const T* p = nullptr;
        const std::uint32_t i = resume(popDecision(), p);
        if (const T* const end = walkFrom(i, p)) {
            return end;
        }
    }
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

// Whether one character of look ahead allows a node.
template <typename T>
bool RegexWalker<T>::canBegin(std::uint32_t i, const T* p) const {
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
    if (p != first && savesVisits(n)) {
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
    const std::uint32_t first = entry != regexNone ? entry : choices_[n.alternation];
    bool failsAnyway = true;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t alternative = alternator.alternative(
            n.alternation, i + first < count ? i + first : i + first - count);
        if (node(alternative).isOptional() || canBegin(alternative, p)) {
            const bool mayHaveOthers =
                i + 1 < count && (count > fewAlternatives || hasOther(n, p, first, i + 1));
            if (mayHaveOthers) {
                saveAlternatives(n, p, first, i + 1);
            }
            isFromHead_ = true;
            return alternative;
        }
        failsAnyway &= node(alternative).failsUnseen;
    }
    hadOthers_[n.alternation] |= !failsAnyway;
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
        return stepGroupRun(n, p);
    }
    if (savesVisits(n)) {
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
    group.lastPosition = p;
    group.isAccepted = group.count >= n.min;
    group.pendingAlternative = regexNone;
    if (p != first) {
        group.captureStart = p - 1;
        group.groupEnd = p;
    }
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
    while (!decisions_.empty() && isOwn(n, decisions_.back())) {
        if (isWorkedOut_) {
            return resume(popDecision(), p);
        }
        workOutAll();
    }
    Group& group = stateOf(n);
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

// ---------------------------------------------------------------- saving decisions

template <typename T>
std::uint32_t RegexWalker<T>::takeSnapshot(const Node& n) {
    const std::uint32_t snapshot = snapshots_.size();
    Progress* out = snapshots_.extend(chainLength(n));
    for (std::uint32_t i = firstInChain(n); i != program_->fail(); i = node(i).enclosing) {
        *out++ = stateOf(node(i));
    }
    return snapshot;
}

template <typename T>
void RegexWalker<T>::saveVisits(const Node& n, const T* first, const T* last, std::uint32_t count,
                                bool isAccepted, bool isFromHead) {
    const Decision decision{first,     last,  takeSnapshot(n), indexOf(n), regexNone,
                            regexNone, count, Kind::visit,     isAccepted, isFromHead};
    push(decision);
}

template <typename T>
void RegexWalker<T>::saveAlternatives(const Node& head, const T* p, std::uint32_t first,
                                      std::uint32_t seen) {
    const Decision decision{p,    p,     takeSnapshot(head), indexOf(head), regexNone,
                            seen, first, Kind::alternatives, false,         false};
    push(decision);
}

// Most of what is pending leads to nothing, so in a long walk it is worked out to save memory.
template <typename T>
void RegexWalker<T>::push(const Decision& pending) {
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
void RegexWalker<T>::workOutAll() {
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
void RegexWalker<T>::workOut(const Decision& pending) {
    if (pending.kind == Kind::alternatives) {
        workOutAlternatives(pending);
        return;
    }
    const Node& n = node(pending.node);
    workOutVisit(pending, pending.position, pending.count, pending.isAccepted, pending.isFromHead);
    std::uint32_t count = pending.count;
    for (const T* p = pending.position; p != pending.lastPosition;) {
        ++p;
        ++count;
        workOutVisit(pending, p, count, count >= n.min && isAtEndIfItMust(n, p), false);
    }
}

// What one visit saves. Nothing, unless the node can go on itself.
template <typename T>
void RegexWalker<T>::workOutVisit(const Decision& pending, const T* p, std::uint32_t count,
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
void RegexWalker<T>::workOutReopening(const Decision& pending, const T* p) {
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
void RegexWalker<T>::workOutReentry(const Decision& pending, const T* p) {
    const Node& n = node(pending.node);
    const RegexAlternator& alternator = program_->alternator;
    const std::uint32_t alternation = node(n.enclosing + 1).alternation;
    const std::uint32_t count = alternator.alternatives(alternation);
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t number = (i + choices_[alternation]) % count;
        const std::uint32_t alternative = alternator.alternative(alternation, number);
        if (alternative != pending.node &&
            (node(alternative).isOptional() || canBegin(alternative, p))) {
            hadOthers_[alternation] = true;
            save(pending, Kind::reenter, p, n.enclosing, number);
        }
    }
}

// Whether every group that is left on the way has the iterations that it needs.
template <typename T>
void RegexWalker<T>::workOutSkip(const Decision& pending, const T* p) {
    const Node& n = node(pending.node);
    const Node& target = node(n.onSkip);
    if (!target.isOptional() && !canBegin(n.onSkip, p)) {
        return;
    }
    Progress* const progress = snapshots_.data() + pending.snapshot;
    const Progress* around = progress + n.isGroup();
    for (std::uint32_t i = n.enclosing; i != program_->fail() && i != target.enclosing;
         i = node(i).enclosing) {
        if (around++->count < node(i).min) {
            return;
        }
    }
    // A group that is left out tells where.
    if (n.isGroup() && progress->captureStart == nullptr && progress->groupEnd == nullptr) {
        progress->captureStart = p;
    }
    save(pending, Kind::skip, p, n.onSkip, regexNone);
}

template <typename T>
void RegexWalker<T>::workOutAlternatives(const Decision& pending) {
    const Node& head = node(pending.node);
    const RegexAlternator& alternator = program_->alternator;
    const std::uint32_t count = alternator.alternatives(head.alternation);
    for (std::uint32_t i = pending.alternative; i < count; ++i) {
        const std::uint32_t number = (i + pending.count) % count;
        const std::uint32_t alternative = alternator.alternative(head.alternation, number);
        if (node(alternative).isOptional() || canBegin(alternative, pending.position)) {
            hadOthers_[head.alternation] = true;
            save(pending, Kind::alternative, pending.position, alternative, number);
        }
    }
}

template <typename T>
void RegexWalker<T>::save(const Decision& pending, Kind kind, const T* p, std::uint32_t resume,
                          std::uint32_t alternative) {
    Decision decision = pending;
    decision.position = p;
    decision.kind = kind;
    decision.resume = resume;
    decision.alternative = alternative;
    const std::uint32_t depth = chainLength(node(pending.node));
    if (tried_.enter(decision, snapshots_.data() + pending.snapshot, depth)) {
        decisions_.push(decision);
    }
}

// ---------------------------------------------------------------- taking decisions

// Whether a decision was saved inside a group, in the iteration that the group is in.
template <typename T>
bool RegexWalker<T>::isOwn(const Node& group, const Decision& decision) const {
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
typename RegexWalker<T>::Decision RegexWalker<T>::popDecision() {
    const Decision decision = decisions_.back();
    decisions_.pop();
    return decision;
}

// Puts the groups around back to where they were, and those behind to their beginning.
template <typename T>
std::uint32_t RegexWalker<T>::resume(const Decision& decision, const T*& p) {
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
    isFromHead_ = decision.kind == Kind::alternative;
    entryChoice_ = regexNone;
    const Node& target = node(decision.resume);
    std::uint32_t from = target.groupsFrom;
    if (decision.kind == Kind::skip) {
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

// Closes the iterations of the groups from one outward to another, the other left out.
template <typename T>
void RegexWalker<T>::leaveGroups(std::uint32_t from, std::uint32_t to, const T* p) {
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
void RegexWalker<T>::applyRotation(std::uint32_t rotation) {
    const RegexAlternator& alternator = program_->alternator;
    constexpr auto none = RegexAlternator::noChoice;
    for (std::uint32_t i = alternator.rotation(rotation_); i != none;) {
        const auto& choice = alternator.choice(i);
        choices_[choice.alternation] = 0;
        i = choice.outer;
    }
    for (std::uint32_t i = alternator.rotation(rotation); i != none;) {
        const auto& choice = alternator.choice(i);
        choices_[choice.alternation] =
            choice.alternative % alternator.alternatives(choice.alternation);
        i = choice.outer;
    }
    rotation_ = rotation;
}

// A walk under another rotation goes the same way, unless the two choose differently for an
// alternation whose order has mattered.
template <typename T>
bool RegexWalker<T>::nextRotation() {
    const std::uint32_t rotations = program_->alternator.rotations();
    if (rotation_ + 1 >= rotations) {
        return false;
    }
    findOtherAlternatives();
    for (std::uint32_t rotation = rotation_ + 1; rotation < rotations; ++rotation) {
        if (mayDiffer(rotation)) {
            applyRotation(rotation);
            walkedRotation_ = rotation;
            std::fill(hadOthers_.begin(), hadOthers_.end(), std::uint8_t{0});
            dropDecisions();
            for (Group& group : groups_) {
                group.captureStart = nullptr;
                group.groupEnd = nullptr;
            }
            return true;
        }
    }
    return false;
}

template <typename T>
bool RegexWalker<T>::mayDiffer(std::uint32_t rotation) {
    return differsAnywhere(rotation, walkedRotation_) || differsAnywhere(walkedRotation_, rotation);
}

// Whether one rotation makes a choice that matters and that the other doesn't make.
template <typename T>
bool RegexWalker<T>::differsAnywhere(std::uint32_t a, std::uint32_t b) const {
    const RegexAlternator& alternator = program_->alternator;
    for (std::uint32_t i = alternator.rotation(a); i != RegexAlternator::noChoice;) {
        const auto& choice = alternator.choice(i);
        if (hadOthers_[choice.alternation] != 0 && !isChosen(b, choice)) {
            return true;
        }
        i = choice.outer;
    }
    return false;
}

template <typename T>
bool RegexWalker<T>::isChosen(std::uint32_t rotation, const RegexAlternator::Choice& choice) const {
    const RegexAlternator& alternator = program_->alternator;
    for (std::uint32_t i = alternator.rotation(rotation); i != RegexAlternator::noChoice;) {
        const auto& other = alternator.choice(i);
        if (other.alternation == choice.alternation) {
            return other.alternative == choice.alternative;
        }
        i = other.outer;
    }
    return false;
}

// Looks through what a walk has saved without working it out.
template <typename T>
void RegexWalker<T>::findOtherAlternatives() {
    for (const Decision& decision : decisions_) {
        if (decision.kind == Kind::alternatives) {
            const Node& head = node(decision.node);
            hadOthers_[head.alternation] |=
                hasOther(head, decision.position, decision.count, decision.alternative);
        } else if (decision.kind == Kind::visit && node(decision.node).mayReenterAlternation) {
            hadOthers_[node(node(decision.node).enclosing + 1).alternation] = true;
        }
    }
}

// Whether the look ahead allows one of the alternatives from a place in the order on.
template <typename T>
bool RegexWalker<T>::hasOther(const Node& head, const T* p, std::uint32_t first,
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

template class RegexWalker<char>;
template class RegexWalker<UChar>;

}  // namespace nolk
