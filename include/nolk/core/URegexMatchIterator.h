/** @file
 * Goes from match to match of a Unicode regular expression.
 */
#ifndef NOLK_CORE_UREGEX_MATCH_ITERATOR_H
#define NOLK_CORE_UREGEX_MATCH_ITERATOR_H

#include <nolk/core/Export.h>
#include <nolk/core/URegex.h>
#include <nolk/core/URegexResult.h>

namespace nolk {

/**
 * The matches of a URegex in a text, one after the other, by the rules of RegexMatchIterator.
 *
 * A value. It refers to the expression, whose state it uses, and to the text; both must outlive it.
 */
class NOLK_API URegexMatchIterator {
public:
    static constexpr unsigned npos = ~0u;

    /** The end of every iteration. */
    URegexMatchIterator() = default;
    /** The first match behind `start`, the subject's beginning, and up to `end`, its end. */
    URegexMatchIterator(const URegex& regex, const UString& subject);
    URegexMatchIterator(const URegex& regex, const UString& subject,
                        const UStringConstIterator& start);
    URegexMatchIterator(const URegex& regex, const UString& subject,
                        const UStringConstIterator& start, const UStringConstIterator& end,
                        bool overlap);

    /** The match here; unset at the end. */
    URegexResult operator*() const { return result_; }
    const URegexResult* operator->() const noexcept { return &result_; }

    URegexMatchIterator& operator++();
    URegexMatchIterator operator++(int);
    /** Moves on by `n` matches, or to the end. */
    URegexMatchIterator& operator+=(unsigned n);

    /** Whether both use the same expression and go on at the same position. */
    bool operator==(const URegexMatchIterator& other) const noexcept {
        return regex_ == other.regex_ && position_ == other.position_;
    }
    bool operator!=(const URegexMatchIterator& other) const noexcept { return !(*this == other); }

private:
    friend class URegex;

    URegexMatchIterator(const URegex& regex, const UString& subject, unsigned start, unsigned end,
                        bool overlap);
    void advance();

    const URegex* regex_ = nullptr;
    const UString* subject_ = nullptr;
    unsigned position_ = 0;
    unsigned end_ = 0;
    bool overlap_ = false;
    URegexResult result_;
};

}  // namespace nolk

#endif
