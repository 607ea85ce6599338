#include <nolk/core/QXArrayByteSource.h>

#include <gtest/gtest.h>

namespace nolk {
namespace {

TEST(QXArrayByteSource, GivesEachByteOnceAndThenItsEnd) {
    QXArrayByteSource source("a\0\xFF", 3);
    char byte = 'x';
    EXPECT_TRUE(source.getByte(byte));
    EXPECT_EQ(byte, 'a');
    EXPECT_TRUE(source.getByte(byte));
    EXPECT_EQ(byte, '\0');
    EXPECT_TRUE(source.getByte(byte));
    EXPECT_EQ(byte, '\xFF');
    EXPECT_FALSE(source.getByte(byte));
    EXPECT_FALSE(source.getByte(byte));
    EXPECT_EQ(byte, '\xFF');
}

TEST(QXArrayByteSource, OfNothingIsAtItsEnd) {
    char byte = 'x';
    QXArrayByteSource empty("abc", 0);
    EXPECT_FALSE(empty.getByte(byte));
    QXArrayByteSource null(nullptr, 0);
    EXPECT_FALSE(null.getByte(byte));
    EXPECT_EQ(byte, 'x');
}

TEST(QXArrayByteSource, ACopyGoesOnAtTheSamePlace) {
    QXArrayByteSource source("ab", 2);
    char byte;
    source.getByte(byte);
    QXArrayByteSource copy = source;
    EXPECT_TRUE(copy.getByte(byte));
    EXPECT_EQ(byte, 'b');
    byte = 'x';
    EXPECT_TRUE(source.getByte(byte));
    EXPECT_EQ(byte, 'b');
}

TEST(QXArrayByteSource, IsPulledThroughItsInterface) {
    QXArrayByteSource array("a", 1);
    UStringByteSource& source = array;
    char byte;
    EXPECT_TRUE(source.getByte(byte));
    EXPECT_EQ(byte, 'a');
    EXPECT_FALSE(source.getByte(byte));
}

}  // namespace
}  // namespace nolk
