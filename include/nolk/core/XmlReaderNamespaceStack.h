#ifndef NOLK_CORE_XML_READER_NAMESPACE_STACK_H
#define NOLK_CORE_XML_READER_NAMESPACE_STACK_H

#include <nolk/core/Export.h>
#include <nolk/core/XmlReaderNamespaceList.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace nolk {

/**
 * The namespace scopes of an XmlReader, innermost last, as views.
 *
 * Scopes are reused by index: popScope() only lowers the depth, and the bindings of a popped scope
 * stay in place until pushScope() comes back to it. A stack owns none of the text that it views.
 * What most documents need has its place in the stack itself; only deeper or fuller scopes
 * allocate. Copying copies all scopes, those popped among them.
 */
class NOLK_API XmlReaderNamespaceStack {
public:
    XmlReaderNamespaceStack() {}  // not defaulted: the room has no first value
    XmlReaderNamespaceStack(const XmlReaderNamespaceStack& other);
    XmlReaderNamespaceStack& operator=(const XmlReaderNamespaceStack& other);

    /** Opens an empty scope inside the others. */
    void pushScope() {
        if (depth_ < firstScopes) [[likely]] {
            first_[depth_].clear();
            if (++depth_ > allocated_) {
                allocated_ = depth_;
            }
        } else {
            pushDeeperScope();
        }
    }

    /** Closes the innermost scope; nothing happens without one. */
    void popScope() {
        if (depth_ > 0) {
            --depth_;
        }
    }

    /** Binds in the innermost scope, which is opened first where there is none. Of two bindings of
     * one prefix in a scope the earlier one counts. */
    void addNamespace(const XmlReaderNamespace& binding) {
        const XmlReaderNamespace copy = binding;  // it may lie in the slots that growth replaces
        const std::uint32_t innermost = depth_ - 1;
        const bool hasRoom =
            innermost < firstScopes && first_[innermost].length() < first_[innermost].capacity();
        (hasRoom ? first_[innermost] : makeRoom()).appendSlot() = copy;
    }

    /** The URI of the innermost binding of `prefix`, or an empty view. */
    XmlReaderString getURIForPrefix(const XmlReaderString& prefix) const;

    /** The prefix of the innermost binding of `uri`, or an empty view. A binding may be hidden by
     * an inner one of the same prefix. */
    XmlReaderString getPrefixForURI(const XmlReaderString& uri) const;

    /** The number of open scopes. */
    std::uint32_t depth() const { return depth_; }

    /** The number of scopes ever opened, those popped and not yet reused among them. */
    std::uint32_t allocatedScopes() const { return allocated_; }

    /** A scope by its index, outermost first. @pre `index` is below allocatedScopes(). */
    const XmlReaderNamespaceList& scope(std::uint32_t index) const {
        return index < firstScopes ? first_[index] : deeper_[index - firstScopes];
    }
    XmlReaderNamespaceList& scope(std::uint32_t index) {
        return index < firstScopes ? first_[index] : deeper_[index - firstScopes];
    }

private:
    static constexpr std::uint32_t firstScopes = 7;
    static constexpr std::uint32_t firstRoom = 3;  // the document's element declares most
    static constexpr std::uint32_t secondRoom = 2;

    void pushDeeperScope();
    XmlReaderNamespaceList& makeRoom();
    void lendRoom(XmlReaderNamespaceList& scope);

    std::uint32_t depth_ = 0;
    std::uint32_t allocated_ = 0;
    std::array<XmlReaderNamespaceList, firstScopes> first_;
    std::vector<XmlReaderNamespaceList> deeper_;

    // The first room of those of first_ that get bindings first.
    std::uint32_t lent_ = 0;
    alignas(
        XmlReaderNamespace) std::byte room_[(firstRoom + secondRoom) * sizeof(XmlReaderNamespace)];
};

}  // namespace nolk

#endif
