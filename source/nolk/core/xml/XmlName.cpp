#include <nolk/core/XmlName.h>

#include <bit>
#include <cstdint>

namespace nolk {

namespace {

// The same function as nolkStringHash(), fed piece by piece: h starts at the length of the whole,
// each four bytes are folded in as a little-endian word, and what is left at the end byte by byte.
class PieceHash {
public:
    explicit PieceHash(std::size_t totalLength) : h_(static_cast<std::uint32_t>(totalLength)) {}

    void add(std::string_view piece) {
        for (const char c : piece) {
            pending_[count_++] = static_cast<unsigned char>(c);
            if (count_ == sizeof pending_) {
                fold(pending_[0] | std::uint32_t{pending_[1]} << 8 |
                     std::uint32_t{pending_[2]} << 16 | std::uint32_t{pending_[3]} << 24);
                count_ = 0;
            }
        }
    }

    std::uint32_t finish() {
        if (count_ != 0) {
            std::uint32_t rest = 0;
            for (unsigned int i = 0; i < count_; ++i) {
                rest = rest << 8 | signExtended(pending_[i]);
            }
            fold(rest);
        }
        return h_;
    }

private:
    // A byte of 0x80 or above sets all the higher bits. That is part of the function: the values
    // would change without it.
    static std::uint32_t signExtended(unsigned char byte) {
        return static_cast<std::uint32_t>(std::int32_t{static_cast<std::int8_t>(byte)});
    }

    void fold(std::uint32_t word) { h_ = std::rotl(h_, 5) ^ word; }

    std::uint32_t h_;
    unsigned int count_ = 0;
    unsigned char pending_[4] = {};
};

}  // namespace

void XmlName::assign(std::string_view localName, std::string_view prefix, std::string_view uri) {
    localName_.assign(localName);
    namespace_.prefix_.assign(prefix);
    namespace_.uri_.assign(uri);
}

int XmlName::compareTo(const XmlName& other) const noexcept {
    const int byLocalName = localName_.compare(other.localName_);
    return byLocalName != 0 ? byLocalName : namespace_.compareTo(other.namespace_);
}

std::string XmlName::getQualifiedName() const {
    const std::string& prefix = namespace_.getPrefix();
    if (prefix.empty()) {
        return localName_;
    }
    std::string name;
    name.reserve(prefix.size() + 1 + localName_.size());
    return name.append(prefix).append(":").append(localName_);
}

std::string XmlName::getUniqueName() const {
    const std::string& uri = namespace_.getURI();
    if (uri.empty()) {
        return localName_;
    }
    std::string name;
    name.reserve(uri.size() + 2 + localName_.size());
    return name.append(uri).append("::").append(localName_);
}

unsigned int nolkXmlNameHash(const XmlName& name) noexcept {
    const std::string& uri = name.getNamespace().getURI();
    const std::string_view separator = uri.empty() ? "" : "::";
    PieceHash hash(uri.size() + separator.size() + name.getLocalName().size());
    hash.add(uri);
    hash.add(separator);
    hash.add(name.getLocalName());
    return hash.finish();
}

}  // namespace nolk
