#include <nolk/core/xml/XmlCharacterClass.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace nolk {
namespace {

struct Range {
    std::uint32_t first, last;
};

const Range illegal[] = {{0x0, 0x8},  {0xB, 0xB},       {0xC, 0xC},
                         {0xE, 0x1F}, {0xD800, 0xDFFF}, {0xFFFE, 0xFFFF}};

const Range nameParts[] = {{'-', '-'},   {'.', '.'},     {'0', '9'},
                           {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

const Range nameStarts[] = {{':', ':'},       {'A', 'Z'},       {'_', '_'},       {'a', 'z'},
                            {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
                            {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
                            {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}};

template <std::size_t count>
void mark(std::vector<int>& classes, const Range (&ranges)[count], int value) {
    for (const Range& range : ranges) {
        for (std::uint32_t c = range.first; c <= range.last; ++c) {
            classes[c] = value;
        }
    }
}

int classOf(std::uint32_t c) {
    return static_cast<int>(xmlCharacterClass(c));
}

TEST(XmlCharacterClass, EveryCharacterOfTheBasicPlaneHasItsClass) {
    std::vector<int> classes(0x10000, 1);
    mark(classes, illegal, 0);
    mark(classes, nameParts, 2);
    mark(classes, nameStarts, 3);
    for (std::uint32_t c = 0; c < 0x10000; ++c) {
        ASSERT_EQ(classOf(c), classes[c]) << std::hex << c;
    }
}

TEST(XmlCharacterClass, HigherCharactersStartNamesButTheLastTwoOfAPlane) {
    for (std::uint32_t c = 0x10000; c <= 0x10FFFF; ++c) {
        const std::uint32_t low = c & 0xFFFF;
        ASSERT_EQ(classOf(c), low == 0xFFFE || low == 0xFFFF ? 0 : 3) << std::hex << c;
    }
}

TEST(XmlCharacterClass, NothingBeyondUnicodeIsLegal) {
    for (std::uint32_t c = 0x110000; c < 0x400000; c += 0x101) {
        ASSERT_EQ(classOf(c), 0) << std::hex << c;
    }
    for (std::uint32_t c : {0x110000u, 0x10FFFFu + 1, 0x7FFFFFFFu, 0x80000041u, 0xFFFFFFFFu}) {
        EXPECT_EQ(classOf(c), 0) << std::hex << c;
    }
}

TEST(XmlCharacterClass, TheClassesAreNumberedByWhatTheyAllow) {
    EXPECT_EQ(XmlCharacterClass::Illegal, xmlCharacterClass(0));
    EXPECT_EQ(XmlCharacterClass::Legal, xmlCharacterClass(' '));
    EXPECT_EQ(XmlCharacterClass::NamePart, xmlCharacterClass('-'));
    EXPECT_EQ(XmlCharacterClass::NameStart, xmlCharacterClass('a'));
}

}  // namespace
}  // namespace nolk
