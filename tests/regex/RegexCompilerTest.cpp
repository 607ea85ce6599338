#include "RegexDump.h"

#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/regex/RegexCompiler.h>
#include <nolk/core/regex/RegexTables.h>

#include <gtest/gtest.h>

#include <iterator>
#include <string>

namespace nolk {
namespace {

struct Compiled {
    explicit Compiled(const std::string& pattern)
        : compiler(pattern.data(), static_cast<std::uint32_t>(pattern.size()), program) {
        compiler.compile();
    }
    RegexProgram<char> program;
    RegexCompiler<char> compiler;
};

std::string tokens(const std::string& pattern) {
    return test::dumpTokens(Compiled(pattern).compiler);
}

std::string nodes(const std::string& pattern) {
    return test::dumpNodes(Compiled(pattern).program);
}

std::string rotations(const std::string& pattern) {
    return test::dumpRotations(Compiled(pattern).program.alternator);
}

TEST(RegexCompiler, CutsAPatternIntoTokens) {
    EXPECT_EQ(tokens(""), "0@0 0@0");
    EXPECT_EQ(tokens("abc*"), "9@0 9@2 12@3 0@4 0@4");
    EXPECT_EQ(tokens("a.[b]$"), "9@0 10@1 6@2$ 8@5 0@6 0@6");
    EXPECT_EQ(tokens("(a)?b{2}"), "1@0^3 9@1 2@2 13@3 9@4 14@5 0@8 0@8");
    EXPECT_EQ(tokens("(ab)$"), "1@0^3$ 9@1 2@3 8@4 0@5 0@5");
}

TEST(RegexCompiler, PutsAnAlternationBetweenTwoTokensOfItsOwn) {
    EXPECT_EQ(tokens("^ab|c"), "7@0 4@1 9@1>6 3@3 9@4>6 5@5 0@5 0@5");
    EXPECT_EQ(tokens("x(a|bc)+"), "9@0 1@1^8 4@2 9@2>9 3@3 9@4>9 5@6 2@6 11@7 0@8 0@8");
}

TEST(RegexCompiler, JoinsAlternativesOfOneCharacterToASet) {
    EXPECT_EQ(tokens("(a|[b])"), "1@0^7 15@1>6 9@1 17@2 6@3 16@6 2@6 0@7 0@7");
    EXPECT_EQ(nodes("(a|b)"), "g1(1,S,F) s10(0,0,F)");
    EXPECT_EQ(nodes("a|b"), "s0(S,F,F)");
    EXPECT_EQ(nodes("(a|bc)"), "g1(1,S,F) h8(2,0,F) |l10(0,0,F) |t10(0,0,F)");
    EXPECT_EQ(nodes("(a|\\x41)"), "g1(1,S,F) h8(2,0,F) |l10(0,0,F) |l10(0,0,F)");
    EXPECT_EQ(nodes("(a|.)"), "g1(1,S,F) h8(2,0,F) |l10(0,0,F) |s10(0,0,F)");
}

TEST(RegexCompiler, NodesTakeTheirCardinality) {
    EXPECT_EQ(nodes("a"), "l0(S,F,F)");
    EXPECT_EQ(nodes("a+"), "l4(0,S,S)");
    EXPECT_EQ(nodes("a*"), "l20(0,S,S)");
    EXPECT_EQ(nodes("a?"), "l16(S,S,S)");
    EXPECT_EQ(nodes("a{0,}"), "l4(0,S,S)");
    EXPECT_EQ(nodes("^*a"), "l0(S,F,F)");
    EXPECT_EQ(nodes("(ab?)+c"), "g5(1,3,3) l8(2,0,F) l26(0,0,3) l0(S,F,F)");
}

TEST(RegexCompiler, MarksWhatIsAnchored) {
    EXPECT_EQ(nodes("x|^a"), "h0(1,F,F) |l0(S,F,F) |^l0(S,F,F)");
    EXPECT_EQ(nodes("ab|cd$"), "h0(1,F,F) |t0(S,F,F) |t0(S,F,F)$");
    EXPECT_EQ(nodes("ab|(cd)$"), "h0(1,F,F) |t0(S,F,F) |g1(3,S,F)$ t10(2,2,F)");
    EXPECT_EQ(nodes("ab$"), "t0(S,F,F)");
    EXPECT_TRUE(Compiled("ab$").program.isEndAnchored);
    EXPECT_TRUE(Compiled("(^a)").program.isStartAnchored);
    EXPECT_FALSE(Compiled("(^a|bc)").program.isStartAnchored);
    EXPECT_TRUE(Compiled("^a|bc").program.isStartAnchored);
    EXPECT_TRUE(Compiled("a^").program.neverMatches);
    EXPECT_TRUE(Compiled("$a").program.neverMatches);
    EXPECT_TRUE(Compiled("a$bc|d").program.neverMatches);
    EXPECT_FALSE(Compiled("(a$|bc)d").program.neverMatches);
}

TEST(RegexCompiler, RotatesOneAlternationAtATime) {
    EXPECT_EQ(rotations("a"), "");
    EXPECT_EQ(rotations("ab|c|d"), "0 1 2");
    EXPECT_EQ(rotations("(aa|b)(cc|d)"), "00 10 01");
    EXPECT_EQ(rotations("(a|b)(cc|d)"), "0 1");
    EXPECT_EQ(rotations("((aa|b)|c)"), "00 01 10");
    EXPECT_EQ(rotations("(c|(aa|b)|d)"), "00 10 11 20");
    EXPECT_EQ(rotations("a|$"), "0 1");
}

// These two are of no pattern's making.
TEST(RegexCompiler, HasAMessageForEveryCode) {
    EXPECT_EQ(std::size(regextables::messages), 21u);
    EXPECT_STREQ(LocalizedMessage(*regextables::messages[19]).getMessage().c_str(),
                 "Infinite cardinality on potentially empty match");
    EXPECT_STREQ(LocalizedMessage(*regextables::messages[20]).getMessage().c_str(),
                 "ASCII Conversion Error");
}

// The table of codes, told the other way round: by code.
TEST(RegexCompiler, FindsSuccessorsByTheCode) {
    using regextables::Target;
    //                           0       8       16      24
    const std::string onMatch = "nnFFsnFFnnonsnsnnnFFsnFFnnonsnsn";
    const std::string onFail = "FaFFnaFFoaoonaoonaFFnaFFnaoonaoo";
    const std::string onSkip = "FFFFnaFFFFFFnananaFFnaFFnananana";
    const auto told = [](const regextables::Targets& targets) {
        std::string text;
        for (const Target target : targets) {
            text += "Fsona"[static_cast<unsigned>(target)];
        }
        return text;
    };
    EXPECT_EQ(told(regextables::onMatch), onMatch);
    EXPECT_EQ(told(regextables::onFail), onFail);
    EXPECT_EQ(told(regextables::onSkip), onSkip);
}

}  // namespace
}  // namespace nolk
