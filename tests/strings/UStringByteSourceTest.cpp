#include <nolk/core/UStringByteSource.h>

#include <nolk/core/UString.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

namespace nolk {
namespace {

// Gives the hexadecimal digits of a text as bytes.
class HexSource : public UString::ByteSource {
public:
    explicit HexSource(std::string digits) : digits_(std::move(digits)) {}

protected:
    bool doGetByte(char& byte) override {
        if (next_ == digits_.size()) {
            return false;
        }
        byte = static_cast<char>(std::stoi(digits_.substr(next_, 2), nullptr, 16));
        next_ += 2;
        return true;
    }

private:
    std::string digits_;
    std::size_t next_ = 0;
};

TEST(UStringByteSource, GivesOneByteAfterTheOtherUntilTheEnd) {
    HexSource source("41FF");
    UString::ByteSource& bytes = source;
    char byte = 0;
    EXPECT_TRUE(bytes.getByte(byte));
    EXPECT_EQ(byte, 'A');
    EXPECT_TRUE(bytes.getByte(byte));
    EXPECT_EQ(byte, '\xFF');
    EXPECT_FALSE(bytes.getByte(byte));
    EXPECT_EQ(byte, '\xFF');
}

TEST(UStringByteSource, OfTheCallersOwnFeedsTheDecoder) {
    HexSource source("41F09F9880");
    UChar32 codePoint = 0;
    unsigned consumed = 0;
    EXPECT_TRUE(UString::getCodePointFromUtf8Source(source, codePoint, consumed));
    EXPECT_EQ(codePoint, UChar32{'A'});
    EXPECT_TRUE(UString::getCodePointFromUtf8Source(source, codePoint, consumed));
    EXPECT_EQ(codePoint, UChar32{0x1F600});
    EXPECT_EQ(consumed, 5u);
    EXPECT_FALSE(UString::getCodePointFromUtf8Source(source, codePoint, consumed));
}

TEST(UStringByteSource, HasOneVirtualOperationAndNoOther) {
    EXPECT_TRUE(std::is_polymorphic_v<UString::ByteSource>);
    EXPECT_FALSE(std::has_virtual_destructor_v<UString::ByteSource>);
    EXPECT_FALSE(std::is_destructible_v<UString::ByteSource>);
}

}  // namespace
}  // namespace nolk
