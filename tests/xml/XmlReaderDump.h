/** @file
 * A document as a row of a table: what the reader makes of it, in one line of text.
 *
 *     <p:a xmlns:p="u" b="1">x<c/></p:a>
 *
 * is dumped as
 *
 *     Start{u}p:a[xmlns:p='u' b='1'] Data'x' Empty c End{u}p:a
 *
 * A name is its URI in braces, unless that is empty, then the qualified name. A failure ends the
 * line, with "!" and the key of its message in front of nothing else: "Start a !XML_PARSE_...".
 */
#ifndef NOLK_TESTS_XML_XML_READER_DUMP_H
#define NOLK_TESTS_XML_XML_READER_DUMP_H

#include <nolk/core/XmlParseLineColException.h>
#include <nolk/core/XmlReader.h>

#include <string>
#include <string_view>

namespace nolk::test {

/** How a document is read; the reader's own defaults at first. */
struct ReadSettings {
    bool expandContent = true;
    bool expandAttributes = true;
    bool keepComments = false;
};

inline constexpr ReadSettings rawContent{false, true, false};
inline constexpr ReadSettings rawAttributes{true, false, false};
inline constexpr ReadSettings keptComments{true, true, true};
inline constexpr ReadSettings rawWithComments{false, true, true};

inline void apply(XmlReader& reader, const ReadSettings& settings) {
    reader.setExpandContentReference(settings.expandContent);
    reader.setExpandAttributeReference(settings.expandAttributes);
    reader.setExpandCommentReference(settings.keepComments);
}

inline std::string dumpName(const XmlReaderName& name) {
    std::string text;
    if (name.uri.length != 0) {
        text += "{" + name.uri.asString() + "}";
    }
    if (name.prefix.length != 0) {
        text += name.prefix.asString() + ":";
    }
    return text + name.localName.asString();
}

inline std::string dumpAttributes(const XmlReaderAttributeList& attributes) {
    std::string text;
    for (std::uint32_t i = 0; i < attributes.length(); ++i) {
        text += i == 0 ? "[" : " ";
        text += dumpName(attributes[i].name) + "='" + attributes[i].value.asString() + "'";
    }
    return attributes.length() == 0 ? text : text + "]";
}

inline std::string tagged(const char* kind, const XmlReaderName& name) {
    const std::string text = dumpName(name);
    return std::string(kind) + (text.rfind('{', 0) == 0 ? "" : " ") + text;
}

/** The node that the reader stands on. */
inline std::string dumpNode(const XmlReader& reader) {
    switch (reader.getLastNodeType()) {
        case XmlReader::StartTag:
            return tagged("Start", reader.getLastNameI()) +
                   dumpAttributes(reader.getLastAttributesI());
        case XmlReader::EmptyTag:
            return tagged("Empty", reader.getLastNameI()) +
                   dumpAttributes(reader.getLastAttributesI());
        case XmlReader::EndTag:
            return tagged("End", reader.getLastNameI());
        case XmlReader::Data:
            return "Data'" + reader.getLastContent() + "'";
        default:
            return "Unknown";
    }
}

/** The key of a failure's message, as "XML_PARSE_PREMATURE_EOF". */
inline std::string keyOf(const Exception& failure) {
    const std::string text = failure.what();
    const std::size_t close = text.find(']');
    return text.rfind('[', 0) == 0 && close != std::string::npos ? text.substr(1, close - 1)
                                                                 : "no key in: " + text;
}

inline void addWord(std::string& line, const std::string& word) {
    line += (line.empty() ? "" : " ") + word;
}

/** Dumps what is left to be read up to the end, or up to `limit` nodes. */
inline std::string dumpRest(XmlReader& reader, unsigned limit = ~0u) {
    std::string line;
    try {
        for (; limit != 0 && !reader.eof(); --limit) {
            reader.readNextNode();
            addWord(line, dumpNode(reader));
        }
    } catch (const XmlParseLineColException& failure) {
        addWord(line, "!" + keyOf(failure));
    }
    return line;
}

/** Dumps a whole document; a prolog that fails leaves the failure alone. */
inline std::string dump(const std::string& document, const ReadSettings& settings = {}) {
    try {
        XmlReader reader(document);
        apply(reader, settings);
        return dumpRest(reader);
    } catch (const XmlParseLineColException& failure) {
        return "!" + keyOf(failure);
    }
}

/** Reads nodes, without ever asking for the end, until the reader fails, and tells the failure as
 * "line:column text". */
inline std::string failureOf(const std::string& document, const ReadSettings& settings = {}) {
    try {
        XmlReader reader(document);
        apply(reader, settings);
        for (;;) {
            reader.readNextNode();
        }
    } catch (const XmlParseLineColException& failure) {
        return std::to_string(failure.getLineNumber()) + ":" +
               std::to_string(failure.getColumnNumber()) + " " + failure.what();
    }
}

/** The same without the text: "line:column KEY". */
inline std::string placeOf(const std::string& document, const ReadSettings& settings = {}) {
    const std::string text = failureOf(document, settings);
    const std::size_t open = text.find('[');
    const std::size_t close = text.find(']');
    return text.substr(0, open) + text.substr(open + 1, close - open - 1);
}

/** The text of the first `Data` node, or the dump of a document that has none. */
inline std::string textOf(const std::string& document, const ReadSettings& settings = {}) {
    try {
        XmlReader reader(document);
        apply(reader, settings);
        while (reader.getLastNodeType() != XmlReader::Data) {
            reader.readNextNode();
        }
        return reader.getLastContent();
    } catch (const XmlParseLineColException& failure) {
        return "!" + keyOf(failure);
    }
}

/** The value of the first attribute of the first tag, or the key of the failure. */
inline std::string valueOf(const std::string& document, const ReadSettings& settings = {}) {
    try {
        XmlReader reader(document);
        apply(reader, settings);
        reader.readNextNode();
        const XmlReaderAttributeList& attributes = reader.getLastAttributesI();
        return attributes.length() == 0 ? "no attribute" : attributes[0].value.asString();
    } catch (const XmlParseLineColException& failure) {
        return "!" + keyOf(failure);
    }
}

/** One row of a table of documents. */
struct Row {
    const char* document;
    const char* expected;
};

/** A character as UTF-8, worked out bit by bit and independently of the library's own encoder. */
inline std::string utf8(std::uint32_t c) {
    const auto byte = [](std::uint32_t value) { return std::string(1, static_cast<char>(value)); };
    const auto tail = [&byte](std::uint32_t bits) { return byte(0x80 + bits % 64); };
    if (c < 0x80) {
        return byte(c);
    }
    if (c < 0x800) {
        return byte(0xC0 + c / 64) + tail(c);
    }
    if (c < 0x10000) {
        return byte(0xE0 + c / 4096) + tail(c / 64) + tail(c);
    }
    return byte(0xF0 + c / 262144) + tail(c / 4096) + tail(c / 64) + tail(c);
}

}  // namespace nolk::test

#endif
