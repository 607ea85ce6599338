#include <nolk/core/regex/RegexAnalysis.h>

#include <algorithm>

namespace nolk {

template <typename T>
void RegexAnalysis<T>::run() {
    findLooks();
    findDecisions();
    findFirstUnits();
    findStraight();
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
        // Without alternations every group around has begun.
        n.mayReopenGroup = n.repeats() && n.isInGroup() && n.onSkip == group.onSkip &&
                           (group.max > 1 || program_.alternator.alternations() != 0);
        n.mayReenterAlternation = n.isAlternativeHead && n.repeats() && n.isLast() &&
                                  n.isInGroup() && group.repeats() &&
                                  node(n.enclosing + 1).kind == RegexNodeKind::head;
        n.mayBeSkipped = mayBeSkipped(n);
        n.isRun = isRun(i);
        n.isExclusive = n.kind == RegexNodeKind::head && isExclusive(n);
        for (std::uint32_t j = n.savesVisits() ? n.enclosing : program_.fail();
             j != program_.fail() && !node(j).savesInside; j = node(j).enclosing) {
            node(j).savesInside = true;
        }
    }
}

template <typename T>
bool RegexAnalysis<T>::isRun(std::uint32_t i) {
    const RegexStateNode& n = node(i);
    if (!n.isGroup() || n.mustEndAtEnd || n.mayBeSkipped || n.mayReopenGroup ||
        n.mayReenterAlternation) {
        return false;
    }
    if (isTextChoice(i + 1, n.innerEnd)) {
        addChoices(node(i), i + 2, n.innerEnd);
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

// One alternation of texts, up to a node. Where none begins with another at most one of them can
// stand at a place, and so their order doesn't matter.
template <typename T>
bool RegexAnalysis<T>::isTextChoice(std::uint32_t head, std::uint32_t end) {
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
void RegexAnalysis<T>::addChoices(RegexStateNode& choice, std::uint32_t from, std::uint32_t to) {
    choice.operand = program_.choices.size();
    choice.operandLength = 0;
    for (std::uint32_t i = from; i < to; ++i) {
        addChoice(choice, node(i));
    }
}

// Puts a text to those that differ from it in the last unit alone.
template <typename T>
void RegexAnalysis<T>::addChoice(RegexStateNode& node, const RegexStateNode& text) {
    T unit{};
    const T* const units = textOf(text, unit);
    const std::uint32_t last = text.operandLength - 1;
    const unsigned value = RegexUnit<T>::value(units[last]);
    if (value > 255) {
        program_.choices.push({units[0], units[last], text.operandLength, text.operand, {}});
        ++node.operandLength;
        return;
    }
    for (std::uint32_t i = node.operand; i < program_.choices.size(); ++i) {
        RegexChoice<T>& choice = program_.choices[i];
        const T* const others = program_.text.data() + choice.place;
        if (choice.length == text.operandLength &&
            (last == 0 || std::equal(units, units + last, others))) {
            choice.lasts.add(value);
            return;
        }
    }
    program_.choices.push({units[0], T(), text.operandLength, text.operand, {}});
    program_.choices[program_.choices.size() - 1].lasts.add(value);
    ++node.operandLength;
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
    return here.any || there.any || meet(here, there);
}

// Whether a look ahead never allows two alternatives.
template <typename T>
bool RegexAnalysis<T>::isExclusive(const RegexStateNode& head) {
    Units before;
    for (std::uint32_t i = 0; i < program_.alternator.alternatives(head.alternation); ++i) {
        const RegexStateNode& n = node(program_.alternator.alternative(head.alternation, i));
        const Units here = look(n);
        if (n.isOptional() || here.any || (meet(here, before) && !excludesBefore(head, i))) {
            return false;
        }
        before.low.addAll(here.low);
        before.high |= here.high;
    }
    return true;
}

// Whether the look ahead for an alternative rules out those before it.
template <typename T>
bool RegexAnalysis<T>::excludesBefore(const RegexStateNode& head, std::uint32_t last) {
    const auto alternative = [&](std::uint32_t i) -> const RegexStateNode& {
        return node(node(program_.alternator.alternative(head.alternation, i)).look);
    };
    const auto isText = [](const RegexStateNode& n) {
        return n.kind == RegexNodeKind::literal || n.kind == RegexNodeKind::text;
    };
    const RegexStateNode& here = alternative(last);
    const Units units = unitsOf(here);
    for (std::uint32_t i = 0; i < last; ++i) {
        const RegexStateNode& other = alternative(i);
        if (meet(units, unitsOf(other)) &&
            !(isText(here) && isText(other) && excludeEachOther(here, other))) {
            return false;
        }
    }
    return true;
}

template <typename T>
bool RegexAnalysis<T>::meet(const Units& a, const Units& b) {
    return a.low.meets(b.low) || (a.high && b.high);
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
void RegexAnalysis<T>::findStraight() {
    const std::uint32_t end = program_.success();
    if (end != 0 && isTextChoice(0, end)) {
        addChoices(node(0), 1, end);
        program_.isStraight = true;
        program_.isLinear = true;
        return;
    }
    program_.isStraight = isStraight(0, end, end);
    const bool saves = std::any_of(program_.nodes.begin(), program_.nodes.end(),
                                   [](const RegexStateNode& n) { return n.savesVisits(); });
    program_.isLinear = program_.isStraight && !saves;
    program_.isSequence = program_.isStraight && saves && program_.subCount == 0 &&
                          program_.alternator.alternations() == 0;
}

// Whether the nodes follow one another and lead to a node then.
template <typename T>
bool RegexAnalysis<T>::isStraight(std::uint32_t from, std::uint32_t to, std::uint32_t outer) {
    for (std::uint32_t i = from; i < to;) {
        const RegexStateNode& n = node(i);
        if (n.mustEndAtEnd || n.mustStartAtBegin) {
            return false;
        }
        if (n.kind == RegexNodeKind::head) {
            return i == from && isStraightChoice(i, to, outer);
        }
        const std::uint32_t next = n.isGroup() ? n.innerEnd : i + 1;
        if (next > to || !leadsTo(i, next < to ? next : outer) ||
            (n.isGroup() && !n.isRun && !isStraightGroup(i))) {
            return false;
        }
        i = next;
    }
    return true;
}

// The straight walk calls itself for each group inside another, and so does this.
template <typename T>
bool RegexAnalysis<T>::isStraightGroup(std::uint32_t i) {
    constexpr unsigned mostNested = 50;
    const RegexStateNode& n = node(i);
    if (nested_ == mostNested || n.max != 1 || n.repeats() || n.innerEnd == i + 1 ||
        n.onMatch != i + 1) {
        return false;
    }
    ++nested_;
    const bool isInnerStraight = isStraight(i + 1, n.innerEnd, i);
    --nested_;
    return isInnerStraight;
}

template <typename T>
bool RegexAnalysis<T>::isStraightChoice(std::uint32_t head, std::uint32_t to, std::uint32_t outer) {
    const RegexAlternator& alternator = program_.alternator;
    const std::uint32_t alternation = node(head).alternation;
    const std::uint32_t count = alternator.alternatives(alternation);
    if (!node(head).isExclusive || !isPlain(node(head)) || count == 0) {
        return false;
    }
    std::uint32_t from = head + 1;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t end = i + 1 < count ? alternator.alternative(alternation, i + 1) : to;
        if (alternator.alternative(alternation, i) != from || end <= from || end > to ||
            node(node(from).look).kind == RegexNodeKind::head || !isStraight(from, end, outer)) {
            return false;
        }
        from = end;
    }
    return true;
}

// Whether a node that has matched, or need not, leads to another.
template <typename T>
bool RegexAnalysis<T>::leadsTo(std::uint32_t i, std::uint32_t target) {
    const RegexStateNode& n = node(i);
    if (n.isGroup()) {
        return n.onFail == target;
    }
    return (!n.isLast() || n.enclosing == target) && (n.repeats() || n.onMatch == target) &&
           (n.onFail == target || (!n.repeats() && n.min != 0));
}

template class RegexAnalysis<char>;
template class RegexAnalysis<UChar>;

}  // namespace nolk
