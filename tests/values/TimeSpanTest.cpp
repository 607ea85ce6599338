// Text, fields, lengths and the partial order. Adding to instants is in TimeSpanAdditionTest.cpp.

#include <nolk/core/TimeSpan.h>

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <limits>
#include <sstream>
#include <string>
#include <type_traits>

#include "foundation/SlotOrder.h"

namespace nolk {
namespace {

constexpr std::uint32_t most = 4294967295;

std::string fieldsOf(const TimeSpan& span) {
    std::ostringstream text;
    text.precision(17);
    text << (span.isValid() ? "" : "!") << (span.isNegative() ? "-" : "") << span.getYears() << ' '
         << span.getMonths() << ' ' << span.getDays() << ' ' << span.getHours() << ' '
         << span.getMinutes() << ' ' << span.getSeconds();
    return text.str();
}

std::string read(const std::string& text) {
    return fieldsOf(TimeSpan(text));
}

// Opens what is for derived classes.
struct OpenTimeSpan : TimeSpan {
    using TimeSpan::maxDaysInMonth;
    using TimeSpan::modulo;
    using TimeSpan::quotient;
};

TEST(TimeSpan, HasItsOperationsInTheirSlots) {
    EXPECT_EQ(slotOf(&TimeSpan::isEqual), 2u);
    EXPECT_EQ(slotOf(&TimeSpan::compareTo), 3u);
    EXPECT_EQ(slotOf(&TimeSpan::extract), 4u);
    EXPECT_EQ(slotOf(&TimeSpan::asString), 5u);
    EXPECT_TRUE(std::has_virtual_destructor_v<TimeSpan>);
}

TEST(TimeSpan, HasItsConstants) {
    EXPECT_EQ(TimeSpan::DaysInMonth, 30.42);
    EXPECT_EQ(TimeSpan::DaysInYear, 365u);
    EXPECT_EQ(TimeSpan::SecondsInMinute, 60u);
    EXPECT_EQ(TimeSpan::SecondsInHour, 3600u);
    EXPECT_EQ(TimeSpan::SecondsInDay, 86400u);
}

TEST(TimeSpan, IsMadeOfItsFields) {
    EXPECT_EQ(fieldsOf(TimeSpan()), "0 0 0 0 0 0");
    EXPECT_EQ(fieldsOf(TimeSpan(1)), "1 0 0 0 0 0");
    EXPECT_EQ(fieldsOf(TimeSpan(1, 2, 3, 4, 5, 6.5)), "1 2 3 4 5 6.5");
    EXPECT_EQ(fieldsOf(TimeSpan(most, most, most, most, most, -1)),
              "4294967295 4294967295 4294967295 4294967295 4294967295 -1");
}

TEST(TimeSpan, SettersStoreTheFieldAndNothingElse) {
    TimeSpan span("x");
    ASSERT_FALSE(span.isValid());
    span.setYears(1);
    span.setMonths(2);
    span.setDays(3);
    span.setHours(4);
    span.setMinutes(5);
    span.setSeconds(6.5);
    EXPECT_EQ(fieldsOf(span), "!1 2 3 4 5 6.5");
    EXPECT_EQ(span.asString(), "");
}

TEST(TimeSpan, ReadsEachField) {
    EXPECT_EQ(read("P1Y2M3DT4H5M6.5S"), "1 2 3 4 5 6.5");
    EXPECT_EQ(TimeSpan("P1Y2M3DT4H5M6.5S").asString(), "P1Y2M3DT4H5M6.5S");
}

TEST(TimeSpan, TextsGiveTheFieldsBeforeTheirFault) {
    const struct {
        const char* text;
        const char* fields;
    } rows[] = {
        {"", "0 0 0 0 0 0"},
        {"P", "0 0 0 0 0 0"},
        {"-", "-0 0 0 0 0 0"},
        {"-P", "-0 0 0 0 0 0"},
        {"-P1D", "-0 0 1 0 0 0"},
        {"--P1D", "-0 0 1 0 0 0"},
        {"P-1D", "!0 0 0 0 0 0"},
        {"-P1Y-2M", "!-1 0 0 0 0 0"},
        {"P0D", "0 0 0 0 0 0"},
        {"PP1D", "0 0 1 0 0 0"},
        {"P1P2D", "0 0 12 0 0 0"},
        {"P1YP2D", "1 0 2 0 0 0"},
        // Nothing but a sign stands before the "P".
        {"1Y", "!0 0 0 0 0 0"},
        {"1", "!0 0 0 0 0 0"},
        {" P1D", "!0 0 0 0 0 0"},
        {"Y", "!0 0 0 0 0 0"},
        {"DP1D", "!0 0 0 0 0 0"},
        {"T1H", "!0 0 0 0 0 0"},
        {"TP1H", "!0 0 0 0 0 0"},
        // Times stand behind the "T", dates anywhere.
        {"P1H", "!0 0 0 0 0 0"},
        {"P1S", "!0 0 0 0 0 0"},
        {"P1D2H", "!0 0 1 0 0 0"},
        {"PT1H", "0 0 0 1 0 0"},
        {"PT2M", "0 0 0 0 2 0"},
        {"P2M", "0 2 0 0 0 0"},
        {"P2MT3M", "0 2 0 0 3 0"},
        {"PT1YT2H", "1 0 0 2 0 0"},
        {"P1T2H", "0 0 0 12 0 0"},
        {"PT1D2H", "0 0 1 2 0 0"},
        // A "T" wants a time.
        {"P1DT", "!0 0 1 0 0 0"},
        {"PT", "!0 0 0 0 0 0"},
        {"PT0S", "!0 0 0 0 0 0"},
        {"PT0H0M0S", "!0 0 0 0 0 0"},
        {"PT1Y", "!1 0 0 0 0 0"},
        {"PT0.001S", "0 0 0 0 0 0.001"},
        {"PT4294967295H1M", "!0 0 0 4294967295 1 0"},  // the sum is 0 in 32 bits
        {"PT4294967295H2M", "0 0 0 4294967295 2 0"},
        // Parts stand in their order, and the same part may come again.
        {"P1D2Y", "!0 0 1 0 0 0"},
        {"P1M2Y", "!0 1 0 0 0 0"},
        {"PT1S2M", "!0 0 0 0 0 1"},
        {"PT1M2H", "!0 0 0 0 1 0"},
        {"P1YT2H3D", "!1 0 0 2 0 0"},
        {"P1Y2Y", "2 0 0 0 0 0"},
        {"PT1S2S", "0 0 0 0 0 2"},
        // Every part has a number.
        {"PY", "!0 0 0 0 0 0"},
        {"PYT1H", "!0 0 0 0 0 0"},
        {"PTS", "!0 0 0 0 0 0"},
        {"P1YM", "!1 0 0 0 0 0"},
        {"PxY", "!0 0 0 0 0 0"},
        {"P1xY", "!0 0 0 0 0 0"},
        {"Px1Y", "!0 0 0 0 0 0"},
        {"P1.5Y", "!0 0 0 0 0 0"},
        {"P1 Y", "!0 0 0 0 0 0"},
        {"PT1.5.2S", "!0 0 0 0 0 0"},
        {"PT1,5S", "!0 0 0 0 0 0"},
        {"PT1eS", "!0 0 0 0 0 0"},
        {"PT.S", "!0 0 0 0 0 0"},
        {"PT0x1S", "0 0 0 0 0 1"},
        {"PT0xS", "!0 0 0 0 0 0"},
        // Numbers are those of strtoul and strtod.
        {"P 1Y", "1 0 0 0 0 0"},
        {"P\t\n+1Y", "1 0 0 0 0 0"},
        {"P++1Y", "!0 0 0 0 0 0"},
        {"P007Y", "7 0 0 0 0 0"},
        {"P4294967295Y", "4294967295 0 0 0 0 0"},
        {"P4294967296Y", "4294967295 0 0 0 0 0"},
        {"P99999999999999999999999Y", "4294967295 0 0 0 0 0"},
        {"PT 1.5S", "0 0 0 0 0 1.5"},
        {"PT+1.5S", "0 0 0 0 0 1.5"},
        {"PT.5S", "0 0 0 0 0 0.5"},
        {"PT5.S", "0 0 0 0 0 5"},
        {"PT1e3S", "0 0 0 0 0 1000"},
        {"PT1E3S", "0 0 0 0 0 1000"},
        {"PT1e+3S", "0 0 0 0 0 1000"},
        {"PT1e-3S", "!0 0 0 0 0 0"},  // "-" has no place behind the "P"
        {"PT0x1.8p3S", "0 0 0 0 0 12"},
        {"PTinfS", "0 0 0 0 0 inf"},
        {"PTinf5S", "0 0 0 0 0 inf"},  // a digit may follow the number
        {"PTinfxS", "!0 0 0 0 0 0"},
        {"PT1e999S", "0 0 0 0 0 inf"},
        // What is left over at the end is dropped.
        {"P1Y2", "1 0 0 0 0 0"},
        {"P1Yx", "1 0 0 0 0 0"},
        {"P1", "0 0 0 0 0 0"},
        {"P1YZ", "1 0 0 0 0 0"},
        {"P1Y\xff", "1 0 0 0 0 0"},
        {"\xff", "!0 0 0 0 0 0"},
        {"+P1Y", "!0 0 0 0 0 0"},
        {"p1y", "!0 0 0 0 0 0"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(read(row.text), row.fields) << row.text;
    }
}

TEST(TimeSpan, ANumberEndsAtAZeroByte) {
    EXPECT_EQ(read(std::string("P1\0x2Y", 6)), "1 0 0 0 0 0");
    EXPECT_EQ(read(std::string("P\0001Y", 4)), "!0 0 0 0 0 0");
    EXPECT_EQ(read(std::string("\0P1Y", 4)), "!0 0 0 0 0 0");
}

TEST(TimeSpan, ExtractStartsAnew) {
    TimeSpan span(1, 2, 3, 4, 5, 6);
    -span;
    span.extract("P7D");
    EXPECT_EQ(fieldsOf(span), "0 0 7 0 0 0");
    span.extract("x");
    EXPECT_FALSE(span.isValid());
    span.extract("");
    EXPECT_EQ(fieldsOf(span), "0 0 0 0 0 0");
}

TEST(TimeSpan, WritesTheDateAlwaysAndTheTimeIfThereIsOne) {
    const struct {
        TimeSpan span;
        const char* text;
    } rows[] = {
        {TimeSpan(), "P0Y0M0D"},
        {TimeSpan(""), "P0Y0M0D"},
        {TimeSpan("-"), "-P0Y0M0D"},
        {TimeSpan(1, 2, 3), "P1Y2M3D"},
        {TimeSpan(0, 0, 0, 1, 30), "P0Y0M0DT1H30M0S"},
        {TimeSpan("-PT5M"), "-P0Y0M0DT0H5M0S"},
        {TimeSpan(0, 0, 0, 0, 0, 10), "P0Y0M0DT0H0M10S"},
        {TimeSpan(0, 0, 0, 0, 0, 0.5), "P0Y0M0DT0H0M0.5S"},
        {TimeSpan(0, 0, 0, 0, 0, 100), "P0Y0M0DT0H0M100S"},
        {TimeSpan(0, 0, 0, 0, 0, 1.25), "P0Y0M0DT0H0M1.25S"},
        {TimeSpan(0, 0, 0, 0, 0, 1.1234567), "P0Y0M0DT0H0M1.123457S"},
        {TimeSpan(0, 0, 0, 0, 0, 1e-7), "P0Y0M0DT0H0M0S"},
        {TimeSpan(0, 0, 0, 0, 0, 1e22), "P0Y0M0DT0H0M10000000000000000000000S"},
        {TimeSpan(0, 0, 0, 1, 0, -2.5), "P0Y0M0D"},  // not above 0
        {TimeSpan(0, 0, 0, 3, 0, -2.5), "P0Y0M0DT3H0M-2.5S"},
        {TimeSpan(0, 0, 0, most, 1), "P0Y0M0D"},  // the sum is 0 in 32 bits
        {TimeSpan(0, 0, 0, 0, 0, INFINITY), "P0Y0M0DT0H0MinfS"},
        {TimeSpan(0, 0, 0, 0, 0, NAN), "P0Y0M0D"},
        {TimeSpan(most, most, most, most, most, 1),
         "P4294967295Y4294967295M4294967295DT4294967295H4294967295M1S"},
        {TimeSpan("x"), ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.span.asString(), row.text);
        std::ostringstream stream;
        stream << row.span;
        EXPECT_EQ(stream.str(), row.text);
    }
    const TimeSpan longest(0, 0, 0, 0, 0, std::numeric_limits<double>::max());
    EXPECT_EQ(longest.asString().size(), std::string("P0Y0M0DT0H0MS").size() + 309);
}

TEST(TimeSpan, TheProcesssLocaleDoesNotShow) {
    // With a decimal comma, where the machine has such a locale.
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8", "German_Germany.1252"}) {
        std::setlocale(LC_ALL, name);
        EXPECT_EQ(read("PT6.5S"), "0 0 0 0 0 6.5");
        EXPECT_EQ(read("PT6,5S"), "!0 0 0 0 0 0");
        EXPECT_EQ(TimeSpan("PT6.5S").asString(), "P0Y0M0DT0H0M6.5S");
    }
    std::setlocale(LC_ALL, before.c_str());
}

TEST(TimeSpan, TheMinusSignTurnsTheObjectItself) {
    TimeSpan span("P1D");
    EXPECT_EQ(&-span, &span);
    EXPECT_TRUE(span.isNegative());
    EXPECT_EQ(&-span, &span);
    EXPECT_FALSE(span.isNegative());
}

TEST(TimeSpan, EqualityIsOfEveryField) {
    const TimeSpan span(1, 2, 3, 4, 5, 6.5);
    EXPECT_TRUE(span == TimeSpan("P1Y2M3DT4H5M6.5S"));
    EXPECT_FALSE(span != TimeSpan("P1Y2M3DT4H5M6.5S"));
    for (const char* text :
         {"P2Y2M3DT4H5M6.5S", "P1Y1M3DT4H5M6.5S", "P1Y2M4DT4H5M6.5S", "P1Y2M3DT3H5M6.5S",
          "P1Y2M3DT4H6M6.5S", "P1Y2M3DT4H5M6.25S", "-P1Y2M3DT4H5M6.5S", "P1Y2M3DT4H5M6.5SY"}) {
        EXPECT_FALSE(span == TimeSpan(text)) << text;
        EXPECT_TRUE(span != TimeSpan(text)) << text;
    }
    // The same length is not enough, nor is the same validity.
    EXPECT_FALSE(TimeSpan("PT60S") == TimeSpan("PT1M"));
    EXPECT_FALSE(TimeSpan() == TimeSpan("x"));
}

TEST(TimeSpan, ComparesByApproximateLength) {
    const struct {
        const char* a;
        const char* b;
        int order;
    } rows[] = {
        {"P1D", "P1D", 0},        {"P1D", "-P1D", 0},         {"-P2D", "P1D", 1},
        {"P1M", "P30D", 0},                            // 30.42 days
        {"P1M", "P31D", -1},      {"P2M", "P60D", 0},  // 60.84
        {"P3M", "P91D", 0},                            // 91.26
        {"P12M", "P1Y", 0},                            // 365.04
        {"P1Y", "P365D", 0},      {"P1Y", "P364D", 1},        {"PT1H", "PT60M", 0},
        {"PT1M", "PT60S", 0},     {"PT24H", "P1D", 0},        {"PT86399S", "P1D", -1},
        {"PT86400.5S", "P1D", 1}, {"PT1H1M1S", "PT3661S", 0}, {"x", "", 0},
    };
    for (const auto& row : rows) {
        const TimeSpan a(row.a);
        const TimeSpan b(row.b);
        EXPECT_EQ(a.compareTo(b), row.order) << row.a << ' ' << row.b;
        EXPECT_EQ(b.compareTo(a), -row.order) << row.a << ' ' << row.b;
        EXPECT_EQ(a.isEqual(b), row.order == 0);
    }
}

TEST(TimeSpan, ApproximateLengthsOfDaysWrapAt32Bits) {
    // 49711 days are 4295030400 seconds, which is 63104 more than 32 bits hold.
    EXPECT_EQ(TimeSpan("P49711D").compareTo(TimeSpan("PT63104S")), 0);
    EXPECT_EQ(TimeSpan("P49710D").compareTo(TimeSpan("P49711D")), 1);
    // Hours and minutes don't.
    EXPECT_EQ(TimeSpan("PT2000000H").compareTo(TimeSpan("PT7200000000S")), 0);
    EXPECT_EQ(TimeSpan("PT200000000M").compareTo(TimeSpan("PT12000000000S")), 0);
    // 4294967295 days are one day less than nothing.
    EXPECT_EQ(TimeSpan("P4294967295D").compareTo(TimeSpan("PT4294880896S")), 0);
    // Years and months, too: 4294967295 * 365 is -365 modulo 2^32.
    EXPECT_EQ(TimeSpan(most).compareTo(TimeSpan(0, 0, 0, 0, 0, 4294967296.0 - 365 * 86400)), 0);
    // 4294967295 months are 130652905113.9 days: the whole ones modulo 2^32 count.
    TimeSpan months(0, most);
    EXPECT_EQ(months.compareTo(TimeSpan(0, 0, 130652905113 % 4294967296)), 0);
}

TEST(TimeSpan, SecondsThatAreNoNumberCompareAsEqual) {
    const TimeSpan nan(0, 0, 0, 0, 0, NAN);
    EXPECT_EQ(nan.compareTo(TimeSpan("P1D")), 0);
    EXPECT_FALSE(nan == nan);
    EXPECT_EQ(TimeSpan(0, 0, 0, 0, 0, INFINITY).compareTo(TimeSpan("P1D")), 1);
}

TEST(TimeSpan, ThePartialOrderHoldsFromAllReferences) {
    // The table of the standard: a month against days, and so on.
    const struct {
        const char* a;
        const char* b;
        bool less;
        bool greater;
    } rows[] = {
        {"P1Y", "P364D", false, true},         {"P1Y", "P365D", false, false},
        {"P1Y", "P366D", false, false},        {"P1Y", "P367D", true, false},
        {"P1M", "P27D", false, true},          {"P1M", "P28D", false, false},
        {"P1M", "P29D", false, false},         {"P1M", "P30D", false, false},
        {"P1M", "P31D", false, false},         {"P1M", "P32D", true, false},
        {"P5M", "P149D", false, true},         {"P5M", "P150D", false, false},
        {"P5M", "P153D", false, false},        {"P5M", "P154D", true, false},
        {"P1D", "P1D", false, false},          {"P1D", "P2D", true, false},
        {"-P2D", "-P1D", true, false},         {"-P1D", "P1D", true, false},
        {"P12M", "P1Y", false, false},         {"P11M", "P1Y", true, false},
        {"PT24H", "P1D", false, false},        {"PT23H59M59.5S", "P1D", true, false},
        {"PT0.001S", "PT0.002S", true, false}, {"-PT0.002S", "-PT0.001S", true, false},
        {"-PT0.5S", "PT0.5S", true, false},
    };
    for (const auto& row : rows) {
        const TimeSpan a(row.a);
        const TimeSpan b(row.b);
        EXPECT_EQ(a < b, row.less) << row.a << ' ' << row.b;
        EXPECT_EQ(b < a, row.greater) << row.a << ' ' << row.b;
    }
}

TEST(TimeSpan, ThePartialOrderReachesBeyondAllInstants) {
    EXPECT_TRUE(TimeSpan("-P3000Y") < TimeSpan("-P2999Y"));
    EXPECT_TRUE(TimeSpan("-P2999Y") < TimeSpan("P1D"));
    EXPECT_TRUE(TimeSpan("P4294967294Y") < TimeSpan("P4294967295Y"));
    EXPECT_TRUE(TimeSpan(0, 0, 0, 0, 0, 1e15) < TimeSpan(0, 0, 0, 0, 0, 1e16));
    EXPECT_FALSE(TimeSpan(0, 0, 0, 0, 0, INFINITY) < TimeSpan(0, 0, 0, 0, 0, INFINITY));
    EXPECT_TRUE(TimeSpan("P4294967295D") < TimeSpan(0, 0, 0, 0, 0, INFINITY));
    EXPECT_FALSE(TimeSpan(0, 0, 0, 0, 0, NAN) < TimeSpan(0, 0, 0, 0, 0, NAN));
}

TEST(TimeSpan, QuotientsAreFloors) {
    const struct {
        int a, b, quotient, rest;
    } rows[] = {
        {7, 3, 2, 1},   {-7, 3, -3, 2}, {6, 3, 2, 0},    {-6, 3, -2, 0},  {0, 3, 0, 0},
        {-1, 3, -1, 2}, {2, 3, 0, 2},   {7, -3, -3, -2}, {-7, -3, 2, -1},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(OpenTimeSpan::quotient(row.a, row.b), row.quotient) << row.a << ' ' << row.b;
        EXPECT_EQ(OpenTimeSpan::modulo(row.a, row.b), row.rest) << row.a << ' ' << row.b;
    }
    EXPECT_EQ(OpenTimeSpan::quotient(0, 1, 13), -1);
    EXPECT_EQ(OpenTimeSpan::quotient(1, 1, 13), 0);
    EXPECT_EQ(OpenTimeSpan::quotient(12, 1, 13), 0);
    EXPECT_EQ(OpenTimeSpan::quotient(13, 1, 13), 1);
    EXPECT_EQ(OpenTimeSpan::modulo(0, 1, 13), 12);
    EXPECT_EQ(OpenTimeSpan::modulo(13, 1, 13), 1);
    EXPECT_EQ(OpenTimeSpan::modulo(-12, 1, 13), 12);
    // Fractions stay, and only the quotient is of integers.
    EXPECT_EQ(OpenTimeSpan::modulo(61.5, 60), 1.5);
    EXPECT_EQ(OpenTimeSpan::modulo(-0.5, 60), -0.5);
    EXPECT_EQ(OpenTimeSpan::quotient(5, 0), 0);
}

TEST(TimeSpan, MonthsFoldIntoTheirYears) {
    const int common[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month) {
        EXPECT_EQ(OpenTimeSpan::maxDaysInMonth(2001, month), common[month - 1]);
        EXPECT_EQ(OpenTimeSpan::maxDaysInMonth(2001, month + 12), common[month - 1]);
        EXPECT_EQ(OpenTimeSpan::maxDaysInMonth(2002, month - 12), common[month - 1]);
        EXPECT_EQ(OpenTimeSpan::maxDaysInMonth(2000, month), common[month - 1] + (month == 2));
    }
    EXPECT_EQ(OpenTimeSpan::maxDaysInMonth(1900, 2), 28);
    EXPECT_EQ(OpenTimeSpan::maxDaysInMonth(2001, 0), 31);
    EXPECT_EQ(OpenTimeSpan::maxDaysInMonth(2001, 13), 31);
    EXPECT_EQ(OpenTimeSpan::maxDaysInMonth(1999, 14), 29);
    EXPECT_EQ(OpenTimeSpan::maxDaysInMonth(2001, -10), 29);
}

}  // namespace
}  // namespace nolk
