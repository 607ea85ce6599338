#include <nolk/core/foundation/Crc32.h>

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>

namespace nolk {
namespace {

// The definition, bit by bit.
std::uint32_t naive(std::uint32_t state, const char* data, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) {
        for (int bit = 7; bit >= 0; --bit) {
            const std::uint32_t in = (static_cast<unsigned char>(data[i]) >> bit) & 1;
            const bool divides = ((state >> 31) ^ in) != 0;
            state = (state << 1) ^ (divides ? 0x04C11DB7 : 0);
        }
    }
    return state;
}

testing::AssertionResult agrees(std::uint32_t state, const char* data, std::size_t length) {
    const std::uint32_t wanted = naive(state, data, length);
    if (crc32::advanceByTable(state, data, length) != wanted) {
        return testing::AssertionFailure() << "the tables differ at length " << length;
    }
#ifdef NOLK_CORE_X86_VECTORS
    if (processor::hasCarryLessProduct() &&
        crc32::advanceByProduct(state, data, length) != wanted) {
        return testing::AssertionFailure() << "the products differ at length " << length;
    }
#endif
    if (crc32::advance(state, data, length) != wanted) {
        return testing::AssertionFailure() << "the chosen way differs at length " << length;
    }
    return testing::AssertionSuccess();
}

TEST(Crc32, EveryWayAgreesWithTheDefinitionAtEveryLengthAndAlignment) {
    std::mt19937 random(32);
    for (std::size_t length = 0; length <= 300; ++length) {
        for (std::size_t offset = 0; offset < 16; offset += 1 + length % 3) {
            // The text ends with its block of memory: a sanitizer sees every read beyond.
            const std::unique_ptr<char[]> bytes(new char[offset + length]);
            for (std::size_t i = 0; i < offset + length; ++i) {
                bytes[i] = static_cast<char>(random());
            }
            ASSERT_TRUE(agrees(0xFFFFFFFF, bytes.get() + offset, length));
            ASSERT_TRUE(agrees(static_cast<std::uint32_t>(random()), bytes.get() + offset, length));
        }
    }
}

TEST(Crc32, EverySingleBitOfABlockCounts) {
    for (const std::size_t length : {16u, 64u, 80u, 128u, 144u}) {
        char bytes[144] = {};
        for (std::size_t bit = 0; bit < length * 8; ++bit) {
            bytes[bit / 8] = static_cast<char>(0x80 >> bit % 8);
            ASSERT_TRUE(agrees(0, bytes, length)) << bit;
            ASSERT_NE(crc32::advance(0, bytes, length), 0u) << bit;
            bytes[bit / 8] = 0;
        }
    }
}

TEST(Crc32, ATextMayBeGivenInPieces) {
    std::mt19937 random(33);
    char bytes[1000];
    for (char& byte : bytes) {
        byte = static_cast<char>(random());
    }
    const std::uint32_t whole = naive(0xFFFFFFFF, bytes, sizeof bytes);
    for (std::size_t cut = 0; cut <= sizeof bytes; cut += 7) {
        const std::uint32_t front = crc32::advance(0xFFFFFFFF, bytes, cut);
        ASSERT_EQ(crc32::advance(front, bytes + cut, sizeof bytes - cut), whole) << cut;
    }
}

TEST(Crc32, ALongTextIsComputedAsByTheDefinition) {
    std::mt19937 random(34);
    const std::size_t length = 100003;
    const std::unique_ptr<char[]> bytes(new char[length]);
    for (std::size_t i = 0; i < length; ++i) {
        bytes[i] = static_cast<char>(random());
    }
    EXPECT_TRUE(agrees(0xFFFFFFFF, bytes.get(), length));
}

}  // namespace
}  // namespace nolk
