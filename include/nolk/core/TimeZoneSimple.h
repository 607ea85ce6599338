/** @file
 * A time zone with fixed offsets and yearly daylight rules.
 */
#ifndef NOLK_CORE_TIME_ZONE_SIMPLE_H
#define NOLK_CORE_TIME_ZONE_SIMPLE_H

#include <nolk/core/DaylightRule.h>
#include <nolk/core/Export.h>
#include <nolk/core/TimeZone.h>

#include <ctime>
#include <string>

namespace nolk {

/**
 * A zone of a standard offset, a daylight offset, their names, and a chain of daylight rules.
 *
 *     TimeZoneSimple eastern(TimeZone::StdZone(5), TimeZone::NorthAmerica);
 *     eastern.timeZoneOffset();   // 18000
 *     eastern.altZoneName();      // "EDT"
 *
 * A value; copies share the rules, which it never owns and which must outlive it. A zone that
 * nobody changes may be read by all threads.
 */
class NOLK_API TimeZoneSimple : public TimeZone {
public:
    /** A zone without daylight time, `offset` seconds west of GMT. */
    TimeZoneSimple(long offset, const std::string& name);

    /** A zone with the rules from `rule` on, or without daylight time if that is null. */
    TimeZoneSimple(const DaylightRule* rule, long offset, const std::string& name, long altOffset,
                   const std::string& altName);

    /**
     * A standard zone, with a built-in chain or a caller's rules. Daylight time is one hour ahead.
     * Names of zones east of GMT read "GMT+n". Zones outside -12 to 11 have empty names.
     * @{
     */
    TimeZoneSimple(StdZone zone, DstRule rule = NoDST);
    TimeZoneSimple(StdZone zone, const DaylightRule* rule);
    /** @} */

    long timeZoneOffset() const override;
    long altZoneOffset() const override;
    /** Whether there is a rule, even if the rule itself observes none. */
    bool daylightObserved() const override;
    std::string timeZoneName() const override;
    std::string altZoneName() const override;

    /** Asks the newest rule that holds in the year, which is compared in 16 bits. */
    bool isDaylight(const struct tm* tm) const override;
    void getBeginDaylight(struct tm* tm) const override;
    void getEndDaylight(struct tm* tm) const override;

private:
    const DaylightRule* rule_;
    bool observed_;
    long offset_;
    std::string name_;
    long altOffset_;
    std::string altName_;
};

}  // namespace nolk

#endif
