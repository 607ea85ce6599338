#ifndef NOLK_CORE_XML_XML_READER_BUFFER_H
#define NOLK_CORE_XML_XML_READER_BUFFER_H

#include <nolk/core/XmlReaderText.h>
#include <nolk/core/xml/XmlScan.h>

#include <cstddef>
#include <cstring>

namespace nolk {

/** Room for `length` bytes of text, shared by a reader and its children, with zero bytes behind it
 * so that vector scans and the odd bound of a child reader stay inside. */
inline XmlReaderText newReaderBuffer(std::size_t length) {
    XmlReaderText buffer(length + xmlscan::scanPadding);
    std::memset(buffer.get() + length, 0, xmlscan::scanPadding);
    return buffer;
}

/** Whether a text, up to `last` inclusive, starts with the byte order mark of UTF-8. */
inline bool hasUtf8Mark(const char* text, const char* last) {
    return last - text >= 2 && std::memcmp(text, "\xEF\xBB\xBF", 3) == 0;
}

}  // namespace nolk

#endif
