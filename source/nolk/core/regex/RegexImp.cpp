#include <nolk/core/regex/RegexImp.h>

#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>
#include <nolk/core/regex/RegexCompiler.h>

#include <algorithm>

namespace nolk {

template <typename T>
RegexImp<T>::RegexImp() {
    program_.neverMatches = true;
}

template <typename T>
RegexImp<T>::RegexImp(const T* pattern, unsigned length) {
    pattern_.reserve(length + 1);
    std::copy(pattern, pattern + length, pattern_.extend(length));
    pattern_.push(T());
    RegexCompiler<T>(pattern_.data(), length, program_).compile();
    firstUnits_ = RegexFirstUnits<T>(program_);
}

template <typename T>
RegexImp<T>::RegexImp(const RegexImp& other)
    : pattern_(other.pattern_), program_(other.program_), firstUnits_(other.firstUnits_) {}

template <typename T>
RegexImp<T>& RegexImp<T>::operator=(const RegexImp& other) {
    pattern_ = other.pattern_;
    program_ = other.program_;
    firstUnits_ = other.firstUnits_;
    return *this;
}

template <typename T>
RegexImp<T>::~RegexImp() = default;

template <typename T>
const RegexException& RegexImp<T>::getStatus() {
    static const RegexException noError(
        ExceptionInfo(RegexUnit<T>::file, 0, RegexUnit<T>::function),
        LocalizedMessage(NOLK_CORE_REGEX_NO_ERROR), 0, 0);
    return noError;
}

template <typename T>
int RegexImp<T>::compare(const RegexImp& other) const noexcept {
    const unsigned common = std::min(patternLength(), other.patternLength());
    for (unsigned i = 0; i < common; ++i) {
        const int here = RegexUnit<T>::order(pattern_[i]);
        const int there = RegexUnit<T>::order(other.pattern_[i]);
        if (here != there) {
            return here < there ? -1 : 1;
        }
    }
    return patternLength() < other.patternLength()   ? -1
           : patternLength() > other.patternLength() ? 1
                                                     : 0;
}

// ---------------------------------------------------------------- searching

template <typename T>
bool RegexImp<T>::begin(const T* base, unsigned start, unsigned end, RegexResult<T>& result) {
    result.reset(program_.subCount + 1);
    if (start > end || program_.neverMatches) {
        return false;
    }
    base_ = base;
    end_ = base + end;
    isWalking_ = walksAlways_ || !program_.isStraight;
    if (isWalking_) {
        walker_.begin(program_, base, end_);
    }
    return true;
}

template <typename T>
bool RegexImp<T>::search(const T* base, unsigned start, unsigned end, RegexResult<T>& result) {
    if (!begin(base, start, end, result)) {
        return false;
    }
    if (program_.isStartAnchored) {
        return attempt(base + start, result);
    }
    return searchFrom(base + start, result);
}

template <typename T>
bool RegexImp<T>::matchAt(const T* base, unsigned start, unsigned end, RegexResult<T>& result) {
    return begin(base, start, end, result) && attempt(base + start, result);
}

// Tries every place up to the end itself, but for those where the first unit rules a match out.
template <typename T>
bool RegexImp<T>::searchFrom(const T* p, RegexResult<T>& result) {
    for (;; ++p) {
        if (!program_.mayBeEmpty) {
            p = firstUnits_.find(program_, p, end_);
            if (p == end_) {
                return false;
            }
        }
        if (attempt(p, result)) {
            return true;
        }
        if (p == end_) {
            return false;
        }
    }
}

template <typename T>
bool RegexImp<T>::attempt(const T* p, RegexResult<T>& result) {
    if (!isWalking_) {
        bool found = false;
        if (program_.isSequence ? attemptSequence(p, found, result)
                                : attemptStraight(p, found, result)) {
            return found;
        }
        walker_.begin(program_, base_, end_);
        isWalking_ = true;
    }
    return attemptWalks(p, result);
}

template <typename T>
bool RegexImp<T>::attemptWalks(const T* p, RegexResult<T>& result) {
    // The longest match over the rotations. The first walk of a rotation decides for it; only if
    // that one fails are its decisions taken, and then an empty match isn't taken for one.
    bool found = false;
    const T* best = p;
    walker_.beginAttempt();
    do {
        const T* end = walker_.walk(p);
        bool counts = end != nullptr && (!found || end > best);
        if (end == nullptr) {
            end = walker_.retry();
            counts = end != nullptr && end > best;
        }
        if (counts && (!program_.isEndAnchored || end == end_)) {
            found = true;
            best = end;
            keep(p, end, result);
        }
    } while (best != end_ && walker_.nextRotation());
    return found;
}

// Without groups the ways through the nodes are soon tried. Says whether they decide: few enough.
template <typename T>
bool RegexImp<T>::attemptSequence(const T* p, bool& found, RegexResult<T>& result) const {
    RegexSequence<T> sequence(program_, end_);
    const T* const end = sequence.walk(p);
    if (sequence.isTooLong()) {
        return false;
    }
    found = end != nullptr && (end != p || sequence.isDirect()) &&
            (!program_.isEndAnchored || end == end_);
    if (found) {
        result.set(0, static_cast<unsigned>(p - base_), static_cast<unsigned>(end - p));
    }
    return true;
}

// Says whether the straight way decides.
template <typename T>
bool RegexImp<T>::attemptStraight(const T* p, bool& found, RegexResult<T>& result) const {
    RegexStraightWalk<T> way(program_, base_, end_);
    const T* const end = way.walk(p, result);
    if (end == nullptr) {
        return program_.isLinear && !way.isGivenUp();
    }
    if (program_.isEndAnchored && end != end_) {
        result.reset(program_.subCount + 1);
        return true;
    }
    found = true;
    result.set(0, static_cast<unsigned>(p - base_), static_cast<unsigned>(end - p));
    return true;
}

template <typename T>
void RegexImp<T>::keep(const T* p, const T* end, RegexResult<T>& result) const {
    result.set(0, static_cast<unsigned>(p - base_), static_cast<unsigned>(end - p));
    for (std::uint32_t i = 1; i <= program_.subCount; ++i) {
        const RegexGroupProgress<T>& group = walker_.group(i);
        if (group.captureStart == nullptr) {
            result.set(i, npos, 0);
            continue;
        }
        const bool isClosed = group.groupEnd != nullptr && group.groupEnd > group.captureStart;
        result.set(i, static_cast<unsigned>(group.captureStart - base_),
                   isClosed ? static_cast<unsigned>(group.groupEnd - group.captureStart) : 0);
    }
}

template class RegexImp<char>;
template class RegexImp<UChar>;

}  // namespace nolk
