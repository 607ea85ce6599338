#include <nolk/core/Base64Encoder.h>
#include <nolk/core/Exception.h>
#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>

#include "nolk/core/strings/Base64Codec.h"

#include <algorithm>
#include <cctype>

namespace nolk {

namespace {

// What is left without white space and then pad characters at the end.
std::size_t lengthOfData(const std::string& text) {
    std::size_t length = text.size();
    while (length > 0 && std::isspace(static_cast<unsigned char>(text[length - 1])) != 0) {
        --length;
    }
    while (length > 0 && text[length - 1] == '=') {
        --length;
    }
    return length;
}

// Cuts a text that was written in place to what was written.
void cut(std::string& text, const char* end) {
    text.resize(static_cast<std::size_t>(end - text.data()));
}

}  // namespace

std::string Base64Encoder::encode(const std::string& input) {
    const std::size_t length = input.size();
    // Half as much again is enough but for 13 bytes, which need 20 characters.
    constexpr std::size_t least = 16;
    std::string text(std::max({length + length / 2, base64::encodedBound(length), least}), '\0');
    cut(text, base64::encode(input.data(), length, text.data()));
    return text;
}

std::string Base64Encoder::decode(const std::string& input) {
    const std::size_t length = lengthOfData(input);
    std::string bytes(base64::decodedBound(length), '\0');
    const char* const end = base64::decode(input.data(), length, bytes.data());
    if (end == nullptr) {
        throw Exception(here(), message(NOLK_CORE_INVALID_BASE64));
    }
    cut(bytes, end);
    return bytes;
}

}  // namespace nolk
