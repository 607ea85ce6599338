/** @file
 * The two escapings of XmlWriter, over plain memory.
 *
 * Both look for the next byte that needs a reference, copy the run before it in one go, and write
 * the reference. Most texts have none, so the search is what counts: it takes sixteen bytes at a
 * time where the processor's baseline allows, and asks a table byte by byte elsewhere.
 */
#ifndef NOLK_CORE_XML_XML_ESCAPE_H
#define NOLK_CORE_XML_XML_ESCAPE_H

#include <cstddef>

namespace nolk::xml {

/** The longest output for one byte of element content ("&#xD;", "&amp;"). */
constexpr std::size_t textExpansion = 5;
/** The longest output for one byte of an attribute value ("&quot;", "&apos;"). */
constexpr std::size_t attributeExpansion = 6;

/** The first byte in [p, end) that element content can't hold as it is, or `end`. */
const char* findTextSpecial(const char* p, const char* end) noexcept;
/** The first byte in [p, end) that an attribute value can't hold as it is, or `end`. */
const char* findAttributeSpecial(const char* p, const char* end) noexcept;

/** The same by table, on every platform. @{ */
const char* findTextSpecialByTable(const char* p, const char* end) noexcept;
const char* findAttributeSpecialByTable(const char* p, const char* end) noexcept;
/** @} */

/**
 * Writes the escaped form of [p, end) at `out` and gives the end of it.
 * @pre `out` has room for the expansion of every byte
 */
char* escapeText(const char* p, const char* end, char* out) noexcept;
char* escapeAttribute(const char* p, const char* end, char* out) noexcept;

}  // namespace nolk::xml

#endif
