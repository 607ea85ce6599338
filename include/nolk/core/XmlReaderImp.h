#ifndef NOLK_CORE_XML_READER_IMP_H
#define NOLK_CORE_XML_READER_IMP_H

#include <nolk/core/BodyBase.h>
#include <nolk/core/Export.h>
#include <nolk/core/XmlNamespace.h>
#include <nolk/core/XmlReader.h>
#include <nolk/core/XmlReaderAttributeList.h>
#include <nolk/core/XmlReaderName.h>
#include <nolk/core/XmlReaderNamespaceStack.h>
#include <nolk/core/XmlReaderText.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace nolk {

class XmlReaderRebase;

/**
 * The body of XmlReader: a private copy of the document, parsed in place.
 *
 * Every string that reading yields is a view into the one buffer. Text is normalised by moving it
 * to the left inside the buffer (references, line ends and comments only ever get shorter), so a
 * write position trails the read position, and nothing is allocated per node.
 *
 * Programs use XmlReader; this class is public because generated code may wrap a body of its own.
 * What the navigation operations do is told there.
 */
class NOLK_API XmlReaderImp : public BodyBase {
public:
    /** Copies the text, finds its encoding and reads the prolog, up to the root's `<`.
     * Throws XmlParseLineColException if that fails, a document below five bytes included. */
    XmlReaderImp(const char* text, unsigned length);

    /** The same with the prefixes of `inherited` in scope; its views must outlive the reader. */
    XmlReaderImp(const XmlReaderNamespaceStack& inherited, const char* text, unsigned length);

    XmlReaderImp(const XmlReaderImp&) = delete;
    XmlReaderImp& operator=(const XmlReaderImp&) = delete;
    ~XmlReaderImp() override;

    /** Frees the buffers at once. All views end; a later read meets the end of the document. */
    void cleanup();

    /** Throws an XmlParseLineColException with the line and column of the cursor. */
    [[noreturn]] void err(const ExceptionInfo& info, const LocalizedMessage& text) const;

    /** Whether all of the document is read; skips white space behind the root. */
    bool eof() {
        if (depth_ == 0 && cursor_ < last_) {
            readS();
        }
        return cursor_ >= last_;
    }

    const XmlReaderString& encoding() const { return encoding_; }
    const XmlReaderString& version() const { return version_; }
    const XmlReaderString& standalone() const { return standalone_; }
    bool encodingDeclared() const { return encodingDeclared_; }
    bool standaloneDeclared() const { return standaloneDeclared_; }

    XmlReader::NodeType lastNodeType() const { return lastNodeType_; }
    const XmlReaderName& lastName() const { return *lastName_; }
    const XmlReaderAttributeList& lastAttributes() const { return lastAttributes_; }
    const XmlReaderString& lastContent() const { return lastContent_; }

    bool expandAttributeReference() const { return expandAttributeReference_; }
    void setExpandAttributeReference(bool expand) { expandAttributeReference_ = expand; }
    bool expandContentReference() const { return expandContentReference_; }
    void setExpandContentReference(bool expand) { expandContentReference_ = expand; }
    bool expandCommentReference() const { return expandCommentReference_; }
    void setExpandCommentReference(bool expand) { expandCommentReference_ = expand; }

    void addNamespace(const XmlReaderNamespace& binding);
    void addNamespace(const XmlNamespace& binding);
    void setNamespaceStack(const XmlReaderNamespaceStack& stack);
    const XmlReaderNamespaceStack& namespaceStack() const { return namespaceStack_; }

    /** Splits a qualified name at its first colon and resolves the prefix in the current scope. */
    XmlReaderName getXmlName(const XmlReaderString& qname) const;

    void readNextNode();
    void readNextNode(bool expandContent, bool expandAttributes, bool keepComments);

    bool isElementNext(const XmlReaderName& name);
    const XmlReaderName& readElementStart();
    void readElementStart(const XmlReaderName& name);
    const XmlReaderString& readElementValue();
    const XmlReaderName& readElementEnd();
    void readElementEnd(const XmlReaderName& name);
    XmlReaderString readElement(const XmlReaderName& name);
    XmlReader getElementReader(const XmlReaderName& name);
    std::string readWellFormedElement(const XmlReaderName& name);

private:
    using Buffer = XmlReaderText;

    /** What readElement keeps aside while it reads on; chained, so that a replaced buffer finds
     * and moves it. */
    struct KeptElement;

    /** A name as it was scanned: cut at the first colon, if there is one. */
    struct ScannedName {
        const char* data;
        std::uint32_t length;
        std::uint32_t prefixLength;
        std::uint32_t localOffset;

        XmlReaderString prefix() const { return {data, prefixLength}; }
        XmlReaderString localName() const { return {data + localOffset, length - localOffset}; }
    };

    /** The name of an open element, whose prefix, be it empty, stands at its first byte. Has no
     * first value: setting them would cost a short document more than they save. */
    union OpenName {
        OpenName() {}
        XmlReaderName name;
    };

    /** A prefix of up to eight bytes and what it resolved to. */
    struct PrefixMemo {
        static constexpr std::uint32_t unknown = ~std::uint32_t{0};  // as length: nothing yet

        std::uint64_t bytes;
        const char* uri;
        std::uint32_t uriLength;
        std::uint32_t length;
    };

    /** The bindings of documents with very many prefixes. */
    class PrefixIndex;

    /** What few readers need. */
    struct Aside;

    /** Open elements up to this depth are matched with their end tag by a comparison of bytes. */
    static constexpr std::uint32_t rememberedDepth = 6;
    static constexpr std::uint32_t outermostElement = 2;  // the depth of its scope: over the base

    void openDocument(const char* text, unsigned length);

    /** A reader for getElementReader: shares the buffer of `parent` and its position. */
    explicit XmlReaderImp(XmlReaderImp* parent);

    // Bytes and characters.
    [[noreturn]] void failPrematureEof() const;
    void needByte() const {
        if (cursor_ > last_) [[unlikely]] {
            failPrematureEof();
        }
    }
    char rd();
    void pb(std::uint32_t count) { cursor_ -= count; }
    std::uint32_t rduchar();
    std::uint32_t rdmbuchar();
    void readS();

    // Prolog and encodings.
    void readProlog();
    void readAndProcessBOM();
    void readPIOrXmlDecl();
    void readXmlDecl();
    void skipUsualXmlDecl();
    XmlReaderString readDeclValue();
    void readDeclaredEncoding();
    void applyDeclaredEncoding(XmlReaderString declared);
    void readDocTypeDecl();
    void transcodeDocument(const XmlReaderString& encoding);
    std::optional<std::string> convertDocument(const XmlReaderString& encoding);
    std::string convertBytes(const std::string& encoding, const std::string& upperCase,
                             std::string_view source);
    bool isPlainAscii();
    void replaceOriginalBuffer(const std::string& converted);
    void revertToOriginal();
    void rebase(const XmlReaderRebase& move);

    // Names, references, comments, sections.
    void readName(XmlReaderString& name);
    char* scanName(char* p, ScannedName& name);
    char* scanOtherName(char* p, ScannedName& name);
    bool startsName();
    XmlReaderName resolveName(const ScannedName& name);
    XmlReaderString resolvePrefix(const char* prefix, std::uint32_t length);
    XmlReaderString lookUpPrefix(const XmlReaderString& prefix);
    PrefixMemo& memoOf(std::uint64_t bytes) {
        // A factor by which the prefixes that often meet fall apart.
        return prefixMemo_[(bytes * 0x2A2AA24866DC9CCB) >> 61];
    }
    std::uint64_t prefixBytes(const XmlReaderString& prefix) const;
    void rememberUnboundPrefixes();
    void forgetPrefixesOf(std::uint32_t scope);
    XmlReaderString findPrefix(const XmlReaderString& prefix) const;
    void forgetPrefixes();
    void forgetOpenNames();
    void clearMemory();
    void readReference(char*& out);
    void readComment(char*& out);
    void skipComment();
    void readCDATA(char*& out);

    // Tags.
    void readPlainStartTag(char* p);
    char* scanPlainName(char* p, ScannedName& name);
    char* scanPlainAttribute(char* p);
    void leavePlainTag(char* p, ScannedName name);
    void readStartTag(char* p, bool expandAttributes);
    void readRestOfTag(char* p, const ScannedName& name, bool expandAttributes);
    void finishStartTag(const ScannedName& name);
    bool isRemembered(std::uint32_t element) const {
        return element < rememberedDepth && (rememberedNames_ >> element & 1) != 0;
    }
    std::uint32_t innermostElement() const { return namespaceStack_.depth() - outermostElement; }
    void setLastName(const XmlReaderName& name) {
        otherName_ = name;
        lastName_ = &otherName_;
    }
    void finishEmptyTag(const ScannedName& name);
    void readEndTag(char* slash);
    void readOtherEndTag(char* p);
    void pushScope();
    void popScope();
    void leaveScope();
    char* scanAttribute(char* p, bool expand);
    XmlReaderString readAttributeValue(bool expand);
    XmlReaderString readQuoted(char quote, bool expand);
    void addAttribute(const ScannedName& name, const XmlReaderString& value);
    void noteDeclaration(const ScannedName& name, XmlReaderString value);
    void declareNamespace(XmlReaderString prefix, XmlReaderString uri);
    void declareOneOfMany(const XmlReaderNamespace& binding);
    void fixupAttributeURIs();
    void resolveAttributes();

    // Content.
    void readContent(bool expandReferences, bool keepComments);
    void readContent() { readContent(expandContentReference_, expandCommentReference_); }
    void readPlainText(char* start);
    void readLongText(char* start, char* from);
    void finishText(char* start, char* stop);
    void readMixedText(char* start, char* stop);
    void readText(bool expandReferences, bool keepComments);
    void readMixedContent(char* start, bool expandReferences, bool keepComments);
    bool readContentMarkup(char*& start, char*& out, bool keepComments);
    void readEmbeddedPI(char*& start, char*& out);
    bool readNodeDirective(bool expandContent);

    // Elements.
    bool isStart() const {
        return lastNodeType_ == XmlReader::StartTag || lastNodeType_ == XmlReader::EmptyTag;
    }
    Buffer holdFor(const XmlReaderName& name) const;
    Aside& aside();
    bool isConverted() const;
    void checkName(const XmlReaderName& expected, const XmlReaderName& found) const;
    char* findElement();
    XmlReaderString finishEmptyElement(const KeptElement& kept);
    template <class Visitor>
    XmlReaderString readToEndOf(const KeptElement& kept, Visitor visit);
    void adoptBuffer(const XmlReaderImp& source);
    void standOn(const XmlReaderString& element);

    char* begin_ = nullptr;         // first byte of the buffer
    char* last_ = nullptr;          // its last byte, inclusive
    char* cursor_ = nullptr;        // the next byte to read
    char* contentStart_ = nullptr;  // behind any byte order mark
    char* tagStart_ = nullptr;      // the `<` of the last tag

    XmlReader::NodeType lastNodeType_ = XmlReader::Unknown;
    std::int32_t depth_ = 0;
    bool expandAttributeReference_ = true;
    bool expandContentReference_ = true;
    bool expandCommentReference_ = false;
    bool encodingDeclared_ = false;
    bool standaloneDeclared_ = false;
    bool nodePending_ = false;
    bool prefixedInTag_ = false;        // the tag being read has an attribute with a prefix
    bool declaredInTag_ = false;        // and this: one that declares a namespace
    std::uint8_t rememberedNames_ = 0;  // bit i: openNames_[i] is what its element is called
    std::uint32_t originalLength_ = 0;

    const XmlReaderName* lastName_ = &otherName_;  // that or one of openNames_
    XmlReaderName otherName_;
    XmlReaderString lastContent_;
    XmlReaderAttributeList lastAttributes_;
    XmlReaderNamespaceStack namespaceStack_;

    std::array<OpenName, rememberedDepth> openNames_;  // outermost first
    std::array<PrefixMemo, 8> prefixMemo_;  // right at any time: changes of a prefix drop it

    XmlReaderString encoding_;
    XmlReaderString standalone_;
    XmlReaderString version_;

    Buffer buffer_;
    KeptElement* kept_ = nullptr;
    std::unique_ptr<Aside> aside_;
};

// The operations of the handle that loops call for each node.

inline XmlReaderImp& XmlReader::body() const {
    return static_cast<XmlReaderImp&>(HandleBase::body());
}

inline void XmlReader::readNextNode() {
    body().readNextNode();
}
inline bool XmlReader::eof() {
    return body().eof();
}
inline XmlReader::NodeType XmlReader::getLastNodeType() const {
    return body().lastNodeType();
}
inline const XmlReaderName& XmlReader::getLastNameI() const {
    return body().lastName();
}
inline const XmlReaderAttributeList& XmlReader::getLastAttributesI() const {
    return body().lastAttributes();
}
inline const XmlReaderString& XmlReader::getLastContentI() const {
    return body().lastContent();
}

}  // namespace nolk

#endif
