#include <nolk/core/XmlAttributeSet.h>

#include <nolk/core/ExceptionInfo.h>
#include <nolk/core/XmlParseAttributeNotFoundException.h>
#include <nolk/core/XmlReaderAttributeList.h>

#include "ShortText.h"

#include <functional>
#include <iterator>
#include <unordered_map>
#include <utility>

namespace nolk {

namespace {

bool isNamed(const XmlAttribute& attribute, std::string_view localName, std::string_view uri) {
    return xml::equalTexts(attribute.getName().getLocalName(), localName) &&
           xml::equalTexts(attribute.getName().getNamespace().getURI(), uri);
}

// Finds the attribute of a name in a tag of very many, where a search from the first one for each
// would take its time. Tags that people write never use it.
class NameIndex {
public:
    explicit NameIndex(std::size_t attributes) : inUse_(attributes > 64) {}

    bool inUse() const { return inUse_; }

    /** The place for the attribute of this name; null in it at first. */
    XmlAttribute*& operator[](const XmlReaderName& name) {
        return slots_[{name.localName.view(), name.uri.view()}];
    }

private:
    using Key = std::pair<std::string_view, std::string_view>;
    struct Hash {
        std::size_t operator()(const Key& key) const {
            const std::hash<std::string_view> hash;
            return hash(key.first) * 31 + hash(key.second);
        }
    };

    bool inUse_;
    std::unordered_map<Key, XmlAttribute*, Hash> slots_;
};

}  // namespace

// Short texts of constants: compilers that can do so initialise both before anything runs.
const std::string XmlAttributeSet::EmptyString;
const std::string XmlAttributeSet::DefaultNamespaceAttributeTag("xmlns");

XmlAttributeSet::~XmlAttributeSet() = default;

XmlAttributeSet& XmlAttributeSet::operator=(const XmlAttributeSet& other) {
    if (this != &other) {
        std::list<XmlAttribute> copy(other.attributes_);
        attributes_.swap(copy);
    }
    return *this;
}

void XmlAttributeSet::add(XmlAttribute attribute) {
    add(std::move(attribute.name_), std::move(attribute.value_));
}

void XmlAttributeSet::add(XmlName name, std::string value) {
    if (XmlAttribute* present = lookUp(name.getLocalName(), name.getNamespace().getURI())) {
        present->value_ = std::move(value);
    } else {
        attributes_.emplace_back(std::move(name), std::move(value));
    }
}

void XmlAttributeSet::setDefaultNamespaceAttribute(XmlAttribute attribute) {
    add(std::move(attribute));
}

void XmlAttributeSet::setDefaultNamespaceAttribute(std::string uri) {
    add(XmlName(DefaultNamespaceAttributeTag), std::move(uri));
}

void XmlAttributeSet::setDefaultNamespaceAttribute(const XmlNamespace& ns) {
    setDefaultNamespaceAttribute(ns.getURI());
}

void XmlAttributeSet::unsetDefaultNamespaceAttribute() {
    setDefaultNamespaceAttribute(std::string());
}

void XmlAttributeSet::removeDefaultNamespaceAttribute() {
    removeAll(DefaultNamespaceAttributeTag, {});
}

const std::string& XmlAttributeSet::getDefaultNamespaceAttribute() const noexcept {
    const XmlAttribute* present = lookUp(DefaultNamespaceAttributeTag, {});
    return present != nullptr ? present->value_ : EmptyString;
}

void XmlAttributeSet::addNamespaceAttribute(const XmlNamespace& ns) {
    add(XmlName(ns.getPrefix(), XmlNamespace::getXmlns()), ns.getURI());
}

void XmlAttributeSet::removeNamespaceAttribute(const std::string& prefix) {
    removeAll(prefix, XmlNamespace::getXmlns().getURI());
}

void XmlAttributeSet::removeNamespaceAttribute(const XmlNamespace& ns) {
    removeNamespaceAttribute(ns.getPrefix());
}

bool XmlAttributeSet::find(const XmlAttribute& key, XmlAttribute& out) const {
    return find(key.name_, out);
}

bool XmlAttributeSet::find(const XmlName& name, XmlAttribute& out) const {
    const XmlAttribute* present = lookUp(name);
    if (present == nullptr) {
        return false;
    }
    out = *present;
    return true;
}

bool XmlAttributeSet::contains(const XmlAttribute& key) const noexcept {
    return lookUp(key.name_) != nullptr;
}

bool XmlAttributeSet::contains(const XmlName& name) const noexcept {
    return lookUp(name) != nullptr;
}

bool XmlAttributeSet::findNamespaceAttribute(const std::string& prefix, XmlAttribute& out) const {
    return findNamespaceByPrefix(prefix, out);
}

bool XmlAttributeSet::findNamespaceAttribute(const XmlNamespace& ns, XmlAttribute& out) const {
    return findNamespaceByPrefix(ns.getPrefix(), out);
}

const std::string& XmlAttributeSet::findValueByName(const std::string& localName,
                                                    bool required) const {
    if (const XmlAttribute* present = lookUp(localName, {})) {
        return present->value_;
    }
    if (required) {
        throw XmlParseAttributeNotFoundException(here(), localName);
    }
    return EmptyString;
}

void XmlAttributeSet::remove(const XmlAttribute& key) {
    remove(key.name_);
}

void XmlAttributeSet::remove(const XmlName& name) {
    removeAll(name.getLocalName(), name.getNamespace().getURI());
}

void XmlAttributeSet::clear() noexcept {
    attributes_.clear();
}

unsigned int XmlAttributeSet::entries() const noexcept {
    return static_cast<unsigned int>(attributes_.size());
}

bool XmlAttributeSet::equalTo(const XmlAttributeSet& other, EqualityType type) const noexcept {
    if (attributes_.size() != other.attributes_.size()) {
        return false;
    }
    for (const XmlAttribute& attribute : attributes_) {
        const XmlAttribute* partner = other.lookUp(attribute.name_);
        const bool equal =
            partner != nullptr &&
            (type == NamesOnly || (type == NamesAndValues && partner->value_ == attribute.value_));
        if (!equal) {
            return false;
        }
    }
    return true;
}

void XmlAttributeSet::assign(const XmlReaderAttributeList& attributes) {
    std::list<XmlAttribute> spare;
    refill(attributes, spare);
}

const XmlAttribute* XmlAttributeSet::lookUp(std::string_view localName,
                                            std::string_view uri) const noexcept {
    for (const XmlAttribute& attribute : attributes_) {
        if (isNamed(attribute, localName, uri)) {
            return &attribute;
        }
    }
    return nullptr;
}

XmlAttribute* XmlAttributeSet::lookUp(std::string_view localName, std::string_view uri) noexcept {
    return const_cast<XmlAttribute*>(std::as_const(*this).lookUp(localName, uri));
}

const XmlAttribute* XmlAttributeSet::lookUp(const XmlName& name) const noexcept {
    return lookUp(name.getLocalName(), name.getNamespace().getURI());
}

bool XmlAttributeSet::findNamespaceByPrefix(const std::string& prefix, XmlAttribute& out) const {
    for (const XmlAttribute& attribute : attributes_) {
        if (attribute.name_.getLocalName() == prefix) {
            out = attribute;
            return true;
        }
    }
    return false;
}

// What is removed dies last: the name to remove may belong to one of the attributes.
void XmlAttributeSet::removeAll(std::string_view localName, std::string_view uri) {
    std::list<XmlAttribute> removed;
    for (auto it = attributes_.begin(); it != attributes_.end();) {
        const auto next = std::next(it);
        if (isNamed(*it, localName, uri)) {
            removed.splice(removed.end(), attributes_, it);
        }
        it = next;
    }
}

// The attributes held so far go to `spare` first, and come back from it one by one with new
// texts: reading tag after tag into one set allocates nothing once it has seen the largest.
void XmlAttributeSet::refill(const XmlReaderAttributeList& attributes,
                             std::list<XmlAttribute>& spare) {
    spare.splice(spare.begin(), attributes_);
    NameIndex index(attributes.length());
    for (std::uint32_t i = 0; i < attributes.length(); ++i) {
        const XmlReaderName& name = attributes[i].name;
        XmlAttribute* found =
            index.inUse() ? nullptr : lookUp(name.localName.view(), name.uri.view());
        XmlAttribute*& known = index.inUse() ? index[name] : found;
        if (known != nullptr) {
            known->value_.assign(attributes[i].value.view());
            continue;
        }
        if (spare.empty()) {
            spare.emplace_back();
        }
        known = &spare.front();
        known->name_.assign(name.localName.view(), name.prefix.view(), name.uri.view());
        known->value_.assign(attributes[i].value.view());
        attributes_.splice(attributes_.end(), spare, spare.begin());
    }
}

}  // namespace nolk
