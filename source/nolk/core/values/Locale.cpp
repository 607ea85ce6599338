#include <nolk/core/Locale.h>

namespace nolk {

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

}  // namespace nolk
