/** @file
 * How instants become civil time and back.
 */
#ifndef NOLK_CORE_TIME_ZONE_H
#define NOLK_CORE_TIME_ZONE_H

#include <nolk/core/Export.h>

#include <ctime>
#include <string>

namespace nolk {

struct DaylightRule;

/**
 * What DateTime asks about a time zone: its two offsets and names, and when daylight time holds.
 *
 * Offsets are seconds west of GMT: a zone behind GMT, as in America, is positive. They are those of
 * the zone, whatever the date. TimeZoneSimple is the implementation; derive from this class for
 * zones that need another.
 *
 * The process has five zones, made when they are first asked for. Those given to the setters stay
 * the caller's and must live until they are replaced. Asking is safe in several threads at once;
 * setting and clearUtc() are for times when no other thread uses the zone that goes.
 */
class NOLK_API TimeZone {
public:
    /**
     * A standard zone by its hours west of GMT, -12 to 11, as in `TimeZone::StdZone(5)` for US
     * Eastern time.
     */
    enum StdZone : int {};

    /** A built-in chain of daylight rules. */
    enum DstRule : int {
        NoDST = 0,
        NorthAmerica = 1,
        WesternEurope = 2,
        Europe = 3,
    };

    virtual ~TimeZone();

    /** Standard time, in seconds west of GMT. */
    virtual long timeZoneOffset() const = 0;
    /** Daylight time, in seconds west of GMT. */
    virtual long altZoneOffset() const = 0;
    /** Whether the zone has daylight time at all. */
    virtual bool daylightObserved() const = 0;
    /** The name of standard time. */
    virtual std::string timeZoneName() const = 0;
    /** The name of daylight time. */
    virtual std::string altZoneName() const = 0;

    /**
     * Whether daylight time holds at a civil time: `tm_year`, `tm_mon`, `tm_mday`, `tm_wday`,
     * `tm_hour` and `tm_min` count. @pre `tm` isn't null
     */
    virtual bool isDaylight(const struct tm* tm) const = 0;

    /**
     * The civil time at which daylight time begins, or ends, in the year `tm_year`, written into
     * `tm`. Without daylight time in that year every field gets the lowest 32-bit value.
     * @pre `tm` isn't null
     */
    virtual void getBeginDaylight(struct tm* tm) const = 0;
    virtual void getEndDaylight(struct tm* tm) const = 0;

    /**
     * The process's zone for civil time, made from the platform's zone. If that has daylight time,
     * it gets the rules of NorthAmerica, wherever it lies; os() is the accurate form. Daylight time
     * is one hour ahead of standard time.
     */
    static const TimeZone& local();
    /** Sets it, and returns what it was, null if it was never asked for. Null makes it anew. */
    static const TimeZone* local(const TimeZone* zone) noexcept;

    /** Standard time of local() all the year round. */
    static const TimeZone& standard();
    static const TimeZone* standard(const TimeZone* zone) noexcept;

    /** As local(), but set by itself. */
    static const TimeZone& system();
    static const TimeZone* system(const TimeZone* zone) noexcept;

    /** Offset 0, named "GMT", no daylight time. */
    static const TimeZone& utc();
    /** Deletes the object that utc() returned, if any; the next call makes another. */
    static void clearUtc() noexcept;

    /**
     * As local(), with one rule for all years: daylight time as the platform keeps it in the year
     * of the first call.
     */
    static const TimeZone& os();

    /** The newest rule of a built-in chain; null for NoDST and for numbers that are no chain. */
    static const DaylightRule* dstRule(DstRule rule) noexcept;

protected:
    TimeZone() = default;
    TimeZone(const TimeZone&) = default;
    TimeZone& operator=(const TimeZone&) = default;
};

}  // namespace nolk

#endif
