// SPDX-License-Identifier: MIT
#include <chrono>

#include <gtest/gtest.h>

#include "platform/posix/SteadyClock.h"

namespace scenara {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;

SteadyClock RunningFor(milliseconds time) {
    return SteadyClock(std::chrono::steady_clock::now() - time);
}

TEST(SteadyClock, BeginsAboveNothing) {
    SteadyClock clock;
    EXPECT_GT(clock.GetTickCount(), 0);
}

TEST(SteadyClock, GoesOnFromTheSmallestTickAfter24Days) {
    SteadyClock before = RunningFor(hours(24 * 24));
    SteadyClock after = RunningFor(hours(25 * 24));
    EXPECT_GT(before.GetTickCount(), 0);
    EXPECT_LT(after.GetTickCount(), 0);
    constexpr milliseconds kDay = hours(24);
    const std::uint32_t between = TicksSince(before.GetTickCount(), after.GetTickCount());
    EXPECT_GE(between, kDay.count() - 1);
}

TEST(SteadyClock, RunsForYears) {
    SteadyClock clock = RunningFor(hours(24 * 365 * 20));
    const Long tick = clock.GetTickCount();
    const std::int64_t count = clock.QueryPerformanceCounter();
    EXPECT_LT(TicksSince(tick, clock.GetTickCount()), 24U * 60 * 60 * 1000);
    EXPECT_GE(clock.QueryPerformanceCounter(), count);
    EXPECT_GT(count, 0);
}

}  // namespace
}  // namespace scenara
