// A text, read in each of the formats.
#include "FuzzInput.h"

#include <nolk/core/Iso8601DateTime.h>

#include <cstring>
#include <ctime>
#include <string>

namespace {

using nolk::Iso8601DateTime;

constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

// What every valid value keeps to, worked out without its own arithmetic.
void checkFields(const Iso8601DateTime& value) {
    const int year = value.year();
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    require(year >= 1 && year <= 4095, "the year has twelve bits");
    require(value.century() * 100 + value.decade() * 10 + value.decadeYear() == year,
            "the digits make the year");
    int yearDay = value.day();
    for (int month = 1; month < value.month(); ++month) {
        yearDay += days[month - 1] + (month == 2 && leap);
    }
    require(yearDay == value.yearDay(), "month and day make the day of the year");
    // A leap year above 4095 may wrap to a common year, and its last day stays.
    const bool wrapped = yearDay == 366 && !leap;
    require(yearDay >= 1 && yearDay <= 365 + (leap || wrapped), "the day lies in the year");
    require(value.day() <= days[value.month() - 1] + (value.month() == 2 && leap) + wrapped,
            "the day lies in the month");
    require(value.hour() <= 100 && value.minutes() < 60 && value.seconds() < 60,
            "the time has hours, minutes and seconds");
    require(value.offset() % 60000 == 0 && value.offset() / 60000 >= -1024 &&
                value.offset() / 60000 < 1024,
            "the offset has eleven bits of minutes");
}

void checkFill(const Iso8601DateTime& value) {
    std::tm tm{};
    tm.tm_mday = -1;
    value.fill(&tm);
    if (!value.isValid()) {
        require(tm.tm_mday == -1, "what isn't valid fills nothing");
        return;
    }
    require(tm.tm_year + 1900 == value.year() && tm.tm_yday == value.yearDay() &&
                tm.tm_mon + 1 == value.month() && tm.tm_mday == value.day() &&
                tm.tm_wday == value.weekDay() % 7 && tm.tm_isdst == -1,
            "the date is filled in");
    require(
        tm.tm_hour == value.hour() && tm.tm_min == value.minutes() && tm.tm_sec == value.seconds(),
        "the time is filled in");
}

bool has(const std::string& text, const char* signs) {
    return text.find_first_of(signs) != std::string::npos;
}

// The format that the signs of a text speak for, told in another way.
int formatOf(const std::string& text) {
    const std::size_t lastT = text.rfind('T');
    const bool both = lastT != std::string::npos && lastT != 0;
    const bool date = both || has(text, "-W");
    const bool time = both || has(text, ",.:T");
    return date || time ? date + 2 * time : 4;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = FuzzInput(data, size).rest().c_str();
    const int format = formatOf(text);
    for (int number = 0; number <= 5; ++number) {
        const auto wanted = static_cast<Iso8601DateTime::Format>(number);
        const Iso8601DateTime value(text.c_str(), wanted);
        if (value.isValid()) {
            checkFields(value);
            require(number >= 1 && number <= 4, "other formats stay unset");
            require(number == 1 || !text.empty(), "the empty text stays unset");
        }
        checkFill(value);
        if (number == Iso8601DateTime::date && value.isValid()) {
            require(value.hour() == 0 && value.milliseconds() == 0 && !value.zone(),
                    "a date has neither time nor zone");
        }
        if (number == Iso8601DateTime::automatic && format != number) {
            // The clock may move on between the two readings of a truncated form.
            const auto found = static_cast<Iso8601DateTime::Format>(format);
            const Iso8601DateTime before(text.c_str(), found);
            const Iso8601DateTime again(text.c_str(), wanted);
            const Iso8601DateTime after(text.c_str(), found);
            require(again == before || again == after, "the format is found out");
        }
    }
    return 0;
}
