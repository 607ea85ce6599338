#include <nolk/core/strings/UStringScan.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>

namespace nolk {
namespace {

using namespace ustringscan;

// Blocks of all lengths that take part in a scan: rounds, single blocks, an overlapping last one,
// and units one by one.
constexpr std::size_t longest = 80;

constexpr UChar fill = 0x4141;
// Differ from the fill by its lowest bit, its highest bit, and all bits of one byte.
constexpr UChar others[] = {0x4140, 0xC141, 0x4100, 0x0041, 0x0000, 0xFFFF};

// A run that ends with its allocation, so that sanitizers see a read behind it.
class Run {
public:
    explicit Run(std::size_t n) : size_(n), units_(new UChar[n]) {
        std::fill_n(units_.get(), n, fill);
    }

    UChar* data() const { return units_.get(); }
    std::size_t size() const { return size_; }

private:
    std::size_t size_;
    std::unique_ptr<UChar[]> units_;
};

template <class Block>
class UStringScan : public testing::Test {};

#ifdef NOLK_CORE_USTRING_SCAN_SSE2
using Blocks = testing::Types<WordBlock, Sse2Block>;
#else
using Blocks = testing::Types<WordBlock>;
#endif
TYPED_TEST_SUITE(UStringScan, Blocks);

TYPED_TEST(UStringScan, WithoutAStopEndsBehindTheRun) {
    for (std::size_t n = 0; n <= longest; ++n) {
        const Run a(n);
        const Run b(n);
        ASSERT_EQ(mismatch<TypeParam>(a.data(), b.data(), n), n);
        ASSERT_EQ(find<TypeParam>(a.data(), n, UChar()), n);
        ASSERT_EQ(findLast<TypeParam>(a.data(), n, UChar()), n);
        for (std::size_t distance = 0; distance < n; ++distance) {
            ASSERT_EQ(findEnds<TypeParam>(a.data(), n - distance, fill, UChar(), distance),
                      n - distance);
            ASSERT_EQ(findEnds<TypeParam>(a.data(), n - distance, UChar(), fill, distance),
                      n - distance);
        }
    }
}

TYPED_TEST(UStringScan, FindsAStopAtEveryPlaceOfEveryLength) {
    for (std::size_t n = 1; n <= longest; ++n) {
        for (std::size_t i = 0; i < n; ++i) {
            for (const UChar other : others) {
                const Run a(n);
                const Run b(n);
                a.data()[i] = other;
                ASSERT_EQ(mismatch<TypeParam>(a.data(), b.data(), n), i);
                ASSERT_EQ(mismatch<TypeParam>(b.data(), a.data(), n), i);
                ASSERT_EQ(find<TypeParam>(a.data(), n, other), i);
                ASSERT_EQ(findLast<TypeParam>(a.data(), n, other), i);
                ASSERT_EQ(find<TypeParam>(a.data(), n, fill), i == 0 && n > 1 ? 1u
                                                              : i == 0        ? n
                                                                              : 0u);
            }
        }
    }
}

TYPED_TEST(UStringScan, FindsTheFirstAndTheLastOfTwoStops) {
    for (std::size_t n = 2; n <= longest; ++n) {
        for (std::size_t i = 0; i < n; ++i) {
            for (std::size_t j = i + 1; j < n; ++j) {
                const Run a(n);
                const Run b(n);
                a.data()[i] = a.data()[j] = others[0];
                ASSERT_EQ(mismatch<TypeParam>(a.data(), b.data(), n), i);
                ASSERT_EQ(find<TypeParam>(a.data(), n, others[0]), i);
                ASSERT_EQ(findLast<TypeParam>(a.data(), n, others[0]), j);
            }
        }
    }
}

TYPED_TEST(UStringScan, FindsBothEndsOnlyAtTheirDistance) {
    for (std::size_t n = 2; n <= longest; ++n) {
        for (std::size_t i = 0; i < n; ++i) {
            for (std::size_t j = i; j < n; ++j) {
                const Run a(n);
                a.data()[i] = others[0];
                a.data()[j] = others[1];
                const UChar first = i == j ? others[1] : others[0];
                ASSERT_EQ(findEnds<TypeParam>(a.data(), n - (j - i), first, others[1], j - i), i);
                const std::size_t other = j - i + 1;
                if (other < n) {
                    ASSERT_EQ(findEnds<TypeParam>(a.data(), n - other, first, others[1], other),
                              n - other);
                }
            }
        }
    }
}

TYPED_TEST(UStringScan, MatchesUnitsAsAWholeAndNotByTheirBytes) {
    const Run a(16);
    for (std::size_t i = 0; i < 16; ++i) {
        a.data()[i] = i % 2 == 0 ? UChar(0x0100) : UChar(0x0001);
    }
    EXPECT_EQ(find<TypeParam>(a.data(), 16, UChar(0x0101)), 16u);
    EXPECT_EQ(find<TypeParam>(a.data(), 16, UChar(0x0000)), 16u);
    EXPECT_EQ(find<TypeParam>(a.data(), 16, UChar(0x0001)), 1u);
    EXPECT_EQ(findLast<TypeParam>(a.data(), 16, UChar(0x0100)), 14u);
}

}  // namespace
}  // namespace nolk
