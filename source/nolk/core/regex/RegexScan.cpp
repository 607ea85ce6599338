#include <nolk/core/regex/RegexScan.h>

#include <nolk/core/regex/ByteScan.h>

#include <cstring>

namespace nolk {

template <typename T>
RegexFirstUnits<T>::RegexFirstUnits(const RegexProgram<T>& program)
    : high_(program.mayBeginHigh), set_(program.firstUnits) {
    if (program.mayBeEmpty) {
        return;
    }
    way_ = Way::set;
    if constexpr (!RegexUnit<T>::isWide) {
        const RegexStateNode& first = program.nodes[0];
        if (program.leadingRun != regexNone) {
            way_ = Way::run;
        } else if (first.kind == RegexNodeKind::text) {
            way_ = Way::text;
        } else if (first.kind == RegexNodeKind::literal && first.min > 0) {
            way_ = Way::one;
            one_ = static_cast<char>(first.operand);
        } else {
            regexscan::fillNibbles(set_, nibbles_);
        }
    }
}

// Looks for the text behind the run, and then back to where the run begins.
template <typename T>
const T* RegexFirstUnits<T>::findRun(const RegexProgram<T>& program, const T* p,
                                     const T* end) const {
    if constexpr (!RegexUnit<T>::isWide) {
        const RegexStateNode& unit = program.nodes[program.leadingRun];
        const RegexStateNode& behind = program.nodes[program.leadingRun + 1];
        const T* const text = program.text.data() + behind.operand;
        for (const T* from = p; from != end; ++from) {
            from = regexscan::findText(from, end, text, behind.operandLength);
            const T* start = from;
            while (from != end && start != p && program.matchesUnit(unit, start[-1])) {
                --start;
            }
            if (from == end || start != from) {
                return start;
            }
        }
    }
    return end;
}

template <typename T>
const T* RegexFirstUnits<T>::find(const RegexProgram<T>& program, const T* p, const T* end) const {
    if (way_ == Way::all) {
        return p;
    }
    if constexpr (!RegexUnit<T>::isWide) {
        if (way_ == Way::set) {
            return regexscan::findInSet(p, end, set_, nibbles_);
        }
        if (way_ == Way::run) {
            return findRun(program, p, end);
        }
        if (way_ == Way::text) {
            const RegexStateNode& first = program.nodes[0];
            return regexscan::findText(p, end, program.text.data() + first.operand,
                                       first.operandLength);
        }
        const auto length = static_cast<std::size_t>(end - p);
        const void* const found = length == 0 ? nullptr : std::memchr(p, one_, length);
        return found == nullptr ? end : static_cast<const char*>(found);
    } else {
        for (; p != end; ++p) {
            const unsigned value = RegexUnit<T>::value(*p);
            if (value < 256 ? set_.contains(value) : high_) {
                break;
            }
        }
        return p;
    }
}

template class RegexFirstUnits<char>;
template class RegexFirstUnits<UChar>;

}  // namespace nolk
