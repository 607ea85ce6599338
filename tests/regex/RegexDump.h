/** @file
 * Tokens and nodes in short.
 */
#ifndef NOLK_TESTS_REGEX_REGEX_DUMP_H
#define NOLK_TESTS_REGEX_REGEX_DUMP_H

#include <nolk/core/regex/RegexCompiler.h>

#include <string>

namespace nolk::test {

/** Each token as type@position: "9@0 1@1"; with `>next` where that isn't the token behind. */
template <typename T>
std::string dumpTokens(const RegexCompiler<T>& compiler) {
    std::string text;
    for (std::uint32_t i = 0; i < compiler.tokens().size(); ++i) {
        const RegexToken& token = compiler.tokens()[i];
        text += (i == 0 ? "" : " ") + std::to_string(static_cast<unsigned>(token.type)) + "@" +
                std::to_string(token.position);
        if (token.next >= 0 && token.next != static_cast<std::int32_t>(i + 1)) {
            text += ">" + std::to_string(token.next);
        }
        if (token.after >= 0) {
            text += "^" + std::to_string(token.after);
        }
        text += token.isEndAnchored ? "$" : "";
    }
    return text;
}

/**
 * Each node but the two ends as kind, code and successors: "t0(1,5,5)" is a text with the code 0
 * that goes to 1 on a match, to 5 on a failure and to 5 to skip it. The kinds are g, h, l, t, s;
 * the ends are S and F. `|` marks the first of an alternative, `^` and `$` what is anchored.
 */
template <typename T>
std::string dumpNodes(const RegexProgram<T>& program) {
    const auto name = [&program](std::uint32_t i) {
        return i == program.success() ? std::string("S")
               : i == program.fail()  ? std::string("F")
                                      : std::to_string(i);
    };
    std::string text;
    for (std::uint32_t i = 0; i < program.success(); ++i) {
        const RegexStateNode& n = program.nodes[i];
        text += i == 0 ? "" : " ";
        text += n.isAlternativeHead ? "|" : "";
        text += n.mustStartAtBegin ? "^" : "";
        text += "SFghlts"[static_cast<unsigned>(n.kind)];
        text += std::to_string(n.code) + "(" + name(n.onMatch) + "," + name(n.onFail) + "," +
                name(n.onSkip) + ")";
        text += n.mustEndAtEnd ? "$" : "";
    }
    return text;
}

/** The rotations as they were recorded: "00 10 01". */
inline std::string dumpRotations(const RegexAlternator& alternator) {
    std::string text;
    for (std::uint32_t i = 0; i < alternator.rotations(); ++i) {
        std::string choices(alternator.alternations(), '0');
        for (std::uint32_t j = alternator.rotation(i); j != RegexAlternator::noChoice;) {
            const RegexAlternator::Choice& choice = alternator.choice(j);
            choices[choice.alternation] = static_cast<char>('0' + choice.alternative);
            j = choice.outer;
        }
        text += (i == 0 ? "" : " ") + choices;
    }
    return text;
}

}  // namespace nolk::test

#endif
