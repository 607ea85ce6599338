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
#include <nolk/core/xml/XmlCharacterClass.h>
#include <nolk/core/xml/XmlReaderAside.h>
#include <nolk/core/xml/XmlScan.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <string_view>

namespace nolk {

namespace {

using xmlscan::BaseBlock;

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
            table[static_cast<unsigned char>(c)] |= static_cast<std::uint8_t>(value);
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

char* skipNameBytes(char* p) {
    while (true) {
#pragma GCC unroll 8
        for (int i = 0; i < 8; ++i) {
            if ((byteClass(p[i]) & NamePart) == 0) {
                return p + i;  // the padding at the latest
            }
        }
        p += 8;
    }
}

std::uint64_t load64(const char* p) {
    std::uint64_t bytes;
    std::memcpy(&bytes, p, sizeof bytes);
    return bytes;
}

/** The bits of the first bytes of a word that was loaded from memory, by how many. */
constexpr std::array<std::uint64_t, 9> firstBytesMasks = [] {
    std::array<std::uint64_t, 9> masks{};
    for (std::size_t i = 1; i <= 8; ++i) {
        const std::uint64_t all = ~std::uint64_t{0};
        const std::size_t other = 64 - 8 * i;
        masks[i] = std::endian::native == std::endian::little ? all >> other : all << other;
    }
    return masks;
}();

/** Keeps the first `length` bytes, at most eight, of a word that was loaded from memory. */
std::uint64_t firstBytes(std::uint64_t word, std::uint32_t length) {
    return word & firstBytesMasks[length];
}

/** Equal bytes, of which eight more can always be read on both sides. Words and no call, so that
 * callers need no frame. */
bool equalBytes(const char* a, const char* b, std::uint32_t length) {
    for (; length > 8; length -= 8, a += 8, b += 8) {
        if (load64(a) != load64(b)) {
            return false;
        }
    }
    return firstBytes(load64(a) ^ load64(b), length) == 0;
}

bool isXmlns(const XmlReaderString& name) {
    return name.length == 5 && std::memcmp(name.data, "xmlns", 5) == 0;
}

}  // namespace

// The usual cases end in a call that needs nothing of this frame.
void XmlReaderImp::readNextNode() {
    char* const p = cursor_;
    if (p < last_ && !nodePending_) [[likely]] {
        if (*p != '<') {
            if (expandContentReference_) [[likely]] {
                return readPlainText(p);
            }
        } else if (p[1] == '/') {
            tagStart_ = p;
            return readEndTag(p + 1);
        } else if ((byteClass(p[1]) & NameStart) != 0) [[likely]] {
            tagStart_ = p;
            return readPlainStartTag(p + 1);
        }
    }
    readNextNode(expandContentReference_, expandAttributeReference_, expandCommentReference_);
}

// On its own, so that the short way above needs no frame.
[[gnu::noinline]] void XmlReaderImp::readNextNode(bool expandContent, bool expandAttributes,
                                                  bool keepComments) {
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

// Short text with nothing special up to a tag.
inline void XmlReaderImp::readPlainText(char* start) {
    using xmlscan::ContentStops;
    const auto stops = BaseBlock::mask(ContentStops::match(BaseBlock::load(start)));
    if (stops == 0) [[unlikely]] {
        return readLongText(start, start + BaseBlock::size);
    }
    finishText(start, start + BaseBlock::first(stops));
}

[[gnu::noinline]] void XmlReaderImp::readLongText(char* start, char* from) {
    finishText(start, xmlscan::scan<xmlscan::ContentStops>(from, last_));
}

inline void XmlReaderImp::finishText(char* start, char* stop) {
    if (*stop == '<' && stop < last_ && stop[1] != '!' && stop[1] != '?') [[likely]] {
        lastNodeType_ = XmlReader::Data;
        lastContent_ = {start, static_cast<std::uint32_t>(stop - start)};
        cursor_ = stop;
        return;
    }
    readMixedText(start, stop);
}

// Text up to a stop that isn't the `<` of a tag.
[[gnu::noinline]] void XmlReaderImp::readMixedText(char* start, char* stop) {
    lastNodeType_ = XmlReader::Data;
    lastContent_ = XmlReaderString();
    cursor_ = stop <= last_ ? stop : last_ + 1;
    readMixedContent(start, true, expandCommentReference_);
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

namespace {

/** Skips characters of a name up to the first that ends it or needs a closer look. Only lead bytes
 * count: what follows one is part of its character. */
char* skipNameCharacters(char* p, const char* last) {
    for (; p <= last; ++p) {
        const auto c = static_cast<unsigned char>(*p);
        if (c >= 0x80) {
            const bool two = c >= 0xC2 && c <= 0xDF;
            // From an E0 a character outside ASCII comes only if more bits are set.
            const bool three = c >= 0xE0 && c <= 0xEF && (c != 0xE0 || (p[1] & 0x3E) != 0);
            const std::ptrdiff_t more = two ? 1 : 2;
            if ((!two && !three) || last - p < more) {
                break;
            }
            p += more;
        } else if ((byteClass(*p) & (NamePart | Colon)) == 0) {
            break;
        }
    }
    return p;
}

}  // namespace

char* XmlReaderImp::scanOtherName(char* p, ScannedName& name) {
    XmlReaderString qname = {p, 0};
    cursor_ = p;
    bool plain = startsName();
    if (plain) {
        cursor_ = skipNameCharacters(cursor_, last_);
        plain = cursor_ <= last_ && (*cursor_ & 0x80) == 0;
        qname.length = static_cast<std::uint32_t>(cursor_ - p);
    }
    if (!plain) {
        cursor_ = p;
        readName(qname);
    }
    // A colon counts wherever it stands, inside a malformed character too.
    const auto* colon = static_cast<const char*>(std::memchr(p, ':', qname.length));
    name = {p, qname.length, 0, 0};
    if (colon != nullptr) {
        name.prefixLength = static_cast<std::uint32_t>(colon - p);
        name.localOffset = name.prefixLength + 1;
    }
    return cursor_;
}

// Whether the character at the cursor may start a name. Moves the cursor.
bool XmlReaderImp::startsName() {
    return cursor_ <= last_ && xmlCharacterClass(rduchar()) == XmlCharacterClass::NameStart;
}

// For prefixes that lie in the buffer: eight bytes can be read at them.
inline XmlReaderString XmlReaderImp::resolvePrefix(const char* prefix, std::uint32_t length) {
    if (length <= 8) [[likely]] {
        const std::uint64_t bytes = firstBytes(load64(prefix), length);
        const PrefixMemo& memo = memoOf(bytes);
        if (memo.length == length && memo.bytes == bytes) [[likely]] {
            return {memo.uri, memo.uriLength};
        }
    }
    return lookUpPrefix({prefix, length});
}

namespace {

// A plain loop: nearly always there is nothing to go through.
bool binds(const XmlReaderNamespaceList& scope, XmlReaderString prefix) {
    for (const XmlReaderNamespace& binding : scope) {
        if (binding.prefix == prefix) {
            return true;
        }
    }
    return false;
}

}  // namespace

XmlReaderString XmlReaderImp::findPrefix(const XmlReaderString& prefix) const {
    return aside_ && aside_->prefixIndex ? aside_->prefixIndex->find(prefix)
                                         : namespaceStack_.getURIForPrefix(prefix);
}

XmlReaderString XmlReaderImp::lookUpPrefix(const XmlReaderString& prefix) {
    if (PrefixIndex::isWorthIt(namespaceStack_)) [[unlikely]] {
        auto& index = aside().prefixIndex;
        if (!index) {
            index = std::make_unique<PrefixIndex>(namespaceStack_);
        }
    }
    const XmlReaderString uri = findPrefix(prefix);
    if (prefix.length <= 8) {
        const std::uint64_t bytes = firstBytes(load64(prefix.data), prefix.length);
        memoOf(bytes) = {bytes, uri.data, uri.length, prefix.length};
    }
    return uri;
}

// As firstBytes() has it. A program's own prefixes may lie anywhere, not in the buffer.
inline std::uint64_t XmlReaderImp::prefixBytes(const XmlReaderString& prefix) const {
    if (prefix.data >= begin_ && prefix.data <= last_) {
        return firstBytes(load64(prefix.data), prefix.length);
    }
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, prefix.data, prefix.length);
    return bytes;
}

// For a reader with nothing in scope: what nearly every document asks for first.
void XmlReaderImp::rememberUnboundPrefixes() {
    constexpr auto xmlns =
        std::bit_cast<std::uint64_t>(std::array{'x', 'm', 'l', 'n', 's', '\0', '\0', '\0'});
    memoOf(0) = {0, "", 0, 0};
    memoOf(xmlns) = {xmlns, "", 0, 5};
}

[[gnu::noinline]] void XmlReaderImp::forgetPrefixesOf(std::uint32_t scope) {
    const XmlReaderNamespaceList& bindings = namespaceStack_.scope(scope);
    if (aside_ && aside_->prefixIndex) [[unlikely]] {
        aside_->prefixIndex->unbind(scope, bindings);
    }
    for (const XmlReaderNamespace& binding : bindings) {
        if (binding.prefix.length <= 8) {
            memoOf(prefixBytes(binding.prefix)).length = PrefixMemo::unknown;
        }
    }
}

inline XmlReaderName XmlReaderImp::resolveName(const ScannedName& name) {
    return {name.localName(), name.prefix(), resolvePrefix(name.data, name.prefixLength)};
}

// From the slash on. A name spelled like the one that opened the innermost scope, and closed at
// once, means the same.
void XmlReaderImp::readEndTag(char* slash) {
    --depth_;
    lastNodeType_ = XmlReader::EndTag;
    char* const p = slash + 1;
    const std::uint32_t element = innermostElement();
    if (!isRemembered(element)) {
        return readOtherEndTag(p);
    }
    const XmlReaderName& name = openNames_[element].name;
    const char* const start = name.prefix.data;
    const auto length =
        static_cast<std::uint32_t>(name.localName.data + name.localName.length - start);
    char* const end = p + length;
    if (end > last_ || *end != '>' || !equalBytes(p, start, length)) {
        return readOtherEndTag(p);
    }
    lastName_ = &name;
    cursor_ = end + 1;
    leaveScope();
}

[[gnu::noinline]] void XmlReaderImp::readOtherEndTag(char* p) {
    ScannedName name;
    cursor_ = p;
    needByte();
    cursor_ = scanName(p, name);
    setLastName(resolveName(name));
    readS();
    popScope();
    if (rd() != '>') {
        err(here(), message(NOLK_CORE_XML_PARSE_UNEXPECTED_CHAR, "/"));
    }
}

inline void XmlReaderImp::pushScope() {
    namespaceStack_.pushScope();
    const std::uint32_t element = innermostElement();
    if (element < rememberedDepth) {
        rememberedNames_ &= static_cast<std::uint8_t>(~(1U << element));
    }
}

inline void XmlReaderImp::popScope() {
    if (namespaceStack_.depth() != 0) [[likely]] {
        leaveScope();
    }
}

// There is a scope.
inline void XmlReaderImp::leaveScope() {
    namespaceStack_.popScope();
    const std::uint32_t scope = namespaceStack_.depth();
    if (namespaceStack_.scope(scope).length() != 0) [[unlikely]] {
        forgetPrefixesOf(scope);
    }
}

// Scans a name of ASCII characters, of which the first is known to start one, and returns the byte
// behind it, be that beyond the end: the padding ends any name.
inline char* XmlReaderImp::scanPlainName(char* p, ScannedName& name) {
    char* end = skipNameBytes(p + 1);
    std::uint32_t prefixLength = 0;
    std::uint32_t localOffset = 0;
    if (*end == ':') {
        prefixLength = static_cast<std::uint32_t>(end - p);
        localOffset = prefixLength + 1;
        end = skipNameBytes(end + 1);
    }
    name = {p, static_cast<std::uint32_t>(end - p), prefixLength, localOffset};
    return end;
}

// A tag with nothing special in it, from the name on. Bytes beyond the end are noticed when the tag
// is done: up to then it would be read the same.
void XmlReaderImp::readPlainStartTag(char* p) {
    ScannedName name;
    p = scanPlainName(p, name);
    if (p > last_ || (byteClass(*p) & (Colon | High)) != 0) [[unlikely]] {
        return readStartTag(tagStart_ + 1, expandAttributeReference_);
    }
    pushScope();
    lastAttributes_.clear();
    prefixedInTag_ = declaredInTag_ = false;
    for (;;) {
        if (*p == ' ') {
            ++p;
        }
        const unsigned byte = byteClass(*p);
        if ((byte & NameStart) != 0) {
            char* const next = scanPlainAttribute(p);
            if (next == nullptr) [[unlikely]] {
                break;
            }
            p = next;
        } else if (*p == '>' && p <= last_) {
            cursor_ = p + 1;
            return finishStartTag(name);
        } else if (*p == '/' && p[1] == '>' && p < last_) {
            cursor_ = p + 2;
            lastContent_ = XmlReaderString();
            return finishEmptyTag(name);
        } else if ((byte & Space) != 0) {
            ++p;
        } else {
            break;
        }
    }
    leavePlainTag(p, name);
}

// Reads an attribute and returns the byte behind it, or null if it has something special in it.
inline char* XmlReaderImp::scanPlainAttribute(char* p) {
    using namespace xmlscan;
    ScannedName name;
    char* const equals = scanPlainName(p, name);
    if (equals[0] != '=') {
        return nullptr;
    }
    const char quote = equals[1];
    if (quote != '"' && quote != '\'') {
        return nullptr;
    }
    char* const value = equals + 2;
    char* stop;
    if (quote == '"') [[likely]] {
        stop = scan<ValueStops<'"'>>(value, last_);
    } else {
        stop = scan<ValueStops<'\''>>(value, last_);
    }
    if (*stop != quote) [[unlikely]] {
        return nullptr;
    }
    const XmlReaderString view = {value, static_cast<std::uint32_t>(stop - value)};
    addAttribute(name, view);
    if (std::memcmp(name.data, "xmln", 4) == 0) {
        noteDeclaration(name, view);
    } else {
        prefixedInTag_ |= name.prefixLength != 0;
    }
    return stop + 1;
}

// Goes on carefully where a plain tag meets something special: from `p`, or from the start of the
// tag if the document ended before.
void XmlReaderImp::leavePlainTag(char* p, ScannedName name) {
    if (p <= last_) {
        return readRestOfTag(p, name, expandAttributeReference_);
    }
    popScope();
    readStartTag(tagStart_ + 1, expandAttributeReference_);
}

// From the name on.
void XmlReaderImp::readStartTag(char* p, bool expandAttributes) {
    ScannedName name;
    p = scanName(p, name);
    pushScope();
    lastAttributes_.clear();
    prefixedInTag_ = declaredInTag_ = false;
    readRestOfTag(p, name, expandAttributes);
}

// From behind the name or an attribute on.
void XmlReaderImp::readRestOfTag(char* p, const ScannedName& name, bool expandAttributes) {
    for (;;) {
        if (*p == '>' && p <= last_) {
            cursor_ = p + 1;
            return finishStartTag(name);
        }
        if (*p == ' ') [[likely]] {
            ++p;
        }
        if ((byteClass(*p) & NameStart) == 0) {
            while ((byteClass(*p) & Space) != 0) {
                ++p;  // ends at the padding at the latest
            }
            if (p > last_) [[unlikely]] {
                cursor_ = last_ + 1;
                failPrematureEof();
            }
            if (*p == '/') {
                cursor_ = p + 1;
                lastNodeType_ = XmlReader::EmptyTag;
                lastContent_ = XmlReaderString();
                if (rd() != '>') {
                    err(here(), message(NOLK_CORE_XML_PARSE_INVALID_SLASH));
                }
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
    const std::uint32_t element = innermostElement();
    if (element >= rememberedDepth) {
        return setLastName(resolveName(name));
    }
    lastName_ = std::construct_at(&openNames_[element].name, resolveName(name));
    // A name that starts with its colon is left to the careful comparison.
    const unsigned plain = name.localOffset != 1 ? 1 : 0;
    rememberedNames_ |= static_cast<std::uint8_t>(plain << element);
}

inline void XmlReaderImp::finishEmptyTag(const ScannedName& name) {
    lastNodeType_ = XmlReader::EmptyTag;
    fixupAttributeURIs();
    setLastName(resolveName(name));
    popScope();
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

// Reads an attribute at `p` and returns the byte behind its value.
inline char* XmlReaderImp::scanAttribute(char* p, bool expand) {
    ScannedName name;
    p = scanName(p, name);
    if (p[0] == '=' && (p[1] == '"' || p[1] == '\'')) [[likely]] {
        char* const value = p + 2;
        char* const stop = scanValue(value, last_, p[1], true);
        if (*stop == p[1] && stop <= last_) {
            const XmlReaderString view = {value, static_cast<std::uint32_t>(stop - value)};
            addAttribute(name, view);
            noteDeclaration(name, view);
            return stop + 1;
        }
    }
    cursor_ = p <= last_ ? p : last_ + 1;
    const XmlReaderString value = readAttributeValue(expand);
    addAttribute(name, value);
    noteDeclaration(name, value);
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

// A prefix means what it means now, unless its declaration follows in the same tag.
inline void XmlReaderImp::addAttribute(const ScannedName& name, const XmlReaderString& value) {
    XmlReaderAttribute& attribute = lastAttributes_.appendSlot();
    attribute.name.localName = name.localName();
    attribute.name.prefix = name.prefix();
    attribute.name.uri = {};
    attribute.value = value;
    if (name.prefixLength != 0) {
        attribute.name.uri = resolvePrefix(name.data, name.prefixLength);
    }
}

// Views go by value here and in what it calls: in registers, since memory that was just written in
// parts would have to be awaited before it is read as a whole.
void XmlReaderImp::noteDeclaration(const ScannedName& name, XmlReaderString value) {
    const XmlReaderString localName = name.localName();
    if (isXmlns(name.prefix())) {
        declareNamespace(localName, value);
        prefixedInTag_ |= isXmlns(localName);  // what declarations themselves mean
    } else if (name.prefixLength != 0) {
        prefixedInTag_ = true;
    } else if (isXmlns(localName)) {
        declareNamespace({}, value);
    }
}

// In a tag, whose scope is open. Of two declarations of a prefix there the first one stands.
void XmlReaderImp::declareNamespace(XmlReaderString prefix, XmlReaderString uri) {
    declaredInTag_ = true;
    const XmlReaderNamespaceList& scope = namespaceStack_.scope(namespaceStack_.depth() - 1);
    if (scope.length() > PrefixIndex::fewBindings || (aside_ && aside_->prefixIndex)) [[unlikely]] {
        return declareOneOfMany({prefix, uri});
    }
    if (prefix.length > 8 || binds(scope, prefix)) {
        return namespaceStack_.addNamespace({prefix, uri});
    }
    const std::uint64_t bytes =
        prefix.length == 0 ? 0 : firstBytes(load64(prefix.data), prefix.length);
    PrefixMemo& memo = memoOf(bytes);
    memo.length = PrefixMemo::unknown;  // if memory runs out
    namespaceStack_.addNamespace({prefix, uri});
    memo.bytes = bytes;
    memo.uri = uri.data;
    memo.uriLength = uri.length;
    memo.length = prefix.length;
}

// In a tag of very many it isn't worth a search whether this one is the first.
[[gnu::noinline]] void XmlReaderImp::declareOneOfMany(const XmlReaderNamespace& binding) {
    const XmlReaderString& prefix = binding.prefix;
    if (prefix.length <= 8) {
        memoOf(prefixBytes(prefix)).length = PrefixMemo::unknown;
    }
    namespaceStack_.addNamespace(binding);
    if (aside_ && aside_->prefixIndex) {
        auto index = std::move(aside_->prefixIndex);  // which goes if memory runs out half-way
        index->bind(namespaceStack_.depth() - 1, binding);
        aside_->prefixIndex = std::move(index);
    }
}

// A declaration counts for the whole tag, so for attributes in front of it too.
inline void XmlReaderImp::fixupAttributeURIs() {
    if (prefixedInTag_ && declaredInTag_) [[unlikely]] {
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
