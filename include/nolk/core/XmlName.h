#ifndef NOLK_CORE_XML_NAME_H
#define NOLK_CORE_XML_NAME_H

#include <nolk/core/Export.h>
#include <nolk/core/XmlNamespace.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace nolk {

/**
 * A qualified name: a local name and the namespace that it is in.
 *
 * A name is identified by its local name and its namespace URI. The prefix takes no part in
 * equality, order or hash; it only says how the name is spelled. Nothing is checked: any bytes
 * are accepted in each of the three texts.
 *
 *     XmlName a("price", XmlNamespace("p", "urn:shop"));
 *     XmlName b("price", XmlNamespace("q", "urn:shop"));
 *     a == b;                  // true
 *     a.getQualifiedName();    // "p:price"
 *     a.getUniqueName();       // "urn:shop::price"
 *
 * A plain value that owns its texts; not synchronised.
 */
class NOLK_API XmlName {
public:
    /** The null name: no local name, no namespace. */
    XmlName() = default;

    /** A name in no namespace. */
    XmlName(std::string localName) : localName_(std::move(localName)) {}

    XmlName(std::string localName, XmlNamespace ns)
        : localName_(std::move(localName)), namespace_(std::move(ns)) {}

    const std::string& getLocalName() const noexcept { return localName_; }
    const XmlNamespace& getNamespace() const noexcept { return namespace_; }
    XmlNamespace& getNamespace() noexcept { return namespace_; }

    void setLocalName(std::string localName) { localName_ = std::move(localName); }
    void setNamespace(XmlNamespace ns) { namespace_ = std::move(ns); }

    /** Drops prefix and URI. */
    void unsetNamespace() { namespace_ = XmlNamespace::getEmptyNamespace(); }

    /**
     * Replaces all three texts and keeps the storage of the old ones, for loops that read name
     * after name into one object. No view may lie in this name's own texts.
     */
    void assign(std::string_view localName, std::string_view prefix, std::string_view uri);

    /** True if local name, prefix and URI are all empty. The two names mean the same test. */
    bool empty() const noexcept { return localName_.empty() && namespace_.empty(); }
    bool isNull() const noexcept { return empty(); }

    /** Byte-wise order of the local names, then of the URIs: negative, 0 or positive. */
    int compareTo(const XmlName& other) const noexcept;

    /** As it is spelled in a document: "prefix:local", or "local" if there is no prefix. */
    std::string getQualifiedName() const;
    /** The same as getQualifiedName(). */
    std::string asString() const { return getQualifiedName(); }

    /** As messages and hashes tell it: "uri::local", or "local" if there is no URI. */
    std::string getUniqueName() const;

private:
    std::string localName_;
    XmlNamespace namespace_;
};

/** Comparisons by local name and URI, as XmlName::compareTo. @{ */
inline bool operator==(const XmlName& a, const XmlName& b) noexcept {
    return a.getLocalName() == b.getLocalName() && a.getNamespace() == b.getNamespace();
}
inline bool operator!=(const XmlName& a, const XmlName& b) noexcept {
    return !(a == b);
}
inline bool operator<(const XmlName& a, const XmlName& b) noexcept {
    return a.compareTo(b) < 0;
}
/** @} */

/**
 * The hash of a name for tables keyed by names: nolkStringHash() of its unique name, worked out
 * without building that text. 32 bits, the same on all platforms; 0 for the null name.
 */
NOLK_API unsigned int nolkXmlNameHash(const XmlName& name) noexcept;

}  // namespace nolk

/** Lets a name be the key of the standard unordered containers. */
template <>
struct std::hash<nolk::XmlName> {
    std::size_t operator()(const nolk::XmlName& name) const noexcept {
        return nolk::nolkXmlNameHash(name);
    }
};

#endif
