#include <nolk/core/TimeZone.h>

#include <nolk/core/TimeZoneSimple.h>

#include "nolk/core/platform/Clock.h"
#include "nolk/core/platform/Zone.h"
#include "nolk/core/values/DaylightProbe.h"
#include "nolk/core/values/ProcessSlot.h"
#include "nolk/core/values/TimeZoneCache.h"

#include <memory>

namespace nolk {

namespace {

constexpr long daylightSeconds = 3600;

constinit ProcessSlot<TimeZone> localSlot;
constinit ProcessSlot<TimeZone> standardSlot;
constinit ProcessSlot<TimeZone> systemSlot;
constinit ProcessSlot<TimeZone> utcSlot;

std::unique_ptr<const TimeZone> makeZone(const platform::ZoneFacts& facts,
                                         const DaylightRule* rule) {
    return std::make_unique<TimeZoneSimple>(rule, facts.secondsWest, facts.standardName,
                                            facts.secondsWest - daylightSeconds,
                                            facts.daylightName);
}

// Any daylight time gets the rules of North America: the short cut that programs know.
std::unique_ptr<const TimeZone> makeFromPlatform() {
    const platform::ZoneFacts facts = platform::processZone();
    const TimeZone::DstRule rule = facts.hasDaylight ? TimeZone::NorthAmerica : TimeZone::NoDST;
    return makeZone(facts, TimeZone::dstRule(rule));
}

std::unique_ptr<const TimeZone> makeStandard() {
    const TimeZone& local = TimeZone::local();
    return std::make_unique<TimeZoneSimple>(local.timeZoneOffset(), local.timeZoneName());
}

std::unique_ptr<const TimeZone> makeUtc() {
    return std::make_unique<TimeZoneSimple>(TimeZone::StdZone(0), TimeZone::NoDST);
}

std::unique_ptr<const TimeZone> makeOs() {
    const platform::ZoneFacts facts = platform::processZone();
    if (!facts.hasDaylight) {
        return makeZone(facts, nullptr);
    }
    static const DaylightRule rule =
        probeDaylight(platform::currentSeconds(), &platform::localTime);
    return makeZone(facts, &rule);
}

}  // namespace

TimeZone::~TimeZone() = default;

const TimeZone& TimeZone::local() {
    return localSlot.get(makeFromPlatform);
}

const TimeZone* TimeZone::local(const TimeZone* zone) noexcept {
    return localSlot.set(zone);
}

const TimeZone& TimeZone::standard() {
    return standardSlot.get(makeStandard);
}

const TimeZone* TimeZone::standard(const TimeZone* zone) noexcept {
    return standardSlot.set(zone);
}

const TimeZone& TimeZone::system() {
    return systemSlot.get(makeFromPlatform);
}

const TimeZone* TimeZone::system(const TimeZone* zone) noexcept {
    return systemSlot.set(zone);
}

const TimeZone& TimeZone::utc() {
    return utcSlot.get(makeUtc);
}

void TimeZone::clearUtc() noexcept {
    utcSlot.release();
}

const TimeZone& TimeZone::os() {
    // Never deleted: it may be asked for while the program ends.
    static const TimeZone& zone = *makeOs().release();
    return zone;
}

void releaseTimeZones() noexcept {
    localSlot.release();
    standardSlot.release();
    systemSlot.release();
    utcSlot.release();
}

}  // namespace nolk
