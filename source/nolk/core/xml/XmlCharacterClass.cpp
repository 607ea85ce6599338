#include <nolk/core/xml/XmlCharacterClass.h>

#include <array>
#include <cstddef>

namespace nolk {

namespace {

struct Range {
    std::uint32_t first;
    std::uint32_t last;
    XmlCharacterClass characterClass;
};

// The productions Char, NameStartChar and NameChar of XML 1.0 (fifth edition), sections 2.2 and
// 2.3, below 0x10000. What no range names is Legal.
constexpr Range ranges[] = {
    {0x0, 0x8, XmlCharacterClass::Illegal},         {0xB, 0xC, XmlCharacterClass::Illegal},
    {0xE, 0x1F, XmlCharacterClass::Illegal},        {0xD800, 0xDFFF, XmlCharacterClass::Illegal},
    {0xFFFE, 0xFFFF, XmlCharacterClass::Illegal},   {'-', '.', XmlCharacterClass::NamePart},
    {'0', '9', XmlCharacterClass::NamePart},        {0xB7, 0xB7, XmlCharacterClass::NamePart},
    {0x300, 0x36F, XmlCharacterClass::NamePart},    {0x203F, 0x2040, XmlCharacterClass::NamePart},
    {':', ':', XmlCharacterClass::NameStart},       {'A', 'Z', XmlCharacterClass::NameStart},
    {'_', '_', XmlCharacterClass::NameStart},       {'a', 'z', XmlCharacterClass::NameStart},
    {0xC0, 0xD6, XmlCharacterClass::NameStart},     {0xD8, 0xF6, XmlCharacterClass::NameStart},
    {0xF8, 0x2FF, XmlCharacterClass::NameStart},    {0x370, 0x37D, XmlCharacterClass::NameStart},
    {0x37F, 0x1FFF, XmlCharacterClass::NameStart},  {0x200C, 0x200D, XmlCharacterClass::NameStart},
    {0x2070, 0x218F, XmlCharacterClass::NameStart}, {0x2C00, 0x2FEF, XmlCharacterClass::NameStart},
    {0x3001, 0xD7FF, XmlCharacterClass::NameStart}, {0xF900, 0xFDCF, XmlCharacterClass::NameStart},
    {0xFDF0, 0xFFFD, XmlCharacterClass::NameStart},
};

// Two bits a code point, four code points a byte, the lowest of the four in the highest bits.
using Table = std::array<std::uint8_t, 0x10000 / 4>;

constexpr unsigned shiftOf(std::uint32_t codePoint) {
    return 6 - 2 * (codePoint & 3);
}

constexpr Table makeTable() {
    Table table{};
    table.fill(0x55);  // Legal, four times
    for (const Range& range : ranges) {
        const auto value = static_cast<unsigned>(range.characterClass);
        for (std::uint32_t c = range.first; c <= range.last; ++c) {
            const unsigned others = table[c >> 2] & ~(3U << shiftOf(c));
            table[c >> 2] = static_cast<std::uint8_t>(others | (value << shiftOf(c)));
        }
    }
    return table;
}

constexpr Table table = makeTable();

}  // namespace

XmlCharacterClass xmlCharacterClass(std::uint32_t codePoint) {
    if (codePoint < 0x10000) {
        return static_cast<XmlCharacterClass>((table[codePoint >> 2] >> shiftOf(codePoint)) & 3);
    }
    if (codePoint > 0x10FFFF || (codePoint & 0xFFFE) == 0xFFFE) {
        return XmlCharacterClass::Illegal;
    }
    return XmlCharacterClass::NameStart;
}

}  // namespace nolk
