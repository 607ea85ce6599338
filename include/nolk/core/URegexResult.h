/** @file
 * Where a Unicode regular expression was found.
 */
#ifndef NOLK_CORE_UREGEX_RESULT_H
#define NOLK_CORE_UREGEX_RESULT_H

#include <nolk/core/Export.h>
#include <nolk/core/RegexResult.h>
#include <nolk/core/Types.h>
#include <nolk/core/UString.h>

namespace nolk {

/**
 * The places of a match and of its groups, in code units from the subject's beginning.
 *
 * Number 0 is the whole match. A group that took no part has the start `npos` and the length 0. A
 * value that refers neither to the subject nor to the expression.
 */
class NOLK_API URegexResult {
public:
    static constexpr unsigned npos = ~0u;

    /** Unset. */
    URegexResult() = default;
    explicit URegexResult(const RegexResult<UChar>& result) : result_(result) {}

    /** Whether there is a match. */
    explicit operator bool() const noexcept { return static_cast<bool>(result_); }

    /** The number of groups and 1 for the whole match. */
    unsigned size() const noexcept { return result_.size(); }

    /**
     * @name Places
     * @pre `i` is below size(), and `subject` is what was searched
     *  @{ */
    unsigned getStart(unsigned i) const noexcept { return result_.getStart(i); }
    unsigned getLength(unsigned i) const noexcept { return result_.getLength(i); }
    /** Where a match begins and ends; both the subject's end for an unset group. */
    UStringConstIterator begin(const UString& subject, unsigned i) const;
    UStringConstIterator end(const UString& subject, unsigned i) const;
    /** A view of a match; an empty one for an unset group. */
    UConstSubString subString(const UString& subject, unsigned i) const noexcept;
    /** @} */

private:
    RegexResult<UChar> result_;
};

}  // namespace nolk

#endif
