/** @file
 * From counts of milliseconds to civil time and back.
 */
#ifndef NOLK_CORE_VALUES_INSTANT_H
#define NOLK_CORE_VALUES_INSTANT_H

#include "nolk/core/values/JulianDay.h"
#include "nolk/core/values/Wrapping.h"

#include <ctime>
#include <optional>

namespace nolk {

class TimeZone;

/**
 * Works on counts of milliseconds since 1 January 1901 GMT. It knows of no reserved values: every
 * count is taken as an instant.
 */
struct Instant {
    static constexpr long long second = 1000;
    static constexpr long long minute = 60000;
    static constexpr long long hour = 3600000;
    static constexpr long long day = 86400000;

    /** A civil time; the fields of the time of day have no limits. */
    struct Civil {
        long long julian; /**< By the numbers of Date; 0 and less is no day. */
        unsigned hour;
        unsigned minute;
        unsigned second;
        long long millisecond;
    };

    /** The Julian number of the day by GMT. */
    static constexpr long long julianDay(long long count) {
        return count / day - (count % day < 0) + julian::from1901;
    }

    /** What is over behind the last whole unit, from 0 on also before 1901. */
    static constexpr unsigned rest(long long count, long long unit) {
        const long long rest = count % unit;
        return static_cast<unsigned>(rest < 0 ? rest + unit : rest);
    }

    /** The count whose GMT reads as this one does so many seconds west of it, and the opposite. @{
     */
    static constexpr long long west(long long count, long seconds) {
        return wrapping::difference(count, wrapping::product(seconds, second));
    }
    static constexpr long long east(long long count, long seconds) {
        return wrapping::sum(count, wrapping::product(seconds, second));
    }
    /** @} */

    /** Fills the nine standard fields by GMT. */
    static void extractGMT(long long count, std::tm& tm) noexcept;

    /** Fills them by a zone, and tells whether daylight time holds. */
    static bool extract(long long count, std::tm& tm, const TimeZone& zone);

    /** The count of a civil time in GMT. */
    static constexpr long long buildGMT(const Civil& civil) {
        const long long midnight =
            wrapping::product(wrapping::difference(civil.julian, julian::from1901), day);
        const long long time = civil.hour * hour + civil.minute * minute + civil.second * second;
        return wrapping::sum(midnight, wrapping::sum(time, civil.millisecond));
    }

    /** The count of a civil time; nothing for no day, and for what the clock jumps over. */
    static std::optional<long long> build(const Civil& civil, const TimeZone& zone);
};

}  // namespace nolk

#endif
