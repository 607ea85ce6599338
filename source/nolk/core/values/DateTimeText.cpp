// The texts of instants.

#include <nolk/core/DateTime.h>
#include <nolk/core/Iso8601DateTime.h>
#include <nolk/core/Locale.h>

#include "nolk/core/values/Calendar.h"
#include "nolk/core/values/DigitText.h"
#include "nolk/core/values/EnglishNames.h"
#include "nolk/core/values/HttpDate.h"
#include "nolk/core/values/Instant.h"

#include <cstdint>
#include <cstdlib>
#include <optional>
#include <ostream>

namespace nolk {

namespace {

constexpr char noInstant[] = "#INVALID#";
constexpr char noValue[] = "NULL";

// What stands for a reserved value in every text.
const char* textOfSentinel(const DateTime& time) {
    return time.empty() ? noValue : noInstant;
}

unsigned yearOf(const std::tm& tm) {
    return static_cast<unsigned>(tm.tm_year) + 1900;
}

// A field of two digits, whatever it holds.
void appendTwo(DigitText& text, int field) {
    text.two(static_cast<unsigned>(field));
}

// Minutes keep the sign of the offset, so that they read "-30" half an hour east of GMT: partners
// rely on what we have always written.
void appendMinutes(DigitText& text, long minutes) {
    if (minutes >= 0) {
        text.two(static_cast<unsigned>(minutes));
    } else {
        text.sign('-').number(static_cast<unsigned>(-minutes), 1);
    }
}

void appendOffset(DigitText& text, long secondsWest) {
    if (secondsWest == 0) {
        text.sign('Z');
        return;
    }
    text.sign(secondsWest > 0 ? '-' : '+');
    text.number(static_cast<unsigned>(std::abs(secondsWest / 3600)), 2).sign(':');
    appendMinutes(text, secondsWest / 60 % 60);
}

void appendTime(DigitText& text, const std::tm& tm) {
    appendTwo(text, tm.tm_hour);
    text.sign(':');
    appendTwo(text, tm.tm_min);
    text.sign(':');
    appendTwo(text, tm.tm_sec);
}

void appendIso(DigitText& text, long long count, const TimeZone& zone) {
    std::tm tm{};
    const bool daylight = Instant::extract(count, tm, zone);
    text.number(yearOf(tm), 4).sign('-');
    appendTwo(text, tm.tm_mon + 1);
    text.sign('-');
    appendTwo(text, tm.tm_mday);
    text.sign('T');
    appendTwo(text, tm.tm_hour);
    text.sign(':');
    appendTwo(text, tm.tm_min);
    text.sign(':');
    // The second is that of the instant also where the zone's offset isn't whole minutes.
    text.two(Instant::rest(count, Instant::minute) / Instant::second);
    if (const unsigned milliseconds = Instant::rest(count, Instant::second); milliseconds != 0) {
        text.sign(',').number(milliseconds, 3);
    }
    appendOffset(text, daylight ? zone.altZoneOffset() : zone.timeZoneOffset());
}

void appendHttp(DigitText& text, long long count) {
    std::tm tm{};
    Instant::extractGMT(count, tm);
    text.text(english::shortWeekDays[tm.tm_wday]).text(", ");
    appendTwo(text, tm.tm_mday);
    text.sign(' ').text(english::months[tm.tm_mon].substr(0, english::shortLength)).sign(' ');
    text.number(yearOf(tm), 4).sign(' ');
    appendTime(text, tm);
    text.text(" GMT");
}

// As counts of what the fields tell in GMT; the offset is still to be taken off.
std::optional<long long> readIso(const std::string& text, const TimeZone& zone) {
    const Iso8601DateTime value(text.c_str(), Iso8601DateTime::dateTime);
    const int year = value.year();
    if (!value.isValid() || value.yearDay() > calendar::lengthOfYear(year)) {
        return std::nullopt;
    }
    const Instant::Civil civil{
        .julian = julian::of1970 + calendar::daysFrom1970(year) + value.yearDay() - 1,
        .hour = static_cast<unsigned>(value.hour()),
        .minute = static_cast<unsigned>(value.minutes()),
        .second = static_cast<unsigned>(value.seconds()),
        .millisecond = value.milliseconds(),
    };
    if (!value.zone()) {
        return Instant::build(civil, zone);
    }
    const long long offset = value.offset();
    return Instant::buildGMT(civil) - offset;
}

DateTime readHttp(const std::string& text) {
    const std::optional<HttpDate> date = readHttpDate(text, DateTime::now().yearGMT());
    if (!date) {
        return DateTime(DateTime::invalid);
    }
    return DateTime(date->day, date->month, date->year, date->hour, date->minute, date->second, 0,
                    TimeZone::utc());
}

struct DateAndTime {
    std::string date;
    std::string time;
};

// The time begins behind the semicolon.
std::optional<DateAndTime> splitBoth(const std::string& text) {
    const auto start = text.find_first_not_of(';');
    const auto semicolon = text.find(';', start);
    if (start == std::string::npos || semicolon == std::string::npos) {
        return std::nullopt;
    }
    return DateAndTime{text.substr(start, semicolon - start), text.substr(semicolon + 1)};
}

void setToday(std::tm& tm) {
    std::tm today{};
    DateTime::now().extract(&today, TimeZone::local());
    tm.tm_mday = today.tm_mday;
    tm.tm_mon = today.tm_mon;
    tm.tm_year = today.tm_year;
}

bool readBoth(const std::string& text, const Locale& locale, std::tm& tm) {
    const std::optional<DateAndTime> both = splitBoth(text);
    std::tm time{};
    if (!both || !locale.stringToDate(both->date, &tm) || !locale.stringToTime(both->time, &time)) {
        return false;
    }
    tm.tm_hour = time.tm_hour;
    tm.tm_min = time.tm_min;
    tm.tm_sec = time.tm_sec;
    return true;
}

bool readSet(const std::string& text, DateTime::SetType type, const Locale& locale, std::tm& tm) {
    switch (type) {
        case DateTime::setDate:
            if (!locale.stringToDate(text, &tm)) {
                return false;
            }
            tm.tm_hour = tm.tm_min = tm.tm_sec = 0;
            return true;
        case DateTime::setTime:
            if (!locale.stringToTime(text, &tm)) {
                return false;
            }
            setToday(tm);
            return true;
        case DateTime::setBoth:
            return readBoth(text, locale, tm);
    }
    return false;
}

}  // namespace

DateTime::DateTime(const std::string& text, SetType type, const Locale& locale,
                   const TimeZone& zone)
    : ms_(invalidCount) {
    std::tm tm{};
    tm.tm_isdst = -1;
    if (readSet(text, type, locale, tm)) {
        *this = DateTime(&tm, 0, zone);
    }
}

DateTime::DateTime(const std::string& text, Format format, const Locale&, const TimeZone& zone)
    : ms_(invalidCount) {
    switch (format) {
        case iso8601:
            ms_ = readIso(text, zone).value_or(invalidCount);
            break;
        case http:
            *this = readHttp(text);
            break;
    }
}

std::string DateTime::asString(char format, const Locale& locale, const TimeZone& zone) const {
    if (isSentinel()) {
        return textOfSentinel(*this);
    }
    std::tm tm{};
    Instant::extract(ms_, tm, zone);
    return locale.asString(&tm, format, zone);
}

std::string DateTime::asString(const char* format, const Locale& locale,
                               const TimeZone& zone) const {
    if (isSentinel()) {
        return textOfSentinel(*this);
    }
    std::tm tm{};
    Instant::extract(ms_, tm, zone);
    return locale.asString(&tm, format, zone);
}

std::string DateTime::asString(Format format, const Locale&, const TimeZone& zone) const {
    DigitText text;
    switch (format) {
        case iso8601:
        case http:
            break;
        default:
            return std::string();
    }
    if (isSentinel()) {
        return textOfSentinel(*this);
    }
    if (format == iso8601) {
        appendIso(text, ms_, zone);
    } else {
        appendHttp(text, ms_);
    }
    return text.string();
}

std::ostream& operator<<(std::ostream& stream, const DateTime& time) {
    if (time.isSentinel()) {
        return stream << textOfSentinel(time);
    }
    DigitText text;
    appendIso(text, time.milliSeconds(), TimeZone::utc());
    return stream << text.view();
}

}  // namespace nolk
