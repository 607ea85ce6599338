#ifndef NOLK_CORE_XML_XML_READER_REBASE_H
#define NOLK_CORE_XML_XML_READER_REBASE_H

#include <nolk/core/XmlReaderAttributeList.h>
#include <nolk/core/XmlReaderName.h>
#include <nolk/core/XmlReaderNamespaceStack.h>

#include <cstddef>
#include <cstdint>

namespace nolk {

/**
 * Moves views and positions from a replaced buffer into the current one.
 *
 * What lies in the old buffer comes to the same distance from the start of the content, and not
 * beyond the end: all that a reader has passed is the same in both. Other views stay. Addresses
 * are compared as numbers, since the old buffer may be gone.
 */
class XmlReaderRebase {
public:
    XmlReaderRebase(const char* oldStart, const char* oldBegin, const char* oldLast, char* newStart,
                    char* newLast)
        : oldStart_(address(oldStart)),
          oldBegin_(address(oldBegin)),
          oldEnd_(address(oldLast) + 1),
          newStart_(newStart),
          newEnd_(newLast + 1) {}

    void operator()(XmlReaderString& view) const {
        if (address(view.data) < oldBegin_ || address(view.data) > oldEnd_) {
            return;
        }
        char* data = position(view.data);
        const auto room = static_cast<std::size_t>(newEnd_ - data);
        view.length = room < view.length ? static_cast<std::uint32_t>(room) : view.length;
        view.data = data;
    }

    void operator()(XmlReaderName& name) const {
        (*this)(name.localName);
        (*this)(name.prefix);
        (*this)(name.uri);
    }

    void operator()(XmlReaderAttributeList& attributes) const {
        for (std::uint32_t i = 0; i < attributes.length(); ++i) {
            (*this)(attributes[i].name);
            (*this)(attributes[i].value);
        }
    }

    void operator()(XmlReaderNamespaceStack& stack) const {
        for (std::uint32_t i = 0; i < stack.allocatedScopes(); ++i) {
            XmlReaderNamespaceList& scope = stack.scope(i);
            for (std::uint32_t j = 0; j < scope.length(); ++j) {
                (*this)(scope[j].prefix);
                (*this)(scope[j].uri);
            }
        }
    }

    /** Where a position in the old buffer comes to. */
    char* position(const char* old) const {
        const auto offset = static_cast<std::intptr_t>(address(old) - oldStart_);
        const std::intptr_t room = newEnd_ - newStart_;
        return newStart_ + (offset < room ? offset : room);
    }

private:
    static std::uintptr_t address(const char* p) { return reinterpret_cast<std::uintptr_t>(p); }

    std::uintptr_t oldStart_;
    std::uintptr_t oldBegin_;
    std::uintptr_t oldEnd_;
    char* newStart_;
    char* newEnd_;
};

}  // namespace nolk

#endif
