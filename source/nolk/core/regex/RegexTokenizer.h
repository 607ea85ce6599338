#ifndef NOLK_CORE_REGEX_REGEX_TOKENIZER_H
#define NOLK_CORE_REGEX_REGEX_TOKENIZER_H

#include <nolk/core/regex/RegexArray.h>
#include <nolk/core/regex/RegexPatternReader.h>
#include <nolk/core/regex/RegexToken.h>

#include <cstdint>

namespace nolk {

/**
 * Cuts a pattern into tokens: scans over its characters place marks where alternations begin and
 * end, and one more reads the tokens.
 */
template <typename T>
class RegexTokenizer {
public:
    RegexTokenizer(const T* pattern, std::uint32_t length, RegexTokens& tokens)
        : pattern_(pattern), length_(length), reader_(pattern, pattern + length), tokens_(tokens) {}

    /** Fills the tokens, which are to be empty. @throws RegexFault<T> */
    void run();

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

    [[noreturn]] void throwAt(unsigned code, std::uint32_t position) const {
        throw RegexFault<T>{code, pattern_ + position};
    }

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

    const T* pattern_;
    std::uint32_t length_;
    RegexPatternReader<T> reader_;
    RegexTokens& tokens_;
    RegexArray<std::uint8_t, 192> marks_;
    RegexArray<std::uint32_t, 16> groups_;  // open ones: whether they have pipes, then tokens
};

extern template class RegexTokenizer<char>;
extern template class RegexTokenizer<UChar>;

}  // namespace nolk

#endif
