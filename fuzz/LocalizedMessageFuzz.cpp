// A message text and its arguments from the input: the length of the text, the text, and then for
// each argument its type and its bytes.
#include "FuzzInput.h"

#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageCatalogId.h>

#include <cstring>
#include <string>

namespace {

using nolk::LocalizedMessage;

constexpr int mostArguments = 12;

template <typename Number>
void replaceWith(LocalizedMessage& message, FuzzInput& input) {
    // No bytes of a long double at random: half of them are no value at all.
    Number number{};
    const std::string bytes = input.text(sizeof(Number));
    std::memcpy(&number, bytes.data(), bytes.size());
    message.replace(number);
}

void replaceWithLongDouble(LocalizedMessage& message, FuzzInput& input) {
    double number = 0;
    const std::string bytes = input.text(sizeof number);
    std::memcpy(&number, bytes.data(), bytes.size());
    const long double wide = number;
    message.replace(wide * wide * wide * wide);
}

void replaceOnce(LocalizedMessage& message, FuzzInput& input) {
    switch (input.byte() & 15) {
        case 0:
            return replaceWith<char>(message, input);
        case 1:
            return replaceWith<unsigned char>(message, input);
        case 2:
            return replaceWith<short>(message, input);
        case 3:
            return replaceWith<unsigned short>(message, input);
        case 4:
            return replaceWith<int>(message, input);
        case 5:
            return replaceWith<unsigned>(message, input);
        case 6:
            return replaceWith<long>(message, input);
        case 7:
            return replaceWith<unsigned long>(message, input);
        case 8:
            return replaceWith<long long>(message, input);
        case 9:
            return replaceWith<unsigned long long>(message, input);
        case 10:
            return replaceWith<float>(message, input);
        case 11:
            return replaceWith<double>(message, input);
        case 12:
            return replaceWithLongDouble(message, input);
        default:
            return message.replace(input.text(input.byte()));
    }
}

// One placeholder and no other percent sign, in text and argument: there the result is plain.
void checkPlainCase(const std::string& text, const std::string& argument) {
    const std::size_t at = text.find("%1%");
    if (at == std::string::npos || argument.find('%') != std::string::npos) {
        return;
    }
    const std::string before = text.substr(0, at);
    const std::string behind = text.substr(at + 3);
    if ((before + behind).find('%') == std::string::npos) {
        LocalizedMessage message(nolk::MessageCatalogId("FUZZ", "PLAIN", text.c_str()));
        message.replace(argument);
        require(message.getMessage() == before + argument + behind, "the argument is put in");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const std::string text = input.text(input.byte()).c_str();
    const bool hasPercent = text.find('%') != std::string::npos;
    LocalizedMessage message(nolk::MessageCatalogId("FUZZ", "KEY", text.c_str()));
    require(message.getMessage() == text, "a message starts with its text");
    checkPlainCase(text, FuzzInput(input).text(64));
    for (int i = 0; i < mostArguments && !input.empty(); ++i) {
        LocalizedMessage copy(message);
        FuzzInput again(input);
        replaceOnce(message, input);
        replaceOnce(copy, again);
        require(copy.getMessage() == message.getMessage(), "a copy goes on at the same place");
        require(hasPercent || message.getMessage() == text, "a text without percent signs stays");
        require(message.getIdentifier() == "KEY", "the key stays");
    }
    return 0;
}
