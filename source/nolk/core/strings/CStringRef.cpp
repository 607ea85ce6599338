#include <nolk/core/CStringRef.h>

#include <nolk/core/CString.h>

#include <bit>
#include <cstddef>
#include <cstring>
#include <new>
#include <string_view>

#include "nolk/core/foundation/PieceHash.h"
#include "nolk/core/strings/ByteCase.h"

namespace nolk {

CStringRef* CStringRef::getRep(unsigned capacity, unsigned length) {
    // What stands in memory; debuggers know it too.
    static_assert(std::is_standard_layout_v<CStringRef>);
    static_assert(offsetof(CStringRef, capacity_) == 0);
    static_assert(offsetof(CStringRef, length_) == 4);
    static_assert(offsetof(CStringRef, references_) == 8);
    char* block = new char[sizeof(CStringRef) + std::size_t{capacity} + 1];
    auto* header = ::new (block) CStringRef(capacity, length);
    header->data()[length] = '\0';
    return header;
}

// Where getRep() is: a program may have an allocator of its own.
void CStringRef::destroy(CStringRef* buffer) noexcept {
    delete[] reinterpret_cast<char*>(buffer);
}

unsigned CStringRef::first(char c) const noexcept {
    const void* found = std::memchr(data(), c, length_);
    return found == nullptr ? CString::npos
                            : static_cast<unsigned>(static_cast<const char*>(found) - data());
}

unsigned CStringRef::last(char c) const noexcept {
    return static_cast<unsigned>(std::string_view(data(), length_).rfind(c));
}

unsigned CStringRef::hash() const noexcept {
    PieceHash hash(length_);
    hash.add(std::string_view(data(), length_));
    return hash.finish();
}

unsigned CStringRef::hashFoldCase() const noexcept {
    std::uint32_t hash = length_;
    for (const char c : std::string_view(data(), length_)) {
        hash = std::rotl(hash, 5) ^ static_cast<unsigned char>(upper(c));
    }
    return hash;
}

int CStringRef::collate(const char* text) const noexcept {
    return std::strcoll(data(), text == nullptr ? "" : text);
}

}  // namespace nolk
