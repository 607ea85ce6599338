#include <nolk/core/Locale.h>

#include <nolk/core/LocaleSnapshot.h>

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

#include "foundation/SlotOrder.h"
#include "values/TestLocale.h"

namespace nolk {
namespace {

TEST(Locale, IsAnInterfaceForDerivedClasses) {
    EXPECT_TRUE(std::is_abstract_v<Locale>);
    EXPECT_TRUE(std::has_virtual_destructor_v<Locale>);
}

TEST(Locale, HasTheCurrencySymbolsByNumber) {
    EXPECT_EQ(Locale::NoSymbol, 0);
    EXPECT_EQ(Locale::LocalSymbol, 1);
    EXPECT_EQ(Locale::IntlSymbol, 2);
}

TEST(Locale, HasItsOperationsInTheirSlots) {
    using Text = const std::string& (Locale::*)() const;
    const Text texts[] = {
        &Locale::locale_name,       &Locale::decimal_point,     &Locale::thousands_sep,
        &Locale::grouping,          &Locale::int_curr_symbol,   &Locale::currency_symbol,
        &Locale::mon_decimal_point, &Locale::mon_thousands_sep, &Locale::mon_grouping,
        &Locale::positive_sign,     &Locale::negative_sign,
    };
    std::size_t slot = 2;
    for (const Text text : texts) {
        EXPECT_EQ(slotOf(text), slot++);
    }
    using Number = char (Locale::*)() const;
    const Number numbers[] = {
        &Locale::int_frac_digits, &Locale::frac_digits,   &Locale::p_cs_precedes,
        &Locale::p_sep_by_space,  &Locale::n_cs_precedes, &Locale::n_sep_by_space,
        &Locale::p_sign_posn,     &Locale::n_sign_posn,
    };
    for (const Number number : numbers) {
        EXPECT_EQ(slotOf(number), slot++);
    }
    using Time = std::string (Locale::*)(const std::tm*, char, const TimeZone&) const;
    using Double = std::string (Locale::*)(double, int, bool) const;
    using Unsigned = std::string (Locale::*)(unsigned long) const;
    using Signed = std::string (Locale::*)(long) const;
    EXPECT_EQ(slotOf(static_cast<Time>(&Locale::asString)), slot++);
    EXPECT_EQ(slotOf(static_cast<Double>(&Locale::asString)), slot++);
    EXPECT_EQ(slotOf(static_cast<Unsigned>(&Locale::asString)), slot++);
    EXPECT_EQ(slotOf(static_cast<Signed>(&Locale::asString)), slot++);
    EXPECT_EQ(slotOf(&Locale::moneyAsString), slot++);
    using ToUnsigned = bool (Locale::*)(const std::string&, unsigned long*) const;
    using ToSigned = bool (Locale::*)(const std::string&, long*) const;
    using ToDouble = bool (Locale::*)(const std::string&, double*) const;
    EXPECT_EQ(slotOf(static_cast<ToUnsigned>(&Locale::stringToNum)), slot++);
    EXPECT_EQ(slotOf(static_cast<ToSigned>(&Locale::stringToNum)), slot++);
    EXPECT_EQ(slotOf(static_cast<ToDouble>(&Locale::stringToNum)), slot++);
    EXPECT_EQ(slotOf(&Locale::stringToDate), slot++);
    EXPECT_EQ(slotOf(&Locale::stringToTime), slot++);
    EXPECT_EQ(slotOf(&Locale::stringToMoney), slot++);
    EXPECT_EQ(slotOf(&Locale::monthIndex), slot++);
    EXPECT_EQ(slotOf(&Locale::weekdayIndex), slot++);
}

TEST(Locale, AFormatIsWalkedConversionByConversion) {
    const test::TestLocale locale;
    std::tm tm{};
    tm.tm_year = 94;
    tm.tm_mon = 10;
    tm.tm_mday = 6;
    const struct {
        const char* format;
        const char* text;
    } rows[] = {
        {"", ""},       {nullptr, ""},     {"plain", "plain"}, {"%d. %B %Y", "6. November 1994"},
        {"%d%d", "66"}, {"100%%", "100%"}, {"%%d", "%d"},      {"%%%d", "%6"},
        {"%?x", "x"},   {"%", "%"},        {"%d%", "6%"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(locale.asString(&tm, row.format, TimeZone::utc()), row.text);
    }
}

// The library is as it was when it goes.
class GlobalLocale : public testing::Test {
protected:
    ~GlobalLocale() override {
        Locale::releaseCache();
        Locale::global(nullptr);
    }
};

TEST(DefaultLocale, IsANewSnapshotOfC) {
    const std::unique_ptr<Locale> first(Locale::defaultLocale());
    const std::unique_ptr<Locale> second(Locale::defaultLocale());
    EXPECT_NE(first, second);
    EXPECT_NE(dynamic_cast<LocaleSnapshot*>(first.get()), nullptr);
    EXPECT_EQ(first->locale_name(), "C");
}

TEST_F(GlobalLocale, IsASnapshotOfCMadeOnce) {
    const Locale& locale = Locale::global();
    EXPECT_NE(dynamic_cast<const LocaleSnapshot*>(&locale), nullptr);
    EXPECT_EQ(locale.locale_name(), "C");
    EXPECT_EQ(&Locale::global(), &locale);
}

TEST_F(GlobalLocale, AnotherMayTakeItsPlace) {
    const Locale& classic = Locale::global();
    const test::TestLocale other;
    EXPECT_EQ(Locale::global(&other), &classic);
    EXPECT_EQ(&Locale::global(), &other);
    EXPECT_EQ(Locale::global(&classic), &other);
    EXPECT_EQ(&Locale::global(), &classic);
}

TEST_F(GlobalLocale, WasNoneIfNobodyAskedForIt) {
    const test::TestLocale other;
    EXPECT_EQ(Locale::global(&other), nullptr);
    EXPECT_EQ(Locale::global(nullptr), &other);
    EXPECT_EQ(Locale::global().locale_name(), "C");
}

TEST_F(GlobalLocale, IsDeletedWithTheCacheIfTheLibraryMadeIt) {
    Locale::global();
    Locale::releaseCache();
    EXPECT_EQ(Locale::global(nullptr), nullptr) << "there is none";
    const test::TestLocale other;
    Locale::global(&other);
    Locale::releaseCache();
    EXPECT_EQ(&Locale::global(), &other) << "a caller's stays";
}

TEST_F(GlobalLocale, ZonesAreDeletedWithTheCacheIfTheLibraryMadeThem) {
    TimeZone::local();
    TimeZone::standard();
    TimeZone::system();
    TimeZone::utc();
    Locale::releaseCache();
    EXPECT_EQ(TimeZone::local(nullptr), nullptr);
    EXPECT_EQ(TimeZone::standard(nullptr), nullptr);
    EXPECT_EQ(TimeZone::system(nullptr), nullptr);
    EXPECT_EQ(TimeZone::utc().timeZoneName(), "GMT");
}

}  // namespace
}  // namespace nolk
