#ifndef NOLK_CORE_NESTABLE_XML_CONTENT_HANDLER_H
#define NOLK_CORE_NESTABLE_XML_CONTENT_HANDLER_H

#include <nolk/core/Export.h>
#include <nolk/core/XmlContentHandler.h>
#include <nolk/core/XmlName.h>

namespace nolk {

class XmlSAXParser;

/**
 * A content handler that can take over a subtree from another one and give back at its end.
 *
 * A handler that meets the start of a subtree makes a child with `(parser, this)`. The child gets
 * all events from the next one on. When it sees the end of the subtree's root, it calls
 * NestableXmlContentHandler::endElement, which puts its parent back in charge and hands it that
 * same event.
 *
 * Neither the parser nor the parent is owned; both must outlive the use of this handler. The
 * child belongs to the parent, which must not delete it before the hand-back has returned.
 */
class NOLK_API NestableXmlContentHandler : public XmlContentHandler {
public:
    /** Stores both, which may be null, and at once becomes the handler of a given `parser`. */
    NestableXmlContentHandler(XmlSAXParser* parser, XmlContentHandler* parent);
    NestableXmlContentHandler(const NestableXmlContentHandler&) = default;
    NestableXmlContentHandler& operator=(const NestableXmlContentHandler&) = default;
    ~NestableXmlContentHandler() override;

    /**
     * Hands back: installs the parent in the parser and passes the event on to it. Does nothing
     * if there is no parser or no parent.
     */
    void endElement(const XmlName& name) override;

protected:
    XmlSAXParser* getParser() const noexcept { return parser_; }

private:
    XmlSAXParser* parser_;
    XmlContentHandler* parent_;
};

}  // namespace nolk

#endif
