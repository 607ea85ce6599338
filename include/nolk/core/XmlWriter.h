#ifndef NOLK_CORE_XML_WRITER_H
#define NOLK_CORE_XML_WRITER_H

#include <nolk/core/Export.h>
#include <nolk/core/XmlAttributeSet.h>
#include <nolk/core/XmlName.h>
#include <nolk/core/XmlNamespace.h>
#include <nolk/core/XmlNamespaceStack.h>

#include <concepts>
#include <list>
#include <string>
#include <string_view>

namespace nolk {

/**
 * Turns element, attribute and text calls into XML text and pushes it into the sink of a derived
 * class, XmlStringWriter for one.
 *
 * The writer keeps the namespace scopes of the open elements. It declares what a name needs where
 * it is needed first, uses a prefix already bound to the URI rather than the one asked for, and
 * makes up "ns1", "ns2" and so on where a prefix is missing or taken.
 *
 *     XmlStringWriter writer;
 *     XmlName order("order", XmlNamespace("", "urn:shop"));
 *     writer.writeElementStart(order);
 *     writer.write("3 < 4");
 *     writer.writeElementEnd(order);
 *     writer.getString();    // <order xmlns="urn:shop">3 &lt; 4</order>
 *
 * One writer writes one document. It does not check that the result is well-formed: the caller
 * pairs starts and ends and gives legal names. It reports nothing of its own but texts beyond
 * 4 GB, as std::length_error; exceptions of the sink and std::bad_alloc pass through. A writer
 * belongs to one thread.
 */
class NOLK_API XmlWriter {
public:
    /** White space ignored, escaping by default, indents of 2, and a base scope. */
    XmlWriter();
    XmlWriter(const XmlWriter&) = default;
    /** All or nothing. */
    XmlWriter& operator=(const XmlWriter& other);
    virtual ~XmlWriter();

    /** @name The sink
     * Text arrives in pieces, which may be empty: one for each text, attribute and tag, but for the
     * end of a tag with attributes, which comes by itself, and for indents. @{ */
    virtual void writeToSink(char c) = 0;
    virtual void writeToSink(const char* data, unsigned int length) = 0;

protected:
    /** Passes the bytes on to writeToSink(const char*, unsigned). */
    virtual void writeToSink(const std::string& text);

public:
    virtual void flush() = 0;
    /** @} */

    /** @name Layout
     * Nothing is indented unless white space is not ignored; then each text, attribute or tag
     * that comes first on its line does it. Only these operations change the indent. @{ */
    /** Sets the spaces of one level and gives the previous value. */
    int setSizeOfIndent(int size) noexcept;
    /** Sets the spaces at the start of a line; a negative number counts as 0. */
    void setCurrentIndent(int indent) noexcept;
    void incrementIndent() noexcept;
    void decrementIndent() noexcept;  ///< Stops at 0.
    /** While true (the default) neither indents nor new lines are written. */
    bool getIgnoreWhitespace() const noexcept { return ignoreWhitespace_; }
    void setIgnoreWhitespace(bool ignore) noexcept { ignoreWhitespace_ = ignore; }
    /** Writes a line feed. */
    void writeNewLine();
    /** Writes the indent if nothing was written behind the last writeNewLine(). */
    void writeIndentChars();
    /** @} */

    /** The escaping of calls that don't say: true at first. */
    bool getMustEscapeTextDefault() const noexcept { return mustEscapeTextDefault_; }
    void setMustEscapeTextDefault(bool escape) noexcept { mustEscapeTextDefault_ = escape; }

    /** Adds to the innermost scope as it is, with no look at what is bound and nothing written. */
    void addNamespace(const XmlNamespace& ns) { namespaces_.addNamespace(ns); }
    /** Has `ns` declared on each first-level element, where it isn't in scope already. */
    void addNamespaceDecl(const XmlNamespace& ns) { namespaceDecls_.push_back(ns); }
    const XmlNamespaceStack& getNamespaceStack() const noexcept { return namespaces_; }
    void setNamespaceStack(const XmlNamespaceStack& stack) { namespaces_ = stack; }

    /**
     * Writes element content. Escaped, every `&`, `<`, `>` and CR becomes a reference, also an `&`
     * that begins one; quotes stay, and a complete CDATA section goes out as it is.
     */
    void write(const char* text, unsigned int length, bool escape);
    void write(const std::string& text, bool escape);
    void write(const std::string& text);

    /**
     * Writes one attribute, between the start of an element's tag and its end. Escaped, `"`, `'`,
     * `<`, `>` and `&` become references. Deliberate: an `&` that begins one of the five
     * predefined references stays, so that an escaped value isn't escaped again, and so does CR.
     * An XmlName is written as its qualified name.
     */
    void writeAttribute(const std::string& qname, const char* value, unsigned int length,
                        bool escape);
    void writeAttribute(const std::string& qname, const char* value, unsigned int length);
    void writeAttribute(const std::string& qname, const std::string& value, bool escape);
    void writeAttribute(const std::string& qname, const std::string& value);
    void writeAttribute(const XmlName& name, const char* value, unsigned int length, bool escape);
    void writeAttribute(const XmlName& name, const char* value, unsigned int length);
    void writeAttribute(const XmlName& name, const std::string& value, bool escape);
    void writeAttribute(const XmlName& name, const std::string& value);

    /** Keeps a flag behind a literal from being taken for a length. */
    template <typename Name, std::same_as<bool> Flag>
    void writeAttribute(const Name& name, const char* value, Flag escape) {
        writeAttribute(name, std::string(value), escape);
    }

    /**
     * Writes a start tag, or with `isEmpty` the tag of an empty element, with the declarations
     * that it needs: those among `attributes`, then those of the element, the type and the
     * attributes. A `typeName` with a local name becomes the attribute xsi:type.
     */
    void writeElementStart(const XmlName& name, const XmlAttributeSet& attributes = none(),
                           bool isEmpty = false, const XmlName& typeName = noType());
    /** Writes an end tag; `name` must have the URI given at the start. */
    void writeElementEnd(const XmlName& name);

    /**
     * Writes an element with text only, an empty element for an empty value, and a new line
     * behind it. A name given as text is in no namespace. The type is written only with
     * `useType`: a name as writeElementStart() does, a text verbatim as the value of xsi:type.
     * Where a literal 0 is the length and a literal the type, the call is ambiguous: give the
     * length a variable. @{ */
    void writeSimpleElement(const XmlName& name, const char* value, unsigned int length,
                            const XmlName& type, bool escape, bool useType,
                            const XmlAttributeSet& attributes = none());
    void writeSimpleElement(const XmlName& name, const char* value, unsigned int length,
                            const std::string& type, bool escape, bool useType,
                            const XmlAttributeSet& attributes = none());
    void writeSimpleElement(const std::string& name, const char* value, unsigned int length,
                            const std::string& type, bool escape, bool useType,
                            const XmlAttributeSet& attributes = none());
    void writeSimpleElement(const XmlName& name, const std::string& value, const XmlName& type,
                            bool useType, const XmlAttributeSet& attributes = none());
    void writeSimpleElement(const XmlName& name, const std::string& value, const std::string& type,
                            bool escape, bool useType, const XmlAttributeSet& attributes = none());
    void writeSimpleElement(const std::string& name, const std::string& value,
                            const std::string& type, bool escape, bool useType,
                            const XmlAttributeSet& attributes = none());
    void writeSimpleElement(const XmlName& name, const char* value, unsigned int length,
                            const XmlName& type, bool useType,
                            const XmlAttributeSet& attributes = none());
    void writeSimpleElement(const XmlName& name, const char* value, unsigned int length,
                            const std::string& type, bool useType,
                            const XmlAttributeSet& attributes = none());
    void writeSimpleElement(const std::string& name, const char* value, unsigned int length,
                            const std::string& type, bool useType,
                            const XmlAttributeSet& attributes = none());
    void writeSimpleElement(const XmlName& name, const std::string& value, const std::string& type,
                            bool useType, const XmlAttributeSet& attributes = none());
    void writeSimpleElement(const std::string& name, const std::string& value,
                            const std::string& type, bool useType,
                            const XmlAttributeSet& attributes = none());
    /** @} */

private:
    class Output;
    static const XmlAttributeSet& none() noexcept;
    static const XmlName& noType() noexcept;
    XmlNamespace generatePrefixForNamespace(const XmlNamespace& ns);
    void addNamespaceToScope(const XmlNamespace& ns);
    const XmlNamespace* addNamespaceToScopeIfNecessary(const XmlNamespace& ns, bool skipDefault);
    void processNamespaceDecls(const XmlAttributeSet& attributes);
    std::string declareType(const XmlName& typeName);
    void writeTag(const XmlName& name, const XmlNamespace* bound, const XmlAttributeSet& attributes,
                  bool isEmpty, const XmlAttribute* type);
    void closeIfEmpty(bool isEmpty);
    const XmlNamespace* findBinding(const std::string& uri, bool skipDefault) noexcept;
    const std::string& defaultURI() noexcept;
    std::string_view elementPrefix(const XmlName& name) noexcept;
    void writeOpening(std::string_view prefix, const XmlName& name, std::string_view ending);
    void writeAttributeParts(std::string_view prefix, std::string_view localName,
                             std::string_view value, bool escape);
    void writeSimple(const XmlName& name, std::string_view value, bool escape,
                     const XmlAttributeSet& attributes, const XmlName& type);
    void writeSimple(const XmlName& name, std::string_view value, bool escape,
                     const XmlAttributeSet& attributes, const std::string& type, bool useType);

    unsigned int currentIndent_ = 0;
    int sizeOfIndent_ = 2;
    bool atLineStart_ = false;
    bool ignoreWhitespace_ = true;
    bool mustEscapeTextDefault_ = true;
    XmlNamespaceStack namespaces_;
    std::list<XmlNamespace> namespaceDecls_;
};

}  // namespace nolk

#endif
