#ifndef NOLK_CORE_XML_READER_STRING_H
#define NOLK_CORE_XML_READER_STRING_H

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace nolk {

/**
 * A view of bytes in the buffer of an XmlReader: what the reader found, without a copy.
 *
 * A plain value that owns nothing. It stays valid as long as the reader's buffer lives and the
 * text under it isn't compacted again; see XmlReader. The text is UTF-8 and not terminated. A
 * default-constructed view points at an empty static text, which stands for every absent value.
 */
struct XmlReaderString {
    const char* data = "";     ///< First byte; never null in a view that the reader made.
    std::uint32_t length = 0;  ///< Count of bytes.

    /** The bytes as a standard view, with the lifetime of this one. */
    std::string_view view() const { return {data, length}; }

    /** An owning copy. */
    std::string asString() const { return std::string(data, length); }

    /** A view of `text`, which must outlive it. @pre `text` is shorter than 4 GiB. */
    static XmlReaderString of(std::string_view text) {
        return {text.data(), static_cast<std::uint32_t>(text.size())};
    }
};

/** Equal length and equal bytes. Two views of the same place compare without reading it. */
inline bool operator==(const XmlReaderString& a, const XmlReaderString& b) {
    return a.length == b.length && (a.data == b.data || std::memcmp(a.data, b.data, a.length) == 0);
}

}  // namespace nolk

#endif
