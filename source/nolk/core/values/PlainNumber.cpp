#include "nolk/core/values/PlainNumber.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace nolk {

namespace {

bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// The value of a hexadecimal digit; 16 and above for what is none.
int digitOf(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : 16;
}

void skipSpace(std::string_view& text) {
    while (!text.empty() && isSpace(text.front())) {
        text.remove_prefix(1);
    }
}

// Whether there is a minus sign; a plus sign is skipped as well.
bool takeSign(std::string_view& text) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    return negative;
}

bool beginsHexadecimal(std::string_view text) {
    if (!text.starts_with("0x") && !text.starts_with("0X")) {
        return false;
    }
    text.remove_prefix(2);
    if (text.starts_with('.')) {
        text.remove_prefix(1);
    }
    return !text.empty() && digitOf(text.front()) < 16;
}

// Whether a number that is out of the range of double is so because it is large.
bool isLarge(std::string_view number, int base) {
    constexpr std::int64_t limit = std::numeric_limits<std::int32_t>::max();
    std::int64_t places = 0;
    bool behindPoint = false;
    bool found = false;
    std::size_t at = 0;
    for (; at < number.size() && (number[at] == '.' || digitOf(number[at]) < base); ++at) {
        if (number[at] == '.') {
            behindPoint = true;
            continue;
        }
        found = found || number[at] != '0';
        if (found != behindPoint) {
            places += found ? 1 : -1;
        }
    }
    number.remove_prefix(std::min(at + 1, number.size()));
    const bool negative = takeSign(number);
    std::int64_t exponent = 0;
    for (const char c : number) {
        exponent = std::min(exponent * 10 + digitOf(c), limit);
    }
    return places * (base == 16 ? 4 : 1) + (negative ? -exponent : exponent) > 0;
}

}  // namespace

std::optional<std::uint32_t> takeUnsigned(std::string_view& text) noexcept {
    constexpr std::uint64_t limit = std::numeric_limits<std::uint32_t>::max();
    std::string_view rest = text;
    skipSpace(rest);
    const bool negative = takeSign(rest);
    if (rest.empty() || digitOf(rest.front()) > 9) {
        return std::nullopt;
    }
    std::uint64_t value = 0;
    bool over = false;
    while (!rest.empty() && digitOf(rest.front()) <= 9) {
        value = value * 10 + static_cast<std::uint64_t>(digitOf(rest.front()));
        over = over || value > limit;
        value = over ? limit : value;
        rest.remove_prefix(1);
    }
    text = rest;
    return static_cast<std::uint32_t>(negative && !over ? 0 - value : value);
}

std::optional<double> takeDouble(std::string_view& text) noexcept {
    std::string_view rest = text;
    skipSpace(rest);
    const bool negative = takeSign(rest);
    if (rest.starts_with('-')) {
        return std::nullopt;
    }
    const bool hexadecimal = beginsHexadecimal(rest);
    if (hexadecimal) {
        rest.remove_prefix(2);
    }
    double value = 0;
    const auto [end, error] =
        std::from_chars(rest.data(), rest.data() + rest.size(), value,
                        hexadecimal ? std::chars_format::hex : std::chars_format::general);
    if (error == std::errc::invalid_argument) {
        return std::nullopt;
    }
    const auto length = static_cast<std::size_t>(end - rest.data());
    if (error == std::errc::result_out_of_range) {
        const bool large = isLarge(rest.substr(0, length), hexadecimal ? 16 : 10);
        value = large ? std::numeric_limits<double>::infinity() : 0;
    }
    rest.remove_prefix(length);
    text = rest;
    return negative ? -value : value;
}

}  // namespace nolk
