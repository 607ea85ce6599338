#include <nolk/core/XmlAttributeSet.h>

#include <nolk/core/ExceptionInfo.h>
#include <nolk/core/XmlParseAttributeNotFoundException.h>
#include <nolk/core/XmlReaderAttributeList.h>

#include "ShortText.h"

#include <functional>
#include <iterator>
#include <memory>
#include <unordered_map>
#include <utility>

namespace nolk {

namespace {

bool isNamed(const XmlAttribute& attribute, std::string_view localName, std::string_view uri) {
    return xml::equalTexts(attribute.getName().getLocalName(), localName) &&
           xml::equalTexts(attribute.getName().getNamespace().getURI(), uri);
}

// The number of attributes from which on an index pays. Elements that people write stay below.
constexpr std::size_t indexedFrom = 64;

}  // namespace

/** Finds an attribute by its name without a walk over all. Its keys are the attributes' texts. */
class XmlAttributeSet::Index {
public:
    explicit Index(std::list<XmlAttribute>& attributes) {
        for (XmlAttribute& attribute : attributes) {
            insert(attribute);
        }
    }

    void insert(XmlAttribute& attribute) {
        slots_.emplace(Key(attribute.name_.getLocalName(), attribute.name_.getNamespace().getURI()),
                       &attribute);
    }

    XmlAttribute* find(std::string_view localName, std::string_view uri) const noexcept {
        const auto slot = slots_.find(Key(localName, uri));
        return slot != slots_.end() ? slot->second : nullptr;
    }

private:
    using Key = std::pair<std::string_view, std::string_view>;
    struct Hash {
        std::size_t operator()(const Key& key) const noexcept {
            const std::hash<std::string_view> hash;
            return hash(key.first) * 31 + hash(key.second);
        }
    };

    std::unordered_map<Key, XmlAttribute*, Hash> slots_;
};

// Short texts of constants: compilers that can do so initialise both before anything runs.
const std::string XmlAttributeSet::EmptyString;
const std::string XmlAttributeSet::DefaultNamespaceAttributeTag("xmlns");

XmlAttributeSet::XmlAttributeSet() noexcept = default;

XmlAttributeSet::XmlAttributeSet(const XmlAttributeSet& other)
    : attributes_(other.attributes_),
      index_(other.index_ != nullptr ? std::make_unique<Index>(attributes_) : nullptr) {}

XmlAttributeSet::XmlAttributeSet(XmlAttributeSet&& other) noexcept = default;

XmlAttributeSet& XmlAttributeSet::operator=(const XmlAttributeSet& other) {
    if (this != &other) {
        *this = XmlAttributeSet(other);
    }
    return *this;
}

XmlAttributeSet& XmlAttributeSet::operator=(XmlAttributeSet&& other) noexcept {
    if (this != &other) {
        attributes_ = std::move(other.attributes_);
        index_ = std::move(other.index_);
    }
    return *this;
}

XmlAttributeSet::~XmlAttributeSet() = default;

void XmlAttributeSet::add(XmlAttribute attribute) {
    place(std::move(attribute.name_), std::move(attribute.value_));
}

void XmlAttributeSet::add(const XmlName& name, std::string value) {
    place(name, std::move(value));
}

void XmlAttributeSet::add(XmlName&& name, std::string value) {
    place(std::move(name), std::move(value));
}

template <class Name>
inline void XmlAttributeSet::place(Name&& name, std::string&& value) {
    if (XmlAttribute* present = lookUp(name.getLocalName(), name.getNamespace().getURI())) {
        present->value_ = std::move(value);
    } else if (attributes_.size() < indexedFrom) {
        attributes_.emplace_back(std::forward<Name>(name), std::move(value));
    } else {
        std::list<XmlAttribute> added;
        added.emplace_back(std::forward<Name>(name), std::move(value));
        appendFirstOf(added);
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
    index_.reset();
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
    if (index_ != nullptr) {
        return index_->find(localName, uri);
    }
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

// The name isn't among the attributes yet. All or nothing.
void XmlAttributeSet::appendFirstOf(std::list<XmlAttribute>& source) {
    if (attributes_.size() >= indexedFrom) {
        if (index_ == nullptr) {
            index_ = std::make_unique<Index>(attributes_);
        }
        index_->insert(source.front());
    }
    attributes_.splice(attributes_.end(), source, source.begin());
}

// What is removed dies last: the name to remove may belong to one of the attributes. The walk
// over all costs as much as the index that the next addition makes anew.
void XmlAttributeSet::removeAll(std::string_view localName, std::string_view uri) {
    index_.reset();
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
    index_.reset();
    spare.splice(spare.begin(), attributes_);
    for (std::uint32_t i = 0; i < attributes.length(); ++i) {
        const XmlReaderName& name = attributes[i].name;
        const std::string_view value = attributes[i].value.view();
        if (XmlAttribute* known = lookUp(name.localName.view(), name.uri.view())) {
            known->value_.assign(value);
            continue;
        }
        if (spare.empty()) {
            spare.emplace_back();
        }
        XmlAttribute& next = spare.front();
        next.name_.assign(name.localName.view(), name.prefix.view(), name.uri.view());
        next.value_.assign(value);
        appendFirstOf(spare);
    }
}

}  // namespace nolk
