/** @file
 * Instants, reserved values and zones for the tests of DateTime.
 */
#ifndef NOLK_TESTS_VALUES_DATE_TIME_SUPPORT_H
#define NOLK_TESTS_VALUES_DATE_TIME_SUPPORT_H

#include <nolk/core/DateTime.h>
#include <nolk/core/Exception.h>
#include <nolk/core/TimeZoneSimple.h>

#include <limits>
#include <string>
#include <typeinfo>

namespace nolk::test {

inline constexpr long long lowest = std::numeric_limits<long long>::min();
inline constexpr long long highest = std::numeric_limits<long long>::max();

inline constexpr DateTime invalid(lowest + 128);
inline constexpr DateTime null(lowest + 129);
inline constexpr DateTime past(lowest + 256);
inline constexpr DateTime future(highest);

/** One of each kind, ends included; 130 to 255 have no names. */
inline constexpr DateTime reserved[] = {
    DateTime(lowest),
    DateTime(lowest + 1),
    DateTime(lowest + 127),
    invalid,
    null,
    DateTime(lowest + 130),
    DateTime(lowest + 255),
    past,
    future,
};

inline const TimeZoneSimple gmt(0, "GMT");
inline const TimeZoneSimple eastern(TimeZone::StdZone(5), TimeZone::NorthAmerica);
inline const TimeZoneSimple india(-19800, "IST");
inline const TimeZoneSimple newfoundland(TimeZone::dstRule(TimeZone::NorthAmerica), 12600, "NST",
                                         9000, "NDT");

/** An instant of GMT. */
inline DateTime at(unsigned year, unsigned month, unsigned day, unsigned hour = 0,
                   unsigned minute = 0, unsigned second = 0, int millisecond = 0) {
    return DateTime(day, month, year, hour, minute, second, millisecond, gmt);
}

/** What an operation that throws exactly Exception says; empty if it doesn't throw. */
template <typename Operation>
std::string failureOf(const Operation& operation) {
    try {
        operation();
    } catch (const Exception& failure) {
        return typeid(failure) == typeid(Exception) ? failure.what() : "another class";
    }
    return std::string();
}

inline constexpr const char* invalidObject =
    "[DATETIME_INVALID_OBJECT] DateTime: Operation attempted with invalid object";

}  // namespace nolk::test

#endif
