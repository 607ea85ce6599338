// The input as bytes, which come back from their quoted-printable form, and as such a form, which
// is always read, and the same again once it was written.
#include "FuzzInput.h"

#include <nolk/core/QuotedPrintableEncoder.h>

#include <string>

namespace {

using nolk::QuotedPrintableEncoder;

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

void checkTransport(const std::string& text) {
    std::size_t column = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r') {
            require(text[i + 1] == '\n', "a CR is part of a line break");
            require(i == 0 || !isBlank(text[i - 1]), "no line ends in a blank");
            column = 0;
            ++i;
        } else {
            require(text[i] == '\t' || (text[i] >= ' ' && text[i] <= '~'), "a line is plain text");
            require(++column <= 75, "a line is short");
        }
    }
    require(text.empty() || !isBlank(text.back()), "the text doesn't end in a blank");
}

// Blanks are all that stripping takes away.
void checkStripping(const std::string& kept, const std::string& stripped) {
    std::size_t next = 0;
    for (const char c : kept) {
        if (next < stripped.size() && stripped[next] == c) {
            ++next;
        } else {
            require(isBlank(c), "only blanks are stripped");
        }
    }
    require(next == stripped.size(), "nothing is added");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input = FuzzInput(data, size).rest();
    const std::string text = QuotedPrintableEncoder::encode(input);
    checkTransport(text);
    require(QuotedPrintableEncoder::decode(text, false) == input, "bytes come back");

    const std::string bytes = QuotedPrintableEncoder::decode(input, false);
    require(bytes.size() <= input.size(), "reading never adds");
    require(QuotedPrintableEncoder::decode(QuotedPrintableEncoder::encode(bytes), false) == bytes,
            "what was read comes back");
    checkStripping(bytes, QuotedPrintableEncoder::decode(input, true));
    return 0;
}
