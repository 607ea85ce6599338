// Complete ISO date-times in UTC, read by the library and by the C run-time library. All of them
// give an instant in seconds, so that they do the same work.
#include <nolk/core/Iso8601DateTime.h>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

namespace {

using nolk::Iso8601DateTime;

std::vector<std::string> makeTexts() {
    std::vector<std::string> texts;
    std::uint32_t seed = 1;
    const auto below = [&seed](std::uint32_t limit) {
        seed = seed * 1664525 + 1013904223;
        return static_cast<int>((seed >> 8) % limit);
    };
    for (int i = 0; i < 1000; ++i) {
        char text[64];
        std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02dZ", 1970 + below(100),
                      1 + below(12), 1 + below(28), below(24), below(60), below(60));
        texts.push_back(text);
    }
    return texts;
}

const std::vector<std::string> texts = makeTexts();

std::int64_t instantOf(int year, int yearDay, int secondOfDay) {
    const int before = year - 1;
    const int days = before * 365 + before / 4 - before / 100 + before / 400 - 719163 + yearDay;
    return std::int64_t{days} * 86400 + secondOfDay;
}

std::int64_t readWithNolk(const char* text) {
    const Iso8601DateTime value(text, Iso8601DateTime::dateTime);
    const int second = (value.hour() * 60 + value.minutes()) * 60 + value.seconds();
    return value.isValid() ? instantOf(value.year(), value.yearDay(), second) : -1;
}

std::int64_t readWithNolkToTm(const char* text) {
    std::tm tm{};
    Iso8601DateTime(text, Iso8601DateTime::dateTime).fill(&tm);
    return instantOf(tm.tm_year + 1900, tm.tm_yday, (tm.tm_hour * 60 + tm.tm_min) * 60 + tm.tm_sec);
}

std::int64_t readWithNolkAutomatic(const char* text) {
    const Iso8601DateTime value(text, Iso8601DateTime::automatic);
    const int second = (value.hour() * 60 + value.minutes()) * 60 + value.seconds();
    return value.isValid() ? instantOf(value.year(), value.yearDay(), second) : -1;
}

std::int64_t readWithStrptime(const char* text) {
    std::tm tm{};
    return strptime(text, "%Y-%m-%dT%H:%M:%SZ", &tm) == nullptr ? -1 : timegm(&tm);
}

// The least that any reader of this one form does: no form to be found, nothing else checked.
std::int64_t readByHand(const char* text) {
    constexpr int before[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    const auto two = [text](int at) { return (text[at] - '0') * 10 + text[at + 1] - '0'; };
    const int year = two(0) * 100 + two(2);
    const int month = two(5);
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    const int yearDay = before[month - 1] + (month > 2 && leap) + two(8);
    return instantOf(year, yearDay, (two(11) * 60 + two(14)) * 60 + two(17));
}

template <std::int64_t (*read)(const char*)>
void readTexts(benchmark::State& state) {
    for (const std::string& text : texts) {
        if (read(text.c_str()) != readWithStrptime(text.c_str())) {
            state.SkipWithError(text.c_str());
            return;
        }
    }
    std::size_t at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(read(texts[at].c_str()));
        at = at + 1 == texts.size() ? 0 : at + 1;
    }
}

BENCHMARK(readTexts<readWithNolk>)->Name("iso8601/read/nolk");
BENCHMARK(readTexts<readWithNolkToTm>)->Name("iso8601/read/nolk_to_tm");
BENCHMARK(readTexts<readWithNolkAutomatic>)->Name("iso8601/read/nolk_automatic");
BENCHMARK(readTexts<readWithStrptime>)->Name("iso8601/read/strptime_timegm");
BENCHMARK(readTexts<readByHand>)->Name("iso8601/read/by_hand");

}  // namespace
