#include <nolk/core/xml/XmlScan.h>

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>
#include <string>

namespace nolk {
namespace {

using namespace xmlscan;

// What each scan stops at, told byte by byte.
bool isStop(ContentStops, unsigned char c) {
    return c == '<' || c == '&' || c == '\r';
}
bool isStop(MarkupStops, unsigned char c) {
    return c == '<';
}
bool isStop(HighStops, unsigned char c) {
    return c >= 0x80;
}
bool isStop(NameStops, unsigned char c) {
    const char* const names = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._:";
    return c == 0 || std::strchr(names, c) == nullptr;
}
template <char quote>
bool isStop(ValueStops<quote>, unsigned char c) {
    return c == static_cast<unsigned char>(quote) || c == '<' || c == '&';
}
template <char quote>
bool isStop(RawValueStops<quote>, unsigned char c) {
    return c == static_cast<unsigned char>(quote) || c == '<';
}

template <class Stops>
const char* naive(const char* p, const char* last) {
    while (p <= last && !isStop(Stops(), static_cast<unsigned char>(*p))) {
        ++p;
    }
    return p;
}

// A text of exactly `length` bytes from `offset` on and the padding behind it, at the end of its
// own block of memory: a sanitizer sees every read beyond the padding.
class Text {
public:
    Text(std::size_t offset, std::size_t length, char fill)
        : bytes_(new char[offset + length + scanPadding]),
          first_(bytes_.get() + offset),
          length_(length) {
        std::memset(bytes_.get(), fill, offset + length + scanPadding);
    }
    char* first() const { return first_; }
    const char* last() const { return first_ + length_ - 1; }

private:
    std::unique_ptr<char[]> bytes_;
    char* first_;
    std::size_t length_;
};

template <class Stops>
testing::AssertionResult agrees(const Text& text) {
    const char* const first = text.first();
    const char* const last = text.last();
    const auto wanted = naive<Stops>(first, last) - first;
    const std::ptrdiff_t got[] = {
        scanBlocks<WordBlock, Stops>(first, last) - first,
        scanBlocks<BaseBlock, Stops>(first, last) - first, scanLong<Stops>(first, last) - first,
        scan<Stops>(first, last) - first, scan<Stops>(text.first(), last) - first};
    for (std::size_t i = 0; i < std::size(got); ++i) {
        if (got[i] != wanted) {
            return testing::AssertionFailure()
                   << "way " << i << " stops at " << got[i] << " and not at " << wanted << " of "
                   << last + 1 - first;
        }
    }
    return testing::AssertionSuccess();
}

template <class Stops>
class XmlScan : public testing::Test {
public:
    // A byte that is a stop, and one that isn't.
    static constexpr char stop = std::is_same_v<Stops, HighStops> ? '\x80' : '<';
    static constexpr char fill = 'a';
};

using AllStops = testing::Types<ContentStops, MarkupStops, ValueStops<'"'>, ValueStops<'\''>,
                                RawValueStops<'"'>, RawValueStops<'\''>, NameStops, HighStops>;
TYPED_TEST_SUITE(XmlScan, AllStops);

TYPED_TEST(XmlScan, WithoutAStopItEndsBehindTheLastByte) {
    for (std::size_t offset = 0; offset < 64; ++offset) {
        for (std::size_t length = 0; length <= 200; ++length) {
            ASSERT_TRUE(agrees<TypeParam>(Text(offset, length, TestFixture::fill)));
        }
    }
}

TYPED_TEST(XmlScan, AStopIsFoundAtEveryPlaceOfEveryLength) {
    for (std::size_t length = 0; length <= 200; ++length) {
        const Text text(length % 17, length, TestFixture::fill);
        for (std::size_t i = 0; i < length + scanPadding; ++i) {
            text.first()[i] = TestFixture::stop;
            ASSERT_TRUE(agrees<TypeParam>(text)) << i;
            text.first()[i] = TestFixture::fill;
        }
    }
}

TYPED_TEST(XmlScan, AStopIsFoundAtEveryAlignment) {
    for (std::size_t offset = 0; offset < 64; ++offset) {
        for (std::size_t length : {1u, 7u, 8u, 9u, 15u, 16u, 17u, 31u, 33u, 48u, 65u, 100u}) {
            const Text text(offset, length, TestFixture::fill);
            for (std::size_t i = 0; i < length + 3; ++i) {
                text.first()[i] = TestFixture::stop;
                ASSERT_TRUE(agrees<TypeParam>(text)) << i;
                text.first()[i] = TestFixture::fill;
            }
        }
    }
}

TYPED_TEST(XmlScan, StopsBehindTheLastByteAreNotSeen) {
    for (std::size_t length = 0; length <= 200; ++length) {
        const Text text(0, length, TestFixture::fill);
        std::memset(text.first() + length, TestFixture::stop, scanPadding);
        ASSERT_TRUE(agrees<TypeParam>(text));
    }
}

TYPED_TEST(XmlScan, EveryByteIsAStopOrNotAtEveryPlaceOfABlock) {
    for (unsigned c = 0; c < 0x100; ++c) {
        const Text text(3, 70, TestFixture::fill);
        for (std::size_t i = 0; i < 70; ++i) {
            text.first()[i] = static_cast<char>(c);
            ASSERT_TRUE(agrees<TypeParam>(text)) << c << " at " << i;
            text.first()[i] = TestFixture::fill;
        }
    }
}

TYPED_TEST(XmlScan, NeighboursOfStopsDoNotMislead) {
    // Arithmetic on whole words may carry from one byte to the next: pairs of all bytes that lie
    // near a stop, in both orders, in front of a real one.
    for (int a = 0; a < 0x100; ++a) {
        for (int b : {0x00, 0x01, 0x0C, 0x0D, 0x0E, 0x21, 0x22, 0x23, 0x25, 0x26, 0x27,
                      0x28, 0x3B, 0x3C, 0x3D, 0x7F, 0x80, 0x81, 0xBC, 0xFE, 0xFF}) {
            const Text text(1, 40, TestFixture::fill);
            for (std::size_t i : {0u, 6u, 7u, 14u, 15u, 30u}) {
                text.first()[i] = static_cast<char>(a);
                text.first()[i + 1] = static_cast<char>(b);
                ASSERT_TRUE(agrees<TypeParam>(text)) << a << " " << b << " at " << i;
                text.first()[i] = static_cast<char>(b);
                text.first()[i + 1] = static_cast<char>(a);
                ASSERT_TRUE(agrees<TypeParam>(text)) << b << " " << a << " at " << i;
                text.first()[i] = text.first()[i + 1] = TestFixture::fill;
            }
        }
    }
}

TYPED_TEST(XmlScan, RandomBytesAreScannedAsByANaiveLoop) {
    std::mt19937 random(4612);
    for (int round = 0; round < 20000; ++round) {
        const Text text(random() % 40, random() % 150, TestFixture::fill);
        const auto size = static_cast<std::size_t>(text.last() + 1 - text.first()) + scanPadding;
        // Few odd bytes, so that stops come late as well.
        for (std::size_t i = 0, odd = random() % 12; i < odd; ++i) {
            text.first()[random() % size] = static_cast<char>(random());
        }
        ASSERT_TRUE(agrees<TypeParam>(text)) << round;
    }
}

TEST(XmlScanBlocks, AWordBlockTellsTheFirstOfSeveralStops) {
    for (std::size_t i = 0; i < 8; ++i) {
        std::string text(8, 'a');
        for (std::size_t k = i; k < 8; ++k) {
            text[k] = '<';
        }
        const auto mask = WordBlock::mask(MarkupStops::match(WordBlock::load(text.data())));
        ASSERT_NE(mask, 0u);
        EXPECT_EQ(WordBlock::first(mask), i);
    }
}

TEST(XmlScanBlocks, ABaseBlockTellsTheFirstOfSeveralStops) {
    for (std::size_t i = 0; i < BaseBlock::size; ++i) {
        std::string text(BaseBlock::size, 'a');
        for (std::size_t k = i; k < BaseBlock::size; ++k) {
            text[k] = '<';
        }
        const auto mask = BaseBlock::mask(MarkupStops::match(BaseBlock::load(text.data())));
        ASSERT_NE(mask, 0u);
        EXPECT_EQ(BaseBlock::first(mask), i);
    }
}

}  // namespace
}  // namespace nolk
