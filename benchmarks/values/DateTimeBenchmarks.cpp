// Instants read, written and taken apart: by the library, by the C run-time library and by the
// calendar of the standard library. Each pair does the same work, which is checked first.
#include <nolk/core/DateTime.h>
#include <nolk/core/TimeZoneSimple.h>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

#include "values/TestLocale.h"

namespace {

using nolk::Date;
using nolk::DateTime;
using nolk::TimeZone;
using nolk::TimeZoneSimple;

constexpr long long to1970 = 25202ll * 86400000;
constexpr unsigned long julianOf1970 = 2440588;

const nolk::test::TestLocale locale;
const TimeZoneSimple eastern(TimeZone::StdZone(5), TimeZone::NorthAmerica);

// Seconds since 1970, between 1974 and 2037, where the rules of New York hold.
std::vector<std::int64_t> makeInstants() {
    std::vector<std::int64_t> instants;
    std::uint32_t seed = 1;
    for (int i = 0; i < 1000; ++i) {
        seed = seed * 1664525 + 1013904223;
        instants.push_back(126230400 + std::int64_t{seed} * 2019686400 / 4294967296);
    }
    return instants;
}

const std::vector<std::int64_t> instants = makeInstants();

DateTime timeOf(std::int64_t seconds) {
    return DateTime(seconds * 1000 + to1970);
}

std::vector<std::string> makeTexts() {
    std::vector<std::string> texts;
    for (const std::int64_t instant : instants) {
        texts.push_back(timeOf(instant).asString(DateTime::iso8601, locale, TimeZone::utc()));
    }
    return texts;
}

const std::vector<std::string> texts = makeTexts();

std::int64_t readWithNolk(const std::string& text) {
    return (DateTime(text, DateTime::iso8601, locale, TimeZone::utc()).milliSeconds() - to1970) /
           1000;
}

std::int64_t readWithStrptime(const std::string& text) {
    std::tm tm{};
    return strptime(text.c_str(), "%Y-%m-%dT%H:%M:%SZ", &tm) == nullptr ? -1 : timegm(&tm);
}

template <std::int64_t (*read)(const std::string&)>
void readTexts(benchmark::State& state) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (read(texts[i]) != instants[i]) {
            state.SkipWithError(texts[i].c_str());
            return;
        }
    }
    std::size_t at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(read(texts[at]));
        at = at + 1 == texts.size() ? 0 : at + 1;
    }
}

std::string writeWithNolk(std::int64_t instant) {
    return timeOf(instant).asString(DateTime::iso8601, locale, TimeZone::utc());
}

std::string writeWithStrftime(std::int64_t instant) {
    const std::time_t time = instant;
    std::tm tm{};
    gmtime_r(&time, &tm);
    char text[64];
    return std::string(text, std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &tm));
}

// The peer without the string that the library's operation returns.
std::size_t writeInPlace(std::int64_t instant) {
    const std::time_t time = instant;
    std::tm tm{};
    gmtime_r(&time, &tm);
    char text[64];
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &tm);
    benchmark::DoNotOptimize(text);
    return length;
}

std::string writeHttp(std::int64_t instant) {
    return timeOf(instant).asString(DateTime::http, locale, TimeZone::utc());
}

template <auto write>
void writeTexts(benchmark::State& state) {
    std::size_t at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(write(instants[at]));
        at = at + 1 == instants.size() ? 0 : at + 1;
    }
}

struct Civil {
    int year;
    unsigned month;
    unsigned day;
};

Civil civilWithNolk(int days) {
    const Date date(julianOf1970 + static_cast<unsigned long>(days));
    return {static_cast<int>(date.year()), date.month(), date.dayOfMonth()};
}

Civil civilWithChrono(int days) {
    const std::chrono::year_month_day civil{std::chrono::sys_days(std::chrono::days(days))};
    return {static_cast<int>(civil.year()), static_cast<unsigned>(civil.month()),
            static_cast<unsigned>(civil.day())};
}

int daysWithNolk(const Civil& civil) {
    const Date date(civil.day, civil.month, static_cast<unsigned>(civil.year));
    return static_cast<int>(date.julian() - julianOf1970);
}

int daysWithChrono(const Civil& civil) {
    const std::chrono::year_month_day date{std::chrono::year(civil.year),
                                           std::chrono::month(civil.month),
                                           std::chrono::day(civil.day)};
    // The library refuses what is no date, and so does its peer here.
    return date.ok() ? static_cast<int>(std::chrono::sys_days(date).time_since_epoch().count())
                     : -1;
}

int daysWithChronoUnchecked(const Civil& civil) {
    const std::chrono::year_month_day date{std::chrono::year(civil.year),
                                           std::chrono::month(civil.month),
                                           std::chrono::day(civil.day)};
    return static_cast<int>(std::chrono::sys_days(date).time_since_epoch().count());
}

int dayOf(std::size_t at) {
    return static_cast<int>(instants[at] / 86400);
}

template <Civil (*convert)(int)>
void daysToCivil(benchmark::State& state) {
    std::size_t at = 0;
    for (auto _ : state) {
        const Civil civil = convert(dayOf(at));
        benchmark::DoNotOptimize(civil.year + civil.month + civil.day);
        at = at + 1 == instants.size() ? 0 : at + 1;
    }
}

template <int (*convert)(const Civil&)>
void civilToDays(benchmark::State& state) {
    std::vector<Civil> dates;
    for (std::size_t i = 0; i < instants.size(); ++i) {
        dates.push_back(civilWithChrono(dayOf(i)));
        if (convert(dates[i]) != dayOf(i) || civilWithNolk(dayOf(i)).day != dates[i].day) {
            state.SkipWithError("a date is wrong");
            return;
        }
    }
    std::size_t at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(convert(dates[at]));
        at = at + 1 == dates.size() ? 0 : at + 1;
    }
}

std::tm localWithNolk(std::int64_t instant) {
    std::tm tm{};
    timeOf(instant).extract(&tm, eastern);
    return tm;
}

std::tm localWithLocaltime(std::int64_t instant) {
    const std::time_t time = instant;
    std::tm tm{};
    localtime_r(&time, &tm);
    return tm;
}

template <std::tm (*convert)(std::int64_t)>
void instantToLocal(benchmark::State& state) {
    setenv("TZ", "America/New_York", 1);
    tzset();
    for (const std::int64_t instant : instants) {
        const std::tm a = convert(instant);
        const std::tm b = localWithLocaltime(instant);
        if (a.tm_hour != b.tm_hour || a.tm_yday != b.tm_yday || a.tm_isdst != b.tm_isdst) {
            state.SkipWithError("a civil time is wrong");
            return;
        }
    }
    std::size_t at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(convert(instants[at]));
        at = at + 1 == instants.size() ? 0 : at + 1;
    }
}

BENCHMARK(readTexts<readWithNolk>)->Name("date_time/read_iso/nolk");
BENCHMARK(readTexts<readWithStrptime>)->Name("date_time/read_iso/strptime_timegm");
BENCHMARK(writeTexts<writeWithNolk>)->Name("date_time/write_iso/nolk");
BENCHMARK(writeTexts<writeWithStrftime>)->Name("date_time/write_iso/gmtime_strftime");
BENCHMARK(writeTexts<writeInPlace>)->Name("date_time/write_iso/gmtime_strftime_in_place");
BENCHMARK(writeTexts<writeHttp>)->Name("date_time/write_http/nolk");
BENCHMARK(daysToCivil<civilWithNolk>)->Name("date/days_to_civil/nolk");
BENCHMARK(daysToCivil<civilWithChrono>)->Name("date/days_to_civil/chrono");
BENCHMARK(civilToDays<daysWithNolk>)->Name("date/civil_to_days/nolk");
BENCHMARK(civilToDays<daysWithChrono>)->Name("date/civil_to_days/chrono");
BENCHMARK(civilToDays<daysWithChronoUnchecked>)->Name("date/civil_to_days/chrono_unchecked");
BENCHMARK(instantToLocal<localWithNolk>)->Name("date_time/local/nolk");
BENCHMARK(instantToLocal<localWithLocaltime>)->Name("date_time/local/localtime_r");

}  // namespace
