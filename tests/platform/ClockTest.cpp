#include "nolk/core/platform/Clock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>

namespace nolk::platform {
namespace {

using namespace std::chrono;

template <typename Unit>
std::int64_t now() {
    return floor<Unit>(system_clock::now()).time_since_epoch().count();
}

TEST(Clock, CountsMillisecondsFrom1970) {
    const std::int64_t before = now<milliseconds>();
    const std::int64_t told = currentMilliseconds();
    const std::int64_t after = now<milliseconds>();
    EXPECT_LE(before, told);
    EXPECT_LE(told, after);
}

TEST(Clock, CountsSecondsFrom1970) {
    const std::int64_t before = now<seconds>();
    const std::int64_t told = currentSeconds();
    const std::int64_t after = now<seconds>();
    EXPECT_LE(before, told);
    EXPECT_LE(told, after);
}

}  // namespace
}  // namespace nolk::platform
