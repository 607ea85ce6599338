/** @file
 * The decisions of a search that are known to fail.
 */
#ifndef NOLK_CORE_REGEX_REGEX_FAILURES_H
#define NOLK_CORE_REGEX_REGEX_FAILURES_H

#include <nolk/core/regex/RegexArray.h>

#include <cstdint>

namespace nolk {

/**
 * Remembers how taking a decision ended, for others that can't but end the same way.
 *
 * What follows a decision hangs on little: the position, where it goes on, and of each group around
 * how many iterations it may and must still have and whether the current one has consumed anything.
 * That is its *state*, a few words. Up to the point where a failure goes back into an iteration
 * that had begun before, nothing else is asked; least of all where iterations began and what was
 * captured, of which there are so many more.
 *
 * Where a node is repeated there are decisions in a row, of which those at the end fail first. Of
 * such a row one state is kept with the place from which on all have failed outright.
 *
 * A decision is *open* from when it is taken until all that it led to has failed. Open decisions
 * lie above each other, and each knows how many decisions are left when its own have been taken.
 *
 * It holds 262,144 states at most and then begins anew.
 */
class RegexFailures {
public:
    /** How a decision ended: it failed outright, or in the iteration of a group (the number of its
     * node) that had begun before. */
    using Outcome = std::uint32_t;
    static constexpr Outcome unknown = ~std::uint32_t{0};
    static constexpr Outcome outright = unknown - 1;

    static constexpr std::uint32_t mostStates = 1u << 18;

    /** Begins a search: forgets everything. */
    void begin() noexcept;

    /** @name Tell a state, word by word, and then ask for it
     *  @{ */
    void beginState() noexcept { words_.truncate(known_); }
    void addWord(std::uint32_t word) { words_.push(word); }
    /** How a decision in this state has ended, or `unknown`. */
    Outcome outcome() const noexcept;
    /** The same, for a decision that is about to be taken: where it is unknown it is open from now
     * on.
     * @param height how many decisions are left below it
     * @param walk the number of the walk that takes it, higher than those before */
    Outcome open(std::uint32_t height, std::uint32_t walk);
    /** The place noted for the state of a row, `unknown` at first; it stays until the next state is
     * asked for. */
    std::uint32_t& place();
    /** @} */

    /** A walk has failed and `height` decisions are left: what has none left has failed outright.
     */
    void failed(std::uint32_t height) noexcept;
    /**
     * A walk goes back into an iteration of a group, and `height` decisions are left.
     * @param walk the number of the walk that began the iteration
     * @param isOwn whether the last of them was saved in that iteration, and is taken next
     */
    void retreated(std::uint32_t group, std::uint32_t height, std::uint32_t walk,
                   bool isOwn) noexcept;
    /** Forgets what is open. */
    void dropOpen() noexcept { open_.clear(); }

    std::uint32_t size() const noexcept { return states_.size(); }

private:
    struct State {
        std::uint32_t hash;
        std::uint32_t first;  // of its words, which end where the next one's begin
        std::uint32_t last;
        Outcome outcome;
    };
    struct Open {
        std::uint32_t state;
        std::uint32_t height;
        std::uint32_t walk;
    };

    static constexpr std::uint32_t firstSlots = 64;
    static constexpr std::uint32_t noState = ~std::uint32_t{0};

    std::uint32_t hash() const noexcept;
    std::uint32_t find(std::uint32_t hash) const noexcept;
    std::uint32_t findOrAdd();
    std::uint32_t add(std::uint32_t hash);
    void enter(std::uint32_t state) noexcept;
    void close(Outcome outcome) noexcept;

    RegexArray<std::uint32_t, 64> words_;  // of all states, and behind them of the one being told
    std::uint32_t known_ = 0;              // how many belong to states
    RegexArray<State, 16> states_;
    RegexArray<std::uint32_t, firstSlots> slots_;
    RegexArray<Open, 16> open_;
};

}  // namespace nolk

#endif
