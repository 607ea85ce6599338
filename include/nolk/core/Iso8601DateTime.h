/** @file
 * Reads the complete and truncated forms of ISO 8601.
 */
#ifndef NOLK_CORE_ISO8601_DATE_TIME_H
#define NOLK_CORE_ISO8601_DATE_TIME_H

#include <nolk/core/Export.h>

#include <cstdint>
#include <ctime>

namespace nolk {

/**
 * A date, a time of day and a zone offset, read from one of the forms of ISO 8601: calendar dates,
 * week dates and ordinal dates, basic and extended, complete and truncated.
 *
 *     Iso8601DateTime moment("2001-02-03T04:05:06.5+01:30", Iso8601DateTime::dateTime);
 *     moment.isValid();   // true
 *     moment.yearDay();   // 34
 *     moment.offset();    // 5400000
 *
 * What a truncated form leaves out is taken from the local time at the moment of reading, as in
 * "--02-03" for 3 February of this year. Nothing throws: a text that has none of the forms gives a
 * value that isn't valid. It only reads; DateTime::asString writes.
 *
 * Fields are taken as they stand and not checked against each other: hour 99 is stored, and 31
 * February is 3 March, or 2 March in a leap year. Years are kept in twelve bits, so that 4096
 * wraps to 0; offsets in eleven bits of minutes, two of which mean "no zone" (the pattern of
 * -16:41) and "unset" (-16:40).
 *
 * A plain value of eight bytes. Values may be made in several threads at once.
 */
class NOLK_API Iso8601DateTime {
public:
    /** Which of the forms a text may have. Any other number leaves the value unset. */
    enum Format : int {
        date = 1,      /**< A date; the time is 0, there is no zone, and text behind is ignored. */
        time = 2,      /**< A time of today, and perhaps a zone; "T" in front is skipped. */
        dateTime = 3,  /**< A date, "T", a time and perhaps a zone. */
        automatic = 4, /**< Found out from the signs in the text. */
    };

    /** Reads a text that ends in a zero byte. Null and the empty text leave the value unset. */
    Iso8601DateTime(const char* text, Format format) noexcept;

    /**
     * Whether a date, a time and a zone, or the knowledge that there is none, were read. The year 0
     * isn't valid.
     */
    bool isValid() const noexcept {
        return rawOffset() != unsetOffset && year() != 0 && yearDay() != 0 && time_ != unsetTime;
    }

    /** The year, 0 to 4095; 0 means unset. */
    int year() const noexcept { return static_cast<int>((date_ >> yearShift) & yearMask); }
    int century() const noexcept { return year() / 100; }
    int decade() const noexcept { return (year() % 100) / 10; }
    int decadeYear() const noexcept { return year() % 10; }

    /** The day of the year, 1 for 1 January; 0 means unset. */
    int yearDay() const noexcept { return static_cast<int>(date_ >> yearDayShift); }

    /** The month, 1 to 12. */
    int month() const noexcept { return monthFromYDay(year(), yearDay() - 1); }
    /** The day of the month. */
    int day() const noexcept { return dayFromYDay(year(), yearDay() - 1); }
    /** 1 for Monday to 7 for Sunday. */
    int weekDay() const noexcept { return weekDay(year(), yearDay() - 1); }

    /** The time of day in its parts; the hour is as it was read, 99 included. @{ */
    int hour() const noexcept { return static_cast<int>(time_ / 3600000); }
    int minutes() const noexcept { return static_cast<int>(time_ / 60000 % 60); }
    int seconds() const noexcept { return static_cast<int>(time_ / 1000 % 60); }
    int milliseconds() const noexcept { return static_cast<int>(time_ % 1000); }
    /** @} */

    /** The zone's offset in milliseconds, positive east of GMT; of use only if there is a zone. */
    int offset() const noexcept {
        const auto bits = static_cast<int>(rawOffset());
        return (bits < 1024 ? bits : bits - 2048) * 60000;
    }

    /** False if the text told that there is no zone. */
    bool zone() const noexcept { return rawOffset() != noZone; }

    /**
     * Writes a valid value into `tm`, as its own civil time: `tm_wday` is 0 for Sunday, `tm_yday`
     * is 1 for 1 January (not 0), `tm_isdst` is -1. With null, or a value that isn't valid, nothing
     * happens.
     */
    void fill(std::tm* tm) const noexcept;

    /**
     * Calendar arithmetic on a year and a day of it counted from 0. Years are Gregorian from 1 on.
     * @{
     */
    static bool isLeap(int year) noexcept;
    /** 1 to 12; a day before the year counts to January, a day behind it to December. */
    static int monthFromYDay(int year, int yday) noexcept;
    /** The day of the month, 1 for its first. */
    static int monthDayFromYDay(int year, int yday) noexcept;
    /** The same through monthFromYDay(). */
    static int dayFromYDay(int year, int yday) noexcept;
    /** 1 for Monday to 7 for Sunday. */
    static int weekDay(int year, int yday) noexcept;
    /** @} */

    /**
     * The day of the year, 1 for 1 January, of a day of an ISO week, 1 for Monday to 7 for Sunday.
     * Where the day lies in the year before or behind, `year` becomes that year.
     */
    static int yearDayFromWeek(int& year, int week, int weekDay) noexcept;

    /**
     * The ISO week of a day of the year, counted from 0, and its week day, in days: seven times the
     * number of the week, plus 0 for Monday to 6 for Sunday. `year` becomes the year of the week.
     */
    static int iso8601Week(int& year, int yday, int weekDay) noexcept;

    friend bool operator==(const Iso8601DateTime&, const Iso8601DateTime&) noexcept = default;

private:
    static constexpr std::uint32_t offsetMask = 0x7FF;
    static constexpr std::uint32_t yearMask = 0xFFF;
    static constexpr int yearShift = 11;
    static constexpr int yearDayShift = 23;

    // Marks among the bit patterns of the offset; real offsets may collide with them.
    static constexpr std::uint32_t noZone = 1047;
    static constexpr std::uint32_t unsetOffset = 1048;
    static constexpr std::uint32_t unsetTime = 0xFFFFFFFF;

    friend class Iso8601Parser;

    std::uint32_t rawOffset() const noexcept { return date_ & offsetMask; }

    // From the low end: 11 bits of offset in minutes, 12 of year, 9 of year day.
    std::uint32_t date_ = unsetOffset;
    // Milliseconds since midnight.
    std::uint32_t time_ = unsetTime;
};

}  // namespace nolk

#endif
