#include "nolk/core/strings/ByteSearch.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace nolk {
namespace {

// A copy with nothing behind it: sanitizers see each byte read too far.
struct Tight {
    explicit Tight(const std::string& text) : size(text.size()), bytes(new char[text.size()]) {
        text.copy(bytes.get(), size);
    }
    std::size_t size;
    std::unique_ptr<char[]> bytes;
};

std::size_t find(const std::string& text, const std::string& pattern) {
    const Tight inText(text);
    const Tight inPattern(pattern);
    return findBytes(inText.bytes.get(), 0, inText.size, inText.size, inPattern.bytes.get(),
                     inPattern.size);
}

// What may be read behind the text looks like a match, and isn't one.
TEST(ByteSearch, TakesNothingFromBehindTheText) {
    const Tight buffer(std::string(65, 'b'));
    for (std::size_t length = 2; length <= 40; ++length) {
        std::string text(length, 'a');
        text.copy(buffer.bytes.get(), length);
        ASSERT_EQ(findBytes(buffer.bytes.get(), 0, length, 65, "bb", 2), noBytes) << length;
        ASSERT_EQ(findBytes(buffer.bytes.get(), 0, length, 65, "ab", 2), noBytes) << length;
        ASSERT_EQ(findBytes(buffer.bytes.get(), 0, length + 1, 65, "ab", 2), length - 1) << length;
        ASSERT_EQ(findBytes(buffer.bytes.get(), 0, length, 65, "b", 1), noBytes) << length;
    }
}

// Every length of text and pattern around the size of a block, the match at every place.
TEST(ByteSearch, FindsAPatternAtEveryOffset) {
    for (std::size_t length = 1; length <= 50; ++length) {
        for (std::size_t patternLength = 1; patternLength <= length; ++patternLength) {
            std::string pattern(patternLength, 'b');
            pattern.back() = 'c';
            for (std::size_t at = 0; at + patternLength <= length; ++at) {
                std::string text(length, 'a');
                text.replace(at, patternLength, pattern);
                ASSERT_EQ(find(text, pattern), at) << length << ' ' << patternLength;
            }
            ASSERT_EQ(find(std::string(length, 'a'), pattern), noBytes);
        }
    }
}

TEST(ByteSearch, FindsFromTheStartOn) {
    for (std::size_t length = 2; length <= 40; ++length) {
        const Tight text(std::string(length, 'a'));
        for (std::size_t start = 0; start + 2 <= length; ++start) {
            ASSERT_EQ(findBytes(text.bytes.get(), start, length, length, "aa", 2), start);
            ASSERT_EQ(findBytes(text.bytes.get(), start, length, length, "ab", 2), noBytes);
        }
    }
}

TEST(ByteSearch, FindsTheFirstOfSeveral) {
    EXPECT_EQ(find(std::string(40, 'a'), "aa"), 0u);
    EXPECT_EQ(find(std::string(20, '-') + "ab" + std::string(30, '-') + "ab", "ab"), 20u);
}

TEST(ByteSearch, IsNotMisledByTheEndsOfThePattern) {
    std::string text;
    for (int i = 0; i < 30; ++i) {
        text += "axb";
    }
    EXPECT_EQ(find(text, "ayb"), noBytes);
    EXPECT_EQ(find(text + "ayb", "ayb"), 90u);
}

// Each way to compare long texts that this processor can go, whichever it would choose.
std::vector<Compare*> comparers() {
    std::vector<Compare*> all{compareInBlocks};
#ifdef NOLK_CORE_X86_VECTORS
    if (processor::hasAvx2()) {
        all.push_back(compareWithAvx2);
    }
#endif
    return all;
}

TEST(ByteSearch, EachWayToCompareFindsTheFirstDifference) {
    for (Compare* const compare : comparers()) {
        for (std::size_t length = 16; length <= 420; ++length) {
            const Tight a(std::string(length, 'a'));
            const Tight b(std::string(length, 'a'));
            const Tight longer(std::string(length + 1, 'a'));
            const char* x = a.bytes.get();
            char* y = b.bytes.get();
            ASSERT_EQ(compare(x, length, y, length, length), 0) << length;
            ASSERT_EQ(compare(x, length, longer.bytes.get(), length + 1, length), -1) << length;
            ASSERT_EQ(compare(longer.bytes.get(), length + 1, x, length, length), 1) << length;
            y[length - 1] = 'b';
            for (std::size_t at = 0; at < length; ++at) {
                const char before = std::exchange(y[at], '\xE1');
                ASSERT_EQ(compare(x, length, y, length, length), 1) << at << " of " << length;
                ASSERT_EQ(compare(y, length, x, length, length), -1) << at << " of " << length;
                y[at] = before;
            }
        }
    }
}

TEST(ByteSearch, TakesTheWidestVectorsThatThereAre) {
    EXPECT_EQ(compareMany, comparers().back());
}

TEST(ByteSearch, FirstDifferenceTellsTheOrder) {
    for (std::size_t length = 1; length <= 200; ++length) {
        const Tight a(std::string(length, 'a'));
        for (std::size_t at = 0; at < length; ++at) {
            std::string other(length, 'a');
            other.back() = 'b';
            other[at] = '\xE1';
            const Tight b(other);
            ASSERT_EQ(compareBytes(a.bytes.get(), length, b.bytes.get(), length), 1) << length;
            ASSERT_EQ(compareBytes(b.bytes.get(), length, a.bytes.get(), length), -1) << length;
        }
    }
}

TEST(ByteSearch, BytesBehindRoomyTextsTellNothing) {
    for (std::size_t length = 0; length <= 20; ++length) {
        const std::string text(length, 'a');
        const Tight left(text + std::string(20, 'x'));
        const Tight right(text + std::string(20, 'y'));
        const char* x = left.bytes.get();
        const char* y = right.bytes.get();
        ASSERT_EQ(compareRoomyBytes(x, length, y, length), 0) << length;
        ASSERT_EQ(compareRoomyBytes(x, length, y, length + 1), -1) << length;
        ASSERT_EQ(compareRoomyBytes(x, length + 1, y, length), 1) << length;
        ASSERT_EQ(compareRoomyBytes(x, length + 1, y, length + 1), -1) << length;
        right.bytes[length] = '\xE9';
        ASSERT_EQ(compareRoomyBytes(x, length + 1, y, length + 1), 1) << length;
    }
}

TEST(ByteSearch, LengthTellsTheOrderOfEqualBytes) {
    for (std::size_t length = 0; length <= 200; ++length) {
        const Tight text(std::string(length, 'a'));
        const Tight longer(std::string(length + 1, 'a'));
        ASSERT_EQ(compareBytes(text.bytes.get(), length, text.bytes.get(), length), 0) << length;
        ASSERT_EQ(compareBytes(text.bytes.get(), length, longer.bytes.get(), length + 1), -1);
        ASSERT_EQ(compareBytes(longer.bytes.get(), length + 1, text.bytes.get(), length), 1);
    }
}

TEST(ByteSearch, SeesEachTopBit) {
    for (std::size_t length = 0; length <= 20; ++length) {
        const Tight ascii(std::string(length, '\x7F'));
        ASSERT_TRUE(hasOnlyAscii(ascii.bytes.get(), length));
        for (std::size_t at = 0; at < length; ++at) {
            std::string text(length, 'a');
            text[at] = '\x80';
            const Tight other(text);
            ASSERT_FALSE(hasOnlyAscii(other.bytes.get(), length)) << at << " of " << length;
        }
    }
}

}  // namespace
}  // namespace nolk
