// SPDX-License-Identifier: MIT
#include "show/FrameRate.h"

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RunTimeError.h"

namespace scenara {
namespace {

using testing::ThrowsMessage;

// A clock that answers what it is told to, one tick later at each call.
class SetClock : public Clock {
public:
    explicit SetClock(Long tick) : tick_(tick) {}
    Long GetTickCount() override { return tick_++; }
    std::int64_t QueryPerformanceCounter() override { return 0; }
    std::int64_t QueryPerformanceFrequency() override { return 0; }

private:
    Long tick_;
};

TEST(FrameRate, AFreshLoopHasCountedNothingAndIsLimitedTo60) {
    const LoopState loop;
    EXPECT_EQ(loop.FpsLimit, 60);
    EXPECT_EQ(loop.FrameCount, 0);
    EXPECT_EQ(loop.TotalFrames, 0);
    EXPECT_EQ(kNoFpsTick, -1000);
}

TEST(FrameRate, AFrameIsCountedTwice) {
    LoopState loop;
    loop.FrameCount = 7;
    loop.TotalFrames = 700;
    SetClock clock(0);
    EXPECT_EQ(CountFrame(loop, clock), std::nullopt);
    EXPECT_EQ(loop.FrameCount, 8);
    EXPECT_EQ(loop.TotalFrames, 701);
}

TEST(FrameRate, ACounterThatRunsOverIsAnError) {
    LoopState loop;
    SetClock clock(0);
    loop.FrameCount = std::numeric_limits<Integer>::max();
    EXPECT_THAT([&] { return CountFrame(loop, clock); },
                ThrowsMessage<RunTimeError>(testing::StartsWith("Overflow")));
    loop.FrameCount = 0;
    loop.TotalFrames = std::numeric_limits<Long>::max();
    EXPECT_THAT([&] { return CountFrame(loop, clock); },
                ThrowsMessage<RunTimeError>(testing::StartsWith("Overflow")));
}

TEST(FrameRate, ASecondIsOverOnlyWhenMoreThanOneHasPassed) {
    constexpr Long kLast = std::numeric_limits<Long>::max();
    constexpr Long kFirst = std::numeric_limits<Long>::min();
    struct Row {
        const char* name;
        Long from;
        Long to;
        bool over;
    };
    for (const Row& row : {Row{"at once", 5000, 5000, false},
                           {"just before", 5000, 5999, false},
                           {"one second", 5000, 6000, false},
                           {"and a tick", 5000, 6001, true},
                           {"long after", 5000, 9000, true},
                           {"up to the last tick", kLast - 10, kLast, false},
                           {"a second past the last tick", kLast - 10, kFirst + 989, false},
                           {"more than a second past it", kLast - 10, kFirst + 990, true},
                           {"long past it", kLast - 10, -5, true},
                           {"past 0, a second", -500, 500, false},
                           {"past 0, more", -500, 501, true}}) {
        LoopState loop;
        loop.LastFpsTick = row.from;
        SetClock clock(row.to);
        EXPECT_EQ(CountFrame(loop, clock).has_value(), row.over) << row.name;
    }
}

TEST(FrameRate, TheFirstPassOfALoopUpdates) {
    LoopState loop;
    loop.LastFpsTick = kNoFpsTick;
    SetClock zero(0);
    EXPECT_EQ(CountFrame(loop, zero), std::nullopt) << "exactly 1000 ms are not more";
    SetClock one(1);
    EXPECT_EQ(CountFrame(loop, one), 2);
}

TEST(FrameRate, TheCountIsAtMostTheLimitWhereThereIsOne) {
    struct Row {
        Integer limit;
        Integer before;
        Integer told;
    };
    for (const Row& row : {Row{60, 60, 60}, Row{60, 59, 60}, Row{60, 58, 59}, Row{0, 899, 900}}) {
        LoopState loop;
        loop.FpsLimit = row.limit;
        loop.FrameCount = row.before;
        SetClock clock(2000);
        EXPECT_EQ(CountFrame(loop, clock), row.told) << row.limit << ", " << row.before;
    }
}

TEST(FrameRate, ASecondBeginsWithAFreshTickAndNoFrames) {
    LoopState loop;
    loop.LastFpsTick = 100;
    loop.FrameCount = 60;
    loop.TotalFrames = 600;
    SetClock clock(2000);
    ASSERT_TRUE(CountFrame(loop, clock));
    EXPECT_EQ(loop.LastFpsTick, 2001) << "not the tick that was compared";
    EXPECT_EQ(loop.FrameCount, 0);
    EXPECT_EQ(loop.TotalFrames, 601);
}

TEST(InfoLine, NamesTheShownCameraAndTheFrames) {
    EXPECT_EQ(InfoLine(-12.5F, 0, 60), "Cam 12.5,0  60 FPS");
    EXPECT_EQ(InfoLine(12.5F, -3, 0), "Cam -12.5,-3  0 FPS");
}

TEST(InfoLine, NamesTheZoomWhereItIsTold) {
    EXPECT_EQ(InfoLine(-12.5F, 0, 60, 0.8), "Cam 12.5,0  Zoom 0.8  60 FPS");
    EXPECT_EQ(InfoLine(-12.5F, 0, 60, 1.0 / 3), "Cam 12.5,0  Zoom 0.33  60 FPS");
    EXPECT_EQ(InfoLine(-12.5F, 0, 60, 1), "Cam 12.5,0  Zoom 1  60 FPS");
}

TEST(InfoLine, NothingIsNeverMinusNothing) {
    EXPECT_EQ(InfoLine(0, 0, 1), "Cam 0,0  1 FPS");
    EXPECT_EQ(InfoLine(-0.0F, -0.0F, 1), "Cam 0,0  1 FPS");
    EXPECT_EQ(InfoLine(0.001F, -0.004F, 1), "Cam 0,0  1 FPS");
}

TEST(InfoLine, HasTwoDecimalsAtMostTiesToTheEvenOne) {
    EXPECT_EQ(InfoLine(-0.1F, -1.0F / 3.0F, 60), "Cam 0.1,-0.33  60 FPS");
    EXPECT_EQ(InfoLine(-0.125F, -0.375F, 60), "Cam 0.12,-0.38  60 FPS");
    EXPECT_EQ(InfoLine(-100.456F, -20.5F, 60), "Cam 100.46,-20.5  60 FPS");
    EXPECT_EQ(InfoLine(0.5F, -0.5F, 60), "Cam -0.5,-0.5  60 FPS");
}

TEST(InfoLine, LargeNumbersHaveNoExponent) {
    EXPECT_EQ(InfoLine(-1234567.0F, 0, 32767), "Cam 1234567,0  32767 FPS");
}

}  // namespace
}  // namespace scenara
