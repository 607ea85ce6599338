#include <nolk/core/TimeZone.h>

#include <nolk/core/DaylightRule.h>
#include <nolk/core/TimeZoneSimple.h>

#include <gtest/gtest.h>

#include <ctime>
#include <iterator>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

#include "foundation/SlotOrder.h"

namespace nolk {
namespace {

TEST(TimeZone, IsAnInterfaceWithoutData) {
    EXPECT_TRUE(std::is_abstract_v<TimeZone>);
    EXPECT_TRUE(std::has_virtual_destructor_v<TimeZone>);
    EXPECT_EQ(sizeof(TimeZone), sizeof(void*));
}

TEST(TimeZone, HasItsOperationsInTheirOrder) {
    EXPECT_EQ(slotOf(&TimeZone::timeZoneOffset), 2u);
    EXPECT_EQ(slotOf(&TimeZone::altZoneOffset), 3u);
    EXPECT_EQ(slotOf(&TimeZone::daylightObserved), 4u);
    EXPECT_EQ(slotOf(&TimeZone::timeZoneName), 5u);
    EXPECT_EQ(slotOf(&TimeZone::altZoneName), 6u);
    EXPECT_EQ(slotOf(&TimeZone::isDaylight), 7u);
    EXPECT_EQ(slotOf(&TimeZone::getBeginDaylight), 8u);
    EXPECT_EQ(slotOf(&TimeZone::getEndDaylight), 9u);
}

TEST(TimeZone, HasTheRulesByNumber) {
    EXPECT_EQ(TimeZone::NoDST, 0);
    EXPECT_EQ(TimeZone::NorthAmerica, 1);
    EXPECT_EQ(TimeZone::WesternEurope, 2);
    EXPECT_EQ(TimeZone::Europe, 3);
}

struct RuleRow {
    int firstYear;
    DaylightBoundary begin;
    DaylightBoundary end;
};

const RuleRow northAmerica[] = {
    {2007, {2, 1, 0, 120}, {10, 0, 0, 120}}, {1987, {3, 0, 0, 120}, {9, 4, 0, 120}},
    {1976, {3, 4, 0, 120}, {9, 4, 0, 120}},  {1975, {1, 4, 0, 120}, {9, 4, 0, 120}},
    {1974, {0, 0, 0, 120}, {9, 4, 0, 120}},  {1967, {3, 0, 0, 120}, {9, 4, 0, 120}},
    {0, {3, 4, 0, 120}, {9, 4, 0, 120}},
};

const RuleRow westernEurope[] = {
    {1998, {2, 4, 0, 60}, {9, 4, 0, 60}},
    {0, {2, 4, 0, 120}, {8, 4, 0, 120}},
};

const RuleRow europe[] = {
    {1996, {2, 4, 0, 120}, {9, 4, 0, 180}},
    {0, {2, 4, 0, 120}, {8, 4, 0, 120}},
};

void expectBoundary(const DaylightBoundary& found, const DaylightBoundary& wanted) {
    EXPECT_EQ(found.month, wanted.month);
    EXPECT_EQ(found.week, wanted.week);
    EXPECT_EQ(found.weekday, wanted.weekday);
    EXPECT_EQ(found.minute, wanted.minute);
}

void expectChain(TimeZone::DstRule number, const RuleRow* row, const RuleRow* end) {
    const DaylightRule* rule = TimeZone::dstRule(number);
    for (; row != end; ++row, rule = rule->next) {
        ASSERT_NE(rule, nullptr) << number << ' ' << row->firstYear;
        EXPECT_EQ(rule->firstYear, row->firstYear);
        EXPECT_TRUE(rule->observed);
        expectBoundary(rule->begin, row->begin);
        expectBoundary(rule->end, row->end);
    }
    EXPECT_EQ(rule, nullptr);
}

TEST(TimeZone, HasTheBuiltInChains) {
    expectChain(TimeZone::NorthAmerica, std::begin(northAmerica), std::end(northAmerica));
    expectChain(TimeZone::WesternEurope, std::begin(westernEurope), std::end(westernEurope));
    expectChain(TimeZone::Europe, std::begin(europe), std::end(europe));
    EXPECT_EQ(TimeZone::dstRule(TimeZone::NoDST), nullptr);
}

TEST(TimeZone, OtherNumbersAreNoChain) {
    EXPECT_EQ(TimeZone::dstRule(TimeZone::DstRule(4)), nullptr);
    EXPECT_EQ(TimeZone::dstRule(TimeZone::DstRule(-1)), nullptr);
}

TEST(TimeZone, UtcIsGreenwichWithoutDaylightTime) {
    const TimeZone& utc = TimeZone::utc();
    EXPECT_EQ(utc.timeZoneOffset(), 0);
    EXPECT_EQ(utc.altZoneOffset(), 0);
    EXPECT_EQ(utc.timeZoneName(), "GMT");
    EXPECT_EQ(utc.altZoneName(), "GMT");
    EXPECT_FALSE(utc.daylightObserved());
    EXPECT_EQ(&TimeZone::utc(), &utc);
}

TEST(TimeZone, UtcIsMadeAnewAfterItIsCleared) {
    TimeZone::utc();
    TimeZone::clearUtc();
    TimeZone::clearUtc();
    const TimeZone& utc = TimeZone::utc();
    EXPECT_EQ(utc.timeZoneOffset(), 0);
    EXPECT_EQ(utc.timeZoneName(), "GMT");
}

// Each zone with its two functions.
struct Slot {
    const TimeZone& (*get)();
    const TimeZone* (*set)(const TimeZone*) noexcept;
};

const Slot slots[] = {
    {&TimeZone::local, &TimeZone::local},
    {&TimeZone::standard, &TimeZone::standard},
    {&TimeZone::system, &TimeZone::system},
};

TEST(TimeZone, AZoneIsMadeOnce) {
    for (const Slot& slot : slots) {
        EXPECT_EQ(&slot.get(), &slot.get());
    }
    EXPECT_EQ(&TimeZone::os(), &TimeZone::os());
    EXPECT_NE(&TimeZone::local(), &TimeZone::system());
    EXPECT_NE(&TimeZone::local(), &TimeZone::os());
}

TEST(TimeZone, ASetterInstallsACallersZoneAndReturnsTheOldOne) {
    const TimeZoneSimple first(1, "first");
    const TimeZoneSimple second(2, "second");
    for (const Slot& slot : slots) {
        const TimeZone* made = &slot.get();
        EXPECT_EQ(slot.set(&first), made);
        EXPECT_EQ(&slot.get(), &first);
        EXPECT_EQ(slot.set(&second), &first);
        EXPECT_EQ(&slot.get(), &second);
        EXPECT_EQ(slot.set(made), &second);
        EXPECT_EQ(&slot.get(), made);
    }
}

TEST(TimeZone, EachSetterHasASlotOfItsOwn) {
    const TimeZoneSimple own(1, "own");
    for (const Slot& slot : slots) {
        const TimeZone* made = &slot.get();
        slot.set(&own);
        for (const Slot& other : slots) {
            EXPECT_EQ(&other.get() == &own, &other == &slot);
        }
        slot.set(made);
    }
}

TEST(TimeZone, StandardIsLocalWithoutDaylightTime) {
    const TimeZone& local = TimeZone::local();
    const TimeZone& standard = TimeZone::standard();
    EXPECT_EQ(standard.timeZoneOffset(), local.timeZoneOffset());
    EXPECT_EQ(standard.timeZoneName(), local.timeZoneName());
    EXPECT_EQ(standard.altZoneOffset(), local.timeZoneOffset());
    EXPECT_EQ(standard.altZoneName(), local.timeZoneName());
    EXPECT_FALSE(standard.daylightObserved());
}

TEST(TimeZone, TheZonesOfThePlatformAgree) {
    const TimeZone& local = TimeZone::local();
    for (const TimeZone* zone : {&TimeZone::system(), &TimeZone::os()}) {
        EXPECT_EQ(zone->timeZoneOffset(), local.timeZoneOffset());
        EXPECT_EQ(zone->altZoneOffset(), local.altZoneOffset());
        EXPECT_EQ(zone->timeZoneName(), local.timeZoneName());
        EXPECT_EQ(zone->altZoneName(), local.altZoneName());
        EXPECT_EQ(zone->daylightObserved(), local.daylightObserved());
    }
    EXPECT_EQ(local.altZoneOffset(), local.timeZoneOffset() - 3600);
}

// Whatever zone the tests run in. Rules have no hour of their own where clocks are put back, so
// civil times that come twice are left out: the day before each change and the day behind it are
// in.
TEST(TimeZone, OsHasTheDaylightTimeOfThePlatform) {
    const TimeZone& os = TimeZone::os();
    const std::time_t now = std::time(nullptr);
    std::tm noon = *std::localtime(&now);
    const int year = noon.tm_year;
    for (int yday = 0; yday < 366; ++yday) {
        std::tm tm{};
        tm.tm_year = year;
        tm.tm_mday = yday + 1;
        tm.tm_hour = 12;
        tm.tm_isdst = -1;
        if (std::mktime(&tm) == -1 || tm.tm_year != year) {
            continue;
        }
        EXPECT_EQ(os.isDaylight(&tm), tm.tm_isdst > 0) << yday;
    }
}

TEST(TimeZone, ThreadsThatAskFirstGetOneZone) {
    for (int round = 0; round < 50; ++round) {
        TimeZone::clearUtc();
        std::vector<const TimeZone*> found(4);
        std::vector<std::thread> threads;
        for (const TimeZone*& zone : found) {
            threads.emplace_back([&zone] { zone = &TimeZone::utc(); });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        for (const TimeZone* zone : found) {
            EXPECT_EQ(zone, found.front());
        }
    }
}

// A zone of a caller's own class.
class Odd : public TimeZone {
public:
    long timeZoneOffset() const override { return 1; }
    long altZoneOffset() const override { return 2; }
    bool daylightObserved() const override { return true; }
    std::string timeZoneName() const override { return "odd"; }
    std::string altZoneName() const override { return "odder"; }
    bool isDaylight(const struct tm* tm) const override { return tm->tm_sec % 2 != 0; }
    void getBeginDaylight(struct tm* tm) const override { tm->tm_sec = 1; }
    void getEndDaylight(struct tm* tm) const override { tm->tm_sec = 2; }
};

TEST(TimeZone, MayBeImplementedByCallers) {
    const Odd odd;
    const TimeZone* made = &TimeZone::standard();
    TimeZone::standard(&odd);
    EXPECT_EQ(TimeZone::standard().altZoneName(), "odder");
    TimeZone::standard(made);
    const Odd copy(odd);
    EXPECT_EQ(copy.timeZoneOffset(), 1);
}

}  // namespace
}  // namespace nolk
