// A text, read as an instant in both forms of exchange, in zones with and without daylight time.
#include "FuzzInput.h"

#include <nolk/core/DateTime.h>
#include <nolk/core/Locale.h>
#include <nolk/core/TimeZoneSimple.h>

#include <string>

#include "values/TestLocale.h"

namespace {

using nolk::DateTime;
using nolk::TimeZone;
using nolk::TimeZoneSimple;

constexpr long long hour = 3600000;

const nolk::test::TestLocale locale;
const TimeZoneSimple eastern(TimeZone::StdZone(5), TimeZone::NorthAmerica);
const TimeZoneSimple southern(-36000, "AEST");

// The fields of an instant lie in their ranges, and make the instant again.
void checkFields(const DateTime& time, const TimeZone& zone) {
    std::tm tm{};
    time.extract(&tm, zone);
    require(tm.tm_mon >= 0 && tm.tm_mon < 12 && tm.tm_mday >= 1 && tm.tm_mday <= 31 &&
                tm.tm_hour >= 0 && tm.tm_hour < 24 && tm.tm_min >= 0 && tm.tm_min < 60 &&
                tm.tm_sec >= 0 && tm.tm_sec < 60 && tm.tm_wday >= 0 && tm.tm_wday < 7 &&
                tm.tm_yday >= 0 && tm.tm_yday < 366,
            "fields lie in their ranges");
    require(time.isDST(zone) == (tm.tm_isdst == 1), "daylight time is told alike");
    // No civil date has a year before 0.
    if (tm.tm_year < -1900) {
        return;
    }
    const DateTime back(&tm, time.milliSecond(), zone);
    // The hour that the clock shows twice is the first of both.
    const bool twice = back == time - hour && back.isDST(zone) && !time.isDST(zone);
    require(back == time || twice, "the fields make the instant");
}

void checkText(const DateTime& time, DateTime::Format format) {
    const unsigned year = time.yearGMT();
    const std::string text = time.asString(format, locale, TimeZone::utc());
    // The reader of ISO forms knows years of four digits up to 4095.
    if (year < 1 || year > 4095) {
        return;
    }
    const DateTime back(text, format, locale, eastern);
    const bool whole = format == DateTime::http;
    require(back == (whole ? time - time.milliSecond() : time), "the text gives the instant");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = FuzzInput(data, size).rest();
    for (const DateTime::Format format : {DateTime::iso8601, DateTime::http}) {
        for (const TimeZone* zone : {&TimeZone::utc(), static_cast<const TimeZone*>(&eastern),
                                     static_cast<const TimeZone*>(&southern)}) {
            const DateTime time(text, format, locale, *zone);
            if (time.isSentinel()) {
                require(time == DateTime(DateTime::invalid), "no text gives a reserved value");
                continue;
            }
            checkFields(time, *zone);
            checkText(time, DateTime::iso8601);
            checkText(time, DateTime::http);
        }
    }
    return 0;
}
