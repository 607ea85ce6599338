// Date forms are written as patterns, such as "CCYY-MM-DD". A letter stands for one digit of the
// part that it names, and digits of the same letter are read as one number:
//
//     CC  century     MM   month                ww  week (behind the sign "W")
//     YY  decade and  DD   day of the month     d   day of the week
//         its year    OOO  day of the year      hh, mm, ss  hours, minutes, seconds
//     Y   year of the decade
//
// All other characters, such as "W" and "-", stand for themselves. The patterns of one length
// exclude each other, so that the order in which they are tried doesn't show. Each is unrolled by
// the compiler into plain comparisons.

#include "nolk/core/values/Iso8601Parser.h"

#include "nolk/core/values/Calendar.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>

namespace nolk {

namespace {

constexpr int millisecondsOfHour = 3600000;
constexpr int millisecondsOfMinute = 60000;
constexpr int millisecondsOfSecond = 1000;

// What is no digit gives a number above 9.
unsigned digitValue(char c) {
    return static_cast<unsigned>(static_cast<unsigned char>(c)) - '0';
}

bool isDigit(char c) {
    return digitValue(c) <= 9;
}

bool isDecimalSign(char c) {
    return c == '.' || c == ',';
}

// The formats that a character speaks for.
struct Signs {
    consteval Signs() {
        of('-') = of('W') = Iso8601DateTime::date;
        of(',') = of('.') = of(':') = Iso8601DateTime::time;
        of('T') = Iso8601DateTime::dateTime;
    }
    constexpr unsigned char& of(char c) { return formats[static_cast<unsigned char>(c)]; }
    constexpr int of(char c) const { return formats[static_cast<unsigned char>(c)]; }
    unsigned char formats[256] = {};
};

constexpr Signs signs;

struct Letters {
    template <std::size_t size>
    consteval Letters(const char (&pattern)[size]) {
        std::copy_n(pattern, size, letters);
    }
    constexpr std::size_t size() const { return std::string_view(letters).size(); }
    constexpr bool has(std::string_view part) const {
        return std::string_view(letters).find(part) != std::string_view::npos;
    }
    char letters[24] = {};
};

// The numbers that the letters of a pattern stand for.
struct Numbers {
    template <char letter>
    constexpr int& of() {
        switch (letter) {
            case 'C':
                return century;
            case 'Y':
                return year;
            case 'M':
                return month;
            case 'D':
                return day;
            case 'O':
                return yearDay;
            case 'w':
                return week;
            case 'd':
                return weekDay;
            case 'h':
                return hours;
            case 'm':
                return minutes;
            default:
                return seconds;
        }
    }
    int century = 0, year = 0, month = 0, day = 0, yearDay = 0, week = 0, weekDay = 0;
    int hours = 0, minutes = 0, seconds = 0;
};

template <char letter>
bool takeLetter(char c, Numbers& numbers) {
    if constexpr (letter == '-' || letter == 'W' || letter == 'T' || letter == ':') {
        return c == letter;
    } else {
        const unsigned digit = digitValue(c);
        int& number = numbers.of<letter>();
        number = number * 10 + static_cast<int>(digit & 15);
        return digit <= 9;
    }
}

template <Letters pattern>
struct Form {
    static constexpr Letters letters = pattern;

    // Reads no further than to the first character that doesn't fit, so never behind a zero byte.
    static bool match(const char* text, Numbers& numbers) {
        return match(text, numbers, std::make_index_sequence<pattern.size()>());
    }

private:
    template <std::size_t... at>
    static bool match(const char* text, Numbers& numbers, std::index_sequence<at...>) {
        return (takeLetter<pattern.letters[at]>(text[at], numbers) && ...);
    }
};

template <Letters pattern>
constexpr Form<pattern> form;

}  // namespace

void Iso8601Parser::parse(Iso8601DateTime::Format format) noexcept {
    if (*text_ == '\0') {
        return;
    }
    switch (format == Iso8601DateTime::automatic ? formatOf(text_) : format) {
        case Iso8601DateTime::date:
            return parseAsDate();
        case Iso8601DateTime::time:
            return parseAsTime();
        case Iso8601DateTime::dateTime:
            return parseAsDateTime();
        case Iso8601DateTime::automatic:
            return parseAsAnything();
    }
}

Iso8601DateTime::Format Iso8601Parser::formatOf(const char* text) noexcept {
    // A "T" in front only tells that a time follows.
    int format = 0;
    if (*text == 'T') {
        format = Iso8601DateTime::time;
        ++text;
    }
    for (; *text != '\0'; ++text) {
        format |= signs.of(*text);
    }
    return format == 0 ? Iso8601DateTime::automatic : static_cast<Iso8601DateTime::Format>(format);
}

void Iso8601Parser::parseAsDate() noexcept {
    parseDate();
    value_.time_ = 0;
    setOffset(Iso8601DateTime::noZone);
}

void Iso8601Parser::parseAsTime() noexcept {
    if (*cursor_ == 'T') {
        ++cursor_;
    }
    verify({});
    parseTime();
    if (hasTime()) {
        parseZone();
    }
}

void Iso8601Parser::parseAsDateTime() noexcept {
    if (takeComplete()) {
        return;
    }
    parseDate();
    if (hasDate() && *cursor_ == 'T') {
        ++cursor_;
        parseTime();
        parseZone();
    }
}

// The form that nearly all texts have, in one go.
bool Iso8601Parser::takeComplete() noexcept {
    Numbers numbers;
    if (!Form<"CCYY-MM-DDThh:mm:ss">::match(cursor_, numbers)) {
        return false;
    }
    cursor_ += 19;
    storeMonthDay(numbers.century * 100 + numbers.year, numbers.month, numbers.day);
    if (hasDate()) {
        value_.time_ = static_cast<std::uint32_t>(numbers.hours * millisecondsOfHour +
                                                  numbers.minutes * millisecondsOfMinute +
                                                  numbers.seconds * millisecondsOfSecond);
        parseFractionOfSecond();
        parseZone();
    }
    return true;
}

void Iso8601Parser::parseAsAnything() noexcept {
    parseDate();
    if (!hasDate()) {
        cursor_ = text_;
    }
    parseTime();
    if (hasTime()) {
        if (!hasDate()) {
            verify({});
        }
        parseZone();
    } else if (hasDate()) {
        value_.time_ = 0;
        setOffset(Iso8601DateTime::noZone);
    }
}

void Iso8601Parser::parseDate() noexcept {
    if (isDigit(*cursor_)) {
        parseFullDate();
    } else if (*cursor_ == '-') {
        ++cursor_;
        parseDashDate();
    }
}

// Reads a date if the text fits the pattern up to the pattern's end, and moves the cursor there.
template <typename Form>
bool Iso8601Parser::take(Form) noexcept {
    constexpr Letters letters = Form::letters;
    Numbers numbers;
    if (!Form::match(cursor_, numbers)) {
        return false;
    }
    cursor_ += letters.size();
    Given given;
    if constexpr (letters.has("CC")) {
        given.century = numbers.century;
    }
    if constexpr (letters.has("YY")) {
        given.decade = numbers.year / 10;
    }
    if constexpr (letters.has("Y")) {
        given.decadeYear = numbers.year % 10;
    }
    if constexpr (letters.has("CCYY")) {
        given.year = numbers.century * 100 + numbers.year;
    }
    if constexpr (letters.has("MM")) {
        given.month = numbers.month;
    }
    if constexpr (letters.has("DD")) {
        given.day = numbers.day;
    }
    if constexpr (letters.has("OOO")) {
        given.yearDay = numbers.yearDay;
    }
    if constexpr (letters.has("ww")) {
        given.week = numbers.week;
    }
    if constexpr (letters.has("d")) {
        given.weekDay = numbers.weekDay;
    }
    verify(given);
    return true;
}

// Forms that begin with two digits.
void Iso8601Parser::parseFullDate() noexcept {
    switch (lengthOfDate()) {
        case 2:
            take(form<"CC">);
            break;
        case 4:
            take(form<"CCYY">);
            break;
        case 5:
            take(form<"YYWww">) || take(form<"YYOOO">);
            break;
        case 6:
            if (cursor_[2] == '-') {
                parseDecadeOrdinal();
            } else {
                take(form<"YYMMDD">);
            }
            break;
        case 7:
            take(form<"CCYY-MM">) || take(form<"CCYYOOO">) || take(form<"CCYYWww">);
            break;
        case 8:
            take(form<"CCYYMMDD">) || take(form<"CCYY-OOO">) || take(form<"YY-MM-DD">) ||
                take(form<"CCYY-Www">) || take(form<"CCYYWwwd">);
            break;
        case 10:
            take(form<"CCYY-MM-DD">) || take(form<"CCYY-Www-d">);
            break;
    }
}

// YY-OOO takes decade and year from the three digits behind the dash and drops the two in front.
// Callers rely on it.
void Iso8601Parser::parseDecadeOrdinal() noexcept {
    Numbers numbers;
    if (Form<"YY-OOO">::match(cursor_, numbers)) {
        cursor_ += 6;
        verify({.decade = numbers.yearDay / 10,
                .decadeYear = numbers.yearDay % 10,
                .yearDay = numbers.yearDay});
    }
}

// Forms behind one leading dash.
void Iso8601Parser::parseDashDate() noexcept {
    if (*cursor_ == '-') {
        ++cursor_;
        return parseDashDashDate();
    }
    switch (lengthOfDate()) {
        case 2:
            take(form<"YY">);
            break;
        case 3:
            if (cursor_[0] == 'W' && cursor_[1] == '-' && isDigit(cursor_[2])) {
                const int weekDay = static_cast<int>(digitValue(cursor_[2]));
                cursor_ += 3;
                verify({.week = 1, .weekDay = weekDay});
            } else {
                take(form<"Www">) || take(form<"OOO">);
            }
            break;
        case 4:
            take(form<"YWww">) || take(form<"YYMM">) || take(form<"Wwwd">);
            break;
        case 5:
            take(form<"YY-MM">) || take(form<"YWwwd">) || take(form<"Y-Www">) ||
                take(form<"Www-d">);
            break;
        case 7:
            take(form<"Y-Www-d">);
            break;
    }
}

// Forms behind two leading dashes. What follows them isn't looked at here.
void Iso8601Parser::parseDashDashDate() noexcept {
    Given given;
    if (*cursor_ == '-') {
        ++cursor_;
        given.day = twoDigits();
        if (given.day != absent) {
            verify(given);
        }
        return;
    }
    given.month = twoDigits();
    if (given.month == absent) {
        return;
    }
    if (*cursor_ == '-') {
        ++cursor_;
    }
    given.day = twoDigits();
    verify(given);
}

// Completes a date from the local time and stores it, if month and day are in their ranges.
void Iso8601Parser::verify(Given given) noexcept {
    if (given.year == absent) {
        const int century = given.century != absent ? given.century : now().tm_year / 100 + 19;
        const int decade = given.decade != absent ? given.decade : now().tm_year % 100 / 10;
        const int decadeYear = given.decadeYear != absent ? given.decadeYear : now().tm_year % 10;
        given.year = (century * 10 + decade) * 10 + decadeYear;
    }
    // Week and week day 0 are read, but neither asks for a week date.
    if (given.week >= 1 || given.weekDay >= 1) {
        given.week = given.week == absent ? 1 : given.week;
        given.weekDay = given.weekDay == absent ? 1 : given.weekDay;
        given.yearDay = Iso8601DateTime::yearDayFromWeek(given.year, given.week, given.weekDay);
    }
    const bool hasYearDay = given.yearDay != absent;
    if (given.month == absent) {
        given.month = hasYearDay ? Iso8601DateTime::monthFromYDay(given.year, given.yearDay - 1)
                                 : now().tm_mon + 1;
    }
    if (given.month < 1 || given.month > 12) {
        return;
    }
    if (given.day == absent) {
        given.day = hasYearDay ? Iso8601DateTime::monthDayFromYDay(given.year, given.yearDay - 1)
                               : now().tm_mday;
    }
    if (given.day < 1 || given.day > 31) {
        return;
    }
    if (hasYearDay) {
        store(given.year, given.yearDay);
    } else {
        storeMonthDay(given.year, given.month, given.day);
    }
}

// The day isn't held against the month.
void Iso8601Parser::storeMonthDay(int year, int month, int day) noexcept {
    if (month >= 1 && month <= 12 && day >= 1 && day <= 31) {
        store(year, calendar::daysBefore[calendar::isLeap(year)][month - 1] + day);
    }
}

void Iso8601Parser::store(int year, int yearDay) noexcept {
    value_.date_ = (value_.date_ & Iso8601DateTime::offsetMask) |
                   (static_cast<std::uint32_t>(year) & Iso8601DateTime::yearMask)
                       << Iso8601DateTime::yearShift |
                   static_cast<std::uint32_t>(yearDay) << Iso8601DateTime::yearDayShift;
}

void Iso8601Parser::parseTime() noexcept {
    if (*cursor_ == '-') {
        parseTruncatedTime();
    } else {
        parseHour();
    }
}

void Iso8601Parser::parseHour() noexcept {
    const int hours = twoDigits();
    if (hours == absent) {
        return;
    }
    value_.time_ = static_cast<std::uint32_t>(hours) * millisecondsOfHour;
    if (finerUnitsFollow(millisecondsOfHour)) {
        parseMinutes();
    }
}

// Does nothing where there are no two digits, as the forms allow.
void Iso8601Parser::parseMinutes() noexcept {
    const int minutes = twoDigits();
    if (minutes == absent) {
        return;
    }
    addTime(minutes * millisecondsOfMinute);
    if (finerUnitsFollow(millisecondsOfMinute)) {
        parseSeconds();
    }
}

void Iso8601Parser::parseSeconds() noexcept {
    const int seconds = twoDigits();
    if (seconds == absent) {
        return;
    }
    addTime(seconds * millisecondsOfSecond);
    parseFractionOfSecond();
}

// Up to three digits. A fourth stays where it is, and no zone begins with it.
void Iso8601Parser::parseFractionOfSecond() noexcept {
    if (!isDecimalSign(*cursor_)) {
        return;
    }
    ++cursor_;
    for (int unit = 100; unit != 0 && isDigit(*cursor_); unit /= 10) {
        addTime(static_cast<int>(digitValue(*cursor_)) * unit);
        ++cursor_;
    }
}

// "-" stands for the present hour, "--" for the present hour and minute.
void Iso8601Parser::parseTruncatedTime() noexcept {
    ++cursor_;
    value_.time_ = static_cast<std::uint32_t>(now().tm_hour) * millisecondsOfHour;
    if (*cursor_ == '-') {
        ++cursor_;
        addTime(now().tm_min * millisecondsOfMinute);
        parseSeconds();
    } else {
        parseMinutes();
    }
}

// Behind hours or minutes: skips a colon, or reads a fraction, which is the end of a time.
bool Iso8601Parser::finerUnitsFollow(int unit) noexcept {
    if (isDecimalSign(*cursor_)) {
        ++cursor_;
        addTime(static_cast<int>(parseFraction() * unit));
        return false;
    }
    if (*cursor_ == ':') {
        ++cursor_;
    }
    return true;
}

// Any number of digits as a number from 0 to below 1. The first hundred decide.
double Iso8601Parser::parseFraction() noexcept {
    constexpr double largestBelowOne = 1 - 0x1p-53;
    char text[102] = {'0', '.'};
    char* end = text + 2;
    for (; isDigit(*cursor_); ++cursor_) {
        if (end != std::end(text)) {
            *end++ = *cursor_;
        }
    }
    double fraction = 0;
    std::from_chars(text, end, fraction, std::chars_format::fixed);
    return std::min(fraction, largestBelowOne);
}

// Leaves the offset unset, and so the value not valid, unless a zone or the end of the text is
// there. Text behind a zone doesn't matter.
void Iso8601Parser::parseZone() noexcept {
    const char sign = *cursor_;
    if (sign == '\0') {
        return setOffset(Iso8601DateTime::noZone);
    }
    ++cursor_;
    if (sign == 'Z') {
        return setOffset(0);
    }
    const int hours = sign == '+' || sign == '-' ? twoDigits() : absent;
    if (hours == absent) {
        return;
    }
    if (*cursor_ == ':') {
        ++cursor_;
    }
    const int minutes = twoDigits();
    const int offset = hours * 60 + (minutes == absent ? 0 : minutes);
    setOffset(static_cast<std::uint32_t>(sign == '-' ? -offset : offset));
}

int Iso8601Parser::twoDigits() noexcept {
    if (!isDigit(cursor_[0]) || !isDigit(cursor_[1])) {
        return absent;
    }
    const unsigned number = digitValue(cursor_[0]) * 10 + digitValue(cursor_[1]);
    cursor_ += 2;
    return static_cast<int>(number);
}

// The number of characters up to "T" or the end of the text; of no interest above the longest form.
int Iso8601Parser::lengthOfDate() const noexcept {
    constexpr int longest = 10;
    int length = 0;
    while (length <= longest && cursor_[length] != '\0' && cursor_[length] != 'T') {
        ++length;
    }
    return length;
}

void Iso8601Parser::addTime(int milliseconds) noexcept {
    value_.time_ += static_cast<std::uint32_t>(milliseconds);
}

void Iso8601Parser::setOffset(std::uint32_t minutes) noexcept {
    value_.date_ =
        (value_.date_ & ~Iso8601DateTime::offsetMask) | (minutes & Iso8601DateTime::offsetMask);
}

const std::tm& Iso8601Parser::now() noexcept {
    if (!now_) {
        now_ = clock_();
    }
    return *now_;
}

}  // namespace nolk
