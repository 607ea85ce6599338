#ifndef NOLK_CORE_XML_XML_CHARACTER_CLASS_H
#define NOLK_CORE_XML_XML_CHARACTER_CLASS_H

#include <cstdint>

namespace nolk {

/** What a character may stand for in XML. */
enum class XmlCharacterClass : std::uint8_t {
    Illegal = 0,    ///< nowhere in a document
    Legal = 1,      ///< in content, not in names
    NamePart = 2,   ///< in a name, but not first
    NameStart = 3,  ///< anywhere in a name
};

/** The class of any code point; above 0x10FFFF all are illegal. */
XmlCharacterClass xmlCharacterClass(std::uint32_t codePoint);

/** The white space of markup: a blank, a tab and the two line ends. */
constexpr bool isXmlSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

}  // namespace nolk

#endif
