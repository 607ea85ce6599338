/** @file
 * Learns the layout of dates and times from samples.
 */
#ifndef NOLK_CORE_VALUES_TIME_FORMAT_PROBE_H
#define NOLK_CORE_VALUES_TIME_FORMAT_PROBE_H

#include <nolk/core/LocaleTimeFormat.h>

#include <span>
#include <string>
#include <string_view>

namespace nolk {

/** The places of components in QXTimeFmtList. */
enum TimeComponent : int {
    fullYear,
    shortYear,
    dayOfYear,
    second,
    minute,
    hourOf12,
    hourOf24,
    monthNumber,
    monthName,
    shortMonthName,
    weekdayName,
    shortWeekdayName,
    halfOfDay,
    dayOfMonth,
    zoneName,
    weekFromSunday,
    weekFromMonday,
    weekdayNumber,
    paddedDay,
    paddedMonth,
};

/** The letters of those that `strftime` has. */
inline constexpr std::string_view timeConversions = "YyjSMIHmBbAapdZUWw";

/**
 * Takes a sample apart: `texts` are those of the components at the sample's moment. A component is
 * cut out where its text is first found in what is left by those before it in the table; an empty
 * one is nowhere.
 */
void learnFormat(LocaleTimeFormat& format, std::string_view sample,
                 std::span<const std::string> texts);

/**
 * Turns a component, if it is there, into the one padded by a blank, if `other`, which differs from
 * the sample by a shorter number there, has a blank where the sample has a digit. `texts` as above.
 */
void learnPadding(LocaleTimeFormat& format, TimeComponent plain, TimeComponent padded,
                  std::string_view sample, std::string_view other,
                  std::span<const std::string> texts) noexcept;

/** The order of dates, as LocaleSnapshot::dateOrder() tells it. */
int dateOrderOf(const LocaleTimeFormat& date) noexcept;

}  // namespace nolk

#endif
