// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/headless/HeadlessClock.h"

namespace scenara {
namespace {

TEST(HeadlessClock, BeginsAtASecondAndStandsStill) {
    HeadlessClock clock;
    EXPECT_EQ(clock.GetTickCount(), 1000);
    EXPECT_EQ(clock.GetTickCount(), 1000);
    EXPECT_EQ(clock.QueryPerformanceCounter(), clock.QueryPerformanceFrequency());
}

TEST(HeadlessClock, CountsSixtyFramesToTheSecondWithoutLosingAnyPart) {
    HeadlessClock clock;
    clock.Advance();
    EXPECT_EQ(clock.GetTickCount(), 1016);
    clock.Advance();
    EXPECT_EQ(clock.GetTickCount(), 1033);
    clock.Advance();
    EXPECT_EQ(clock.GetTickCount(), 1050);
    clock.Advance(57);
    EXPECT_EQ(clock.GetTickCount(), 2000);
    for (int frame = 0; frame < 60 * 3600; ++frame) {
        clock.Advance();
    }
    EXPECT_EQ(clock.GetTickCount(), 2000 + 3600 * 1000);
}

TEST(HeadlessClock, TellsTheSameTimeInBothForms) {
    HeadlessClock clock;
    const std::int64_t frequency = clock.QueryPerformanceFrequency();
    for (int frame = 0; frame < 200; ++frame) {
        ASSERT_EQ(clock.GetTickCount(), clock.QueryPerformanceCounter() * 1000 / frequency);
        const std::int64_t before = clock.QueryPerformanceCounter();
        clock.Advance();
        ASSERT_EQ((clock.QueryPerformanceCounter() - before) * 60, frequency);
    }
}

TEST(HeadlessClock, GoesOnFromTheSmallestTickAfterTheLargest) {
    HeadlessClock clock;
    // The last whole frame before 2^31 ms: (2147483647 - 1000) * 60 / 1000.
    clock.Advance(128848958);
    const Long last = clock.GetTickCount();
    EXPECT_EQ(last, 2147483633);
    clock.Advance();
    EXPECT_EQ(clock.GetTickCount(), -2147483646);
    EXPECT_EQ(TicksSince(last, clock.GetTickCount()), 17U);
    clock.Advance(3000);
    EXPECT_EQ(TicksSince(last, clock.GetTickCount()), 50'017U);
}

}  // namespace
}  // namespace scenara
