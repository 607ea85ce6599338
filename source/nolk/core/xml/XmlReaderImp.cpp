// Life of a reader: the copy of the document, positions for errors, and what has to move when a
// buffer is replaced. The rest of the class is in XmlReaderEncoding.cpp (conversion),
// XmlReaderProlog.cpp (prolog, declarations), XmlReaderLexical.cpp (characters, names, references),
// XmlReaderNode.cpp (nodes, tags), XmlReaderContent.cpp (text, comments, sections) and
// XmlReaderElement.cpp (navigation by element).

#include <nolk/core/MessageIds.h>
#include <nolk/core/XmlParseLineColException.h>
#include <nolk/core/XmlReaderImp.h>
#include <nolk/core/xml/XmlReaderAside.h>
#include <nolk/core/xml/XmlReaderBuffer.h>
#include <nolk/core/xml/XmlReaderKeptElement.h>
#include <nolk/core/xml/XmlReaderRebase.h>

#include <cstring>

namespace nolk {

XmlReaderImp::XmlReaderImp(const char* text, unsigned length) : originalLength_(length) {
    clearMemory();
    rememberUnboundPrefixes();
    openDocument(text, length);
}

XmlReaderImp::XmlReaderImp(const XmlReaderNamespaceStack& inherited, const char* text,
                           unsigned length)
    : originalLength_(length), namespaceStack_(inherited) {
    clearMemory();
    openDocument(text, length);
}

void XmlReaderImp::openDocument(const char* text, unsigned length) {
    namespaceStack_.pushScope();
    const std::size_t bytes = length == 0 ? 1 : length;
    buffer_ = newReaderBuffer(bytes);
    begin_ = buffer_.get();
    last_ = begin_ + bytes - 1;
    cursor_ = begin_;
    contentStart_ = begin_;
    if (length == 0) {
        *begin_ = '\0';
    } else {
        std::memcpy(begin_, text, length);
    }
    readProlog();
}

XmlReaderImp::XmlReaderImp(XmlReaderImp* parent)
    : begin_(parent->begin_),
      last_(parent->last_),
      cursor_(parent->cursor_),
      contentStart_(parent->contentStart_),
      lastNodeType_(parent->lastNodeType_),
      depth_(parent->depth_),
      expandAttributeReference_(parent->expandAttributeReference_),
      expandContentReference_(parent->expandContentReference_),
      expandCommentReference_(parent->expandCommentReference_),
      encodingDeclared_(parent->encodingDeclared_),
      standaloneDeclared_(parent->standaloneDeclared_),
      nodePending_(parent->nodePending_),
      originalLength_(parent->originalLength_),
      otherName_(parent->lastName()),
      lastContent_(parent->lastContent_),
      lastAttributes_(parent->lastAttributes_),
      namespaceStack_(parent->namespaceStack_),
      encoding_(parent->encoding_),
      standalone_(parent->standalone_),
      version_(parent->version_),
      buffer_(parent->buffer_),
      aside_(std::make_unique<Aside>()) {
    clearMemory();
    if (parent->aside_) {
        aside_->asciiTo = parent->aside_->asciiTo;
        aside_->ownedNamespaces = parent->aside_->ownedNamespaces;
    }
    aside_->parent = XmlReader(parent);
}

XmlReaderImp::~XmlReaderImp() = default;

XmlReaderImp::Aside& XmlReaderImp::aside() {
    if (!aside_) {
        aside_ = std::make_unique<Aside>();
    }
    return *aside_;
}

void XmlReaderImp::cleanup() {
    static char noText[1] = {};
    buffer_.reset();
    if (aside_) {
        aside_->forgetSaved();
        aside_->asciiTo = nullptr;
    }
    begin_ = nullptr;
    contentStart_ = last_ = noText;
    cursor_ = noText + 1;
    encoding_ = standalone_ = version_ = lastContent_ = XmlReaderString();
    tagStart_ = nullptr;
    setLastName(XmlReaderName());
    lastAttributes_.clear();
    setNamespaceStack(XmlReaderNamespaceStack());
    nodePending_ = false;
}

namespace {

// Bytes behind the lead byte of a character, for columns. Leads 0xD0-0xDF count as if they stood
// alone, so their characters take two columns: callers know these numbers.
unsigned columnSkip(unsigned char byte) {
    switch (byte >> 4) {
        case 0xC:
            return 1;
        case 0xE:
            return 2;
        case 0xF:
            return 3;
        default:
            return 0;
    }
}

}  // namespace

void XmlReaderImp::err(const ExceptionInfo& info, const LocalizedMessage& text) const {
    unsigned line = 1;
    unsigned column = 1;
    const char* p = begin_;
    if (p != nullptr && hasUtf8Mark(p, last_)) {
        p += 3;
    }
    for (; p != nullptr && p < cursor_ && p <= last_; ++p) {
        if (*p == '\n') {
            ++line;
            column = 1;
        } else {
            ++column;
            p += columnSkip(static_cast<unsigned char>(*p));
        }
    }
    throw XmlParseLineColException(info, text, line, column);
}

void XmlReaderImp::failPrematureEof() const {
    err(here(), message(NOLK_CORE_XML_PARSE_PREMATURE_EOF));
}

void XmlReaderImp::forgetPrefixes() {
    if (aside_) {
        aside_->prefixIndex.reset();
    }
    for (PrefixMemo& memo : prefixMemo_) {
        memo.length = PrefixMemo::unknown;
    }
}

void XmlReaderImp::forgetOpenNames() {
    rememberedNames_ = 0;
}

void XmlReaderImp::clearMemory() {
    forgetPrefixes();
    forgetOpenNames();
}

void XmlReaderImp::addNamespace(const XmlReaderNamespace& binding) {
    namespaceStack_.addNamespace(binding);
    forgetPrefixes();
    forgetOpenNames();
}

void XmlReaderImp::addNamespace(const XmlNamespace& binding) {
    auto& all = aside().ownedNamespaces;
    all.push_front(CountingPointer<XmlNamespace>(new XmlNamespace(binding)));
    const XmlNamespace& owned = *all.front().operator->();
    addNamespace(XmlReaderNamespace{XmlReaderString::of(owned.getPrefix()),
                                    XmlReaderString::of(owned.getURI())});
}

void XmlReaderImp::setNamespaceStack(const XmlReaderNamespaceStack& stack) {
    namespaceStack_ = stack;
    forgetPrefixes();
    forgetOpenNames();
}

void XmlReaderImp::rebase(const XmlReaderRebase& move) {
    for (XmlReaderString* view : {&encoding_, &standalone_, &version_, &lastContent_}) {
        move(*view);
    }
    setLastName(lastName());
    move(otherName_);
    move(lastAttributes_);
    move(namespaceStack_);
    for (KeptElement* kept = kept_; kept != nullptr; kept = kept->outer) {
        move(kept->name);
        move(kept->attributes);
        kept->start = move.position(kept->start);
    }
    forgetOpenNames();
    forgetPrefixes();
    cursor_ = move.position(cursor_);
    if (tagStart_ != nullptr) {
        tagStart_ = move.position(tagStart_);
    }
}

}  // namespace nolk
