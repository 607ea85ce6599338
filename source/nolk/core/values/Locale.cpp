#include <nolk/core/Locale.h>

#include <nolk/core/LocaleSnapshot.h>

#include "nolk/core/values/ProcessSlot.h"
#include "nolk/core/values/TimeZoneCache.h"

#include <memory>

namespace nolk {

namespace {

constinit ProcessSlot<Locale> globalSlot;

}  // namespace

Locale::~Locale() = default;

std::string Locale::asString(const struct tm* tm, const char* format, const TimeZone& zone) const {
    std::string text;
    for (const char* at = format == nullptr ? "" : format; *at != '\0'; ++at) {
        if (*at != '%' || at[1] == '\0') {
            text += *at;
            continue;
        }
        ++at;
        if (*at == '%') {
            text += '%';
        } else {
            text += asString(tm, *at, zone);
        }
    }
    return text;
}

Locale* Locale::defaultLocale() {
    return std::make_unique<LocaleSnapshot>("C").release();
}

const Locale& Locale::global() {
    return globalSlot.get([] { return std::unique_ptr<const Locale>(defaultLocale()); });
}

const Locale* Locale::global(const Locale* locale) noexcept {
    return globalSlot.set(locale);
}

void Locale::releaseCache() noexcept {
    releaseTimeZones();
    globalSlot.release();
}

}  // namespace nolk
