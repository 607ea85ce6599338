#include <nolk/core/regex/RegexNodeBuilder.h>

#include <nolk/core/regex/RegexTables.h>

#include <utility>

namespace nolk {

namespace {

constexpr std::uint32_t unbounded = ~std::uint32_t{0};

}  // namespace

template <typename T>
void RegexNodeBuilder<T>::run() {
    buildNodes();
    setSuccessors();
}

template <typename T>
void RegexNodeBuilder<T>::buildNodes() {
    program_.nodes.reserve(tokens_[tokens_.size() - 1].node + 2);
    for (std::uint32_t i = 0; i + 2 < tokens_.size();) {
        if (tokens_[i].type == Type::setAlternationOpen) {
            i = buildSetAlternation(i);
        } else {
            buildToken(i);
            ++i;
        }
    }
    program_.alternator.finish();
    addTerminals();
}

template <typename T>
void RegexNodeBuilder<T>::buildToken(std::uint32_t i) {
    const RegexToken& token = tokens_[i];
    switch (token.type) {
        case Type::groupOpen:
            openGroup(token);
            break;
        case Type::groupClose:
            closeGroup(i);
            break;
        case Type::alternationOpen:
            openAlternation(token);
            break;
        case Type::alternationClose:
            program_.alternator.close();
            isAlternativePending_ = false;
            break;
        case Type::pipe:
            program_.alternator.nextAlternative();
            isAlternativePending_ = true;
            break;
        case Type::startAnchor:
            isStartPending_ = !program_.isStartAnchored;
            break;
        default:
            if (isRegexAtom(token.type)) {
                buildAtom(token);
                finishNode(program_.nodes.back(), i + 1);
            }
    }
}

template <typename T>
RegexStateNode& RegexNodeBuilder<T>::addNode(RegexNodeKind kind, const RegexToken& token) {
    const auto index = static_cast<std::uint32_t>(program_.nodes.size());
    RegexStateNode& node = program_.nodes.emplace_back();
    node.kind = kind;
    node.next = tokens_[static_cast<std::uint32_t>(token.next)].node;
    if (token.after >= 0) {
        node.after = tokens_[static_cast<std::uint32_t>(token.after)].node;
    }
    node.enclosing = groups_.empty() ? regexNone : groups_.back();
    node.depth = groups_.size();
    node.groupsFrom = program_.subCount;
    node.mustEndAtEnd = token.isEndAnchored && !program_.isEndAnchored;
    if (!groups_.empty()) {
        node.code |= regexInGroupBit;
    }
    if (kind != RegexNodeKind::group) {
        node.mustStartAtBegin = std::exchange(isStartPending_, false);
    }
    if (isAlternativePending_) {
        isAlternativePending_ = false;
        node.isAlternativeHead = true;
        program_.alternator.addAlternative(index);
    }
    return node;
}

template <typename T>
void RegexNodeBuilder<T>::openGroup(const RegexToken& token) {
    const auto index = static_cast<std::uint32_t>(program_.nodes.size());
    RegexStateNode& node = addNode(RegexNodeKind::group, token);
    node.code |= regexGroupBit;
    node.captureId = ++program_.subCount;
    program_.groupNodes.push(index);
    groups_.push(index);
}

template <typename T>
void RegexNodeBuilder<T>::closeGroup(std::uint32_t i) {
    RegexStateNode& group = program_.nodes[groups_.back()];
    groups_.pop();
    group.innerEnd = static_cast<std::uint32_t>(program_.nodes.size());
    finishNode(group, i + 1);
}

template <typename T>
void RegexNodeBuilder<T>::openAlternation(const RegexToken& token) {
    RegexStateNode& head = addNode(RegexNodeKind::head, token);
    head.alternation = program_.alternator.open();
    isAlternativePending_ = true;
}

template <typename T>
void RegexNodeBuilder<T>::buildAtom(const RegexToken& token) {
    if (token.type == Type::literals) {
        buildLiterals(addNode(RegexNodeKind::literal, token), token);
        return;
    }
    RegexStateNode& node = addNode(RegexNodeKind::set, token);
    if (token.type == Type::bracketSet) {
        const T* const open = pattern_ + token.position;
        node.operand = addSet(reader_.set(open, open + token.length - 1));
    } else {
        RegexBracketSet<T> dot;
        for (const unsigned unit : Unit::notInDot) {
            dot.add(static_cast<T>(unit));
        }
        dot.negate();
        dot.finish();
        node.operand = addSet(std::move(dot));
    }
}

template <typename T>
void RegexNodeBuilder<T>::buildLiterals(RegexStateNode& node, const RegexToken& token) {
    const T* p = pattern_ + token.position;
    const T* const end = p + token.length;
    const std::uint32_t first = program_.text.size();
    while (p != end) {
        program_.text.push(reader_.character(p, end));
    }
    node.operandLength = program_.text.size() - first;
    node.operand = first;
    if (node.operandLength == 1) {
        node.operand = Unit::value(program_.text.back());
        program_.text.pop();
    } else {
        node.kind = RegexNodeKind::text;
    }
}

template <typename T>
std::uint32_t RegexNodeBuilder<T>::buildSetAlternation(std::uint32_t open) {
    RegexStateNode& node = addNode(RegexNodeKind::set, tokens_[open]);
    RegexBracketSet<T> set;
    std::uint32_t i = open + 1;
    for (; tokens_[i].type != Type::setAlternationClose; ++i) {
        const T* const first = pattern_ + tokens_[i].position;
        if (tokens_[i].type == Type::bracketSet) {
            set.addSet(reader_.set(first, first + tokens_[i].length - 1));
        } else if (tokens_[i].type == Type::literals) {
            set.add(*first);
        }
    }
    set.finish();
    node.operand = addSet(std::move(set));
    finishNode(node, i + 1);
    return i + 1;
}

template <typename T>
std::uint32_t RegexNodeBuilder<T>::addSet(RegexBracketSet<T> set) {
    program_.sets.push_back(std::move(set));
    return static_cast<std::uint32_t>(program_.sets.size()) - 1;
}

// The cardinality at `behind`, and whether the end of the group or alternative follows.
template <typename T>
void RegexNodeBuilder<T>::finishNode(RegexStateNode& node, std::uint32_t behind) {
    applyCardinality(node, tokens_[behind]);
    while (isRegexCardinality(tokens_[behind].type) || isRegexAnchor(tokens_[behind].type)) {
        ++behind;
    }
    const Type type = tokens_[behind].type;
    const bool endsAlternative = type == Type::pipe || type == Type::alternationClose;
    if (type == Type::groupClose || (endsAlternative && node.isInGroup())) {
        node.code |= regexLastBit;
    }
}

template <typename T>
void RegexNodeBuilder<T>::applyCardinality(RegexStateNode& node, const RegexToken& token) const {
    switch (token.type) {
        case Type::oneOrMore:
            node.max = unbounded;
            node.code |= regexRepeatBit;
            break;
        case Type::zeroOrMore:
            node.min = 0;
            node.max = unbounded;
            node.code |= regexRepeatBit | regexOptionalBit;
            break;
        case Type::optional:
            node.min = 0;
            node.code |= regexOptionalBit;
            break;
        case Type::counted:
            // Not optional, even if it allows none.
            node.code |= regexRepeatBit;
            applyCounts(node, token);
            break;
        default:
            break;
    }
}

template <typename T>
void RegexNodeBuilder<T>::applyCounts(RegexStateNode& node, const RegexToken& token) const {
    const T* const first = pattern_ + token.position + 1;
    const T* const last = first + token.length - 2;
    checkCounts(first, last);
    const T* comma = first;
    while (comma != last && *comma != ',') {
        ++comma;
    }
    node.min = reader_.decimal(first, comma);
    node.max = node.min;
    if (comma != last) {
        const T* field = comma + 1;
        while (field != last && *field == ' ') {
            ++field;
        }
        node.max = field == last ? unbounded : reader_.decimal(field, last);
    }
    if (node.min > node.max) {
        throw RegexFault<T>{regexInvalidCardinalityRange, pattern_ + token.position};
    }
}

// Digits, blanks and commas, and a digit in front of each comma.
template <typename T>
void RegexNodeBuilder<T>::checkCounts(const T* first, const T* last) const {
    bool hasDigit = false;
    for (const T* p = first; p != last; ++p) {
        const bool isDigit = *p >= '0' && *p <= '9';
        hasDigit |= isDigit;
        if (!isDigit && *p != ' ' && (*p != ',' || !hasDigit)) {
            throw RegexFault<T>{regexInvalidCardinalityRange, p};
        }
    }
    if (!hasDigit) {
        throw RegexFault<T>{regexInvalidCardinalityRange, first - 1};
    }
}

template <typename T>
void RegexNodeBuilder<T>::addTerminals() {
    const auto count = static_cast<std::uint32_t>(program_.nodes.size());
    for (RegexStateNode& node : program_.nodes) {
        node.enclosing = node.enclosing == regexNone ? count + 1 : node.enclosing;
        node.after = node.after == regexNone ? count : node.after;
    }
    for (const RegexNodeKind kind : {RegexNodeKind::success, RegexNodeKind::fail}) {
        RegexStateNode& node = program_.nodes.emplace_back();
        node.kind = kind;
        node.enclosing = count + 1;
        node.groupsFrom = program_.subCount;
    }
}

template <typename T>
void RegexNodeBuilder<T>::setSuccessors() {
    const auto find = [this](std::uint32_t i, regextables::Target target) {
        const RegexStateNode& node = program_.nodes[i];
        switch (target) {
            case regextables::Target::self:
                return i;
            case regextables::Target::outer:
                return node.enclosing;
            case regextables::Target::next:
                return node.next;
            case regextables::Target::after:
                return node.after;
            default:
                return program_.fail();
        }
    };
    for (std::uint32_t i = 0; i < program_.success(); ++i) {
        RegexStateNode& node = program_.nodes[i];
        node.onMatch = find(i, regextables::onMatch[node.code]);
        node.onFail = find(i, regextables::onFail[node.code]);
        node.onSkip = find(i, regextables::onSkip[node.code]);
    }
}

template class RegexNodeBuilder<char>;
template class RegexNodeBuilder<UChar>;

}  // namespace nolk
