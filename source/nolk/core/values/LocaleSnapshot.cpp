#include <nolk/core/LocaleSnapshot.h>

#include <nolk/core/TimeZone.h>

#include "nolk/core/values/EnglishNames.h"
#include "nolk/core/values/LocaleDate.h"
#include "nolk/core/values/LocaleMoney.h"
#include "nolk/core/values/LocaleNumber.h"
#include "nolk/core/values/LocaleTime.h"
#include "nolk/core/values/TimeFormatProbe.h"

#include <charconv>
#include <cstdint>
#include <string_view>

namespace nolk {

namespace {

// Padded up to the width by zeroes behind the sign, or by another character.
void appendNumber(std::string& text, std::int64_t value, std::size_t width, char pad = '0') {
    char number[24];
    const char* begin = number;
    const char* end = std::to_chars(number, number + sizeof number, value).ptr;
    const auto length = static_cast<std::size_t>(end - begin);
    if (value < 0 && pad == '0') {
        text += *begin++;
    }
    text.append(length < width ? width - length : 0, pad);
    text.append(begin, end);
}

// 0 to 99, also for years before 0.
std::int64_t yearOfCentury(std::int64_t year) {
    return (year % 100 + 100) % 100;
}

std::int64_t hourOnDial(std::int64_t hour) {
    return hour % 12 == 0 ? 12 : hour % 12;
}

template <std::size_t size>
void appendName(std::string& text, const std::string (&names)[size], int index) {
    if (index >= 0 && static_cast<std::size_t>(index) < size) {
        text += names[index];
    }
}

void appendZone(std::string& text, int isDaylight, const TimeZone& zone) {
    if (isDaylight == 1) {
        text += zone.altZoneName();
    } else if (isDaylight == 0) {
        text += zone.timeZoneName();
    }
}

// The last of some names, long or short, that is this one in any case; -1 if none is.
template <std::size_t size>
int indexOf(std::string_view name, const std::string (&names)[size],
            const std::string (&shortNames)[size]) {
    int index = name.empty() ? -1 : static_cast<int>(size) - 1;
    while (index >= 0 && !english::sameWord(name, names[index]) &&
           !english::sameWord(name, shortNames[index])) {
        --index;
    }
    return index;
}

}  // namespace

LocaleSnapshot::~LocaleSnapshot() = default;

const std::string& LocaleSnapshot::locale_name() const {
    return localeName_;
}

const std::string& LocaleSnapshot::decimal_point() const {
    return decimalPoint_;
}

const std::string& LocaleSnapshot::thousands_sep() const {
    return thousandsSep_;
}

const std::string& LocaleSnapshot::grouping() const {
    return grouping_;
}

const std::string& LocaleSnapshot::int_curr_symbol() const {
    return intCurrSymbol_;
}

const std::string& LocaleSnapshot::currency_symbol() const {
    return currencySymbol_;
}

const std::string& LocaleSnapshot::mon_decimal_point() const {
    return monDecimalPoint_;
}

const std::string& LocaleSnapshot::mon_thousands_sep() const {
    return monThousandsSep_;
}

const std::string& LocaleSnapshot::mon_grouping() const {
    return monGrouping_;
}

const std::string& LocaleSnapshot::positive_sign() const {
    return positiveSign_;
}

const std::string& LocaleSnapshot::negative_sign() const {
    return negativeSign_;
}

char LocaleSnapshot::int_frac_digits() const {
    return intFracDigits_;
}

char LocaleSnapshot::frac_digits() const {
    return fracDigits_;
}

char LocaleSnapshot::p_cs_precedes() const {
    return pCsPrecedes_;
}

char LocaleSnapshot::p_sep_by_space() const {
    return pSepBySpace_;
}

char LocaleSnapshot::n_cs_precedes() const {
    return nCsPrecedes_;
}

char LocaleSnapshot::n_sep_by_space() const {
    return nSepBySpace_;
}

char LocaleSnapshot::p_sign_posn() const {
    return pSignPosn_;
}

char LocaleSnapshot::n_sign_posn() const {
    return nSignPosn_;
}

std::string LocaleSnapshot::asString(const struct tm* tm, char conversion,
                                     const TimeZone& zone) const {
    std::string text;
    if (const LocaleTimeFormat* format = timeFormat(conversion)) {
        formatTime(text, tm, *format, zone);
    } else {
        // What isn't found is out of range.
        formatComponent(text, tm, static_cast<int>(timeConversions.find(conversion)), zone);
    }
    return text;
}

std::string LocaleSnapshot::asString(double value, int precision, bool showGrouping) const {
    return writeNumber(*this, value, precision, showGrouping);
}

std::string LocaleSnapshot::asString(unsigned long value) const {
    return writeNumber(*this, value);
}

std::string LocaleSnapshot::asString(long value) const {
    return writeNumber(*this, value);
}

std::string LocaleSnapshot::moneyAsString(double value, CurrSymbol symbol) const {
    return writeMoney(
        *this, {positivePattern_, negativePattern_, fractionScale_, internationalFractionScale_},
        value, symbol);
}

bool LocaleSnapshot::stringToNum(const std::string& text, unsigned long* value) const {
    return readNumber(*this, text, value);
}

bool LocaleSnapshot::stringToNum(const std::string& text, long* value) const {
    return readNumber(*this, text, value);
}

bool LocaleSnapshot::stringToNum(const std::string& text, double* value) const {
    return readNumber(*this, text, value);
}

bool LocaleSnapshot::stringToDate(const std::string& text, struct tm* tm) const {
    return readDate({months_, shortMonths_, numericMonthNames_ == 0, dateOrder_}, text, tm);
}

bool LocaleSnapshot::stringToTime(const std::string& text, struct tm* tm) const {
    return readTime({time_, am_, pm_}, text, tm);
}

bool LocaleSnapshot::stringToMoney(const std::string& text, double* value,
                                   CurrSymbol symbol) const {
    return readMoney(*this, text, value, symbol);
}

int LocaleSnapshot::monthIndex(const std::string& name) const {
    return indexOf(name, months_, shortMonths_) + 1;
}

int LocaleSnapshot::weekdayIndex(const std::string& name) const {
    const int index = indexOf(name, weekdays_, shortWeekdays_);
    return index < 0 ? 0 : (index + 6) % 7 + 1;
}

const LocaleTimeFormat* LocaleSnapshot::timeFormat(char conversion) const noexcept {
    switch (conversion) {
        case 'X':
            return &time_;
        case 'x':
            return &date_;
        case 'c':
            return &dateTime_;
        case 'C':
            return &longDateTime_;
        default:
            return nullptr;
    }
}

void LocaleSnapshot::formatTime(std::string& text, const struct tm* tm,
                                const LocaleTimeFormat& format, const TimeZone& zone) const {
    std::size_t done = 0;
    for (const QXTimeFmtList* node = format.components; node != nullptr; node = node->next) {
        const auto offset = static_cast<std::size_t>(node->offset);
        text.append(format.text, done, offset - done);
        formatComponent(text, tm, node->component, zone);
        done = offset;
    }
    text.append(format.text, done);
}

// All in 64 bits: the fields of an invalid time are at the ends of their range.
void LocaleSnapshot::formatComponent(std::string& text, const struct tm* tm, int component,
                                     const TimeZone& zone) const {
    const std::int64_t year = std::int64_t{1900} + tm->tm_year;
    const std::int64_t month = std::int64_t{1} + tm->tm_mon;
    const std::int64_t yday = tm->tm_yday;
    const std::int64_t wday = tm->tm_wday;
    switch (component) {
        case fullYear:
            return appendNumber(text, year, 4);
        case shortYear:
            return appendNumber(text, yearOfCentury(year), 2);
        case dayOfYear:
            return appendNumber(text, yday + 1, 3);
        case second:
            return appendNumber(text, tm->tm_sec, 2);
        case minute:
            return appendNumber(text, tm->tm_min, 2);
        case hourOf12:
            return appendNumber(text, hourOnDial(tm->tm_hour), 2);
        case hourOf24:
            return appendNumber(text, tm->tm_hour, 2);
        case monthNumber:
            return appendNumber(text, month, 2);
        case monthName:
            return appendName(text, months_, tm->tm_mon);
        case shortMonthName:
            return appendName(text, shortMonths_, tm->tm_mon);
        case weekdayName:
            return appendName(text, weekdays_, tm->tm_wday);
        case shortWeekdayName:
            return appendName(text, shortWeekdays_, tm->tm_wday);
        case halfOfDay:
            text += tm->tm_hour < 12 ? am_ : pm_;
            return;
        case dayOfMonth:
            return appendNumber(text, tm->tm_mday, 2);
        case zoneName:
            return appendZone(text, tm->tm_isdst, zone);
        case weekFromSunday:
            return appendNumber(text, (yday - wday + 7) / 7, 2);
        case weekFromMonday:
            return appendNumber(text, (yday - (wday + 6) % 7 + 7) / 7, 2);
        case weekdayNumber:
            return appendNumber(text, wday, 1);
        case paddedDay:
            return appendNumber(text, tm->tm_mday, 2, ' ');
        case paddedMonth:
            return appendNumber(text, month, 2, ' ');
        default:
            return;
    }
}

}  // namespace nolk
