#ifndef NOLK_CORE_REGEX_REGEX_TOKEN_LINKER_H
#define NOLK_CORE_REGEX_REGEX_TOKEN_LINKER_H

#include <nolk/core/regex/RegexArray.h>
#include <nolk/core/regex/RegexToken.h>

#include <cstdint>

namespace nolk {

/**
 * Corrects and links the tokens of a pattern: the alternations first, then where each token goes
 * on, which node it becomes, and what the anchors are for.
 */
class RegexTokenLinker {
public:
    /** What the anchors say of the whole pattern. */
    struct Anchors {
        bool isStartAnchored = false;
        bool isEndAnchored = false;
        bool neverMatches = false;
    };

    explicit RegexTokenLinker(RegexTokens& tokens) : tokens_(tokens) {}

    /** @param end the length of the pattern */
    Anchors run(std::uint32_t end);

private:
    using Type = RegexTokenType;

    // What the tokens between two parentheses, or of the whole pattern, have shown so far.
    struct Scope {
        std::uint32_t alternation;
        bool hasNode;
    };

    void dropStrayAlternations();
    void joinSetAlternations();
    std::uint32_t setAlternationEnd(std::uint32_t open) const;
    void collectTargets();
    void linkTokens();
    void linkSetAlternation(std::uint32_t close, std::int32_t next);
    void addEnds(std::uint32_t end);
    void numberNodes();
    void findStartAnchors();
    void findEndAnchors();
    void markEndAnchoredAtom(std::uint32_t anchor);

    RegexTokens& tokens_;
    Anchors anchors_;
    RegexArray<std::uint32_t, 16> groups_;  // open ones: what each pass needs to know of them
    RegexArray<std::int32_t, 16> targets_;  // the atom behind each alternation's end
};

}  // namespace nolk

#endif
