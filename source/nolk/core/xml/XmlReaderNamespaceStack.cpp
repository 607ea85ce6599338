#include <nolk/core/XmlReaderNamespaceStack.h>

namespace nolk {

// Not the rooms: the copied scopes get memory of their own.
XmlReaderNamespaceStack::XmlReaderNamespaceStack(const XmlReaderNamespaceStack& other)
    : depth_(other.depth_),
      allocated_(other.allocated_),
      first_(other.first_),
      deeper_(other.deeper_) {}

XmlReaderNamespaceStack& XmlReaderNamespaceStack::operator=(const XmlReaderNamespaceStack& other) {
    first_ = other.first_;
    deeper_ = other.deeper_;
    depth_ = other.depth_;
    allocated_ = other.allocated_;
    return *this;
}

void XmlReaderNamespaceStack::pushDeeperScope() {
    if (depth_ < allocated_) {
        deeper_[depth_ - firstScopes].clear();
    } else {
        deeper_.emplace_back();
        allocated_ = depth_ + 1;
    }
    ++depth_;
}

void XmlReaderNamespaceStack::lendRoom(XmlReaderNamespaceList& scope) {
    if (lent_ == firstRoom + secondRoom) {
        return;
    }
    const std::uint32_t size = lent_ == 0 ? firstRoom : secondRoom;
    scope.lendRoom(room_ + lent_ * sizeof(XmlReaderNamespace), size);
    lent_ += size;
}

// The innermost scope, in which there may be room now.
XmlReaderNamespaceList& XmlReaderNamespaceStack::makeRoom() {
    if (depth_ == 0) {
        pushScope();  // an unmatched end tag can have closed the last one
    }
    XmlReaderNamespaceList& innermost = scope(depth_ - 1);
    if (innermost.capacity() == 0 && depth_ <= firstScopes) {
        lendRoom(innermost);
    }
    return innermost;
}

XmlReaderString XmlReaderNamespaceStack::getURIForPrefix(const XmlReaderString& prefix) const {
    for (std::uint32_t i = depth_; i-- > 0;) {
        for (const XmlReaderNamespace& binding : scope(i)) {
            if (binding.prefix == prefix) {
                return binding.uri;
            }
        }
    }
    return {};
}

XmlReaderString XmlReaderNamespaceStack::getPrefixForURI(const XmlReaderString& uri) const {
    for (std::uint32_t i = depth_; i-- > 0;) {
        for (const XmlReaderNamespace& binding : scope(i)) {
            if (binding.uri == uri) {
                return binding.prefix;
            }
        }
    }
    return {};
}

}  // namespace nolk
