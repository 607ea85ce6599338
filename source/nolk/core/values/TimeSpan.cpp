#include <nolk/core/TimeSpan.h>

#include "nolk/core/values/Calendar.h"
#include "nolk/core/values/JulianDay.h"
#include "nolk/core/values/PlainNumber.h"

#include <charconv>
#include <cmath>
#include <compare>
#include <limits>
#include <ostream>
#include <string_view>

namespace nolk {

enum TimeSpan::ParseState : int {
    none = 0,
    years = 1,
    months = 2,
    days = 3,
    hours = 4,
    minutes = 5,
    seconds = 6,
};

namespace {

// On Windows a constant leaves the library only where something in it needs the constant's address.
[[gnu::used]] const double* const exportedDouble = &TimeSpan::DaysInMonth;
[[gnu::used]] const unsigned* const exportedCounts[] = {
    &TimeSpan::DaysInYear, &TimeSpan::SecondsInMinute, &TimeSpan::SecondsInHour,
    &TimeSpan::SecondsInDay};

// By the places of their letters.
constexpr char designators[] = "PYMDTHMS";
enum Designator { period, year, month, day, time, hour, minute, second };

// Every 400 years the calendar is the same again.
constexpr std::int64_t daysOfCycle = 146097;
constexpr std::int64_t yearsOfCycle = 400;
// From day 0 to the years that are counted from 0 on.
constexpr std::int64_t cyclesToNumbers = 12;

constexpr std::int64_t millisecondsOfDay = 86400000;

constexpr std::int64_t floorOf(std::int64_t a, std::int64_t b) {
    return a / b - (a % b != 0 && (a < 0) != (b < 0));
}

constexpr std::int64_t restOf(std::int64_t a, std::int64_t b) {
    return a - b * floorOf(a, b);
}

// Cut to an integer; what is out of range stops at 2^62, so that sums have room, and what is no
// number is 0.
std::int64_t truncated(double value) {
    constexpr double limit = 4611686018427387904.0;
    if (std::isnan(value)) {
        return 0;
    }
    return static_cast<std::int64_t>(std::min(std::max(value, -limit), limit));
}

// A civil time in GMT. Only the milliseconds may be out of their range.
struct Civil {
    std::int64_t year;
    std::int64_t month;
    std::int64_t day;
    std::int64_t hour = 0;
    std::int64_t minute = 0;
    std::int64_t second = 0;
    std::int64_t millisecond = 0;

    // Puts the unit into its range, and returns what is carried to the next.
    static std::int64_t carry(std::int64_t& unit, std::int64_t limit) {
        const std::int64_t carried = floorOf(unit, limit);
        unit -= carried * limit;
        return carried;
    }

    void carryMonths() {
        --month;
        year += carry(month, 12);
        ++month;
    }
};

constexpr int lengthOf(std::int64_t year, std::int64_t month) {
    return calendar::lengthOfMonth(year, static_cast<int>(month - 1));
}

// The number of the first of the month, as a day and whole cycles before it.
struct MonthStart {
    std::int64_t cycles;
    std::int64_t julian;
};

MonthStart startOf(std::int64_t year, std::int64_t month) {
    const std::int64_t cycles = floorOf(year, yearsOfCycle);
    const auto yearInCycle = static_cast<unsigned>(year - cycles * yearsOfCycle);
    return {cycles, julian::fromCivil(static_cast<unsigned>(month), 1, yearInCycle)};
}

// Moves the months on until the day is in its range: where that ends is what the calendar says.
void carryDays(Civil& civil) {
    const MonthStart start = startOf(civil.year, civil.month);
    std::int64_t number = start.julian + civil.day - 1;
    const std::int64_t cycles = floorOf(number, daysOfCycle);
    // As a day that surely has a civil date: after the year 0.
    number += (cyclesToNumbers - cycles) * daysOfCycle;
    const Date date(static_cast<unsigned long>(number));
    civil.year = (start.cycles + cycles - cyclesToNumbers) * yearsOfCycle + date.year();
    civil.month = date.month();
    civil.day = date.dayOfMonth();
}

// The civil time that a span leads to, by the rules of XML Schema.
Civil sumOf(const Civil& start, const TimeSpan& span) {
    const int sign = span.isNegative() ? -1 : 1;
    Civil sum = start;
    sum.month += sign * std::int64_t{span.getMonths()};
    sum.carryMonths();
    sum.year += sign * std::int64_t{span.getYears()};

    const double seconds = static_cast<double>(start.second) + sign * span.getSeconds();
    sum.second = truncated(seconds);
    // In the milliseconds a fraction may be negative, and stays so.
    const double fraction = seconds - std::trunc(seconds);
    sum.millisecond = truncated(static_cast<double>(start.millisecond) + fraction * 1000);
    sum.minute += sign * std::int64_t{span.getMinutes()} + Civil::carry(sum.second, 60);
    sum.hour += sign * std::int64_t{span.getHours()} + Civil::carry(sum.minute, 60);
    const std::int64_t days = Civil::carry(sum.hour, 24);

    sum.day = std::min<std::int64_t>(start.day, lengthOf(sum.year, sum.month));
    sum.day += sign * std::int64_t{span.getDays()} + days;
    carryDays(sum);
    return sum;
}

// An instant that knows no end of its range.
struct Moment {
    std::int64_t day;
    std::int64_t millisecond;

    friend auto operator<=>(const Moment&, const Moment&) = default;
};

Moment momentOf(const Civil& civil) {
    const MonthStart start = startOf(civil.year, civil.month);
    Moment moment{};
    moment.day = start.cycles * daysOfCycle + start.julian + civil.day;
    moment.millisecond =
        ((civil.hour * 60 + civil.minute) * 60 + civil.second) * 1000 + civil.millisecond;
    moment.day += Civil::carry(moment.millisecond, millisecondsOfDay);
    return moment;
}

void appendCount(std::string& text, std::uint32_t count, Designator designator) {
    text += std::to_string(count);
    text += designators[designator];
}

// Six decimals without the zeroes at their end.
void appendSeconds(std::string& text, double seconds) {
    // The longest number has 309 digits before the point.
    char digits[std::numeric_limits<double>::max_exponent10 + 16];
    const std::to_chars_result result =
        std::to_chars(digits, digits + sizeof digits, seconds, std::chars_format::fixed, 6);
    std::string_view number(digits, static_cast<std::size_t>(result.ptr - digits));
    if (std::isfinite(seconds)) {
        number = number.substr(0, number.find_last_not_of('0') + 1);
        number = number.substr(0, number.size() - number.ends_with('.'));
    }
    text += number;
    text += designators[second];
}

}  // namespace

TimeSpan::TimeSpan(const std::string& text) {
    TimeSpan::extract(text);
}

TimeSpan::~TimeSpan() = default;

bool TimeSpan::isEqual(const TimeSpan& other) const {
    return compareTo(other) == 0;
}

int TimeSpan::compareTo(const TimeSpan& other) const {
    const double mine = approximateSeconds();
    const double others = other.approximateSeconds();
    return (mine > others) - (mine < others);
}

double TimeSpan::approximateSeconds() const noexcept {
    const double days = months_ * DaysInMonth + days_ + static_cast<double>(years_) * DaysInYear;
    const auto whole = static_cast<std::uint32_t>(static_cast<std::uint64_t>(days));
    const std::uint32_t wrapped = whole * SecondsInDay;
    return wrapped + static_cast<double>(minutes_) * SecondsInMinute + seconds_ +
           static_cast<double>(hours_) * SecondsInHour;
}

// Hours and minutes wrap: callers get the same answer everywhere.
bool TimeSpan::hasTime() const noexcept {
    return static_cast<std::uint32_t>(hours_ + minutes_) + seconds_ > 0;
}

bool TimeSpan::verifyAndAssign(ParseState previous, ParseState state, bool seenP, bool seenT,
                               const std::string& text) noexcept {
    // The same part twice passes, and the second value holds.
    if (!seenP || previous > state || (state >= ParseState::hours && !seenT)) {
        return false;
    }
    std::string_view rest = text.c_str();
    if (state == ParseState::seconds) {
        const std::optional<double> value = takeDouble(rest);
        // Digits may stand behind a word such as "inf".
        const bool taken = value && (rest.empty() || (rest.front() >= '0' && rest.front() <= '9'));
        seconds_ = taken ? *value : seconds_;
        return taken;
    }
    const std::optional<std::uint32_t> value = takeUnsigned(rest);
    if (!value || !rest.empty()) {
        return false;
    }
    std::uint32_t TimeSpan::*const fields[] = {&TimeSpan::years_, &TimeSpan::months_,
                                               &TimeSpan::days_, &TimeSpan::hours_,
                                               &TimeSpan::minutes_};
    this->*fields[state - 1] = *value;
    return true;
}

void TimeSpan::extract(const std::string& text) {
    *this = TimeSpan();
    bool seenP = false;
    bool seenT = false;
    ParseState previous = ParseState::none;
    std::string buffer;
    const auto finishPart = [&](ParseState state) {
        valid_ = verifyAndAssign(previous, state, seenP, seenT, buffer);
        previous = state;
        buffer.clear();
    };
    for (const char c : text) {
        switch (c) {
            case '-':
                // Anywhere before the "P".
                valid_ = !seenP;
                negative_ = negative_ || valid_;
                break;
            case designators[period]:
                seenP = true;
                break;
            case designators[time]:
                valid_ = seenP;
                seenT = true;
                break;
            case designators[year]:
                finishPart(ParseState::years);
                break;
            case designators[month]:
                finishPart(seenT ? ParseState::minutes : ParseState::months);
                break;
            case designators[day]:
                finishPart(ParseState::days);
                break;
            case designators[hour]:
                finishPart(ParseState::hours);
                break;
            case designators[second]:
                finishPart(ParseState::seconds);
                break;
            default:
                buffer += c;
                valid_ = seenP;
        }
        if (!valid_) {
            return;
        }
    }
    valid_ = !seenT || hasTime();
}

std::string TimeSpan::asString() const {
    std::string text;
    if (!valid_) {
        return text;
    }
    if (negative_) {
        text += '-';
    }
    text += designators[period];
    appendCount(text, years_, year);
    appendCount(text, months_, month);
    appendCount(text, days_, day);
    if (hasTime()) {
        text += designators[time];
        appendCount(text, hours_, hour);
        appendCount(text, minutes_, minute);
        appendSeconds(text, seconds_);
    }
    return text;
}

DateTime TimeSpan::operator+(const DateTime& time) const {
    std::tm tm{};
    time.extractGMT(&tm);
    const Civil sum = sumOf({.year = std::int64_t{tm.tm_year} + 1900,
                             .month = tm.tm_mon + 1,
                             .day = tm.tm_mday,
                             .hour = tm.tm_hour,
                             .minute = tm.tm_min,
                             .second = tm.tm_sec,
                             .millisecond = time.milliSecond()},
                            *this);
    if (sum.year < 0 || sum.year > std::numeric_limits<unsigned>::max()) {
        return DateTime(DateTime::invalid);
    }
    return DateTime(static_cast<unsigned>(sum.day), static_cast<unsigned>(sum.month),
                    static_cast<unsigned>(sum.year), static_cast<unsigned>(sum.hour),
                    static_cast<unsigned>(sum.minute), static_cast<unsigned>(sum.second),
                    static_cast<int>(sum.millisecond), TimeZone::utc());
}

bool operator<(const TimeSpan& a, const TimeSpan& b) noexcept {
    // Between them they have all the lengths that months and years in a row can have.
    constexpr Civil references[] = {
        {1696, 9, 1},
        {1697, 2, 1},
        {1903, 3, 1},
        {1903, 7, 1},
    };
    for (const Civil& reference : references) {
        if (!(momentOf(sumOf(reference, a)) < momentOf(sumOf(reference, b)))) {
            return false;
        }
    }
    return true;
}

std::int64_t TimeSpan::quotient(std::int64_t a, std::int64_t b) noexcept {
    return b == 0 ? 0 : floorOf(a, b);
}

std::int64_t TimeSpan::quotient(std::int64_t a, std::int64_t low, std::int64_t high) noexcept {
    return quotient(a - low, high - low);
}

double TimeSpan::modulo(double a, double b) noexcept {
    return a - b * static_cast<double>(quotient(truncated(a), truncated(b)));
}

double TimeSpan::modulo(double a, double low, double high) noexcept {
    return modulo(a - low, high - low) + low;
}

int TimeSpan::maxDaysInMonth(std::int64_t year, std::int64_t month) noexcept {
    const std::int64_t folded = restOf(month - 1, 12) + 1;
    return lengthOf(year + floorOf(month - 1, 12), folded);
}

std::ostream& operator<<(std::ostream& stream, const TimeSpan& span) {
    return stream << span.asString();
}

}  // namespace nolk
