#include <nolk/core/DateTime.h>

#include <nolk/core/Exception.h>
#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>

#include "nolk/core/platform/Clock.h"
#include "nolk/core/values/Instant.h"
#include "nolk/core/values/Wrapping.h"

#include <cstdint>
#include <source_location>

namespace nolk {

namespace {

// From 1 January 1901 to 1 January 1970.
constexpr long long to1970 = 25202 * Instant::day;

// Each of these records the operation that called it.
using Where = std::source_location;

[[noreturn]] void failInvalid(const Where& where = Where::current()) {
    throw Exception(here(where), message(NOLK_CORE_DATETIME_INVALID_OBJECT));
}

// The count of what is an instant.
long long countOf(const DateTime& time, const Where& where = Where::current()) {
    if (time.isSentinel()) {
        failInvalid(where);
    }
    return time.milliSeconds();
}

std::tm civilIn(const DateTime& time, const TimeZone& zone, const Where& where = Where::current()) {
    std::tm tm{};
    Instant::extract(countOf(time, where), tm, zone);
    return tm;
}

std::tm civilInGMT(const DateTime& time, const Where& where = Where::current()) {
    std::tm tm{};
    Instant::extractGMT(countOf(time, where), tm);
    return tm;
}

unsigned yearOf(const std::tm& tm) {
    return static_cast<unsigned>(tm.tm_year) + 1900;
}

unsigned weekDayOf(const std::tm& tm) {
    return static_cast<unsigned>(tm.tm_wday == 0 ? 7 : tm.tm_wday);
}

// Whether it is in no order: all that lies below past.
bool hasNoOrder(const DateTime& time) {
    return time.isSentinel() && !time.isPast() && !time.isFuture();
}

void checkOrder(const DateTime& a, const DateTime& b, const Where& where = Where::current()) {
    if (hasNoOrder(a) || hasNoOrder(b)) {
        failInvalid(where);
    }
}

// The UTC reading of one of the boundaries that a zone tells.
DateTime boundaryInYear(unsigned year, const TimeZone& zone, void (TimeZone::*tell)(std::tm*) const,
                        long secondsWest) {
    std::tm tm{};
    tm.tm_year = static_cast<int>(year - 1900);
    (zone.*tell)(&tm);
    if (tm.tm_mday == std::numeric_limits<int>::min()) {
        return DateTime(0LL);
    }
    return DateTime(&tm, 0, TimeZone::utc()) + wrapping::product(secondsWest, Instant::second);
}

}  // namespace

DateTime::DateTime(InitialState state) noexcept : ms_(invalidCount) {
    if (state == null) {
        ms_ = nullCount;
    } else if (state == setCurrentTime) {
        ms_ = platform::currentMilliseconds() + to1970;
    }
}

DateTime::DateTime(std::chrono::sys_time<std::chrono::milliseconds> time) noexcept
    : ms_(wrapping::sum(time.time_since_epoch().count(), to1970)) {
    if (ms_ < time.time_since_epoch().count() || isSentinel()) {
        ms_ = invalidCount;
    }
}

DateTime::DateTime(const Date& date, unsigned hour, unsigned minute, unsigned second,
                   int millisecond, const TimeZone& zone)
    : ms_(Instant::build({static_cast<long long>(date.julian()), hour, minute, second, millisecond},
                         zone)
              .value_or(invalidCount)) {}

DateTime::DateTime(unsigned day, unsigned month, unsigned year, unsigned hour, unsigned minute,
                   unsigned second, int millisecond, const TimeZone& zone)
    : ms_(Instant::build({julian::fromCivil(month, day, year), hour, minute, second, millisecond},
                         zone)
              .value_or(invalidCount)) {}

DateTime::DateTime(unsigned day, const char* monthName, unsigned year, unsigned hour,
                   unsigned minute, unsigned second, int millisecond, const Locale& locale,
                   const TimeZone& zone)
    : DateTime(day, Date::indexOfMonth(monthName, locale), year, hour, minute, second, millisecond,
               zone) {}

DateTime::DateTime(const struct tm* tm, unsigned millisecond, const TimeZone& zone)
    : DateTime(static_cast<unsigned>(tm->tm_mday), static_cast<unsigned>(tm->tm_mon) + 1,
               yearOf(*tm), static_cast<unsigned>(tm->tm_hour), static_cast<unsigned>(tm->tm_min),
               static_cast<unsigned>(tm->tm_sec), 0, zone) {
    if (ms_ != invalidCount) {
        ms_ = wrapping::sum(ms_, millisecond);
    }
}

unsigned DateTime::hash() const noexcept {
    const long long h = ms_ / 1024;
    const auto rest = static_cast<std::uint32_t>(ms_ % 1024);
    return rest ^ (static_cast<std::uint32_t>(h) + static_cast<std::uint32_t>(h / 4294967295));
}

std::chrono::sys_time<std::chrono::milliseconds> DateTime::toSysTime() const {
    const long long count = wrapping::difference(countOf(*this), to1970);
    if (count > ms_) {
        failInvalid();
    }
    return std::chrono::sys_time<std::chrono::milliseconds>(std::chrono::milliseconds(count));
}

unsigned DateTime::year(const TimeZone& zone) const {
    return yearOf(civilIn(*this, zone));
}

unsigned DateTime::month(const TimeZone& zone) const {
    return static_cast<unsigned>(civilIn(*this, zone).tm_mon + 1);
}

unsigned DateTime::dayOfMonth(const TimeZone& zone) const {
    return static_cast<unsigned>(civilIn(*this, zone).tm_mday);
}

unsigned DateTime::day(const TimeZone& zone) const {
    return static_cast<unsigned>(civilIn(*this, zone).tm_yday + 1);
}

unsigned DateTime::hour(const TimeZone& zone) const {
    return static_cast<unsigned>(civilIn(*this, zone).tm_hour);
}

unsigned DateTime::minute(const TimeZone& zone) const {
    return static_cast<unsigned>(civilIn(*this, zone).tm_min);
}

unsigned DateTime::weekDay(const TimeZone& zone) const {
    return weekDayOf(civilIn(*this, zone));
}

bool DateTime::leap(const TimeZone& zone) const {
    return julian::isLeap(civilIn(*this, zone).tm_year + 1900);
}

bool DateTime::isDST(const TimeZone& zone) const {
    std::tm tm{};
    return Instant::extract(countOf(*this), tm, zone);
}

void DateTime::extract(struct tm* tm, const TimeZone& zone) const {
    Instant::extract(countOf(*this), *tm, zone);
}

Date DateTime::toDate(const TimeZone& zone) const {
    if (isSentinel()) {
        return Date(0UL);
    }
    std::tm tm{};
    const bool daylight = Instant::extract(ms_, tm, zone);
    const long offset = daylight ? zone.altZoneOffset() : zone.timeZoneOffset();
    return Date(static_cast<std::uint32_t>(Instant::julianDay(Instant::west(ms_, offset))));
}

unsigned DateTime::firstDayOfMonth(const TimeZone& zone) const {
    const std::tm tm = civilIn(*this, zone);
    return static_cast<unsigned>(tm.tm_yday + 1 - (tm.tm_mday - 1));
}

unsigned DateTime::firstDayOfMonth(unsigned month, const TimeZone& zone) const {
    const bool leapYear = julian::isLeap(civilIn(*this, zone).tm_year + 1900);
    return month >= 1 && month <= 12 ? julian::daysBefore(month, leapYear) + 1 : 0;
}

std::string DateTime::monthName(const Locale& locale, const TimeZone& zone) const {
    return Date::nameOfMonth(month(zone), locale);
}

std::string DateTime::weekDayName(const Locale& locale, const TimeZone& zone) const {
    return Date::weekDayName(weekDay(zone), locale);
}

// Moved by whole days, so that it stays right where the numbers of days leave 32 bits.
DateTime DateTime::next(unsigned weekday, const TimeZone& zone) const {
    const unsigned days = (weekday - weekDay(zone) + 6 + 7) % 7 + 1;
    return DateTime(wrapping::sum(ms_, days * Instant::day));
}

DateTime DateTime::next(const char* weekday, const Locale& locale, const TimeZone& zone) const {
    countOf(*this);
    const unsigned n = Date::dayOfWeek(weekday, locale);
    return n == 0 ? DateTime(invalid) : next(n, zone);
}

DateTime DateTime::previous(unsigned weekday, const TimeZone& zone) const {
    const unsigned days = (weekDay(zone) + 6 - weekday) % 7 + 1;
    return DateTime(wrapping::difference(ms_, days * Instant::day));
}

DateTime DateTime::previous(const char* weekday, const Locale& locale, const TimeZone& zone) const {
    countOf(*this);
    const unsigned n = Date::dayOfWeek(weekday, locale);
    return n == 0 ? DateTime(invalid) : previous(n, zone);
}

unsigned DateTime::yearGMT() const {
    return yearOf(civilInGMT(*this));
}

unsigned DateTime::monthGMT() const {
    return static_cast<unsigned>(civilInGMT(*this).tm_mon + 1);
}

unsigned DateTime::dayOfMonthGMT() const {
    return static_cast<unsigned>(civilInGMT(*this).tm_mday);
}

unsigned DateTime::dayGMT() const {
    return static_cast<unsigned>(civilInGMT(*this).tm_yday + 1);
}

unsigned DateTime::hourGMT() const {
    return Instant::rest(countOf(*this), Instant::day) / Instant::hour;
}

unsigned DateTime::minuteGMT() const {
    return Instant::rest(countOf(*this), Instant::hour) / Instant::minute;
}

unsigned DateTime::weekDayGMT() const {
    return weekDayOf(civilInGMT(*this));
}

bool DateTime::leapGMT() const {
    return julian::isLeap(civilInGMT(*this).tm_year + 1900);
}

void DateTime::extractGMT(struct tm* tm) const {
    Instant::extractGMT(countOf(*this), *tm);
}

unsigned DateTime::second() const {
    return Instant::rest(countOf(*this), Instant::minute) / Instant::second;
}

unsigned DateTime::milliSecond() const {
    return Instant::rest(countOf(*this), Instant::second);
}

unsigned DateTime::julian() const {
    return static_cast<unsigned>(Instant::julianDay(countOf(*this)));
}

unsigned DateTime::correctedJulian() const {
    return static_cast<unsigned>(
        Instant::julianDay(wrapping::difference(countOf(*this), Instant::day / 2)));
}

double DateTime::julianDay() const {
    const long long count = countOf(*this);
    return Instant::rest(count, Instant::day) / static_cast<double>(Instant::day) +
           static_cast<double>(Instant::julianDay(count));
}

void DateTime::julian(unsigned day) noexcept {
    if (isSentinel()) {
        ms_ = 0;
    }
    const long long days = day - Instant::julianDay(ms_);
    ms_ = wrapping::sum(ms_, wrapping::product(days, Instant::day));
}

double DateTime::julianDay(double day) noexcept {
    constexpr double limit = 9223372036854775808.0;
    if (!(day >= -limit && day < limit)) {
        ms_ = invalidCount;
        return day;
    }
    const auto whole = static_cast<long long>(day);
    const double part = (day - static_cast<double>(whole)) * static_cast<double>(Instant::day);
    auto rest = static_cast<long long>(part);
    if (part - static_cast<double>(rest) >= 0.5) {
        ++rest;
    }
    ms_ = wrapping::sum(
        wrapping::product(wrapping::difference(whole, julian::from1901), Instant::day), rest);
    return day;
}

DateTime& DateTime::incrementHour(long long hours) noexcept {
    return *this += wrapping::product(hours, Instant::hour);
}

DateTime& DateTime::incrementMinute(long long minutes) noexcept {
    return *this += wrapping::product(minutes, Instant::minute);
}

DateTime& DateTime::incrementSecond(long long seconds) noexcept {
    return *this += wrapping::product(seconds, Instant::second);
}

DateTime& DateTime::decrementHour(long long hours) noexcept {
    return *this -= wrapping::product(hours, Instant::hour);
}

DateTime& DateTime::decrementMinute(long long minutes) noexcept {
    return *this -= wrapping::product(minutes, Instant::minute);
}

DateTime& DateTime::decrementSecond(long long seconds) noexcept {
    return *this -= wrapping::product(seconds, Instant::second);
}

DateTime& DateTime::operator++() noexcept {
    if (!isSentinel()) {
        ms_ = wrapping::sum(ms_, 1);
    }
    return *this;
}

DateTime& DateTime::operator--() noexcept {
    if (!isSentinel()) {
        ms_ = wrapping::difference(ms_, 1);
    }
    return *this;
}

DateTime& DateTime::operator+=(long long milliseconds) noexcept {
    if (!isSentinel()) {
        ms_ = wrapping::sum(ms_, milliseconds);
    } else if (hasNoOrder(*this)) {
        ms_ = invalidCount;
    }
    return *this;
}

DateTime& DateTime::operator-=(long long milliseconds) noexcept {
    if (!isSentinel()) {
        ms_ = wrapping::difference(ms_, milliseconds);
    } else if (hasNoOrder(*this)) {
        ms_ = invalidCount;
    }
    return *this;
}

DateTime operator+(const DateTime& time, long long milliseconds) noexcept {
    DateTime sum = time;
    return sum += milliseconds;
}

DateTime operator-(const DateTime& time, long long milliseconds) noexcept {
    DateTime difference = time;
    return difference -= milliseconds;
}

long long operator-(const DateTime& a, const DateTime& b) {
    return wrapping::difference(countOf(a), countOf(b));
}

bool operator<(const DateTime& a, const DateTime& b) {
    if (a.isInvalid() || b.isInvalid()) {
        failInvalid();
    }
    return !a.empty() && !b.empty() && a.ms_ < b.ms_;
}

int DateTime::compareTo(const DateTime& other) const {
    checkOrder(*this, other);
    return (ms_ > other.ms_) - (ms_ < other.ms_);
}

DateTime DateTime::max(const DateTime& other) const {
    checkOrder(*this, other);
    return doMax(other);
}

DateTime DateTime::min(const DateTime& other) const {
    checkOrder(*this, other);
    return doMin(other);
}

DateTime DateTime::doMax(const DateTime& other) const {
    return *this < other ? other : *this;
}

DateTime DateTime::doMin(const DateTime& other) const {
    return other < *this ? other : *this;
}

DateTime DateTime::userSentinel(int n) {
    if (n < 0 || n > 127) {
        throw Exception(here(), message(NOLK_CORE_DATETIME_INVALID_SENTINEL));
    }
    return DateTime(lowestCount + n);
}

unsigned DateTime::daysInMonthYear(unsigned month, unsigned year) noexcept {
    return Date::daysInMonthYear(month, year);
}

unsigned DateTime::daysInYear(unsigned year) noexcept {
    return Date::daysInYear(year);
}

bool DateTime::dayWithinMonth(unsigned month, unsigned day, unsigned year) noexcept {
    return Date::dayWithinMonth(month, day, year);
}

std::string DateTime::nameOfMonth(unsigned month, const Locale& locale) {
    return Date::nameOfMonth(month, locale);
}

std::string DateTime::weekDayName(unsigned weekday, const Locale& locale) {
    return Date::weekDayName(weekday, locale);
}

DateTime DateTime::beginDST(unsigned year, const TimeZone& zone) {
    if (!zone.daylightObserved()) {
        return DateTime(0LL);
    }
    return boundaryInYear(year, zone, &TimeZone::getBeginDaylight, zone.timeZoneOffset());
}

DateTime DateTime::endDST(unsigned year, const TimeZone& zone) {
    if (!zone.daylightObserved()) {
        return DateTime(0LL);
    }
    return boundaryInYear(year, zone, &TimeZone::getEndDaylight, zone.altZoneOffset());
}

}  // namespace nolk
