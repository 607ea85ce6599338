#include <nolk/core/Exception.h>
#include <nolk/core/HexBinaryEncoder.h>

#include <gtest/gtest.h>

#include <string>

namespace nolk {
namespace {

const std::string usage = "[INVALID_USAGE] Invalid Usage";

// Buffers are as large as the test says and a little more, filled with a mark.
constexpr char untouched = '~';

std::string encode(const std::string& input, unsigned outputSize) {
    std::string output(outputSize + 4, untouched);
    HexBinaryEncoder::encode(input.data(), static_cast<unsigned>(input.size()), output.data(),
                             outputSize);
    return output;
}

std::string decode(const std::string& input, unsigned outputSize) {
    std::string output(outputSize + 4, untouched);
    HexBinaryEncoder::decode(input.data(), static_cast<unsigned>(input.size()), output.data(),
                             outputSize);
    return output;
}

template <class Operation>
std::string failureOf(const Operation& operation) {
    try {
        operation();
        return "none";
    } catch (const Exception& failure) {
        return failure.what();
    }
}

TEST(HexBinaryEncoder, WritesTwoUpperCaseDigitsAndANul) {
    EXPECT_EQ(encode("\xAB", 3), std::string("AB\0~~~~", 7));
    EXPECT_EQ(encode("\x01\xEF", 5), std::string("01EF\0~~~~", 9));
}

TEST(HexBinaryEncoder, OfNothingWritesANulAlone) {
    EXPECT_EQ(encode("", 1), std::string("\0~~~~", 5));
}

TEST(HexBinaryEncoder, TouchesNothingBehindTheNul) {
    EXPECT_EQ(encode("\xAB", 5), std::string("AB\0~~~~~~", 9));
}

TEST(HexBinaryEncoder, WritesAndReadsEveryByte) {
    const std::string digits = "0123456789ABCDEF";
    const std::string lower = "0123456789abcdef";
    for (unsigned byte = 0; byte < 256; ++byte) {
        const std::string text = {digits[byte / 16], digits[byte % 16]};
        const std::string bytes(1, static_cast<char>(byte));
        EXPECT_EQ(encode(bytes, 3).substr(0, 2), text);
        EXPECT_EQ(decode(text, 1), bytes + "~~~~");
        EXPECT_EQ(decode({lower[byte / 16], lower[byte % 16]}, 1), bytes + "~~~~");
        EXPECT_EQ(decode({lower[byte / 16], digits[byte % 16]}, 1), bytes + "~~~~");
    }
}

TEST(HexBinaryEncoder, RefusesABufferTooSmallForTheDigitsAndTheNul) {
    char output[4] = {untouched, untouched, untouched, untouched};
    for (const unsigned size : {0u, 1u, 2u}) {
        EXPECT_EQ(failureOf([&] { HexBinaryEncoder::encode("\xAB", 1, output, size); }), usage);
    }
    EXPECT_EQ(failureOf([&] { HexBinaryEncoder::encode("", 0, output, 0); }), usage);
    EXPECT_EQ(std::string(output, 4), "~~~~");
}

TEST(HexBinaryEncoder, ASizeThatWouldNotFitItsTypeIsRefused) {
    // In 32 bits, twice these lengths and one more is 1 and 0xFFFFFFFF again.
    char output[4] = {};
    EXPECT_EQ(failureOf([&] { HexBinaryEncoder::encode("", 0x80000000u, output, 4); }), usage);
    EXPECT_EQ(failureOf([&] { HexBinaryEncoder::encode("", 0xFFFFFFFFu, output, ~0u); }), usage);
}

TEST(HexBinaryEncoder, ReadsDigitsOfEitherCaseAndAddsNoNul) {
    EXPECT_EQ(decode("ABcd09", 3), std::string("\xAB\xCD\x09") + "~~~~");
    EXPECT_EQ(decode("aBcD", 5), std::string("\xAB\xCD") + "~~~~~~~");
}

TEST(HexBinaryEncoder, OfNoDigitsReadsNothing) {
    EXPECT_EQ(decode("", 0), "~~~~");
}

TEST(HexBinaryEncoder, RefusesAnOddNumberOfDigitsBeforeItWrites) {
    char output[4] = {untouched, untouched, untouched, untouched};
    EXPECT_EQ(failureOf([&] { HexBinaryEncoder::decode("ABC", 3, output, 4); }), usage);
    EXPECT_EQ(failureOf([&] { HexBinaryEncoder::decode("A", 1, output, 4); }), usage);
    EXPECT_EQ(std::string(output, 4), "~~~~");
}

TEST(HexBinaryEncoder, RefusesABufferTooSmallForTheBytesBeforeItWrites) {
    char output[4] = {untouched, untouched, untouched, untouched};
    EXPECT_EQ(failureOf([&] { HexBinaryEncoder::decode("ABCD", 4, output, 1); }), usage);
    EXPECT_EQ(failureOf([&] { HexBinaryEncoder::decode("AB", 2, output, 0); }), usage);
    EXPECT_EQ(std::string(output, 4), "~~~~");
}

TEST(HexBinaryEncoder, AtACharacterThatIsNoDigitTheBytesBeforeItAreWritten) {
    for (const char* text : {"4142G3", "41423G", "4142 3", "41420x"}) {
        char output[4] = {untouched, untouched, untouched, untouched};
        EXPECT_EQ(failureOf([&] { HexBinaryEncoder::decode(text, 6, output, 4); }), usage) << text;
        EXPECT_EQ(std::string(output, 4), "AB~~") << text;
    }
}

bool isHexDigit(unsigned c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

TEST(HexBinaryEncoder, EveryByteThatIsNoDigitIsRefusedAtBothPlaces) {
    for (unsigned c = 0; c < 256; ++c) {
        const char first[] = {static_cast<char>(c), '0'};
        const char second[] = {'0', static_cast<char>(c)};
        char output[1];
        const std::string wanted = isHexDigit(c) ? "none" : usage;
        EXPECT_EQ(failureOf([&] { HexBinaryEncoder::decode(first, 2, output, 1); }), wanted) << c;
        EXPECT_EQ(failureOf([&] { HexBinaryEncoder::decode(second, 2, output, 1); }), wanted) << c;
    }
}

}  // namespace
}  // namespace nolk
