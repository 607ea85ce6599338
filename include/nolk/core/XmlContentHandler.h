#ifndef NOLK_CORE_XML_CONTENT_HANDLER_H
#define NOLK_CORE_XML_CONTENT_HANDLER_H

#include <nolk/core/Export.h>
#include <nolk/core/XmlAttributeSet.h>
#include <nolk/core/XmlName.h>

#include <string>

namespace nolk {

/**
 * What XmlSAXParser calls, node by node, in document order.
 *
 * The arguments belong to the parser and are only good during the call; copy what is to stay. An
 * exception thrown here leaves XmlSAXParser::parse. All calls of a parse come from its thread.
 */
class NOLK_API XmlContentHandler {
public:
    virtual ~XmlContentHandler();

    /**
     * An element begins. Its attributes contain the namespace declarations of its tag. For an
     * empty element endElement() follows at once.
     */
    virtual void startElement(const XmlName& name, const XmlAttributeSet& attributes) = 0;

    /** An element ends. `name` is spelled as in the end tag. */
    virtual void endElement(const XmlName& name) = 0;

    /**
     * Text between two tags, UTF-8: white space between elements as well, CDATA sections with
     * their markup, references replaced, comments dropped.
     */
    virtual void characters(const std::string& text) = 0;

protected:
    XmlContentHandler() = default;
    XmlContentHandler(const XmlContentHandler&) = default;
    XmlContentHandler& operator=(const XmlContentHandler&) = default;
};

}  // namespace nolk

#endif
