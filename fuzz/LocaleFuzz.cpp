// A text, read as all that a locale reads, in the locale that the first byte says: what is read is
// in its range, what isn't leaves its result alone, and what is written of it is read again.
#include "FuzzInput.h"

#include <nolk/core/LocaleSnapshot.h>
#include <nolk/core/TimeZone.h>

#include <cmath>
#include <cstring>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "support/RuntimeLocale.h"

namespace {

using nolk::Locale;
using nolk::LocaleSnapshot;

using Locales = std::vector<std::unique_ptr<LocaleSnapshot>>;

const Locales& allLocales() {
    static const Locales locales = [] {
        const nolk::test::RuntimeLocales runtime(true);
        Locales all;
        all.push_back(std::make_unique<LocaleSnapshot>("C"));
        using nolk::test::Culture;
        for (const Culture culture : {Culture::german, Culture::english, Culture::french,
                                      Culture::czech, Culture::japanese, Culture::indian}) {
            all.push_back(std::make_unique<LocaleSnapshot>(nolk::test::runtimeName(culture)));
            require(all.back()->locale_name() != "C", "the locale is there");
        }
        return all;
    }();
    return locales;
}

template <typename Integer>
void checkInteger(const Locale& locale, const std::string& text) {
    Integer value = 77;
    if (!locale.stringToNum(text, &value)) {
        require(value == 77, "what isn't read leaves its result");
        return;
    }
    Integer back = 0;
    require(locale.stringToNum(locale.asString(value), &back) && back == value,
            "integers are read again");
    double real = 0;
    require(locale.stringToNum(text, &real), "an integer is a number");
    require(real == static_cast<double>(value), "of the same value");
}

void checkDouble(const Locale& locale, const std::string& text) {
    double value = 77;
    if (!locale.stringToNum(text, &value)) {
        require(value == 77, "what isn't read leaves its result");
        return;
    }
    if (!std::isfinite(value)) {
        return;
    }
    for (const bool grouped : {false, true}) {
        double back = 0;
        require(locale.stringToNum(locale.asString(value, 1074, grouped), &back) && back == value,
                "doubles are read again");
    }
}

void checkMoney(const Locale& locale, const std::string& text) {
    double value = 77;
    require(!locale.stringToMoney(text, &value, Locale::NoSymbol), "no symbol, no money");
    for (const auto symbol : {Locale::LocalSymbol, Locale::IntlSymbol}) {
        value = 77;
        if (!locale.stringToMoney(text, &value, symbol)) {
            require(value == 77, "what isn't read leaves its result");
            continue;
        }
        // Within ten separators, and where a double that was divided by the scale, rounded, still
        // tells each unit: below 2 to the power 52.
        double back = 0;
        require(std::abs(value) > 4.5e15 ||
                    (locale.stringToMoney(locale.moneyAsString(value, symbol), &back, symbol) &&
                     back == value),
                "amounts are read again");
    }
}

std::tm marked() {
    std::tm tm;
    std::memset(&tm, 0, sizeof tm);
    tm.tm_year = tm.tm_mon = tm.tm_mday = tm.tm_hour = tm.tm_min = tm.tm_sec = 77;
    return tm;
}

void checkDate(const Locale& locale, const std::string& text) {
    const std::tm before = marked();
    std::tm tm = before;
    if (!locale.stringToDate(text, &tm)) {
        require(std::memcmp(&tm, &before, sizeof tm) == 0, "what isn't read leaves its result");
        return;
    }
    require(tm.tm_year >= 0 - 1800 && tm.tm_year <= 9999 - 1900, "the year is in its range");
    require(tm.tm_mon >= 0 && tm.tm_mon < 12, "so is the month");
    require(tm.tm_mday >= 1 && tm.tm_mday <= 31, "and the day");
    require(tm.tm_hour == 77 && tm.tm_min == 77 && tm.tm_sec == 77, "times aren't touched");
    const bool twoDigits = tm.tm_year >= 0 && tm.tm_year < 100;
    std::tm back = before;
    require(!twoDigits ||
                (locale.stringToDate(locale.asString(&tm, 'x', nolk::TimeZone::utc()), &back) &&
                 std::memcmp(&tm, &back, sizeof tm) == 0),
            "dates of the century are read again");
}

void checkTime(const Locale& locale, const std::string& text) {
    const std::tm before = marked();
    std::tm tm = before;
    if (!locale.stringToTime(text, &tm)) {
        require(std::memcmp(&tm, &before, sizeof tm) == 0, "what isn't read leaves its result");
        return;
    }
    require(tm.tm_hour >= 0 && tm.tm_hour < 24, "the hour is in its range");
    require(tm.tm_min >= 0 && tm.tm_min < 60, "so is the minute");
    require(tm.tm_sec >= 0 && tm.tm_sec < 60, "and the second");
    require(tm.tm_year == 77 && tm.tm_mon == 77 && tm.tm_mday == 77, "dates aren't touched");
    std::tm back = before;
    require(locale.stringToTime(locale.asString(&tm, "%H:%M:%S", nolk::TimeZone::utc()), &back) &&
                std::memcmp(&tm, &back, sizeof tm) == 0,
            "times are read again");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const Locales& locales = allLocales();
    const Locale& locale = *locales[input.byte() % locales.size()];
    const std::string text = input.rest();
    checkInteger<long>(locale, text);
    checkInteger<unsigned long>(locale, text);
    checkDouble(locale, text);
    checkMoney(locale, text);
    checkDate(locale, text);
    checkTime(locale, text);
    const int month = locale.monthIndex(text);
    const int weekday = locale.weekdayIndex(text);
    require(month >= 0 && month <= 12 && weekday >= 0 && weekday <= 7, "names have numbers");
    return 0;
}
