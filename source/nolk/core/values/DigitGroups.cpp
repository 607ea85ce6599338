#include "nolk/core/values/DigitGroups.h"

#include "nolk/core/values/LocaleText.h"

#include <climits>

namespace nolk {

namespace {

// The sizes of groups from the right on.
class GroupSizes {
public:
    explicit GroupSizes(std::string_view grouping) : grouping_(grouping) {}

    // The next one; npos for as many digits as there are.
    std::size_t next() {
        if (!grouping_.empty()) {
            size_ = sizeOf(grouping_.front());
            grouping_.remove_prefix(1);
            if (size_ == std::string_view::npos) {
                grouping_ = {};
            }
        }
        return size_;
    }

private:
    static std::size_t sizeOf(char size) {
        const int value = static_cast<signed char>(size);
        return value < 1 || size == CHAR_MAX ? std::string_view::npos
                                             : static_cast<std::size_t>(value);
    }

    std::string_view grouping_;
    std::size_t size_ = std::string_view::npos;
};

}  // namespace

void appendGrouped(std::string& text, std::string_view digits, std::string_view grouping,
                   std::string_view separator) {
    const std::size_t start = text.size();
    GroupSizes sizes(grouping);
    std::size_t size = sizes.next();
    while (digits.size() > size) {
        text.insert(start, digits.substr(digits.size() - size));
        text.insert(start, separator);
        digits.remove_suffix(size);
        size = sizes.next();
    }
    text.insert(start, digits);
}

bool DigitGroups::take(std::string_view& text, std::string_view separator, std::size_t most) {
    for (;;) {
        std::size_t length = 0;
        while (length < text.size() && localetext::isDigit(text[length])) {
            ++length;
        }
        digits += text.substr(0, length);
        text.remove_prefix(length);
        std::string_view rest = text;
        if (length == 0 || !localetext::take(rest, separator) ||
            !localetext::startsWithDigit(rest)) {
            return true;
        }
        if (separators.size() == most) {
            return false;
        }
        separators.push_back(digits.size());
        text = rest;
    }
}

bool DigitGroups::match(std::string_view grouping) const noexcept {
    if (separators.empty()) {
        return true;
    }
    GroupSizes sizes(grouping);
    std::size_t end = digits.size();
    for (auto at = separators.rbegin(); at != separators.rend(); ++at) {
        if (end - *at != sizes.next()) {
            return false;
        }
        end = *at;
    }
    return end <= sizes.next();
}

}  // namespace nolk
