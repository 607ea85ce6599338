#include <nolk/core/Base64Encoder.h>
#include <nolk/core/Exception.h>

#include <gtest/gtest.h>

#include <string>

namespace nolk {
namespace {

std::string encode(const std::string& input) {
    return Base64Encoder::encode(input);
}

std::string decode(const std::string& input) {
    return Base64Encoder::decode(input);
}

std::string failureOf(const std::string& input) {
    try {
        return "decoded as " + decode(input);
    } catch (const Exception& failure) {
        return failure.what();
    }
}

const std::string invalid = "[INVALID_BASE64] Invalid base64 encoded character";

struct Row {
    std::string bytes;
    std::string text;
};

// The vectors of RFC 4648, and bytes whose characters are the last two of the alphabet.
const Row rows[] = {
    {"", ""},
    {"f", "Zg=="},
    {"fo", "Zm8="},
    {"foo", "Zm9v"},
    {"foob", "Zm9vYg=="},
    {"fooba", "Zm9vYmE="},
    {"foobar", "Zm9vYmFy"},
    {std::string(3, '\0'), "AAAA"},
    {"\xFB\xEF\xBE", "++++"},
    {"\xFF\xFF\xFF", "////"},
    {"\xFF", "/w=="},
    {"\xFF\xFE", "//4="},
    {"\x01", "AQ=="},
    {std::string(1, '\0'), "AA=="},
    {std::string("\0\x10\x83\x10\x51\x87\x20\x92\x8B\x30\xD3\x8F\x41\x14\x93\x51\x55\x97\x61\x96"
                 "\x9B\x71\xD7\x9F\x82\x18\xA3\x92\x59\xA7\xA2\x9A\xAB\xB2\xDB\xAF\xC3\x1C\xB3\xD3"
                 "\x5D\xB7\xE3\x9E\xBB\xF3\xDF\xBF",
                 48),
     "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/"},
};

TEST(Base64Encoder, WritesAndReadsTheVectorsOfTheStandard) {
    for (const Row& row : rows) {
        EXPECT_EQ(encode(row.bytes), row.text);
        EXPECT_EQ(decode(row.text), row.bytes);
    }
}

// A zero byte is written as "A" and a third, so that lines are easily told.
TEST(Base64Encoder, EachSeventyTwoDataCharactersEndInALineBreak) {
    const std::string line(72, 'A');
    const std::string zero(1000, '\0');
    EXPECT_EQ(encode(zero.substr(0, 51)), std::string(68, 'A'));
    EXPECT_EQ(encode(zero.substr(0, 54)), line + "\r\n");
    EXPECT_EQ(encode(zero.substr(0, 57)), line + "\r\nAAAA");
    EXPECT_EQ(encode(zero.substr(0, 108)), line + "\r\n" + line + "\r\n");
    EXPECT_EQ(encode(zero.substr(0, 162)), line + "\r\n" + line + "\r\n" + line + "\r\n");
}

TEST(Base64Encoder, PadCharactersDoNotCountTowardsALine) {
    const std::string zero(1000, '\0');
    EXPECT_EQ(encode(zero.substr(0, 52)), std::string(70, 'A') + "==");
    EXPECT_EQ(encode(zero.substr(0, 53)), std::string(71, 'A') + "=");
    EXPECT_EQ(encode(zero.substr(0, 55)), std::string(72, 'A') + "\r\nAA==");
    EXPECT_EQ(encode(zero.substr(0, 56)), std::string(72, 'A') + "\r\nAAA=");
}

TEST(Base64Encoder, ThirteenBytesNeedMoreThanHalfAsMuchAgain) {
    EXPECT_EQ(encode("Hello, world!"), "SGVsbG8sIHdvcmxkIQ==");
}

TEST(Base64Encoder, LeavesItsInputAlone) {
    const std::string bytes = "foobar";
    encode(bytes);
    EXPECT_EQ(bytes, "foobar");
    const std::string text = "Zm8= \r\n";
    decode(text);
    EXPECT_EQ(text, "Zm8= \r\n");
}

TEST(Base64Encoder, PaddingMayBeMissingOrTooMuch) {
    for (const std::string text : {"TWE=", "TWE", "TWE==", "TWE====="}) {
        EXPECT_EQ(decode(text), "Ma") << text;
    }
    EXPECT_EQ(decode("Zg"), "f");
    EXPECT_EQ(decode("Zg="), "f");
    EXPECT_EQ(decode("Zm9v=="), "foo");
}

TEST(Base64Encoder, LineBreaksAreSkippedWhereverTheyStand) {
    EXPECT_EQ(decode("TW\r\nE="), "Ma");
    EXPECT_EQ(decode("\r\nTWE="), "Ma");
    EXPECT_EQ(decode("T\nW\rE"), "Ma");
    EXPECT_EQ(decode("\n\n\nT\r\r\rW\n\n\n\nF\r\nu\r\nT\nWFu"), "ManMan");
}

TEST(Base64Encoder, WhiteSpaceAtTheEndIsDropped) {
    EXPECT_EQ(decode("TWE= \t\n\v\f\r"), "Ma");
    EXPECT_EQ(decode("TWE \r\n "), "Ma");
}

TEST(Base64Encoder, WhiteSpaceIsDroppedBeforePaddingAndNotBehindIt) {
    EXPECT_EQ(decode("TWE\r\n="), "Ma");
    EXPECT_EQ(failureOf("TWE= ="), invalid);
    EXPECT_EQ(failureOf("TWE =="), invalid);
    EXPECT_EQ(failureOf("TWE=\r\n="), invalid);
}

TEST(Base64Encoder, ALastGroupOfOneCharacterYieldsNothing) {
    EXPECT_EQ(decode("Z"), "");
    EXPECT_EQ(decode("Zm9vY"), "foo");
    EXPECT_EQ(decode("Zm9vY==="), "foo");
}

TEST(Base64Encoder, SpareBitsOfALastGroupMayHaveAnyValue) {
    EXPECT_EQ(decode("Zh=="), "f");
    EXPECT_EQ(decode("Zm9="), "fo");
}

TEST(Base64Encoder, WhereNothingIsLeftTheResultIsEmpty) {
    for (const std::string text : {"", "=", "====", " ", "\r\n", "==\r\n"}) {
        EXPECT_EQ(decode(text), "") << text;
    }
}

TEST(Base64Encoder, AnyOtherCharacterIsRefused) {
    EXPECT_EQ(failureOf("TW E="), invalid);
    EXPECT_EQ(failureOf("TW=E"), invalid);
    EXPECT_EQ(failureOf(" TWE="), invalid);
    EXPECT_EQ(failureOf("TW\tE"), invalid);
    EXPECT_EQ(failureOf(std::string("TWE\0", 4)), invalid);
}

bool isInAlphabet(unsigned c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+' ||
           c == '/';
}

TEST(Base64Encoder, EveryByteIsDataOrSkippedOrRefusedAtEveryPlace) {
    const std::string text(100, 'A');
    for (unsigned c = 0; c < 256; ++c) {
        for (std::size_t i = 0; i < text.size() - 1; ++i) {
            std::string changed = text;
            changed[i] = static_cast<char>(c);
            if (isInAlphabet(c)) {
                ASSERT_EQ(decode(changed).size(), 75u) << c << " at " << i;
            } else if (c == '\r' || c == '\n') {
                ASSERT_EQ(decode(changed).size(), 74u) << c << " at " << i;
            } else {
                ASSERT_EQ(failureOf(changed), invalid) << c << " at " << i;
            }
        }
    }
}

}  // namespace
}  // namespace nolk
