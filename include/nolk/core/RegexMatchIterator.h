/** @file
 * Goes from match to match.
 */
#ifndef NOLK_CORE_REGEX_MATCH_ITERATOR_H
#define NOLK_CORE_REGEX_MATCH_ITERATOR_H

#include <nolk/core/Export.h>
#include <nolk/core/Regex.h>
#include <nolk/core/RegexResult.h>

#include <cstdint>
#include <string>

namespace nolk {

/**
 * The matches of a regular expression in a text, one after the other.
 *
 *     for (RegexMatchIterator<char> it(word, text); it != RegexMatchIterator<char>(); ++it) {
 *         use(it->subString(text, 0));
 *     }
 *
 * Each search begins where the last match ended, or one character behind its start if it was empty
 * or matches may overlap. `^` matches at the beginning of each search. An empty match at the very
 * end is found in an empty text only.
 *
 * A value. It refers to the expression, whose state it uses, and to the text; both must outlive it.
 */
template <typename T>
class RegexMatchIterator {
public:
    static constexpr unsigned npos = ~0u;

    /** The end of every iteration. */
    RegexMatchIterator() = default;
    /**
     * The first match in the `length` characters from `start` on. From the start 0 or 1, the length
     * `npos` means up to the terminator; @pre from any other, `length` is exact.
     */
    RegexMatchIterator(Regex<T>& regex, const T* subject, unsigned start = 0,
                       unsigned length = npos, bool overlap = false);
    /**
     * The same. Here the length `npos` is that of the whole string, counted from `start`, so that
     * the range ends behind the string unless `start` is 0. It is never read beyond its end; but an
     * empty match at its end is then found. Give an exact length where that isn't wanted.
     */
    RegexMatchIterator(Regex<T>& regex, const std::basic_string<T>& subject, unsigned start = 0,
                       unsigned length = npos, bool overlap = false);

    /** The match here; unset at the end. */
    RegexResult<T> operator*() const;
    const RegexResult<T>* operator->() const noexcept;

    RegexMatchIterator& operator++();
    RegexMatchIterator operator++(int);
    /** Moves on by `n` matches, or to the end. */
    RegexMatchIterator& operator+=(unsigned n);

    /** Whether both use the same expression and go on at the same position. */
    bool operator==(const RegexMatchIterator& other) const noexcept;
    bool operator!=(const RegexMatchIterator& other) const noexcept;

private:
    void advance();

    Regex<T>* regex_ = nullptr;
    const T* subject_ = nullptr;
    unsigned position_ = 0;
    unsigned end_ = 0;            // of the range
    unsigned subjectEnd_ = npos;  // nothing is read beyond
    bool overlap_ = false;
    RegexResult<T> result_;
};

#ifndef NOLK_CORE_BUILDING
extern template class NOLK_API RegexMatchIterator<char>;
extern template class NOLK_API RegexMatchIterator<UChar>;
#endif

}  // namespace nolk

#endif
