#ifndef NOLK_CORE_XML_READER_H
#define NOLK_CORE_XML_READER_H

#include <nolk/core/Exception.h>
#include <nolk/core/Export.h>
#include <nolk/core/HandleBase.h>
#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/XmlAttributeSet.h>
#include <nolk/core/XmlName.h>
#include <nolk/core/XmlReaderAttributeList.h>
#include <nolk/core/XmlReaderName.h>
#include <nolk/core/XmlReaderNamespaceStack.h>

#include <string>

namespace nolk {

class XmlReaderImp;

/**
 * A pull parser: a cursor over one XML document that the caller moves node by node, or expected
 * element by expected element.
 *
 *     nolk::XmlReader reader(text);
 *     reader.readElementStart("order");
 *     while (reader.isElementNext("item")) {
 *         reader.readElementStart("item");
 *         std::string item = reader.readElementValue();
 *         reader.readElementEnd("item");
 *     }
 *     reader.readElementEnd("order");
 *
 * A handle on an XmlReaderImp: copies share the document and the position. The body takes a private
 * copy of the text, converts it to UTF-8 in memory (UTF-8, US-ASCII, ISO-8859-1 and UTF-16 are
 * built in), and hands out text in two forms: operations with the suffix `I` return views into that
 * copy, without allocation, which live as long as the reader, until text under them is read again,
 * and at most until an XML declaration inside the document converts it; the others return owning
 * copies. Where they return a reference, the view or list itself is good until the next read.
 *
 * It is made for machine-written messages, fast and forgiving, and is no validating processor: a
 * DOCTYPE is skipped, processing instructions and comments are not reported, an undeclared prefix
 * has the empty URI, attribute values are not normalised, CDATA sections stay in the text as
 * written, and end tags are compared with start tags only by readElementEnd(name) and by
 * XmlSAXParser.
 *
 * Every malformed document ends in an XmlParseLineColException that tells line and column. Any
 * operation on an empty handle throws NullPointerException. A reader, with all its handles and the
 * readers made by getElementReader(), belongs to one thread at a time.
 */
class NOLK_API XmlReader : public HandleBase {
public:
    /**
     * What the reader stands on: `Unknown` before anything is read and never again. Any node may
     * follow any other, as the document has it: that end tags close what was opened is up to
     * readElementEnd(name). Reading the end of an element, or all of it, makes an `EndTag` of an
     * empty tag.
     */
    enum NodeType { StartTag, EndTag, EmptyTag, Data, Unknown };

    /** Passed as a name: any element, for readElement(), getElementReader() and
     * readWellFormedElement(). */
    static const XmlName NullName;

    /** An empty handle. */
    XmlReader() = default;

    /** Copies the document and reads its prolog. Throws XmlParseLineColException if that is
     * malformed, its encoding is unknown, or the document has fewer than five bytes. */
    XmlReader(const char* text, unsigned length);
    /** The same. Throws OutOfBoundsException for a text of 4 GiB or more. */
    explicit XmlReader(const std::string& text);
    /** The same for a fragment: the prefixes of `inherited`, whose views must outlive the reader,
     * are in scope. */
    XmlReader(const XmlReaderNamespaceStack& inherited, const std::string& text);

    /** Takes a counted reference to a body. */
    explicit XmlReader(XmlReaderImp* body);

    ~XmlReader() override = default;
    XmlReader(const XmlReader&) = default;
    XmlReader& operator=(const XmlReader&) = default;

    /** @name Document facts
     * The detected or declared encoding by name, and the values of the XML declaration, empty where
     * it doesn't tell. @{ */
    std::string getEncoding() const;
    std::string getVersion() const;
    std::string getStandalone() const;
    const XmlReaderString& getEncodingI() const;
    const XmlReaderString& getVersionI() const;
    const XmlReaderString& getStandaloneI() const;
    /** @} */

    /** @name Nodes @{ */

    /** Moves to the next tag or text. Text is `Data` even if it is white space only; comments and
     * processing instructions between nodes are passed over. At the end of the document it throws:
     * ask eof() first. */
    void readNextNode();

    /** Whether the whole document is read. Skips white space behind the root element. */
    bool eof();

    NodeType getLastNodeType() const;

    /** The name of the last tag; a text doesn't change it. */
    XmlName getLastName() const;
    const XmlReaderName& getLastNameI() const;

    /** The attributes of the last start or empty tag, namespace declarations among them. The set
     * holds each name once, with the last value. */
    XmlAttributeSet getLastAttributes() const;
    const XmlReaderAttributeList& getLastAttributesI() const;

    /** The last text, with CDATA sections as written. */
    std::string getLastContent() const;
    const XmlReaderString& getLastContentI() const;
    /** @} */

    /** @name Elements
     * A name is given as XmlName, as XmlReaderName, or as a string: a qualified name, resolved in
     * the scope at the call. Text in front of an expected tag is skipped. @{ */

    /** Whether the next tag starts the named element. Reads ahead but consumes nothing: asking
     * again reads nothing. A name without URI takes that of its prefix, or the default namespace,
     * in the scope of the tag found. After an empty tag that was read, asks about that tag itself.
     */
    bool isElementNext(const XmlName& name);
    bool isElementNext(const std::string& qualifiedName);
    bool isElementNextI(const XmlReaderName& name);
    bool isElementNextI(const std::string& localName, const std::string& uri);

    /** Moves through the next start or empty tag, and with a name compares it, after the tag is
     * read. Throws XmlParseLineColException if there's no such tag or the name differs. */
    void readElementStart();
    XmlAttributeSet readElementStart(const XmlName& name);
    XmlAttributeSet readElementStart(const std::string& qualifiedName);
    void readElementStartI(const XmlReaderName& name);

    /** The text up to the next tag. @pre the last tag is not an empty one: its value isn't there,
     * and this would read the text behind it. */
    std::string readElementValue();
    const XmlReaderString& readElementValueI();

    /** Moves through the next end tag, and with a name compares it. After an empty tag nothing is
     * read: it counts as start and end. Throws XmlParseLineColException as readElementStart(). */
    void readElementEnd();
    void readElementEnd(const XmlName& name);
    void readElementEnd(const std::string& qualifiedName);
    void readElementEndI(const XmlReaderName& name);

    /** The whole next element as raw text, tags included and nothing expanded; empty, with the node
     * left to be read, if no element is next. Not exact where a text has a processing instruction
     * or a comment with a CR in it: that is dropped, the rest of the text moves up, and left-over
     * bytes fill the gap. */
    std::string readElement(const XmlName& name);
    std::string readElement(const std::string& qualifiedName);
    XmlReaderString readElementI(const XmlReaderName& name);

    /** A reader over the next element, which this one moves behind. It shares the buffer, and the
     * two mustn't be used at the same time. Its text ends two bytes behind the element, so stop at
     * the end tag and don't wait for eof(). Over an empty text if no element is next. */
    XmlReader getElementReader(const XmlName& name);
    XmlReader getElementReader(const std::string& qualifiedName);
    XmlReader getElementReader(const XmlReaderName& name);

    /** The whole next element as text that can be read alone: namespace declarations that it needs
     * from outside are added to its start tag. An empty child of the element's own name makes it
     * look for one more end tag. */
    std::string readWellFormedElement(const XmlName& name);
    /** @} */

    /** @name Namespaces @{ */

    /** Binds in the innermost scope. The views must stay valid for the life of the reader. */
    void addNamespace(const XmlReaderNamespace& binding);
    /** Binds a copy in the innermost scope. */
    void addNamespace(const XmlNamespace& binding);
    void setNamespaceStack(const XmlReaderNamespaceStack& stack);
    XmlReaderNamespaceStack getNamespaceStack() const;
    /** The innermost binding in scope, or an empty string. */
    std::string getURIForPrefix(const std::string& prefix) const;
    std::string getPrefixForURI(const std::string& uri) const;
    /** @} */

    /** @name Settings @{ */

    /** Whether references in attribute values are replaced; true at first. */
    bool getExpandAttributeReference() const;
    void setExpandAttributeReference(bool expand);
    /** Whether references in text are replaced, and CR and CR LF become LF; true at first. */
    bool getExpandContentReference() const;
    void setExpandContentReference(bool expand);
    /** Whether comments inside text are kept in it, as markup; false at first. */
    bool getExpandCommentReference() const;
    void setExpandCommentReference(bool keep);
    /** @} */

    /** Throws XmlParseLineColException with the reader's line and column: for callers that find
     * fault with what they read. */
    [[noreturn]] void err(const ExceptionInfo& info, const LocalizedMessage& text) const;

    /** A name of views into `name`, which must outlive it. */
    static XmlReaderName asXmlReaderName(const XmlName& name);

protected:
    XmlReaderImp& body() const;
};

}  // namespace nolk

#include <nolk/core/XmlReaderImp.h>

#endif
