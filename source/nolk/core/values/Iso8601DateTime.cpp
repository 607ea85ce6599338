#include <nolk/core/Iso8601DateTime.h>

#include "nolk/core/values/Calendar.h"
#include "nolk/core/values/Iso8601Parser.h"

#include <cstdint>

namespace nolk {

namespace {

// The arithmetic is done in 64 bits, so that no argument overflows it.
using Wide = std::int64_t;

// Back to an `int`, modulo its range.
constexpr int narrow(Wide value) {
    return static_cast<int>(value);
}

// The day of a month on which a day of the year, counted from 0, falls.
constexpr int dayIn(int year, int month, int yday) {
    return narrow(Wide{yday} - calendar::daysBefore[calendar::isLeap(year)][month - 1] + 1);
}

// 0 for Sunday, of a day of a year, both from 1 on: the shorter way where the month isn't asked.
int sundayIsZero(std::uint32_t year, std::uint32_t yearDay) {
    const std::uint32_t before = year - 1;
    return static_cast<int>((before + before / 4 - before / 100 + before / 400 + yearDay) % 7);
}

}  // namespace

Iso8601DateTime::Iso8601DateTime(const char* text, Format format) noexcept {
    if (text != nullptr) {
        Iso8601Parser(*this, text).parse(format);
    }
}

void Iso8601DateTime::fill(std::tm* tm) const noexcept {
    if (tm == nullptr || !isValid()) {
        return;
    }
    const int itsMonth = month();
    const int itsDay = dayIn(year(), itsMonth, yearDay() - 1);
    tm->tm_sec = seconds();
    tm->tm_min = minutes();
    tm->tm_hour = hour();
    tm->tm_mday = itsDay;
    tm->tm_mon = itsMonth - 1;
    tm->tm_year = year() - 1900;
    tm->tm_wday =
        sundayIsZero(static_cast<std::uint32_t>(year()), static_cast<std::uint32_t>(yearDay()));
    // From 1 on, unlike what others put there: callers rely on it.
    tm->tm_yday = yearDay();
    tm->tm_isdst = -1;
}

bool Iso8601DateTime::isLeap(int year) noexcept {
    return calendar::isLeap(year);
}

int Iso8601DateTime::monthFromYDay(int year, int yday) noexcept {
    return calendar::monthOf(calendar::isLeap(year), yday);
}

int Iso8601DateTime::monthDayFromYDay(int year, int yday) noexcept {
    return dayFromYDay(year, yday);
}

int Iso8601DateTime::dayFromYDay(int year, int yday) noexcept {
    return dayIn(year, monthFromYDay(year, yday), yday);
}

int Iso8601DateTime::weekDay(int year, int yday) noexcept {
    const int month = monthFromYDay(year, yday);
    return calendar::weekDay(year, month, dayIn(year, month, yday));
}

int Iso8601DateTime::yearDayFromWeek(int& year, int week, int weekDay) noexcept {
    const Wide first = Iso8601DateTime::weekDay(year, 0);
    Wide day = Wide{week} * 7 + weekDay - 7 + ((first > 4 ? 8 : 1) - first);
    Wide itsYear = year;
    if (const int length = calendar::lengthOfYear(itsYear); day > length) {
        ++itsYear;
        day %= length;
    }
    if (day <= 0) {
        --itsYear;
        day += calendar::lengthOfYear(itsYear);
    }
    year = narrow(itsYear);
    return narrow(day);
}

int Iso8601DateTime::iso8601Week(int& year, int yday, int weekDay) noexcept {
    const Wide w = (Wide{weekDay} + 6) % 7;
    Wide itsYear = year;
    Wide day = yday;
    int length = 0;
    Wide start = 0;
    for (;;) {
        length = calendar::lengthOfYear(itsYear);
        // The days before the year's first Monday.
        const Wide r = (day - w + 7) % 7;
        start = day - r + (r >= 4 ? 7 : 0);
        if (start >= 0) {
            break;
        }
        --itsYear;
        day += calendar::lengthOfYear(itsYear);
    }
    if (length - day > 3 || day - length + 3 < w) {
        year = narrow(itsYear);
        return narrow(start + 7);
    }
    year = narrow(itsYear + 1);
    return narrow(w + 7);
}

}  // namespace nolk
