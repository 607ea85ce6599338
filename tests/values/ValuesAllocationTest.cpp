// What holds when the memory runs out, and what takes none.

#include <nolk/core/DateTime.h>
#include <nolk/core/TimeSpan.h>

#include <gtest/gtest.h>

#include <string>

#include "support/FailingAllocation.h"
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

}  // namespace
}  // namespace nolk
