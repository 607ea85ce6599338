#include <nolk/core/CStringRef.h>

#include <nolk/core/CString.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace nolk {
namespace {

struct Free {
    void operator()(CStringRef* buffer) const { delete[] reinterpret_cast<char*>(buffer); }
};
using Buffer = std::unique_ptr<CStringRef, Free>;

Buffer bufferOf(std::string_view text, unsigned capacity = 100) {
    Buffer buffer(CStringRef::getRep(capacity, static_cast<unsigned>(text.size())));
    std::memcpy(buffer->data(), text.data(), text.size());
    return buffer;
}

TEST(CStringRef, StandsDirectlyInFrontOfTheCharacters) {
    const Buffer buffer = bufferOf("abc", 70);
    EXPECT_EQ(buffer->data(), reinterpret_cast<char*>(buffer.get()) + 12);
}

TEST(CStringRef, HasCapacityThenLengthThenReferences) {
    const Buffer buffer = bufferOf("abc", 70);
    std::uint32_t words[3];
    std::memcpy(words, buffer->data() - sizeof words, sizeof words);
    EXPECT_EQ(words[0], 70u);
    EXPECT_EQ(words[1], 3u);
    EXPECT_EQ(words[2], 1u);
}

TEST(CStringRef, IsFoundInFrontOfTheCharactersOfAString) {
    for (const unsigned length : {3u, 100u}) {
        const CString text('x', length);
        std::uint32_t words[2];
        std::memcpy(words, text.data() - 12, sizeof words);
        EXPECT_EQ(words[0], text.capacity());
        EXPECT_EQ(words[1], length);
    }
}

TEST(CStringRef, GetRepSetsItsWordsAndTheTerminator) {
    const Buffer buffer(CStringRef::getRep(70, 3));
    EXPECT_EQ(buffer->capacity(), 70u);
    EXPECT_EQ(buffer->length(), 3u);
    EXPECT_EQ(buffer->references(), 1);
    EXPECT_EQ(buffer->data()[3], '\0');
}

TEST(CStringRef, GetRepHasRoomForTheTerminatorBehindAllItsCapacity) {
    const Buffer buffer(CStringRef::getRep(64, 64));
    std::memset(buffer->data(), 'x', 64);
    EXPECT_EQ(std::strlen(buffer->data()), 64u);
}

TEST(CStringRef, CountsUpAndDown) {
    const Buffer buffer = bufferOf("abc");
    EXPECT_EQ(buffer->addReference(), 2);
    EXPECT_EQ(buffer->addReference(), 3);
    EXPECT_EQ(buffer->references(), 3);
    EXPECT_EQ(buffer->removeReference(), 2);
    EXPECT_EQ(buffer->unsafeAddReference(), 3);
    EXPECT_EQ(buffer->references(), 3);
    EXPECT_EQ(buffer->unsafeRemoveReference(), 2);
    EXPECT_EQ(buffer->unsafeRemoveReference(), 1);
    EXPECT_EQ(buffer->removeReference(), 0);
}

TEST(CStringRef, CountCanBeSet) {
    const Buffer buffer = bufferOf("abc");
    buffer->setRefCount(7);
    EXPECT_EQ(buffer->references(), 7);
    EXPECT_EQ(buffer->removeReference(), 6);
}

TEST(CStringRef, FindsTheFirstAndTheLastByte) {
    const Buffer buffer = bufferOf(std::string_view("ab\0ab\0", 6));
    EXPECT_EQ(buffer->first('a'), 0u);
    EXPECT_EQ(buffer->last('a'), 3u);
    EXPECT_EQ(buffer->first('b'), 1u);
    EXPECT_EQ(buffer->last('b'), 4u);
    EXPECT_EQ(buffer->first('\0'), 2u);
    EXPECT_EQ(buffer->last('\0'), 5u);
    EXPECT_EQ(buffer->first('c'), CString::npos);
    EXPECT_EQ(buffer->last('c'), CString::npos);
}

TEST(CStringRef, DoesNotFindItsTerminator) {
    const Buffer buffer = bufferOf("ab");
    EXPECT_EQ(buffer->first('\0'), CString::npos);
    EXPECT_EQ(buffer->last('\0'), CString::npos);
    EXPECT_EQ(bufferOf("")->first('a'), CString::npos);
    EXPECT_EQ(bufferOf("")->last('a'), CString::npos);
}

struct HashRow {
    std::string text;
    unsigned exact;
    unsigned folded;
};

// By hand. Exact: from the length on, rotate left by 5 and mix in four bytes, the first lowest; the
// rest as one number with its first byte highest. Folded: rotate by 5 and mix in each upper-case
// byte.
const HashRow hashRows[] = {
    {"", 0, 0},
    {"a", 0x00000041, 0x61},      // 1: 0x20 ^ 0x61; 0x20 ^ 0x41
    {"A", 0x00000061, 0x61},      //
    {"ab", 0x00006122, 0x62},     // 2: 0x40 ^ 0x6162; 0x40 ^ 0x41 = 1, 0x20 ^ 0x42
    {"abc", 0x00616203, 0x8C03},  // 3: 0x60 ^ 0x616263; 0x21, 0x420 ^ 0x42 = 0x462, 0x8C40 ^ 0x43
    {"abcd", 0x646362E1, 0},      // 4: 0x80 ^ 0x64636261
    {"abcde", 0x8C6C5849, 0},     // 5: 0xA0 ^ 0x64636261 = 0x646362C1, 0x8C6C582C ^ 0x65
    {"12", 0x00003172, 0x0E12},   // 0x40 ^ 0x3132; 0x40 ^ 0x31 = 0x71, 0xE20 ^ 0x32
    {"\xFF", 0xFFFFFFDF, 0xDF},   // the rest with its sign, the folded byte without
    {"a\xFF", 0xFFFFFFBF, 0xDF},  // 0x40 ^ (0x6100 | 0xFFFFFFFF); 1, 0x20 ^ 0xFF
    {"\xFF"
     "ab",
     0xFFFF6102, 0},                      // 0x60 ^ 0xFFFF6162
    {"\xFF\xFE\xFD\xFC", 0xFCFDFE7F, 0},  // whole words have no sign: 0x80 ^ 0xFCFDFEFF
    {std::string(1, '\0'), 0x20, 0x20},
    {std::string(4, '\0'), 0x80, 0x400000},             // 4: 0x80; 4 << 20
    {std::string("\0\0\0\xF8\x01", 5), 0x0000141E, 0},  // 0xF80000A0 rotates to 0x141F, ^ 1
};

TEST(CStringRef, HashHasTheValuesOfItsDefinition) {
    for (const HashRow& row : hashRows) {
        EXPECT_EQ(bufferOf(row.text)->hash(), row.exact) << row.text;
    }
}

TEST(CStringRef, FoldedHashHasTheValuesOfItsDefinition) {
    for (const HashRow& row : hashRows) {
        if (row.folded != 0 || row.text.empty()) {
            EXPECT_EQ(bufferOf(row.text)->hashFoldCase(), row.folded) << row.text;
        }
    }
}

TEST(CStringRef, FoldedHashRotatesTheUpperBitsAround) {
    // 7 zero bytes: 7 << 35 is 7 << 3 after a full turn of 32.
    EXPECT_EQ(bufferOf(std::string_view("\0\0\0\0\0\0\0", 7))->hashFoldCase(), 56u);
}

TEST(CStringRef, CollatesItsCharacters) {
    EXPECT_EQ(bufferOf("abc")->collate("abc"), 0);
    EXPECT_LT(bufferOf("abb")->collate("abc"), 0);
    EXPECT_GT(bufferOf("abd")->collate("abc"), 0);
    EXPECT_GT(bufferOf("a")->collate(nullptr), 0);
}

TEST(CStringRef, CollatesUpToTheFirstZeroByte) {
    EXPECT_EQ(bufferOf(std::string_view("ab\0c", 4))->collate("ab"), 0);
}

}  // namespace
}  // namespace nolk
