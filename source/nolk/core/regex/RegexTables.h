#ifndef NOLK_CORE_REGEX_REGEX_TABLES_H
#define NOLK_CORE_REGEX_REGEX_TABLES_H

#include <nolk/core/MessageIds.h>
#include <nolk/core/regex/RegexPatternReader.h>
#include <nolk/core/regex/RegexStateNode.h>
#include <nolk/core/regex/RegexToken.h>

#include <array>
#include <cstdint>
#include <initializer_list>

namespace nolk::regextables {

/** The message of each code. The last four are of the wide flavour only. */
inline constexpr const MessageCatalogId* messages[] = {
    &NOLK_CORE_REGEX_NO_ERROR,
    &NOLK_CORE_REGEX_MISSING_ESCAPE,
    &NOLK_CORE_REGEX_INVALID_HEX,
    &NOLK_CORE_REGEX_INSUFFICIENT_8BIT_DATA,
    &NOLK_CORE_REGEX_INSUFFICIENT_16BIT_DATA,
    &NOLK_CORE_REGEX_MISSING_CLOSING_BRACKET,
    &NOLK_CORE_REGEX_MISSING_CLOSING_BRACE,
    &NOLK_CORE_REGEX_MISSING_CLOSING_PAREN,
    &NOLK_CORE_REGEX_UNMATCHED_CLOSING_PAREN,
    &NOLK_CORE_REGEX_INVALID_SUBEXPRESSION,
    &NOLK_CORE_REGEX_INVALID_DATA_AFTER_PIPE,
    &NOLK_CORE_REGEX_INVALID_DATA_BEFORE_PIPE,
    &NOLK_CORE_REGEX_CONSECUTIVE_CARDINALITIES,
    &NOLK_CORE_REGEX_INVALID_CARDINATLIY_RANGE,
    &NOLK_CORE_REGEX_LEADING_CARDINATLIY,
    &NOLK_CORE_REGEX_INVALID_DECIMAL,
    &NOLK_CORE_REGEX_UNMATCHED_CLOSING_BRACE,
    &NOLK_CORE_REGEX_INFINTE_CATEGORY_NAME,
    &NOLK_CORE_REGEX_INVALID_CATEGORY,
    &NOLK_CORE_REGEX_INFINITE_CARDINALITY,
    &NOLK_CORE_REGEX_ASCII_ERROR,
};

/** What stands in front of a token, as far as it can be wrong. */
enum Neighbour { start, groupOpen, pipe, alternationOpen, alternationClose, cardinality, other };

constexpr Neighbour neighbour(RegexTokenType previous) {
    switch (previous) {
        case RegexTokenType::end:
            return start;
        case RegexTokenType::groupOpen:
            return groupOpen;
        case RegexTokenType::pipe:
            return pipe;
        case RegexTokenType::alternationOpen:
            return alternationOpen;
        case RegexTokenType::alternationClose:
            return alternationClose;
        default:
            return isRegexCardinality(previous) ? cardinality : other;
    }
}

/** The tokens that may have a wrong neighbour, and what to report behind each; 0 is legal. */
struct NeighbourRow {
    std::uint8_t codes[other + 1];
};
//                                                     start ( |  4   5   card. other
inline constexpr NeighbourRow beforeCardinality = {{14, 9, 10, 11, 10, 12, 0}};
inline constexpr NeighbourRow beforePipe = {{0, 9, 10, 11, 10, 0, 0}};
inline constexpr NeighbourRow beforeAlternationClose = {{0, 9, 10, 11, 10, 0, 0}};
inline constexpr NeighbourRow beforeAlternationOpen = {{0, 0, 10, 11, 10, 0, 0}};
inline constexpr NeighbourRow beforeOthers = {{0, 0, 0, 0, 0, 0, 0}};

constexpr const NeighbourRow& neighbourRow(RegexTokenType coming) {
    switch (coming) {
        case RegexTokenType::pipe:
            return beforePipe;
        case RegexTokenType::alternationOpen:
            return beforeAlternationOpen;
        case RegexTokenType::alternationClose:
            return beforeAlternationClose;
        default:
            return isRegexCardinality(coming) ? beforeCardinality : beforeOthers;
    }
}

/** Where a successor leads. */
enum class Target : std::uint8_t { fail, self, outer, next, after };

using Targets = std::array<Target, regexCodeCount>;

struct TargetRow {
    Target target;
    std::initializer_list<unsigned> codes;
};

constexpr Targets makeTargets(std::initializer_list<TargetRow> rows, Target others) {
    Targets targets{};
    targets.fill(others);
    for (const TargetRow& row : rows) {
        for (const unsigned code : row.codes) {
            targets[code] = row.target;
        }
    }
    return targets;
}

/** The successors by the sum of a node's bits. */
inline constexpr Targets onMatch = makeTargets(
    {
        {Target::fail, {2, 3, 6, 7, 18, 19, 22, 23}},
        {Target::self, {4, 12, 14, 20, 28, 30}},
        {Target::outer, {10, 26}},
    },
    Target::next);
inline constexpr Targets onFail = makeTargets(
    {
        {Target::fail, {0, 2, 3, 6, 7, 18, 19, 22, 23}},
        {Target::after, {1, 5, 9, 13, 17, 21, 25, 29}},
        {Target::next, {4, 12, 16, 20, 24, 28}},
    },
    Target::outer);
inline constexpr Targets onSkip = makeTargets(
    {
        {Target::next, {4, 12, 14, 16, 20, 24, 26, 28, 30}},
        {Target::after, {5, 13, 15, 17, 21, 25, 27, 29, 31}},
    },
    Target::fail);

}  // namespace nolk::regextables

#endif
