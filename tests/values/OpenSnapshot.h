/** @file
 * Shows what a LocaleSnapshot has learnt.
 */
#ifndef NOLK_TESTS_VALUES_OPEN_SNAPSHOT_H
#define NOLK_TESTS_VALUES_OPEN_SNAPSHOT_H

#include <nolk/core/LocaleSnapshot.h>
#include <nolk/core/TimeZone.h>

#include <string>

#include "support/RuntimeLocale.h"

namespace nolk::test {

class OpenSnapshot : public LocaleSnapshot {
public:
    using LocaleSnapshot::dateOrder;
    using LocaleSnapshot::formatComponent;
    using LocaleSnapshot::LocaleSnapshot;
    using LocaleSnapshot::timeFormat;

    /** The locale of a culture. */
    explicit OpenSnapshot(Culture culture, const RuntimeLocales& = RuntimeLocales())
        : LocaleSnapshot(runtimeName(culture)) {}

    /** What was learnt of a conversion: its text with each component as "{<its letter>}". */
    std::string learnt(char conversion) const {
        const LocaleTimeFormat& format = *timeFormat(conversion);
        std::string text = format.text;
        std::size_t moved = 0;
        for (const QXTimeFmtList* node = format.components; node != nullptr; node = node->next) {
            const std::string mark =
                node->component == 18 ? "{_d}"
                : node->component == 19
                    ? "{_m}"
                    : std::string("{") + "YyjSMIHmBbAapdZUWw"[node->component] + "}";
            text.insert(static_cast<std::size_t>(node->offset) + moved, mark);
            moved += mark.size();
        }
        return text;
    }

    /** One conversion in GMT. */
    std::string in(const std::tm& tm, char conversion) const {
        return asString(&tm, conversion, TimeZone::utc());
    }
};

/** 6 November 1994, 08:49:37, a Sunday. */
inline std::tm sunday() {
    std::tm tm{};
    tm.tm_year = 94;
    tm.tm_mon = 10;
    tm.tm_mday = 6;
    tm.tm_hour = 8;
    tm.tm_min = 49;
    tm.tm_sec = 37;
    tm.tm_wday = 0;
    tm.tm_yday = 309;
    return tm;
}

}  // namespace nolk::test

#endif
