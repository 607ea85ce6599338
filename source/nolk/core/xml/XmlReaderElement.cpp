// Navigation by expected element.

#include <nolk/core/MessageIds.h>
#include <nolk/core/XmlReaderImp.h>
#include <nolk/core/xml/XmlReaderAside.h>
#include <nolk/core/xml/XmlReaderBuffer.h>
#include <nolk/core/xml/XmlReaderKeptElement.h>
#include <nolk/core/xml/XmlReaderRebase.h>

#include <cstring>
#include <set>
#include <string_view>
#include <utility>

namespace nolk {

namespace {

std::string uniqueName(const XmlReaderName& name) {
    return name.asXmlName().getUniqueName();
}

}  // namespace

void XmlReaderImp::checkName(const XmlReaderName& expected, const XmlReaderName& found) const {
    if (!(expected == found)) {
        err(here(), message(NOLK_CORE_XML_PARSE_UNEXPECTED_ELEMENT, uniqueName(expected),
                            uniqueName(found)));
    }
}

// A name that the caller took from this reader must outlast a replacement of the buffer.
XmlReaderImp::Buffer XmlReaderImp::holdFor(const XmlReaderName& name) const {
    const auto inside = [this](const XmlReaderString& view) {
        const auto address = reinterpret_cast<std::uintptr_t>(view.data);
        return address >= reinterpret_cast<std::uintptr_t>(begin_) &&
               address <= reinterpret_cast<std::uintptr_t>(last_);
    };
    return inside(name.localName) || inside(name.prefix) || inside(name.uri) ? buffer_ : Buffer();
}

bool XmlReaderImp::isElementNext(const XmlReaderName& expected) {
    const XmlReaderName name = expected;  // it may be the node state that reading changes
    const Buffer hold = holdFor(name);
    if (!nodePending_ && lastNodeType_ != XmlReader::EmptyTag) {
        readContent();
        readNextNode();
        nodePending_ = true;
    }
    if (!isStart() || !(name.localName == lastName().localName)) {
        return false;
    }
    const XmlReaderString uri =
        name.uri.length != 0 ? name.uri : namespaceStack_.getURIForPrefix(name.prefix);
    return uri == lastName().uri;
}

const XmlReaderName& XmlReaderImp::readElementStart() {
    if (nodePending_) {
        nodePending_ = false;
    } else {
        readContent();
        readNextNode();
    }
    if (!isStart()) {
        err(here(), message(NOLK_CORE_XML_PARSE_NO_START_TAG, uniqueName(lastName())));
    }
    return lastName();
}

void XmlReaderImp::readElementStart(const XmlReaderName& expected) {
    const XmlReaderName name = expected;
    const Buffer hold = holdFor(name);
    checkName(name, readElementStart());
}

const XmlReaderString& XmlReaderImp::readElementValue() {
    readContent();  // which only takes a pending node, if there is one
    return lastContent_;
}

const XmlReaderName& XmlReaderImp::readElementEnd() {
    if (lastNodeType_ == XmlReader::EmptyTag) {
        lastNodeType_ = XmlReader::EndTag;
        lastContent_ = XmlReaderString();
        nodePending_ = false;
        return lastName();
    }
    if (nodePending_) {
        nodePending_ = false;
    } else {
        readContent();
        readNextNode();
    }
    if (lastNodeType_ != XmlReader::EndTag) {
        err(here(), message(NOLK_CORE_XML_PARSE_NO_END_TAG, uniqueName(lastName())));
    }
    return lastName();
}

void XmlReaderImp::readElementEnd(const XmlReaderName& expected) {
    const XmlReaderName name = expected;
    const Buffer hold = holdFor(name);
    checkName(name, readElementEnd());
}

// Moves through the next start or empty tag and returns its `<`, or null if another node is next,
// which then stays pending.
char* XmlReaderImp::findElement() {
    const bool wasPending = nodePending_;
    char* start = nullptr;
    if (!wasPending) {
        readContent(false, false);
        start = cursor_;
        readNextNode(false, false, false);
    }
    if (!isStart()) {
        nodePending_ = true;
        lastContent_ = XmlReaderString();
        return nullptr;
    }
    nodePending_ = false;
    if (wasPending || lastNodeType_ == XmlReader::EmptyTag) {
        start = cursor_ - (cursor_ - lastName().localName.data);
        while (start > begin_ && *start != '<') {
            --start;
        }
    }
    return start;
}

XmlReaderString XmlReaderImp::finishEmptyElement(const KeptElement& kept) {
    lastContent_ = XmlReaderString();
    lastNodeType_ = XmlReader::EndTag;
    return {kept.start, static_cast<std::uint32_t>(cursor_ - kept.start)};
}

// Reads on to the end tag of the kept element. `visit` is called for each node and tells by how
// much the number of open elements of that name changes.
template <class Visitor>
XmlReaderString XmlReaderImp::readToEndOf(const KeptElement& kept, Visitor visit) {
    const std::ptrdiff_t content = cursor_ - kept.start;
    for (std::int64_t open = 1; open != 0;) {
        readNextNode(false, false, true);
        if (lastNodeType_ == XmlReader::Unknown) {
            err(here(), message(NOLK_CORE_XML_PARSE_CLOSING_TAG_NOT_FOUND));
        }
        open += visit();
    }
    lastAttributes_ = kept.attributes;
    lastNodeType_ = XmlReader::EndTag;
    const char* const text = kept.start + content;
    lastContent_ = {text, static_cast<std::uint32_t>(tagStart_ - text)};
    return {kept.start, static_cast<std::uint32_t>(cursor_ - kept.start)};
}

XmlReaderString XmlReaderImp::readElement(const XmlReaderName& expected) {
    const XmlReaderName name = expected;
    const Buffer hold = holdFor(name);
    char* const start = findElement();
    if (start == nullptr) {
        return {};
    }
    if (name.localName.length != 0) {
        checkName(name, lastName());
    }
    const KeptElement kept(*this, start);
    if (lastNodeType_ == XmlReader::EmptyTag) {
        return finishEmptyElement(kept);
    }
    return readToEndOf(kept, [&] {
        if (lastNodeType_ == XmlReader::StartTag) {
            return lastName() == kept.name ? 1 : 0;
        }
        return lastNodeType_ == XmlReader::EndTag && lastName() == kept.name ? -1 : 0;
    });
}

XmlReader XmlReaderImp::getElementReader(const XmlReaderName& name) {
    auto* child = new XmlReaderImp(this);
    XmlReader reader(child);
    const XmlReaderString element = readElement(name);
    child->adoptBuffer(*this);
    child->standOn(element);
    return reader;
}

// Follows a replacement of the parent's buffer that happened behind this child's back.
void XmlReaderImp::adoptBuffer(const XmlReaderImp& source) {
    if (buffer_ == source.buffer_) {
        return;
    }
    const XmlReaderRebase move(contentStart_, begin_, last_, source.contentStart_, source.last_);
    const Buffer old = std::exchange(buffer_, source.buffer_);
    begin_ = source.begin_;
    last_ = source.last_;
    contentStart_ = source.contentStart_;
    encoding_ = source.encoding_;
    if (aside_) {
        aside_->asciiTo = nullptr;
    }
    rebase(move);
}

// Deliberate: the bound lies two bytes behind the element. There is padding for it. Over nothing,
// the same bound is that of a text of two zero bytes.
void XmlReaderImp::standOn(const XmlReaderString& element) {
    depth_ = 0;
    nodePending_ = false;
    if (element.length == 0) {
        aside().savedBuffer = std::exchange(buffer_, newReaderBuffer(2));
        begin_ = contentStart_ = cursor_ = buffer_.get();
        std::memset(begin_, 0, 2);
    } else {
        cursor_ += element.data - cursor_;
    }
    last_ = cursor_ + element.length + 1;
}

namespace {

/** The start tag of an element with the namespace declarations that it needs from outside. */
class HoistedTag {
public:
    HoistedTag(std::string tag, const XmlReaderNamespaceStack& scope)
        : text_(std::move(tag)), scope_(scope) {}

    /** Takes note of the declarations of the outer tag and adds the default namespace to it. */
    void addOuter(const XmlReaderName& name, const XmlReaderAttributeList& attributes) {
        XmlReaderString ownDefault;
        for (const XmlReaderAttribute& attribute : attributes) {
            if (attribute.name.localName.view() == "xmlns") {
                ownDefault = attribute.value;
            }
        }
        noteDeclarations(attributes);
        const XmlReaderString outer = scope_.getURIForPrefix({});
        if (ownDefault.length == 0 && outer.length != 0) {
            appendDeclaration("", outer.view());
        }
        addNeeded(name, attributes);
    }

    /** The same for a tag inside, whose own default stays where it is. */
    void addInner(const XmlReaderName& name, const XmlReaderAttributeList& attributes) {
        noteDeclarations(attributes);
        addNeeded(name, attributes);
    }

    std::string& text() { return text_; }

private:
    void noteDeclarations(const XmlReaderAttributeList& attributes) {
        for (const XmlReaderAttribute& attribute : attributes) {
            if (attribute.name.prefix.view() == "xmlns") {
                declared_.emplace(attribute.name.localName.asString(), attribute.value.asString());
            }
        }
    }

    void addNeeded(const XmlReaderName& name, const XmlReaderAttributeList& attributes) {
        for (const XmlReaderAttribute& attribute : attributes) {
            const std::string_view prefix = attribute.name.prefix.view();
            if (!prefix.empty() && prefix != "xmlns") {
                addPair(attribute.name);
            }
        }
        if (name.prefix.length != 0 && name.uri.length != 0) {
            addPair(name);
        }
    }

    void addPair(const XmlReaderName& name) {
        const std::string prefix = name.prefix.asString();
        if (declared_.contains({prefix, name.uri.asString()})) {
            return;
        }
        const XmlReaderString uri =
            name.uri.length != 0 ? name.uri : scope_.getURIForPrefix(name.prefix);
        declared_.emplace(prefix, uri.asString());
        appendDeclaration(prefix, uri.view());
    }

    void appendDeclaration(std::string_view prefix, std::string_view uri) {
        text_.append(" xmlns");
        if (!prefix.empty()) {
            text_.append(":").append(prefix);
        }
        text_.append("=\"").append(uri).append("\"");
    }

    std::string text_;
    const XmlReaderNamespaceStack& scope_;
    std::set<std::pair<std::string, std::string>> declared_;
};

}  // namespace

std::string XmlReaderImp::readWellFormedElement(const XmlReaderName& expected) {
    const XmlReaderName name = expected;
    const Buffer hold = holdFor(name);
    char* const start = findElement();
    if (start == nullptr) {
        return {};
    }
    // Deliberate: the first `>` ends the tag, in an attribute value too.
    const std::string_view tagText(start, static_cast<std::size_t>(cursor_ - start));
    const std::size_t tagLength = tagText.find('>');
    const std::size_t ending = tagText[tagLength - 1] == '/' ? 1 : 0;
    HoistedTag tag(std::string(tagText.substr(0, tagLength - ending)), namespaceStack_);
    if (name.localName.length != 0) {
        checkName(name, lastName());
    }
    const KeptElement kept(*this, start);
    tag.addOuter(lastName(), lastAttributes_);
    if (lastNodeType_ == XmlReader::EmptyTag) {
        finishEmptyElement(kept);
        return std::move(tag.text().append("/>"));
    }
    const XmlReaderString element = readToEndOf(kept, [&] {
        if (isStart()) {
            tag.addInner(lastName(), lastAttributes_);
            return lastName() == kept.name ? 1 : 0;  // an empty tag too, which nothing closes
        }
        return lastNodeType_ == XmlReader::EndTag && lastName() == kept.name ? -1 : 0;
    });
    return std::move(tag.text().append(">").append(element.view().substr(tagLength + 1)));
}

}  // namespace nolk
