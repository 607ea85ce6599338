/** @file
 * The text arguments of UString's operations.
 */
#ifndef NOLK_CORE_USTRING_RUN_H
#define NOLK_CORE_USTRING_RUN_H

#include <nolk/core/Export.h>
#include <nolk/core/Types.h>

#include <concepts>

namespace nolk {

class UString;

/**
 * A run of code units or of code points somewhere in memory, without a copy.
 *
 * The forms in which every operation of UString takes a text. A count of `UString::npos` stands for
 * a terminated run; a null pointer gives an empty one; a range of a string is clamped to it. The
 * run lives as long as what it was made of: it is an argument, not a thing to keep.
 */
class NOLK_API UStringRun {
public:
    explicit UStringRun(const UString& text);
    UStringRun(const UString& text, unsigned start, unsigned extent);
    explicit UStringRun(const UChar* units);
    UStringRun(const UChar* units, unsigned n);
    explicit UStringRun(const UChar32* points);
    UStringRun(const UChar32* points, unsigned n);

    UStringRun(const UStringRun&) = delete;
    UStringRun& operator=(const UStringRun&) = delete;

    /** Whether the run has code points; otherwise it has code units. */
    bool isCodePoints() const { return points_ != nullptr; }

    /** The first unit or point; null if the run is of the other kind. */
    const UChar* units() const { return units_; }
    const UChar32* points() const { return points_; }

    /** The number of units or points. */
    unsigned length() const { return length_; }

protected:
    // A single element, which is kept here.
    struct Single {};
    UStringRun(Single, UChar unit, unsigned length = 1)
        : element_{.unit = unit}, units_(&element_.unit), points_(nullptr), length_(length) {}
    UStringRun(Single, UChar32 point, unsigned length = 1)
        : element_{.point = point}, units_(nullptr), points_(&element_.point), length_(length) {}

private:
    union Element {
        UChar unit;
        UChar32 point = 0;
    };

    Element element_;
    const UChar* units_;
    const UChar32* points_;
    unsigned length_;
};

/** What a search looks for: a run, or a single unit or code point. */
class NOLK_API UStringPattern : public UStringRun {
public:
    using UStringRun::UStringRun;
    explicit UStringPattern(UChar unit) : UStringRun(Single(), unit) {}
    explicit UStringPattern(UChar32 point) : UStringRun(Single(), point) {}
};

/**
 * The arguments of a search: a pattern's, and before them where to look for it, which is nothing, a
 * start, or a start and an extent.
 *
 * Each form calls the search with the range and the pattern. It is one expression, so that strings
 * which arguments were converted to live as long as the search.
 */
class UStringQuery {
public:
    using Search = unsigned (UString::*)(unsigned start, unsigned extent,
                                         const UStringPattern& pattern) const;

    template <typename Text, typename... Pattern>
    requires std::constructible_from<UStringPattern, const Pattern&...>
    static unsigned run(const Text& text, Search search, const Pattern&... pattern) {
        return (text.*search)(0, ~0u, UStringPattern(pattern...));
    }

    template <typename Text, typename... Pattern>
    requires std::constructible_from<UStringPattern, const Pattern&...>
    static unsigned run(const Text& text, Search search, unsigned start,
                        const Pattern&... pattern) {
        return (text.*search)(start, ~0u, UStringPattern(pattern...));
    }

    template <typename Text, typename... Pattern>
    requires std::constructible_from<UStringPattern, const Pattern&...>
    static unsigned run(const Text& text, Search search, unsigned start, unsigned extent,
                        const Pattern&... pattern) {
        return (text.*search)(start, extent, UStringPattern(pattern...));
    }
};

class USubString;
class UConstSubString;

/** What a modification puts in: a run, or a unit or code point so many times. */
class NOLK_API UStringSource : public UStringRun {
public:
    using UStringRun::UStringRun;
    UStringSource(UChar unit, unsigned count)
        : UStringRun(Single(), unit, count), isRepeated_(true) {}
    UStringSource(UChar32 point, unsigned count)
        : UStringRun(Single(), point, count), isRepeated_(true) {}
    explicit UStringSource(const USubString& part);
    explicit UStringSource(const UConstSubString& part);

    /** Whether the first unit or point is meant length() times. */
    bool isRepeated() const { return isRepeated_; }

private:
    bool isRepeated_ = false;
};

/** What a search takes, and what a modification takes. */
template <typename... Arguments>
concept UStringQueryArguments = requires(const UString& text, UStringQuery::Search search,
                                         const Arguments&... arguments) {
    UStringQuery::run(text, search, arguments...);
};
template <typename... Arguments>
concept UStringSourceArguments = std::constructible_from<UStringSource, const Arguments&...>;

}  // namespace nolk

#endif
