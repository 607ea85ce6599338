// The input as bytes, which come back from their Base64, and as Base64, which is read alike by both
// ways to do it and refused for a character outside the alphabet only.
#include "FuzzInput.h"

#include <nolk/core/Base64Encoder.h>
#include <nolk/core/Exception.h>
#include <nolk/core/strings/Base64Codec.h>

#include <string>
#include <vector>

namespace {

using nolk::Base64Encoder;

void checkLines(const std::string& text) {
    std::size_t column = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r') {
            require(column == 72 && text[i + 1] == '\n', "a line has 72 characters");
            column = 0;
            ++i;
        } else {
            column += text[i] != '=';
        }
    }
    require(column < 72, "a full line is ended");
}

std::string encodePortably(const std::string& bytes) {
    std::vector<char> text(nolk::base64::encodedBound(bytes.size()));
    char* const end = nolk::base64::encodePortably(bytes.data(), bytes.size(), text.data());
    return std::string(text.data(), static_cast<std::size_t>(end - text.data()));
}

bool isRefused(const std::string& text) {
    const std::string alphabet =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/\r\n";
    return text.find_first_not_of(alphabet) != std::string::npos;
}

// Without white space and padding at the end, of which the encoder takes care before.
void checkDecoders(const std::string& text) {
    const std::vector<char> in(text.begin(), text.end());
    std::vector<char> first(nolk::base64::decodedBound(in.size()));
    std::vector<char> second(first.size());
    const char* const portable = nolk::base64::decodePortably(in.data(), in.size(), first.data());
    const char* const fast = nolk::base64::decode(in.data(), in.size(), second.data());
    require((portable == nullptr) == isRefused(text), "what is outside the alphabet is refused");
    require((fast == nullptr) == isRefused(text), "and by the fast decoder");
    if (portable != nullptr && fast != nullptr) {
        require(std::string(first.data(), portable - first.data()) ==
                    std::string(second.data(), fast - second.data()),
                "both ways read the same");
    }
}

void checkText(const std::string& text) {
    try {
        const std::string bytes = Base64Encoder::decode(text);
        require(Base64Encoder::decode(Base64Encoder::encode(bytes)) == bytes,
                "what was read comes back");
    } catch (const nolk::Exception&) {
        require(isRefused(text), "only what isn't all of the alphabet is refused");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input = FuzzInput(data, size).rest();
    const std::string text = Base64Encoder::encode(input);
    checkLines(text);
    require(text == encodePortably(input), "both ways write the same");
    require(Base64Encoder::decode(text) == input, "bytes come back");
    checkDecoders(input);
    checkText(input);
    return 0;
}
