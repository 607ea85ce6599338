/** @file
 * A format for dates and times, learnt from a sample.
 */
#ifndef NOLK_CORE_LOCALE_TIME_FORMAT_H
#define NOLK_CORE_LOCALE_TIME_FORMAT_H

#include <nolk/core/Export.h>
#include <nolk/core/QXTimeFmtList.h>

#include <string>

namespace nolk {

/**
 * What a LocaleSnapshot knows of a format such as "22:54:56": the text without its components, here
 * "::", and a list of these, which it owns. It isn't copied.
 */
struct NOLK_API LocaleTimeFormat {
    LocaleTimeFormat() = default;
    ~LocaleTimeFormat();
    LocaleTimeFormat(const LocaleTimeFormat&) = delete;
    LocaleTimeFormat& operator=(const LocaleTimeFormat&) = delete;

    std::string text;
    QXTimeFmtList* components = nullptr;
};

}  // namespace nolk

#endif
