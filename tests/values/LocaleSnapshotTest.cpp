#include <nolk/core/LocaleSnapshot.h>

#include <nolk/core/TimeZoneSimple.h>

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <limits>
#include <string>
#include <type_traits>

#include "support/RuntimeLocale.h"
#include "values/OpenSnapshot.h"

namespace nolk {
namespace {

using test::Culture;
using test::OpenSnapshot;
using test::sunday;

constexpr char unset = static_cast<char>(CHAR_MAX);

TEST(LocaleSnapshot, IsALocaleThatIsNotCopied) {
    EXPECT_TRUE((std::is_base_of_v<Locale, LocaleSnapshot>));
    EXPECT_FALSE(std::is_copy_constructible_v<LocaleSnapshot>);
    EXPECT_FALSE(std::is_copy_assignable_v<LocaleSnapshot>);
    EXPECT_TRUE(std::is_default_constructible_v<LocaleSnapshot>);
}

TEST(LocaleSnapshot, OfCHasItsConventions) {
    for (const LocaleSnapshot& locale : {LocaleSnapshot(), LocaleSnapshot("C")}) {
        EXPECT_EQ(locale.locale_name(), "C");
        EXPECT_EQ(locale.decimal_point(), ".");
        EXPECT_EQ(locale.thousands_sep(), "");
        EXPECT_EQ(locale.grouping(), "");
        EXPECT_EQ(locale.int_curr_symbol(), "");
        EXPECT_EQ(locale.currency_symbol(), "");
        EXPECT_EQ(locale.mon_decimal_point(), "");
        EXPECT_EQ(locale.mon_thousands_sep(), "");
        EXPECT_EQ(locale.mon_grouping(), "");
        EXPECT_EQ(locale.positive_sign(), "");
        EXPECT_EQ(locale.negative_sign(), "");
        EXPECT_EQ(locale.int_frac_digits(), 0);
        EXPECT_EQ(locale.frac_digits(), 0);
        EXPECT_EQ(locale.p_cs_precedes(), unset);
        EXPECT_EQ(locale.p_sep_by_space(), unset);
        EXPECT_EQ(locale.n_cs_precedes(), unset);
        EXPECT_EQ(locale.n_sep_by_space(), unset);
    }
}

TEST(LocaleSnapshot, UnsetPlacesOfSignsHaveDifferentDefaults) {
    const LocaleSnapshot locale;
    EXPECT_EQ(locale.n_sign_posn(), 0);
    EXPECT_EQ(locale.p_sign_posn(), 1);
    EXPECT_EQ(locale.moneyAsString(-1234, Locale::LocalSymbol), "(1234)");
    EXPECT_EQ(locale.moneyAsString(1234, Locale::LocalSymbol), "1234");
}

TEST(LocaleSnapshot, OfCHasItsFormats) {
    const OpenSnapshot locale;
    EXPECT_EQ(locale.learnt('X'), "{H}:{M}:{S}");
    EXPECT_EQ(locale.learnt('x'), "{m}/{d}/{y}");
    EXPECT_EQ(locale.learnt('C'), "{A}, {B} {d}, {Y} {H}:{M}:{S}");
    EXPECT_EQ(locale.dateOrder(), 1);
    EXPECT_EQ(locale.timeFormat('Y'), nullptr);
}

TEST(LocaleSnapshot, CivilTimesAreWrittenByEachConversion) {
    const OpenSnapshot locale;
    const std::tm tm = sunday();
    const struct {
        char conversion;
        const char* text;
    } rows[] = {
        {'Y', "1994"},     {'y', "94"},       {'j', "310"},
        {'S', "37"},       {'M', "49"},       {'I', "08"},
        {'H', "08"},       {'m', "11"},       {'B', "November"},
        {'b', "Nov"},      {'A', "Sunday"},   {'a', "Sun"},
        {'p', "AM"},       {'d', "06"},       {'Z', "GMT"},
        {'U', "45"},       {'W', "44"},       {'w', "0"},
        {'X', "08:49:37"}, {'x', "11/06/94"}, {'C', "Sunday, November 06, 1994 08:49:37"},
        {'\0', ""},        {'%', ""},         {'#', ""},
        {'D', ""},         {'e', ""},         {'E', ""},
        {'F', ""},         {'h', ""},         {'n', ""},
        {'z', ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(locale.in(tm, row.conversion), row.text) << row.conversion;
    }
    EXPECT_EQ(static_cast<const Locale&>(locale).asString(&tm, "%A %d. %B %%%Q", TimeZone::utc()),
              "Sunday 06. November %");
}

std::string runtimeText(const char* format, const std::tm& tm) {
    char text[256];
    return std::string(text, std::strftime(text, sizeof text, format, &tm));
}

// Of two digits, as some locales write shorter numbers without padding, which samples don't tell.
TEST(LocaleSnapshot, TimesComeOutAsTheRuntimeLibraryWritesThem) {
    const test::RuntimeLocales locales;
    for (const Culture culture : {Culture::german, Culture::english, Culture::french,
                                  Culture::czech, Culture::japanese, Culture::indian}) {
        const LocaleSnapshot locale(test::runtimeName(culture));
        ASSERT_NE(std::setlocale(LC_ALL, test::runtimeName(culture)), nullptr);
        for (const int month : {9, 10, 11}) {
            std::tm tm = sunday();
            tm.tm_mon = month;
            tm.tm_mday = 25;
            tm.tm_hour = month + 1;
            tm.tm_isdst = -1;
            std::mktime(&tm);
            std::tm standard = tm;
            standard.tm_isdst = 0;
            const TimeZoneSimple zone(0, runtimeText("%Z", tm));
            for (const char* format : {"%X", "%x", "%c"}) {
                EXPECT_EQ(locale.asString(&standard, format[1], zone), runtimeText(format, tm))
                    << locale.locale_name() << format;
            }
        }
        std::setlocale(LC_ALL, "C");
    }
}

TEST(LocaleSnapshot, ComponentsHaveTheirWidths) {
    const OpenSnapshot locale;
    std::tm tm{};
    tm.tm_year = -1900 + 7;
    tm.tm_mon = 1;
    tm.tm_mday = 3;
    tm.tm_yday = 4;
    tm.tm_hour = 5;
    const struct {
        int component;
        const char* text;
    } rows[] = {
        {0, "0007"},
        {1, "07"},
        {2, "005"},
        {3, "00"},
        {4, "00"},
        {5, "05"},
        {6, "05"},
        {7, "02"},
        {8, "February"},
        {9, "Feb"},
        {10, "Sunday"},
        {11, "Sun"},
        {12, "AM"},
        {13, "03"},
        {14, "GMT"},
        {15, "01"},
        {16, "00"},
        {17, "0"},
        {18, " 3"},
        {19, " 2"},
        {-1, ""},
        {20, ""},
        {std::numeric_limits<int>::min(), ""},
    };
    for (const auto& row : rows) {
        std::string text = "+";
        locale.formatComponent(text, &tm, row.component, TimeZone::utc());
        EXPECT_EQ(text, std::string("+") + row.text) << row.component;
    }
    tm.tm_mday = 12;
    tm.tm_mon = 11;
    std::string text;
    locale.formatComponent(text, &tm, 18, TimeZone::utc());
    locale.formatComponent(text, &tm, 19, TimeZone::utc());
    EXPECT_EQ(text, "1212");
}

TEST(LocaleSnapshot, YearsMayHaveMoreDigitsOrASign) {
    const OpenSnapshot locale;
    std::tm tm{};
    tm.tm_year = 12345 - 1900;
    EXPECT_EQ(locale.in(tm, 'Y'), "12345");
    EXPECT_EQ(locale.in(tm, 'y'), "45");
    tm.tm_year = -7 - 1900;
    EXPECT_EQ(locale.in(tm, 'Y'), "-007");
    EXPECT_EQ(locale.in(tm, 'y'), "93");
    tm.tm_year = std::numeric_limits<int>::max();
    EXPECT_EQ(locale.in(tm, 'Y'), "2147485547");
}

TEST(LocaleSnapshot, TheClockOfTwelveHasNoHourZero) {
    const OpenSnapshot locale;
    std::tm tm{};
    for (int hour = 0; hour < 24; ++hour) {
        tm.tm_hour = hour;
        const int onDial = hour == 0 || hour == 12 ? 12 : hour < 12 ? hour : hour - 12;
        const std::string text = std::to_string(onDial);
        EXPECT_EQ(locale.in(tm, 'I'), onDial < 10 ? "0" + text : text);
        EXPECT_EQ(locale.in(tm, 'p'), hour < 12 ? "AM" : "PM");
    }
}

TEST(LocaleSnapshot, NamesOfWhatIsNotThereAreEmpty) {
    const OpenSnapshot locale;
    std::tm tm{};
    for (const int month : {-1, 12, std::numeric_limits<int>::min()}) {
        tm.tm_mon = month;
        EXPECT_EQ(locale.in(tm, 'B'), "");
        EXPECT_EQ(locale.in(tm, 'b'), "");
    }
    for (const int day : {-1, 7, std::numeric_limits<int>::max()}) {
        tm.tm_wday = day;
        EXPECT_EQ(locale.in(tm, 'A'), "");
        EXPECT_EQ(locale.in(tm, 'a'), "");
    }
}

TEST(LocaleSnapshot, ZonesAreNamedByDaylight) {
    const LocaleSnapshot locale;
    const TimeZoneSimple zone(TimeZone::StdZone(5), TimeZone::NorthAmerica);
    std::tm tm{};
    const struct {
        int isDaylight;
        std::string name;
    } rows[] = {{0, zone.timeZoneName()}, {1, zone.altZoneName()}, {-1, ""}, {2, ""}};
    for (const auto& row : rows) {
        tm.tm_isdst = row.isDaylight;
        EXPECT_EQ(locale.asString(&tm, 'Z', zone), row.name);
    }
    EXPECT_NE(zone.timeZoneName(), zone.altZoneName());
}

// 1994 begins on a Saturday; Python's strftime tells these weeks.
TEST(LocaleSnapshot, WeeksBeginOnSundayOrMonday) {
    const OpenSnapshot locale;
    const struct {
        int yday;
        int wday;
        const char* fromSunday;
        const char* fromMonday;
    } rows[] = {
        {0, 6, "00", "00"}, {1, 0, "01", "00"},   {2, 1, "01", "01"},   {8, 0, "02", "01"},
        {9, 1, "02", "02"}, {309, 0, "45", "44"}, {364, 6, "52", "52"},
    };
    for (const auto& row : rows) {
        std::tm tm{};
        tm.tm_yday = row.yday;
        tm.tm_wday = row.wday;
        EXPECT_EQ(locale.in(tm, 'U'), row.fromSunday) << row.yday;
        EXPECT_EQ(locale.in(tm, 'W'), row.fromMonday) << row.yday;
    }
}

TEST(LocaleSnapshot, FieldsAtTheEndsOfTheirRangesAreWritten) {
    const OpenSnapshot locale;
    for (const int end : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        std::tm tm{};
        tm.tm_sec = tm.tm_min = tm.tm_hour = tm.tm_mday = tm.tm_mon = tm.tm_year = end;
        tm.tm_wday = tm.tm_yday = end;
        EXPECT_EQ(locale.in(tm, 'S'), std::to_string(end));
        EXPECT_EQ(locale.in(tm, 'm'), std::to_string(1LL + end));
        EXPECT_EQ(locale.in(tm, 'Y'), std::to_string(1900LL + end));
        EXPECT_EQ(locale.in(tm, 'j'), std::to_string(1LL + end));
        EXPECT_NE(locale.in(tm, 'U'), "");
        EXPECT_NE(locale.in(tm, 'W'), "");
        EXPECT_NE(locale.in(tm, 'C'), "");
    }
}

TEST(LocaleSnapshot, MonthsHaveTheirNumbers) {
    const LocaleSnapshot locale;
    const struct {
        const char* name;
        int index;
    } rows[] = {
        {"January", 1},   {"february", 2}, {"MARCH", 3},     {"Apr", 4},       {"May", 5},
        {"jun", 6},       {"JULY", 7},     {"Aug", 8},       {"September", 9}, {"Oct", 10},
        {"November", 11}, {"DEC", 12},     {"December", 12}, {"", 0},          {"Decem", 0},
        {" May", 0},      {"May ", 0},     {"13", 0},        {"Sunday", 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(locale.monthIndex(row.name), row.index) << row.name;
    }
}

TEST(LocaleSnapshot, WeekDaysHaveTheirNumbersFromMonday) {
    const LocaleSnapshot locale;
    const struct {
        const char* name;
        int index;
    } rows[] = {
        {"Monday", 1}, {"tue", 2}, {"WEDNESDAY", 3}, {"Thu", 4},  {"Friday", 5}, {"Saturday", 6},
        {"sunday", 7}, {"SUN", 7}, {"", 0},          {"Sund", 0}, {"May", 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(locale.weekdayIndex(row.name), row.index) << row.name;
    }
}

TEST(LocaleSnapshot, AnUnknownNameDescribesTheLocaleOfTheProcess) {
    const test::RuntimeLocales locales;
    EXPECT_EQ(LocaleSnapshot("no such locale").locale_name(), "C");
    EXPECT_EQ(LocaleSnapshot(nullptr).locale_name(), "C");
    ASSERT_NE(std::setlocale(LC_ALL, test::runtimeName(Culture::german)), nullptr);
    const LocaleSnapshot german("no such locale");
    const LocaleSnapshot classic("C");
    const std::string name = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "C");
    EXPECT_EQ(german.locale_name(), name);
    EXPECT_EQ(german.monthIndex("Dezember"), 12);
    EXPECT_EQ(classic.monthIndex("December"), 12);
}

TEST(LocaleSnapshot, TheLocaleOfTheProcessNeitherShowsNorChanges) {
    const test::RuntimeLocales locales;
    const LocaleSnapshot before;
    ASSERT_NE(std::setlocale(LC_ALL, test::runtimeName(Culture::german)), nullptr);
    const std::string name = std::setlocale(LC_ALL, nullptr);
    const LocaleSnapshot within;
    const std::string nameBehind = std::setlocale(LC_ALL, nullptr);
    const std::tm tm = sunday();
    std::string texts[2];
    double values[2] = {};
    for (int i = 0; i < 2; ++i) {
        const LocaleSnapshot& locale = i == 0 ? before : within;
        texts[i] = locale.asString(&tm, 'c', TimeZone::utc()) + locale.asString(1234.5, 1, true);
        locale.stringToNum("1234.5", &values[i]);
    }
    std::setlocale(LC_ALL, "C");
    EXPECT_EQ(nameBehind, name);
    EXPECT_EQ(texts[0], before.asString(&tm, 'c', TimeZone::utc()) + "1234.5");
    EXPECT_EQ(texts[1], texts[0]);
    EXPECT_EQ(values[0], 1234.5);
    EXPECT_EQ(values[1], 1234.5);
}

}  // namespace
}  // namespace nolk
