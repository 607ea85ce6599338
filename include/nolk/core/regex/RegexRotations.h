/** @file
 * The rotations of an attempt.
 */
#ifndef NOLK_CORE_REGEX_REGEX_ROTATIONS_H
#define NOLK_CORE_REGEX_REGEX_ROTATIONS_H

#include <nolk/core/regex/RegexAlternator.h>
#include <nolk/core/regex/RegexArray.h>

#include <cstdint>

namespace nolk {

/**
 * Which alternative of each alternation is tried first, from one rotation to the next.
 *
 * A walk under another rotation goes the same way, unless the two choose differently for an
 * alternation whose order has mattered. So it is told which have, and leaves rotations out.
 */
class RegexRotations {
public:
    /** Begins a search. @pre the alternator outlives it */
    void begin(const RegexAlternator& alternator);
    /** Begins an attempt: every alternation is on its first alternative. */
    void beginAttempt();

    /** The alternative of an alternation to be tried first. */
    std::uint32_t choice(std::uint32_t alternation) const { return choices_[alternation]; }
    std::uint32_t current() const noexcept { return rotation_; }

    /** The order of an alternation's alternatives has mattered. */
    void orderMattered(std::uint32_t alternation, bool matters = true) {
        mattered_[alternation] |= matters;
        anyMattered_ |= matters;
    }
    void allOrdersMattered() {
        mattered_.fill(mattered_.size(), true);
        anyMattered_ = true;
    }

    bool isLast() const noexcept { return rotation_ + 1 >= alternator_->rotations(); }
    /** Goes on to the next rotation that may change what walks find. @return false if there is none
     */
    bool next();

private:
    void apply(std::uint32_t rotation);
    void forgetOrders();
    bool mayDiffer(std::uint32_t rotation) const;
    bool differsAnywhere(std::uint32_t a, std::uint32_t b) const;
    bool isChosen(std::uint32_t rotation, const RegexAlternator::Choice& choice) const;

    const RegexAlternator* alternator_ = nullptr;
    RegexArray<std::uint32_t, 16> choices_;  // by alternation
    RegexArray<std::uint8_t, 16> mattered_;  // by alternation
    std::uint32_t rotation_ = 0;
    bool anyMattered_ = false;
};

}  // namespace nolk

#endif
