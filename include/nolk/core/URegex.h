/** @file
 * Regular expressions over Unicode strings.
 */
#ifndef NOLK_CORE_UREGEX_H
#define NOLK_CORE_UREGEX_H

#include <nolk/core/Export.h>
#include <nolk/core/RegexException.h>
#include <nolk/core/URegexResult.h>
#include <nolk/core/UString.h>

#include <memory>
#include <string>

namespace nolk {

class URegexImp;

/** How much of Unicode an expression knows. Only 0 is implemented. */
using UnicodeConformanceLevel = int;

/**
 * A regular expression over UTF-16 code units.
 *
 *     URegex name(UString("[{L}][{L}{Nd}]*"), 0, 0);
 *     URegexResult found = name.search(text);
 *
 * The language of Regex with general categories in bracket sets, `[{Lu}]`, sets subtracted from
 * sets, `[a-z-[aeiou]]`, and a `.` that stops at every line end of Unicode. A character beyond the
 * Basic Multilingual Plane is two units.
 *
 * A value; a copy shares nothing but the pattern's text. Searching works in the object, so one
 * thread at a time may use one. With a level other than 0 there is nothing to search with, and
 * nothing is found. Constructors throw RegexException, with an offset in code units.
 */
class NOLK_API URegex {
public:
    static constexpr unsigned npos = ~0u;

    /** @name Make
     *  @{ */
    /** Has no pattern, and finds nothing. */
    URegex();
    /** `options` are kept, and mean nothing yet. */
    explicit URegex(const UString& pattern, UnicodeConformanceLevel level = 0, long options = 0);
    /** Of a pattern in UTF-8, ASCII or ISO-8859-1; a null `encoding` is UTF-8. @throws
     * RegexException with the code 20 if that isn't what it is */
    URegex(const std::string& pattern, UnicodeConformanceLevel level, long options,
           const char* encoding);
    URegex(const char* pattern, UnicodeConformanceLevel level, long options, const char* encoding);
    URegex(const URegex& other);
    URegex& operator=(const URegex& other);
    virtual ~URegex();
    /** @} */

    const UString& getPattern() const noexcept { return pattern_; }
    long getOptions() const noexcept { return options_; }
    UnicodeConformanceLevel getLevel() const noexcept { return level_; }
    /** Compiles the pattern anew if the level differs. */
    void setLevel(UnicodeConformanceLevel level);
    /** The number of groups. */
    unsigned subCount() const noexcept;

    /** Compare the patterns by their code units. */
    bool operator==(const URegex& other) const noexcept;
    bool operator<(const URegex& other) const noexcept;

    /** @name Search
     *  From the subject's beginning, or `start`, up to its end, or `end`.
     *  @{ */
    /** The first match. An expression that begins with `^` is tried at the start alone. */
    URegexResult search(const UString& subject) const;
    URegexResult search(const UString& subject, const UStringConstIterator& start) const;
    URegexResult search(const UString& subject, const UStringConstIterator& start,
                        const UStringConstIterator& end) const;
    /** The match that begins at the start. */
    URegexResult matchAt(const UString& subject) const;
    URegexResult matchAt(const UString& subject, const UStringConstIterator& start) const;
    URegexResult matchAt(const UString& subject, const UStringConstIterator& start,
                         const UStringConstIterator& end) const;
    /** @} */

    /** @name Replace
     *  The same as Regex::replace. @return how many were replaced
     *  @{ */
    unsigned replace(UString& subject, const UString& with, unsigned count = 0,
                     long matchIndex = 0) const;
    unsigned replace(UString& subject, const UString& with, unsigned count, long matchIndex,
                     const UStringConstIterator& start, const UStringConstIterator& end,
                     bool replaceEmptyMatches) const;
    /** @} */

private:
    friend class URegexMatchIterator;

    static URegexImp* makeImp(const UString& pattern, UnicodeConformanceLevel level, long options);
    static UString constructFromAscii(const char* pattern, std::size_t length,
                                      const char* encoding);
    URegexResult search(const UString& subject, unsigned start, unsigned end) const;
    URegexResult matchAt(const UString& subject, unsigned start, unsigned end) const;
    unsigned replace(UString& subject, const UString& with, unsigned count, unsigned matchIndex,
                     unsigned start, unsigned end, bool replaceEmptyMatches) const;

    UString pattern_;
    UnicodeConformanceLevel level_ = 0;
    long options_ = 0;
    std::unique_ptr<URegexImp> imp_;
};

}  // namespace nolk

#endif
