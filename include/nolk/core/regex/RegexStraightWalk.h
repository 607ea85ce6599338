/** @file
 * Walks that go straight on.
 */
#ifndef NOLK_CORE_REGEX_REGEX_STRAIGHT_WALK_H
#define NOLK_CORE_REGEX_REGEX_STRAIGHT_WALK_H

#include <nolk/core/RegexResult.h>
#include <nolk/core/regex/RegexProgram.h>

#include <cstdint>

namespace nolk {

/**
 * Goes the first way of RegexWalker through a pattern of nodes that follow one another, of groups
 * that aren't repeated, and of alternations whose order can't matter: the way that most texts which
 * match go.
 *
 * It keeps no progress of groups and no decisions, and gives up where these would be needed.
 */
template <typename T>
class RegexStraightWalk {
public:
    /** @pre the program is straight, and all outlive this */
    RegexStraightWalk(const RegexProgram<T>& program, const T* base, const T* end)
        : program_(program), nodes_(program.nodes.data()), base_(base), end_(end) {}

    /** The end of the way, or null if it leads nowhere. The groups' places are set on the way. */
    const T* walk(const T* p, RegexResult<T>& result);
    /** Whether RegexWalker may find another end than walk(). */
    bool isGivenUp() const noexcept { return isGivenUp_; }

private:
    using Node = RegexStateNode;

    const T* walkThrough(std::uint32_t from, std::uint32_t to, const T* p);
    const T* walkGroup(const Node& n, const T* p);
    const T* walkRun(const Node& n, const T* p);
    const T* walkAlternatives(std::uint32_t head, std::uint32_t to, const T* p);
    bool canBegin(const Node& n, const T* p) const;
    const T* giveUp();
    void keep(const Node& group, const T* start, const T* end);

    const RegexProgram<T>& program_;
    const Node* const nodes_;
    const T* const base_;
    const T* const end_;
    RegexResult<T>* result_ = nullptr;
    bool isGivenUp_ = false;
    bool hasKept_ = false;
};

extern template class RegexStraightWalk<char>;
extern template class RegexStraightWalk<UChar>;

}  // namespace nolk

#endif
