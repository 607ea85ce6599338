// A format is learnt from what it makes of one moment. The sample "11/30/90", for one, loses "90",
// then "11", then "30", as the table of components goes:
//
//     "11/30/90"    "11/30/"      "/30/"       "//"
//                   y at 6        m at 0       m at 0
//                                 y at 4       d at 1
//                                              y at 2
//
// Offsets count in the text that is left, so those behind a cut move up by its length.

#include "nolk/core/values/TimeFormatProbe.h"

#include "nolk/core/values/LocaleText.h"

#include <algorithm>
#include <initializer_list>
#include <limits>

namespace nolk {

namespace {

void insert(LocaleTimeFormat& format, int component, int offset, int length) {
    QXTimeFmtList** place = &format.components;
    while (*place != nullptr && (*place)->offset <= offset) {
        place = &(*place)->next;
    }
    *place = new QXTimeFmtList{*place, component, offset};
    for (QXTimeFmtList* node = (*place)->next; node != nullptr; node = node->next) {
        // One inside the cut stays at its edge.
        node->offset = std::max(offset, node->offset - length);
    }
}

// The component without its padding.
std::size_t plainOf(int component) {
    const int plain = component == paddedDay     ? dayOfMonth
                      : component == paddedMonth ? monthNumber
                                                 : component;
    return static_cast<std::size_t>(plain);
}

// Where a node's component begins in the sample.
std::size_t placeInSample(const LocaleTimeFormat& format, const QXTimeFmtList& node,
                          std::span<const std::string> texts) {
    auto place = static_cast<std::size_t>(node.offset);
    for (const QXTimeFmtList* before = format.components; before != &node; before = before->next) {
        place += texts[plainOf(before->component)].size();
    }
    return place;
}

// The place of the first of some components in the list, counted from 1; 0 if there is none.
int placeOf(const LocaleTimeFormat& format, std::initializer_list<TimeComponent> components) {
    int place = 1;
    for (const QXTimeFmtList* node = format.components; node != nullptr; node = node->next) {
        if (std::find(components.begin(), components.end(), node->component) != components.end()) {
            return place;
        }
        ++place;
    }
    return 0;
}

}  // namespace

void learnFormat(LocaleTimeFormat& format, std::string_view sample,
                 std::span<const std::string> texts) {
    format.text = sample;
    for (std::size_t component = 0; component < texts.size(); ++component) {
        const std::string& text = texts[component];
        const std::size_t at = text.empty() ? std::string::npos : format.text.find(text);
        if (at != std::string::npos) {
            format.text.erase(at, text.size());
            insert(format, static_cast<int>(component), static_cast<int>(at),
                   static_cast<int>(text.size()));
        }
    }
}

void learnPadding(LocaleTimeFormat& format, TimeComponent plain, TimeComponent padded,
                  std::string_view sample, std::string_view other,
                  std::span<const std::string> texts) noexcept {
    for (QXTimeFmtList* node = format.components; node != nullptr; node = node->next) {
        if (node->component != plain) {
            continue;
        }
        const std::size_t at = placeInSample(format, *node, texts);
        if (at < sample.size() && at < other.size() && localetext::isDigit(sample[at]) &&
            other[at] == ' ') {
            node->component = padded;
        }
        return;
    }
}

int dateOrderOf(const LocaleTimeFormat& date) noexcept {
    const int year = placeOf(date, {fullYear, shortYear});
    const int month = placeOf(date, {monthNumber, monthName, shortMonthName, paddedMonth});
    const int day = placeOf(date, {dayOfMonth, paddedDay});
    const int yearOrEnd = year == 0 ? std::numeric_limits<int>::max() : year;
    return (yearOrEnd < month ? 2 : 0) + (month < day ? 1 : 0);
}

}  // namespace nolk
