#include "nolk/core/values/LocaleTime.h"

#include "nolk/core/values/EnglishNames.h"
#include "nolk/core/values/LocaleText.h"

#include <algorithm>
#include <optional>

namespace nolk {

namespace {

using localetext::skipSpace;
using localetext::startsWithDigit;

enum HalfOfDay { none, forenoon, afternoon };

bool takeMarker(std::string_view& text, std::string_view marker) {
    if (marker.empty() || !english::sameWord(text.substr(0, marker.size()), marker)) {
        return false;
    }
    text.remove_prefix(marker.size());
    return true;
}

HalfOfDay takeHalfOfDay(const TimeForm& form, std::string_view& text) {
    skipSpace(text);
    if (takeMarker(text, form.am)) {
        return forenoon;
    }
    return takeMarker(text, form.pm) ? afternoon : none;
}

// One or two digits.
std::optional<int> takeNumber(std::string_view& text) {
    if (!startsWithDigit(text)) {
        return std::nullopt;
    }
    int value = 0;
    for (int width = 2; width > 0 && startsWithDigit(text); --width) {
        value = value * 10 + (text.front() - '0');
        text.remove_prefix(1);
    }
    return value;
}

// The locale's separator behind this component of its times, counted from 0.
std::string_view separatorBehind(const LocaleTimeFormat& format, int index) {
    const QXTimeFmtList* node = format.components;
    for (; index > 0 && node != nullptr; --index) {
        node = node->next;
    }
    if (node == nullptr || node->next == nullptr) {
        return {};
    }
    const auto begin = static_cast<std::size_t>(node->offset);
    return std::string_view(format.text)
        .substr(begin, static_cast<std::size_t>(node->next->offset) - begin);
}

// How much text the locale has behind the last component.
std::size_t tailLength(const LocaleTimeFormat& format) {
    std::size_t length = 0;
    for (const QXTimeFmtList* node = format.components; node != nullptr; node = node->next) {
        length = format.text.size() - static_cast<std::size_t>(node->offset);
    }
    return length;
}

// All up to the next digit, if it is a separator; one of no length never is.
bool takeSeparator(std::string_view& text, std::string_view known) {
    const std::size_t length = std::min(text.find_first_of("0123456789"), text.size());
    const std::string_view piece = text.substr(0, length);
    if (piece.empty() || (piece.front() != '.' && piece.front() != ':' && piece != known)) {
        return false;
    }
    text.remove_prefix(length);
    return true;
}

// The seconds, 0 if there are none; nothing if a separator has no number behind it.
std::optional<int> takeSeconds(const TimeForm& form, bool separated, std::string_view& text) {
    if (separated && !takeSeparator(text, separatorBehind(form.format, 1))) {
        return 0;
    }
    return separated || startsWithDigit(text) ? takeNumber(text) : 0;
}

void skipTail(const LocaleTimeFormat& format, std::string_view& text) {
    constexpr std::string_view blanks = " \t\n";
    if (!text.empty() && blanks.find(text.front()) == std::string_view::npos) {
        text.remove_prefix(std::min(tailLength(format), text.size()));
    }
}

// The hour of 24 by one of 12; nothing if there is no such hour.
std::optional<int> hourOf(int hour, HalfOfDay half) {
    if (half == none) {
        return hour > 23 ? std::nullopt : std::optional(hour);
    }
    if (hour < 1 || hour > 12) {
        return std::nullopt;
    }
    return hour % 12 + (half == afternoon ? 12 : 0);
}

struct ClockTime {
    int hour;
    int minute;
    int second;
};

// What is told by hour and half of the day is still to be put together.
std::optional<ClockTime> takeTime(const TimeForm& form, std::string_view& text) {
    const std::optional<int> hour = takeNumber(text);
    if (!hour) {
        return std::nullopt;
    }
    const bool separated = takeSeparator(text, separatorBehind(form.format, 0));
    const std::optional<int> minute = takeNumber(text);
    if (!minute) {
        return std::nullopt;
    }
    const std::optional<int> second = takeSeconds(form, separated, text);
    if (!second) {
        return std::nullopt;
    }
    return ClockTime{*hour, *minute, *second};
}

}  // namespace

bool readTime(const TimeForm& form, std::string_view text, std::tm* tm) {
    const HalfOfDay before = takeHalfOfDay(form, text);
    const std::optional<ClockTime> time = takeTime(form, text);
    if (!time) {
        return false;
    }
    skipTail(form.format, text);
    const HalfOfDay behind = takeHalfOfDay(form, text);
    if (!text.empty() || (before != none && behind != none)) {
        return false;
    }
    const std::optional<int> hour = hourOf(time->hour, before != none ? before : behind);
    if (!hour || time->minute > 59 || time->second > 59) {
        return false;
    }
    tm->tm_hour = *hour;
    tm->tm_min = time->minute;
    tm->tm_sec = time->second;
    return true;
}

}  // namespace nolk
