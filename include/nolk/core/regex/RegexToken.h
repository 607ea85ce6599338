/** @file
 * The tokens that a pattern is cut into.
 */
#ifndef NOLK_CORE_REGEX_REGEX_TOKEN_H
#define NOLK_CORE_REGEX_REGEX_TOKEN_H

#include <nolk/core/regex/RegexArray.h>

#include <cstdint>

namespace nolk {

/** The types of tokens. The numbers are part of the dumps that tests and documents show. */
enum class RegexTokenType : std::uint8_t {
    end = 0,              ///< two of them close every array
    groupOpen = 1,        ///< `(`
    groupClose = 2,       ///< `)`
    pipe = 3,             ///< `|`
    alternationOpen = 4,  ///< synthetic: the alternatives of a group or of the pattern begin
    alternationClose = 5,
    bracketSet = 6,   ///< `[...]`
    startAnchor = 7,  ///< `^`
    endAnchor = 8,    ///< `$`
    literals = 9,     ///< literal characters and escapes
    anyCharacter = 10,
    oneOrMore = 11,
    zeroOrMore = 12,
    optional = 13,
    counted = 14,  ///< `{...}`
    setAlternationOpen =
        15,  ///< the same as 4, 5 and 3 where all alternatives are single characters
    setAlternationClose = 16,
    setAlternationPipe = 17
};

/** A piece of the pattern, and where to go on behind it. */
struct RegexToken {
    RegexTokenType type;
    /** An atom or `(` that `$` follows in its alternative. */
    bool isEndAnchored;
    /** The first character in the pattern. */
    std::uint32_t position;
    /** Characters of the pattern; 0 for a synthetic token. */
    std::uint32_t length;
    /** The `(` that encloses it, or -1; always -1 for the synthetic ones. */
    std::int32_t enclosing;
    /** The token to go on with behind this one. */
    std::int32_t next;
    /** Of a `(`: the token that follows the group; else -1. */
    std::int32_t after;
    /** The node that it became, or the first behind it. */
    std::uint32_t node;
};

/** The tokens of a pattern, with room for an ordinary one's. */
using RegexTokens = RegexArray<RegexToken, 192>;

constexpr bool isRegexCardinality(RegexTokenType type) noexcept {
    return type >= RegexTokenType::oneOrMore && type <= RegexTokenType::counted;
}
constexpr bool isRegexAnchor(RegexTokenType type) noexcept {
    return type == RegexTokenType::startAnchor || type == RegexTokenType::endAnchor;
}
/** A token that consumes characters of the subject. */
constexpr bool isRegexAtom(RegexTokenType type) noexcept {
    return type == RegexTokenType::bracketSet || type == RegexTokenType::literals ||
           type == RegexTokenType::anyCharacter;
}

}  // namespace nolk

#endif
