/** @file
 * A compiled pattern.
 */
#ifndef NOLK_CORE_REGEX_REGEX_PROGRAM_H
#define NOLK_CORE_REGEX_REGEX_PROGRAM_H

#include <nolk/core/regex/RegexAlternator.h>
#include <nolk/core/regex/RegexArray.h>
#include <nolk/core/regex/RegexBitmap.h>
#include <nolk/core/regex/RegexBracketSet.h>
#include <nolk/core/regex/RegexStateNode.h>
#include <nolk/core/regex/RegexUnit.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace nolk {

/** Texts that a group may be, and that differ in their last units at most. */
template <typename T>
struct RegexChoice {
    T first;
    /** The last unit, if that is above 255. */
    T highLast;
    std::uint32_t length;
    /** Where one of the texts stands in the program's, if it has two units or more. */
    std::uint32_t place;
    /** The other last units. */
    RegexBitmap lasts;
};

/**
 * What RegexCompiler makes of a pattern and RegexImp walks: the nodes, what they match, the
 * alternations, and what is known of all matches. A value that doesn't change once it is made.
 */
template <typename T>
struct RegexProgram {
    using Unit = RegexUnit<T>;

    std::vector<RegexStateNode> nodes;
    std::vector<RegexBracketSet<T>> sets;
    RegexArray<T, 32> text;
    RegexAlternator alternator;
    /** What groups that are one of several texts may be, or the whole pattern: those of a node have
     * their place and number as its operand. */
    RegexArray<RegexChoice<T>, 16> choices;
    /** The node of each group. */
    RegexArray<std::uint32_t, 16> groupNodes;
    /** The number of groups. */
    std::uint32_t subCount = 0;
    /** Every match begins where the search does. */
    bool isStartAnchored = false;
    /** Every match ends at the end of the subject. */
    bool isEndAnchored = false;
    /** There is something in front of `^` or behind `$`. */
    bool neverMatches = false;

    /** @name What the first pass over the nodes finds, for searches
     *  @{ */
    /** RegexStraightWalk may go through it. */
    bool isStraight = false;
    /** The same, and there is never a decision to be saved: where that leads nowhere nothing does.
     */
    bool isLinear = false;
    /** Nodes follow one another, and there are no groups and alternations. */
    bool isSequence = false;
    /** A match may consume nothing. It errs towards yes. */
    bool mayBeEmpty = true;
    /** Unless it may be empty, every match begins with one of these units... */
    RegexBitmap firstUnits;
    /** ... or with one above 255. */
    bool mayBeginHigh = false;
    /** A node for one unit: every match is a run of it, and then the text of the node behind. */
    std::uint32_t leadingRun = regexNone;
    /** @} */

    std::uint32_t success() const noexcept { return static_cast<std::uint32_t>(nodes.size()) - 2; }
    std::uint32_t fail() const noexcept { return static_cast<std::uint32_t>(nodes.size()) - 1; }

    /** Whether a node for one unit matches a unit. @pre it is a literal or a set */
    bool matchesUnit(const RegexStateNode& node, T unit) const {
        return node.kind == RegexNodeKind::literal ? Unit::value(unit) == node.operand
                                                   : sets[node.operand].contains(unit);
    }
    /** Whether a node's text stands at `p`. @pre it is a text, which has two units or more */
    bool matchesText(const RegexStateNode& node, const T* p, const T* end) const {
        const T* const wanted = text.data() + node.operand;
        if (static_cast<std::size_t>(end - p) < node.operandLength || p[0] != wanted[0] ||
            p[1] != wanted[1]) {
            return false;
        }
        std::uint32_t i = 2;
        while (i < node.operandLength && p[i] == wanted[i]) {
            ++i;
        }
        return i == node.operandLength;
    }

    /** The end of the text at `p` that a node may be, or null. @pre the node has choices */
    const T* choiceEnd(const RegexStateNode& node, const T* p, const T* end) const {
        if (p == end) {
            return nullptr;
        }
        const RegexChoice<T>* choice = choices.data() + node.operand;
        for (const RegexChoice<T>* const last = choice + node.operandLength; choice != last;
             ++choice) {
            if ((choice->length == 1 || choice->first == *p) && isRestAt(*choice, p, end)) {
                return p + choice->length;
            }
        }
        return nullptr;
    }

    /** The end of the units from `p` on that a node for one unit matches. @pre as matchesUnit() */
    const T* runEnd(const RegexStateNode& node, const T* p, const T* end) const {
        if (node.kind == RegexNodeKind::literal) {
            while (p != end && Unit::value(*p) == node.operand) {
                ++p;
            }
        } else {
            const RegexBracketSet<T>& set = sets[node.operand];
            while (p != end && set.contains(*p)) {
                ++p;
            }
        }
        return p;
    }

    /** The end of as many units as a node for one unit takes, or null if there are too few. @pre as
     * matchesUnit() */
    const T* unitsEnd(const RegexStateNode& node, const T* p, const T* end) const {
        const bool isBounded = static_cast<std::size_t>(end - p) > node.max;
        const T* const last = runEnd(node, p, isBounded ? p + node.max : end);
        return static_cast<std::size_t>(last - p) < node.min ? nullptr : last;
    }

private:
    bool isRestAt(const RegexChoice<T>& choice, const T* p, const T* end) const {
        if (static_cast<std::size_t>(end - p) < choice.length) {
            return false;
        }
        const T* const wanted = text.data() + choice.place;
        const std::uint32_t last = choice.length - 1;
        for (std::uint32_t i = 1; i < last; ++i) {
            if (p[i] != wanted[i]) {
                return false;
            }
        }
        const unsigned value = Unit::value(p[last]);
        return value < 256 ? choice.lasts.contains(value) : p[last] == choice.highLast;
    }
};

}  // namespace nolk

#endif
