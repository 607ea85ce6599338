#ifndef NOLK_CORE_XML_READER_NAMESPACE_STACK_H
#define NOLK_CORE_XML_READER_NAMESPACE_STACK_H

#include <nolk/core/Export.h>
#include <nolk/core/XmlReaderNamespaceList.h>

#include <cstdint>
#include <vector>

namespace nolk {

/**
 * The namespace scopes of an XmlReader, innermost last, as views.
 *
 * Scopes are reused by index: popScope() only lowers the depth, and the bindings of a popped scope
 * stay in place until pushScope() comes back to it. A stack owns none of the text that it views.
 */
class NOLK_API XmlReaderNamespaceStack {
public:
    /** Opens an empty scope inside the others. */
    void pushScope() {
        if (depth_ < scopes_.size()) {
            scopes_[depth_].clear();
        } else if (scopes_.size() < scopes_.capacity()) {
            scopes_.emplace_back();
        } else {
            growScopes();
        }
        ++depth_;
    }

    /** Closes the innermost scope; nothing happens without one. */
    void popScope() {
        if (depth_ > 0) {
            --depth_;
        }
    }

    /** Binds in the innermost scope, which is opened first where there is none. Of two bindings of
     * one prefix in a scope the earlier one counts. */
    void addNamespace(const XmlReaderNamespace& binding);

    /** The URI of the innermost binding of `prefix`, or an empty view. */
    XmlReaderString getURIForPrefix(const XmlReaderString& prefix) const;

    /** The prefix of the innermost binding of `uri`, or an empty view. A binding may be hidden by
     * an inner one of the same prefix. */
    XmlReaderString getPrefixForURI(const XmlReaderString& uri) const;

    /** The number of open scopes. */
    std::uint32_t depth() const { return depth_; }

    /** The number of scopes ever opened, those popped and not yet reused among them. */
    std::uint32_t allocatedScopes() const { return static_cast<std::uint32_t>(scopes_.size()); }

    /** A scope by its index, outermost first. @pre `index` is below allocatedScopes(). */
    const XmlReaderNamespaceList& scope(std::uint32_t index) const { return scopes_[index]; }
    XmlReaderNamespaceList& scope(std::uint32_t index) { return scopes_[index]; }

private:
    void growScopes();

    std::uint32_t depth_ = 0;
    std::vector<XmlReaderNamespaceList> scopes_;
};

}  // namespace nolk

#endif
