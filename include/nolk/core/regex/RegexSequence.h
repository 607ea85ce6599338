/** @file
 * Walks over patterns without groups and alternations.
 */
#ifndef NOLK_CORE_REGEX_REGEX_SEQUENCE_H
#define NOLK_CORE_REGEX_REGEX_SEQUENCE_H

#include <nolk/core/regex/RegexProgram.h>

#include <cstdint>

namespace nolk {

/**
 * Goes the ways through a pattern like `[0-9]*[1-9]+x?y` in the order in which RegexWalker does,
 * and finds what it finds.
 *
 * Without groups all that a walk can come back to is a node that gives back some of its units, so
 * that no more than the places of the runs need to be kept.
 */
template <typename T>
class RegexSequence {
public:
    /** @pre the program is a sequence, and both outlive this */
    RegexSequence(const RegexProgram<T>& program, const T* end)
        : program_(program), nodes_(program.nodes.data()), end_(end) {}

    /** The end of the first way that leads to one, or null. To be called once. */
    const T* walk(const T* p);
    /** Whether the ways were too many for this, which then has found nothing. */
    bool isTooLong() const noexcept { return isTooLong_; }
    /** Whether the first way led to the end. */
    bool isDirect() const noexcept { return steps_ == 0; }

private:
    using Node = RegexStateNode;

    // A node that has taken units, and may give back those behind `least`.
    struct Run {
        const Node* node;
        const T* least;
        const T* end;
    };

    static constexpr std::uint32_t mostRuns = 16;
    static constexpr std::uint32_t mostSteps = 256;

    const T* step(const Node& n, const T* p);
    void keep(const Node& n, const T* p, const T* end);
    const Node* giveBack(const T*& p);
    bool mayGoOn(const Node& n, const T* p) const;

    const RegexProgram<T>& program_;
    const Node* const nodes_;
    const T* const end_;
    std::uint32_t depth_ = 0;
    std::uint32_t steps_ = 0;
    bool isTooLong_ = false;
    Run runs_[mostRuns];
};

extern template class RegexSequence<char>;
extern template class RegexSequence<UChar>;

}  // namespace nolk

#endif
