#include <nolk/core/Iso8601DateTime.h>

#include <gtest/gtest.h>

#include <chrono>
#include <climits>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <string>
#include <type_traits>

namespace nolk {
namespace {

using Format = Iso8601DateTime::Format;
using std::chrono::sys_days;

constexpr Format formats[] = {Iso8601DateTime::date, Iso8601DateTime::time,
                              Iso8601DateTime::dateTime, Iso8601DateTime::automatic};

Iso8601DateTime asDate(const std::string& text) {
    return {text.c_str(), Iso8601DateTime::date};
}

Iso8601DateTime asTime(const std::string& text) {
    return {text.c_str(), Iso8601DateTime::time};
}

Iso8601DateTime asDateTime(const std::string& text) {
    return {text.c_str(), Iso8601DateTime::dateTime};
}

Iso8601DateTime asAnything(const std::string& text) {
    return {text.c_str(), Iso8601DateTime::automatic};
}

std::string timeOf(const Iso8601DateTime& value) {
    char text[64];
    std::snprintf(text, sizeof text, "%d:%02d:%02d.%03d", value.hour(), value.minutes(),
                  value.seconds(), value.milliseconds());
    return text;
}

std::string format(const char* pattern, int a, int b, int c = 0) {
    char text[64];
    std::snprintf(text, sizeof text, pattern, a, b, c);
    return text;
}

// The local day; parse between two readings that agree.
std::tm today() {
    const std::time_t now = std::time(nullptr);
    return *std::localtime(&now);
}

template <typename Parse>
Iso8601DateTime parsedToday(std::tm& day, const Parse& parse) {
    for (;;) {
        day = today();
        const Iso8601DateTime value = parse();
        if (today().tm_yday == day.tm_yday) {
            return value;
        }
    }
}

TEST(Iso8601DateTime, HasTheFormatsByNumber) {
    EXPECT_EQ(Iso8601DateTime::date, 1);
    EXPECT_EQ(Iso8601DateTime::time, 2);
    EXPECT_EQ(Iso8601DateTime::dateTime, 3);
    EXPECT_EQ(Iso8601DateTime::automatic, 4);
}

TEST(Iso8601DateTime, IsAPlainValueOfTwoWords) {
    EXPECT_EQ(sizeof(Iso8601DateTime), 8u);
    EXPECT_TRUE(std::is_trivially_copyable_v<Iso8601DateTime>);
    EXPECT_TRUE((std::is_nothrow_constructible_v<Iso8601DateTime, const char*, Format>));
}

TEST(Iso8601DateTime, ReadsACompleteDateAndTimeInUtc) {
    const Iso8601DateTime value = asDateTime("2001-02-03T04:05:06Z");
    EXPECT_TRUE(value.isValid());
    EXPECT_EQ(value.year(), 2001);
    EXPECT_EQ(value.yearDay(), 34);
    EXPECT_EQ(timeOf(value), "4:05:06.000");
    EXPECT_EQ(value.offset(), 0);
    EXPECT_TRUE(value.zone());
}

TEST(Iso8601DateTime, ReadsMillisecondsAndAnOffset) {
    const Iso8601DateTime value = asDateTime("2001-02-03T04:05:06.5+01:30");
    EXPECT_TRUE(value.isValid());
    EXPECT_EQ(value.milliseconds(), 500);
    EXPECT_EQ(value.offset(), 5400000);
}

TEST(Iso8601DateTime, AFourthDigitOfTheFractionOfASecondStopsTheZone) {
    EXPECT_FALSE(asDateTime("2001-02-03T04:05:06.1234Z").isValid());
    EXPECT_FALSE(asDateTime("2001-02-03T04:05:06.1234").isValid());
}

TEST(Iso8601DateTime, ReadsSaturdayOfWeekFive) {
    const Iso8601DateTime value = asDate("2001-W05-6");
    EXPECT_TRUE(value.isValid());
    EXPECT_EQ(value.month(), 2);
    EXPECT_EQ(value.day(), 3);
    EXPECT_EQ(value.weekDay(), 6);
}

TEST(Iso8601DateTime, BasicCalendarDateAndOrdinalDateGiveTheSameValue) {
    EXPECT_TRUE(asDate("20010203").isValid());
    EXPECT_EQ(asDate("20010203"), asDate("2001-034"));
}

TEST(Iso8601DateTime, ADateWithoutYearIsOfTheCurrentYear) {
    std::tm day;
    const Iso8601DateTime value = parsedToday(day, [] { return asDate("--02-03"); });
    EXPECT_TRUE(value.isValid());
    EXPECT_EQ(value.year(), day.tm_year + 1900);
    EXPECT_EQ(value.month(), 2);
    EXPECT_EQ(value.day(), 3);
}

TEST(Iso8601DateTime, TheLastDaysOfFebruaryThatAreNoneLandInMarch) {
    EXPECT_TRUE(asDate("2001-02-31").isValid());
    EXPECT_EQ(asDate("2001-02-31"), asDate("2001-03-03"));
    EXPECT_EQ(asDate("2004-02-31"), asDate("2004-03-02"));
    EXPECT_EQ(asDate("2001-04-31"), asDate("2001-05-01"));
}

TEST(Iso8601DateTime, ADateAloneIsNoDateTime) {
    EXPECT_FALSE(asDateTime("2001-02-03").isValid());
    EXPECT_FALSE(asDateTime("2001-02-03 04:05:06Z").isValid());
    EXPECT_FALSE(asDateTime("2001-02-03T").isValid());
    EXPECT_FALSE(asDateTime("T04:05:06Z").isValid());
}

TEST(Iso8601DateTime, ADateAloneIsFoundOutToBeOne) {
    const Iso8601DateTime value = asAnything("2001-02-03");
    EXPECT_TRUE(value.isValid());
    EXPECT_EQ(value, asDate("2001-02-03"));
    EXPECT_EQ(timeOf(value), "0:00:00.000");
    EXPECT_FALSE(value.zone());
}

TEST(Iso8601DateTime, WithoutADateNothingOfADateTimeIsRead) {
    for (const char* text : {"2001-13-01T04:05:06Z", "0000-01-01T04:05:06Z", "2001-366T04:05:06Z",
                             "xT04:05:06Z", "T04:05:06Z"}) {
        const Iso8601DateTime value = asDateTime(text);
        EXPECT_EQ(value.hour(), 1193) << text;  // unset
        EXPECT_EQ(value.offset(), -1000 * 60000) << text;
        EXPECT_TRUE(value.zone()) << text;
    }
}

TEST(Iso8601DateTime, ATimeAloneIsToday) {
    std::tm day;
    const Iso8601DateTime value = parsedToday(day, [] { return asTime("T12:30"); });
    EXPECT_TRUE(value.isValid());
    EXPECT_EQ(value.year(), day.tm_year + 1900);
    EXPECT_EQ(value.month(), day.tm_mon + 1);
    EXPECT_EQ(value.day(), day.tm_mday);
    EXPECT_EQ(timeOf(value), "12:30:00.000");
    EXPECT_FALSE(value.zone());
}

TEST(Iso8601DateTime, TheYearZeroIsNotValid) {
    EXPECT_FALSE(asDate("0000-01-01").isValid());
    EXPECT_FALSE(asDateTime("0000-01-01T00:00:00Z").isValid());
    EXPECT_TRUE(asDate("0001-01-01").isValid());
}

TEST(Iso8601DateTime, NullAndEmptyTextsStayUnset) {
    for (const Format form : formats) {
        for (const char* text : {static_cast<const char*>(nullptr), ""}) {
            const Iso8601DateTime value(text, form);
            EXPECT_FALSE(value.isValid());
            EXPECT_EQ(value.year(), 0);
            EXPECT_EQ(value.yearDay(), 0);
            EXPECT_TRUE(value.zone());
            EXPECT_EQ(value.hour(), 1193);  // 4294967295 milliseconds
        }
    }
}

TEST(Iso8601DateTime, OtherFormatsStayUnset) {
    const Iso8601DateTime unset(nullptr, Iso8601DateTime::date);
    for (const int number : {INT_MIN, -1, 0, 5, INT_MAX}) {
        EXPECT_EQ(Iso8601DateTime("2001-02-03T04:05:06Z", static_cast<Format>(number)), unset);
        EXPECT_EQ(Iso8601DateTime("", static_cast<Format>(number)), unset);
    }
}

struct DateRow {
    const char* text;
    int year;
    int yearDay;
};

// 2001 begins on a Monday, its week 1 on 1 January. 3 February is day 34, Saturday of week 5.
const DateRow completeDates[] = {
    {"2001-02-03", 2001, 34},
    {"20010203", 2001, 34},
    {"2001-034", 2001, 34},
    {"2001034", 2001, 34},
    {"2001-W05-6", 2001, 34},
    {"2001W056", 2001, 34},
    {"2001-W05", 2001, 29},
    {"2001W05", 2001, 29},
    {"2001-01-01", 2001, 1},
    {"2001-12-31", 2001, 365},
    {"2000-12-31", 2000, 366},
    {"2000-02-29", 2000, 60},
    {"2000-03-01", 2000, 61},
    {"1900-03-01", 1900, 60},
    {"2001-001", 2001, 1},
    {"2001-365", 2001, 365},
    {"2000-366", 2000, 366},
    {"2000366", 2000, 366},
    {"0001-01-01", 1, 1},
    {"4095-12-31", 4095, 365},
    // 2002-W01 begins on 31 December 2001, and 2004-W53 ends on 2 January 2005.
    {"2002-W01-1", 2001, 365},
    {"2002W011", 2001, 365},
    {"2002-W01", 2001, 365},
    {"2004-W53-7", 2005, 2},
    {"2004W537", 2005, 2},
    // Weeks and days that no calendar has are counted on.
    {"2001-W53-1", 2001, 365},
    {"2001-W99-1", 2002, 322},  // 687 days in, modulo the length of 2001
    {"2001-W01-9", 2001, 9},
    {"2001-W01-0", 2000, 366},
    {"2001-W00-1", 2000, 360},  // the Monday before 1 January
};

TEST(Iso8601DateTime, ReadsEveryFormOfACompleteDate) {
    for (const DateRow& row : completeDates) {
        const Iso8601DateTime value = asDate(row.text);
        EXPECT_TRUE(value.isValid()) << row.text;
        EXPECT_EQ(value.year(), row.year) << row.text;
        EXPECT_EQ(value.yearDay(), row.yearDay) << row.text;
        EXPECT_EQ(timeOf(value), "0:00:00.000") << row.text;
        EXPECT_FALSE(value.zone()) << row.text;
    }
}

TEST(Iso8601DateTime, ReadsATimeBehindEveryFormOfACompleteDate) {
    for (const DateRow& row : completeDates) {
        const Iso8601DateTime value = asDateTime(std::string(row.text) + "T04:05:06-07:08");
        EXPECT_TRUE(value.isValid()) << row.text;
        EXPECT_EQ(value.year(), row.year) << row.text;
        EXPECT_EQ(value.yearDay(), row.yearDay) << row.text;
        EXPECT_EQ(timeOf(value), "4:05:06.000") << row.text;
        EXPECT_EQ(value.offset(), -(7 * 60 + 8) * 60000) << row.text;
        EXPECT_EQ(asAnything(std::string(row.text) + "T04:05:06-07:08"), value) << row.text;
    }
}

TEST(Iso8601DateTime, ReadsNoOtherDate) {
    const char* const texts[] = {
        "2",           "200",           "2x01",       "20x1",       "2001-2-3",   "2001-02-3",
        "2001-2-03",   "2001-02-033",   "2001/02/03", "2001_02_03", " 2001",      "+2001",
        "2001-02-03 ", "2001-02-03Z",   "2001-0203",  "200102-03",  "2001-13-01", "2001-00-01",
        "2001-01-00",  "2001-01-32",    "20011301",   "20010132",   "2001-000",   "2001000",
        "2001-366",    "2000-367",      "2001-999",   "2001-W5",    "2001-W5-6",  "2001-W05-",
        "2001-W05-x",  "2001-W056",     "2001W05-6",  "2001-w05-6", "2001W5",     "2001-02-",
        "2001-",       "2001-0",        "2001-x2-03", "2001-02x03", "2001-0x-03", "2001-02-0x",
        "20-01",       "20-0",          "20W1",       "20W0x",      "200W01",     "20-01-0x",
        "20-13-01",    "20-01-00",      "20-000",     "01366",      "-",          "-x",
        "-1",          "-1x",           "-W",         "-W0",        "-W-",        "-W-x",
        "-W0x",        "-00x",          "-000",       "-400",       "-0113",      "-0100",
        "-01-13",      "-01-0x",        "-1W",        "-1W0",       "-1W0x",      "-1W05x",
        "-1-W0x",      "-1-W05-",       "-1-W05-x",   "-1-W05x6",   "-W05-x",     "-W05x6",
        "-xW05",       "-12345",        "-123456",    "-1-W05-67",  "--",         "--x",
        "--1",         "--1x",          "--00",       "--13",       "--02-00",    "--02-32",
        "--0200",      "---",           "---x",       "---1",       "---00",      "---32",
        "----",        "----01",        "T2001",      "T",          "W05",        "abc",
        "\xFF\xFE",    "2\xB0\xB1\x30", "20\xB1\x30", "0000-01-01", "4096-01-01", "8192-01-01",
        "0000",
    };
    for (const char* text : texts) {
        const Iso8601DateTime value = asDate(text);
        EXPECT_FALSE(value.isValid()) << text;
        EXPECT_TRUE(value.yearDay() == 0 || value.year() == 0) << text;
        EXPECT_FALSE(asDateTime(std::string(text) + "T04:05:06Z").isValid()) << text;
    }
}

TEST(Iso8601DateTime, IgnoresTextBehindADate) {
    for (const char* text :
         {"2001-02-03T", "2001-02-03Tx", "2001-02-03T99:99:99.9999", "2001034T-"}) {
        EXPECT_EQ(asDate(text), asDate("2001-02-03")) << text;
        EXPECT_TRUE(asDate(text).isValid()) << text;
    }
    EXPECT_TRUE(asDate("--02-03x").isValid());
    EXPECT_TRUE(asDate("--02-034").isValid());
    EXPECT_TRUE(asDate("--0203-").isValid());
    EXPECT_TRUE(asDate("---034").isValid());
}

TEST(Iso8601DateTime, TheYearWrapsInTwelveBits) {
    const DateRow rows[] = {
        {"4097-01-01", 1, 1},
        {"9999-12-31", 1807, 365},
        {"9996-12-31", 1804, 366},
        {"0000-W00-1", 4095, 360},  // the year -1
    };
    for (const DateRow& row : rows) {
        const Iso8601DateTime value = asDate(row.text);
        EXPECT_TRUE(value.isValid()) << row.text;
        EXPECT_EQ(value.year(), row.year) << row.text;
        EXPECT_EQ(value.yearDay(), row.yearDay) << row.text;
    }
}

TEST(Iso8601DateTime, ALeapYearThatWrapsToACommonOneKeepsItsLastDay) {
    const Iso8601DateTime value = asDate("4196-12-31");  // the year 100
    EXPECT_EQ(value.year(), 100);
    EXPECT_EQ(value.yearDay(), 366);
    EXPECT_EQ(value.month(), 12);
    EXPECT_EQ(value.day(), 32);
}

TEST(Iso8601DateTime, TellsTheDigitsOfTheYear) {
    const Iso8601DateTime value = asDate("1985-04-12");
    EXPECT_EQ(value.century(), 19);
    EXPECT_EQ(value.decade(), 8);
    EXPECT_EQ(value.decadeYear(), 5);
}

struct TimeRow {
    const char* text;
    const char* time;
};

const TimeRow times[] = {
    {"00", "0:00:00.000"},
    {"23", "23:00:00.000"},
    {"24", "24:00:00.000"},
    {"99", "99:00:00.000"},
    {"12:30", "12:30:00.000"},
    {"1230", "12:30:00.000"},
    {"12:30:45", "12:30:45.000"},
    {"123045", "12:30:45.000"},
    {"12:3045", "12:30:45.000"},
    {"1230:45", "12:30:45.000"},
    {"99:99:99", "100:40:39.000"},
    {"12:30:45.1", "12:30:45.100"},
    {"12:30:45,12", "12:30:45.120"},
    {"12:30:45.123", "12:30:45.123"},
    {"12:30:45.001", "12:30:45.001"},
    {"123045,5", "12:30:45.500"},
    {"12:30:45.", "12:30:45.000"},
    {"99:99:99.999", "100:40:39.999"},
    // Fractions of hours and minutes have any number of digits.
    {"12.5", "12:30:00.000"},
    {"12,25", "12:15:00.000"},
    {"12.1", "12:06:00.000"},
    {"12.3", "12:18:00.000"},
    {"12.7", "12:42:00.000"},
    {"12.", "12:00:00.000"},
    {"12.000000", "12:00:00.000"},
    {"12.00000027", "12:00:00.000"},   // 0.972 ms
    {"12.00000028", "12:00:00.001"},   // 1.008 ms
    {"12.123456789", "12:07:24.444"},  // 444444.4404 ms
    {"12:30.5", "12:30:30.000"},
    {"1230,5", "12:30:30.000"},
    {"12:30.1", "12:30:06.000"},
    {"12:30.7", "12:30:42.000"},
    {"12:30.00001", "12:30:00.000"},  // 0.6 ms
    {"12:30.00002", "12:30:00.001"},  // 1.2 ms
    {"12:30.", "12:30:00.000"},
    {"12.99999999999999999999999999999999999999999999", "12:59:59.999"},
    {"12:30,99999999999999999999999999999999999999999", "12:30:59.999"},
    // A sign with nothing behind it does no harm.
    {"12:", "12:00:00.000"},
    {"12:30:", "12:30:00.000"},
};

TEST(Iso8601DateTime, ReadsEveryFormOfATime) {
    for (const TimeRow& row : times) {
        for (const char* prefix : {"", "T"}) {
            const Iso8601DateTime value = asTime(std::string(prefix) + row.text);
            EXPECT_TRUE(value.isValid()) << row.text;
            EXPECT_EQ(timeOf(value), row.time) << row.text;
            EXPECT_FALSE(value.zone()) << row.text;
        }
    }
}

TEST(Iso8601DateTime, ReadsEveryFormOfATimeBehindADate) {
    for (const TimeRow& row : times) {
        const Iso8601DateTime value = asDateTime("2001-02-03T" + std::string(row.text));
        EXPECT_TRUE(value.isValid()) << row.text;
        EXPECT_EQ(value.yearDay(), 34) << row.text;
        EXPECT_EQ(timeOf(value), row.time) << row.text;
        EXPECT_FALSE(value.zone()) << row.text;
        const Iso8601DateTime zoned = asDateTime("2001-02-03T" + std::string(row.text) + "-02");
        EXPECT_TRUE(zoned.isValid()) << row.text;
        EXPECT_EQ(timeOf(zoned), row.time) << row.text;
        EXPECT_EQ(zoned.offset(), -7200000) << row.text;
    }
}

TEST(Iso8601DateTime, AFractionMayHaveThousandsOfDigits) {
    EXPECT_EQ(timeOf(asTime("12.5" + std::string(5000, '0'))), "12:30:00.000");
    EXPECT_EQ(timeOf(asTime("12." + std::string(5000, '9'))), "12:59:59.999");
    EXPECT_EQ(timeOf(asTime("12." + std::string(5000, '0') + "1Z")), "12:00:00.000");
    EXPECT_TRUE(asTime("12." + std::string(5000, '1') + "Z").zone());
}

TEST(Iso8601DateTime, ReadsNoOtherTime) {
    const char* const texts[] = {
        "T",         "TT12",          "1",        "1:30",  "x",          "x2",
        "1x",        "12x",           "123",      "12:3",  "12:x",       "12:.5",
        "12:30:4",   "12:30:x",       "12:30:.5", "12304", "12:30x",     "12:30:45x",
        "12:30:45:", "12:30:45.x",    "12.x",     "12.5x", "12:30.5x",   "12.5:30",
        "12.5.5",    "12:30:45.1234", "12 ",      " 12",   "12\xB1\xB2", "\xB1\xB2",
    };
    for (const char* text : texts) {
        EXPECT_FALSE(asTime(text).isValid()) << text;
        EXPECT_FALSE(asDateTime("2001-02-03T" + std::string(text)).isValid()) << text;
    }
}

struct ZoneRow {
    const char* text;
    int minutes;
};

TEST(Iso8601DateTime, ReadsEveryFormOfAZone) {
    const ZoneRow rows[] = {
        {"Z", 0},
        {"+00", 0},
        {"-00", 0},
        {"+00:00", 0},
        {"+01", 60},
        {"-01", -60},
        {"+01:30", 90},
        {"+0130", 90},
        {"-01:30", -90},
        {"-0130", -90},
        {"-00:01", -1},
        {"+14:00", 840},
        {"+01:", 60},
        {"+00:99", 99},
        {"+17:03", 1023},
        {"-17:04", -1024},
        // What follows a zone doesn't matter.
        {"Z ", 0},
        {"Zx", 0},
        {"Z+01", 0},
        {"+01x", 60},
        {"+01:3", 60},
        {"+01:x", 60},
        {"+013", 60},
        {"+01:30:15", 90},
        {"+01Z", 60},
        {"+01 30", 60},
        // Eleven bits hold no more.
        {"+17:04", -1024},
        {"+17:05", -1023},
        {"+17:26", -1002},
        {"-17:05", 1023},
        {"+99:99", -105},
        {"-99:99", 105},
    };
    for (const ZoneRow& row : rows) {
        for (const char* front : {"2001-02-03T04", "2001-02-03T04:05", "2001-02-03T04:05:06.7",
                                  "2001-02-03T04,5", "2001-02-03T04:05.5"}) {
            const std::string text = std::string(front) + row.text;
            const Iso8601DateTime value = asDateTime(text);
            EXPECT_TRUE(value.isValid()) << text;
            EXPECT_TRUE(value.zone()) << text;
            EXPECT_EQ(value.offset(), row.minutes * 60000) << text;
        }
        EXPECT_EQ(asTime(std::string("04:05") + row.text).offset(), row.minutes * 60000);
    }
}

TEST(Iso8601DateTime, ReadsNoOtherZone) {
    for (const char* text : {" ", "z", "x", "+", "-", "+1", "-1", "+x", "+1x", "+x1", "+:30",
                             "++01", "--01", "+-01", " Z", "\x80"}) {
        EXPECT_FALSE(asDateTime("2001-02-03T04:05" + std::string(text)).isValid()) << text;
        EXPECT_FALSE(asTime("04:05" + std::string(text)).isValid()) << text;
    }
}

TEST(Iso8601DateTime, TheOffsetsThatLookLikeMarksAreTakenForThem) {
    for (const char* text : {"-16:41", "+17:27"}) {
        const Iso8601DateTime value = asDateTime("2001-02-03T04:05:06" + std::string(text));
        EXPECT_TRUE(value.isValid()) << text;
        EXPECT_FALSE(value.zone()) << text;
    }
    for (const char* text : {"-16:40", "+17:28"}) {
        const Iso8601DateTime value = asDateTime("2001-02-03T04:05:06" + std::string(text));
        EXPECT_FALSE(value.isValid()) << text;
        EXPECT_TRUE(value.zone()) << text;
        EXPECT_EQ(value.offset(), -1000 * 60000) << text;
    }
    EXPECT_EQ(asDateTime("2001-02-03T04-16:39").offset(), -999 * 60000);
    EXPECT_EQ(asDateTime("2001-02-03T04-16:42").offset(), -1002 * 60000);
}

TEST(Iso8601DateTime, FindsOutTheFormat) {
    std::tm day;
    const auto anything = [](const char* text) { return [text] { return asAnything(text); }; };
    // Signs of dates, of times, of both, and of none.
    EXPECT_EQ(asAnything("2001-W05-6"), asDate("2001-034"));
    EXPECT_EQ(asAnything("2001W056"), asDate("2001-034"));
    EXPECT_EQ(timeOf(parsedToday(day, anything("12:30"))), "12:30:00.000");
    EXPECT_EQ(timeOf(parsedToday(day, anything("12.5Z"))), "12:30:00.000");
    EXPECT_EQ(timeOf(parsedToday(day, anything("12,5"))), "12:30:00.000");
    EXPECT_EQ(timeOf(parsedToday(day, anything("T1230"))), "12:30:00.000");
    EXPECT_EQ(asAnything("20010203T0405"), asDateTime("20010203T0405"));
    EXPECT_TRUE(asAnything("20010203T0405").isValid());
    EXPECT_EQ(asAnything("20010203"), asDate("20010203"));
    EXPECT_EQ(asAnything("2001034"), asDate("2001034"));
    EXPECT_TRUE(asAnything("2001034").isValid());
}

TEST(Iso8601DateTime, ATimeWithANegativeOffsetIsTakenForADateAndTime) {
    EXPECT_TRUE(asTime("12:30-05:00").isValid());
    EXPECT_FALSE(asAnything("12:30-05:00").isValid());
    EXPECT_FALSE(asAnything("T12:30-05:00").isValid());
    EXPECT_FALSE(asAnything("--12:30").isValid());
}

TEST(Iso8601DateTime, WithoutAnySignATextThatIsNoDateIsATime) {
    std::tm day;
    const Iso8601DateTime value = parsedToday(day, [] { return asAnything("200"); });
    EXPECT_EQ(timeOf(value), "20:00:00.000");
    EXPECT_FALSE(value.isValid());  // the third digit is no zone
    const Iso8601DateTime zoned = parsedToday(day, [] { return asAnything("2000Z"); });
    EXPECT_TRUE(zoned.isValid());
    EXPECT_EQ(timeOf(zoned), "20:00:00.000");
    EXPECT_EQ(zoned.day(), day.tm_mday);
    EXPECT_TRUE(zoned.zone());
    // There is no month 13, but a time.
    const Iso8601DateTime month = parsedToday(day, [] { return asAnything("201301"); });
    EXPECT_TRUE(month.isValid());
    EXPECT_EQ(timeOf(month), "20:13:01.000");
    EXPECT_FALSE(asAnything("x").isValid());
    EXPECT_FALSE(asAnything("2").isValid());
}

TEST(Iso8601DateTime, FillsABrokenDownTime) {
    std::tm tm{};
    tm.tm_isdst = 7;
    asDateTime("2000-12-31T23:59:58.999+05:00").fill(&tm);  // a Sunday
    EXPECT_EQ(tm.tm_sec, 58);
    EXPECT_EQ(tm.tm_min, 59);
    EXPECT_EQ(tm.tm_hour, 23);
    EXPECT_EQ(tm.tm_mday, 31);
    EXPECT_EQ(tm.tm_mon, 11);
    EXPECT_EQ(tm.tm_year, 100);
    EXPECT_EQ(tm.tm_wday, 0);
    EXPECT_EQ(tm.tm_isdst, -1);
    asDate("2001-01-01").fill(&tm);
    EXPECT_EQ(tm.tm_wday, 1);
    EXPECT_EQ(tm.tm_mon, 0);
}

TEST(Iso8601DateTime, FillsTheYearDayFromOneOn) {
    std::tm tm{};
    asDate("2000-12-31").fill(&tm);
    EXPECT_EQ(tm.tm_yday, 366);
    asDate("2000-01-01").fill(&tm);
    EXPECT_EQ(tm.tm_yday, 1);
}

TEST(Iso8601DateTime, FillsNothingWhereNothingIs) {
    std::tm tm;
    std::memset(&tm, 0x5A, sizeof tm);
    const std::tm before = tm;
    asDate("2001-13-01").fill(&tm);
    asTime("x").fill(&tm);
    EXPECT_EQ(std::memcmp(&tm, &before, sizeof tm), 0);
    asDate("2001-01-01").fill(nullptr);
}

// The calendar, every day of 801 years, against that of the standard library.

int yearDayOf(std::chrono::year_month_day day) {
    return (sys_days(day) - sys_days(day.year() / 1 / 1)).count() + 1;
}

template <typename Check>
void forEachDay(const Check& check) {
    using std::chrono::year;
    const sys_days last = year(2400) / 12 / 31;
    for (sys_days day = year(1600) / 1 / 1; day <= last && !testing::Test::HasFailure();
         day += std::chrono::days(1)) {
        check(day);
    }
}

TEST(Iso8601DateTime, KnowsTheCivilCalendar) {
    forEachDay([](sys_days day) {
        const std::chrono::year_month_day civil(day);
        const int year = static_cast<int>(civil.year());
        const int month = static_cast<int>(static_cast<unsigned>(civil.month()));
        const int monthDay = static_cast<int>(static_cast<unsigned>(civil.day()));
        const int weekDay = static_cast<int>(std::chrono::weekday(day).iso_encoding());
        const int yday = yearDayOf(civil) - 1;
        ASSERT_EQ(Iso8601DateTime::isLeap(year), civil.year().is_leap());
        ASSERT_EQ(Iso8601DateTime::monthFromYDay(year, yday), month);
        ASSERT_EQ(Iso8601DateTime::monthDayFromYDay(year, yday), monthDay);
        ASSERT_EQ(Iso8601DateTime::dayFromYDay(year, yday), monthDay);
        ASSERT_EQ(Iso8601DateTime::weekDay(year, yday), weekDay);
        const Iso8601DateTime value = asDate(format("%04d-%02d-%02d", year, month, monthDay));
        ASSERT_TRUE(value.isValid());
        ASSERT_EQ(value.year(), year);
        ASSERT_EQ(value.yearDay(), yday + 1);
        ASSERT_EQ(value.month(), month);
        ASSERT_EQ(value.day(), monthDay);
        ASSERT_EQ(value.weekDay(), weekDay);
        std::tm tm{};
        value.fill(&tm);
        ASSERT_EQ(tm.tm_mday, monthDay);
        ASSERT_EQ(tm.tm_mon, month - 1);
        ASSERT_EQ(tm.tm_wday, weekDay % 7);
        ASSERT_EQ(asDate(format("%04d-%03d", year, yday + 1)), value);
        ASSERT_EQ(asDate(format("%04d%03d", year, yday + 1)), value);
        ASSERT_EQ(asDate(format("%04d%02d%02d", year, month, monthDay)), value);
    });
}

// The year of a week is that of its Thursday, and its number counts the Thursdays of the year.
TEST(Iso8601DateTime, KnowsTheIsoWeeks) {
    forEachDay([](sys_days day) {
        const int weekDay = static_cast<int>(std::chrono::weekday(day).iso_encoding());
        const std::chrono::year_month_day thursday(day + std::chrono::days(4 - weekDay));
        const int weekYear = static_cast<int>(thursday.year());
        const int week = (yearDayOf(thursday) - 1) / 7 + 1;
        const std::chrono::year_month_day civil(day);
        const int year = static_cast<int>(civil.year());

        int changed = weekYear;
        ASSERT_EQ(Iso8601DateTime::yearDayFromWeek(changed, week, weekDay), yearDayOf(civil));
        ASSERT_EQ(changed, year);

        changed = year;
        // In days, not in weeks.
        ASSERT_EQ(Iso8601DateTime::iso8601Week(changed, yearDayOf(civil) - 1, weekDay),
                  week * 7 + weekDay - 1);
        ASSERT_EQ(changed, weekYear);

        const Iso8601DateTime value = asDate(format("%04d-W%02d-%d", weekYear, week, weekDay));
        ASSERT_TRUE(value.isValid());
        ASSERT_EQ(value.year(), year);
        ASSERT_EQ(value.yearDay(), yearDayOf(civil));
        ASSERT_EQ(value.weekDay(), weekDay);
        ASSERT_EQ(asDate(format("%04dW%02d%d", weekYear, week, weekDay)), value);
        if (weekDay == 1) {
            ASSERT_EQ(asDate(format("%04d-W%02d", weekYear, week)), value);
            ASSERT_EQ(asDate(format("%04dW%02d", weekYear, week)), value);
        }
    });
}

TEST(Iso8601DateTime, AWeekThatEndsWithTheNextYearStaysInThis) {
    // Day 730 of 2001, modulo its length, is day 0 of 2002, the last day of 2001.
    int year = 2001;
    EXPECT_EQ(Iso8601DateTime::yearDayFromWeek(year, 105, 2), 365);
    EXPECT_EQ(year, 2001);
}

TEST(Iso8601DateTime, DaysBesideTheYearCountToItsFirstAndLastMonth) {
    EXPECT_EQ(Iso8601DateTime::monthFromYDay(2001, -1), 1);
    EXPECT_EQ(Iso8601DateTime::monthDayFromYDay(2001, -1), 0);
    EXPECT_EQ(Iso8601DateTime::dayFromYDay(2001, -1), 0);
    EXPECT_EQ(Iso8601DateTime::monthFromYDay(2001, 365), 12);
    EXPECT_EQ(Iso8601DateTime::monthDayFromYDay(2001, 365), 32);
    EXPECT_EQ(Iso8601DateTime::dayFromYDay(2000, 366), 32);
}

TEST(Iso8601DateTime, TheCalendarTakesTheEndsOfTheRangeOfAnInt) {
    const int ends[] = {INT_MIN, INT_MIN + 1, -1, 0, 1, INT_MAX - 1, INT_MAX};
    for (const int year : ends) {
        for (const int day : ends) {
            const int month = Iso8601DateTime::monthFromYDay(year, day);
            EXPECT_GE(month, 1);
            EXPECT_LE(month, 12);
            EXPECT_EQ(Iso8601DateTime::monthDayFromYDay(year, day),
                      Iso8601DateTime::dayFromYDay(year, day));
            const int weekDay = Iso8601DateTime::weekDay(year, day);
            EXPECT_GE(weekDay, 1);
            EXPECT_LE(weekDay, 7);
            for (const int other : ends) {
                int changed = year;
                Iso8601DateTime::yearDayFromWeek(changed, day, other);
                changed = year;
                Iso8601DateTime::iso8601Week(changed, day > -400 ? day : -400, other);
            }
        }
    }
    EXPECT_TRUE(Iso8601DateTime::isLeap(-400));
    EXPECT_FALSE(Iso8601DateTime::isLeap(INT_MAX));
}

}  // namespace
}  // namespace nolk
