/** @file
 * An instant.
 */
#ifndef NOLK_CORE_DATE_TIME_H
#define NOLK_CORE_DATE_TIME_H

#include <nolk/core/Date.h>
#include <nolk/core/Export.h>
#include <nolk/core/TimeZone.h>

#include <chrono>
#include <ctime>
#include <iosfwd>
#include <limits>
#include <string>

namespace nolk {

/**
 * An instant, in milliseconds since 1 January 1901, 00:00:00 GMT, or one of a few reserved values
 * that are none: invalid, null (no value), past and future (before and after all instants), and
 * 128 that belong to the program.
 *
 *     DateTime t("1994-11-06T08:49:37Z", DateTime::iso8601, locale, TimeZone::utc());
 *     t.hour(eastern);                                       // 3
 *     t.asString(DateTime::http, locale, TimeZone::utc());   // "Sun, 06 Nov 1994 08:49:37 GMT"
 *
 * Constructors don't throw for a bad input: they make the invalid value. What reads a civil field
 * or a Julian number, and what orders or subtracts, throws Exception with the id
 * NOLK_CORE_DATETIME_INVALID_OBJECT on reserved values where nothing else is told. Counts past the
 * ends of 64 bits, 292 million years off, wrap. Week days and months are those of Date, but years
 * below 100 are themselves; those before the year 0 are told modulo 2^32.
 *
 * A plain value.
 */
class NOLK_API DateTime {
public:
    enum InitialState : int { invalid = 0, null = 1, setCurrentTime = 2 };

    /** The fixed forms of exchange. */
    enum Format : int {
        iso8601 = 0, /**< "2001-02-03T04:05:06,789-05:00", read in any form of Iso8601DateTime. */
        http = 1,    /**< "Sun, 06 Nov 1994 08:49:37 GMT", read in any of its three forms. */
    };

    /** What a text in the locale's form tells. */
    enum SetType : int {
        setDate = 0, /**< A date; the time is 0:00:00. */
        setTime = 1, /**< A time of today, which is the day by TimeZone::local(). */
        setBoth = 2, /**< A date, ";" and a time. */
    };

    /** Any other state is invalid. */
    explicit DateTime(InitialState state) noexcept;
    /** By its count; the highest is future, and 256 above the lowest is past. */
    explicit constexpr DateTime(long long milliSeconds) noexcept : ms_(milliSeconds) {}
    /** Invalid where it lies outside the range. */
    explicit DateTime(std::chrono::sys_time<std::chrono::milliseconds> time) noexcept;

    /**
     * By civil time in a zone. The time of day isn't checked: hour 25 is in the next day.
     * Milliseconds may be negative. Invalid if there is no such day, or if the clock jumps over the
     * time.
     * @{
     */
    DateTime(const Date& date, unsigned hour, unsigned minute, unsigned second, int millisecond,
             const TimeZone& zone);
    DateTime(unsigned day, unsigned month, unsigned year, unsigned hour, unsigned minute,
             unsigned second, int millisecond, const TimeZone& zone);
    DateTime(unsigned day, const char* monthName, unsigned year, unsigned hour, unsigned minute,
             unsigned second, int millisecond, const Locale& locale, const TimeZone& zone);
    /** `tm_wday`, `tm_yday` and `tm_isdst` don't count. @pre `tm` isn't null */
    DateTime(const struct tm* tm, unsigned millisecond, const TimeZone& zone);
    /** @} */

    /** From text. A format or type that is no enumerator gives invalid. @{ */
    DateTime(const std::string& text, SetType type, const Locale& locale, const TimeZone& zone);
    DateTime(const std::string& text, Format format, const Locale& locale, const TimeZone& zone);
    /** @} */

    /** Whether it is an instant or null. */
    bool isValid() const noexcept { return !isSentinel() || empty(); }
    /** The opposite: past, future and the program's own values are invalid, too. */
    bool isInvalid() const noexcept { return !isValid(); }
    /** Whether it is a reserved value. */
    bool isSentinel() const noexcept { return ms_ <= pastCount || ms_ == futureCount; }
    bool empty() const noexcept { return ms_ == nullCount; }
    bool isPast() const noexcept { return ms_ == pastCount; }
    bool isFuture() const noexcept { return ms_ == futureCount; }

    /** The count, or the reserved value, as it is. */
    long long milliSeconds() const noexcept { return ms_; }
    unsigned hash() const noexcept;
    /** Throws for what is no instant, and where the range of the result is left. */
    std::chrono::sys_time<std::chrono::milliseconds> toSysTime() const;

    /** @name Civil time in a zone @{ */
    unsigned year(const TimeZone& zone) const;
    unsigned month(const TimeZone& zone) const;
    unsigned dayOfMonth(const TimeZone& zone) const;
    /** The day of the year, 1 for 1 January. */
    unsigned day(const TimeZone& zone) const;
    unsigned hour(const TimeZone& zone) const;
    unsigned minute(const TimeZone& zone) const;
    unsigned weekDay(const TimeZone& zone) const;
    bool leap(const TimeZone& zone) const;
    /** Whether daylight time holds: by standard time as well as by daylight time itself. */
    bool isDST(const TimeZone& zone) const;
    /** All nine standard fields. @pre `tm` isn't null */
    void extract(struct tm* tm, const TimeZone& zone) const;
    /** A date that isn't valid for a reserved value. */
    Date toDate(const TimeZone& zone) const;
    /** The day of the year on which a month begins, this one or another; 0 if it is none. */
    unsigned firstDayOfMonth(const TimeZone& zone) const;
    unsigned firstDayOfMonth(unsigned month, const TimeZone& zone) const;
    std::string monthName(const Locale& locale, const TimeZone& zone) const;
    std::string weekDayName(const Locale& locale, const TimeZone& zone) const;
    /**
     * The same time of day, by GMT, on the first later or last earlier day of a week day. A name
     * that the locale doesn't know gives invalid. @pre a number is from 1 to 7
     */
    DateTime next(unsigned weekday, const TimeZone& zone) const;
    DateTime next(const char* weekday, const Locale& locale, const TimeZone& zone) const;
    DateTime previous(unsigned weekday, const TimeZone& zone) const;
    DateTime previous(const char* weekday, const Locale& locale, const TimeZone& zone) const;
    /** @} */

    /** @name Civil time in GMT @{ */
    unsigned yearGMT() const;
    unsigned monthGMT() const;
    unsigned dayOfMonthGMT() const;
    unsigned dayGMT() const;
    unsigned hourGMT() const;
    unsigned minuteGMT() const;
    unsigned weekDayGMT() const;
    bool leapGMT() const;
    void extractGMT(struct tm* tm) const;
    /** @} */

    /** The same in every zone of whole minutes; 0 to 59, and 0 to 999. @{ */
    unsigned second() const;
    unsigned milliSecond() const;
    /** @} */

    /** The number of the day by GMT, counted in 32 bits. */
    unsigned julian() const;
    /** The same with days that begin at noon. */
    unsigned correctedJulian() const;
    /** With the part of the day that has passed. */
    double julianDay() const;

    /** Sets the day and leaves the time of day; a reserved value becomes the count 0 first. */
    void julian(unsigned day) noexcept;
    /** Sets day and time of day, and returns its argument; invalid beyond 64 bits of days. */
    double julianDay(double day) noexcept;

    /**
     * Moves on or back. Past and future stay; any other reserved value becomes invalid.
     * @{
     */
    DateTime& incrementHour(long long hours) noexcept;
    DateTime& incrementMinute(long long minutes) noexcept;
    DateTime& incrementSecond(long long seconds) noexcept;
    DateTime& decrementHour(long long hours) noexcept;
    DateTime& decrementMinute(long long minutes) noexcept;
    DateTime& decrementSecond(long long seconds) noexcept;
    friend NOLK_API DateTime operator+(const DateTime& time, long long milliseconds) noexcept;
    friend NOLK_API DateTime operator-(const DateTime& time, long long milliseconds) noexcept;
    /** @} */
    /** In milliseconds. Throws on any reserved value. */
    friend NOLK_API long long operator-(const DateTime& a, const DateTime& b);

    /** By the raw values, reserved ones as well. */
    friend constexpr bool operator==(const DateTime&, const DateTime&) noexcept = default;
    /**
     * Throws if a side isInvalid(). Null is before nothing, and nothing is before null; the other
     * orderings are made of this one, so that `null <= x` and `null >= x` are true.
     */
    friend NOLK_API bool operator<(const DateTime& a, const DateTime& b);
    friend bool operator>(const DateTime& a, const DateTime& b) { return b < a; }
    friend bool operator<=(const DateTime& a, const DateTime& b) { return !(b < a); }
    friend bool operator>=(const DateTime& a, const DateTime& b) { return !(a < b); }
    /** -1, 0 or 1; past and future compare, and other reserved values throw. */
    int compareTo(const DateTime& other) const;
    /** By `<`, and so for instants only. @{ */
    DateTime max(const DateTime& other) const;
    DateTime min(const DateTime& other) const;
    /** Whether it is from `first` to `last`, both included. */
    bool between(const DateTime& first, const DateTime& last) const {
        return *this >= first && *this <= last;
    }
    /** @} */

    /**
     * By one conversion of the locale, or by a format. Null gives "NULL", any other reserved value
     * "#INVALID#".
     */
    std::string asString(char format, const Locale& locale, const TimeZone& zone) const;
    std::string asString(const char* format, const Locale& locale, const TimeZone& zone) const;
    /**
     * In a form of exchange; empty for a format that is none. `http` is always in GMT. In `iso8601`
     * the milliseconds stand only if there are any; the minutes of an offset east of GMT bear a
     * minus sign, as in "+05:-30", unless they are 0.
     */
    std::string asString(Format format, const Locale& locale, const TimeZone& zone) const;

    /** The present instant, by the system's clock. */
    static DateTime now() noexcept { return DateTime(setCurrentTime); }
    /**
     * The program's own values, 0 to 127.
     * @throws Exception with NOLK_CORE_DATETIME_INVALID_SENTINEL for other numbers
     */
    static DateTime userSentinel(int n);
    /** As in Date. @{ */
    static unsigned daysInMonthYear(unsigned month, unsigned year) noexcept;
    static unsigned daysInYear(unsigned year) noexcept;
    static bool dayWithinMonth(unsigned month, unsigned day, unsigned year) noexcept;
    static std::string nameOfMonth(unsigned month, const Locale& locale);
    static std::string weekDayName(unsigned weekday, const Locale& locale);
    /** @} */
    /** When daylight time begins and ends in a year; the count 0 if it doesn't. @{ */
    static DateTime beginDST(unsigned year, const TimeZone& zone);
    static DateTime endDST(unsigned year, const TimeZone& zone);
    /** @} */

protected:
    DateTime doMax(const DateTime& other) const;
    DateTime doMin(const DateTime& other) const;

private:
    static constexpr long long lowestCount = std::numeric_limits<long long>::min();
    static constexpr long long invalidCount = lowestCount + 128;
    static constexpr long long nullCount = lowestCount + 129;
    static constexpr long long pastCount = lowestCount + 256;
    static constexpr long long futureCount = std::numeric_limits<long long>::max();

    DateTime& operator++() noexcept;
    DateTime& operator--() noexcept;
    DateTime& operator+=(long long milliseconds) noexcept;
    DateTime& operator-=(long long milliseconds) noexcept;

    long long ms_;
};

/** Writes the form `iso8601` in GMT. */
NOLK_API std::ostream& operator<<(std::ostream& stream, const DateTime& time);

}  // namespace nolk

#endif
