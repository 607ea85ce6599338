/** @file
 * Regular expressions.
 */
#ifndef NOLK_CORE_REGEX_H
#define NOLK_CORE_REGEX_H

#include <nolk/core/Export.h>
#include <nolk/core/RegexException.h>
#include <nolk/core/RegexResult.h>
#include <nolk/core/Types.h>

#include <string>

namespace nolk {

/**
 * A regular expression over strings of `T`: Regex<char> searches bytes. URegex adds what Unicode
 * needs.
 *
 *     Regex<char> date("([0-9]{4})-([0-9]{2})");
 *     RegexResult<char> found = date.search(text);       // unset if there is no date
 *     std::string year = found.subString(text, 1);
 *     date.replace(text, "-", 0, 0, 0, Regex<char>::npos, true);
 *
 * The match that begins first is found. The language, and which of the matches that begin there, is
 * told in docs/regex.md.
 *
 * A value; a copy shares nothing. Searching works in the object, so one thread at a time may use
 * one: each takes a copy. Positions and lengths count characters; `npos` is no position. Operations
 * throw std::bad_alloc where memory runs out, and the constructors RegexException.
 */
template <typename T>
class Regex {
public:
    using String = std::basic_string<T>;

    static constexpr unsigned npos = ~0u;

    /** @name Make
     *  @{ */
    /** Has no pattern, and finds nothing. */
    Regex();
    /** Of the first `length` characters, or of a terminated pattern. @throws RegexException with
     * what is wrong and where @pre the pattern has as many, and isn't null */
    explicit Regex(const T* pattern, unsigned length = npos);
    /** The same; a length beyond the string's is the string's. */
    explicit Regex(const String& pattern, unsigned length = npos);
    Regex(const Regex& other);
    Regex& operator=(const Regex& other);
    virtual ~Regex();
    /** @} */

    /** The number of groups. */
    unsigned subCount() const noexcept;
    /** How compiling went: always the code 0, since an object whose pattern is wrong isn't made. */
    const RegexException& getStatus() const;
    /** Compare the patterns: by their characters, bytes taken with their sign, and then by their
     * lengths. */
    bool operator==(const Regex& other) const noexcept;
    bool operator<(const Regex& other) const noexcept;

    /**
     * @name Search
     * `end` is where the subject ends, counted from the beginning of `s` and not from `start`:
     * neither `$` nor anything else looks at what is behind. With `npos` it is the end of `s`, its
     * terminator in the first form. Nothing is found where `start` is behind the end.
     *  @{ */
    /** The first match at `start` or behind. An expression that begins with `^` is tried at `start`
     * alone. */
    RegexResult<T> search(const T* s, unsigned start = 0, unsigned end = npos);
    RegexResult<T> search(const String& s, unsigned start = 0, unsigned end = npos);
    /** The match that begins at `start`. */
    RegexResult<T> matchAt(const T* s, unsigned start = 0, unsigned end = npos);
    RegexResult<T> matchAt(const String& s, unsigned start = 0, unsigned end = npos);
    /** The start of the first match, or `npos`. @param matchLength becomes its length, or 0; may be
     * null */
    unsigned index(const T* s, unsigned* matchLength, unsigned start = 0, unsigned end = npos);
    unsigned index(const String& s, unsigned* matchLength, unsigned start = 0, unsigned end = npos);
    /** @} */

    /**
     * Puts `with` in place of a group of each match, 0 being the match itself, in the `length`
     * characters from `start` on. The search goes on behind each match. Where the group is unset
     * the whole match is taken out; where it is empty `with` is put in only if
     * `replaceEmptyMatches`. The text of `with` is taken as it is.
     * @param count the most to be replaced; 0 is no limit
     * @return how many were
     * @pre `matchIndex` is at most subCount()
     */
    unsigned replace(String& s, const String& with, unsigned count = 0, unsigned matchIndex = 0,
                     unsigned start = 0, unsigned length = npos, bool replaceEmptyMatches = true);

private:
    RegexImp<T>* imp_;
};

#ifndef NOLK_CORE_BUILDING
extern template class NOLK_API Regex<char>;
extern template class NOLK_API Regex<UChar>;
#endif

}  // namespace nolk

#endif
