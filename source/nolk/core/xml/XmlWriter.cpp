#include <nolk/core/XmlWriter.h>

#include <nolk/core/XmlStringWriter.h>

#include "ShortText.h"
#include "XmlEscape.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <utility>

namespace nolk {

namespace {

using xml::append;

unsigned int checkedLength(std::size_t length) {
    if (length > std::numeric_limits<unsigned int>::max()) {
        throw std::length_error("XmlWriter: more than 4 GB in one piece");
    }
    return static_cast<unsigned int>(length);
}

// The put functions write at `out`, which has the room that the matching size function tells, and
// give the end of what they wrote.

std::uint64_t nameSize(std::string_view prefix, std::string_view localName) {
    return std::uint64_t{prefix.size()} + 1 + localName.size();
}

// "prefix:local", or "local".
char* putName(char* out, std::string_view prefix, std::string_view localName) {
    if (!prefix.empty()) {
        out = append(append(out, prefix), ':');
    }
    return append(out, localName);
}

std::uint64_t textSize(std::size_t length, bool escape) {
    return std::uint64_t{length} * (escape ? xml::textExpansion : 1);
}

char* putText(char* out, std::string_view text, bool escape) {
    return escape ? xml::escapeText(text.data(), text.data() + text.size(), out)
                  : append(out, text);
}

std::uint64_t attributeSize(std::string_view prefix, std::string_view localName,
                            std::string_view value, bool escape) {
    return nameSize(prefix, localName) + sizeof " =\"\"" +
           std::uint64_t{value.size()} * (escape ? xml::attributeExpansion : 1);
}

char* putAttribute(char* out, std::string_view prefix, std::string_view localName,
                   std::string_view value, bool escape) {
    out = append(putName(append(out, ' '), prefix, localName), "=\"");
    out = escape ? xml::escapeAttribute(value.data(), value.data() + value.size(), out)
                 : append(out, value);
    return append(out, '"');
}

std::uint64_t endSize(std::string_view prefix, std::string_view localName) {
    return nameSize(prefix, localName) + 3;
}

char* putEnd(char* out, std::string_view prefix, std::string_view localName) {
    return append(putName(append(out, "</"), prefix, localName), '>');
}

std::string_view prefixOf(const XmlNamespace* bound) {
    return bound != nullptr ? std::string_view(bound->getPrefix()) : std::string_view();
}

std::string_view tagEnding(bool isEmpty) {
    return isEmpty ? "/>" : ">";
}

// The depth of the scopes of the outermost elements, above the base scope.
constexpr std::size_t firstLevel = 2;

constexpr std::string_view xmlns = "xmlns";

bool isPrefixDeclaration(const XmlAttribute& attribute) {
    return attribute.getName().getNamespace().getPrefix() == xmlns;
}

bool isDefaultDeclaration(const XmlAttribute& attribute) {
    return attribute.getName().getNamespace().getURI().empty() &&
           attribute.getName().getLocalName() == xmlns;
}

XmlName typeAttributeName() {
    return XmlName("type", XmlNamespace::getXsi());
}

// Visits the attributes that are no declarations. A type takes the place of a present xsi:type
// under the prefix that this one has, or comes last.
template <class Visitor>
void forEachPlain(const XmlAttributeSet& attributes, const XmlAttribute* type, Visitor visit) {
    for (auto it = attributes.getIteratorBegin(); it != attributes.getIteratorEnd(); ++it) {
        if (isPrefixDeclaration(*it) || isDefaultDeclaration(*it)) {
            continue;
        }
        if (type != nullptr && it->getName() == type->getName()) {
            visit(it->getName(), std::exchange(type, nullptr)->getValue());
        } else {
            visit(it->getName(), it->getValue());
        }
    }
    if (type != nullptr) {
        visit(type->getName(), type->getValue());
    }
}

// A tag that declares nothing and whose attributes are in no namespace, as most are. It needs no
// look at the scopes but for the prefix, and a string writer takes it at once.
struct PlainTag {
    std::string_view prefix;
    std::string_view localName;
    const XmlAttributeSet& attributes;
    bool escape;
    std::uint64_t size;  // of all of it at most, whichever its ending is

    // All but the ending.
    char* put(char* out) const {
        out = putName(append(out, '<'), prefix, localName);
        for (auto it = attributes.getIteratorBegin(); it != attributes.getIteratorEnd(); ++it) {
            out = putAttribute(out, {}, it->getName().getLocalName(), it->getValue(), escape);
        }
        return out;
    }
};

unsigned int movedIndent(unsigned int indent, std::int64_t step) {
    constexpr std::int64_t largest = std::numeric_limits<unsigned int>::max();
    return static_cast<unsigned int>(std::clamp<std::int64_t>(indent + step, 0, largest));
}

}  // namespace

// Where output is put together. In a string writer that is its own buffer, behind what it holds
// already, as long as that has the room; for other sinks it is memory to send pieces from.
class XmlWriter::Output {
public:
    // A class derived from the string writer may have a sink of its own, so that it counts as such.
    explicit Output(XmlWriter& writer) noexcept
        : writer_(writer),
          buffer_(&typeid(writer) == &typeid(XmlStringWriter)
                      ? static_cast<XmlStringWriter*>(&writer)
                      : nullptr) {}

    // Has `compose` write at most `size` bytes in the string writer's buffer: it takes the place
    // to write at and gives the end of what it wrote. False, and nothing done, without the room.
    template <class Compose>
    bool writeInPlace(std::uint64_t size, Compose compose) {
        if (buffer_ == nullptr || size > buffer_->capacity_ - buffer_->length_) {
            return false;
        }
        const char* const end = compose(buffer_->buffer_ + buffer_->length_);
        buffer_->length_ = static_cast<unsigned int>(end - buffer_->buffer_);
        return true;
    }

    // The same for one piece, and wherever it goes.
    template <class Compose>
    void send(std::uint64_t size, Compose compose) {
        if (!writeInPlace(size, compose)) {
            sendFromScratch(size, compose);
        }
    }

    bool writePlainTag(const XmlName& name, const XmlAttributeSet& attributes, bool isEmpty,
                       const XmlName& typeName);
    bool writePlainElement(const XmlName& name, std::string_view value, bool escape,
                           const XmlAttributeSet& attributes, const XmlName& typeName);

private:
    // Short pieces are put together on the stack.
    template <class Compose>
    void sendFromScratch(std::uint64_t size, Compose compose) {
        char stack[1024];
        std::unique_ptr<char[]> heap;
        if (size > sizeof stack) {
            heap.reset(new char[static_cast<std::size_t>(size)]);
        }
        char* const begin = heap ? heap.get() : stack;
        const char* const end = compose(begin);
        writer_.writeToSink(begin, checkedLength(static_cast<std::size_t>(end - begin)));
    }

    std::optional<PlainTag> plainTag(const XmlName& name, const XmlAttributeSet& attributes,
                                     const XmlName& typeName, std::size_t depth) noexcept;

    XmlWriter& writer_;
    XmlStringWriter* buffer_;
};

XmlWriter::XmlWriter() {
    namespaces_.pushScope();
}

XmlWriter& XmlWriter::operator=(const XmlWriter& other) {
    if (this != &other) {
        std::list<XmlNamespace> decls(other.namespaceDecls_);
        namespaces_ = other.namespaces_;
        namespaceDecls_.swap(decls);
        currentIndent_ = other.currentIndent_;
        sizeOfIndent_ = other.sizeOfIndent_;
        atLineStart_ = other.atLineStart_;
        ignoreWhitespace_ = other.ignoreWhitespace_;
        mustEscapeTextDefault_ = other.mustEscapeTextDefault_;
    }
    return *this;
}

XmlWriter::~XmlWriter() = default;

void XmlWriter::writeToSink(const std::string& text) {
    writeToSink(text.data(), checkedLength(text.size()));
}

int XmlWriter::setSizeOfIndent(int size) noexcept {
    return std::exchange(sizeOfIndent_, size);
}

void XmlWriter::setCurrentIndent(int indent) noexcept {
    currentIndent_ = movedIndent(0, indent);
}

void XmlWriter::incrementIndent() noexcept {
    currentIndent_ = movedIndent(currentIndent_, sizeOfIndent_);
}

void XmlWriter::decrementIndent() noexcept {
    currentIndent_ = movedIndent(currentIndent_, -std::int64_t{sizeOfIndent_});
}

void XmlWriter::writeNewLine() {
    if (!ignoreWhitespace_) {
        writeToSink('\n');
        atLineStart_ = true;
    }
}

void XmlWriter::writeIndentChars() {
    if (ignoreWhitespace_ || !atLineStart_) {
        return;
    }
    constexpr std::string_view spaces = "                                ";
    for (unsigned int left = currentIndent_; left != 0;) {
        const unsigned int count = std::min(left, static_cast<unsigned int>(spaces.size()));
        writeToSink(spaces.data(), count);
        left -= count;
    }
    atLineStart_ = false;
}

void XmlWriter::write(const char* text, unsigned int length, bool escape) {
    writeIndentChars();
    const char* const end = text + length;
    const char* const special = escape ? xml::findTextSpecial(text, end) : end;
    if (special == end) {
        writeToSink(text, length);
        return;
    }
    const auto plain = static_cast<std::size_t>(special - text);
    Output(*this).send(plain + textSize(length - plain, true), [=](char* out) {
        return xml::escapeText(special, end, append(out, {text, plain}));
    });
}

void XmlWriter::write(const std::string& text, bool escape) {
    write(text.data(), checkedLength(text.size()), escape);
}

void XmlWriter::write(const std::string& text) {
    write(text, mustEscapeTextDefault_);
}

void XmlWriter::writeAttribute(const std::string& qname, const char* value, unsigned int length,
                               bool escape) {
    writeAttributeParts({}, qname, {value, length}, escape);
}

void XmlWriter::writeAttribute(const std::string& qname, const char* value, unsigned int length) {
    writeAttributeParts({}, qname, {value, length}, mustEscapeTextDefault_);
}

void XmlWriter::writeAttribute(const std::string& qname, const std::string& value, bool escape) {
    writeAttributeParts({}, qname, value, escape);
}

void XmlWriter::writeAttribute(const std::string& qname, const std::string& value) {
    writeAttributeParts({}, qname, value, mustEscapeTextDefault_);
}

void XmlWriter::writeAttribute(const XmlName& name, const char* value, unsigned int length,
                               bool escape) {
    writeAttributeParts(name.getNamespace().getPrefix(), name.getLocalName(), {value, length},
                        escape);
}

void XmlWriter::writeAttribute(const XmlName& name, const char* value, unsigned int length) {
    writeAttribute(name, value, length, mustEscapeTextDefault_);
}

void XmlWriter::writeAttribute(const XmlName& name, const std::string& value, bool escape) {
    writeAttributeParts(name.getNamespace().getPrefix(), name.getLocalName(), value, escape);
}

void XmlWriter::writeAttribute(const XmlName& name, const std::string& value) {
    writeAttribute(name, value, mustEscapeTextDefault_);
}

// The whole attribute goes out in one piece.
void XmlWriter::writeAttributeParts(std::string_view prefix, std::string_view localName,
                                    std::string_view value, bool escape) {
    writeIndentChars();
    Output(*this).send(attributeSize(prefix, localName, value, escape), [=](char* out) {
        return putAttribute(out, prefix, localName, value, escape);
    });
}

// What the stack finds for a URI. Element after element asks for the same few, so that the answer
// mostly costs one comparison with an earlier one.
inline const XmlNamespace* XmlWriter::findBinding(const std::string& uri,
                                                  bool skipDefault) noexcept {
    auto& recent = namespaces_.recent_;
    if (uri.empty()) {
        if (skipDefault && recent.emptyURIUnbound) {
            return nullptr;
        }
        const XmlNamespace* found = namespaces_.matchURI(uri, skipDefault);
        recent.emptyURIUnbound = found == nullptr;
        return found;
    }
    const XmlNamespace*& slot = recent.byURI[skipDefault][uri.size() % recent.slots];
    if (slot == nullptr || !xml::equalTexts(slot->getURI(), uri)) {
        slot = namespaces_.matchURI(uri, skipDefault);
    }
    return slot;
}

// The URI of the default namespace; empty if there is none.
const std::string& XmlWriter::defaultURI() noexcept {
    auto& recent = namespaces_.recent_;
    if (recent.defaultNamespace == nullptr && !recent.defaultUnbound) {
        recent.defaultNamespace = namespaces_.matchPrefix(XmlAttributeSet::EmptyString);
        recent.defaultUnbound = recent.defaultNamespace == nullptr;
    }
    return recent.defaultUnbound ? XmlAttributeSet::EmptyString : recent.defaultNamespace->getURI();
}

// The prefix that stands for the URI here, whatever the name's own prefix is.
inline std::string_view XmlWriter::elementPrefix(const XmlName& name) noexcept {
    const std::string& uri = name.getNamespace().getURI();
    return prefixOf(uri.empty() ? nullptr : findBinding(uri, false));
}

// "ns1", "ns2" and so on: the first that no scope binds, inner or outer. Those found bound stay so
// until a scope goes, and aren't asked for again: an element may need very many.
XmlNamespace XmlWriter::generatePrefixForNamespace(const XmlNamespace& ns) {
    for (unsigned int& bound = namespaces_.boundNumbers_;; ++bound) {
        std::string prefix = "ns" + std::to_string(bound + 1);
        if (namespaces_.matchPrefix(prefix) == nullptr) {
            return XmlNamespace(std::move(prefix), ns.getURI());
        }
    }
}

// A prefix bound in the same element is never bound again: the later namespace gets another.
void XmlWriter::addNamespaceToScope(const XmlNamespace& ns) {
    const bool taken = std::any_of(
        namespaces_.getNamespaceIteratorBegin(), namespaces_.getNamespaceIteratorEnd(),
        [&ns](const XmlNamespace& bound) { return bound.getPrefix() == ns.getPrefix(); });
    namespaces_.addNamespace(taken ? generatePrefixForNamespace(ns) : ns);
}

// Gives the binding of the URI where it had one already and it is known without another search.
const XmlNamespace* XmlWriter::addNamespaceToScopeIfNecessary(const XmlNamespace& ns,
                                                              bool skipDefault) {
    const std::string& uri = ns.getURI();
    if (uri.empty()) {
        return nullptr;
    }
    if (!ns.getPrefix().empty()) {
        const XmlNamespace* bound = findBinding(uri, skipDefault);
        if (bound == nullptr) {
            addNamespaceToScope(ns);
        }
        return bound;
    }
    if (defaultURI() != uri) {
        addNamespaceToScope(ns);
    }
    // An attribute can't use the default namespace: where its URI has no other binding, it gets
    // one under a prefix of its own.
    if (skipDefault && findBinding(uri, true) == nullptr) {
        namespaces_.addNamespace(generatePrefixForNamespace(ns));
    }
    return nullptr;
}

void XmlWriter::processNamespaceDecls(const XmlAttributeSet& attributes) {
    for (auto it = attributes.getIteratorBegin(); it != attributes.getIteratorEnd(); ++it) {
        if (isPrefixDeclaration(*it)) {
            addNamespaceToScope(XmlNamespace(it->getName().getLocalName(), it->getValue()));
        } else if (isDefaultDeclaration(*it)) {
            addNamespaceToScope(XmlNamespace(std::string(), it->getValue()));
        }
    }
}

const XmlAttributeSet& XmlWriter::none() noexcept {
    static const XmlAttributeSet& set = *new XmlAttributeSet();
    return set;
}

const XmlName& XmlWriter::noType() noexcept {
    static const XmlName& name = *new XmlName();
    return name;
}

// Sees to it that the type's namespace is bound, and gives the value of xsi:type.
std::string XmlWriter::declareType(const XmlName& typeName) {
    const std::string& uri = typeName.getNamespace().getURI();
    XmlName type(typeName);
    if (uri.empty()) {
        type.unsetNamespace();
    }
    if (findBinding(uri, false) == nullptr) {
        XmlNamespace ns(type.getNamespace());
        if (ns.getPrefix().empty()) {
            ns = generatePrefixForNamespace(ns);
        }
        addNamespaceToScopeIfNecessary(ns, false);
    }
    if (const XmlNamespace* bound = findBinding(uri, false)) {
        type.getNamespace().setPrefix(bound->getPrefix());
    }
    return type.getQualifiedName();
}

void XmlWriter::writeElementStart(const XmlName& name, const XmlAttributeSet& attributes,
                                  bool isEmpty, const XmlName& typeName) {
    namespaces_.pushScope();
    if (Output(*this).writePlainTag(name, attributes, isEmpty, typeName)) {
        closeIfEmpty(isEmpty);
        return;
    }
    processNamespaceDecls(attributes);
    if (namespaces_.depth() == firstLevel) {
        for (const XmlNamespace& ns : namespaceDecls_) {
            addNamespaceToScopeIfNecessary(ns, false);
        }
    }
    const XmlNamespace* bound = addNamespaceToScopeIfNecessary(name.getNamespace(), false);
    if (typeName.getLocalName().empty()) {
        writeTag(name, bound, attributes, isEmpty, nullptr);
    } else {
        const XmlAttribute type(typeAttributeName(), declareType(typeName));
        writeTag(name, nullptr, attributes, isEmpty, &type);
    }
}

inline void XmlWriter::closeIfEmpty(bool isEmpty) {
    if (isEmpty) {
        namespaces_.popScope();
    }
}

// `bound` is the binding of the element's URI if that is known; the attributes may change it.
void XmlWriter::writeTag(const XmlName& name, const XmlNamespace* bound,
                         const XmlAttributeSet& attributes, bool isEmpty,
                         const XmlAttribute* type) {
    bool bare = true;
    forEachPlain(attributes, type, [this, &bare](const XmlName& attribute, const std::string&) {
        addNamespaceToScopeIfNecessary(attribute.getNamespace(), true);
        bare = false;
    });
    const std::string_view ending = tagEnding(isEmpty);
    if (bare) {
        writeOpening(bound != nullptr ? prefixOf(bound) : elementPrefix(name), name, ending);
        return closeIfEmpty(isEmpty);
    }
    writeOpening(elementPrefix(name), name, {});
    forEachPlain(attributes, type, [this](const XmlName& attribute, const std::string& value) {
        writeAttributeParts(prefixOf(findBinding(attribute.getNamespace().getURI(), true)),
                            attribute.getLocalName(), value, mustEscapeTextDefault_);
    });
    closeIfEmpty(isEmpty);
    Output(*this).send(ending.size(), [=](char* out) { return append(out, ending); });
}

// "<", the name and the declarations of the innermost scope; `ending` in the same piece.
void XmlWriter::writeOpening(std::string_view prefix, const XmlName& name,
                             std::string_view ending) {
    const std::string_view localName = name.getLocalName();
    const XmlNamespaceStack::Scope& declarations = *namespaces_.innermost_;
    std::uint64_t size = 1 + nameSize(prefix, localName) + ending.size();
    for (const XmlNamespace& ns : declarations) {
        size += sizeof " xmlns:=\"\"" + ns.getPrefix().size() + ns.getURI().size();
    }
    writeIndentChars();
    Output(*this).send(size, [&](char* out) {
        out = putName(append(out, '<'), prefix, localName);
        for (const XmlNamespace& ns : declarations) {
            out = append(out, " xmlns");
            if (!ns.getPrefix().empty()) {
                out = append(append(out, ':'), ns.getPrefix());
            }
            out = append(append(append(out, "=\""), ns.getURI()), '"');
        }
        return append(out, ending);
    });
}

// The tag of an element at this depth if it is plain and may be written in place.
inline std::optional<PlainTag> XmlWriter::Output::plainTag(const XmlName& name,
                                                           const XmlAttributeSet& attributes,
                                                           const XmlName& typeName,
                                                           std::size_t depth) noexcept {
    const bool declaresRemembered = depth == firstLevel && !writer_.namespaceDecls_.empty();
    if (buffer_ == nullptr || declaresRemembered || !typeName.getLocalName().empty()) {
        return {};
    }
    PlainTag tag{{}, name.getLocalName(), attributes, writer_.mustEscapeTextDefault_, 0};
    const XmlNamespace& ns = name.getNamespace();
    if (!ns.getURI().empty()) {
        const XmlNamespace* const bound = writer_.findBinding(ns.getURI(), false);
        if (bound == nullptr || (ns.getPrefix().empty() && ns.getURI() != writer_.defaultURI())) {
            return {};
        }
        tag.prefix = bound->getPrefix();
    }
    tag.size = nameSize(tag.prefix, tag.localName) + sizeof "</>";
    for (auto it = attributes.getIteratorBegin(); it != attributes.getIteratorEnd(); ++it) {
        const XmlName& attribute = it->getName();
        if (!attribute.getNamespace().empty() || attribute.getLocalName() == xmlns ||
            writer_.findBinding(XmlAttributeSet::EmptyString, true) != nullptr) {
            return {};
        }
        tag.size += attributeSize({}, attribute.getLocalName(), it->getValue(), tag.escape);
    }
    return tag;
}

// The scope of the element is open.
bool XmlWriter::Output::writePlainTag(const XmlName& name, const XmlAttributeSet& attributes,
                                      bool isEmpty, const XmlName& typeName) {
    const auto tag = plainTag(name, attributes, typeName, writer_.namespaces_.depth());
    if (!tag) {
        return false;
    }
    writer_.writeIndentChars();
    return writeInPlace(tag->size,
                        [&](char* out) { return append(tag->put(out), tagEnding(isEmpty)); });
}

// The whole element. As it declares nothing it needs no scope.
bool XmlWriter::Output::writePlainElement(const XmlName& name, std::string_view value, bool escape,
                                          const XmlAttributeSet& attributes,
                                          const XmlName& typeName) {
    const auto tag = plainTag(name, attributes, typeName, writer_.namespaces_.depth() + 1);
    if (!tag) {
        return false;
    }
    writer_.writeIndentChars();
    const std::uint64_t size =
        tag->size + textSize(value.size(), escape) + endSize(tag->prefix, tag->localName);
    return writeInPlace(size, [&](char* out) {
        out = putText(append(tag->put(out), '>'), value, escape);
        return putEnd(out, tag->prefix, tag->localName);
    });
}

void XmlWriter::writeElementEnd(const XmlName& name) {
    const std::string_view prefix = elementPrefix(name);
    const std::string_view localName = name.getLocalName();
    writeIndentChars();
    Output(*this).send(endSize(prefix, localName),
                       [=](char* out) { return putEnd(out, prefix, localName); });
    namespaces_.popScope();
}

void XmlWriter::writeSimple(const XmlName& name, std::string_view value, bool escape,
                            const XmlAttributeSet& attributes, const XmlName& type) {
    if (value.empty() || !Output(*this).writePlainElement(name, value, escape, attributes, type)) {
        writeElementStart(name, attributes, value.empty(), type);
        if (!value.empty()) {
            write(value.data(), checkedLength(value.size()), escape);
            writeElementEnd(name);
        }
    }
    writeNewLine();
}

// A type given as text is no name: it goes out as it is, and binds nothing.
void XmlWriter::writeSimple(const XmlName& name, std::string_view value, bool escape,
                            const XmlAttributeSet& attributes, const std::string& type,
                            bool useType) {
    if (!useType) {
        writeSimple(name, value, escape, attributes, noType());
        return;
    }
    XmlAttributeSet typed(attributes);
    typed.add(typeAttributeName(), type);
    writeSimple(name, value, escape, typed, noType());
}

void XmlWriter::writeSimpleElement(const XmlName& name, const char* value, unsigned int length,
                                   const XmlName& type, bool escape, bool useType,
                                   const XmlAttributeSet& attributes) {
    writeSimple(name, {value, length}, escape, attributes, useType ? type : noType());
}

void XmlWriter::writeSimpleElement(const XmlName& name, const char* value, unsigned int length,
                                   const std::string& type, bool escape, bool useType,
                                   const XmlAttributeSet& attributes) {
    writeSimple(name, {value, length}, escape, attributes, type, useType);
}

void XmlWriter::writeSimpleElement(const std::string& name, const char* value, unsigned int length,
                                   const std::string& type, bool escape, bool useType,
                                   const XmlAttributeSet& attributes) {
    writeSimple(XmlName(name), {value, length}, escape, attributes, type, useType);
}

void XmlWriter::writeSimpleElement(const XmlName& name, const std::string& value,
                                   const XmlName& type, bool useType,
                                   const XmlAttributeSet& attributes) {
    writeSimple(name, value, mustEscapeTextDefault_, attributes, useType ? type : noType());
}

void XmlWriter::writeSimpleElement(const XmlName& name, const std::string& value,
                                   const std::string& type, bool escape, bool useType,
                                   const XmlAttributeSet& attributes) {
    writeSimple(name, value, escape, attributes, type, useType);
}

void XmlWriter::writeSimpleElement(const std::string& name, const std::string& value,
                                   const std::string& type, bool escape, bool useType,
                                   const XmlAttributeSet& attributes) {
    writeSimple(XmlName(name), value, escape, attributes, type, useType);
}

void XmlWriter::writeSimpleElement(const XmlName& name, const char* value, unsigned int length,
                                   const XmlName& type, bool useType,
                                   const XmlAttributeSet& attributes) {
    writeSimpleElement(name, value, length, type, mustEscapeTextDefault_, useType, attributes);
}

void XmlWriter::writeSimpleElement(const XmlName& name, const char* value, unsigned int length,
                                   const std::string& type, bool useType,
                                   const XmlAttributeSet& attributes) {
    writeSimpleElement(name, value, length, type, mustEscapeTextDefault_, useType, attributes);
}

void XmlWriter::writeSimpleElement(const std::string& name, const char* value, unsigned int length,
                                   const std::string& type, bool useType,
                                   const XmlAttributeSet& attributes) {
    writeSimpleElement(name, value, length, type, mustEscapeTextDefault_, useType, attributes);
}

void XmlWriter::writeSimpleElement(const XmlName& name, const std::string& value,
                                   const std::string& type, bool useType,
                                   const XmlAttributeSet& attributes) {
    writeSimpleElement(name, value, type, mustEscapeTextDefault_, useType, attributes);
}

void XmlWriter::writeSimpleElement(const std::string& name, const std::string& value,
                                   const std::string& type, bool useType,
                                   const XmlAttributeSet& attributes) {
    writeSimpleElement(name, value, type, mustEscapeTextDefault_, useType, attributes);
}

}  // namespace nolk
