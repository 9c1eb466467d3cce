// SPDX-License-Identifier: MIT
#include "app/FrameWait.h"

#include <algorithm>

namespace scenara {
namespace {

// The counter's values count in ten-thousandths of the unit that the arithmetic is made in.
constexpr double kFixedPointUnit = 10'000;

}  // namespace

void ReadCounterFrequency(FrameTimes& times, Clock& clock) {
    const std::int64_t counts = clock.QueryPerformanceFrequency();
    times.HasPerfCounter = counts > 0 ? kTrue : kFalse;
    times.CounterFrequency = static_cast<double>(std::max<std::int64_t>(counts, 0));
}

std::int64_t CountsPerFrame(double frequency, Integer limit) {
    const double seconds = frequency * (1000.0 / limit) / 10'000'000.0;
    const double counts = RoundToEven(seconds * kFixedPointUnit);
    constexpr double kMost = 9e18;
    return static_cast<std::int64_t>(std::clamp(counts, -kMost, kMost));
}

void WaitForFrame(FrameTimes& times, Clock& clock, Integer limit,
                  const std::function<void()>& doEvents) {
    times.FrameMark = clock.QueryPerformanceCounter();
    const std::int64_t elapsed = times.FrameMark - times.LastFrameEnd;
    times.WaitTarget = CountsPerFrame(times.CounterFrequency, limit) - elapsed;
    do {
        doEvents();
        times.WaitNow = clock.QueryPerformanceCounter();
    } while (times.WaitNow - times.FrameMark < times.WaitTarget);
    times.LastFrameEnd = clock.QueryPerformanceCounter();
}

void SleepingWait::Wait(FrameTimes& times, Clock& clock, const WaitSteps& steps) {
    const std::int64_t begun = times.LastFrameEnd;
    times.FrameMark = clock.QueryPerformanceCounter();
    for (;;) {
        steps.doEvents();
        times.WaitNow = clock.QueryPerformanceCounter();
        const Integer limit = steps.limit();
        if (limit == 0) {
            times.LastFrameEnd = times.WaitNow;
            return;
        }
        const std::int64_t lasts = CountsPerFrame(times.CounterFrequency, limit);
        times.WaitTarget = lasts - (times.FrameMark - begun);
        const std::int64_t late = times.WaitNow - begun - lasts;
        if (late >= 0) {
            // What took longer than a frame is not made up for.
            const bool isTheWaits = times.WaitTarget > 0 && late < lasts;
            times.LastFrameEnd = isTheWaits ? begun + lasts : times.WaitNow;
            return;
        }
        Sleep(-late, times, clock, steps);
    }
}

// For so many counts, less what it takes to wake up.
void SleepingWait::Sleep(std::int64_t counts, const FrameTimes& times, Clock& clock,
                         const WaitSteps& steps) {
    constexpr double kNanoseconds = 1e9;  // per second
    constexpr double kMostLead = 0.002;   // seconds
    constexpr std::int64_t kForgets = 8;
    counts -= lead_;
    if (counts <= 0) {
        return;
    }
    const double perCount = kNanoseconds / times.CounterFrequency;
    steps.sleep(static_cast<std::int64_t>(static_cast<double>(counts) * perCount));
    const std::int64_t late = clock.QueryPerformanceCounter() - times.WaitNow - counts;
    if (late < 0) {
        return;  // something woke it
    }
    const auto most = static_cast<std::int64_t>(times.CounterFrequency * kMostLead);
    lead_ = std::min(std::max(late, lead_ - (lead_ + kForgets - 1) / kForgets), most);
}

}  // namespace scenara
