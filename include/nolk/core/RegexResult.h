/** @file
 * Where a regular expression was found.
 */
#ifndef NOLK_CORE_REGEX_RESULT_H
#define NOLK_CORE_REGEX_RESULT_H

#include <nolk/core/Export.h>
#include <nolk/core/Types.h>
#include <nolk/core/regex/RegexArray.h>

#include <cstdint>
#include <string>

namespace nolk {

template <typename T>
class RegexImp;

template <typename T>
class RegexStraightWalk;

/**
 * The places of a match and of its groups, as offsets in characters from the subject's beginning.
 *
 * Number 0 is the whole match, the groups follow in the order of their `(`. A group that took no
 * part has the start `npos` and the length 0. A value that refers neither to the subject nor to the
 * expression.
 */
template <typename T>
class RegexResult {
public:
    static constexpr unsigned npos = ~0u;

    /** Unset, with no groups. */
    RegexResult() { reset(1); }

    /** Whether there is a match. */
    explicit operator bool() const noexcept { return starts_[0] != npos; }

    /** The number of groups and 1 for the whole match. */
    unsigned size() const noexcept { return starts_.size(); }

    /** @name Places
     *  @pre `i` is below size()
     *  @{ */
    unsigned getStart(unsigned i) const noexcept { return starts_[i]; }
    unsigned getLength(unsigned i) const noexcept { return lengths_[i]; }
    /** The text of a match; empty if its length is 0. @pre `subject` is what was searched */
    std::basic_string<T> subString(const std::basic_string<T>& subject, unsigned i) const {
        return lengths_[i] == 0 || starts_[i] >= subject.size()
                   ? std::basic_string<T>()
                   : subject.substr(starts_[i], lengths_[i]);
    }
    /** @} */

private:
    friend class RegexImp<T>;
    friend class RegexStraightWalk<T>;

    struct Uninitialised {};

    explicit RegexResult(Uninitialised) {}

    void reset(unsigned size) {
        starts_.fill(size, npos);
        lengths_.fill(size, 0);
    }
    void set(unsigned i, unsigned start, unsigned length) noexcept {
        starts_[i] = start;
        lengths_[i] = length;
    }

    RegexArray<std::uint32_t, 64> starts_;
    RegexArray<std::uint32_t, 64> lengths_;
};

}  // namespace nolk

#endif
