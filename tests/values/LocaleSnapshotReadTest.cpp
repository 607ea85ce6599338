// What snapshots of the run-time library's locales write, and read again.

#include <nolk/core/Date.h>
#include <nolk/core/DateTime.h>
#include <nolk/core/LocaleSnapshot.h>

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

#include "support/RuntimeLocale.h"
#include "values/OpenSnapshot.h"

namespace nolk {
namespace {

using test::Culture;
using test::OpenSnapshot;

// The snapshot of C, or of a culture.
class InLocale : public testing::TestWithParam<int> {
protected:
    InLocale()
        : locale(GetParam() < 0 ? std::make_unique<OpenSnapshot>("C")
                                : std::make_unique<OpenSnapshot>(Culture(GetParam()))) {
        EXPECT_EQ(locale->locale_name() == "C", GetParam() < 0) << "the locale is there";
    }

    const std::unique_ptr<OpenSnapshot> locale;
};

std::string nameOf(const testing::TestParamInfo<int>& info) {
    static constexpr const char* names[] = {"C",     "German",   "English", "French",
                                            "Czech", "Japanese", "Indian"};
    return names[info.param + 1];
}

INSTANTIATE_TEST_SUITE_P(LocaleSnapshot, InLocale, testing::Range(-1, 6), nameOf);

TEST_P(InLocale, IntegersAreReadAgain) {
    for (const long value : {0L, 1L, -1L, 999L, 1000L, -1000L, 1234567L, -123456789L,
                             std::numeric_limits<long>::min(), std::numeric_limits<long>::max()}) {
        long back = 7;
        EXPECT_TRUE(locale->stringToNum(locale->asString(value), &back));
        EXPECT_EQ(back, value) << locale->asString(value);
    }
    for (const unsigned long value : {0UL, 1234567UL, std::numeric_limits<unsigned long>::max()}) {
        unsigned long back = 7;
        EXPECT_TRUE(locale->stringToNum(locale->asString(value), &back));
        EXPECT_EQ(back, value) << locale->asString(value);
    }
}

TEST_P(InLocale, DoublesAreReadAgain) {
    for (const double value : {0.0, 0.5, -0.5, 1234.5, -1234567.875, 1e15, 0.000030517578125}) {
        for (const bool grouped : {false, true}) {
            const std::string text = locale->asString(value, 15, grouped);
            double back = 7;
            EXPECT_TRUE(locale->stringToNum(text, &back)) << text;
            EXPECT_EQ(back, value) << text;
            EXPECT_TRUE(locale->stringToNum(" " + text + " \n", &back)) << text;
            EXPECT_FALSE(locale->stringToNum(text + "x", &back)) << text;
        }
    }
}

TEST_P(InLocale, MoneyIsReadAgain) {
    for (const auto symbol : {Locale::LocalSymbol, Locale::IntlSymbol}) {
        for (const double value : {0.0, 1.0, -1.0, 99.0, -100.0, 123456789.0, -123456789.0}) {
            const std::string text = locale->moneyAsString(value, symbol);
            double back = 7;
            EXPECT_TRUE(locale->stringToMoney(text, &back, symbol)) << text;
            EXPECT_EQ(back, value) << text;
            EXPECT_FALSE(locale->stringToMoney(text, &back, Locale::NoSymbol)) << text;
            EXPECT_FALSE(locale->stringToMoney(text + "x", &back, symbol)) << text;
        }
    }
}

// In locales with two digits of the year, the twentieth century.
TEST_P(InLocale, EachDayIsReadAgain) {
    for (Date day(1, 1, 1996); day.year() < 1998; ++day) {
        std::tm tm{};
        day.extract(&tm);
        const std::string text = locale->in(tm, 'x');
        std::tm back{};
        EXPECT_TRUE(locale->stringToDate(text, &back)) << text;
        EXPECT_EQ(Date(&back), day) << text;
        EXPECT_EQ(Date(text, *locale), day) << text;
    }
}

TEST_P(InLocale, DatesWithNamesAreReadAgain) {
    const char* const format = locale->dateOrder() < 2 ? "%d %B %Y" : "%Y %B %d";
    const char* const shortFormat = locale->dateOrder() < 2 ? "%b %d, %Y" : "%b %Y %d";
    for (Date day(1, 1, 1996); day.year() < 1997; day += 5) {
        for (const char* used : {format, shortFormat}) {
            const std::string text = day.asString(used, *locale);
            EXPECT_EQ(Date(text, *locale), day) << text;
        }
    }
}

TEST_P(InLocale, EachMinuteIsReadAgain) {
    if (locale->learnt('X').find("{Z}") != std::string::npos) {
        // A zone behind the time isn't read.
        std::tm tm{};
        EXPECT_FALSE(locale->stringToTime(locale->in(tm, 'X'), &tm));
        return;
    }
    for (int minute = 0; minute < 24 * 60; minute += 7) {
        std::tm tm{};
        tm.tm_hour = minute / 60;
        tm.tm_min = minute % 60;
        tm.tm_sec = minute % 59;
        const std::string text = locale->in(tm, 'X');
        std::tm back{};
        EXPECT_TRUE(locale->stringToTime(text, &back)) << text;
        EXPECT_EQ(back.tm_hour, tm.tm_hour) << text;
        EXPECT_EQ(back.tm_min, tm.tm_min) << text;
        EXPECT_EQ(back.tm_sec, tm.tm_sec) << text;
    }
}

TEST_P(InLocale, NamesHaveTheirNumbers) {
    std::tm tm{};
    for (tm.tm_mon = 0; tm.tm_mon < 12; ++tm.tm_mon) {
        EXPECT_EQ(locale->monthIndex(locale->in(tm, 'B')), tm.tm_mon + 1);
        EXPECT_EQ(locale->monthIndex(locale->in(tm, 'b')), tm.tm_mon + 1);
    }
    for (tm.tm_wday = 0; tm.tm_wday < 7; ++tm.tm_wday) {
        const int index = tm.tm_wday == 0 ? 7 : tm.tm_wday;
        EXPECT_EQ(locale->weekdayIndex(locale->in(tm, 'A')), index);
        EXPECT_EQ(locale->weekdayIndex(locale->in(tm, 'a')), index);
    }
}

TEST_P(InLocale, InstantsAreReadAgain) {
    if (locale->learnt('X').find("{Z}") != std::string::npos) {
        return;
    }
    const TimeZone& utc = TimeZone::utc();
    const DateTime time(6, 11, 1994, 20, 49, 37, 0, utc);
    const std::string text =
        time.asString('x', *locale, utc) + ";" + time.asString('X', *locale, utc);
    EXPECT_EQ(DateTime(text, DateTime::setBoth, *locale, utc), time) << text;
    const DateTime midnight(6, 11, 1994, 0, 0, 0, 0, utc);
    EXPECT_EQ(DateTime(time.asString('x', *locale, utc), DateTime::setDate, *locale, utc),
              midnight);
    EXPECT_FALSE(DateTime("nonsense", DateTime::setDate, *locale, utc).isValid());
    EXPECT_FALSE(DateTime("nonsense", DateTime::setTime, *locale, utc).isValid());
    EXPECT_EQ(DateTime(6, time.monthName(*locale, utc).c_str(), 1994, 20, 49, 37, 0, *locale, utc),
              time);
    EXPECT_EQ(time.next(time.weekDayName(*locale, utc).c_str(), *locale, utc),
              DateTime(13, 11, 1994, 20, 49, 37, 0, utc));
}

TEST(LocaleSnapshotInC, ReadsAndWrites) {
    const LocaleSnapshot locale;
    EXPECT_EQ(locale.asString(1234567.891, 2, true), "1234567.89");
    EXPECT_EQ(locale.asString(-1234567L), "-1234567");
    EXPECT_EQ(locale.asString(1234567UL), "1234567");
    EXPECT_EQ(locale.moneyAsString(-1234, Locale::IntlSymbol), "-1234");
    EXPECT_EQ(locale.moneyAsString(1234, Locale::NoSymbol), "1234");
    long number = 7;
    EXPECT_FALSE(locale.stringToNum("42x", &number));
    EXPECT_FALSE(locale.stringToNum("1,234", &number));
    EXPECT_EQ(number, 7);
    EXPECT_TRUE(locale.stringToNum("42  ", &number));
    EXPECT_EQ(number, 42);
    std::tm tm{};
    EXPECT_FALSE(locale.stringToDate("2/29/1995", &tm));
    EXPECT_TRUE(locale.stringToDate("2/29/1996", &tm));
    EXPECT_TRUE(locale.stringToTime("3:04 pm", &tm));
    EXPECT_EQ(tm.tm_hour, 15);
}

TEST(LocaleSnapshotInGerman, ReadsAndWrites) {
    const OpenSnapshot locale(Culture::german);
    EXPECT_EQ(locale.asString(1234567L), "1.234.567");
    EXPECT_EQ(locale.asString(-1234.5, 2, true), "-1.234,50");
    EXPECT_EQ(locale.moneyAsString(-123456, Locale::LocalSymbol),
              "-1.234,56 " + locale.currency_symbol());
    EXPECT_EQ(locale.moneyAsString(123456, Locale::NoSymbol), "1.234,56 ");
    EXPECT_EQ(locale.moneyAsString(123456, Locale::IntlSymbol),
              locale.int_curr_symbol() + "1.234,56 ");
    EXPECT_EQ(locale.int_curr_symbol().substr(0, 3), "EUR");
    EXPECT_EQ(locale.learnt('x'), "{d}.{m}.{Y}");
    EXPECT_EQ(locale.learnt('X'), "{H}:{M}:{S}");
    EXPECT_EQ(locale.dateOrder(), 0);
    EXPECT_EQ(locale.in(test::sunday(), 'x'), "06.11.1994");
    EXPECT_EQ(Date("6. November 1994", locale), Date(6, 11, 1994));
    EXPECT_EQ(Date("6. dez 94", locale), Date(6, 12, 1994));
    EXPECT_EQ(locale.weekdayIndex("donnerstag"), 4);
}

TEST(LocaleSnapshotInEnglish, ReadsAndWrites) {
    const OpenSnapshot locale(Culture::english);
    EXPECT_EQ(locale.asString(-1234.5, 2, true), "-1,234.50");
    EXPECT_EQ(locale.moneyAsString(123456, Locale::LocalSymbol), "$1,234.56");
    EXPECT_EQ(locale.learnt('x'), "{m}/{d}/{Y}");
    EXPECT_EQ(locale.learnt('X'), "{I}:{M}:{S} {p}");
    EXPECT_EQ(locale.dateOrder(), 1);
    EXPECT_EQ(locale.in(test::sunday(), 'X'), "08:49:37 AM");
}

TEST(LocaleSnapshotInFrench, ReadsAndWrites) {
    const OpenSnapshot locale(Culture::french);
    const std::string& separator = locale.thousands_sep();
    EXPECT_EQ(locale.asString(1234567L), "1" + separator + "234" + separator + "567");
    EXPECT_EQ(locale.learnt('x'), "{d}/{m}/{Y}");
    EXPECT_EQ(locale.dateOrder(), 0);
    EXPECT_EQ(Date("mardi 8 novembre 1994", locale), Date(8, 11, 1994));
    EXPECT_EQ(Date("8 janv. 1994", locale), Date(8, 1, 1994));
    EXPECT_EQ(locale.weekdayIndex("DIMANCHE"), 7);
}

TEST(LocaleSnapshotInCzech, ReadsAndWrites) {
    const OpenSnapshot locale(Culture::czech);
    EXPECT_EQ(locale.decimal_point(), ",");
    EXPECT_EQ(locale.dateOrder(), 0);
    EXPECT_EQ(Date("6.11.1994", locale), Date(6, 11, 1994));
    EXPECT_EQ(Date("6. 11. 1994", locale), Date(6, 11, 1994));
}

TEST(LocaleSnapshotInJapanese, ReadsAndWrites) {
    const OpenSnapshot locale(Culture::japanese);
    EXPECT_EQ(locale.frac_digits(), 0);
    EXPECT_EQ(locale.moneyAsString(123456, Locale::LocalSymbol),
              locale.currency_symbol() + "123,456");
    EXPECT_EQ(locale.dateOrder(), 3);
    std::tm tm{};
    EXPECT_TRUE(locale.stringToDate("1994/2/3", &tm));
    EXPECT_EQ(Date(&tm), Date(3, 2, 1994));
}

TEST(LocaleSnapshotInIndian, GroupsAreThreeThenTwo) {
    const OpenSnapshot locale(Culture::indian);
    EXPECT_EQ(locale.grouping(), "\3\2");
    EXPECT_EQ(locale.asString(123456789L), "12,34,56,789");
}

}  // namespace
}  // namespace nolk
