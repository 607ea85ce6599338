#include <nolk/core/XmlNamespaceStack.h>

#include <nolk/core/XmlAttributeSet.h>
#include <nolk/core/XmlReaderNamespaceStack.h>

#include <algorithm>
#include <utility>

namespace nolk {

namespace {

using ScopeIterator = std::list<XmlNamespaceStack::Scope>::const_iterator;

// What the iterators of a stack without a scope run over.
const XmlNamespaceStack::Scope& noScope() {
    static const XmlNamespaceStack::Scope& scope = *new XmlNamespaceStack::Scope();
    return scope;
}

bool containsURIsOf(const XmlNamespaceStack::Scope& scope,
                    const XmlNamespaceStack::Scope& other) noexcept {
    return std::all_of(other.begin(), other.end(), [&scope](const XmlNamespace& ns) {
        return std::find(scope.begin(), scope.end(), ns) != scope.end();
    });
}

}  // namespace

XmlNamespaceStack::XmlNamespaceStack(const XmlNamespaceStack& other)
    : scopes_(ScopeIterator(other.innermost_), other.scopes_.end()),
      innermost_(scopes_.begin()),
      depth_(other.depth_) {}

XmlNamespaceStack& XmlNamespaceStack::operator=(const XmlNamespaceStack& other) {
    if (this != &other) {
        std::list<Scope> copy(ScopeIterator(other.innermost_), other.scopes_.end());
        scopes_.swap(copy);
        innermost_ = scopes_.begin();
        depth_ = other.depth_;
        recent_ = {};
        boundNumbers_ = 0;
    }
    return *this;
}

// Deliberate: not the live depth but every scope that was ever allocated. Callers know.
XmlNamespaceStack::XmlNamespaceStack(const XmlReaderNamespaceStack& stack) {
    for (std::uint32_t i = 0; i < stack.allocatedScopes(); ++i) {
        pushScope();
        const XmlReaderNamespaceList& scope = stack.scope(i);
        for (std::uint32_t j = 0; j < scope.length(); ++j) {
            addNamespace(XmlNamespace(scope[j]));
        }
    }
}

void XmlNamespaceStack::addNamespace(XmlNamespace ns) {
    if (depth_ == 0) {
        pushScope();
    }
    innermost_->insert(ns.getPrefix().empty() ? innermost_->begin() : innermost_->end(),
                       std::move(ns));
    recent_ = {};
}

const std::string& XmlNamespaceStack::getURIForPrefix(const std::string& prefix) const noexcept {
    const XmlNamespace* match = matchPrefix(prefix);
    return match != nullptr ? match->getURI() : XmlAttributeSet::EmptyString;
}

const std::string& XmlNamespaceStack::getPrefixForURI(const std::string& uri) const noexcept {
    const XmlNamespace* match = matchURI(uri, false);
    return match != nullptr ? match->getPrefix() : XmlAttributeSet::EmptyString;
}

bool XmlNamespaceStack::findPrefix(const std::string& prefix, std::string& uriOut) const {
    const XmlNamespace* match = matchPrefix(prefix);
    if (match == nullptr) {
        return false;
    }
    uriOut = match->getURI();
    return true;
}

bool XmlNamespaceStack::findURI(const std::string& uri, std::string& prefixOut,
                                bool skipDefault) const {
    const XmlNamespace* match = matchURI(uri, skipDefault);
    if (match == nullptr) {
        return false;
    }
    prefixOut = match->getPrefix();
    return true;
}

XmlNamespaceStack::const_iterator XmlNamespaceStack::getNamespaceIteratorBegin() const noexcept {
    return depth_ == 0 ? noScope().begin() : innermost_->begin();
}

XmlNamespaceStack::const_iterator XmlNamespaceStack::getNamespaceIteratorEnd() const noexcept {
    return depth_ == 0 ? noScope().end() : innermost_->end();
}

bool XmlNamespaceStack::operator==(const XmlNamespaceStack& other) const noexcept {
    return depth_ == other.depth_ &&
           std::equal(ScopeIterator(innermost_), scopes_.end(), other.innermost_, equalScopes);
}

bool XmlNamespaceStack::equalScopes(const Scope& a, const Scope& b) noexcept {
    return containsURIsOf(b, a) && containsURIsOf(a, b);
}

const XmlNamespace* XmlNamespaceStack::matchPrefix(const std::string& prefix) const noexcept {
    for (ScopeIterator scope = innermost_; scope != scopes_.end(); ++scope) {
        for (const XmlNamespace& ns : *scope) {
            if (ns.getPrefix() == prefix) {
                return &ns;
            }
        }
    }
    return nullptr;
}

const XmlNamespace* XmlNamespaceStack::matchURI(const std::string& uri,
                                                bool skipDefault) const noexcept {
    for (ScopeIterator scope = innermost_; scope != scopes_.end(); ++scope) {
        for (const XmlNamespace& ns : *scope) {
            if (ns.getURI() == uri && !(skipDefault && ns.getPrefix().empty())) {
                return &ns;
            }
        }
    }
    return nullptr;
}

void XmlNamespaceStack::clearInnermost() noexcept {
    innermost_->clear();
    recent_ = {};
    boundNumbers_ = 0;
}

}  // namespace nolk
