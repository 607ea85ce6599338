/** @file
 * A calendar day.
 */
#ifndef NOLK_CORE_DATE_H
#define NOLK_CORE_DATE_H

#include <nolk/core/Export.h>

#include <compare>
#include <cstdint>
#include <ctime>
#include <iosfwd>
#include <string>

namespace nolk {

class Locale;

/**
 * A day of the proleptic Gregorian calendar, without time or zone, held as its Julian day number.
 *
 *     Date day(6, 11, 1994);
 *     day.weekDay();           // 7, Sunday
 *     day.next(1).dayOfMonth() // 7, Monday the 7th
 *     day + 30;                // 6 December
 *
 * Nothing is thrown for a day that there isn't: it has the number 0 and isn't valid, and its fields
 * mean nothing. Civil dates have numbers of 32 bits, which end in the year 11754508. Years before
 * the year 0, to which only numbers lead, are told modulo 2^32. Week days run from 1 for Monday to
 * 7 for Sunday, months from 1 to 12.
 *
 * A plain value.
 */
class NOLK_API Date {
public:
    /** Today, by the local time of the process. */
    Date() noexcept;
    /** By its number; 1 January 1901 is 2415386, and 0 isn't valid. */
    explicit constexpr Date(unsigned long julian) noexcept : julian_(julian) {}
    /** A day of a year, from 1 on; it may lie behind the year. With year 0 it counts from 1901. */
    Date(unsigned day, unsigned year) noexcept;
    /** Years below 100 are those from 1900 to 1999. */
    Date(unsigned day, unsigned month, unsigned year) noexcept;
    /** From `tm_mday`, `tm_mon` and `tm_year`. @pre `tm` isn't null */
    explicit Date(const struct tm* tm) noexcept;
    /** As the locale reads dates. */
    Date(const std::string& text, const Locale& locale);
    /** With the name of a month in the locale. */
    Date(unsigned day, const char* monthName, unsigned year, const Locale& locale);

    bool isValid() const noexcept { return julian_ != 0; }
    unsigned long julian() const noexcept { return julian_; }
    unsigned long hash() const noexcept { return julian_; }

    unsigned year() const noexcept { return static_cast<unsigned>(civil().year); }
    unsigned month() const noexcept { return civil().month; }
    unsigned dayOfMonth() const noexcept { return civil().day; }
    /** The day of the year, 1 for 1 January. */
    unsigned day() const noexcept;
    unsigned weekDay() const noexcept { return static_cast<unsigned>(julian_ % 7 + 1); }
    bool leap() const noexcept;
    /** The day of the year on which a month begins, this one or another; 0 if it is none. @{ */
    unsigned firstDayOfMonth() const noexcept { return firstDayOfMonth(month()); }
    unsigned firstDayOfMonth(unsigned month) const noexcept;
    /** @} */
    std::string monthName(const Locale& locale) const;
    std::string weekDayName(const Locale& locale) const;

    /**
     * Writes the day into all nine standard fields, with time 0:00:00 and `tm_isdst` -1. A date
     * that isn't valid gives the lowest 32-bit value in each. @pre `tm` isn't null
     */
    void extract(struct tm* tm) const noexcept;

    /**
     * The first day after this one, or the last before it, that is a week day of that number or
     * name. A name that the locale doesn't know gives a date that isn't valid.
     * @pre a number is from 1 to 7
     * @{
     */
    Date next(unsigned weekday) const noexcept;
    Date next(const char* weekday, const Locale& locale) const;
    Date previous(unsigned weekday) const noexcept;
    Date previous(const char* weekday, const Locale& locale) const;
    /** @} */

    /** By one conversion of the locale, or by a format. @{ */
    std::string asString(char format, const Locale& locale) const;
    std::string asString(const char* format, const Locale& locale) const;
    /** @} */

    /** -1, 0 or 1. */
    int compareTo(const Date& other) const noexcept;
    Date max(const Date& other) const noexcept { return *this < other ? other : *this; }
    Date min(const Date& other) const noexcept { return other < *this ? other : *this; }
    /** Whether it is one of the days from `first` to `last`, both included. */
    bool between(const Date& first, const Date& last) const noexcept {
        return *this >= first && *this <= last;
    }
    friend auto operator<=>(const Date&, const Date&) noexcept = default;

    void julian(unsigned long julian) noexcept { julian_ = julian; }

    Date& operator++() noexcept { return *this += 1; }
    Date& operator--() noexcept { return *this -= 1; }
    Date operator++(int) noexcept { return Date(julian_++); }
    Date operator--(int) noexcept { return Date(julian_--); }
    Date& operator+=(unsigned long days) noexcept {
        julian_ += days;
        return *this;
    }
    Date& operator-=(unsigned long days) noexcept {
        julian_ -= days;
        return *this;
    }

    static Date now() noexcept { return Date(); }

    /** The number of a day, by the rules of Date(day, month, year); 0 if there is no such day. */
    static unsigned long jday(unsigned month, unsigned day, unsigned year) noexcept;
    static constexpr bool leapYear(unsigned year) noexcept {
        return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    }
    static constexpr unsigned daysInYear(unsigned year) noexcept {
        return leapYear(year) ? 366 : 365;
    }
    /** 0 for what is no month. */
    static unsigned daysInMonthYear(unsigned month, unsigned year) noexcept;
    static bool dayWithinMonth(unsigned month, unsigned day, unsigned year) noexcept;

    /** The locale's long names; empty for a number that is none. @{ */
    static std::string nameOfMonth(unsigned month, const Locale& locale);
    static std::string weekDayName(unsigned weekday, const Locale& locale);
    /** @} */
    /** The numbers of the locale's long and short names; 0 for any other text, and for null. @{ */
    static unsigned indexOfMonth(const char* name, const Locale& locale);
    static unsigned dayOfWeek(const char* name, const Locale& locale);
    /** @} */

protected:
    static constexpr bool assertWeekDayNumber(unsigned n) noexcept { return n >= 1 && n <= 7; }
    static constexpr bool assertIndexOfMonth(unsigned n) noexcept { return n >= 1 && n <= 12; }
    /** Sets the nine standard fields to the lowest 32-bit value. @pre `tm` isn't null */
    static void clobber(struct tm* tm) noexcept;

private:
    friend struct Instant;

    struct Civil {
        unsigned month, day;
        int year;
    };

    // Works on a day that is so many cycles of 400 years later, so that nothing is negative; years
    // begin with March, so that the leap day is their last.
    static constexpr Civil mdy(std::int64_t julian) noexcept {
        constexpr std::uint32_t cycles = 731000;
        constexpr std::uint64_t days = std::uint64_t{cycles} * 146097;
        const std::uint64_t a = 4 * (static_cast<std::uint64_t>(julian) + days) - 6884477;
        const std::uint64_t century = a / 146097;
        const std::uint32_t b = static_cast<std::uint32_t>(a - 146097 * century) | 3;
        const std::uint32_t yearPart = b / 1461;
        const std::uint32_t c = (b - 1461 * yearPart + 4) / 4 * 5 - 3;
        const std::uint32_t month = c / 153;
        const std::uint32_t day = (c - 153 * month + 5) / 5;
        const std::uint32_t year =
            100 * static_cast<std::uint32_t>(century) + yearPart - 400 * cycles;
        const bool nextYear = month >= 10;
        return {nextYear ? month - 9 : month + 3, day, static_cast<int>(year + nextYear)};
    }

    Civil civil() const noexcept { return mdy(static_cast<std::int64_t>(julian_)); }

    unsigned long julian_;
};

/** Days later and earlier. @{ */
inline Date operator+(const Date& date, unsigned long days) noexcept {
    return Date(date.julian() + days);
}
inline Date operator+(unsigned long days, const Date& date) noexcept {
    return date + days;
}
inline Date operator-(const Date& date, unsigned long days) noexcept {
    return Date(date.julian() - days);
}
/** @} */
/** The days from `b` to `a`, modulo the range of the type where `b` is later. */
inline unsigned long operator-(const Date& a, const Date& b) noexcept {
    return a.julian() - b.julian();
}

/** Writes "1994-11-06", or "#INVALID#" for a date that isn't valid. */
NOLK_API std::ostream& operator<<(std::ostream& stream, const Date& date);

}  // namespace nolk

#endif
