#include "nolk/core/values/TimeFormatProbe.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace nolk {
namespace {

// The components of 30 November 1990, 22:54:56, in English.
const std::vector<std::string> texts = {
    "1990", "90",     "334", "56", "54", "10",  "22", "11", "November",
    "Nov",  "Friday", "Fri", "PM", "30", "GMT", "47", "48", "5",
};

// The text with "{component}" at each place, padded ones as "{_d}" and "{_m}".
std::string dump(const LocaleTimeFormat& format) {
    std::string text = format.text;
    std::size_t moved = 0;
    for (const QXTimeFmtList* node = format.components; node != nullptr; node = node->next) {
        const std::string letter =
            node->component == paddedDay ? "_d"
            : node->component == paddedMonth
                ? "_m"
                : std::string(1, timeConversions.at(static_cast<std::size_t>(node->component)));
        const std::string mark = "{" + letter + "}";
        text.insert(static_cast<std::size_t>(node->offset) + moved, mark);
        moved += mark.size();
    }
    return text;
}

std::string learned(const char* sample) {
    LocaleTimeFormat format;
    learnFormat(format, sample, texts);
    return dump(format);
}

TEST(TimeFormatProbe, HasItsConversionsInOrder) {
    EXPECT_EQ(timeConversions, "YyjSMIHmBbAapdZUWw");
    EXPECT_EQ(timeConversions[zoneName], 'Z');
    EXPECT_EQ(timeConversions[weekdayNumber], 'w');
    EXPECT_EQ(paddedDay, 18);
    EXPECT_EQ(paddedMonth, 19);
}

TEST(TimeFormatProbe, ComponentsAreCutOutOfASample) {
    const struct {
        const char* sample;
        const char* format;
    } rows[] = {
        {"", ""},
        {"noon", "noon"},
        {"22:54:56", "{H}:{M}:{S}"},
        {"225456", "{H}{M}{S}"},
        {"10:54:56 PM", "{I}:{M}:{S} {p}"},
        {"11/30/90", "{m}/{d}/{y}"},
        {"30.11.1990", "{d}.{m}.{Y}"},
        {"1990-11-30", "{Y}-{m}-{d}"},
        {"Fri Nov 30 22:54:56 1990", "{a} {b} {d} {H}:{M}:{S} {Y}"},
        {"Friday, November 30, 1990 22:54:56 GMT", "{A}, {B} {d}, {Y} {H}:{M}:{S} {Z}"},
        {"day 334, weeks 47 48, 5", "day {j}, weeks {U} {W}, {w}"},
        {"<1990> <1990>", "<{Y}> <19{y}>"},
        {"Friday Fri Friday", "{A} {a} Friday"},
        {"1990 90", "{Y} {y}"},
        {"22h54m56s", "{H}h{M}m{S}s"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(learned(row.sample), row.format);
    }
}

TEST(TimeFormatProbe, OffsetsCountInTheTextThatIsLeft) {
    LocaleTimeFormat format;
    learnFormat(format, "at 22:54:56", texts);
    EXPECT_EQ(format.text, "at ::");
    const QXTimeFmtList* hour = format.components;
    ASSERT_NE(hour, nullptr);
    EXPECT_EQ(hour->component, 6);
    EXPECT_EQ(hour->offset, 3);
    ASSERT_NE(hour->next, nullptr);
    EXPECT_EQ(hour->next->component, 4);
    EXPECT_EQ(hour->next->offset, 4);
    ASSERT_NE(hour->next->next, nullptr);
    EXPECT_EQ(hour->next->next->component, 3);
    EXPECT_EQ(hour->next->next->offset, 5);
    EXPECT_EQ(hour->next->next->next, nullptr);
}

TEST(TimeFormatProbe, EmptyTextsAreNowhere) {
    LocaleTimeFormat format;
    learnFormat(format, "22:54", std::vector<std::string>(18));
    EXPECT_EQ(dump(format), "22:54");
}

// Of "3" and "0" around a year a day comes about; the year, inside the cut, stays at its edge.
TEST(TimeFormatProbe, ATextThatACutHasJoinedIsFoundToo) {
    EXPECT_EQ(learned("1199056/"), "1{Y}{S}/");
    EXPECT_EQ(learned("319900."), "{d}{Y}.");
}

std::string padded(const char* sample, const char* second, const char* third) {
    LocaleTimeFormat format;
    learnFormat(format, sample, texts);
    learnPadding(format, dayOfMonth, paddedDay, sample, second, texts);
    learnPadding(format, monthNumber, paddedMonth, sample, third, texts);
    return dump(format);
}

TEST(TimeFormatProbe, PaddingIsLearntFromASmallerNumber) {
    EXPECT_EQ(padded("11/30/90", "11/02/90", "02/30/90"), "{m}/{d}/{y}");
    EXPECT_EQ(padded("11/30/90", "11/ 2/90", " 2/30/90"), "{_m}/{_d}/{y}");
    EXPECT_EQ(padded("30.11.1990", " 2.11.1990", "30. 2.1990"), "{_d}.{_m}.{Y}");
    EXPECT_EQ(padded("30.11.1990", "2.11.1990", "30.2.1990"), "{d}.{m}.{Y}");
    EXPECT_EQ(
        padded("Fri Nov 30 22:54:56 1990", "Fri Nov  2 22:54:56 1990", "Fri Feb 30 22:54:56 1990"),
        "{a} {b} {_d} {H}:{M}:{S} {Y}");
    EXPECT_EQ(padded("noon", "", ""), "noon");
    EXPECT_EQ(padded("x 30", "x", "x"), "x {d}");
}

int orderOf(const char* sample) {
    LocaleTimeFormat format;
    learnFormat(format, sample, texts);
    return dateOrderOf(format);
}

TEST(TimeFormatProbe, OrderIsThatOfYearMonthAndDay) {
    const struct {
        const char* sample;
        int order;
    } rows[] = {
        {"30.11.1990", 0},
        {"30.11.90", 0},
        {"30 Nov 1990", 0},
        {"30 November 1990", 0},
        {"11/30/1990", 1},
        {"Nov 30 90", 1},
        {"November 30", 1},
        {"1990-30-11", 2},
        {"30/1990/11", 2},
        {"90 30 Nov", 2},
        {"1990-11-30", 3},
        {"90-11-30", 3},
        {"11/1990/30", 1},
        {"30.11.", 0},
        {"11/30", 1},
        {"", 0},
        {"1990", 0},
        {"22:54 11/30/90", 1},
        // A month or day that isn't there counts as before all others.
        {"30 1990", 1},
        {"1990 November", 2},
        {"November 1990", 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(orderOf(row.sample), row.order) << row.sample;
    }
}

TEST(TimeFormatProbe, OrderKnowsPaddedComponents) {
    LocaleTimeFormat format;
    learnFormat(format, "11/30/90", texts);
    learnPadding(format, dayOfMonth, paddedDay, "11/30/90", "11/ 2/90", texts);
    learnPadding(format, monthNumber, paddedMonth, "11/30/90", " 2/30/90", texts);
    EXPECT_EQ(dateOrderOf(format), 1);
}

}  // namespace
}  // namespace nolk
