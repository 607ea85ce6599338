#include "nolk/core/values/LocaleDate.h"

#include "nolk/core/values/Calendar.h"
#include "nolk/core/values/EnglishNames.h"
#include "nolk/core/values/LocaleText.h"

#include <optional>

namespace nolk {

namespace {

using localetext::isDigit;

enum Part { day, month, year };

struct Field {
    Part part;
    int width;
};

// By the order of dates.
constexpr Field fields[4][3] = {
    {{day, 2}, {month, 2}, {year, 4}},
    {{month, 2}, {day, 2}, {year, 4}},
    {{year, 4}, {day, 2}, {month, 2}},
    {{year, 4}, {month, 2}, {day, 2}},
};

// A month's name in a text, with the blank behind it.
struct NamedMonth {
    int month = 0;  // from 1; 0 for none
    std::size_t begin = std::string_view::npos;
    std::size_t end = std::string_view::npos;
};

// The place of a word in any case. Where names are made of numbers, as Japanese ones are, "2" isn't
// found in "12" and "02".
std::size_t findWord(std::string_view text, std::string_view word) {
    for (std::size_t at = 0; !word.empty() && at + word.size() <= text.size(); ++at) {
        const bool cutsNumber = at > 0 && isDigit(text[at - 1]) && isDigit(word.front());
        if (!cutsNumber && english::sameWord(text.substr(at, word.size()), word)) {
            return at;
        }
    }
    return std::string_view::npos;
}

NamedMonth findMonth(const DateForm& form, std::string_view text) {
    for (const auto& names : {form.months, form.shortMonths}) {
        for (std::size_t index = names.size(); index-- > 0;) {
            const std::size_t at = findWord(text, names[index]);
            if (at != std::string_view::npos) {
                const std::size_t end = at + names[index].size();
                const bool blank = end < text.size() && text[end] == ' ';
                return {static_cast<int>(index) + 1, at, end + blank};
            }
        }
    }
    return {};
}

// Reads the numbers of a date around the name in it.
class NumberReader {
public:
    NumberReader(std::string_view text, const NamedMonth& name) : text_(text), name_(name) {}

    std::optional<int> next(int width) {
        while (at_ < text_.size() && (at_ == name_.begin || !isDigit(text_[at_]))) {
            at_ = at_ == name_.begin ? name_.end : at_ + 1;
        }
        if (at_ >= text_.size()) {
            return std::nullopt;
        }
        int value = 0;
        for (; width > 0 && isPartOfNumber(); --width) {
            value = value * 10 + (text_[at_++] - '0');
        }
        return value;
    }

private:
    bool isPartOfNumber() const {
        return at_ < text_.size() && at_ != name_.begin && isDigit(text_[at_]);
    }

    std::string_view text_;
    NamedMonth name_;
    std::size_t at_ = 0;
};

}  // namespace

bool readDate(const DateForm& form, std::string_view text, std::tm* tm) {
    const NamedMonth name = form.hasNames ? findMonth(form, text) : NamedMonth();
    NumberReader numbers(text, name);
    int values[3] = {};
    values[month] = name.month;
    for (const Field& field : fields[form.order]) {
        if (field.part == month && name.month != 0) {
            continue;
        }
        const std::optional<int> number = numbers.next(field.width);
        if (!number) {
            return false;
        }
        values[field.part] = *number;
    }
    if (numbers.next(1)) {
        return false;
    }
    if (values[year] < 100) {
        values[year] += 1900;
    }
    if (values[month] < 1 || values[month] > 12 || values[day] < 1 ||
        values[day] > calendar::lengthOfMonth(values[year], values[month] - 1)) {
        return false;
    }
    tm->tm_mday = values[day];
    tm->tm_mon = values[month] - 1;
    tm->tm_year = values[year] - 1900;
    return true;
}

}  // namespace nolk
