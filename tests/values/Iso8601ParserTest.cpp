// Forms that leave something out, with the clock held.

#include "nolk/core/values/Iso8601Parser.h"

#include <gtest/gtest.h>

#include <iterator>
#include <memory>
#include <string>

namespace nolk {
namespace {

using Format = Iso8601DateTime::Format;

int readings = 0;

std::tm clockAt(int year, int month, int day, int hour, int minute) {
    ++readings;
    std::tm now{};
    now.tm_year = year - 1900;
    now.tm_mon = month - 1;
    now.tm_mday = day;
    now.tm_hour = hour;
    now.tm_min = minute;
    return now;
}

std::tm leapDay() noexcept {
    return clockAt(2000, 2, 29, 13, 14);
}

std::tm inTheEighties() noexcept {
    return clockAt(1987, 11, 21, 9, 5);
}

std::tm inTheLastCentury() noexcept {
    return clockAt(1899, 12, 31, 0, 0);
}

Iso8601DateTime parse(const std::string& text, Format format,
                      Iso8601Parser::Clock clock = leapDay) {
    Iso8601DateTime value(nullptr, format);
    Iso8601Parser(value, text.c_str(), clock).parse(format);
    return value;
}

struct DateRow {
    const char* text;
    int year;
    int yearDay;
};

void expectDates(Iso8601Parser::Clock clock, const DateRow* begin, const DateRow* end) {
    for (const DateRow* row = begin; row != end; ++row) {
        const Iso8601DateTime value = parse(row->text, Iso8601DateTime::date, clock);
        EXPECT_TRUE(value.isValid()) << row->text;
        EXPECT_EQ(value.year(), row->year) << row->text;
        EXPECT_EQ(value.yearDay(), row->yearDay) << row->text;
        const std::string withTime = std::string(row->text) + "T040506Z";
        const Iso8601DateTime timed = parse(withTime, Iso8601DateTime::dateTime, clock);
        EXPECT_TRUE(timed.isValid()) << withTime;
        EXPECT_EQ(timed.year(), row->year) << withTime;
        EXPECT_EQ(timed.yearDay(), row->yearDay) << withTime;
        EXPECT_EQ(timed.hour(), 4) << withTime;
    }
}

// On 29 February 2000, which in a common year is 1 March, day 60 all the same. 2000 began on a
// Saturday and has its week 1 from 3 January on; 2001 began on a Monday.
TEST(Iso8601Parser, TakesWhatADateLeavesOutFromTheClock) {
    const DateRow rows[] = {
        {"19", 1900, 60},                             // CC
        {"1985", 1985, 60},                           // YYYY
        {"01-02-03", 2001, 34},                       // YY-MM-DD
        {"01W05", 2001, 29},                          // YYWww
        {"01034", 2001, 34},                          // YYOOO
        {"010203", 2001, 34},                         // YYMMDD
        {"2001-02", 2001, 60},                        // YYYY-MM
        {"-01", 2001, 60},                            // -YY
        {"-W05", 2000, 31},                           // -Www: 31 January
        {"-W-6", 2000, 8},                            // -W-d: Saturday of week 1
        {"-034", 2000, 34},                           // -OOO
        {"-1W05", 2001, 29},                          // -YWww
        {"-0102", 2001, 60},                          // -YYMM
        {"-W056", 2000, 36},                          // -Wwwd: 5 February
        {"-01-02", 2001, 60},                         // -YY-MM
        {"-1W056", 2001, 34},                         // -YWwwd
        {"-1-W05", 2001, 29},                         // -Y-Www
        {"-W05-6", 2000, 36},                         // -Www-d
        {"-1-W05-6", 2001, 34},                       // -Y-Www-d
        {"--02-03", 2000, 34},                        // --MM-DD
        {"--0203", 2000, 34},                         // --MMDD
        {"--03", 2000, 89},                           // --MM: 29 March
        {"--03-", 2000, 89},    {"---05", 2000, 36},  // ---DD: 5 February
    };
    expectDates(leapDay, std::begin(rows), std::end(rows));
}

// 1981 began on a Thursday, in the middle of its week 1; 1985 on a Tuesday.
TEST(Iso8601Parser, TakesDecadeAndCenturyFromTheClock) {
    const DateRow rows[] = {
        {"20", 2087, 325},                                                   // 21 November
        {"85-04-12", 1985, 102}, {"85102", 1985, 102}, {"85W15", 1985, 98},  // 8 April
        {"-85", 1985, 325},      {"-1W05", 1981, 26},  {"-1-W05-1", 1981, 26},
        {"-1-W01-1", 1980, 364},                        // 29 December 1980
        {"-1-W53-7", 1982, 3},   {"-8504", 1985, 111},  // 21 April
    };
    expectDates(inTheEighties, std::begin(rows), std::end(rows));
}

TEST(Iso8601Parser, BeforeItsCenturyTheClockStillCountsFromNineteen) {
    // The year 1899 is -1 of its kind: century 19, decade 0, year -1 of it.
    EXPECT_EQ(parse("--12-31", Iso8601DateTime::date, inTheLastCentury).year(), 1899);
}

TEST(Iso8601Parser, TwoDigitsAndAnOrdinalDayTakeDecadeAndYearFromTheDay) {
    const Iso8601DateTime first = parse("85-102", Iso8601DateTime::date);
    EXPECT_EQ(first.year(), 2102);  // century 20, decade 10, year 2
    EXPECT_EQ(first.yearDay(), 102);
    const Iso8601DateTime second = parse("99-034", Iso8601DateTime::date);
    EXPECT_EQ(second.year(), 2034);
    EXPECT_EQ(second.yearDay(), 34);
    // Decade 36, year 6: 2366 is a common year and has no day 366.
    EXPECT_FALSE(parse("00-366", Iso8601DateTime::date).isValid());
    // Decade 36, year 4: 2364 is a leap year.
    EXPECT_EQ(parse("00-364", Iso8601DateTime::date).year(), 2364);
    EXPECT_FALSE(parse("85-10x", Iso8601DateTime::date).isValid());
}

TEST(Iso8601Parser, WeekZeroWithoutAWeekDayIsNoWeekDate) {
    const DateRow rows[] = {
        {"2001-W00", 2001, 60}, {"2001W00", 2001, 60}, {"2001-W00-0", 2001, 60},
        {"01W00", 2001, 60},    {"-W00-0", 2000, 60},  {"-1-W00-0", 2001, 60},
    };
    expectDates(leapDay, std::begin(rows), std::end(rows));
}

TEST(Iso8601Parser, TakesTheTimeThatIsLeftOutFromTheClock) {
    struct Row {
        const char* text;
        int seconds;
        int milliseconds;
    };
    constexpr int hour = 13 * 3600;
    constexpr int minute = 14 * 60;
    const Row rows[] = {
        {"-", hour, 0},
        {"-30", hour + 1800, 0},
        {"-30:15", hour + 1815, 0},
        {"-3015", hour + 1815, 0},
        {"-30:15.5", hour + 1815, 500},
        {"-30.5", hour + 1830, 0},
        {"-30,25", hour + 1815, 0},
        {"--", hour + minute, 0},
        {"--15", hour + minute + 15, 0},
        {"--15,123", hour + minute + 15, 123},
    };
    for (const Row& row : rows) {
        for (const char* front : {"", "T"}) {
            const std::string text = std::string(front) + row.text;
            const Iso8601DateTime value = parse(text, Iso8601DateTime::time);
            EXPECT_TRUE(value.isValid()) << text;
            EXPECT_EQ((value.hour() * 60 + value.minutes()) * 60 + value.seconds(), row.seconds)
                << text;
            EXPECT_EQ(value.milliseconds(), row.milliseconds) << text;
            EXPECT_EQ(value.yearDay(), 60) << text;
            EXPECT_FALSE(value.zone()) << text;
        }
        const std::string text = "1999-12-31T" + std::string(row.text) + "Z";
        const Iso8601DateTime value = parse(text, Iso8601DateTime::dateTime);
        EXPECT_TRUE(value.isValid()) << text;
        EXPECT_EQ(value.year(), 1999) << text;
        EXPECT_EQ((value.hour() * 60 + value.minutes()) * 60 + value.seconds(), row.seconds)
            << text;
        EXPECT_TRUE(value.zone()) << text;
    }
    for (const char* text : {"-x", "-3", "--1", "--x", "---", "-30:1", "--15:16"}) {
        EXPECT_FALSE(parse(text, Iso8601DateTime::time).isValid()) << text;
    }
}

TEST(Iso8601Parser, AZoneMayFollowATruncatedTime) {
    EXPECT_EQ(parse("--15+01:30", Iso8601DateTime::time).offset(), 5400000);
    EXPECT_EQ(parse("-30-02", Iso8601DateTime::time).offset(), -7200000);
    EXPECT_EQ(parse("---15", Iso8601DateTime::time).offset(), -15 * 3600000);
    // The second dash is the minute's.
    EXPECT_FALSE(parse("--02:00", Iso8601DateTime::time).isValid());
}

TEST(Iso8601Parser, ReadsTheClockOnceAndOnlyIfSomethingIsLeftOut) {
    struct Row {
        const char* text;
        Format format;
        int readings;
    };
    const Row rows[] = {
        {"2001-02-03T04:05:06Z", Iso8601DateTime::dateTime, 0},
        {"2001034T040506", Iso8601DateTime::dateTime, 0},
        {"2001-W05-6", Iso8601DateTime::date, 0},
        {"--02-03T--15", Iso8601DateTime::dateTime, 1},
        {"-W05T-30", Iso8601DateTime::dateTime, 1},
        {"19", Iso8601DateTime::date, 1},
        {"--15", Iso8601DateTime::time, 1},
        {"x", Iso8601DateTime::date, 0},
    };
    for (const Row& row : rows) {
        readings = 0;
        parse(row.text, row.format);
        EXPECT_EQ(readings, row.readings) << row.text;
    }
}

TEST(Iso8601Parser, ATimeThatIsNoneStillLeavesToday) {
    const Iso8601DateTime value = parse("x", Iso8601DateTime::time);
    EXPECT_FALSE(value.isValid());
    EXPECT_EQ(value.year(), 2000);
    EXPECT_EQ(value.yearDay(), 60);
}

TEST(Iso8601Parser, ADateThatIsNoneStillHasATimeAndNoZone) {
    const Iso8601DateTime value = parse("x", Iso8601DateTime::date);
    EXPECT_FALSE(value.isValid());
    EXPECT_EQ(value.hour(), 0);
    EXPECT_FALSE(value.zone());
}

TEST(Iso8601Parser, AClockThatCannotTellGivesNoDate) {
    const auto unknown = []() noexcept { return std::tm{}; };
    EXPECT_FALSE(parse("12:30", Iso8601DateTime::time, unknown).isValid());
    EXPECT_FALSE(parse("2001-02", Iso8601DateTime::date, unknown).isValid());
}

TEST(Iso8601Parser, FindsTheFormatInTheSigns) {
    struct Row {
        const char* text;
        Format format;
    };
    const Row rows[] = {
        {"", Iso8601DateTime::automatic},
        {"20010203", Iso8601DateTime::automatic},
        {"12+01", Iso8601DateTime::automatic},
        {"12Z", Iso8601DateTime::automatic},
        {"2001-02-03", Iso8601DateTime::date},
        {"2001W05", Iso8601DateTime::date},
        {"-", Iso8601DateTime::date},
        {"12:30", Iso8601DateTime::time},
        {"12.5", Iso8601DateTime::time},
        {"12,5", Iso8601DateTime::time},
        {"T", Iso8601DateTime::time},
        {"T1230", Iso8601DateTime::time},
        {"T12:30", Iso8601DateTime::time},
        {"TT", Iso8601DateTime::dateTime},
        {"xT", Iso8601DateTime::dateTime},
        {"20010203T1230", Iso8601DateTime::dateTime},
        {"12:30-01", Iso8601DateTime::dateTime},
        {"T12-01", Iso8601DateTime::dateTime},
        {"W.", Iso8601DateTime::dateTime},
        {",W", Iso8601DateTime::dateTime},
        {"-:", Iso8601DateTime::dateTime},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Iso8601Parser::formatOf(row.text), row.format) << row.text;
    }
}

// Every prefix of every text, with digits and signs behind its end.
TEST(Iso8601Parser, ReadsNothingBehindTheEnd) {
    const char* const texts[] = {
        "2001-02-03T04:05:06.789+01:30",
        "2001-W05-6T04:05.5-01",
        "20010203T040506,789Z",
        "85-102T12.5",
        "85-04-12T12",
        "-1-W05-6T-30:15",
        "-W05-6T--15.5",
        "--02-03T12",
        "---03T-",
        "2001W056T1",
        "-01-02",
        "-1W056",
        "-W-6",
        "010203",
        "01W05",
        "12.123456789",
    };
    for (const std::string text : texts) {
        for (std::size_t length = 0; length <= text.size(); ++length) {
            const std::string front = text.substr(0, length);
            // In a block of just its size, for sanitizers to see.
            const auto block = std::make_unique<char[]>(length + 1);
            front.copy(block.get(), length);
            for (int number = 1; number <= 4; ++number) {
                const auto format = static_cast<Format>(number);
                Iso8601DateTime value(nullptr, format);
                Iso8601Parser(value, block.get(), leapDay).parse(format);
                for (const char* behind : {"12-12T12:12:12.5+01", "-W05-5", "T12", "00Z"}) {
                    const std::string longer = front + '\0' + behind;
                    EXPECT_EQ(parse(longer, format), value) << front;
                }
            }
        }
    }
}

}  // namespace
}  // namespace nolk
