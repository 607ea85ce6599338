#include "nolk/core/values/HttpDate.h"

#include "nolk/core/values/EnglishNames.h"

#include <cstdint>
#include <limits>

namespace nolk {

namespace {

constexpr int maxWords = 6;

// Takes the next word between runs of delimiters off the text; empty if there is none.
std::string_view takeWord(std::string_view& text, std::string_view delimiters) {
    const auto start = text.find_first_not_of(delimiters);
    text.remove_prefix(start == std::string_view::npos ? text.size() : start);
    const std::string_view word = text.substr(0, text.find_first_of(delimiters));
    text.remove_prefix(word.size());
    return word;
}

bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// The number at the front of a text, as `atoi` reads it; 0 if there is none. It stops at the ends
// of 32 bits, and a negative number comes out modulo their range.
unsigned numberOf(std::string_view text) {
    constexpr std::int64_t limit = std::numeric_limits<std::int32_t>::max();
    while (!text.empty() && isSpace(text.front())) {
        text.remove_prefix(1);
    }
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    std::int64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') {
            break;
        }
        value = value * 10 + (c - '0');
        if (value > limit) {
            value = limit + negative;
            break;
        }
    }
    return static_cast<unsigned>(negative ? -value : value);
}

unsigned nearestYear(unsigned year, unsigned presentYear) {
    const unsigned century = presentYear / 100 * 100;
    return presentYear % 100 + 50 <= year ? year + century - 100 : year + century;
}

void readTime(std::string_view text, HttpDate& date) {
    date.hour = numberOf(takeWord(text, ":"));
    date.minute = numberOf(takeWord(text, ":"));
    date.second = numberOf(takeWord(text, ":"));
}

}  // namespace

std::optional<HttpDate> readHttpDate(std::string_view text, unsigned presentYear) noexcept {
    std::string_view words[maxWords];
    int count = 0;
    while (count < maxWords && !(words[count] = takeWord(text, " \t\n")).empty()) {
        ++count;
    }
    HttpDate date{};
    std::string_view day, month, year, time;
    switch (count) {
        case 4: {
            std::string_view rest = words[1];
            day = takeWord(rest, "-");
            month = takeWord(rest, "-");
            year = takeWord(rest, "-");
            time = words[2];
            date.year = nearestYear(numberOf(year), presentYear);
            break;
        }
        case 5:
            day = words[2];
            month = words[1];
            time = words[3];
            date.year = numberOf(words[4]);
            break;
        case 6:
            day = words[1];
            month = words[2];
            time = words[4];
            date.year = numberOf(words[3]);
            break;
        default:
            return std::nullopt;
    }
    date.day = numberOf(day);
    date.month = english::monthIndex(month);
    readTime(time, date);
    return date.month == 0 ? std::nullopt : std::optional(date);
}

}  // namespace nolk
