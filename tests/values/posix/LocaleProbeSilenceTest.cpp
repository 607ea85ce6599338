// That nobody sees a locale being probed: Windows can't promise it.

#include "nolk/core/platform/LocaleProbe.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <thread>

#include "support/RuntimeLocale.h"

namespace nolk::platform {
namespace {

TEST(LocaleProbe, NoThreadSeesIt) {
    const test::RuntimeLocales locales;
    const LocaleProbe probe(test::runtimeName(test::Culture::german));
    EXPECT_EQ(probe.conventions().decimal_point, ",");
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
    EXPECT_STREQ(std::localeconv()->decimal_point, ".");
    std::string point;
    std::thread([&] { point = std::localeconv()->decimal_point; }).join();
    EXPECT_EQ(point, ".");
}

}  // namespace
}  // namespace nolk::platform
