#include <nolk/core/Hash.h>

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace nolk {
namespace {

struct Row {
    std::string text;
    unsigned hash;
};

// Each worked out by hand: start with the length, rotate by 5 and mix in a word of four bytes, the
// last of them uppermost, then the rest, whose first byte is uppermost.
TEST(NolkStringHash, HasTheValuesOfItsDefinition) {
    const Row rows[] = {
        {"", 0},
        {"a", 0x00000041u},              // 1 -> 0x20, 0x20 ^ 0x61
        {"ab", 0x00006122u},             // 2 -> 0x40, 0x40 ^ 0x6162
        {"abc", 0x00616203u},            // 3 -> 0x60, 0x60 ^ 0x616263
        {"abcd", 0x646362E1u},           // 4 -> 0x80, 0x80 ^ 0x64636261
        {"abcde", 0x8C6C5849u},          // 5 -> 0x646362C1 -> 0x8C6C582C, ^ 0x65
        {std::string(4, '\0'), 0x80u},   // 4 -> 0x80
        {std::string(8, '\0'), 0x2000u}  // 8 -> 0x100 -> 0x2000
    };
    for (const Row& row : rows) {
        EXPECT_EQ(nolkStringHash(row.text), row.hash) << row.text;
    }
}

TEST(NolkStringHash, WidensTheLastBytesWithTheirSign) {
    EXPECT_EQ(nolkStringHash("\xFF"), 0xFFFFFFDFu);  // 0x20 ^ 0xFFFFFFFF
    EXPECT_EQ(nolkStringHash("\x80"), 0xFFFFFFA0u);  // 0x20 ^ 0xFFFFFF80
    EXPECT_EQ(nolkStringHash("\xFF"
                             "ab"),
              0xFFFF6102u);                           // 0x60 ^ 0xFFFF6162
    EXPECT_EQ(nolkStringHash("a\xFF"), 0xFFFFFFBFu);  // 0x40 ^ (0x6100 | 0xFFFFFFFF)
}

TEST(NolkStringHash, WidensARestBehindAWordWithItsSign) {
    EXPECT_EQ(nolkStringHash("abcd\xFF"), 0x7393A7D3u);  // 0x8C6C582C ^ 0xFFFFFFFF
}

TEST(NolkStringHash, TakesWholeWordsUnsigned) {
    EXPECT_EQ(nolkStringHash("\xFF\xFE\xFD\xFC"), 0xFCFDFE7Fu);  // 0x80 ^ 0xFCFDFEFF
}

TEST(NolkStringHash, RotatesTheUpperBitsAround) {
    // 5 -> 0xA0 ^ 0xF8000000 = 0xF80000A0 -> 0x0000141F, ^ 1
    EXPECT_EQ(nolkStringHash(std::string("\0\0\0\xF8\x01", 5)), 0x0000141Eu);
}

TEST(NolkStringHash, CountsZeroBytes) {
    EXPECT_NE(nolkStringHash(std::string(1, '\0')), nolkStringHash(""));
    EXPECT_EQ(nolkStringHash(std::string(1, '\0')), 0x20u);
}

TEST(NolkCaseInsensitiveStringHash, IsTheHashOfTheLoweredText) {
    EXPECT_EQ(nolkCaseInsensitiveStringHash("AbC"), 0x00616203u);
    EXPECT_EQ(nolkCaseInsensitiveStringHash("abc"), 0x00616203u);
    EXPECT_EQ(nolkCaseInsensitiveStringHash(""), 0u);
    EXPECT_EQ(nolkCaseInsensitiveStringHash("CONTENT-Type"), nolkStringHash("content-type"));
}

TEST(NolkCaseInsensitiveStringHash, LowersBothTheWordsAndTheRest) {
    // Of "abcdef": 6 -> 0xC0 ^ 0x64636261 = 0x646362A1 -> 0x8C6C542C, ^ 0x6566
    EXPECT_EQ(nolkCaseInsensitiveStringHash("aBcDeF"), 0x8C6C314Au);
    EXPECT_EQ(nolkCaseInsensitiveStringHash("AbCdEf"), 0x8C6C314Au);
}

// The C locale knows no letters there.
TEST(NolkCaseInsensitiveStringHash, LeavesBytesOf128AndMoreInTheCLocale) {
    const std::string before = std::setlocale(LC_CTYPE, nullptr);
    std::setlocale(LC_CTYPE, "C");
    EXPECT_EQ(nolkCaseInsensitiveStringHash("\xC9"), 0xFFFFFFE9u);  // 0x20 ^ 0xFFFFFFC9
    EXPECT_EQ(nolkCaseInsensitiveStringHash("\xE9"), 0xFFFFFFC9u);  // 0x20 ^ 0xFFFFFFE9
    // 5 -> 0xA0 ^ 0x7AC96261 = 0x7AC962C1 -> 0x592C582F, ^ 0xFFFFFFC9
    EXPECT_EQ(nolkCaseInsensitiveStringHash("AB\xC9Z\xC9"), 0xA6D3A7E6u);
    std::setlocale(LC_CTYPE, before.c_str());
}

TEST(NolkCaseInsensitiveStringHash, LeavesItsArgumentAlone) {
    const std::string text = "AbC";
    nolkCaseInsensitiveStringHash(text);
    EXPECT_EQ(text, "AbC");
}

TEST(NolkIntHash, IsTheValueItself) {
    EXPECT_EQ(nolkIntHash(0), 0u);
    EXPECT_EQ(nolkIntHash(17), 17u);
    EXPECT_EQ(nolkIntHash(-1), 0xFFFFFFFFu);
}

TEST(NolkCrc32, OfNothingIsZero) {
    EXPECT_EQ(nolkCrc32("", 0), 0u);
    EXPECT_EQ(nolkCrc32(nullptr, 0), 0u);
}

// The first is the published check value of this variant. 255 * x^32 leaves 0xB1F740B4.
TEST(NolkCrc32, HasTheValuesOfItsVariant) {
    EXPECT_EQ(nolkCrc32("123456789", 9), 0xFC891918u);
    EXPECT_EQ(nolkCrc32("\0", 1), 0xB1F7404Bu);    // ~(0xFFFFFF00 ^ 0xB1F740B4)
    EXPECT_EQ(nolkCrc32("\xFF", 1), 0x000000FFu);  // ~(0xFFFFFF00 ^ 0)
}

TEST(NolkCrc32, TakesOnlyTheBytesGiven) {
    EXPECT_EQ(nolkCrc32("123456789 and more", 9), 0xFC891918u);
}

TEST(NolkCrc32, CountsZeroBytes) {
    EXPECT_NE(nolkCrc32("\0\0", 2), nolkCrc32("\0", 1));
}

}  // namespace
}  // namespace nolk
