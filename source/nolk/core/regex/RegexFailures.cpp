#include <nolk/core/regex/RegexFailures.h>

#include <algorithm>

namespace nolk {

void RegexFailures::begin() noexcept {
    if (!states_.empty()) {
        std::fill(slots_.begin(), slots_.end(), noState);
    }
    states_.clear();
    words_.clear();
    open_.clear();
    known_ = 0;
}

std::uint32_t RegexFailures::hash() const noexcept {
    std::uint64_t hash = 0;
    for (std::uint32_t i = known_; i < words_.size(); ++i) {
        hash = (hash ^ words_[i]) * 0x9E3779B97F4A7C15;
        hash ^= hash >> 29;
    }
    return static_cast<std::uint32_t>(hash ^ hash >> 32);
}

std::uint32_t RegexFailures::find(std::uint32_t hash) const noexcept {
    const std::uint32_t mask = slots_.size() - 1;
    for (std::uint32_t i = hash & mask; slots_[i] != noState; i = (i + 1) & mask) {
        const State& state = states_[slots_[i]];
        if (state.hash == hash &&
            std::equal(words_.begin() + state.first, words_.begin() + state.last,
                       words_.begin() + known_, words_.end())) {
            return slots_[i];
        }
    }
    return noState;
}

std::uint32_t RegexFailures::findOrAdd() {
    if (slots_.empty()) {
        slots_.fill(firstSlots, noState);
    }
    const std::uint32_t hash = this->hash();
    const std::uint32_t state = find(hash);
    return state != noState ? state : add(hash);
}

RegexFailures::Outcome RegexFailures::outcome() const noexcept {
    const std::uint32_t state = slots_.empty() ? noState : find(hash());
    return state == noState ? unknown : states_[state].outcome;
}

RegexFailures::Outcome RegexFailures::open(std::uint32_t height, std::uint32_t walk) {
    const std::uint32_t state = findOrAdd();
    if (states_[state].outcome == unknown) {
        open_.push({state, height, walk});
    }
    return states_[state].outcome;
}

std::uint32_t& RegexFailures::place() {
    return states_[findOrAdd()].outcome;
}

std::uint32_t RegexFailures::add(std::uint32_t hash) {
    if (states_.size() == mostStates) {
        std::copy(words_.begin() + known_, words_.end(), words_.begin());
        const std::uint32_t count = words_.size() - known_;
        begin();
        words_.extend(count);
    }
    if ((states_.size() + 1) * 2 > slots_.size()) {
        slots_.fill(slots_.size() * 2, noState);
        for (std::uint32_t i = 0; i < states_.size(); ++i) {
            enter(i);
        }
    }
    states_.push({hash, known_, words_.size(), unknown});
    known_ = words_.size();
    enter(states_.size() - 1);
    return states_.size() - 1;
}

void RegexFailures::enter(std::uint32_t state) noexcept {
    const std::uint32_t mask = slots_.size() - 1;
    std::uint32_t i = states_[state].hash & mask;
    while (slots_[i] != noState) {
        i = (i + 1) & mask;
    }
    slots_[i] = state;
}

void RegexFailures::close(Outcome outcome) noexcept {
    states_[open_.back().state].outcome = outcome;
    open_.pop();
}

void RegexFailures::failed(std::uint32_t height) noexcept {
    while (!open_.empty() && open_.back().height >= height) {
        close(outright);
    }
}

void RegexFailures::retreated(std::uint32_t group, std::uint32_t height, std::uint32_t walk,
                              bool isOwn) noexcept {
    while (!open_.empty() && open_.back().walk > walk) {
        if (open_.back().height >= height) {
            close(group);
        } else if (isOwn) {
            break;  // it goes on among what this decision has led to
        } else {
            open_.pop();  // it leaves decisions behind: how it ended can't be told
        }
    }
    if (isOwn) {
        // What is taken next doesn't come from these.
        while (!open_.empty() && open_.back().height >= height) {
            open_.pop();
        }
    }
}

}  // namespace nolk
