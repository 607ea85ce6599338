/** @file
 * The nodes of a compiled pattern.
 */
#ifndef NOLK_CORE_REGEX_REGEX_STATE_NODE_H
#define NOLK_CORE_REGEX_REGEX_STATE_NODE_H

#include <cstdint>

namespace nolk {

/** What a node asks of the subject. */
enum class RegexNodeKind : std::uint8_t {
    success,  ///< the end of the walk
    fail,     ///< the other end
    group,    ///< a capturing group; it consumes nothing itself
    head,     ///< the head of an alternation; it consumes nothing itself
    literal,  ///< one unit
    text,     ///< several units in a row
    set       ///< one unit of a set
};

/** The bits whose sum tells a node's successors. */
enum RegexNodeBits : std::uint8_t {
    regexGroupBit = 1,      ///< it is a group
    regexLastBit = 2,       ///< it ends its group, or an alternative of it
    regexRepeatBit = 4,     ///< it has `+`, `*` or `{...}`
    regexInGroupBit = 8,    ///< it lies in a group
    regexOptionalBit = 16,  ///< it has `*` or `?`
    regexCodeCount = 32
};

/** No node, group, alternation or token. */
inline constexpr std::uint32_t regexNone = ~std::uint32_t{0};

/**
 * A node: what it matches, how often, and where to go on.
 *
 * Nodes name each other by their places in the program's array, so that copying the array copies
 * the program. Nothing here changes once the program is compiled.
 */
struct RegexStateNode {
    RegexNodeKind kind = RegexNodeKind::fail;
    /** The sum of its RegexNodeBits. */
    std::uint8_t code = 0;
    /** The first node of an alternative. */
    bool isAlternativeHead = false;
    /** It matches at the beginning of the subject only. */
    bool mustStartAtBegin = false;
    /** What it matches ends at the end of the subject. */
    bool mustEndAtEnd = false;

    /** @name What a visit may lead to, found when the program was compiled
     *  @{ */
    /** The enclosing group may be closed here and entered again. */
    bool mayReopenGroup = false;
    /** Another alternative may begin here, in a new iteration of the enclosing group. */
    bool mayReenterAlternation = false;
    /** It may be left for `onSkip` although it matches. */
    bool mayBeSkipped = false;
    /** A repeated group of a single unit, or a group of texts of which no two can stand at one
     * place; it saves nothing. */
    bool isRun = false;
    /** Of a group: a visit of a node inside may lead to one of these. */
    bool savesInside = false;
    /** Of a head: a look ahead allows one alternative at most. */
    bool isExclusive = false;
    /** It fails for certain where a look ahead says no. */
    bool failsUnseen = false;
    /** @} */

    /** How often, both included; all bits of `max` set: without a bound. */
    std::uint32_t min = 1;
    std::uint32_t max = 1;

    /** @name Successors
     *  @{ */
    std::uint32_t onMatch = regexNone;
    std::uint32_t onFail = regexNone;
    std::uint32_t onSkip = regexNone;
    /** @} */

    /** Where the token and, of a group, the whole group continue. */
    std::uint32_t next = regexNone;
    std::uint32_t after = regexNone;

    /** The group around it, or the fail node. */
    std::uint32_t enclosing = regexNone;
    /** How many groups are around it. */
    std::uint32_t depth = 0;
    /** 1 and up for a group, 0 for all others. */
    std::uint32_t captureId = 0;
    /** The first group that begins at or behind this node. */
    std::uint32_t groupsFrom = 0;
    /** Of a group, the first node behind its `)`; it is empty if that is the next one. */
    std::uint32_t innerEnd = 0;
    /** The alternation that it heads. */
    std::uint32_t alternation = regexNone;
    /** The node that a look ahead asks: itself, or inside a group; none: the answer is yes. */
    std::uint32_t look = regexNone;

    /** What it matches: the unit; or the place of its text, set or choices in the program. */
    std::uint32_t operand = 0;
    std::uint32_t operandLength = 0;

    bool isGroup() const noexcept { return (code & regexGroupBit) != 0; }
    bool isLast() const noexcept { return (code & regexLastBit) != 0; }
    bool repeats() const noexcept { return (code & regexRepeatBit) != 0; }
    bool isInGroup() const noexcept { return (code & regexInGroupBit) != 0; }
    bool isOptional() const noexcept { return (code & regexOptionalBit) != 0; }
    bool savesVisits() const noexcept {
        return mayBeSkipped || mayReopenGroup || mayReenterAlternation;
    }
    bool isTerminal() const noexcept { return kind <= RegexNodeKind::fail; }
};

}  // namespace nolk

#endif
