#include <nolk/core/regex/RegexTokenizer.h>

#include <nolk/core/regex/RegexTables.h>

namespace nolk {

namespace {

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
void RegexTokenizer<T>::run() {
    if (markPipes()) {
        markParentheses();
        markAlternationStarts();
        markAlternationEnds();
    }
    tokenize();
}

// ---------------------------------------------------------------- marks

// Looks at one character only: the `|` of `\\|` counts as escaped.
template <typename T>
bool RegexTokenizer<T>::isUnescaped(std::uint32_t position, char character) const {
    return pattern_[position] == static_cast<T>(character) &&
           (position == 0 || pattern_[position - 1] != '\\');
}

template <typename T>
bool RegexTokenizer<T>::markPipes() {
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
void RegexTokenizer<T>::markParentheses() {
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
void RegexTokenizer<T>::markAlternationStarts() {
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
void RegexTokenizer<T>::markAlternationEnds() {
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

// ---------------------------------------------------------------- tokens

template <typename T>
void RegexTokenizer<T>::tokenize() {
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
void RegexTokenizer<T>::addAlternationMarks(std::uint32_t position) {
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
void RegexTokenizer<T>::checkNeighbours(Type coming, std::uint32_t position) const {
    const Type previous = tokens_.empty() ? Type::end : tokens_.back().type;
    const unsigned code = regextables::neighbourRow(coming).codes[regextables::neighbour(previous)];
    if (code != regexNoError) {
        throwAt(code, position);
    }
}

template <typename T>
void RegexTokenizer<T>::addToken(Type type, std::uint32_t position, std::uint32_t length) {
    tokens_.push({type, false, position, length, -1, -1, -1, 0});
}

template <typename T>
std::uint32_t RegexTokenizer<T>::addCharacterToken(std::uint32_t position) {
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
std::uint32_t RegexTokenizer<T>::addGroupToken(Type type, std::uint32_t position) {
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
std::uint32_t RegexTokenizer<T>::addCardinality(Type type, std::uint32_t position) {
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
std::uint32_t RegexTokenizer<T>::addSetToken(std::uint32_t position) {
    const T* const close = reader_.setEnd(pattern_ + position, pattern_ + length_);
    if (close == nullptr) {
        throwAt(regexMissingClosingBracket, position);
    }
    const auto end = static_cast<std::uint32_t>(close + 1 - pattern_);
    addToken(Type::bracketSet, position, end - position);
    return end;
}

// The position behind a character or escape.
template <typename T>
std::uint32_t RegexTokenizer<T>::characterEnd(std::uint32_t position) const {
    if (pattern_[position] != '\\') {
        return position + 1;
    }
    const T* p = pattern_ + position;
    reader_.character(p, pattern_ + length_);
    return static_cast<std::uint32_t>(p - pattern_);
}

// A cardinality takes the character in front of it alone: a run ends before that one.
template <typename T>
std::uint32_t RegexTokenizer<T>::addLiterals(std::uint32_t position) {
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

template class RegexTokenizer<char>;
template class RegexTokenizer<UChar>;

}  // namespace nolk
