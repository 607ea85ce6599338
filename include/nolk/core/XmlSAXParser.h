#ifndef NOLK_CORE_XML_SAX_PARSER_H
#define NOLK_CORE_XML_SAX_PARSER_H

#include <nolk/core/Export.h>

#include <string>

namespace nolk {

class XmlContentHandler;
class XmlReader;

/**
 * Drives an XmlReader over a whole document and calls a content handler for each node. Unlike the
 * reader it checks that end tags match their start tags.
 *
 *     Handler handler;                       // an XmlContentHandler
 *     XmlSAXParser parser;
 *     parser.setContentHandler(&handler);
 *     parser.parse(text);
 *
 * The handler is not owned. It may be replaced during any of its calls, also by null: the next
 * event goes to the new one, or to none. Whichever is set stays set after the parse, and after an
 * exception.
 *
 * A parser and its handlers belong to one thread during a parse, and run one parse at a time.
 */
class NOLK_API XmlSAXParser {
public:
    XmlSAXParser() = default;
    /** Copies take over the settings. A parse under way is not part of them. */
    XmlSAXParser(const XmlSAXParser& other) noexcept;
    XmlSAXParser& operator=(const XmlSAXParser& other) noexcept;
    ~XmlSAXParser() = default;

    /** The receiver of all events from now on; null (as at first) for none. */
    void setContentHandler(XmlContentHandler* handler) noexcept { contentHandler_ = handler; }
    XmlContentHandler* getContentHandler() const noexcept { return contentHandler_; }

    /** Whether references in attribute values are replaced: true at first. */
    void setExpandAttributeReference(bool expand) noexcept { expandAttributeReference_ = expand; }
    bool getExpandAttributeReference() const noexcept { return expandAttributeReference_; }

    /**
     * For use inside a handler's calls: the bindings in the scope of the current element, or an
     * empty text if there is none or no parse is under way. When an element ends, and in both
     * calls of an empty one, the scope of its own tag is gone already.
     */
    std::string getPrefixForURI(const std::string& uri) const;
    std::string getURIForPrefix(const std::string& prefix) const;

    /**
     * Reads the whole document, whose encoding is detected as XmlReader does. `second` is not
     * read. A document that ends right after a start tag, or one byte behind it, ends without an
     * error.
     *
     * @throws XmlParseLineColException for malformed input, with
     *         NOLK_CORE_XML_PARSE_UNMATCHED_START for an end tag that isn't that of the innermost
     *         open element, also without a handler
     * @throws whatever the handler throws
     */
    void parse(const std::string& document, const std::string& second = std::string());

private:
    class Events;

    XmlContentHandler* contentHandler_ = nullptr;
    XmlReader* reader_ = nullptr;  ///< lives on the stack of parse()
    bool expandAttributeReference_ = true;
};

}  // namespace nolk

#endif
