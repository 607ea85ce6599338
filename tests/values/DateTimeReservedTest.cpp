// The values that are no instants: what each operation does with them, and how all values compare.

#include <nolk/core/DateTime.h>

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <map>
#include <string>

#include "values/DateTimeSupport.h"
#include "values/TestLocale.h"

namespace nolk {

// What is private to DateTime, for the tests of its steps: an explicit instantiation may name it.
struct DateTimeSteps {
    using Step = DateTime& (DateTime::*)();
    using Move = DateTime& (DateTime::*)(long long);
    inline static Step increment;
    inline static Step decrement;
    inline static Move add;
    inline static Move subtract;
};

template <auto increment, auto decrement, auto add, auto subtract>
struct OpenSteps {
    inline static const bool opened = [] {
        DateTimeSteps::increment = increment;
        DateTimeSteps::decrement = decrement;
        DateTimeSteps::add = add;
        DateTimeSteps::subtract = subtract;
        return true;
    }();
};

template struct OpenSteps < &DateTime::operator++, &DateTime::operator--, &DateTime::operator+=,
    &DateTime::operator-=>;

namespace {

using test::failureOf;
using test::future;
using test::gmt;
using test::invalid;
using test::invalidObject;
using test::null;
using test::past;
using test::reserved;

const DateTime early(-5);
const DateTime late(7);

// Opens what is for derived classes.
struct OpenDateTime : DateTime {
    explicit OpenDateTime(const DateTime& time) : DateTime(time) {}
    using DateTime::doMax;
    using DateTime::doMin;
};

TEST(DateTimeReserved, StatesAreMadeByNumber) {
    EXPECT_EQ(DateTime(DateTime::InitialState(0)).milliSeconds(), LLONG_MIN + 128);
    EXPECT_EQ(DateTime(DateTime::InitialState(1)).milliSeconds(), LLONG_MIN + 129);
    for (const int other : {-1, 3, INT_MAX, INT_MIN}) {
        EXPECT_EQ(DateTime(static_cast<DateTime::InitialState>(other)), invalid) << other;
    }
}

TEST(DateTimeReserved, EachValueIsWhatItIs) {
    for (int offset = -2; offset <= 260; ++offset) {
        const DateTime time(static_cast<long long>(0x8000000000000000ull + offset));
        const bool sentinel = (offset >= 0 && offset <= 256) || offset == -1;
        EXPECT_EQ(time.isSentinel(), sentinel) << offset;
        EXPECT_EQ(time.empty(), offset == 129) << offset;
        EXPECT_EQ(time.isPast(), offset == 256) << offset;
        EXPECT_EQ(time.isFuture(), offset == -1) << offset;
        EXPECT_EQ(time.isValid(), !sentinel || offset == 129) << offset;
        EXPECT_EQ(time.isInvalid(), !time.isValid()) << offset;
    }
}

TEST(DateTimeReserved, UserSentinelsAreTheLowestValues) {
    for (int n = 0; n <= 127; ++n) {
        EXPECT_EQ(DateTime::userSentinel(n).milliSeconds(), LLONG_MIN + n);
    }
    for (const int n : {-1, 128, INT_MIN, INT_MAX}) {
        EXPECT_EQ(failureOf([n] { DateTime::userSentinel(n); }),
                  "[DATETIME_INVALID_SENTINEL] invalid user sentinel");
    }
}

TEST(DateTimeReserved, EveryReaderThrows) {
    const test::TestLocale locale;
    std::tm tm{};
    using Reader = std::function<void(const DateTime&)>;
    const std::map<std::string, Reader> readers = {
        {"year", [](const DateTime& t) { t.year(gmt); }},
        {"month", [](const DateTime& t) { t.month(gmt); }},
        {"dayOfMonth", [](const DateTime& t) { t.dayOfMonth(gmt); }},
        {"day", [](const DateTime& t) { t.day(gmt); }},
        {"hour", [](const DateTime& t) { t.hour(gmt); }},
        {"minute", [](const DateTime& t) { t.minute(gmt); }},
        {"weekDay", [](const DateTime& t) { t.weekDay(gmt); }},
        {"leap", [](const DateTime& t) { t.leap(gmt); }},
        {"isDST", [](const DateTime& t) { t.isDST(gmt); }},
        {"isDST with rules", [](const DateTime& t) { t.isDST(test::eastern); }},
        {"extract", [&](const DateTime& t) { t.extract(&tm, gmt); }},
        {"firstDayOfMonth", [](const DateTime& t) { t.firstDayOfMonth(gmt); }},
        {"firstDayOfMonth by number", [](const DateTime& t) { t.firstDayOfMonth(1, gmt); }},
        {"firstDayOfMonth of none", [](const DateTime& t) { t.firstDayOfMonth(13, gmt); }},
        {"monthName", [&](const DateTime& t) { t.monthName(locale, gmt); }},
        {"weekDayName", [&](const DateTime& t) { t.weekDayName(locale, gmt); }},
        {"next", [](const DateTime& t) { t.next(1, gmt); }},
        {"next by name", [&](const DateTime& t) { t.next("Montag", locale, gmt); }},
        {"next by no name", [&](const DateTime& t) { t.next("x", locale, gmt); }},
        {"previous", [](const DateTime& t) { t.previous(1, gmt); }},
        {"previous by name", [&](const DateTime& t) { t.previous("Montag", locale, gmt); }},
        {"previous by no name", [&](const DateTime& t) { t.previous("x", locale, gmt); }},
        {"second", [](const DateTime& t) { t.second(); }},
        {"milliSecond", [](const DateTime& t) { t.milliSecond(); }},
        {"julian", [](const DateTime& t) { t.julian(); }},
        {"correctedJulian", [](const DateTime& t) { t.correctedJulian(); }},
        {"julianDay", [](const DateTime& t) { t.julianDay(); }},
        {"yearGMT", [](const DateTime& t) { t.yearGMT(); }},
        {"monthGMT", [](const DateTime& t) { t.monthGMT(); }},
        {"dayOfMonthGMT", [](const DateTime& t) { t.dayOfMonthGMT(); }},
        {"dayGMT", [](const DateTime& t) { t.dayGMT(); }},
        {"hourGMT", [](const DateTime& t) { t.hourGMT(); }},
        {"minuteGMT", [](const DateTime& t) { t.minuteGMT(); }},
        {"weekDayGMT", [](const DateTime& t) { t.weekDayGMT(); }},
        {"leapGMT", [](const DateTime& t) { t.leapGMT(); }},
        {"extractGMT", [&](const DateTime& t) { t.extractGMT(&tm); }},
        {"toSysTime", [](const DateTime& t) { t.toSysTime(); }},
    };
    for (const auto& [name, read] : readers) {
        for (const DateTime& time : reserved) {
            EXPECT_EQ(failureOf([&] { read(time); }), invalidObject) << name;
        }
        EXPECT_EQ(failureOf([&] { read(early); }), "") << name;
    }
}

TEST(DateTimeReserved, TheThrowSiteIsTheReader) {
    try {
        null.hour(gmt);
        FAIL();
    } catch (const Exception& failure) {
        EXPECT_NE(std::string(failure.getFunctionName()).find("DateTime::hour("), std::string::npos)
            << failure.getFunctionName();
    }
}

TEST(DateTimeReserved, ToDateDoesNotThrow) {
    for (const DateTime& time : reserved) {
        EXPECT_FALSE(time.toDate(gmt).isValid());
        EXPECT_FALSE(time.toDate(test::eastern).isValid());
    }
}

TEST(DateTimeReserved, MovedPastAndFutureStayAndOthersBecomeInvalid) {
    for (const DateTime& time : reserved) {
        const DateTime expected = time.isPast() || time.isFuture() ? time : invalid;
        for (const long long n : {1ll, -1ll, 0ll, LLONG_MAX, LLONG_MIN}) {
            EXPECT_EQ(time + n, expected);
            EXPECT_EQ(time - n, expected);
            EXPECT_EQ(DateTime(time).incrementHour(n), expected);
            EXPECT_EQ(DateTime(time).incrementMinute(n), expected);
            EXPECT_EQ(DateTime(time).incrementSecond(n), expected);
            EXPECT_EQ(DateTime(time).decrementHour(n), expected);
            EXPECT_EQ(DateTime(time).decrementMinute(n), expected);
            EXPECT_EQ(DateTime(time).decrementSecond(n), expected);
            DateTime moved = time;
            EXPECT_EQ((moved.*DateTimeSteps::add)(n), expected);
            moved = time;
            EXPECT_EQ((moved.*DateTimeSteps::subtract)(n), expected);
        }
    }
}

TEST(DateTimeReserved, StepsLeaveReservedValuesAndMoveInstantsByOne) {
    for (const DateTime& time : reserved) {
        DateTime moved = time;
        EXPECT_EQ((moved.*DateTimeSteps::increment)(), time);
        EXPECT_EQ((moved.*DateTimeSteps::decrement)(), time);
    }
    DateTime time(0LL);
    EXPECT_EQ(&(time.*DateTimeSteps::increment)(), &time);
    EXPECT_EQ(time.milliSeconds(), 1);
    (time.*DateTimeSteps::decrement)();
    (time.*DateTimeSteps::decrement)();
    EXPECT_EQ(time.milliSeconds(), -1);
    (time.*DateTimeSteps::add)(5);
    EXPECT_EQ(time.milliSeconds(), 4);
    (time.*DateTimeSteps::subtract)(3);
    EXPECT_EQ(time.milliSeconds(), 1);
}

TEST(DateTimeReserved, DifferencesThrow) {
    for (const DateTime& time : reserved) {
        EXPECT_EQ(failureOf([&] { static_cast<void>(time - early); }), invalidObject);
        EXPECT_EQ(failureOf([&] { static_cast<void>(early - time); }), invalidObject);
        EXPECT_EQ(failureOf([&] { static_cast<void>(time - time); }), invalidObject);
    }
}

TEST(DateTimeReserved, EqualityComparesAllValuesAsTheyAre) {
    for (const DateTime& a : reserved) {
        for (const DateTime& b : reserved) {
            EXPECT_EQ(a == b, a.milliSeconds() == b.milliSeconds());
            EXPECT_EQ(a != b, a.milliSeconds() != b.milliSeconds());
        }
        EXPECT_FALSE(a == early);
        EXPECT_TRUE(early != a);
    }
}

TEST(DateTimeReserved, OrderingsThrowForWhatIsNotValid) {
    for (const DateTime& time : reserved) {
        if (time.empty()) {
            continue;
        }
        for (const DateTime& other : {early, null, time}) {
            EXPECT_EQ(failureOf([&] { static_cast<void>(time < other); }), invalidObject);
            EXPECT_EQ(failureOf([&] { static_cast<void>(other < time); }), invalidObject);
            EXPECT_EQ(failureOf([&] { static_cast<void>(time > other); }), invalidObject);
            EXPECT_EQ(failureOf([&] { static_cast<void>(time <= other); }), invalidObject);
            EXPECT_EQ(failureOf([&] { static_cast<void>(time >= other); }), invalidObject);
        }
    }
}

TEST(DateTimeReserved, NullIsNeitherBeforeNorBehindAnything) {
    for (const DateTime& other : {early, late, null}) {
        EXPECT_FALSE(null < other);
        EXPECT_FALSE(other < null);
        EXPECT_FALSE(null > other);
        EXPECT_FALSE(other > null);
        EXPECT_TRUE(null <= other);
        EXPECT_TRUE(other <= null);
        EXPECT_TRUE(null >= other);
        EXPECT_TRUE(other >= null);
    }
    EXPECT_TRUE(null.between(early, late));
}

TEST(DateTimeReserved, InstantsAreInTheOrderOfTheirCounts) {
    EXPECT_TRUE(early < late && !(late < early) && !(early < early));
    EXPECT_TRUE(late > early && !(early > late) && !(early > early));
    EXPECT_TRUE(early <= late && early <= early && !(late <= early));
    EXPECT_TRUE(late >= early && early >= early && !(early >= late));
    EXPECT_EQ(early.compareTo(late), -1);
    EXPECT_EQ(late.compareTo(early), 1);
    EXPECT_EQ(late.compareTo(late), 0);
    EXPECT_EQ(early.max(late), late);
    EXPECT_EQ(late.max(early), late);
    EXPECT_EQ(early.min(late), early);
    EXPECT_EQ(late.min(early), early);
    EXPECT_TRUE(early.between(early, late) && late.between(early, late));
    EXPECT_FALSE(DateTime(8).between(early, late));
    EXPECT_FALSE(DateTime(-6).between(early, late));
}

TEST(DateTimeReserved, CompareToTakesPastAndFuture) {
    EXPECT_EQ(past.compareTo(early), -1);
    EXPECT_EQ(early.compareTo(past), 1);
    EXPECT_EQ(future.compareTo(late), 1);
    EXPECT_EQ(late.compareTo(future), -1);
    EXPECT_EQ(past.compareTo(future), -1);
    EXPECT_EQ(past.compareTo(past), 0);
    for (const DateTime& time : reserved) {
        if (time.isPast() || time.isFuture()) {
            continue;
        }
        EXPECT_EQ(failureOf([&] { time.compareTo(early); }), invalidObject);
        EXPECT_EQ(failureOf([&] { early.compareTo(time); }), invalidObject);
    }
}

TEST(DateTimeReserved, MaxMinAndBetweenThrow) {
    for (const DateTime& time : reserved) {
        EXPECT_EQ(failureOf([&] { time.max(early); }), invalidObject);
        EXPECT_EQ(failureOf([&] { early.max(time); }), invalidObject);
        EXPECT_EQ(failureOf([&] { time.min(early); }), invalidObject);
        EXPECT_EQ(failureOf([&] { early.min(time); }), invalidObject);
        if (!time.empty()) {
            EXPECT_EQ(failureOf([&] { time.between(early, late); }), invalidObject);
            EXPECT_EQ(failureOf([&] { early.between(time, late); }), invalidObject);
        }
    }
}

TEST(DateTimeReserved, TheBareMaxAndMinTakeNull) {
    EXPECT_EQ(OpenDateTime(early).doMax(late), late);
    EXPECT_EQ(OpenDateTime(early).doMin(late), early);
    EXPECT_EQ(OpenDateTime(null).doMax(late), null);
    EXPECT_EQ(OpenDateTime(late).doMax(null), late);
    EXPECT_EQ(OpenDateTime(null).doMin(early), null);
    EXPECT_EQ(failureOf([] { OpenDateTime(past).doMin(early); }), invalidObject);
}

TEST(DateTimeReserved, TextsTellNullAndNothingElse) {
    const test::TestLocale locale;
    for (const DateTime& time : reserved) {
        const std::string expected = time.empty() ? "NULL" : "#INVALID#";
        EXPECT_EQ(time.asString('c', locale, gmt), expected);
        EXPECT_EQ(time.asString("%c", locale, gmt), expected);
        EXPECT_EQ(time.asString(DateTime::iso8601, locale, gmt), expected);
        EXPECT_EQ(time.asString(DateTime::http, locale, gmt), expected);
    }
}

}  // namespace
}  // namespace nolk
