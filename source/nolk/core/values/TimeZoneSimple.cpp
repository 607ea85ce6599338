#include <nolk/core/TimeZoneSimple.h>

#include "nolk/core/values/Calendar.h"
#include "nolk/core/values/CivilTime.h"
#include "nolk/core/values/RuleYear.h"

#include <cstdint>

namespace nolk {

namespace {

struct ZoneNames {
    const char* standard;
    const char* daylight;
};

constexpr int firstZone = -12;

// From 12 hours east of GMT to 11 hours west. "GMT+n" is east here.
constexpr ZoneNames zoneNames[] = {
    {"GMT+12", "GMT+13"}, {"GMT+11", "GMT+12"}, {"GMT+10", "GMT+11"}, {"GMT+9", "GMT+10"},
    {"GMT+8", "GMT+9"},   {"GMT+7", "GMT+8"},   {"GMT+6", "GMT+7"},   {"GMT+5", "GMT+6"},
    {"GMT+4", "GMT+5"},   {"GMT+3", "GMT+4"},   {"EET", "EET DST"},   {"MET", "MET DST"},
    {"GMT", "WET DST"},   {"GMT-1", "GMT+0"},   {"GMT-2", "GMT-1"},   {"GMT-3", "GMT-2"},
    {"GMT-4", "GMT-3"},   {"EST", "EDT"},       {"CST", "CDT"},       {"MST", "MDT"},
    {"PST", "PDT"},       {"YST", "YDT"},       {"GMT-10", "GMT-9"},  {"GMT-11", "GMT-10"},
};

ZoneNames namesOf(TimeZone::StdZone zone) {
    const std::int64_t index = std::int64_t{zone} - firstZone;
    const bool known = index >= 0 && index < std::ssize(zoneNames);
    return known ? zoneNames[index] : ZoneNames{"", ""};
}

// Only zones that are in no table could leave the range of a `long` of 32 bits.
long hoursWest(std::int64_t hours) {
    return static_cast<long>(hours * 3600);
}

// The newest rule that holds in the year of `tm`, or null.
const DaylightRule* ruleFor(const DaylightRule* rule, const std::tm& tm) {
    const std::int16_t year = ruleYear(tm);
    while (rule != nullptr && rule->firstYear > year) {
        rule = rule->next;
    }
    return rule;
}

void moveTo(const DaylightBoundary& boundary, std::tm& tm) {
    tm.tm_mon = boundary.month;
    tm.tm_mday = 1;
    const std::int64_t year = std::int64_t{tm.tm_year} + 1900;
    tm.tm_wday = calendar::weekDay(year, std::int64_t{boundary.month} + 1, 1) % 7;
    boundary.date(&tm);
}

void boundaryInYear(const DaylightRule* chain, DaylightBoundary DaylightRule::*boundary,
                    std::tm& tm) {
    const DaylightRule* rule = ruleFor(chain, tm);
    if (rule == nullptr || !rule->observed) {
        clobber(tm);
    } else {
        moveTo(rule->*boundary, tm);
    }
}

}  // namespace

TimeZoneSimple::TimeZoneSimple(long offset, const std::string& name)
    : TimeZoneSimple(nullptr, offset, name, offset, name) {}

TimeZoneSimple::TimeZoneSimple(const DaylightRule* rule, long offset, const std::string& name,
                               long altOffset, const std::string& altName)
    : rule_(rule),
      observed_(rule != nullptr),
      offset_(offset),
      name_(name),
      altOffset_(altOffset),
      altName_(altName) {}

TimeZoneSimple::TimeZoneSimple(StdZone zone, DstRule rule) : TimeZoneSimple(zone, dstRule(rule)) {}

TimeZoneSimple::TimeZoneSimple(StdZone zone, const DaylightRule* rule)
    : TimeZoneSimple(rule, hoursWest(zone), namesOf(zone).standard,
                     hoursWest(std::int64_t{zone} - (rule != nullptr ? 1 : 0)),
                     rule != nullptr ? namesOf(zone).daylight : namesOf(zone).standard) {}

long TimeZoneSimple::timeZoneOffset() const {
    return offset_;
}

long TimeZoneSimple::altZoneOffset() const {
    return altOffset_;
}

bool TimeZoneSimple::daylightObserved() const {
    return observed_;
}

std::string TimeZoneSimple::timeZoneName() const {
    return name_;
}

std::string TimeZoneSimple::altZoneName() const {
    return altName_;
}

bool TimeZoneSimple::isDaylight(const struct tm* tm) const {
    const DaylightRule* rule = ruleFor(rule_, *tm);
    return rule != nullptr && rule->isDaylight(tm);
}

void TimeZoneSimple::getBeginDaylight(struct tm* tm) const {
    boundaryInYear(rule_, &DaylightRule::begin, *tm);
}

void TimeZoneSimple::getEndDaylight(struct tm* tm) const {
    boundaryInYear(rule_, &DaylightRule::end, *tm);
}

}  // namespace nolk
