/** @file
 * The body of regular expressions.
 */
#ifndef NOLK_CORE_REGEX_REGEX_IMP_H
#define NOLK_CORE_REGEX_REGEX_IMP_H

#include <nolk/core/RegexException.h>
#include <nolk/core/RegexResult.h>
#include <nolk/core/regex/RegexArray.h>
#include <nolk/core/regex/RegexProgram.h>
#include <nolk/core/regex/RegexScan.h>
#include <nolk/core/regex/RegexSequence.h>
#include <nolk/core/regex/RegexStraightWalk.h>
#include <nolk/core/regex/RegexWalker.h>

#include <cstdint>

namespace nolk {

/**
 * A pattern, what it was compiled to, and the state of its search.
 *
 * It is the engine behind both flavours, which compile the same template: Regex has a
 * RegexImp<char>, and URegex one over UTF-16 code units. One thread at a time may search, since the
 * search works in the object; each thread takes a copy.
 */
template <typename T>
class RegexImp {
public:
    static constexpr unsigned npos = ~0u;

    /** Has no pattern, and finds nothing. */
    RegexImp();
    /** @throws RegexException if the pattern is no regular expression */
    RegexImp(const T* pattern, unsigned length);
    /** Copies everything but the state of the search. */
    RegexImp(const RegexImp& other);
    RegexImp& operator=(const RegexImp& other);
    virtual ~RegexImp();

    const T* pattern() const noexcept { return pattern_.data(); }
    unsigned patternLength() const noexcept { return pattern_.empty() ? 0 : pattern_.size() - 1; }
    unsigned subCount() const noexcept { return program_.subCount; }
    /** Always the code 0: a pattern that fails to compile leaves no object behind. */
    static const RegexException& getStatus();

    /** Below, at or above 0 as this pattern sorts before, with or behind the other. */
    int compare(const RegexImp& other) const noexcept;

    /**
     * The first match that begins at `start` or behind.
     * @param end where the subject ends
     * @return whether there is one
     * @pre the text from `base` on has `end` characters
     */
    bool search(const T* base, unsigned start, unsigned end, RegexResult<T>& result);
    /** The match that begins at `start`. */
    bool matchAt(const T* base, unsigned start, unsigned end, RegexResult<T>& result);

    /** A result without a match, to be searched into. */
    static RegexResult<T> makeResult() {
        return RegexResult<T>(typename RegexResult<T>::Uninitialised());
    }

    /** @name For tests
     *  @{ */
    const RegexProgram<T>& program() const noexcept { return program_; }
    RegexWalker<T>& walker() noexcept { return walker_; }
    /** Has all searches go by walks. */
    void walkAlways() noexcept { walksAlways_ = true; }
    /** @} */

private:
    bool begin(const T* base, unsigned start, unsigned end, RegexResult<T>& result);
    bool searchFrom(const T* p, RegexResult<T>& result);
    bool attempt(const T* p, RegexResult<T>& result);
    bool attemptWalks(const T* p, RegexResult<T>& result);
    bool attemptSequence(const T* p, bool& found, RegexResult<T>& result) const;
    bool attemptStraight(const T* p, bool& found, RegexResult<T>& result) const;
    void keep(const T* p, const T* end, RegexResult<T>& result) const;

    RegexArray<T, 128> pattern_;  // with a zero behind it; empty if there is none
    RegexProgram<T> program_;
    RegexFirstUnits<T> firstUnits_;
    RegexWalker<T> walker_;
    const T* base_ = nullptr;
    const T* end_ = nullptr;
    bool isWalking_ = false;  // the search goes by walks
    bool walksAlways_ = false;
};

extern template class RegexImp<char>;
extern template class RegexImp<UChar>;

}  // namespace nolk

#endif
