/** @file
 * Reads dates as people write them.
 */
#ifndef NOLK_CORE_VALUES_LOCALE_DATE_H
#define NOLK_CORE_VALUES_LOCALE_DATE_H

#include <ctime>
#include <span>
#include <string>
#include <string_view>

namespace nolk {

/** What a locale knows of its dates. */
struct DateForm {
    std::span<const std::string, 12> months; /**< January to December. */
    std::span<const std::string, 12> shortMonths;
    bool hasNames; /**< Whether months are told by names. */
    int order;     /**< As LocaleSnapshot::dateOrder() tells it. */
};

/** Sets day, month and year if, and only if, the text is a date. */
bool readDate(const DateForm& form, std::string_view text, std::tm* tm);

}  // namespace nolk

#endif
