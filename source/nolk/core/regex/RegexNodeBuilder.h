#ifndef NOLK_CORE_REGEX_REGEX_NODE_BUILDER_H
#define NOLK_CORE_REGEX_REGEX_NODE_BUILDER_H

#include <nolk/core/regex/RegexArray.h>
#include <nolk/core/regex/RegexPatternReader.h>
#include <nolk/core/regex/RegexProgram.h>
#include <nolk/core/regex/RegexToken.h>

#include <cstdint>

namespace nolk {

/** Builds the nodes of a program of linked tokens, and finds their successors in the tables. */
template <typename T>
class RegexNodeBuilder {
public:
    RegexNodeBuilder(const T* pattern, std::uint32_t length, const RegexTokens& tokens,
                     RegexProgram<T>& program)
        : pattern_(pattern),
          reader_(pattern, pattern + length),
          tokens_(tokens),
          program_(program) {}

    /** @throws RegexFault<T> */
    void run();

private:
    using Unit = RegexUnit<T>;
    using Type = RegexTokenType;

    void buildNodes();
    void buildToken(std::uint32_t i);
    RegexStateNode& addNode(RegexNodeKind kind, const RegexToken& token);
    void openGroup(const RegexToken& token);
    void closeGroup(std::uint32_t i);
    void openAlternation(const RegexToken& token);
    void buildAtom(const RegexToken& token);
    void buildLiterals(RegexStateNode& node, const RegexToken& token);
    std::uint32_t buildSetAlternation(std::uint32_t open);
    std::uint32_t addSet(RegexBracketSet<T> set);
    void finishNode(RegexStateNode& node, std::uint32_t behind);
    void applyCardinality(RegexStateNode& node, const RegexToken& token) const;
    void applyCounts(RegexStateNode& node, const RegexToken& token) const;
    void checkCounts(const T* first, const T* last) const;
    void addTerminals();
    void setSuccessors();

    const T* pattern_;
    RegexPatternReader<T> reader_;
    const RegexTokens& tokens_;
    RegexProgram<T>& program_;
    RegexArray<std::uint32_t, 16> groups_;  // open ones
    bool isAlternativePending_ = false;     // the next node built begins an alternative
    bool isStartPending_ = false;           // the next node built that is no group follows a `^`
};

extern template class RegexNodeBuilder<char>;
extern template class RegexNodeBuilder<UChar>;

}  // namespace nolk

#endif
