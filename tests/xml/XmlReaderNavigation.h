#ifndef NOLK_TESTS_XML_XML_READER_NAVIGATION_H
#define NOLK_TESTS_XML_XML_READER_NAVIGATION_H

#include <nolk/core/XmlParseLineColException.h>
#include <nolk/core/XmlReader.h>

#include <cstdint>
#include <string>
#include <vector>

// What the tests of the reader's navigation share: a node, and a failure, as one short text.
namespace nolk::navigation {

/** What a failing action throws, as "[KEY] text". */
template <class Action>
std::string failure(Action action) {
    try {
        action();
    } catch (const Exception& thrown) {
        return thrown.what();
    }
    return "nothing thrown";
}

/** Where a failing action stands, as "line:column". */
template <class Action>
std::string failurePosition(Action action) {
    try {
        action();
    } catch (const XmlParseLineColException& thrown) {
        return std::to_string(thrown.getLineNumber()) + ":" +
               std::to_string(thrown.getColumnNumber());
    } catch (const Exception& thrown) {
        return std::string("another exception: ") + thrown.what();
    }
    return "nothing thrown";
}

inline const char prematureEof[] = "[XML_PARSE_PREMATURE_EOF] Premature EOF";

inline std::string unexpected(const std::string& expected, const std::string& found) {
    return "[XML_PARSE_UNEXPECTED_ELEMENT] Expected " + expected + ", found " + found;
}
inline std::string noStartTag(const std::string& name) {
    return "[XML_PARSE_NO_START_TAG] Couldn't find start tag: " + name;
}
inline std::string noEndTag(const std::string& name) {
    return "[XML_PARSE_NO_END_TAG] Couldn't find end tag: " + name;
}
inline std::string invalidSequence(const std::string& byte) {
    return "[XML_PARSE_INVALID_SEQUENCE] Invalid character sequence <!" + byte;
}

/** "{uri}local", or "local" without a URI. */
inline std::string text(const XmlReaderName& name) {
    const std::string local = name.localName.asString();
    return name.uri.length == 0 ? local : "{" + name.uri.asString() + "}" + local;
}

/** " prefix:local=value" for each attribute, in order. */
inline std::string text(const XmlReaderAttributeList& attributes) {
    std::string result;
    for (std::uint32_t i = 0; i < attributes.length(); ++i) {
        const XmlReaderAttribute& attribute = attributes[i];
        result += " ";
        if (attribute.name.prefix.length > 0) {
            result += attribute.name.prefix.asString() + ":";
        }
        result += attribute.name.localName.asString() + "=" + attribute.value.asString();
    }
    return result;
}

/** The current node: `<{u}a b=1>`, `</{u}a>`, `<{u}a b=1/>`, `"text"` or `unknown`. */
inline std::string node(const XmlReader& reader) {
    switch (reader.getLastNodeType()) {
        case XmlReader::StartTag:
            return "<" + text(reader.getLastNameI()) + text(reader.getLastAttributesI()) + ">";
        case XmlReader::EndTag:
            return "</" + text(reader.getLastNameI()) + ">";
        case XmlReader::EmptyTag:
            return "<" + text(reader.getLastNameI()) + text(reader.getLastAttributesI()) + "/>";
        case XmlReader::Data:
            return "\"" + reader.getLastContent() + "\"";
        case XmlReader::Unknown:
            break;
    }
    return "unknown";
}

/** Reads a node and tells it. */
inline std::string next(XmlReader& reader) {
    reader.readNextNode();
    return node(reader);
}

/** Reads all nodes that are left; a failure is the last item. */
inline std::vector<std::string> nodes(XmlReader reader) {
    std::vector<std::string> result;
    try {
        while (!reader.eof()) {
            result.push_back(next(reader));
        }
    } catch (const Exception& thrown) {
        result.push_back(thrown.what());
    }
    return result;
}

inline std::vector<std::string> nodesOf(const std::string& document) {
    return nodes(XmlReader(document));
}

using Nodes = std::vector<std::string>;

/** Any element. */
inline const XmlName& any = XmlReader::NullName;

/** A reader that has read the root's start tag. */
inline XmlReader inside(const std::string& document) {
    XmlReader reader(document);
    reader.readElementStart();
    return reader;
}

}  // namespace nolk::navigation

#endif
