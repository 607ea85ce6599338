/** @file
 * The alternations of a pattern and the orders in which their alternatives are tried.
 */
#ifndef NOLK_CORE_REGEX_REGEX_ALTERNATOR_H
#define NOLK_CORE_REGEX_REGEX_ALTERNATOR_H

#include <nolk/core/regex/RegexArray.h>

#include <cstdint>

namespace nolk {

/**
 * Alternations, their alternatives, and the rotations.
 *
 * A rotation is one choice for each alternation: the alternative to be tried first. A search walks
 * once for each rotation. There is one for each alternative, in the order of the pattern, and never
 * two alike: they vary one alternation at a time, so `(aa|bb)(cc|dd)` has 0,0 then 1,0 then 0,1.
 *
 * Only choices other than 0 are kept. Whatever lies inside an alternative shares its choices, so a
 * rotation is the innermost such choice, which leads to the next one outward.
 *
 * A choice may lie beyond an alternation's alternatives, where one of them was made of anchors
 * alone and has no node: choices count modulo the number of alternatives.
 */
class RegexAlternator {
public:
    /** A choice other than 0, and those of the alternations around. */
    struct Choice {
        std::uint32_t alternation;
        std::uint32_t alternative;
        std::uint32_t outer;  ///< the number of a choice, or noChoice
    };

    static constexpr std::uint32_t noChoice = ~std::uint32_t{0};

    /** @name Fill
     *  @{ */
    /** Begins an alternation inside those that are open. @return its number */
    std::uint32_t open();
    /** Enters a node as the next alternative of the innermost open alternation. */
    void addAlternative(std::uint32_t node);
    /** At a `|`: enters the rotation of the alternative that ends here. */
    void nextAlternative();
    /** At the end of the innermost open alternation: the same, and closes it. */
    void close();
    /** Ends the filling: brings the alternatives of each alternation together. */
    void finish();
    /** @} */

    std::uint32_t alternations() const noexcept { return records_.size(); }
    std::uint32_t alternatives(std::uint32_t alternation) const noexcept {
        return records_[alternation].count;
    }
    /** The first node of an alternative. */
    std::uint32_t alternative(std::uint32_t alternation, std::uint32_t i) const noexcept {
        return alternatives_[records_[alternation].first + i].node;
    }

    std::uint32_t rotations() const noexcept { return rotations_.size(); }
    /** The innermost choice of a rotation, or noChoice. */
    std::uint32_t rotation(std::uint32_t i) const noexcept { return rotations_[i]; }
    const Choice& choice(std::uint32_t number) const noexcept { return choices_[number]; }

private:
    struct Record {
        std::uint32_t first;  // of its alternatives
        std::uint32_t count;
    };
    struct Alternative {
        std::uint32_t alternation;
        std::uint32_t node;
    };
    struct Open {
        std::uint32_t alternation;
        std::uint32_t choice;  // of the current alternative and those around it
        std::uint32_t outer;
        bool isRecorded;  // that rotation
    };

    void record();

    RegexArray<Record, 4> records_;
    RegexArray<Alternative, 16> alternatives_;
    RegexArray<Open, 4> open_;
    RegexArray<Choice, 16> choices_;
    RegexArray<std::uint32_t, 16> rotations_;
};

}  // namespace nolk

#endif
