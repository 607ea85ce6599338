#include <nolk/core/regex/RegexSequence.h>

#include <algorithm>

namespace nolk {

template <typename T>
const T* RegexSequence<T>::walk(const T* p) {
    const Node* n = nodes_;
    while (n->kind != RegexNodeKind::success) {
        const T* const end = step(*n, p);
        if (end != nullptr) {
            p = end;
            ++n;
            continue;
        }
        n = isTooLong_ ? nullptr : giveBack(p);
        if (n == nullptr) {
            return nullptr;
        }
    }
    return p;
}

template <typename T>
const T* RegexSequence<T>::step(const Node& n, const T* p) {
    if (n.kind == RegexNodeKind::text) {
        return program_.matchesText(n, p, end_) ? p + n.operandLength : nullptr;
    }
    const T* const end = program_.unitsEnd(n, p, end_);
    if (n.mayBeSkipped && end != nullptr) {
        keep(n, p, end);
        return isTooLong_ ? nullptr : end;
    }
    return end;
}

// Only an optional node may give back all of its units: `{0,}` is none.
template <typename T>
void RegexSequence<T>::keep(const Node& n, const T* p, const T* end) {
    const std::uint32_t least = n.isOptional() ? 0 : std::max(n.min, 1u);
    if (static_cast<std::size_t>(end - p) <= least) {
        return;
    }
    if (depth_ == mostRuns) {
        isTooLong_ = true;
        return;
    }
    runs_[depth_++] = {&n, p + least, end};
}

// Takes back as few units as let the next node begin. @return that node, or null
template <typename T>
const RegexStateNode* RegexSequence<T>::giveBack(const T*& p) {
    for (; depth_ != 0; --depth_) {
        Run& run = runs_[depth_ - 1];
        const Node& next = run.node[1];
        while (run.end != run.least) {
            --run.end;
            if (!mayGoOn(next, run.end)) {
                continue;
            }
            isTooLong_ = ++steps_ > mostSteps;
            p = run.end;
            return isTooLong_ ? nullptr : &next;
        }
    }
    return nullptr;
}

template <typename T>
bool RegexSequence<T>::mayGoOn(const Node& n, const T* p) const {
    return n.isOptional() ||
           (n.kind == RegexNodeKind::text ? program_.matchesText(n, p, end_)
                                          : p != end_ && program_.matchesUnit(n, *p));
}

template class RegexSequence<char>;
template class RegexSequence<UChar>;

}  // namespace nolk
