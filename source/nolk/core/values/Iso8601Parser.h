/** @file
 * The reader behind Iso8601DateTime.
 */
#ifndef NOLK_CORE_VALUES_ISO8601_PARSER_H
#define NOLK_CORE_VALUES_ISO8601_PARSER_H

#include <nolk/core/Iso8601DateTime.h>

#include "nolk/core/platform/Zone.h"

#include <cstdint>
#include <ctime>
#include <optional>

namespace nolk {

/** Fills one unset value from one text. Nothing throws. */
class Iso8601Parser {
public:
    /** Tells the present local time. */
    using Clock = std::tm (*)() noexcept;

    /** @pre `text` ends in a zero byte, and lives, as `value` does, as long as the parser */
    Iso8601Parser(Iso8601DateTime& value, const char* text,
                  Clock clock = &platform::localTimeNow) noexcept
        : value_(value), text_(text), cursor_(text), clock_(clock) {}

    void parse(Iso8601DateTime::Format format) noexcept;

    /** Which format the signs in a text speak for. */
    static Iso8601DateTime::Format formatOf(const char* text) noexcept;

private:
    static constexpr int absent = -1;

    /** What a date form tells; what it leaves out is absent. */
    struct Given {
        int year = absent;
        int century = absent;
        int decade = absent;
        int decadeYear = absent;
        int yearDay = absent;
        int month = absent;
        int day = absent;
        int week = absent;
        int weekDay = absent;
    };

    void parseAsDate() noexcept;
    void parseAsTime() noexcept;
    void parseAsDateTime() noexcept;
    bool takeComplete() noexcept;
    void parseAsAnything() noexcept;

    // Dates. Each leaves the cursor behind what it has read.
    void parseDate() noexcept;
    void parseFullDate() noexcept;
    void parseDashDate() noexcept;
    void parseDashDashDate() noexcept;
    void parseDecadeOrdinal() noexcept;
    template <typename Form>
    bool take(Form) noexcept;
    void verify(Given given) noexcept;
    void storeMonthDay(int year, int month, int day) noexcept;
    void store(int year, int yearDay) noexcept;

    // Times.
    void parseTime() noexcept;
    void parseHour() noexcept;
    void parseMinutes() noexcept;
    void parseSeconds() noexcept;
    void parseTruncatedTime() noexcept;
    bool finerUnitsFollow(int unit) noexcept;
    double parseFraction() noexcept;
    void parseFractionOfSecond() noexcept;

    void parseZone() noexcept;

    // Reads exactly two digits; where they aren't there, absent, and nothing moves.
    int twoDigits() noexcept;

    int lengthOfDate() const noexcept;
    bool hasDate() const noexcept { return value_.year() != 0 && value_.yearDay() != 0; }
    bool hasTime() const noexcept { return value_.time_ != Iso8601DateTime::unsetTime; }
    void addTime(int milliseconds) noexcept;
    void setOffset(std::uint32_t minutes) noexcept;
    const std::tm& now() noexcept;

    Iso8601DateTime& value_;
    const char* text_;
    const char* cursor_;
    Clock clock_;
    // Read once, and only if something is left out.
    std::optional<std::tm> now_;
};

}  // namespace nolk

#endif
