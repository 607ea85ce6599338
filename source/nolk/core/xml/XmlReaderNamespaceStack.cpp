#include <nolk/core/XmlReaderNamespaceStack.h>

namespace nolk {

void XmlReaderNamespaceStack::growScopes() {
    if (scopes_.empty()) {
        scopes_.reserve(8);  // as deep as most documents go
    }
    scopes_.emplace_back();
}

void XmlReaderNamespaceStack::addNamespace(const XmlReaderNamespace& binding) {
    if (depth_ == 0) {
        pushScope();  // an unmatched end tag can have closed the last one
    }
    scopes_[depth_ - 1].append(binding);
}

XmlReaderString XmlReaderNamespaceStack::getURIForPrefix(const XmlReaderString& prefix) const {
    for (std::uint32_t i = depth_; i-- > 0;) {
        for (const XmlReaderNamespace& binding : scopes_[i]) {
            if (binding.prefix == prefix) {
                return binding.uri;
            }
        }
    }
    return {};
}

XmlReaderString XmlReaderNamespaceStack::getPrefixForURI(const XmlReaderString& uri) const {
    for (std::uint32_t i = depth_; i-- > 0;) {
        for (const XmlReaderNamespace& binding : scopes_[i]) {
            if (binding.uri == uri) {
                return binding.prefix;
            }
        }
    }
    return {};
}

}  // namespace nolk
