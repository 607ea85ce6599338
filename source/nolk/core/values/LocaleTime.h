/** @file
 * Reads times of day as people write them.
 */
#ifndef NOLK_CORE_VALUES_LOCALE_TIME_H
#define NOLK_CORE_VALUES_LOCALE_TIME_H

#include <nolk/core/LocaleTimeFormat.h>

#include <ctime>
#include <string_view>

namespace nolk {

/** What a locale knows of its times. */
struct TimeForm {
    const LocaleTimeFormat& format;
    std::string_view am;
    std::string_view pm;
};

/** Sets hour, minute and second if, and only if, the text is a time. */
bool readTime(const TimeForm& form, std::string_view text, std::tm* tm);

}  // namespace nolk

#endif
