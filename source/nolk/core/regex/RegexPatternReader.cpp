#include <nolk/core/regex/RegexPatternReader.h>

#include <nolk/core/URegexCategory.h>

#include <algorithm>
#include <string_view>

namespace nolk {

namespace {

// Sets in sets are read, and freed, by recursion; nobody writes as many.
constexpr unsigned mostNestedSets = 250;

template <typename T>
int hexDigit(T c) {
    if (c >= '0' && c <= '9') {
        return static_cast<int>(c - '0');
    }
    if (c >= 'a' && c <= 'f') {
        return static_cast<int>(c - 'a') + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return static_cast<int>(c - 'A') + 10;
    }
    return -1;
}

template <typename T>
void trimBlanks(const T*& first, const T*& last) {
    while (first != last && *first == ' ') {
        ++first;
    }
    while (first != last && last[-1] == ' ') {
        --last;
    }
}

}  // namespace

// The digits of a \x or \u, where blanks around them are no matter.
template <typename T>
unsigned RegexPatternReader<T>::digits(const T* first, const T* last) const {
    const T* const field = first;
    trimBlanks(first, last);
    if (first == last) {
        throw Fault{regexInvalidHex, field};
    }
    unsigned value = 0;
    for (; first != last; ++first) {
        const int digit = hexDigit(*first);
        if (digit < 0) {
            throw Fault{regexInvalidHex, first};
        }
        value = value * 16 + static_cast<unsigned>(digit);
    }
    return value;
}

template <typename T>
std::uint32_t RegexPatternReader<T>::decimal(const T* first, const T* last) const {
    trimBlanks(first, last);
    std::uint64_t value = 0;
    for (; first != last; ++first) {
        if (*first < '0' || *first > '9') {
            throw Fault{regexInvalidDecimal, first};
        }
        value = std::min<std::uint64_t>(value * 10 + static_cast<unsigned>(*first - '0'), ~0u);
    }
    return static_cast<std::uint32_t>(value);
}

template <typename T>
T RegexPatternReader<T>::character(const T*& p, const T* end) const {
    if (*p != '\\') {
        return *p++;
    }
    const T* const escape = p;
    if (end - p < 2) {
        throw Fault{regexMissingEscape, escape};
    }
    const T kind = p[1];
    const std::ptrdiff_t length = kind == 'x' ? 4 : kind == 'u' ? 6 : 2;
    if (end - p < length) {
        throw Fault{kind == 'x' ? regexInsufficient8BitData : regexInsufficient16BitData, escape};
    }
    p += length;
    switch (kind) {
        case 'x':
        case 'u':
            // Bytes take the low half of a \u, on purpose.
            return static_cast<T>(digits(escape + 2, p));
        case 'n':
            return static_cast<T>(10);
        case 'r':
            return static_cast<T>(13);
        case 't':
            return static_cast<T>(9);
        default:
            return kind;
    }
}

// The first `]` that isn't the first member; in the wide flavour the one that is left when each
// nested `-[` has had its own. Escapes don't count.
template <typename T>
const T* RegexPatternReader<T>::setEnd(const T* open, const T* end) const {
    const T* p = open;
    const auto skipFirstMember = [&p, end] {
        ++p;
        if (p != end && *p == '^') {
            ++p;
        }
        if (p != end && *p == ']') {
            ++p;
        }
    };
    unsigned depth = 1;
    skipFirstMember();
    while (p < end) {
        if (RegexUnit<T>::isWide && end - p > 1 && *p == '-' && p[1] == '[') {
            ++depth;
            ++p;
            skipFirstMember();
        } else if (*p == ']' && --depth == 0) {
            return p;
        } else {
            ++p;
        }
    }
    return nullptr;
}

template <typename T>
typename RegexPatternReader<T>::Member RegexPatternReader<T>::member(const T* p,
                                                                     const T* close) const {
    Member read;
    read.isEscaped = *p == '\\';
    read.unit = character(p, close);
    read.next = p;
    return read;
}

template <typename T>
bool RegexPatternReader<T>::opensCategory(const T* p, const T* close) const {
    return RegexUnit<T>::isWide && p != close && *p == '{';
}

template <typename T>
bool RegexPatternReader<T>::opensSubtrahend(const T* p, const T* close) const {
    return RegexUnit<T>::isWide && close - p > 1 && *p == '-' && p[1] == '[';
}

template <typename T>
RegexBracketSet<T> RegexPatternReader<T>::nestedSet(const T* open, const T* close,
                                                    unsigned depth) const {
    RegexBracketSet<T> set;
    const T* p = open + 1;
    if (p != close && *p == '^') {
        set.negate();
        ++p;
    }
    while (p != close) {
        if (opensCategory(p, close)) {
            p = addCategory(set, p, close);
        } else if (opensSubtrahend(p, close)) {
            p = addSubtrahend(set, p, close, depth);
        } else {
            p = addMembers(set, p, close);
        }
    }
    set.finish();
    return set;
}

// One character, or a range if the three characters from here on have a `-` in the middle, escaped
// or not.
template <typename T>
const T* RegexPatternReader<T>::addMembers(RegexBracketSet<T>& set, const T* p,
                                           const T* close) const {
    const Member low = member(p, close);
    const T* const behind = low.next;
    if (behind != close && !opensCategory(behind, close) && !opensSubtrahend(behind, close)) {
        const Member middle = member(behind, close);
        if (middle.unit == '-' && middle.next != close && !opensCategory(middle.next, close)) {
            const Member high = member(middle.next, close);
            set.addRange(low.unit, high.unit);
            return high.next;
        }
    }
    set.add(low.unit);
    return behind;
}

template <typename T>
const T* RegexPatternReader<T>::addCategory(RegexBracketSet<T>& set, const T* p,
                                            const T* close) const {
    const T* const end = std::find(p, close, static_cast<T>('}'));
    if (end == close) {
        throw Fault{regexInfiniteCategoryName, p};
    }
    // No category matches nothing, so this stays off; a category that did must not be repeated.
    bool mayBeEmpty = true;
    if constexpr (RegexUnit<T>::isWide) {
        const auto length = static_cast<std::size_t>(end - p - 1);
        const URegexCategoryName* const entry =
            findURegexCategory(std::basic_string_view<T>(p + 1, length));
        if (entry == nullptr) {
            throw Fault{regexInvalidCategory, p + 1};
        }
        set.addCategories(entry->categories);
        mayBeEmpty = false;
    }
    if (mayBeEmpty && isRepeatedEmpty(p, close)) {
        throw Fault{regexInfiniteCardinality, p};
    }
    return end + 1;
}

template <typename T>
const T* RegexPatternReader<T>::addSubtrahend(RegexBracketSet<T>& set, const T* p, const T* close,
                                              unsigned depth) const {
    const T* const end = depth < mostNestedSets ? setEnd(p + 1, close) : nullptr;
    if (end == nullptr) {
        throw Fault{regexMissingClosingBracket, p + 1};
    }
    set.subtract(nestedSet(p + 1, end, depth + 1));
    return end + 1;
}

// Whether the set that closes at `close` is all that is in a repeated group: behind it stand some
// `)` and then `*` or `+`, and in front of it as many `(`.
template <typename T>
bool RegexPatternReader<T>::isRepeatedEmpty(const T* open, const T* close) const {
    const T* p = close + 1;
    std::ptrdiff_t closing = 0;
    while (p < last_ && *p == ')') {
        ++closing;
        ++p;
    }
    if (p >= last_ || (*p != '*' && *p != '+')) {
        return false;
    }
    std::ptrdiff_t opening = 0;
    for (p = open; p > first_ && p[-1] != '|' && opening < closing; --p) {
        const bool isEscaped = p - first_ > 1 && p[-2] == '\\';
        opening += p[-1] == '(' && !isEscaped;
    }
    return opening == closing;
}

template class RegexPatternReader<char>;
template class RegexPatternReader<UChar>;

}  // namespace nolk
