// The step to the next node: tags, attributes and plain text.
//
// This is the loop that every document goes through. Most nodes are plain: ASCII names, values and
// text without references, an end tag spelled like its start. They are recognised here by comparing
// a block of bytes at a time, with positions in registers; at the first sight of anything else the
// careful functions of XmlReaderLexical.cpp and XmlReaderContent.cpp take over from the same byte.
//
// Looking a few bytes beyond `last_` is safe, since every buffer has padding; what was found there
// doesn't count.

#include <nolk/core/MessageIds.h>
#include <nolk/core/XmlReaderImp.h>
#include <nolk/core/xml/XmlScan.h>

#include <array>
#include <bit>
#include <cstring>
#include <string_view>

namespace nolk {

namespace {

/** The bytes that end a value: both quotes, so that one pattern serves for either kind. */
struct AnyValueStops {
    template <class B>
    static auto match(B b) {
        return b.equal('"') | b.equal('\'') | b.equal('<') | b.equal('&');
    }
};

/** What a byte is where a name, or the end of one, is expected. */
enum ByteClass : std::uint8_t {
    Other = 0,
    Space = 1,
    NameStart = 2,
    NamePart = 4,
    Colon = 8,
    High = 16,  // part of a character outside ASCII
};

constexpr std::array<std::uint8_t, 256> byteClasses = [] {
    std::array<std::uint8_t, 256> table{};
    const auto set = [&table](std::string_view bytes, int value) {
        for (const char c : bytes) {
            table[static_cast<unsigned char>(c)] = static_cast<std::uint8_t>(value);
        }
    };
    set("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_", NameStart | NamePart);
    set("-.0123456789", NamePart);
    set(":", Colon);
    set(" \t\n\r", Space);
    for (std::size_t c = 0x80; c < table.size(); ++c) {
        table[c] = High;
    }
    return table;
}();

unsigned byteClass(char c) {
    return byteClasses[static_cast<unsigned char>(c)];
}

std::uint64_t load64(const char* p) {
    std::uint64_t bytes;
    std::memcpy(&bytes, p, sizeof bytes);
    return bytes;
}

/** Keeps the first `length` bytes, at most eight, of a word that was loaded from memory. */
std::uint64_t firstBytes(std::uint64_t word, std::uint32_t length) {
    if constexpr (std::endian::native == std::endian::little) {
        return length == 0 ? 0 : word & (~std::uint64_t{0} >> (64 - 8 * length));
    } else {
        return length == 0 ? 0 : word & (~std::uint64_t{0} << (64 - 8 * length));
    }
}

/** Equal bytes, of which eight can always be read on both sides. */
bool equalBytes(const char* a, const char* b, std::uint32_t length) {
    if (length <= 8) {
        return firstBytes(load64(a) ^ load64(b), length) == 0;
    }
    if (length <= 16) {
        return load64(a) == load64(b) && load64(a + length - 8) == load64(b + length - 8);
    }
    return std::memcmp(a, b, length) == 0;
}

bool isXmlns(const char* name, std::uint32_t length) {
    return length == 5 && std::memcmp(name, "xmlns", 5) == 0;
}

}  // namespace

// The usual cases end in a call that needs nothing of this frame.
void XmlReaderImp::readNextNode() {
    char* const p = cursor_;
    if (p < last_ && !nodePending_) [[likely]] {
        if (*p != '<') {
            return readText(expandContentReference_, expandCommentReference_);
        }
        if (p[1] == '/') {
            tagStart_ = p;
            return readEndTag(p + 1);
        }
        if ((byteClass(p[1]) & NameStart) != 0) [[likely]] {
            tagStart_ = p;
            return readStartTag(p + 1, expandAttributeReference_);
        }
    }
    readNextNode(expandContentReference_, expandAttributeReference_, expandCommentReference_);
}

void XmlReaderImp::readNextNode(bool expandContent, bool expandAttributes, bool keepComments) {
    if (nodePending_) {
        nodePending_ = false;
        return;
    }
    for (;;) {
        needByte();
        if (*cursor_ != '<') {
            return readText(expandContent, keepComments);
        }
        tagStart_ = cursor_++;
        needByte();
        switch (*cursor_) {
            case '/':
                return readEndTag(cursor_);
            case '?':
                ++cursor_;
                readPIOrXmlDecl();
                break;
            case '!':
                if (readNodeDirective(expandContent)) {
                    return;
                }
                break;
            default:
                return readStartTag(cursor_, expandAttributes);
        }
    }
}

void XmlReaderImp::readContent(bool expandReferences, bool keepComments) {
    if (nodePending_) {
        nodePending_ = false;
        return;
    }
    lastNodeType_ = XmlReader::Data;
    lastContent_ = XmlReaderString();
    needByte();
    readText(expandReferences, keepComments);
}

// At least one byte of content is there; it may be the `<` of a tag.
void XmlReaderImp::readText(bool expandReferences, bool keepComments) {
    using namespace xmlscan;
    lastNodeType_ = XmlReader::Data;
    char* const start = cursor_;
    char* const stop =
        expandReferences ? scan<ContentStops>(start, last_) : scan<MarkupStops>(start, last_);
    if (stop < last_ && *stop == '<' && stop[1] != '!' && stop[1] != '?') [[likely]] {
        lastContent_ = {start, static_cast<std::uint32_t>(stop - start)};
        cursor_ = stop;
        return;
    }
    lastContent_ = XmlReaderString();
    cursor_ = stop;
    readMixedContent(start, expandReferences, keepComments);
}

namespace {

char* skipNameBytes(char* p) {
    while ((byteClass(*p) & NamePart) != 0) {
        ++p;  // ends at the padding at the latest
    }
    return p;
}

}  // namespace

// Scans a name at `p` and returns the byte behind it. Byte by byte, since most are short, and where
// they end is something that processors predict well.
inline char* XmlReaderImp::scanName(char* p, ScannedName& name) {
    char* const start = p;
    std::uint32_t prefixLength = 0;
    std::uint32_t localOffset = 0;
    if ((byteClass(*p) & NameStart) != 0) [[likely]] {
        p = skipNameBytes(p + 1);
        if (*p == ':') {
            prefixLength = static_cast<std::uint32_t>(p - start);
            localOffset = prefixLength + 1;
            p = skipNameBytes(p + 1);
        }
        if ((byteClass(*p) & (Colon | High)) == 0 && p <= last_) [[likely]] {
            name = {start, static_cast<std::uint32_t>(p - start), prefixLength, localOffset};
            return p;
        }
    }
    return scanOtherName(start, name);
}

char* XmlReaderImp::scanOtherName(char* p, ScannedName& name) {
    cursor_ = p;
    XmlReaderString qname;
    readName(qname);
    const auto* colon = static_cast<const char*>(std::memchr(qname.data, ':', qname.length));
    name = {qname.data, qname.length, 0, 0};
    if (colon != nullptr) {
        name.prefixLength = static_cast<std::uint32_t>(colon - qname.data);
        name.localOffset = name.prefixLength + 1;
    }
    return cursor_;
}

// For prefixes that lie in the buffer: eight bytes can be read at them.
inline const XmlReaderString& XmlReaderImp::resolvePrefix(const char* prefix,
                                                          std::uint32_t length) {
    if (length <= 8) [[likely]] {
        const std::uint64_t bytes = firstBytes(load64(prefix), length);
        const PrefixMemo& memo = prefixMemo_[(bytes + length) % prefixMemo_.size()];
        if (memo.bytes == bytes && memo.generation == prefixGeneration_ && memo.length == length)
            [[likely]] {
            return memo.uri;
        }
    }
    return lookUpPrefix({prefix, length});
}

const XmlReaderString& XmlReaderImp::lookUpPrefix(const XmlReaderString& prefix) {
    if (prefix.length > 8) {
        longPrefixUri_ = namespaceStack_.getURIForPrefix(prefix);
        return longPrefixUri_;
    }
    const std::uint64_t bytes = firstBytes(load64(prefix.data), prefix.length);
    PrefixMemo& memo = prefixMemo_[(bytes + prefix.length) % prefixMemo_.size()];
    memo = {bytes, prefixGeneration_, namespaceStack_.getURIForPrefix(prefix), prefix.length};
    return memo.uri;
}

inline XmlReaderName XmlReaderImp::resolveName(const ScannedName& name) {
    return {name.localName(), name.prefix(), resolvePrefix(name.data, name.prefixLength)};
}

// From the slash on.
void XmlReaderImp::readEndTag(char* slash) {
    cursor_ = slash + 1;
    --depth_;
    lastNodeType_ = XmlReader::EndTag;
    if (!readRememberedEndTag()) [[unlikely]] {
        readOtherEndTag();
    }
}

void XmlReaderImp::readOtherEndTag() {
    ScannedName name;
    needByte();
    cursor_ = scanName(cursor_, name);
    lastName_ = resolveName(name);
    readS();
    popScope();
    if (rd() != '>') {
        err(here(), message(NOLK_CORE_XML_PARSE_UNEXPECTED_CHAR, "/"));
    }
}

// A name spelled like the one that opened the innermost scope, and closed at once, means the same.
inline bool XmlReaderImp::readRememberedEndTag() {
    const std::uint32_t scope = namespaceStack_.depth() - 1;
    if (scope >= rememberedDepth) {
        return false;
    }
    const OpenName& open = openNames_[scope];
    const std::uint32_t length = open.length;
    char* const end = cursor_ + length;
    if (length == 0 || end > last_ || *end != '>' || !equalBytes(cursor_, open.data, length)) {
        return false;
    }
    lastName_ = open.name;
    cursor_ = end + 1;
    popScope();
    return true;
}

inline void XmlReaderImp::pushScope() {
    namespaceStack_.pushScope();
    const std::uint32_t scope = namespaceStack_.depth() - 1;
    if (scope < rememberedDepth) {
        openNames_[scope].length = 0;
    }
}

inline void XmlReaderImp::popScope() {
    const std::uint32_t depth = namespaceStack_.depth();
    if (depth != 0 && namespaceStack_.scope(depth - 1).length() != 0) {
        forgetPrefixes();
    }
    namespaceStack_.popScope();
}

// From the name on.
void XmlReaderImp::readStartTag(char* p, bool expandAttributes) {
    ScannedName name;
    p = scanName(p, name);
    pushScope();
    lastAttributes_.clear();
    prefixedInTag_ = false;
    for (;;) {
        if (*p == '>' && p <= last_) {
            cursor_ = p + 1;
            return finishStartTag(name);
        }
        if (*p == ' ') [[likely]] {
            ++p;
        }
        if ((byteClass(*p) & NameStart) == 0) {
            while (byteClass(*p) == Space) {
                ++p;  // ends at the padding at the latest
            }
            if (p > last_) [[unlikely]] {
                cursor_ = last_ + 1;
                failPrematureEof();
            }
            if (*p == '/') {
                cursor_ = p + 1;
                return finishEmptyTag(name);
            }
            if (*p == '>') {
                continue;
            }
        }
        p = scanAttribute(p, expandAttributes);
    }
}

inline void XmlReaderImp::finishStartTag(const ScannedName& name) {
    ++depth_;
    lastNodeType_ = XmlReader::StartTag;
    fixupAttributeURIs();
    lastName_ = resolveName(name);
    const std::uint32_t scope = namespaceStack_.depth() - 1;
    if (scope < rememberedDepth) {
        openNames_[scope] = {name.data, name.length, lastName_};
    }
}

inline void XmlReaderImp::finishEmptyTag(const ScannedName& name) {
    lastNodeType_ = XmlReader::EmptyTag;
    lastContent_ = XmlReaderString();
    if (rd() != '>') {
        err(here(), message(NOLK_CORE_XML_PARSE_INVALID_SLASH));
    }
    fixupAttributeURIs();
    lastName_ = resolveName(name);
    popScope();
}

// Reads an attribute at `p` and returns the byte behind its value.
inline char* XmlReaderImp::scanAttribute(char* p, bool expand) {
    ScannedName name;
    p = scanName(p, name);
    if (p[0] == '=' && (p[1] == '"' || p[1] == '\'')) [[likely]] {
        char* const value = p + 2;
        char* const stop = xmlscan::scan<AnyValueStops>(value, last_);
        if (*stop == p[1] && stop <= last_) [[likely]] {
            addAttribute(name, {value, static_cast<std::uint32_t>(stop - value)});
            return stop + 1;
        }
    }
    cursor_ = p <= last_ ? p : last_ + 1;
    addAttribute(name, readAttributeValue(expand));
    return cursor_;
}

// From behind the name, whatever stands there.
XmlReaderString XmlReaderImp::readAttributeValue(bool expand) {
    readS();
    if (rd() != '=') {
        err(here(), message(NOLK_CORE_XML_PARSE_ATTRIBUTE_INVALID_CHAR));
    }
    readS();
    const char quote = rd();
    if (quote != '"' && quote != '\'') {
        err(here(), message(NOLK_CORE_XML_PARSE_ATTRIBUTE_INVALID_CHAR));
    }
    return readQuoted(quote, expand);
}

namespace {

char* scanValue(char* p, const char* last, char quote, bool expand) {
    using namespace xmlscan;
    if (quote == '"') {
        return expand ? scan<ValueStops<'"'>>(p, last) : scan<RawValueStops<'"'>>(p, last);
    }
    return expand ? scan<ValueStops<'\''>>(p, last) : scan<RawValueStops<'\''>>(p, last);
}

}  // namespace

XmlReaderString XmlReaderImp::readQuoted(char quote, bool expand) {
    char* const start = cursor_;
    char* out = start;
    for (;;) {
        char* const from = cursor_;
        cursor_ = scanValue(from, last_, quote, expand);
        if (out != from) {
            std::memmove(out, from, static_cast<std::size_t>(cursor_ - from));
        }
        out += cursor_ - from;
        const char stop = rd();
        if (stop == quote) {
            return {start, static_cast<std::uint32_t>(out - start)};
        }
        if (stop == '<') {
            err(here(), message(NOLK_CORE_XML_PARSE_ATTRIBUTE_UNTERMINATED_VALUE));
        }
        readReference(out);
    }
}

// What the prefix means is settled by fixupAttributeURIs(), when the whole tag is read.
inline void XmlReaderImp::addAttribute(const ScannedName& name, const XmlReaderString& value) {
    XmlReaderAttribute& attribute = lastAttributes_.appendSlot();
    attribute.name = {name.localName(), name.prefix(), {}};
    attribute.value = value;
    if (name.prefixLength != 0) {
        prefixedInTag_ = true;
        if (isXmlns(name.data, name.prefixLength)) {
            declareNamespace(name.localName(), value);
        }
    } else if (isXmlns(name.data + name.localOffset, name.length - name.localOffset)) {
        declareNamespace({}, value);
    }
}

void XmlReaderImp::declareNamespace(const XmlReaderString& prefix, const XmlReaderString& uri) {
    namespaceStack_.addNamespace({prefix, uri});
    forgetPrefixes();
}

// A declaration counts for the whole tag, so for attributes in front of it too.
inline void XmlReaderImp::fixupAttributeURIs() {
    if (prefixedInTag_) {
        resolveAttributes();
    }
}

void XmlReaderImp::resolveAttributes() {
    for (std::uint32_t i = 0; i < lastAttributes_.length(); ++i) {
        XmlReaderName& name = lastAttributes_[i].name;
        if (name.prefix.length != 0) {
            name.uri = resolvePrefix(name.prefix.data, name.prefix.length);
        }
    }
}

}  // namespace nolk
