// Compiles a pattern in passes. What becomes of `x(a|bc)+` on the way:
//
//   characters   x  (  a  |  b  c  )  +
//   marks           (  4  |        )         and 5 on the `)`
//   tokens       9  1  4  9  3  9  5  2  11  0  0
//   nodes        0  1  2  3     4               5 6   literal, group, head, literal, text, ends
#include <nolk/core/regex/RegexCompiler.h>

#include <nolk/core/ExceptionInfo.h>
#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/RegexException.h>
#include <nolk/core/regex/RegexAnalysis.h>
#include <nolk/core/regex/RegexPatternReader.h>
#include <nolk/core/regex/RegexTables.h>

#include <source_location>
#include <utility>

namespace nolk {

namespace {

constexpr std::uint32_t unbounded = ~std::uint32_t{0};

// What a character outside sets becomes, if it isn't a literal.
constexpr RegexTokenType typeOf(unsigned character) {
    switch (character) {
        case '(':
            return RegexTokenType::groupOpen;
        case ')':
            return RegexTokenType::groupClose;
        case '|':
            return RegexTokenType::pipe;
        case '[':
            return RegexTokenType::bracketSet;
        case '^':
            return RegexTokenType::startAnchor;
        case '$':
            return RegexTokenType::endAnchor;
        case '.':
            return RegexTokenType::anyCharacter;
        case '+':
            return RegexTokenType::oneOrMore;
        case '*':
            return RegexTokenType::zeroOrMore;
        case '?':
            return RegexTokenType::optional;
        case '{':
            return RegexTokenType::counted;
        case '}':
            return RegexTokenType::end;
        default:
            return RegexTokenType::literals;
    }
}

}  // namespace

template <typename T>
RegexCompiler<T>::RegexCompiler(const T* pattern, std::uint32_t length, RegexProgram<T>& program)
    : pattern_(pattern), length_(length), program_(program) {}

template <typename T>
void RegexCompiler<T>::compile() {
    try {
        if (markPipes()) {
            markParentheses();
            markAlternationStarts();
            markAlternationEnds();
        }
        tokenize();
        dropStrayAlternations();
        joinSetAlternations();
        collectTargets();
        linkTokens();
        numberNodes();
        findStartAnchors();
        findEndAnchors();
        buildNodes();
        setSuccessors();
        RegexAnalysis<T>(program_).run();
    } catch (const RegexFault<T>& fault) {
        regexThrow(fault.code, fault.position);
    }
}

template <typename T>
void RegexCompiler<T>::regexThrow(unsigned code, const T* position) const {
    const unsigned long line = std::source_location::current().line();
    throw RegexException(ExceptionInfo(Unit::file, line, Unit::function),
                         LocalizedMessage(*regextables::messages[code]), code,
                         static_cast<unsigned>(position - pattern_));
}

// ---------------------------------------------------------------- passes over the characters

// Looks at one character only: the `|` of `\\|` counts as escaped.
template <typename T>
bool RegexCompiler<T>::isUnescaped(std::uint32_t position, char character) const {
    return pattern_[position] == static_cast<T>(character) &&
           (position == 0 || pattern_[position - 1] != '\\');
}

template <typename T>
bool RegexCompiler<T>::markPipes() {
    bool found = false;
    marks_.fill(length_ + 1, 0);
    for (std::uint32_t i = 0; i < length_; ++i) {
        if (isUnescaped(i, '|')) {
            marks_[i] = pipeMark;
            found = true;
        }
    }
    return found;
}

template <typename T>
void RegexCompiler<T>::markParentheses() {
    for (std::uint32_t i = 0; i < length_; ++i) {
        if (isUnescaped(i, '(')) {
            marks_[i] = openMark;
        } else if (isUnescaped(i, ')')) {
            marks_[i] = closeMark;
        }
    }
}

// Backward, with a stack that tells for each open group whether it has a pipe of its own.
template <typename T>
void RegexCompiler<T>::markAlternationStarts() {
    groups_.fill(1, false);
    for (std::uint32_t i = length_; i-- > 0;) {
        if ((marks_[i] & closeMark) != 0) {
            groups_.push(false);
        } else if ((marks_[i] & pipeMark) != 0) {
            groups_.back() = true;
        } else if ((marks_[i] & openMark) != 0) {
            if (groups_.back() != 0) {
                marks_[i + 1] |= alternationOpenMark;
            }
            if (groups_.size() == 1) {
                throwAt(regexMissingClosingParen, i);
            }
            groups_.pop();
        }
    }
    if (groups_[0] != 0) {
        std::uint32_t first = 0;
        while (pattern_[first] == '^') {
            ++first;
        }
        marks_[first] |= alternationOpenMark;
    }
}

template <typename T>
void RegexCompiler<T>::markAlternationEnds() {
    groups_.fill(1, false);
    for (std::uint32_t i = 0; i < length_; ++i) {
        if ((marks_[i] & openMark) != 0) {
            groups_.push(false);
        } else if ((marks_[i] & pipeMark) != 0) {
            groups_.back() = true;
        } else if ((marks_[i] & closeMark) != 0) {
            if (groups_.back() != 0) {
                marks_[i] |= alternationCloseMark;
            }
            if (groups_.size() == 1) {
                throwAt(regexUnmatchedClosingParen, i);
            }
            groups_.pop();
        }
    }
    if (groups_[0] != 0) {
        marks_[length_] |= alternationCloseMark;
    }
}

template <typename T>
void RegexCompiler<T>::tokenize() {
    groups_.clear();
    tokens_.reserve(length_ + 2);
    for (std::uint32_t position = 0; position < length_;) {
        addAlternationMarks(position);
        position = addCharacterToken(position);
    }
    if (!groups_.empty()) {
        throwAt(regexMissingClosingParen, tokens_[groups_.back()].position);
    }
    addAlternationMarks(length_);
}

template <typename T>
void RegexCompiler<T>::addAlternationMarks(std::uint32_t position) {
    if ((marks_[position] & alternationOpenMark) != 0) {
        checkNeighbours(Type::alternationOpen, position);
        addToken(Type::alternationOpen, position, 0);
    }
    if ((marks_[position] & alternationCloseMark) != 0) {
        checkNeighbours(Type::alternationClose, position);
        addToken(Type::alternationClose, position, 0);
    }
}

template <typename T>
void RegexCompiler<T>::checkNeighbours(Type coming, std::uint32_t position) const {
    const Type previous = tokens_.empty() ? Type::end : tokens_.back().type;
    const unsigned code = regextables::neighbourRow(coming).codes[regextables::neighbour(previous)];
    if (code != regexNoError) {
        throwAt(code, position);
    }
}

template <typename T>
void RegexCompiler<T>::addToken(Type type, std::uint32_t position, std::uint32_t length) {
    tokens_.push({type, false, position, length, -1, -1, -1, 0});
}

template <typename T>
std::uint32_t RegexCompiler<T>::addCharacterToken(std::uint32_t position) {
    const Type type = typeOf(Unit::value(pattern_[position]));
    switch (type) {
        case Type::groupOpen:
        case Type::groupClose:
            return addGroupToken(type, position);
        case Type::bracketSet:
            return addSetToken(position);
        case Type::literals:
            return addLiterals(position);
        case Type::end:
            throwAt(regexUnmatchedClosingBrace, position);
        default:
            break;
    }
    checkNeighbours(type, position);
    if (type == Type::counted) {
        return addCardinality(type, position);
    }
    addToken(type, position, 1);
    return position + 1;
}

template <typename T>
std::uint32_t RegexCompiler<T>::addGroupToken(Type type, std::uint32_t position) {
    if (type == Type::groupOpen) {
        groups_.push(tokens_.size());
    } else if (groups_.empty()) {
        throwAt(regexUnmatchedClosingParen, position);
    } else {
        groups_.pop();
    }
    addToken(type, position, 1);
    return position + 1;
}

template <typename T>
std::uint32_t RegexCompiler<T>::addCardinality(Type type, std::uint32_t position) {
    std::uint32_t end = position;
    while (end < length_ && pattern_[end] != '}') {
        ++end;
    }
    if (end == length_) {
        throwAt(regexMissingClosingBrace, position);
    }
    addToken(type, position, end + 1 - position);
    return end + 1;
}

template <typename T>
std::uint32_t RegexCompiler<T>::addSetToken(std::uint32_t position) {
    const RegexPatternReader<T> reader(pattern_, pattern_ + length_);
    const T* const close = reader.setEnd(pattern_ + position, pattern_ + length_);
    if (close == nullptr) {
        throwAt(regexMissingClosingBracket, position);
    }
    const auto end = static_cast<std::uint32_t>(close + 1 - pattern_);
    addToken(Type::bracketSet, position, end - position);
    return end;
}

// The position behind a character or escape.
template <typename T>
std::uint32_t RegexCompiler<T>::characterEnd(std::uint32_t position) const {
    if (pattern_[position] != '\\') {
        return position + 1;
    }
    const RegexPatternReader<T> reader(pattern_, pattern_ + length_);
    const T* p = pattern_ + position;
    reader.character(p, pattern_ + length_);
    return static_cast<std::uint32_t>(p - pattern_);
}

// A cardinality takes the character in front of it alone: a run ends before that one.
template <typename T>
std::uint32_t RegexCompiler<T>::addLiterals(std::uint32_t position) {
    std::uint32_t end = characterEnd(position);
    while (end < length_ && typeOf(Unit::value(pattern_[end])) == Type::literals) {
        const std::uint32_t behind = characterEnd(end);
        if (behind < length_ && isRegexCardinality(typeOf(Unit::value(pattern_[behind])))) {
            break;
        }
        end = behind;
    }
    addToken(Type::literals, position, end - position);
    return end;
}

// ---------------------------------------------------------------- passes over the tokens

// The scans over the characters don't know sets, and take the second of two backslashes for one
// that escapes, so a `|` may have no alternation, and an alternation no end. Those go, and so does
// an alternation of nothing but anchors: what they separated then follows one upon the other.
template <typename T>
void RegexCompiler<T>::dropStrayAlternations() {
    RegexArray<Scope, 16> scopes;
    RegexArray<std::uint32_t, 192> owners;  // the opening token of a pipe's or end's alternation
    RegexArray<std::uint8_t, 192> isWhole;
    owners.fill(tokens_.size(), regexNone);
    isWhole.fill(tokens_.size(), false);
    scopes.push({regexNone, false});
    for (std::uint32_t i = 0; i < tokens_.size(); ++i) {
        Scope& scope = scopes.back();
        const Type type = tokens_[i].type;
        if (type == Type::alternationOpen && scope.alternation == regexNone) {
            scope = {i, false};
        } else if (type == Type::pipe) {
            owners[i] = scope.alternation;
        } else if (type == Type::alternationClose && scope.alternation != regexNone) {
            owners[i] = scope.alternation;
            isWhole[scope.alternation] = scope.hasNode;
            scope.alternation = regexNone;
        } else if (type == Type::groupOpen) {
            scope.hasNode = true;
            scopes.push({regexNone, false});
        } else if (type == Type::groupClose) {
            scopes.pop();
        } else if (isRegexAtom(type)) {
            scope.hasNode = true;
        }
    }
    std::uint32_t kept = 0;
    for (std::uint32_t i = 0; i < tokens_.size(); ++i) {
        const Type type = tokens_[i].type;
        const bool isPart = type == Type::pipe || type == Type::alternationClose;
        const bool isStray = isPart ? owners[i] == regexNone || isWhole[owners[i]] == 0
                                    : type == Type::alternationOpen && isWhole[i] == 0;
        if (!isStray) {
            tokens_[kept++] = tokens_[i];
        }
    }
    tokens_.truncate(kept);
}

// The end of an alternation whose alternatives are sets and single characters; else regexNone.
template <typename T>
std::uint32_t RegexCompiler<T>::setAlternationEnd(std::uint32_t open) const {
    for (std::uint32_t i = open + 1;; i += 2) {
        const RegexToken& token = tokens_[i];
        const bool isSingle =
            token.type == Type::bracketSet || (token.type == Type::literals && token.length == 1);
        if (!isSingle) {
            return regexNone;
        }
        if (tokens_[i + 1].type != Type::pipe) {
            const bool hasPipe = i > open + 1;
            return hasPipe && tokens_[i + 1].type == Type::alternationClose ? i + 1 : regexNone;
        }
    }
}

template <typename T>
void RegexCompiler<T>::joinSetAlternations() {
    for (std::uint32_t open = 0; open < tokens_.size(); ++open) {
        if (tokens_[open].type != Type::alternationOpen) {
            continue;
        }
        const std::uint32_t close = setAlternationEnd(open);
        if (close == regexNone) {
            continue;
        }
        tokens_[open].type = Type::setAlternationOpen;
        tokens_[close].type = Type::setAlternationClose;
        for (std::uint32_t i = open + 2; i < close; i += 2) {
            tokens_[i].type = Type::setAlternationPipe;
        }
    }
}

// For the end of each alternation the first atom behind it. Ends that wait at a `|` go on waiting,
// and are then served along with the next end that finds its atom.
template <typename T>
void RegexCompiler<T>::collectTargets() {
    std::uint32_t waiting = 0;
    bool isPending = false;
    const auto serve = [&](std::uint32_t target) {
        for (; waiting > 0; --waiting) {
            targets_.push(static_cast<std::int32_t>(target));
        }
        isPending = false;
    };
    for (std::uint32_t i = 0; i < tokens_.size(); ++i) {
        const Type type = tokens_[i].type;
        if (type == Type::alternationClose) {
            ++waiting;
            isPending = true;
        } else if (type == Type::pipe) {
            isPending = false;
        } else if (isPending && (type == Type::groupOpen || isRegexAtom(type))) {
            serve(i);
        }
    }
    serve(tokens_.size());
}

// Backward. What ends an alternative goes on behind the alternation, whose targets are on a stack,
// and so does what ends the group that ends an alternative; all else goes on at the next token.
template <typename T>
void RegexCompiler<T>::linkTokens() {
    RegexArray<std::int32_t, 16> around;  // targets of the alternations that we are in
    groups_.clear();                      // where the groups that we are in go on
    std::uint32_t left = targets_.size();
    bool isLast = false;
    for (std::uint32_t i = tokens_.size(); i-- > 0;) {
        RegexToken& token = tokens_[i];
        const auto behind = static_cast<std::int32_t>(i + 1);
        const std::int32_t next = isLast ? around.back() : behind;
        token.next = behind;
        switch (token.type) {
            case Type::alternationClose:
                around.push(targets_[--left]);
                isLast = true;
                break;
            case Type::pipe:
                isLast = true;
                break;
            case Type::alternationOpen:
                around.pop();
                isLast = false;
                break;
            case Type::groupClose:
                groups_.push(static_cast<std::uint32_t>(next));
                break;
            case Type::groupOpen:
                token.after = static_cast<std::int32_t>(groups_.back());
                groups_.pop();
                token.next = next;  // behind an empty group at the end of an alternative, too
                isLast = false;
                break;
            case Type::setAlternationClose:
                linkSetAlternation(i, next);
                break;
            case Type::setAlternationOpen:
                isLast = false;
                token.next = token.after;
                token.after = -1;
                break;
            case Type::setAlternationPipe:
                break;
            default:
                if (isRegexAtom(token.type)) {
                    token.next = next;
                    isLast = false;
                }
        }
    }
}

// The node of a set alternation is its opening token's.
template <typename T>
void RegexCompiler<T>::linkSetAlternation(std::uint32_t close, std::int32_t next) {
    std::uint32_t open = close;
    while (tokens_[open].type != Type::setAlternationOpen) {
        --open;
    }
    tokens_[open].after = next;
}

// The number of the node that each token becomes, or of the first one behind it; and what encloses
// it.
template <typename T>
void RegexCompiler<T>::numberNodes() {
    std::uint32_t count = 0;
    bool isInSet = false;
    groups_.clear();
    addToken(Type::end, length_, 0);
    addToken(Type::end, length_, 0);
    for (std::uint32_t i = 0; i < tokens_.size(); ++i) {
        RegexToken& token = tokens_[i];
        token.node = count;
        if (token.type == Type::groupClose) {
            groups_.pop();
        }
        if (token.type != Type::alternationOpen && token.type != Type::alternationClose) {
            token.enclosing = groups_.empty() ? -1 : static_cast<std::int32_t>(groups_.back());
        }
        if (token.type == Type::groupOpen) {
            groups_.push(i);
        }
        const bool isNode = token.type == Type::groupOpen || token.type == Type::alternationOpen ||
                            token.type == Type::setAlternationOpen ||
                            (isRegexAtom(token.type) && !isInSet);
        count += isNode;
        isInSet = token.type == Type::setAlternationOpen ||
                  (isInSet && token.type != Type::setAlternationClose);
    }
    program_.nodes.reserve(count + 2);
}

// A `^` in front of the first alternation is the pattern's own. A `(` is nothing in front of it.
template <typename T>
void RegexCompiler<T>::findStartAnchors() {
    bool hasAtom = false;
    for (const RegexToken& token : tokens_) {
        if (token.type == Type::alternationOpen) {
            return;
        }
        hasAtom |= isRegexAtom(token.type);
        if (token.type == Type::startAnchor) {
            program_.isStartAnchored = true;
            program_.neverMatches |= hasAtom;
        }
    }
}

// Backward, with a stack that tells for each alternative around whether an atom lies behind.
template <typename T>
void RegexCompiler<T>::findEndAnchors() {
    groups_.fill(1, false);
    for (std::uint32_t i = tokens_.size(); i-- > 0;) {
        const Type type = tokens_[i].type;
        if (type == Type::alternationClose) {
            groups_.push(false);
        } else if (type == Type::pipe) {
            groups_.back() = false;
        } else if (type == Type::alternationOpen) {
            groups_.pop();
            groups_.back() = true;
        } else if (isRegexAtom(type)) {
            groups_.back() = true;
        } else if (type == Type::endAnchor) {
            program_.neverMatches |= groups_.back() != 0;
            program_.isEndAnchored |= groups_.size() == 1;
            markEndAnchoredAtom(i);
        }
    }
}

// The atom or the whole group in front of a `$`, in the same alternative.
template <typename T>
void RegexCompiler<T>::markEndAnchoredAtom(std::uint32_t anchor) {
    std::uint32_t depth = 0;
    for (std::uint32_t i = anchor; i-- > 0;) {
        RegexToken& token = tokens_[i];
        if (token.type == Type::groupClose) {
            ++depth;
        } else if (token.type == Type::groupOpen) {
            if (depth <= 1) {
                token.isEndAnchored = depth == 1;
                return;
            }
            --depth;
        } else if (depth == 0 && isRegexAtom(token.type)) {
            token.isEndAnchored = true;
            return;
        } else if (depth == 0 &&
                   (token.type == Type::pipe || token.type == Type::alternationOpen)) {
            return;
        }
    }
}

// ---------------------------------------------------------------- nodes

template <typename T>
void RegexCompiler<T>::buildNodes() {
    groups_.clear();
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
void RegexCompiler<T>::buildToken(std::uint32_t i) {
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
RegexStateNode& RegexCompiler<T>::addNode(RegexNodeKind kind, const RegexToken& token) {
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
void RegexCompiler<T>::openGroup(const RegexToken& token) {
    const auto index = static_cast<std::uint32_t>(program_.nodes.size());
    RegexStateNode& node = addNode(RegexNodeKind::group, token);
    node.code |= regexGroupBit;
    node.captureId = ++program_.subCount;
    program_.groupNodes.push(index);
    groups_.push(index);
}

template <typename T>
void RegexCompiler<T>::closeGroup(std::uint32_t i) {
    RegexStateNode& group = program_.nodes[groups_.back()];
    groups_.pop();
    group.innerEnd = static_cast<std::uint32_t>(program_.nodes.size());
    finishNode(group, i + 1);
}

template <typename T>
void RegexCompiler<T>::openAlternation(const RegexToken& token) {
    RegexStateNode& head = addNode(RegexNodeKind::head, token);
    head.alternation = program_.alternator.open();
    isAlternativePending_ = true;
}

template <typename T>
void RegexCompiler<T>::buildAtom(const RegexToken& token) {
    if (token.type == Type::literals) {
        buildLiterals(addNode(RegexNodeKind::literal, token), token);
        return;
    }
    RegexStateNode& node = addNode(RegexNodeKind::set, token);
    if (token.type == Type::bracketSet) {
        const RegexPatternReader<T> reader(pattern_, pattern_ + length_);
        const T* const open = pattern_ + token.position;
        node.operand = addSet(reader.set(open, open + token.length - 1));
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
void RegexCompiler<T>::buildLiterals(RegexStateNode& node, const RegexToken& token) {
    const RegexPatternReader<T> reader(pattern_, pattern_ + length_);
    const T* p = pattern_ + token.position;
    const T* const end = p + token.length;
    const std::uint32_t first = program_.text.size();
    while (p != end) {
        program_.text.push(reader.character(p, end));
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
std::uint32_t RegexCompiler<T>::buildSetAlternation(std::uint32_t open) {
    const RegexPatternReader<T> reader(pattern_, pattern_ + length_);
    RegexStateNode& node = addNode(RegexNodeKind::set, tokens_[open]);
    RegexBracketSet<T> set;
    std::uint32_t i = open + 1;
    for (; tokens_[i].type != Type::setAlternationClose; ++i) {
        const T* const first = pattern_ + tokens_[i].position;
        if (tokens_[i].type == Type::bracketSet) {
            set.addSet(reader.set(first, first + tokens_[i].length - 1));
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
std::uint32_t RegexCompiler<T>::addSet(RegexBracketSet<T> set) {
    program_.sets.push_back(std::move(set));
    return static_cast<std::uint32_t>(program_.sets.size()) - 1;
}

// The cardinality at `behind`, and whether the end of the group or alternative follows.
template <typename T>
void RegexCompiler<T>::finishNode(RegexStateNode& node, std::uint32_t behind) {
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
void RegexCompiler<T>::applyCardinality(RegexStateNode& node, const RegexToken& token) const {
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
void RegexCompiler<T>::applyCounts(RegexStateNode& node, const RegexToken& token) const {
    const RegexPatternReader<T> reader(pattern_, pattern_ + length_);
    const T* const first = pattern_ + token.position + 1;
    const T* const last = first + token.length - 2;
    checkCounts(first, last);
    const T* comma = first;
    while (comma != last && *comma != ',') {
        ++comma;
    }
    node.min = reader.decimal(first, comma);
    node.max = node.min;
    if (comma != last) {
        const T* field = comma + 1;
        while (field != last && *field == ' ') {
            ++field;
        }
        node.max = field == last ? unbounded : reader.decimal(field, last);
    }
    if (node.min > node.max) {
        throwAt(regexInvalidCardinalityRange, token.position);
    }
}

// Digits, blanks and commas, and a digit in front of each comma.
template <typename T>
void RegexCompiler<T>::checkCounts(const T* first, const T* last) const {
    bool hasDigit = false;
    for (const T* p = first; p != last; ++p) {
        const bool isDigit = *p >= '0' && *p <= '9';
        hasDigit |= isDigit;
        if (!isDigit && *p != ' ' && (*p != ',' || !hasDigit)) {
            regexThrow(regexInvalidCardinalityRange, p);
        }
    }
    if (!hasDigit) {
        regexThrow(regexInvalidCardinalityRange, first - 1);
    }
}

template <typename T>
void RegexCompiler<T>::addTerminals() {
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
void RegexCompiler<T>::setSuccessors() {
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

template class RegexCompiler<char>;
template class RegexCompiler<UChar>;

}  // namespace nolk
