#include <nolk/core/QuotedPrintableEncoder.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace nolk {
namespace {

std::string encode(const std::string& input) {
    return QuotedPrintableEncoder::encode(input);
}

std::string decode(const std::string& input) {
    return QuotedPrintableEncoder::decode(input, false);
}

std::string stripped(const std::string& input) {
    return QuotedPrintableEncoder::decode(input, true);
}

struct Row {
    std::string input;
    std::string output;
};

// ---- Encoding

TEST(QuotedPrintableEncoder, WritesEveryByteByItsClass) {
    const std::string escaped = "=!\"#$@[\\]^`{|}~";
    const std::string digits = "0123456789ABCDEF";
    for (unsigned byte = 0; byte < 256; ++byte) {
        const std::string input(1, static_cast<char>(byte));
        std::string wanted;
        if (byte == ' ' || byte == '\t') {
            wanted = input + "=\r\n";
        } else if (byte >= 33 && byte <= 126 && escaped.find(input) == std::string::npos) {
            wanted = input;
        } else {
            wanted = {'=', digits[byte / 16], digits[byte % 16]};
        }
        EXPECT_EQ(encode(input), wanted) << byte;
    }
}

TEST(QuotedPrintableEncoder, WritesBlanksLineBreaksAndOthersAsTold) {
    const Row rows[] = {
        {"", ""},
        {"a =", "a =3D"},
        {"Gr\xC3\xBC\xC3\x9F", "Gr=C3=BC=C3=9F"},
        {"a\tb c", "a\tb c"},
        {"a\r\nb", "a\r\nb"},
        {"\r\n", "\r\n"},
        {"\r\n\r\n", "\r\n\r\n"},
        // A blank in front of a line break, and at the end.
        {"a \r\nb", "a =\r\n\r\nb"},
        {"a\t\r\nb", "a\t=\r\n\r\nb"},
        {" \r\n", " =\r\n\r\n"},
        {"a ", "a =\r\n"},
        {"a\t", "a\t=\r\n"},
        {"a  ", "a  =\r\n"},
        {"a\r\n ", "a\r\n =\r\n"},
        // Halves of a line break.
        {"a\rb", "a=0Db"},
        {"a\nb", "a=0Ab"},
        {"a\r", "a=0D"},
        {"a\n", "a=0A"},
        {"\n\r", "=0A=0D"},
        {"\r\r\n", "=0D\r\n"},
        {"\r\n\n", "\r\n=0A"},
        {" \n", " =0A"},
        {std::string("a\0b", 3), "a=00b"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(encode(row.input), row.output) << row.input;
    }
}

TEST(QuotedPrintableEncoder, LiteralBytesFillALineOfSeventyFour) {
    const std::string line(74, 'x');
    EXPECT_EQ(encode(line), line);
    EXPECT_EQ(encode(line + "x"), line + "=\r\nx");
    EXPECT_EQ(encode(line + line + line), line + "=\r\n" + line + "=\r\n" + line);
    EXPECT_EQ(encode(line + line + "xy"), line + "=\r\n" + line + "=\r\nxy");
}

TEST(QuotedPrintableEncoder, EncodedBytesAreNotDivided) {
    EXPECT_EQ(encode(std::string(71, 'x') + "="), std::string(71, 'x') + "=3D");
    EXPECT_EQ(encode(std::string(72, 'x') + "="), std::string(72, 'x') + "=\r\n=3D");
    EXPECT_EQ(encode(std::string(73, 'x') + "="), std::string(73, 'x') + "=\r\n=3D");
    EXPECT_EQ(encode(std::string(74, 'x') + "="), std::string(74, 'x') + "=\r\n=3D");
    std::string line;
    for (int i = 0; i < 24; ++i) {
        line += "=00";
    }
    EXPECT_EQ(encode(std::string(24, '\0')), line);
    EXPECT_EQ(encode(std::string(25, '\0')), line + "=\r\n=00");
    EXPECT_EQ(encode(std::string(49, '\0')), line + "=\r\n" + line + "=\r\n=00");
}

TEST(QuotedPrintableEncoder, BehindASoftBreakTheColumnStartsWithWhatIsWritten) {
    const std::string line(74, 'x');
    EXPECT_EQ(encode(line + line), line + "=\r\n" + line);
    const std::string after = "=3D" + std::string(71, 'x');
    EXPECT_EQ(encode(line + "=" + std::string(71, 'x')), line + "=\r\n" + after);
    EXPECT_EQ(encode(line + "=" + std::string(72, 'x')), line + "=\r\n" + after + "=\r\nx");
}

TEST(QuotedPrintableEncoder, ALineBreakStartsTheColumnAnew) {
    const std::string line(74, 'x');
    EXPECT_EQ(encode(line + "\r\n" + line), line + "\r\n" + line);
    EXPECT_EQ(encode("abc\r\n" + line + "x"), "abc\r\n" + line + "=\r\nx");
}

TEST(QuotedPrintableEncoder, ABlankInTheLastColumnIsProtectedByTheSoftBreakAnyway) {
    EXPECT_EQ(encode(std::string(73, 'x') + " y"), std::string(73, 'x') + " =\r\ny");
    EXPECT_EQ(encode(std::string(74, 'x') + " "), std::string(74, 'x') + "=\r\n =\r\n");
}

TEST(QuotedPrintableEncoder, LeavesItsInputAlone) {
    const std::string text = "a =\r\n";
    encode(text);
    decode(text);
    stripped(text);
    EXPECT_EQ(text, "a =\r\n");
}

// ---- Decoding

TEST(QuotedPrintableEncoder, ReadsEscapesBreaksAndLiterals) {
    const Row rows[] = {
        {"", ""},
        {"a =3D", "a ="},
        {"=C3=BC", "\xC3\xBC"},
        {"=c3=bC", "\xC3\xBC"},
        {"a=\r\nb", "ab"},
        {"=\r\n", ""},
        {"a\r\nb", "a\r\nb"},
        {"a\rb\nc", "a\rb\nc"},
        {"a\r", "a\r"},
        {"=00", std::string(1, '\0')},
        {"\x80\xFF~", "\x80\xFF~"},
        // A "=" with fewer than two bytes behind it.
        {"a=", "a="},
        {"a=3", "a=3"},
        {"a=\r", "a=\r"},
        {"=", "="},
        {"==", "=="},
        // A "=" with two bytes that are neither digits nor a soft break.
        {"a=XYb", "a=XYb"},
        {"a=3Gb", "a=3Gb"},
        {"a=G3b", "a=G3b"},
        {"a=\rbc", "a=\rbc"},
        {"a=\nbc", "a=\nbc"},
        {"===3D", "==="},    // "==" is copied, "=3D" is read
        {"a==3D", "a==3D"},  // "==" is copied, and the rest stands for itself
        {"a=x=41", "a=xA"},
        {"=\r=0A", "=\r\n"},  // the "=" keeps the CR, and then LF is read
    };
    for (const Row& row : rows) {
        EXPECT_EQ(decode(row.input), row.output) << row.input;
    }
}

TEST(QuotedPrintableEncoder, EveryPairOfBytesBehindAnEqualsSignIsReadOrCopied) {
    const std::string upper = "0123456789ABCDEF";
    const std::string lower = "0123456789abcdef";
    const auto value = [&](char c) {
        const std::size_t place = upper.find(c);
        return place != std::string::npos ? place : lower.find(c);
    };
    for (unsigned pair = 0; pair < 0x10000; ++pair) {
        const char first = static_cast<char>(pair >> 8);
        const char second = static_cast<char>(pair);
        const std::size_t high = value(first), low = value(second);
        std::string wanted = {'=', first, second};
        if (first == '\r' && second == '\n') {
            wanted = "";
        } else if (high != std::string::npos && low != std::string::npos) {
            wanted = std::string(1, static_cast<char>(high * 16 + low));
        }
        ASSERT_EQ(decode({'=', first, second}), wanted) << pair;
    }
}

TEST(QuotedPrintableEncoder, BlanksStayUnlessTheyAreToBeStripped) {
    EXPECT_EQ(decode("a \t\r\nb \t"), "a \t\r\nb \t");
    EXPECT_EQ(stripped("a \t\r\nb \t"), "a\r\nb");
}

TEST(QuotedPrintableEncoder, StripsBlanksAtLineEndsAndAtTheEnd) {
    const Row rows[] = {
        {"a ", "a"},
        {"a\t \t", "a"},
        {" ", ""},
        {"  \r\n", "\r\n"},
        {"a \r\n\r\n b", "a\r\n\r\n b"},
        {"a\r\n ", "a\r\n"},
        {"a \n", "a \n"},  // a lone LF ends no line
        {"a \r", "a \r"},
        // Encoded blanks are stripped like any.
        {"a=20\r\n", "a\r\n"},
        {"a=09", "a"},
        {"a=20 =09", "a"},
        // Behind a soft break nothing is stripped until something follows.
        {"a =\r\n", "a "},
        {"a =\r\n\r\n", "a \r\n"},
        {"a =\r\nb ", "a b"},
        {"a =\r\n \r\n", "a\r\n"},
        // The rest behind an incomplete escape is copied, and the end stripped all the same.
        {"a= ", "a="},
        {"a=\t", "a="},
        {"a =", "a ="},
        // But it doesn't begin a line.
        {"= ", "= "},
        {"a\r\n= ", "a\r\n= "},
        {"a=\r\n= ", "a= "},
        // Copied behind a "=", a blank is at the end like any.
        {"=x ", "=x"},
        {"=  ", "="},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(stripped(row.input), row.output) << row.input;
    }
}

// ---- Both

// What any encoded text has to keep, told without the encoder's own rules.
void expectFitForTransport(const std::string& text) {
    std::size_t column = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (text.compare(i, 2, "\r\n") == 0) {
            ASSERT_TRUE(i == 0 || (text[i - 1] != ' ' && text[i - 1] != '\t')) << text;
            column = 0;
            ++i;
            continue;
        }
        ASSERT_TRUE(c == '\t' || (c >= ' ' && c <= '~')) << text;
        ASSERT_LE(++column, 75u) << text;
    }
    ASSERT_TRUE(text.empty() || (text.back() != ' ' && text.back() != '\t')) << text;
}

TEST(QuotedPrintableEncoder, RandomTextsComeThroughUnchanged) {
    std::mt19937 random(76);
    const std::string frequent = "\r\n =\tab\x80";
    for (int round = 0; round < 5000; ++round) {
        std::string text(random() % 300, '\0');
        const unsigned odd = random() % 8;
        for (char& c : text) {
            c = random() % 8 < odd ? static_cast<char>(random())
                                   : frequent[random() % frequent.size()];
        }
        const std::string encoded = encode(text);
        expectFitForTransport(encoded);
        ASSERT_EQ(decode(encoded), text);
    }
}

TEST(QuotedPrintableEncoder, TheDensestTextsFitTheRoomForThem) {
    for (std::size_t length = 0; length < 300; ++length) {
        const std::string zero(length, '\0');
        EXPECT_EQ(decode(encode(zero)), zero);
        std::string breaks;
        for (std::size_t i = 0; i < length; ++i) {
            breaks += " \r\n";
        }
        EXPECT_EQ(decode(encode(breaks)), breaks);
    }
}

}  // namespace
}  // namespace nolk
