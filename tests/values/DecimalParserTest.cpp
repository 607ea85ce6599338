#include <nolk/core/DecimalParser.h>

#include <gtest/gtest.h>

#include <string>

#include "values/OtherLocale.h"

namespace nolk {
namespace {

using test::GlobalLocale;
using test::OtherLocale;

std::string parsed(const std::string& text) {
    return DecimalParser()(text.c_str()).asString();
}

TEST(DecimalParser, ReadsNumbers) {
    const struct {
        const char* text;
        const char* expected;
    } rows[] = {
        {"0", "0"},
        {"12", "12"},
        {"0012.500", "0012.500"},
        {"+12.5", "12.5"},
        {"-12.5", "-12.5"},
        {"- \t12.5", "-12.5"},
        {" \t\r\n12.5", "12.5"},
        {".5", "0.5"},
        {"-.5", "-0.5"},
        {"5.", "5"},
        {"$ 1,234.50", "1234.50"},
        {"$1", "1"},
        {" $ -1", "-1"},
        {"1,2,,3,", "123"},
        {",1", "1"},
        {"1.2,3,4", "1.234"},
        {".,5", "0.5"},
        {"123456789012345678901234567890.1", "123456789012345678901234567890.1"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(parsed(row.text), row.expected) << row.text;
    }
}

TEST(DecimalParser, IgnoresWhatStandsBehind) {
    const struct {
        const char* text;
        const char* expected;
    } rows[] = {{"12abc", "12"},   {"1.2.3", "1.2"}, {"1 2", "1"},         {"1e5", "1"},
                {"(1)abc", "-1"},  {"(1)%", "-1"},   {"1)", "1"},          {"1-", "1"},
                {"50%%", "00.50"}, {"1$", "1"},      {"(null)x", "(null)"}};
    for (const auto& row : rows) {
        EXPECT_EQ(parsed(row.text), row.expected) << row.text;
    }
}

TEST(DecimalParser, WithoutDigitsIsNaN) {
    for (const char* text :
         {"abc",  ".",   "-",       "+",    "- ",  " ",   "\t\r\n", "$",       "$ ",
          "$$1",  "-$5", "--5",     "+-5",  ",",   ",.,", "%",      "-%",      ".%",
          "null", "NaN", "missing", "-abc", "\v1", "()",  "( )",    "\xC3\xA4"}) {
        const Decimal value = DecimalParser()(text);
        EXPECT_EQ(value.state(), Decimal::State::NaN) << text;
        EXPECT_EQ(value.precision(), 0u) << text;
        EXPECT_FALSE(value < Decimal(0)) << text;
    }
}

TEST(DecimalParser, WithoutTextIsNull) {
    EXPECT_EQ(DecimalParser()(nullptr).state(), Decimal::State::null);
    EXPECT_EQ(DecimalParser()("").state(), Decimal::State::null);
}

TEST(DecimalParser, ParenthesesMeanNegative) {
    const struct {
        const char* text;
        const char* expected;
    } rows[] = {{"(12.50)", "-12.50"}, {"( 12.50 )", "-12.50"}, {" $ ( 5 )", "-5"},
                {"(-5)", "-5"},        {"(+5)", "-5"},          {"( - 5\t)", "-5"},
                {"(.5)", "-0.5"},      {"(1,000)", "-1000"},    {"(0)", "0"}};
    for (const auto& row : rows) {
        EXPECT_EQ(parsed(row.text), row.expected) << row.text;
    }
}

TEST(DecimalParser, ParenthesesThatArentClosedAreNaN) {
    for (const char* text :
         {"(", "( ", "(5", "(5 ", "(5]", "(5%)", "($5)", "(-", "(- ", "(abc)", "((5))", "(5 5)"}) {
        const Decimal value = DecimalParser()(text);
        EXPECT_EQ(value.state(), Decimal::State::NaN) << text;
        EXPECT_EQ(value.precision(), 0u) << text;
        EXPECT_FALSE(value < Decimal(0)) << text;
    }
}

TEST(DecimalParser, ReadsTheNamesOfStates) {
    const struct {
        const char* text;
        Decimal::State state;
    } rows[] = {
        {"(null)", Decimal::State::null},       {"(Null)", Decimal::State::null},
        {"(mull)", Decimal::State::null},       {"( null )", Decimal::State::null},
        {"$(null)", Decimal::State::null},      {"(NaN)", Decimal::State::NaN},
        {"(naN)", Decimal::State::NaN},         {"(maN)", Decimal::State::NaN},
        {"(missing)", Decimal::State::missing}, {"(nissing)", Decimal::State::missing},
        {"(Nissing)", Decimal::State::missing}, {"(missing\t)", Decimal::State::missing},
    };
    for (const auto& row : rows) {
        const Decimal value = DecimalParser()(row.text);
        EXPECT_EQ(value.state(), row.state) << row.text;
        EXPECT_EQ(value.precision(), 0u) << row.text;
        EXPECT_FALSE(value < Decimal(0)) << row.text;
    }
}

TEST(DecimalParser, OtherNamesAreNaN) {
    for (const char* text : {"(Missing)", "(NULL)", "(nul)", "(nulll)", "(null", "(null ",
                             "(missin)", "(missing", "(missingg)", "(naissing)", "(nnull)", "(n)",
                             "(n", "(ull)", "(aN)", "(ctorError)", "(miss ing)", "(null 5)"}) {
        EXPECT_EQ(DecimalParser()(text).state(), Decimal::State::NaN) << text;
    }
}

TEST(DecimalParser, ReadsWhatAsStringWrites) {
    for (const Decimal* value : {&Decimal::null, &Decimal::NaN, &Decimal::missing}) {
        EXPECT_TRUE(Decimal(value->asString()) == *value);
    }
}

TEST(DecimalParser, PerCentMovesThePoint) {
    const struct {
        const char* text;
        const char* expected;
    } rows[] = {{"50%", "00.50"},      {"5%", "0.05"},   {"150%", "001.50"}, {"-12.5%", "-00.125"},
                {"1,000%", "0010.00"}, {".5%", "0.005"}, {"0%", "0.00"},     {"$ 7%", "0.07"}};
    for (const auto& row : rows) {
        EXPECT_EQ(parsed(row.text), row.expected) << row.text;
    }
    EXPECT_EQ(parsed("50 %"), "50");
}

TEST(DecimalParser, ZeroAndNaNHaveNoSign) {
    EXPECT_EQ(parsed("-0"), "0");
    EXPECT_EQ(parsed("(0.00)"), "0.00");
    EXPECT_EQ(parsed("-0%"), "0.00");
}

TEST(DecimalParser, MayBeUsedAgain) {
    DecimalParser parse;
    EXPECT_EQ(parse("-12.5").asString(), "-12.5");
    EXPECT_EQ(parse("(").asString(), "(NaN)");
    EXPECT_EQ(parse("7").asString(), "7");
    EXPECT_EQ(parse("(missing)").asString(), "(missing)");
    EXPECT_EQ(parse(".5").asString(), "0.5");
    EXPECT_EQ(parse("").asString(), "(null)");
    EXPECT_EQ(parse("8").asString(), "8");
    DecimalParser copy(parse);
    EXPECT_EQ(copy("9.5").asString(), "9.5");
    EXPECT_EQ(parse("8").asString(), "8");
}

TEST(DecimalParser, TakesTheSeparatorsWhenItIsMade) {
    const OtherLocale german(",", ".");
    DecimalParser english;
    const GlobalLocale global(german);
    EXPECT_EQ(english("1,234.5").asString(), "1234,5");
    EXPECT_EQ(parsed("1.234,5"), "1234,5");
}

// As of French, Swiss and Persian.
TEST(DecimalParser, SeparatorsOfSeveralBytesCountAsAWhole) {
    const std::string narrow = "\xE2\x80\xAF";
    const OtherLocale french(",", narrow);
    const OtherLocale swiss(".", "\xE2\x80\x99");
    const std::string point = "\xD9\xAB";
    const std::string thousands = "\xD9\xAC";
    const OtherLocale persian(point, thousands);
    {
        const GlobalLocale global(french);
        EXPECT_EQ(parsed("1" + narrow + "234,5" + narrow + "6"), "1234,56");
        EXPECT_EQ(parsed("1\xE2\x80\x99"
                         "234"),
                  "1");
        EXPECT_EQ(parsed("1\xE2\x80"), "1");
        EXPECT_EQ(parsed("(1\xE2\x80)"), "(NaN)");
        EXPECT_EQ(parsed("(1\xE2)"), "(NaN)");
        EXPECT_EQ(parsed("(1" + narrow + ")"), "-1");
        EXPECT_EQ(parsed("1" + narrow + "%"), "0,01");
        EXPECT_EQ(parsed("1\xE2%"), "1");
    }
    {
        const GlobalLocale global(swiss);
        EXPECT_EQ(parsed("1\xE2\x80\x99"
                         "234.5"),
                  "1234.5");
    }
    {
        const GlobalLocale global(persian);
        EXPECT_EQ(parsed("1" + thousands + "234" + point + "5"), "1234" + point + "5");
        EXPECT_EQ(parsed("-" + point + "5" + thousands), "-0" + point + "5");
        EXPECT_EQ(parsed("(1\xD9)"), "(NaN)");
        EXPECT_EQ(parsed("(1" + point + "5)"), "-1" + point + "5");
        EXPECT_EQ(parsed(point), "(NaN)");
    }
}

TEST(DecimalParser, SeparatorsMayBeginAlike) {
    const OtherLocale longer("a", "a77");
    const GlobalLocale global(longer);
    EXPECT_EQ(parsed("1a772a3"), "12a3");
    EXPECT_EQ(parsed("1a78"), "1a78");
    EXPECT_EQ(parsed("1a7"), "1a7");
    EXPECT_EQ(parsed("1aa77"), "1");
    EXPECT_EQ(parsed("1a5a77"), "1a5");
}

TEST(DecimalParser, TheSameSeparatorForBothIsThatOfThousands) {
    const OtherLocale same(".", ".");
    const GlobalLocale global(same);
    EXPECT_EQ(parsed("1.5"), "15");
}

TEST(DecimalParser, LongTextsAreReadWhole) {
    const std::string nines(100000, '9');
    EXPECT_EQ(parsed("-" + nines + "." + nines), "-" + nines + "." + nines);
    EXPECT_EQ(parsed(std::string(100000, ' ') + "1" + std::string(100000, ',') + "2"), "12");
}

// Opens what is there for parsers of another kind.
class OpenParser : public DecimalParser {
public:
    using DecimalParser::clear;
    using DecimalParser::end;
    using DecimalParser::parse;
    using DecimalParser::restart;
    using DecimalParser::value;
};

TEST(DecimalParser, WalksOverItsText) {
    OpenParser parser;
    EXPECT_EQ(parser.end(), 0);
    EXPECT_EQ(parser.getc(), 0);
    EXPECT_EQ(parser.nextc(), 0);
    EXPECT_EQ(parser("1\xFF").asString(), "1");
    EXPECT_EQ(parser.getc(), 0xFF);
    EXPECT_EQ(parser.nextc(), 0);
    EXPECT_EQ(parser.nextc(), 0);
    EXPECT_EQ(parser.getc(), 0);
}

TEST(DecimalParser, RestartGoesBackToTheBeginning) {
    OpenParser parser;
    EXPECT_EQ(parser("-12.5").asString(), "-12.5");
    parser.restart();
    EXPECT_EQ(parser.getc(), '-');
    EXPECT_EQ(parser.value().precision(), 0u);
    EXPECT_TRUE(parser.parse());
    EXPECT_EQ(parser.value().asString(), "-12.5");
}

}  // namespace
}  // namespace nolk
