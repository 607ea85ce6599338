#include <nolk/core/Hash.h>

#include <algorithm>
#include <bit>
#include <cctype>
#include <cstddef>
#include <cstdint>

namespace nolk {

namespace {

// Widened with its sign on every platform, whatever the sign of `char`: part of the function.
std::uint32_t signedByte(char byte) {
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(static_cast<signed char>(byte)));
}

std::uint32_t unsignedByte(char byte) {
    return static_cast<unsigned char>(byte);
}

std::uint32_t littleEndianWord(const char* bytes) {
    return unsignedByte(bytes[0]) | unsignedByte(bytes[1]) << 8 | unsignedByte(bytes[2]) << 16 |
           unsignedByte(bytes[3]) << 24;
}

std::uint32_t mix(std::uint32_t hash, std::uint32_t word) {
    return std::rotl(hash, 5) ^ word;
}

}  // namespace

unsigned nolkStringHash(const std::string& text) noexcept {
    auto hash = static_cast<std::uint32_t>(text.size());
    const char* next = text.data();
    std::size_t left = text.size();
    for (; left >= 4; left -= 4, next += 4) {
        hash = mix(hash, littleEndianWord(next));
    }
    if (left == 0) {
        return hash;
    }
    std::uint32_t rest = 0;
    for (; left != 0; --left, ++next) {
        rest = rest << 8 | signedByte(*next);
    }
    return mix(hash, rest);
}

unsigned nolkCaseInsensitiveStringHash(const std::string& text) {
    std::string lowered = text;
    std::transform(lowered.begin(), lowered.end(), lowered.begin(),
                   [](unsigned char byte) { return static_cast<char>(std::tolower(byte)); });
    return nolkStringHash(lowered);
}

unsigned nolkIntHash(const int& value) noexcept {
    return static_cast<unsigned>(value);
}

}  // namespace nolk
