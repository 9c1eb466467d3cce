// SPDX-License-Identifier: MIT
#include "app/FrameWait.h"

#include <cstdint>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace scenara {
namespace {

// Answers one reading after the other, then the last one for ever.
class ReadClock : public Clock {
public:
    ReadClock(std::int64_t frequency, std::vector<std::int64_t> readings)
        : frequency_(frequency), readings_(std::move(readings)) {}

    Long GetTickCount() override { return 1; }
    std::int64_t QueryPerformanceCounter() override {
        ++asked;
        const std::int64_t reading = readings_.front();
        if (readings_.size() > 1) {
            readings_.erase(readings_.begin());
        }
        return reading;
    }
    std::int64_t QueryPerformanceFrequency() override { return frequency_; }

    int asked = 0;

private:
    std::int64_t frequency_;
    std::vector<std::int64_t> readings_;
};

// Answers what a counter of the test's own stands at.
class TickingClock : public Clock {
public:
    explicit TickingClock(const std::int64_t& counter) : counter_(counter) {}
    Long GetTickCount() override { return 1; }
    std::int64_t QueryPerformanceCounter() override { return counter_; }
    std::int64_t QueryPerformanceFrequency() override { return 60'000; }

private:
    const std::int64_t& counter_;
};

TEST(CounterFrequency, IsTheCountersOwn) {
    FrameTimes times;
    ReadClock clock(3'579'545, {0});
    ReadCounterFrequency(times, clock);
    EXPECT_EQ(times.CounterFrequency, 3'579'545.0);
    EXPECT_EQ(times.HasPerfCounter, kTrue);
}

TEST(CounterFrequency, IsNothingWithoutACounter) {
    FrameTimes times;
    times.CounterFrequency = 5;
    ReadClock clock(0, {0});
    ReadCounterFrequency(times, clock);
    EXPECT_EQ(times.CounterFrequency, 0.0);
    EXPECT_EQ(times.HasPerfCounter, kFalse);
}

TEST(CountsPerFrame, AreTheFrequencyByTheLimitInWholeCounts) {
    EXPECT_EQ(CountsPerFrame(60'000, 60), 1000);
    EXPECT_EQ(CountsPerFrame(3'579'545, 60), 59'659);          // 59659.083
    EXPECT_EQ(CountsPerFrame(1'000'000'000, 60), 16'666'667);  // 16666666.67
    EXPECT_EQ(CountsPerFrame(10'000'000, 1), 10'000'000);
    EXPECT_EQ(CountsPerFrame(1000, 32767), 0);
    EXPECT_EQ(CountsPerFrame(0, 60), 0) << "no counter";
}

TEST(CountsPerFrame, OfALimitBelowNothingAreBelowNothing) {
    EXPECT_EQ(CountsPerFrame(60'000, -60), -1000);
}

class FrameWait : public testing::Test {
protected:
    // Frames of 1000 counts.
    void Wait(std::vector<std::int64_t> readings) {
        times_.CounterFrequency = 60'000;
        ReadClock clock(60'000, std::move(readings));
        WaitForFrame(times_, clock, 60, [&] { ++checks_; });
        asked_ = clock.asked;
    }

    FrameTimes times_;
    int checks_ = 0;
    int asked_ = 0;
};

TEST_F(FrameWait, LastsUntilTheFrameHasHadItsCounts) {
    times_.LastFrameEnd = 5000;
    // Drawing took 300; 700 are left.
    Wait({5300, 5301, 5500, 5999, 6000, 6002});
    EXPECT_EQ(checks_, 4);
    EXPECT_EQ(times_.FrameMark, 5300);
    EXPECT_EQ(times_.WaitTarget, 700);
    EXPECT_EQ(times_.WaitNow, 6000) << "exactly the target is enough";
    EXPECT_EQ(times_.LastFrameEnd, 6002);
    EXPECT_EQ(asked_, 6);
}

TEST_F(FrameWait, ASlowFrameChecksOnceAndGoesOn) {
    times_.LastFrameEnd = 5000;
    Wait({7000, 7001, 7003});
    EXPECT_EQ(checks_, 1);
    EXPECT_EQ(times_.WaitTarget, -1000);
    EXPECT_EQ(times_.LastFrameEnd, 7003);
}

TEST_F(FrameWait, TheFirstOneOfAProgramDoesNotWait) {
    Wait({1'000'000, 1'000'001, 1'000'002});
    EXPECT_EQ(checks_, 1);
    EXPECT_EQ(times_.LastFrameEnd, 1'000'002);
}

TEST_F(FrameWait, FramesFollowFromEndToEnd) {
    std::int64_t now = 10'000;
    TickingClock clock(now);
    times_.LastFrameEnd = now;
    times_.CounterFrequency = 60'000;
    for (int frame = 1; frame <= 3; ++frame) {
        now += 300;  // drawing
        WaitForFrame(times_, clock, 60, [&] { now += 10; });
        EXPECT_EQ(now, 10'000 + frame * 1000);
    }
}

TEST_F(FrameWait, WithoutACounterNoFrameWaits) {
    times_.CounterFrequency = 0;
    ReadClock clock(0, {0});
    WaitForFrame(times_, clock, 60, [&] { ++checks_; });
    EXPECT_EQ(checks_, 1);
}

}  // namespace
}  // namespace scenara
