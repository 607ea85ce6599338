// Walks through the year day by day, asks whether each is in daylight time, and halves the interval
// in which the answer changes until the second of the change is known. Its civil time is told in
// the time that ends then: the second before it, plus one.

#include "nolk/core/values/DaylightProbe.h"

#include <nolk/core/Iso8601DateTime.h>

#include "nolk/core/values/Calendar.h"

namespace nolk {

namespace {

constexpr std::int64_t secondsOfDay = 86400;
constexpr int minutesOfDay = 1440;
constexpr int noMonth = 12;

constexpr DaylightBoundary notFound{.month = noMonth, .week = -1, .weekday = 0, .minute = 0};

class Probe {
public:
    explicit Probe(LocalTime localTime) : localTime_(localTime) {}

    std::tm civil(std::int64_t instant) const {
        std::tm civil{};
        return localTime_(instant, civil) ? civil : std::tm{};
    }

    bool isDaylight(std::int64_t instant) const { return civil(instant).tm_isdst > 0; }

    // The first instant whose answer is that of `to`. @pre `from` has the other answer
    std::int64_t changeBetween(std::int64_t from, std::int64_t to) const {
        const bool behind = isDaylight(to);
        while (to - from > 1) {
            const std::int64_t middle = from + (to - from) / 2;
            (isDaylight(middle) == behind ? to : from) = middle;
        }
        return to;
    }

private:
    LocalTime localTime_;
};

// The minute that begins where the second `last` ends.
DaylightBoundary boundaryBehind(const std::tm& last) {
    const int year = last.tm_year + 1900;
    int yday = last.tm_yday;
    int minute = last.tm_hour * 60 + last.tm_min + 1;
    if (minute == minutesOfDay && yday + 1 < calendar::lengthOfYear(year)) {
        ++yday;
        minute = 0;
    }
    return {.month = Iso8601DateTime::monthFromYDay(year, yday) - 1,
            .week = -1,
            .weekday = Iso8601DateTime::monthDayFromYDay(year, yday),
            .minute = minute};
}

}  // namespace

DaylightRule probeDaylight(std::int64_t now, LocalTime localTime) noexcept {
    const Probe probe(localTime);
    DaylightRule rule{.begin = notFound, .end = notFound};
    const int year = probe.civil(now).tm_year;
    // The civil year begins and ends within a day of that of GMT.
    const std::int64_t first = (calendar::daysFrom1970(year + 1900) - 1) * secondsOfDay;
    const std::int64_t last = (calendar::daysFrom1970(year + 1901) + 1) * secondsOfDay;
    bool daylight = probe.isDaylight(first);
    for (std::int64_t day = first + secondsOfDay; day <= last; day += secondsOfDay) {
        if (probe.isDaylight(day) == daylight) {
            continue;
        }
        daylight = !daylight;
        const std::int64_t change = probe.changeBetween(day - secondsOfDay, day);
        const std::tm before = probe.civil(change - 1);
        DaylightBoundary& boundary = daylight ? rule.begin : rule.end;
        if (before.tm_year == year && boundary.month == noMonth) {
            boundary = boundaryBehind(before);
        }
    }
    rule.observed = rule.begin.month != noMonth;
    return rule;
}

}  // namespace nolk
