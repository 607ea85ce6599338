// The format is that of RFC 8536. The first block of a file holds 32-bit times, for readers of old;
// the second one holds all of them.

#include "support/ZoneFile.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace nolk::test {

namespace {

constexpr std::size_t headerSize = 44;

class Bytes {
public:
    explicit Bytes(std::string bytes) : bytes_(std::move(bytes)) {}

    // A number of so many bytes, the uppermost first.
    std::int64_t number(std::size_t at, std::size_t size) const {
        std::uint64_t value = static_cast<signed char>(bytes_.at(at)) < 0 ? ~0ull : 0;
        for (std::size_t i = 0; i < size; ++i) {
            value = value << 8 | static_cast<unsigned char>(bytes_.at(at + i));
        }
        return static_cast<std::int64_t>(value);
    }

    std::size_t count(std::size_t at) const { return static_cast<std::size_t>(number(at, 4)); }

    std::string text(std::size_t at) const { return bytes_.substr(at, bytes_.find('\0', at) - at); }

private:
    std::string bytes_;
};

// The six counts of a header, and what they make of its block.
struct Block {
    Block(const Bytes& bytes, std::size_t header, std::size_t timeSize)
        : utIndicators(bytes.count(header + 20)),
          standardIndicators(bytes.count(header + 24)),
          leaps(bytes.count(header + 28)),
          times(bytes.count(header + 32)),
          types(bytes.count(header + 36)),
          letters(bytes.count(header + 40)),
          timesAt(header + headerSize),
          indexesAt(timesAt + times * timeSize),
          typesAt(indexesAt + times),
          lettersAt(typesAt + types * 6),
          end(lettersAt + letters + leaps * (timeSize + 4) + standardIndicators + utIndicators) {}

    std::size_t utIndicators, standardIndicators, leaps, times, types, letters;
    std::size_t timesAt, indexesAt, typesAt, lettersAt, end;
};

std::string contents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (bytes.size() < headerSize || bytes.compare(0, 4, "TZif") != 0) {
        throw std::runtime_error("no zone data in " + path);
    }
    return bytes;
}

}  // namespace

ZoneFile::ZoneFile(const std::string& name) {
    const Bytes bytes(contents("/usr/share/zoneinfo/" + name));
    const Block first(bytes, 0, 4);
    const Block block(bytes, first.end, 8);
    const auto change = [&](std::int64_t from, std::size_t type) {
        const std::size_t at = block.typesAt + type * 6;
        const auto letters = static_cast<std::size_t>(bytes.number(at + 5, 1));
        changes_.push_back({from, bytes.number(at, 4), bytes.number(at + 4, 1) != 0,
                            bytes.text(block.lettersAt + letters)});
    };
    change(INT64_MIN, 0);
    for (std::size_t i = 0; i < block.times; ++i) {
        change(bytes.number(block.timesAt + i * 8, 8),
               static_cast<std::size_t>(bytes.number(block.indexesAt + i, 1)));
    }
    if (changes_.back().from < secondsAt(2037, 1, 1) &&
        changes_.back().from > secondsAt(2000, 1, 1)) {
        throw std::runtime_error("zone data up to 2037 is needed");
    }
}

const ZoneFile::Change& ZoneFile::at(std::int64_t seconds) const {
    const auto behind =
        std::upper_bound(changes_.begin(), changes_.end(), seconds,
                         [](std::int64_t time, const Change& next) { return time < next.from; });
    return *std::prev(behind);
}

std::tm ZoneFile::civil(std::int64_t seconds) const {
    const Change& now = at(seconds);
    std::tm civil = civilAt(seconds, now.offset);
    civil.tm_isdst = now.daylight;
    return civil;
}

std::tm civilAt(std::int64_t seconds, std::int64_t offset) {
    using namespace std::chrono;
    const sys_seconds instant{std::chrono::seconds(seconds + offset)};
    const sys_days day = floor<days>(instant);
    const year_month_day date(day);
    const hh_mm_ss<std::chrono::seconds> time(instant - day);
    std::tm civil{};
    civil.tm_year = static_cast<int>(date.year()) - 1900;
    civil.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    civil.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    civil.tm_hour = static_cast<int>(time.hours().count());
    civil.tm_min = static_cast<int>(time.minutes().count());
    civil.tm_sec = static_cast<int>(time.seconds().count());
    civil.tm_wday = static_cast<int>(weekday(day).c_encoding());
    civil.tm_yday = static_cast<int>((day - sys_days(date.year() / 1 / 1)).count());
    return civil;
}

std::int64_t secondsAt(int year, int month, int day) {
    using namespace std::chrono;
    const sys_days date = std::chrono::year(year) / month / day;
    return std::int64_t{date.time_since_epoch().count()} * 86400;
}

}  // namespace nolk::test
