#ifndef NOLK_EXAMPLES_OUTLINE_COPY_HANDLER_H
#define NOLK_EXAMPLES_OUTLINE_COPY_HANDLER_H

#include <nolk/core/XmlContentHandler.h>
#include <nolk/core/XmlWriter.h>

/**
 * Writes what a parser reports, so that reading the result gives the same elements, attributes and
 * texts, byte by byte.
 *
 * Most elements go to the writer as they come. Care is taken where that wouldn't be exact:
 * - The writer leaves an `&` alone that begins one of the five predefined references in an
 *   attribute's value, so each `&` is escaped beforehand.
 * - It writes the URIs of declarations as they are, so URIs are escaped beforehand, everywhere
 *   alike.
 * - It takes the first prefix that it finds for a URI, even if that prefix was bound anew further
 *   in: then the URI is declared once more.
 * - A name whose prefix was never bound must not fall into the default namespace.
 * - A declaration that unbinds a prefix is left out: names under such a prefix are written without.
 * - The prefix xml, which nobody binds, is kept on attributes.
 */
class CopyHandler : public nolk::XmlContentHandler {
public:
    /** Writes an XML declaration at once. The writer isn't owned. */
    explicit CopyHandler(nolk::XmlWriter& writer);

    void startElement(const nolk::XmlName& name, const nolk::XmlAttributeSet& attributes) override;
    void endElement(const nolk::XmlName& name) override;
    void characters(const std::string& text) override;

    /** To be called behind the last element. */
    void finish();

private:
    bool isPlain(const nolk::XmlName& name, const nolk::XmlAttributeSet& attributes) const;
    bool isShadowed(const nolk::XmlNamespace& ns, bool isAttribute,
                    const nolk::XmlAttributeSet& attributes) const;
    void declareIfShadowed(const nolk::XmlNamespace& ns, bool isAttribute,
                           nolk::XmlAttributeSet& attributes) const;

    nolk::XmlWriter& writer_;
};

#endif
