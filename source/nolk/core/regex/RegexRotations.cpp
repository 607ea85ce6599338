#include <nolk/core/regex/RegexRotations.h>

#include <algorithm>

namespace nolk {

void RegexRotations::begin(const RegexAlternator& alternator) {
    alternator_ = &alternator;
    choices_.fill(alternator.alternations(), 0);
    mattered_.fill(alternator.alternations(), false);
    rotation_ = 0;
    anyMattered_ = false;
}

void RegexRotations::beginAttempt() {
    if (rotation_ != 0) {
        apply(0);
    }
    forgetOrders();
}

void RegexRotations::forgetOrders() {
    if (anyMattered_) {
        std::fill(mattered_.begin(), mattered_.end(), std::uint8_t{0});
        anyMattered_ = false;
    }
}

void RegexRotations::apply(std::uint32_t rotation) {
    constexpr auto none = RegexAlternator::noChoice;
    for (std::uint32_t i = alternator_->rotation(rotation_); i != none;) {
        const auto& choice = alternator_->choice(i);
        choices_[choice.alternation] = 0;
        i = choice.outer;
    }
    for (std::uint32_t i = alternator_->rotation(rotation); i != none;) {
        const auto& choice = alternator_->choice(i);
        choices_[choice.alternation] =
            choice.alternative % alternator_->alternatives(choice.alternation);
        i = choice.outer;
    }
    rotation_ = rotation;
}

bool RegexRotations::next() {
    const std::uint32_t rotations = anyMattered_ ? alternator_->rotations() : 0;
    for (std::uint32_t rotation = rotation_ + 1; rotation < rotations; ++rotation) {
        if (mayDiffer(rotation)) {
            apply(rotation);
            forgetOrders();
            return true;
        }
    }
    return false;
}

bool RegexRotations::mayDiffer(std::uint32_t rotation) const {
    return differsAnywhere(rotation, rotation_) || differsAnywhere(rotation_, rotation);
}

// Whether one rotation makes a choice that matters and that the other doesn't make.
bool RegexRotations::differsAnywhere(std::uint32_t a, std::uint32_t b) const {
    for (std::uint32_t i = alternator_->rotation(a); i != RegexAlternator::noChoice;) {
        const auto& choice = alternator_->choice(i);
        if (mattered_[choice.alternation] != 0 && !isChosen(b, choice)) {
            return true;
        }
        i = choice.outer;
    }
    return false;
}

bool RegexRotations::isChosen(std::uint32_t rotation, const RegexAlternator::Choice& choice) const {
    for (std::uint32_t i = alternator_->rotation(rotation); i != RegexAlternator::noChoice;) {
        const auto& other = alternator_->choice(i);
        if (other.alternation == choice.alternation) {
            return other.alternative == choice.alternative;
        }
        i = other.outer;
    }
    return false;
}

}  // namespace nolk
