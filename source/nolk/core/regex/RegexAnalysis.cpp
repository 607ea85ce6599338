#include <nolk/core/regex/RegexAnalysis.h>

#include <algorithm>

namespace nolk {

template <typename T>
void RegexAnalysis<T>::run() {
    findLooks();
    findDecisions();
    findFirstUnits();
    findLinear();
    findLeadingRun();
}

// A group is looked through to its first inner node; an optional one, or none, says yes.
template <typename T>
void RegexAnalysis<T>::findLooks() {
    for (std::uint32_t i = program_.success(); i-- > 0;) {
        RegexStateNode& group = node(i);
        if (!group.isGroup()) {
            group.look = i;
            group.failsUnseen = group.min > 0 && group.kind != RegexNodeKind::head;
            continue;
        }
        const bool isEmpty = group.innerEnd == i + 1;
        const bool isOpen = isEmpty || node(i + 1).isOptional();
        group.look = isOpen ? regexNone : node(i + 1).look;
        // One that must end at the end fails the walk, and not its alternative alone.
        group.failsUnseen =
            group.min > 0 && !isOpen && !group.mustEndAtEnd && node(i + 1).failsUnseen;
    }
}

template <typename T>
void RegexAnalysis<T>::findDecisions() {
    for (std::uint32_t i = 0; i < program_.success(); ++i) {
        RegexStateNode& n = node(i);
        const RegexStateNode& group = node(n.enclosing);
        n.mayReopenGroup = n.repeats() && n.isInGroup() && n.onSkip == group.onSkip;
        n.mayReenterAlternation = n.isAlternativeHead && n.repeats() && n.isLast() &&
                                  n.isInGroup() && group.repeats() &&
                                  node(n.enclosing + 1).kind == RegexNodeKind::head;
        n.mayBeSkipped = mayBeSkipped(n);
        n.isRun = isRun(i);
    }
}

template <typename T>
bool RegexAnalysis<T>::isRun(std::uint32_t i) {
    const RegexStateNode& n = node(i);
    if (!n.isGroup() || n.mustEndAtEnd || n.mayBeSkipped || n.mayReopenGroup ||
        n.mayReenterAlternation) {
        return false;
    }
    if (isTextChoice(i)) {
        addChoices(i);
        return true;
    }
    return n.repeats() && n.innerEnd == i + 2 && isPlainUnit(node(i + 1));
}

// Once, and anywhere.
template <typename T>
bool RegexAnalysis<T>::isPlain(const RegexStateNode& n) {
    return !n.repeats() && !n.isOptional() && !n.mustStartAtBegin && !n.mustEndAtEnd;
}

template <typename T>
bool RegexAnalysis<T>::isPlainUnit(const RegexStateNode& n) {
    return (n.kind == RegexNodeKind::literal || n.kind == RegexNodeKind::set) && isPlain(n);
}

// A group of one alternation of texts. Where none begins with another at most one of them can stand
// at a place, and so their order doesn't matter.
template <typename T>
bool RegexAnalysis<T>::isTextChoice(std::uint32_t i) {
    const std::uint32_t head = i + 1;
    const std::uint32_t end = node(i).innerEnd;
    if (node(head).kind != RegexNodeKind::head || !isPlain(node(head)) ||
        program_.alternator.alternatives(node(head).alternation) != end - head - 1) {
        return false;
    }
    for (std::uint32_t a = head + 1; a < end; ++a) {
        const RegexStateNode& n = node(a);
        const bool isText = n.kind == RegexNodeKind::literal || n.kind == RegexNodeKind::text;
        if (!isText || !n.isAlternativeHead || !isPlain(n)) {
            return false;
        }
        for (std::uint32_t b = head + 1; b < a; ++b) {
            if (!excludeEachOther(n, node(b))) {
                return false;
            }
        }
    }
    return true;
}

template <typename T>
const T* RegexAnalysis<T>::textOf(const RegexStateNode& n, T& unit) const {
    if (n.kind == RegexNodeKind::literal) {
        unit = static_cast<T>(n.operand);
        return &unit;
    }
    return program_.text.data() + n.operand;
}

template <typename T>
bool RegexAnalysis<T>::excludeEachOther(const RegexStateNode& a, const RegexStateNode& b) const {
    T unitOfA{};
    T unitOfB{};
    const T* const textOfA = textOf(a, unitOfA);
    const T* const textOfB = textOf(b, unitOfB);
    const std::uint32_t common = std::min(a.operandLength, b.operandLength);
    return !std::equal(textOfA, textOfA + common, textOfB);
}

template <typename T>
void RegexAnalysis<T>::addChoices(std::uint32_t i) {
    RegexStateNode& group = node(i);
    group.operand = program_.choices.size();
    group.operandLength = group.innerEnd - i - 2;
    for (std::uint32_t j = i + 2; j < group.innerEnd; ++j) {
        T unit{};
        const T first = *textOf(node(j), unit);
        program_.choices.push({first, node(j).operandLength, node(j).operand});
    }
}

template <typename T>
bool RegexAnalysis<T>::mayBeSkipped(const RegexStateNode& n) {
    if (n.onSkip >= program_.success()) {
        return false;
    }
    const RegexStateNode& target = node(n.onSkip);
    if (target.isOptional()) {
        return true;
    }
    const Units here = look(n);
    const Units there = look(target);
    return here.any || there.any || here.low.meets(there.low) || (here.high && there.high);
}

template <typename T>
typename RegexAnalysis<T>::Units RegexAnalysis<T>::look(const RegexStateNode& n) const {
    if (n.look == regexNone) {
        Units all;
        all.any = true;
        return all;
    }
    return unitsOf(program_.nodes[n.look]);
}

template <typename T>
typename RegexAnalysis<T>::Units RegexAnalysis<T>::unitsOf(const RegexStateNode& n) const {
    Units units;
    const auto add = [&units](unsigned value) {
        if (value > 255) {
            units.high = true;
        } else {
            units.low.add(value);
        }
    };
    switch (n.kind) {
        case RegexNodeKind::literal:
            add(n.operand);
            break;
        case RegexNodeKind::text:
            add(RegexUnit<T>::value(program_.text[n.operand]));
            break;
        case RegexNodeKind::set:
            units.low = program_.sets[n.operand].bitmap();
            units.high = program_.sets[n.operand].mayContainHigh();
            break;
        default:
            units.any = true;
            break;
    }
    return units;
}

// Follows every way that leads on without consuming anything, and collects what consumes first.
template <typename T>
void RegexAnalysis<T>::findFirstUnits() {
    isVisited_.assign(program_.nodes.size(), false);
    isLeft_.assign(program_.nodes.size(), false);
    program_.mayBeEmpty = false;
    toVisit_.push_back(0);
    while (!toVisit_.empty()) {
        const std::uint32_t i = toVisit_.back();
        toVisit_.pop_back();
        visit(i);
    }
}

template <typename T>
void RegexAnalysis<T>::visit(std::uint32_t i) {
    if (isVisited_[i] || i == program_.fail()) {
        return;
    }
    isVisited_[i] = true;
    const RegexStateNode& n = node(i);
    switch (n.kind) {
        case RegexNodeKind::success:
            program_.mayBeEmpty = true;
            return;
        case RegexNodeKind::head:
            for (std::uint32_t j = 0; j < program_.alternator.alternatives(n.alternation); ++j) {
                toVisit_.push_back(program_.alternator.alternative(n.alternation, j));
            }
            return;
        case RegexNodeKind::group:
            toVisit_.push_back(n.onMatch);
            break;
        default: {
            const Units units = unitsOf(n);
            program_.firstUnits.addAll(units.low);
            program_.mayBeginHigh |= units.high;
        }
    }
    if (n.min == 0) {
        leave(i);
    }
}

// Where a node leads that has matched nothing. It may lead back to its group, which then ends.
template <typename T>
void RegexAnalysis<T>::leave(std::uint32_t i) {
    while (!isLeft_[i]) {
        isLeft_[i] = true;
        const RegexStateNode& n = node(i);
        toVisit_.push_back(n.onSkip);
        if (n.onFail != n.enclosing || n.onFail == program_.fail()) {
            toVisit_.push_back(n.onFail);
            return;
        }
        i = n.enclosing;
    }
}

// A repeated unit at the beginning, in whatever groups, and behind it a text that can't begin with
// that unit: every match has the text right behind a run of such units.
template <typename T>
void RegexAnalysis<T>::findLeadingRun() {
    std::uint32_t i = 0;
    while (node(i).isGroup() && !node(i).isRun && node(i).max == 1 && node(i).min == 1) {
        ++i;
    }
    const RegexStateNode& run = node(i);
    const bool isGroupRun = run.isRun;
    i += isGroupRun;
    const RegexStateNode& unit = node(i);
    const bool isUnit = unit.kind == RegexNodeKind::literal || unit.kind == RegexNodeKind::set;
    const RegexStateNode& text = node(i + 1 < program_.nodes.size() ? i + 1 : i);
    if (!isUnit || run.min == 0 || run.max != ~0u || text.kind != RegexNodeKind::text ||
        text.mustStartAtBegin || program_.matchesUnit(unit, program_.text[text.operand])) {
        return;
    }
    program_.leadingRun = i;
}

template <typename T>
void RegexAnalysis<T>::findLinear() {
    program_.isLinear =
        program_.subCount == 0 && program_.alternator.alternations() == 0 &&
        std::none_of(program_.nodes.begin(), program_.nodes.end(),
                     [](const RegexStateNode& n) { return n.mayBeSkipped || n.mustEndAtEnd; });
}

template class RegexAnalysis<char>;
template class RegexAnalysis<UChar>;

}  // namespace nolk
