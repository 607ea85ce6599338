#include <nolk/core/XmlName.h>

#include "nolk/core/foundation/PieceHash.h"

namespace nolk {

void XmlName::assign(std::string_view localName, std::string_view prefix, std::string_view uri) {
    localName_.assign(localName);
    namespace_.prefix_.assign(prefix);
    namespace_.uri_.assign(uri);
}

int XmlName::compareTo(const XmlName& other) const noexcept {
    const int byLocalName = localName_.compare(other.localName_);
    return byLocalName != 0 ? byLocalName : namespace_.compareTo(other.namespace_);
}

std::string XmlName::getQualifiedName() const {
    const std::string& prefix = namespace_.getPrefix();
    if (prefix.empty()) {
        return localName_;
    }
    std::string name;
    name.reserve(prefix.size() + 1 + localName_.size());
    return name.append(prefix).append(":").append(localName_);
}

std::string XmlName::getUniqueName() const {
    const std::string& uri = namespace_.getURI();
    if (uri.empty()) {
        return localName_;
    }
    std::string name;
    name.reserve(uri.size() + 2 + localName_.size());
    return name.append(uri).append("::").append(localName_);
}

unsigned int nolkXmlNameHash(const XmlName& name) noexcept {
    const std::string& uri = name.getNamespace().getURI();
    const std::string_view separator = uri.empty() ? "" : "::";
    PieceHash hash(uri.size() + separator.size() + name.getLocalName().size());
    hash.add(uri);
    hash.add(separator);
    hash.add(name.getLocalName());
    return hash.finish();
}

}  // namespace nolk
