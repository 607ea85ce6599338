/** @file
 * A duration of XML Schema.
 */
#ifndef NOLK_CORE_TIME_SPAN_H
#define NOLK_CORE_TIME_SPAN_H

#include <nolk/core/DateTime.h>
#include <nolk/core/Export.h>

#include <cstdint>
#include <iosfwd>
#include <string>

namespace nolk {

/**
 * A duration as XML Schema has it: counts of years, months, days, hours, minutes and seconds that
 * are never turned into each other, and a sign.
 *
 *     TimeSpan span("P1Y2M3DT4H5M6.5S");
 *     span.getMonths();                   // 2
 *     DateTime later = span + DateTime::now();
 *
 * Nothing throws for a bad text: the span isn't valid, and its text is empty. Text neither reads
 * nor shows the process's locale. A plain value with virtual operations; one object belongs to one
 * thread at a time.
 */
class NOLK_API TimeSpan {
public:
    static constexpr double DaysInMonth = 30.42;
    static constexpr unsigned DaysInYear = 365;
    static constexpr unsigned SecondsInMinute = 60;
    static constexpr unsigned SecondsInHour = 3600;
    static constexpr unsigned SecondsInDay = 86400;

    TimeSpan() noexcept = default;
    explicit TimeSpan(std::uint32_t years, std::uint32_t months = 0, std::uint32_t days = 0,
                      std::uint32_t hours = 0, std::uint32_t minutes = 0,
                      double seconds = 0) noexcept
        : years_(years),
          months_(months),
          days_(days),
          hours_(hours),
          minutes_(minutes),
          seconds_(seconds) {}
    /** Reads the text as extract() does. */
    explicit TimeSpan(const std::string& text);

    TimeSpan(const TimeSpan&) noexcept = default;
    TimeSpan& operator=(const TimeSpan&) noexcept = default;
    virtual ~TimeSpan();

    /** Whether compareTo() is 0. */
    virtual bool isEqual(const TimeSpan& other) const;

    /**
     * -1, 0 or 1 by the approximate length, with a month of 30.42 days and a year of 365. The whole
     * days are counted as seconds in 32 bits, so that beyond 49710 of them lengths wrap. The sign
     * doesn't count: "P1D" and "-P1D" compare as 0.
     */
    virtual int compareTo(const TimeSpan& other) const;

    /**
     * Reads a text such as "-P1Y2M3DT4H5M6.5S"; any of the parts may be missing. A part has the
     * form of `strtoul` in base 10, or for the seconds of `strtod`. Counts above 4294967295 read as
     * that. Where the text has another form the span isn't valid, and keeps the parts before the
     * fault. A time part must have a value: "P1DT" and "PT0S" aren't valid. The empty text is a
     * valid span of nothing.
     */
    virtual void extract(const std::string& text);

    /**
     * "P1Y2M3DT4H5M6.5S"; the part from "T" on only where hours, minutes and seconds are above 0
     * together. Seconds have at most six decimals. Empty if the span isn't valid.
     */
    virtual std::string asString() const;

    bool isValid() const noexcept { return valid_; }
    bool isNegative() const noexcept { return negative_; }

    std::uint32_t getYears() const noexcept { return years_; }
    std::uint32_t getMonths() const noexcept { return months_; }
    std::uint32_t getDays() const noexcept { return days_; }
    std::uint32_t getHours() const noexcept { return hours_; }
    std::uint32_t getMinutes() const noexcept { return minutes_; }
    double getSeconds() const noexcept { return seconds_; }

    /** Store the field. They don't make a span valid. @{ */
    void setYears(std::uint32_t years) noexcept { years_ = years; }
    void setMonths(std::uint32_t months) noexcept { months_ = months; }
    void setDays(std::uint32_t days) noexcept { days_ = days; }
    void setHours(std::uint32_t hours) noexcept { hours_ = hours; }
    void setMinutes(std::uint32_t minutes) noexcept { minutes_ = minutes; }
    void setSeconds(double seconds) noexcept { seconds_ = seconds; }
    /** @} */

    /** Turns the sign of this object, and returns it: no copy is made. */
    TimeSpan& operator-() noexcept {
        negative_ = !negative_;
        return *this;
    }

    /**
     * The instant that is this span after `time`, or before it, by the calendar of GMT: the day of
     * the month is cut to the length of the month that years and months lead to, and then the days
     * and the time are added. Invalid where the year is negative or above 4294967295.
     * @throws Exception for a reserved `time`
     */
    DateTime operator+(const DateTime& time) const;

    /** Alike in every field, both signs and validity. */
    friend bool operator==(const TimeSpan& a, const TimeSpan& b) noexcept {
        return a.years_ == b.years_ && a.months_ == b.months_ && a.days_ == b.days_ &&
               a.hours_ == b.hours_ && a.minutes_ == b.minutes_ && a.seconds_ == b.seconds_ &&
               a.valid_ == b.valid_ && a.negative_ == b.negative_;
    }

    /**
     * Whether `a` is shorter than `b` from each of 1 September 1696, 1 February 1697, 1 March 1903
     * and 1 July 1903 on. A partial order: of "P1M" and "P30D" neither is before the other. Safe in
     * several threads, and right also where the sums are no DateTime.
     */
    friend NOLK_API bool operator<(const TimeSpan& a, const TimeSpan& b) noexcept;

protected:
    /** The floor of `a / b`. @pre `b` isn't 0, and the quotient is in the range */
    static std::int64_t quotient(std::int64_t a, std::int64_t b) noexcept;
    /** quotient(a - low, high - low). */
    static std::int64_t quotient(std::int64_t a, std::int64_t low, std::int64_t high) noexcept;
    /**
     * `a` less `b` times the floor of their quotient, for which both are cut to integers.
     * @pre `b` isn't between -1 and 1
     */
    static double modulo(double a, double b) noexcept;
    /** modulo(a - low, high - low) + low. */
    static double modulo(double a, double low, double high) noexcept;
    /** Months outside 1 to 12 lie in the years before and behind. */
    static int maxDaysInMonth(std::int64_t year, std::int64_t month) noexcept;

private:
    enum ParseState : int;

    bool verifyAndAssign(ParseState previous, ParseState state, bool seenP, bool seenT,
                         const std::string& text) noexcept;
    bool hasTime() const noexcept;
    double approximateSeconds() const noexcept;

    std::uint32_t years_ = 0;
    std::uint32_t months_ = 0;
    std::uint32_t days_ = 0;
    std::uint32_t hours_ = 0;
    std::uint32_t minutes_ = 0;
    double seconds_ = 0;
    bool valid_ = true;
    bool negative_ = false;
};

/** Writes asString(). */
NOLK_API std::ostream& operator<<(std::ostream& stream, const TimeSpan& span);

}  // namespace nolk

#endif
