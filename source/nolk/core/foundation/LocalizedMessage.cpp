#include <nolk/core/LocalizedMessage.h>

#include "nolk/core/foundation/NumberText.h"

// The search for further occurrences runs on in the argument, with positions that belong to the
// message. Deliberate: the built-in texts and their translations rely on what comes of it, as that
// a placeholder standing twice is filled once only. Such a position may lie behind the message's
// end; it then is no occurrence and no pair, and the call ends.

namespace nolk {

namespace {

// The one place that decides where the text of an id comes from.
const char* textOf(const MessageCatalogId& id) {
    return id.defaultText;
}

}  // namespace

LocalizedMessage::LocalizedMessage(const MessageCatalogId& id)
    : identifier_(id.key), message_(textOf(id)), nextArgument_(1) {}

LocalizedMessage::~LocalizedMessage() = default;

void LocalizedMessage::replace(const std::string& argument) {
    std::string saved = message_;
    try {
        if (!fillPlaceholder(argument)) {
            return;
        }
        ++nextArgument_;
        if (!keepsPairs(argument)) {
            collapsePairs();
        }
    } catch (...) {
        message_.swap(saved);
    }
}

// False if the search has left the message.
bool LocalizedMessage::fillPlaceholder(const std::string& argument) {
    const std::string placeholder = "%" + unsignedLongToString(nextArgument_) + "%";
    std::size_t pos = message_.find(placeholder);
    while (pos != std::string::npos) {
        if (pos > message_.size()) {
            return false;
        }
        if (pos == 0 || message_[pos - 1] != '%') {
            message_.replace(pos, placeholder.size(), argument);
        }
        pos = argument.find(placeholder, pos + 1);
    }
    return true;
}

// Whether the pairs stay because a percent sign that begins no pair comes before the search ends.
bool LocalizedMessage::keepsPairs(const std::string& argument) const {
    std::size_t pos = message_.find('%');
    while (pos != std::string::npos) {
        if (pos + 1 >= message_.size() || message_[pos + 1] != '%') {
            return true;
        }
        pos = argument.find('%', pos + 2);
    }
    return false;
}

void LocalizedMessage::collapsePairs() {
    std::size_t pos = message_.find("%%");
    while (pos != std::string::npos) {
        message_.replace(pos, 2, 1, '%');
        pos = message_.find("%%", pos + 1);
    }
}

void LocalizedMessage::replace(char argument) {
    const char text[] = {argument, '\0'};
    replace(std::string(text));
}

void LocalizedMessage::replace(unsigned char argument) {
    replace(static_cast<char>(argument));
}

void LocalizedMessage::replace(short argument) {
    replace(longToString(argument));
}

void LocalizedMessage::replace(unsigned short argument) {
    replace(longToString(argument));
}

void LocalizedMessage::replace(int argument) {
    replace(longToString(argument));
}

// Deliberate: large values show as negative numbers, whatever the width of `long`.
void LocalizedMessage::replace(unsigned int argument) {
    replace(longToString(static_cast<std::int32_t>(argument)));
}

void LocalizedMessage::replace(long argument) {
    replace(longToString(argument));
}

void LocalizedMessage::replace(unsigned long argument) {
    replace(unsignedLongToString(argument));
}

void LocalizedMessage::replace(long long argument) {
    replace(longLongToString(argument));
}

// Deliberate: as for `unsigned int`.
void LocalizedMessage::replace(unsigned long long argument) {
    replace(static_cast<long long>(argument));
}

void LocalizedMessage::replace(float argument) {
    replace(floatToString(argument));
}

void LocalizedMessage::replace(double argument) {
    replace(doubleToString(argument, 15));
}

void LocalizedMessage::replace(long double argument) {
    replace(longDoubleToString(argument));
}

}  // namespace nolk
