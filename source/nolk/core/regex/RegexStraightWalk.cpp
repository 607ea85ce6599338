#include <nolk/core/regex/RegexStraightWalk.h>

namespace nolk {

template <typename T>
const T* RegexStraightWalk<T>::walk(const T* p, RegexResult<T>& result) {
    result_ = &result;
    const T* const end = walkThrough(0, program_.success(), p);
    if (end == nullptr && hasKept_) {
        result.reset(program_.subCount + 1);
    }
    return end;
}

template <typename T>
const T* RegexStraightWalk<T>::walkThrough(std::uint32_t from, std::uint32_t to, const T* p) {
    for (std::uint32_t i = from; p != nullptr && i < to;) {
        const Node& n = nodes_[i++];
        switch (n.kind) {
            case RegexNodeKind::head:
                return n.operandLength != 0 ? program_.choiceEnd(n, p, end_)
                                            : walkAlternatives(i - 1, to, p);
            case RegexNodeKind::group:
                p = n.isRun ? walkRun(n, p) : walkGroup(n, p);
                i = n.innerEnd;
                break;
            case RegexNodeKind::text:
                p = program_.matchesText(n, p, end_) ? p + n.operandLength : nullptr;
                break;
            default:
                p = program_.unitsEnd(n, p, end_);
                break;
        }
    }
    return p;
}

// One iteration. A group that fails is left out if it may be, and tells where.
template <typename T>
const T* RegexStraightWalk<T>::walkGroup(const Node& n, const T* p) {
    const auto i = static_cast<std::uint32_t>(&n - nodes_);
    const T* const end = walkThrough(i + 1, n.innerEnd, p);
    if (end == p || (end == nullptr && n.savesInside)) {
        return giveUp();
    }
    if (end != nullptr) {
        keep(n, p, end);
        return end;
    }
    if (n.min != 0 || isGivenUp_) {
        return nullptr;
    }
    keep(n, p, p);
    return p;
}

// All iterations of a group that is a run: the last one is its capture.
template <typename T>
const T* RegexStraightWalk<T>::walkRun(const Node& n, const T* p) {
    const bool isUnit = n.operandLength == 0;
    const T* last = p;
    std::uint32_t count = 0;
    for (; count < n.max; ++count) {
        const T* const end =
            isUnit ? (canBegin((&n)[1], p) ? p + 1 : nullptr) : program_.choiceEnd(n, p, end_);
        if (end == nullptr) {
            break;
        }
        last = p;
        p = end;
    }
    if (count != 0 || n.min == 0) {
        keep(n, last, p);
    }
    return count < n.min ? nullptr : p;
}

// At most one alternative can begin.
template <typename T>
const T* RegexStraightWalk<T>::walkAlternatives(std::uint32_t head, std::uint32_t to, const T* p) {
    const RegexAlternator& alternator = program_.alternator;
    const std::uint32_t alternation = nodes_[head].alternation;
    const std::uint32_t count = alternator.alternatives(alternation);
    bool failsAnyway = true;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t first = alternator.alternative(alternation, i);
        if (canBegin(nodes_[nodes_[first].look], p)) {
            return walkThrough(first,
                               i + 1 < count ? alternator.alternative(alternation, i + 1) : to, p);
        }
        failsAnyway &= nodes_[first].failsUnseen;
    }
    return failsAnyway ? nullptr : giveUp();
}

template <typename T>
bool RegexStraightWalk<T>::canBegin(const Node& n, const T* p) const {
    return n.kind == RegexNodeKind::text ? program_.matchesText(n, p, end_)
                                         : p != end_ && program_.matchesUnit(n, *p);
}

template <typename T>
const T* RegexStraightWalk<T>::giveUp() {
    isGivenUp_ = true;
    return nullptr;
}

template <typename T>
void RegexStraightWalk<T>::keep(const Node& group, const T* start, const T* end) {
    hasKept_ = true;
    result_->set(group.captureId, static_cast<unsigned>(start - base_),
                 static_cast<unsigned>(end - start));
}

template class RegexStraightWalk<char>;
template class RegexStraightWalk<UChar>;

}  // namespace nolk
