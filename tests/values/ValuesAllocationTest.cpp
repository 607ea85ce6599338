// What holds when the memory runs out, and what takes none.

#include <nolk/core/DateTime.h>
#include <nolk/core/LocaleSnapshot.h>
#include <nolk/core/TimeSpan.h>

#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "support/FailingAllocation.h"
#include "support/RuntimeLocale.h"
#include "values/DateTimeSupport.h"
#include "values/TestLocale.h"

namespace nolk {
namespace {

const test::TestLocale locale;

TEST(ValuesAllocation, ReadingAnInstantInAFormOfExchangeTakesNoMemory) {
    TimeZone::utc();
    const std::string texts[] = {"1994-11-06T08:49:37.005+01:30", "Sun, 06 Nov 1994 08:49:37 GMT",
                                 "Sunday, 06-Nov-94 08:49:37 GMT", "Sun Nov  6 08:49:37 1994",
                                 std::string(1000, 'x')};
    const long before = test::FailingAllocation::made();
    for (const std::string& text : texts) {
        for (const DateTime::Format format : {DateTime::iso8601, DateTime::http}) {
            const DateTime time(text, format, locale, test::eastern);
        }
    }
    EXPECT_EQ(test::FailingAllocation::made(), before);
}

TEST(ValuesAllocation, ReadingAndMovingFieldsTakesNoMemory) {
    TimeZone::utc();
    const long before = test::FailingAllocation::made();
    DateTime time = test::at(2010, 3, 14, 8);
    time.incrementHour(time.hour(test::eastern));
    time = time.next(3, test::eastern);
    time.julian(2415386);
    TimeSpan(1, 2, 3, 4, 5, 6) + time;
    EXPECT_LT(TimeSpan(1), TimeSpan(2));
    EXPECT_EQ(test::FailingAllocation::made(), before);
}

TEST(ValuesAllocation, ATextForWhichThereIsNoMemoryLeaksNothing) {
    const DateTime time = test::at(2010, 3, 14, 8, 9, 10, 11);
    const TimeSpan span(1, 2, 3, 4, 5, 6.5);
    const long before = test::FailingAllocation::live();
    EXPECT_GT(test::failEachAllocation([&] {
                  const std::string iso = time.asString(DateTime::iso8601, locale, test::eastern);
              }),
              0);
    EXPECT_GT(test::failEachAllocation(
                  [&] { const std::string text = time.asString("%c%c", locale, test::eastern); }),
              0);
    EXPECT_GT(test::failEachAllocation([&] { const std::string text = span.asString(); }), 0);
    EXPECT_GT(test::failEachAllocation([&] {
                  const DateTime both("14.03.2010;08-00000000000000000", DateTime::setBoth, locale,
                                      test::eastern);
              }),
              0);
    EXPECT_GT(test::failEachAllocation([] { TimeSpan text("P000000000000000000000000001Y"); }), 0);
    EXPECT_EQ(test::FailingAllocation::live(), before);
}

TEST(ValuesAllocation, ASnapshotForWhichThereIsNoMemoryRestoresTheRuntimeLibrary) {
    const test::RuntimeLocales locales;
    const char* const name = test::runtimeName(test::Culture::japanese);
    const LocaleSnapshot loaded(name);  // what the run-time library keeps isn't counted
    const long before = test::FailingAllocation::live();
    for (const bool forEver : {false, true}) {
        long failures = test::failEachAllocation(forEver, [&](test::FailingRun& run) {
            const test::Outcome outcome = run([&] { const LocaleSnapshot locale(name); });
            EXPECT_EQ(outcome.threw, outcome.failed);
            EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
            EXPECT_STREQ(std::localeconv()->currency_symbol, "");
        });
        EXPECT_GT(failures, 10);
    }
    EXPECT_EQ(test::FailingAllocation::live(), before);
}

TEST(ValuesAllocation, AGlobalLocaleForWhichThereIsNoMemoryIsMadeLater) {
    Locale::releaseCache();
    EXPECT_GT(test::failEachAllocation([] { Locale::global(); }), 0);
    EXPECT_EQ(Locale::global().locale_name(), "C");
    Locale::releaseCache();
}

TEST(ValuesAllocation, TextsOfALocaleForWhichThereIsNoMemoryLeakNothing) {
    const test::RuntimeLocales locales;
    const LocaleSnapshot english(test::runtimeName(test::Culture::english));
    const std::string number = "123,456,789,012,345,678,901";
    const std::string money = "$" + number + ".00";
    const long before = test::FailingAllocation::live();
    double value = 0;
    EXPECT_GT(test::failEachAllocation([&] { english.stringToNum(number, &value); }), 0);
    EXPECT_EQ(value, 123456789012345678901.0);
    EXPECT_GT(test::failEachAllocation(
                  [&] { english.stringToMoney(money, &value, Locale::LocalSymbol); }),
              0);
    EXPECT_GT(test::failEachAllocation([&] { english.moneyAsString(value, Locale::LocalSymbol); }),
              0);
    EXPECT_GT(test::failEachAllocation([&] { english.asString(1e21, 2, true); }), 0);
    EXPECT_EQ(test::FailingAllocation::live(), before);
}

}  // namespace
}  // namespace nolk
