/** @file
 * Compiles patterns.
 */
#ifndef NOLK_CORE_REGEX_REGEX_COMPILER_H
#define NOLK_CORE_REGEX_REGEX_COMPILER_H

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
    const RegexTokens& tokens() const noexcept { return tokens_; }

private:
    using Unit = RegexUnit<T>;

    [[noreturn]] void regexThrow(unsigned code, const T* position) const;

    const T* pattern_;
    std::uint32_t length_;
    RegexProgram<T>& program_;
    RegexTokens tokens_;
};

extern template class RegexCompiler<char>;
extern template class RegexCompiler<UChar>;

}  // namespace nolk

#endif
