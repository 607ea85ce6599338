/** @file
 * Compiles patterns.
 */
#ifndef NOLK_CORE_REGEX_REGEX_COMPILER_H
#define NOLK_CORE_REGEX_REGEX_COMPILER_H

#include <nolk/core/regex/RegexArray.h>
#include <nolk/core/regex/RegexProgram.h>
#include <nolk/core/regex/RegexToken.h>

#include <cstdint>

namespace nolk {

/**
 * Makes a program of a pattern, in passes over flat arrays; there is no syntax tree.
 *
 * Two scans over the characters place marks where alternations begin and end. The pattern is then
 * cut into tokens, a few passes correct and link these, and one more builds the nodes, whose
 * successors come from a table.
 *
 * Its arrays have room for ordinary patterns in the object, which is made for one pattern and then
 * dropped.
 */
template <typename T>
class RegexCompiler {
public:
    /** @pre the pattern stays until the compiler goes */
    RegexCompiler(const T* pattern, std::uint32_t length, RegexProgram<T>& program);
    RegexCompiler(const RegexCompiler&) = delete;
    RegexCompiler& operator=(const RegexCompiler&) = delete;

    /** Fills the program, which is to be empty. @throws RegexException */
    void compile();

    /** The tokens that the nodes were built of, the two end tokens included. */
    const RegexArray<RegexToken, 192>& tokens() const noexcept { return tokens_; }

private:
    using Unit = RegexUnit<T>;
    using Type = RegexTokenType;

    // Marks of a position: an alternation begins or ends where a parenthesis may stand as well.
    enum Mark : std::uint8_t {
        openMark = 1,
        closeMark = 2,
        pipeMark = 4,
        alternationOpenMark = 8,
        alternationCloseMark = 16
    };

    // What the tokens between two parentheses, or of the whole pattern, have shown so far.
    struct Scope {
        std::uint32_t alternation;
        bool hasNode;
    };

    [[noreturn]] void regexThrow(unsigned code, const T* position) const;
    [[noreturn]] void throwAt(unsigned code, std::uint32_t position) const {
        regexThrow(code, pattern_ + position);
    }

    // Passes over the characters.
    bool isUnescaped(std::uint32_t position, char character) const;
    bool markPipes();
    void markParentheses();
    void markAlternationStarts();
    void markAlternationEnds();
    void tokenize();

    // One token each; they return the position behind it.
    void addToken(Type type, std::uint32_t position, std::uint32_t length);
    void checkNeighbours(Type coming, std::uint32_t position) const;
    std::uint32_t addCharacterToken(std::uint32_t position);
    std::uint32_t addGroupToken(Type type, std::uint32_t position);
    std::uint32_t addCardinality(Type type, std::uint32_t position);
    std::uint32_t addSetToken(std::uint32_t position);
    std::uint32_t addLiterals(std::uint32_t position);
    std::uint32_t characterEnd(std::uint32_t position) const;
    void addAlternationMarks(std::uint32_t position);

    // Passes over the tokens.
    void dropStrayAlternations();
    void joinSetAlternations();
    std::uint32_t setAlternationEnd(std::uint32_t open) const;
    void collectTargets();
    void linkTokens();
    void linkSetAlternation(std::uint32_t close, std::int32_t next);
    void numberNodes();
    void findStartAnchors();
    void findEndAnchors();
    void markEndAnchoredAtom(std::uint32_t anchor);
    void buildNodes();
    void setSuccessors();

    // Parts of the building of nodes.
    void buildToken(std::uint32_t i);
    RegexStateNode& addNode(RegexNodeKind kind, const RegexToken& token);
    void openGroup(const RegexToken& token);
    void closeGroup(std::uint32_t i);
    void openAlternation(const RegexToken& token);
    void buildAtom(const RegexToken& token);
    void buildLiterals(RegexStateNode& node, const RegexToken& token);
    std::uint32_t buildSetAlternation(std::uint32_t open);
    void finishNode(RegexStateNode& node, std::uint32_t behind);
    void applyCardinality(RegexStateNode& node, const RegexToken& token) const;
    void applyCounts(RegexStateNode& node, const RegexToken& token) const;
    void checkCounts(const T* first, const T* last) const;
    void addTerminals();
    std::uint32_t addSet(RegexBracketSet<T> set);

    const T* pattern_;
    std::uint32_t length_;
    RegexProgram<T>& program_;

    RegexArray<std::uint8_t, 192> marks_;
    RegexArray<RegexToken, 192> tokens_;
    RegexArray<std::uint32_t, 16> groups_;  // open ones: positions, then tokens, then nodes
    RegexArray<std::int32_t, 16> targets_;  // the atom behind each alternation's end
    bool isAlternativePending_ = false;     // the next node built begins an alternative
    bool isStartPending_ = false;           // the next node built that is no group follows a `^`
};

extern template class RegexCompiler<char>;
extern template class RegexCompiler<UChar>;

}  // namespace nolk

#endif
