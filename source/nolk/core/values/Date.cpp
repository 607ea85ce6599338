#include <nolk/core/Date.h>

#include <nolk/core/Locale.h>
#include <nolk/core/TimeZone.h>

#include "nolk/core/platform/Zone.h"
#include "nolk/core/values/CivilTime.h"
#include "nolk/core/values/DigitText.h"
#include "nolk/core/values/JulianDay.h"

#include <limits>
#include <ostream>

namespace nolk {

namespace {

// The number of a day by the locale's date parser, 0 if that fails.
unsigned long readJulian(const std::string& text, const Locale& locale) {
    std::tm tm{};
    return locale.stringToDate(text, &tm) ? Date(&tm).julian() : 0;
}

unsigned long dayOfYear(unsigned day, unsigned year) {
    if (year == 0) {
        return julian::from1901 + static_cast<unsigned long>(day);
    }
    const unsigned long before = Date::jday(12, 31, year - 1);
    return before == 0 ? 0 : before + day;
}

}  // namespace

Date::Date() noexcept : Date(0UL) {
    const std::tm today = platform::localTimeNow();
    julian_ = Date(&today).julian_;
}

Date::Date(unsigned day, unsigned year) noexcept : julian_(dayOfYear(day, year)) {}

Date::Date(unsigned day, unsigned month, unsigned year) noexcept
    : julian_(jday(month, day, year)) {}

Date::Date(const struct tm* tm) noexcept
    : julian_(jday(static_cast<unsigned>(tm->tm_mon) + 1, static_cast<unsigned>(tm->tm_mday),
                   static_cast<unsigned>(tm->tm_year) + 1900)) {}

Date::Date(const std::string& text, const Locale& locale) : julian_(readJulian(text, locale)) {}

Date::Date(unsigned day, const char* monthName, unsigned year, const Locale& locale)
    : julian_(jday(indexOfMonth(monthName, locale), day, year)) {}

unsigned Date::day() const noexcept {
    const Civil today = civil();
    return julian::daysBefore(today.month, julian::isLeap(today.year)) + today.day;
}

bool Date::leap() const noexcept {
    return julian::isLeap(civil().year);
}

unsigned Date::firstDayOfMonth(unsigned month) const noexcept {
    return assertIndexOfMonth(month) ? julian::daysBefore(month, leap()) + 1 : 0;
}

std::string Date::monthName(const Locale& locale) const {
    return nameOfMonth(month(), locale);
}

std::string Date::weekDayName(const Locale& locale) const {
    return weekDayName(weekDay(), locale);
}

void Date::extract(struct tm* tm) const noexcept {
    if (!isValid()) {
        clobber(tm);
        return;
    }
    const Civil today = civil();
    tm->tm_sec = tm->tm_min = tm->tm_hour = 0;
    tm->tm_mday = static_cast<int>(today.day);
    tm->tm_mon = static_cast<int>(today.month - 1);
    tm->tm_year = today.year - 1900;
    tm->tm_wday = static_cast<int>((julian_ % 7 + 1) % 7);
    tm->tm_yday = static_cast<int>(day()) - 1;
    tm->tm_isdst = -1;
}

Date Date::next(unsigned weekday) const noexcept {
    const auto today = static_cast<unsigned>(julian_ % 7);
    return Date(julian_ + 1 + (weekday - today + 5) % 7);
}

Date Date::next(const char* weekday, const Locale& locale) const {
    const unsigned n = dayOfWeek(weekday, locale);
    return n == 0 ? Date(0UL) : next(n);
}

Date Date::previous(unsigned weekday) const noexcept {
    const auto today = static_cast<unsigned>(julian_ % 7);
    return Date(julian_ - 1 - (today - weekday + 7) % 7);
}

Date Date::previous(const char* weekday, const Locale& locale) const {
    const unsigned n = dayOfWeek(weekday, locale);
    return n == 0 ? Date(0UL) : previous(n);
}

// A day has no zone, and `tm_isdst` tells so: whatever zone goes along, its names don't show.
std::string Date::asString(char format, const Locale& locale) const {
    std::tm tm{};
    extract(&tm);
    return locale.asString(&tm, format, TimeZone::utc());
}

std::string Date::asString(const char* format, const Locale& locale) const {
    std::tm tm{};
    extract(&tm);
    return locale.asString(&tm, format, TimeZone::utc());
}

int Date::compareTo(const Date& other) const noexcept {
    return (julian_ > other.julian_) - (julian_ < other.julian_);
}

unsigned long Date::jday(unsigned month, unsigned day, unsigned year) noexcept {
    if (year < 100) {
        year += 1900;
    }
    // Later days have no number that is the same on all platforms.
    const std::int64_t number = julian::fromCivil(month, day, year);
    return number > std::numeric_limits<std::uint32_t>::max() ? 0
                                                              : static_cast<unsigned long>(number);
}

unsigned Date::daysInMonthYear(unsigned month, unsigned year) noexcept {
    return julian::lengthOfMonth(month, year);
}

bool Date::dayWithinMonth(unsigned month, unsigned day, unsigned year) noexcept {
    return day >= 1 && day <= julian::lengthOfMonth(month, year);
}

std::string Date::nameOfMonth(unsigned month, const Locale& locale) {
    std::tm tm{};
    tm.tm_mday = 1;
    tm.tm_mon = static_cast<int>(month) - 1;
    return assertIndexOfMonth(month) ? locale.asString(&tm, 'B', TimeZone::utc()) : std::string();
}

std::string Date::weekDayName(unsigned weekday, const Locale& locale) {
    std::tm tm{};
    tm.tm_mday = 1;
    tm.tm_wday = static_cast<int>(weekday % 7);
    return assertWeekDayNumber(weekday) ? locale.asString(&tm, 'A', TimeZone::utc())
                                        : std::string();
}

unsigned Date::indexOfMonth(const char* name, const Locale& locale) {
    return name == nullptr ? 0 : static_cast<unsigned>(locale.monthIndex(name));
}

unsigned Date::dayOfWeek(const char* name, const Locale& locale) {
    return name == nullptr ? 0 : static_cast<unsigned>(locale.weekdayIndex(name));
}

void Date::clobber(struct tm* tm) noexcept {
    nolk::clobber(*tm);
}

std::ostream& operator<<(std::ostream& stream, const Date& date) {
    if (!date.isValid()) {
        return stream << "#INVALID#";
    }
    DigitText text;
    text.number(date.year(), 4).sign('-').number(date.month(), 2).sign('-');
    text.number(date.dayOfMonth(), 2);
    return stream << text.view();
}

}  // namespace nolk
