// SPDX-License-Identifier: MIT
//
// The sleeping wait on a clock of microseconds whose sleeps end as late as a script says.
#include <algorithm>
#include <cstdint>
#include <deque>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/FrameWait.h"
#include "support/AllocationCount.h"
#include "support/Rounds.h"

namespace scenara::test {
namespace {

constexpr std::int64_t kPerSecond = 1'000'000;
constexpr std::int64_t kBegun = 5 * kPerSecond;
constexpr std::int64_t kMostLead = 1000;
constexpr std::int64_t kFrame60 = 16'667;

// A machine on which nothing takes time but looks and sleeps.
class SleepyMachine : public Clock {
public:
    Long GetTickCount() override { return 1; }
    std::int64_t QueryPerformanceCounter() override { return now; }
    std::int64_t QueryPerformanceFrequency() override { return kPerSecond; }

    void Sleep(std::int64_t nanoseconds) {
        const std::int64_t until = now + nanoseconds / 1000;
        sleeps.push_back(nanoseconds / 1000);
        if (!wakes.empty() && wakes.front() < until) {
            now = std::max(now, wakes.front());
            wakes.pop_front();
            return;
        }
        now = until;
        if (!late.empty()) {
            now += late.front();
            late.pop_front();
        }
    }

    std::int64_t now = kBegun;
    std::deque<std::int64_t> late;   // of each sleep to its end; then none is
    std::deque<std::int64_t> wakes;  // when an event ends a sleep
    std::vector<std::int64_t> sleeps;
};

class Sleeping : public testing::Test {
protected:
    Sleeping() {
        times.CounterFrequency = kPerSecond;
        times.LastFrameEnd = kBegun;
    }

    void Wait() {
        wait.Wait(times, machine,
                  {[this] {
                       ++looks;
                       machine.now += lookTakes;
                   },
                   [this] {
                       return Pace{limits.at(std::min(asked++, limits.size() - 1)), exact};
                   },
                   [this](std::int64_t most) { machine.Sleep(most); }});
    }
    // How late the wait is when it ends.
    std::int64_t EndsLate() {
        Wait();
        return machine.now - times.LastFrameEnd;
    }

    SleepyMachine machine;
    FrameTimes times;
    SleepingWait wait;
    std::vector<Integer> limits{60};  // after each look; then the last one
    bool exact = true;
    std::int64_t lookTakes = 1;
    int looks = 0;
    std::size_t asked = 0;
};

// --- How early a sleep is to end
// ------------------------------------------------------------------

struct LateSleeps {
    const char* name;
    std::vector<std::int64_t> late;  // of each frame's sleep
    std::vector<std::int64_t> ends;  // how late each frame ends then
    std::int64_t lead;               // in the end
};

void PrintTo(const LateSleeps& row, std::ostream* out) {
    *out << row.name;
}

class OfSleeps : public Sleeping, public testing::WithParamInterface<LateSleeps> {};

TEST_P(OfSleeps, FramesEndInTheirMomentAsFarAsLatenessIsKnown) {
    std::vector<std::int64_t> ends;
    std::int64_t due = kBegun;
    for (const std::int64_t late : GetParam().late) {
        machine.late = {late};
        machine.now += 3000;  // drawing
        ends.push_back(EndsLate());
        due += kFrame60;
        EXPECT_EQ(times.LastFrameEnd, due) << "the next one ends when it would have anyway";
    }
    EXPECT_EQ(ends, GetParam().ends);
    EXPECT_EQ(wait.Lead(), GetParam().lead);
}

// A look takes 1: it comes after the sleep.
INSTANTIATE_TEST_SUITE_P(
    Of, OfSleeps,
    testing::Values(LateSleeps{"NotLate", {0, 0, 0}, {1, 1, 1}, 0},
                    LateSleeps{"AlwaysTheSame", {70, 70, 70}, {71, 1, 1}, 70},
                    LateSleeps{"LaterAndLater", {70, 100, 200}, {71, 31, 101}, 200},
                    LateSleeps{"LessLate", {80, 70, 70, 10}, {81, 0, 1, 0}, 61},
                    LateSleeps{"OneMuchTooLate", {9000, 50, 50, 50}, {9001, 0, 0, 0}, 669},
                    LateSleeps{
                        "AlwaysMuchTooLate", {9000, 9000, 9000}, {9001, 8001, 8001}, kMostLead}),
    testing::PrintToStringParamName());

TEST_F(Sleeping, AnOutlierIsForgotten) {
    machine.late = {kFrame60 / 2};
    Wait();
    EXPECT_EQ(wait.Lead(), kMostLead);
    for (int frame = 0; frame < 40; ++frame) {
        machine.late = {50};
        EXPECT_LE(EndsLate(), 1);
    }
    EXPECT_EQ(wait.Lead(), 50);
}

TEST_F(Sleeping, NoFrameIsLaterThanItsSleepWasBeyondTheLead) {
    std::mt19937 random(2021);
    std::uniform_int_distribution<std::int64_t> lateness(0, kMostLead + 500);
    std::uniform_int_distribution<std::int64_t> drawing(0, 12'000);
    std::int64_t due = kBegun;
    for (int round = 0; round < Rounds(20'000); ++round) {
        const std::int64_t late = lateness(random);
        const std::int64_t lead = wait.Lead();
        machine.late = {late};
        machine.now += drawing(random);
        due += kFrame60;
        ASSERT_LE(EndsLate(), std::max<std::int64_t>(late - lead, 0) + 1);
        ASSERT_GE(machine.now, due) << "and none ends early";
        ASSERT_EQ(times.LastFrameEnd, due);
        ASSERT_LE(wait.Lead(), kMostLead);
        ASSERT_GE(wait.Lead(), std::min(late, kMostLead));
    }
}

// --- What ends a wait, and what does not
// ----------------------------------------------------------

TEST_F(Sleeping, AnEventIsDeliveredAtOnceAndTheRestIsSlept) {
    machine.wakes = {kBegun + 1000, kBegun + 9000};
    EXPECT_EQ(EndsLate(), 1);
    EXPECT_EQ(looks, 4) << "first, after each event, at the end";
    EXPECT_EQ(machine.sleeps,
              (std::vector<std::int64_t>{kFrame60 - 1, kFrame60 - 1001, kFrame60 - 9001}));
    EXPECT_EQ(wait.Lead(), 0) << "an early end says nothing of late ones";
}

struct ChangingLimit {
    const char* name;
    std::vector<Integer> limits;       // first; after each event
    std::vector<std::int64_t> events;  // when they come, in ms
    std::int64_t ends;                 // after the last frame's end
};

void PrintTo(const ChangingLimit& row, std::ostream* out) {
    *out << row.name;
}

class OfLimits : public Sleeping, public testing::WithParamInterface<ChangingLimit> {};

TEST_P(OfLimits, HoldAsTheyAreAfterEachLook) {
    limits = GetParam().limits;
    lookTakes = 0;
    for (const std::int64_t event : GetParam().events) {
        machine.wakes.push_back(kBegun + event * 1000);
    }
    Wait();
    EXPECT_EQ(machine.now, kBegun + GetParam().ends);
    EXPECT_EQ(times.LastFrameEnd, machine.now);
}

INSTANTIATE_TEST_SUITE_P(
    Of, OfLimits,
    testing::Values(ChangingLimit{"One", {1}, {}, kPerSecond},
                    ChangingLimit{"AThousand", {1000}, {}, 1000},
                    ChangingLimit{"Most", {32767}, {}, 31},
                    ChangingLimit{"BelowNothing", {-60}, {}, 0}, ChangingLimit{"None", {0}, {}, 0},
                    ChangingLimit{"Lower", {60, 30}, {5}, 33'333},
                    ChangingLimit{"Higher", {1, 60}, {5}, kFrame60},
                    ChangingLimit{"HigherTooLate", {1, 60}, {500}, 500'000},
                    ChangingLimit{"Off", {1, 0}, {500}, 500'000},
                    ChangingLimit{"OnAndOn", {1, 1, 1}, {300, 600}, kPerSecond}),
    testing::PrintToStringParamName());

TEST_F(Sleeping, TheFirstOneOfAProgramDoesNotWait) {
    times.LastFrameEnd = 0;
    Wait();
    EXPECT_EQ(looks, 1);
    EXPECT_EQ(times.LastFrameEnd, machine.now);
    EXPECT_TRUE(machine.sleeps.empty());
}

TEST_F(Sleeping, AFrameThatTookLongerLooksOnceAndIsNotMadeUpFor) {
    machine.now += kFrame60 + 10;
    Wait();
    EXPECT_EQ(looks, 1);
    EXPECT_TRUE(machine.sleeps.empty());
    EXPECT_EQ(times.LastFrameEnd, machine.now);
}

TEST_F(Sleeping, AWaitThatIsAWholeFrameLateIsNotMadeUpFor) {
    machine.late = {kFrame60};
    Wait();
    EXPECT_EQ(times.LastFrameEnd, machine.now);
}

TEST_F(Sleeping, WithoutACounterNoFrameWaits) {
    times.CounterFrequency = 0;
    Wait();
    EXPECT_EQ(looks, 1);
    EXPECT_TRUE(machine.sleeps.empty());
}

TEST_F(Sleeping, WhatIsLessThanTheLeadIsSpunWithALookInEachPass) {
    limits = {1000};
    machine.late = {1500};
    Wait();
    machine.sleeps.clear();
    looks = 0;
    const std::int64_t from = machine.now;
    Wait();
    EXPECT_TRUE(machine.sleeps.empty());
    EXPECT_EQ(looks, machine.now - from);
    for (int frame = 0; frame < 20; ++frame) {
        Wait();
    }
    EXPECT_FALSE(machine.sleeps.empty()) << "it tries again";
}

TEST_F(Sleeping, WhereNothingIsSeenNothingIsSpun) {
    machine.late = {1500};
    Wait();
    exact = false;
    for (int frame = 0; frame < 10; ++frame) {
        machine.late = {800};
        looks = 0;
        EXPECT_EQ(EndsLate(), 801) << "and yet the next one ends when it would have anyway";
        EXPECT_EQ(looks, 2);
    }
}

TEST_F(Sleeping, TakesNoMemory) {
    machine.sleeps.reserve(100);
    const std::size_t before = AllocationCount();
    for (int frame = 0; frame < 10; ++frame) {
        Wait();
    }
    EXPECT_EQ(AllocationCount(), before);
}

}  // namespace
}  // namespace scenara::test
