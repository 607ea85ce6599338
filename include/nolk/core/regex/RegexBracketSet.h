/** @file
 * Sets of characters.
 */
#ifndef NOLK_CORE_REGEX_REGEX_BRACKET_SET_H
#define NOLK_CORE_REGEX_REGEX_BRACKET_SET_H

#include <nolk/core/regex/RegexBitmap.h>
#include <nolk/core/regex/RegexUnit.h>

#include <cstdint>
#include <vector>

namespace nolk {

/**
 * The units that a `[...]` of a pattern, a `.`, or an alternation of single characters stands for.
 *
 * It is filled, then finished, and then asked. What it says of the units below 256 is kept in a
 * bitmap, which for bytes is all there is; the other units of the wide flavour are looked up in the
 * members.
 */
template <typename T>
class RegexBracketSet {
public:
    using Unit = RegexUnit<T>;

    /** @name Fill
     *  @{ */
    void add(T unit) { addRange(unit, unit); }
    /** The units between two bounds, both included, in whatever order they are given. */
    void addRange(T a, T b);
    /** All units whose general category is one of the bits. */
    void addCategories(std::uint32_t categories) { categories_ |= categories; }
    /** All units of a finished set. */
    void addSet(RegexBracketSet set) { members_.push_back(static_cast<RegexBracketSet&&>(set)); }
    /** Takes the units of a finished set out, whatever is added before or after. */
    void subtract(RegexBracketSet set) {
        subtrahend_.push_back(static_cast<RegexBracketSet&&>(set));
    }
    void negate() { isNegated_ = true; }
    /** Ends the filling. */
    void finish();
    /** @} */

    /** Whether a unit is in the set. @pre the set is finished */
    bool contains(T unit) const {
        if constexpr (Unit::isWide) {
            if (Unit::value(unit) > 255) {
                return containsHigh(Unit::value(unit));
            }
        }
        return bitmap_.contains(Unit::value(unit));
    }

    const RegexBitmap& bitmap() const noexcept { return bitmap_; }
    /** Whether a unit above 255 may be in the set. It errs towards yes. */
    bool mayContainHigh() const noexcept { return mayContainHigh_; }

private:
    struct Range {
        std::uint16_t low;
        std::uint16_t high;
    };

    bool containsHigh(unsigned unit) const;
    bool isHighMember(unsigned unit) const;
    void addCategoriesToBitmap();

    RegexBitmap bitmap_;
    bool isNegated_ = false;
    bool mayContainHigh_ = false;
    std::uint32_t categories_ = 0;
    std::vector<Range> ranges_;
    std::vector<RegexBracketSet> members_;
    std::vector<RegexBracketSet> subtrahend_;
};

extern template class RegexBracketSet<char>;
extern template class RegexBracketSet<UChar>;

}  // namespace nolk

#endif
