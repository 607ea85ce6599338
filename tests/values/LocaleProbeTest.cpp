#include "nolk/core/platform/LocaleProbe.h"

#include <gtest/gtest.h>

#include <atomic>
#include <clocale>
#include <string>
#include <thread>
#include <vector>

#include "support/RuntimeLocale.h"

namespace nolk::platform {
namespace {

using test::Culture;

// All categories of the process's locale are as before when it goes.
class ProcessLocale {
public:
    explicit ProcessLocale(const char* name)
        : before_(std::setlocale(LC_ALL, nullptr)), isSet_(std::setlocale(LC_ALL, name)) {}
    ~ProcessLocale() { std::setlocale(LC_ALL, before_.c_str()); }

    bool isSet() const { return isSet_; }

    static std::string name() { return std::setlocale(LC_ALL, nullptr); }

private:
    std::string before_;
    bool isSet_;
};

const Culture cultures[] = {Culture::german, Culture::english,  Culture::french,
                            Culture::czech,  Culture::japanese, Culture::indian};

void expectConventions(const LocaleConventions& all, const std::lconv& facts) {
    EXPECT_EQ(all.decimal_point, facts.decimal_point);
    EXPECT_EQ(all.thousands_sep, facts.thousands_sep);
    EXPECT_EQ(all.grouping, facts.grouping);
    EXPECT_EQ(all.int_curr_symbol, facts.int_curr_symbol);
    EXPECT_EQ(all.currency_symbol, facts.currency_symbol);
    EXPECT_EQ(all.mon_decimal_point, facts.mon_decimal_point);
    EXPECT_EQ(all.mon_thousands_sep, facts.mon_thousands_sep);
    EXPECT_EQ(all.mon_grouping, facts.mon_grouping);
    EXPECT_EQ(all.positive_sign, facts.positive_sign);
    EXPECT_EQ(all.negative_sign, facts.negative_sign);
    EXPECT_EQ(all.int_frac_digits, facts.int_frac_digits);
    EXPECT_EQ(all.frac_digits, facts.frac_digits);
    EXPECT_EQ(all.p_cs_precedes, facts.p_cs_precedes);
    EXPECT_EQ(all.p_sep_by_space, facts.p_sep_by_space);
    EXPECT_EQ(all.n_cs_precedes, facts.n_cs_precedes);
    EXPECT_EQ(all.n_sep_by_space, facts.n_sep_by_space);
    EXPECT_EQ(all.p_sign_posn, facts.p_sign_posn);
    EXPECT_EQ(all.n_sign_posn, facts.n_sign_posn);
}

// What the run-time library tells of its locales when the process is switched to them.
void expectAsProcess(const LocaleProbe& probe) {
    EXPECT_EQ(probe.name(), ProcessLocale::name());
    expectConventions(probe.conventions(), *std::localeconv());
    std::tm tm{};
    tm.tm_year = 94;
    tm.tm_mon = 10;
    tm.tm_mday = 6;
    LocaleProbe::normalize(tm);
    EXPECT_EQ(tm.tm_wday, 0);
    EXPECT_EQ(tm.tm_yday, 309);
    for (const char* format : {"%A %B", "%X", "%x", "%c", LocaleProbe::longFormat()}) {
        char text[256];
        const std::size_t length = std::strftime(text, sizeof text, format, &tm);
        EXPECT_EQ(probe.time(format, tm), std::string(text, length));
    }
}

TEST(LocaleProbe, TellsWhatTheProcessWouldBeTold) {
    expectAsProcess(LocaleProbe("C"));
    const test::RuntimeLocales locales;
    for (const Culture culture : cultures) {
        const ProcessLocale process(test::runtimeName(culture));
        ASSERT_TRUE(process.isSet());
        expectAsProcess(LocaleProbe(test::runtimeName(culture)));
    }
}

TEST(LocaleProbe, SeveralThreadsLeaveTheLocaleOfTheProcess) {
    const test::RuntimeLocales locales;
    std::vector<std::thread> threads;
    std::atomic<int> wrong = 0;
    for (int i = 0; i < 8; ++i) {
        const bool isGerman = i % 2 == 0;
        const char* const name = isGerman ? test::runtimeName(Culture::german) : "C";
        threads.emplace_back([&wrong, isGerman, name] {
            for (int round = 0; round < 20; ++round) {
                const LocaleProbe probe(name);
                wrong += probe.conventions().decimal_point != (isGerman ? "," : ".");
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(ProcessLocale::name(), "C");
}

TEST(LocaleProbe, LeavesTheLocaleOfTheProcess) {
    const test::RuntimeLocales locales;
    { const LocaleProbe probe(test::runtimeName(Culture::german)); }
    EXPECT_EQ(ProcessLocale::name(), "C");
    const ProcessLocale process(test::runtimeName(Culture::french));
    const std::string name = ProcessLocale::name();
    EXPECT_NE(name, "C");
    { const LocaleProbe probe("C"); }
    EXPECT_EQ(ProcessLocale::name(), name);
}

TEST(LocaleProbe, WithoutSuchALocaleItIsThatOfTheProcess) {
    const test::RuntimeLocales locales;
    const ProcessLocale process(test::runtimeName(Culture::german));
    ASSERT_TRUE(process.isSet());
    for (const char* name : {"no such locale", static_cast<const char*>(nullptr)}) {
        expectAsProcess(LocaleProbe(name));
    }
    EXPECT_EQ(LocaleProbe("no such locale").conventions().decimal_point, ",");
}

TEST(LocaleProbe, AnEmptyNameIsTheEnvironments) {
    const ProcessLocale process("");
    ASSERT_TRUE(process.isSet());
    const std::string name = ProcessLocale::name();
    EXPECT_EQ(LocaleProbe("").name(), name);
}

TEST(LocaleProbe, CategoriesThatDifferAreNamed) {
    const test::RuntimeLocales locales;
    const ProcessLocale process("C");
    ASSERT_NE(std::setlocale(LC_TIME, test::runtimeName(Culture::german)), nullptr);
    const LocaleProbe probe("no such locale");
    EXPECT_EQ(probe.name(), ProcessLocale::name());
    EXPECT_NE(probe.name().find("LC_TIME="), std::string::npos);
    expectConventions(probe.conventions(), *std::localeconv());
}

TEST(LocaleProbe, TimesThatAreTooLongAreNotWritten) {
    const LocaleProbe probe("C");
    const std::tm tm{};
    EXPECT_EQ(probe.time(std::string(255, 'x').c_str(), tm), std::string(255, 'x'));
    EXPECT_EQ(probe.time(std::string(256, 'x').c_str(), tm), "");
    EXPECT_EQ(probe.time("", tm), "");
}

}  // namespace
}  // namespace nolk::platform
