#ifndef NOLK_CORE_XML_NAMESPACE_STACK_H
#define NOLK_CORE_XML_NAMESPACE_STACK_H

#include <nolk/core/Export.h>
#include <nolk/core/XmlNamespace.h>

#include <cstddef>
#include <list>
#include <string>

namespace nolk {

class XmlReaderNamespaceStack;

/**
 * The namespace bindings in force at a place of a document: a stack of scopes, one for each open
 * element, each with the bindings made there.
 *
 * Searches go from the innermost scope to the outermost, and inside a scope from front to back;
 * the first match counts. So an inner binding hides an outer one, a default namespace added later
 * to a scope hides an earlier one of that scope, and of two bindings of one prefix in one scope
 * the earlier wins.
 *
 * A value that owns its bindings; not synchronised. References and iterators stay valid until
 * their scope is popped.
 */
class NOLK_API XmlNamespaceStack {
public:
    /** The bindings of one scope in search order. */
    using Scope = std::list<XmlNamespace>;
    using const_iterator = Scope::const_iterator;

    /** A stack without any scope. */
    XmlNamespaceStack() = default;
    XmlNamespaceStack(const XmlNamespaceStack& other);
    /** All or nothing. */
    XmlNamespaceStack& operator=(const XmlNamespaceStack& other);
    ~XmlNamespaceStack() = default;

    /**
     * Copies a reader's stack. Deliberate: scopes that the reader has popped and not yet used
     * again are copied as well and lie innermost, so convert where no deeper scope was popped.
     */
    XmlNamespaceStack(const XmlReaderNamespaceStack& stack);

    /** Opens an empty scope, the innermost from now on. */
    void pushScope() {
        if (innermost_ == scopes_.begin()) {
            scopes_.emplace_front();
        }
        --innermost_;
        ++depth_;
    }
    /** Drops the innermost scope; without any scope nothing happens. */
    void popScope() noexcept {
        if (depth_ != 0) {
            if (!innermost_->empty()) {
                clearInnermost();
            }
            ++innermost_;
            --depth_;
        }
    }
    /** The number of scopes. */
    std::size_t depth() const noexcept { return depth_; }

    /**
     * Adds to the innermost scope: a default namespace (one with no prefix) to the front, any
     * other to the back. Whether the prefix is bound there already isn't looked at.
     * @pre There is a scope. Without one, one is opened first.
     */
    void addNamespace(XmlNamespace ns);

    /** The URI of the first match, or XmlAttributeSet::EmptyString. */
    const std::string& getURIForPrefix(const std::string& prefix) const noexcept;
    /** The prefix of the first match, or XmlAttributeSet::EmptyString. */
    const std::string& getPrefixForURI(const std::string& uri) const noexcept;

    /**
     * Copies what belongs to the first match and gives true; false, and nothing is written, if
     * there is none. With `skipDefault` a default namespace doesn't match, as an attribute
     * can't use it.
     */
    bool findPrefix(const std::string& prefix, std::string& uriOut) const;
    bool findURI(const std::string& uri, std::string& prefixOut, bool skipDefault) const;

    /**
     * The bindings of the innermost scope, and of no other.
     * @pre There is a scope. Without one the range is empty.
     */
    const_iterator getNamespaceIteratorBegin() const noexcept;
    const_iterator getNamespaceIteratorEnd() const noexcept;

    /**
     * True if both have the same number of scopes, and each pair of scopes binds the same URIs.
     * Prefixes, order and repetitions in a scope don't count.
     */
    bool operator==(const XmlNamespaceStack& other) const noexcept;

protected:
    /** True if each URI of `a` is in `b` and each of `b` in `a`. */
    static bool equalScopes(const Scope& a, const Scope& b) noexcept;

private:
    friend class XmlWriter;

    /** What a writer found of late; forgotten when a binding is added or goes. */
    struct Recent {
        static constexpr std::size_t slots = 8;
        const XmlNamespace* byURI[2][slots] = {};  ///< first index: without default namespaces
        const XmlNamespace* defaultNamespace = nullptr;
        bool emptyURIUnbound = false;  ///< by anything but a default namespace
        bool defaultUnbound = false;
    };

    const XmlNamespace* matchPrefix(const std::string& prefix) const noexcept;
    const XmlNamespace* matchURI(const std::string& uri, bool skipDefault) const noexcept;

    void clearInnermost() noexcept;

    std::list<Scope> scopes_;  ///< empty ones kept for reuse, then the live ones, innermost first
    std::list<Scope>::iterator innermost_ = scopes_.end();
    std::size_t depth_ = 0;
    Recent recent_;
    unsigned int boundNumbers_ = 0;  ///< a writer found "ns1" to "ns<this>" bound; until one goes
};

}  // namespace nolk

#endif
