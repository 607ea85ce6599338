#ifndef NOLK_CORE_XML_NAMESPACE_H
#define NOLK_CORE_XML_NAMESPACE_H

#include <nolk/core/Export.h>

#include <string>
#include <utility>

namespace nolk {

struct XmlReaderNamespace;

/**
 * A namespace binding: a prefix and the URI that it stands for, both UTF-8.
 *
 * A namespace is identified by its URI alone. The prefix is carried for writing and never takes
 * part in a comparison. Neither text is checked: any bytes are accepted.
 *
 * A plain value that owns its texts; not synchronised.
 */
class NOLK_API XmlNamespace {
public:
    /** The empty namespace: no prefix, no URI. */
    XmlNamespace() = default;

    /** A binding of `prefix` to `uri`. An empty prefix makes it a default namespace. */
    XmlNamespace(std::string prefix, std::string uri)
        : prefix_(std::move(prefix)), uri_(std::move(uri)) {}

    /** Copies the two views, which may die afterwards. */
    XmlNamespace(const XmlReaderNamespace& view);

    const std::string& getPrefix() const noexcept { return prefix_; }
    const std::string& getURI() const noexcept { return uri_; }
    void setPrefix(std::string prefix) { prefix_ = std::move(prefix); }
    void setURI(std::string uri) { uri_ = std::move(uri); }

    /** True if prefix and URI are both empty. The two names mean the same test. */
    bool empty() const noexcept { return prefix_.empty() && uri_.empty(); }
    bool isNull() const noexcept { return empty(); }

    /** Byte-wise order of the URIs: negative, 0 or positive. */
    int compareTo(const XmlNamespace& other) const noexcept { return uri_.compare(other.uri_); }

    /** For diagnostics: `"prefix"-->"uri"`, with the quotes. */
    std::string infoString() const;

    /**
     * @name Shared instances
     * Built at the first call, whichever thread makes it, and never destroyed: they may be used
     * from static initialisers and destructors. The two that are not const belong to the whole
     * process; nothing in the library changes them.
     * @{
     */

    /** Prefix "xmlns" and an empty URI: the namespace of declarations has no URI here. */
    static const XmlNamespace& getXmlns();
    /** No prefix and no URI. */
    static const XmlNamespace& getEmptyNamespace();
    /** Prefix "xsi", http://www.w3.org/2001/XMLSchema-instance. */
    static XmlNamespace& getXsi();
    /** Prefix "xsd", http://www.w3.org/2001/XMLSchema. */
    static XmlNamespace& getXsd();
    /** Prefix "nolk", http://xml.nolk.example/nolk: the library's own documents. */
    static const XmlNamespace& getNOLKNamespace();
    /** @} */

    /**
     * True if `ns` has the URI of getXmlns(). Deliberate: as that is empty, every namespace with
     * an empty URI matches, whatever its prefix.
     */
    static bool matchXmlns(const XmlNamespace& ns) noexcept;
    /** True if `ns` has the 2001 or the 1999 URI of XML Schema instances. */
    static bool matchXsi(const XmlNamespace& ns) noexcept;
    /** True if `ns` has the 2001 or the 1999 URI of XML Schema. */
    static bool matchXsd(const XmlNamespace& ns) noexcept;

private:
    friend class XmlName;

    std::string prefix_;
    std::string uri_;
};

/** Comparisons by URI alone, as XmlNamespace::compareTo. @{ */
inline bool operator==(const XmlNamespace& a, const XmlNamespace& b) noexcept {
    return a.getURI() == b.getURI();
}
inline bool operator!=(const XmlNamespace& a, const XmlNamespace& b) noexcept {
    return !(a == b);
}
inline bool operator<(const XmlNamespace& a, const XmlNamespace& b) noexcept {
    return a.compareTo(b) < 0;
}
/** @} */

}  // namespace nolk

#endif
