#ifndef NOLK_CORE_REGEX_REGEX_PATTERN_READER_H
#define NOLK_CORE_REGEX_REGEX_PATTERN_READER_H

#include <nolk/core/regex/RegexBracketSet.h>
#include <nolk/core/regex/RegexUnit.h>

#include <cstdint>

namespace nolk {

/** The codes of RegexException, by which its messages are found. */
enum RegexError : unsigned {
    regexNoError = 0,
    regexMissingEscape = 1,
    regexInvalidHex = 2,
    regexInsufficient8BitData = 3,
    regexInsufficient16BitData = 4,
    regexMissingClosingBracket = 5,
    regexMissingClosingBrace = 6,
    regexMissingClosingParen = 7,
    regexUnmatchedClosingParen = 8,
    regexInvalidSubexpression = 9,
    regexInvalidDataAfterPipe = 10,
    regexInvalidDataBeforePipe = 11,
    regexConsecutiveCardinalities = 12,
    regexInvalidCardinalityRange = 13,
    regexLeadingCardinality = 14,
    regexInvalidDecimal = 15,
    regexUnmatchedClosingBrace = 16,
    regexInfiniteCategoryName = 17,
    regexInvalidCategory = 18,
    regexInfiniteCardinality = 19,
    regexAsciiError = 20
};

/** What is wrong with a pattern, and where; the compiler makes a RegexException of it. */
template <typename T>
struct RegexFault {
    unsigned code;
    const T* position;
};

/** Reads the parts of a pattern that have a grammar of their own. All throw RegexFault<T>. */
template <typename T>
class RegexPatternReader {
public:
    using Fault = RegexFault<T>;

    /** @pre the units from `first` to `last` are a pattern, which stays */
    RegexPatternReader(const T* first, const T* last) : first_(first), last_(last) {}

    /** One character or escape in front of `end`. Moves `p` behind it. @pre p < end */
    T character(const T*& p, const T* end) const;

    /** A number between blanks, in decimal; one too large is the largest. */
    std::uint32_t decimal(const T* first, const T* last) const;

    /** The `]` that closes the set whose `[` stands at `open`, or null. */
    const T* setEnd(const T* open, const T* end) const;

    /** The set from its `[` to its `]`. */
    RegexBracketSet<T> set(const T* open, const T* close) const {
        return nestedSet(open, close, 0);
    }

private:
    // A member that was read: one unit, with where it stands and what follows.
    struct Member {
        T unit;
        const T* next;
        bool isEscaped;
    };

    unsigned digits(const T* first, const T* last) const;
    Member member(const T* p, const T* close) const;
    bool opensCategory(const T* p, const T* close) const;
    bool opensSubtrahend(const T* p, const T* close) const;
    RegexBracketSet<T> nestedSet(const T* open, const T* close, unsigned depth) const;
    const T* addMembers(RegexBracketSet<T>& set, const T* p, const T* close) const;
    const T* addCategory(RegexBracketSet<T>& set, const T* p, const T* close) const;
    const T* addSubtrahend(RegexBracketSet<T>& set, const T* p, const T* close,
                           unsigned depth) const;
    bool isRepeatedEmpty(const T* open, const T* close) const;

    const T* first_;
    const T* last_;
};

extern template class RegexPatternReader<char>;
extern template class RegexPatternReader<UChar>;

}  // namespace nolk

#endif
