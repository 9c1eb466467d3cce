// SPDX-License-Identifier: MIT
#include "app/FrameWait.h"

#include <algorithm>

namespace scenara {
namespace {

// The counter's values count in ten-thousandths of the unit that the arithmetic is made in.
constexpr double kFixedPointUnit = 10'000;

std::int64_t MostLead(const FrameTimes& times) {
    constexpr double kSeconds = 0.001;
    return static_cast<std::int64_t>(times.CounterFrequency * kSeconds);
}

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
    bool hasSlept = false;
    for (;;) {
        steps.doEvents();
        times.WaitNow = clock.QueryPerformanceCounter();
        const Pace pace = steps.pace();
        if (pace.limit == 0) {
            times.LastFrameEnd = times.WaitNow;
            return;
        }
        const std::int64_t lasts = CountsPerFrame(times.CounterFrequency, pace.limit);
        times.WaitTarget = lasts - (times.FrameMark - begun);
        const std::int64_t late = times.WaitNow - begun - lasts;
        if (late >= 0) {
            // What took longer than a frame is not made up for.
            const bool isTheWaits = times.WaitTarget > 0 && late < lasts;
            times.LastFrameEnd = isTheWaits ? begun + lasts : times.WaitNow;
            return;
        }
        // What is left after a sleep is spun, unless the limit has changed.
        if (!hasSlept || -late > MostLead(times)) {
            hasSlept = Sleep(-late, pace.exact ? lead_ : 0, times, clock, steps);
        }
    }
}

// For so many counts, less the lead. False: an event has ended it.
bool SleepingWait::Sleep(std::int64_t counts, std::int64_t lead, const FrameTimes& times,
                         Clock& clock, const WaitSteps& steps) {
    constexpr double kNanoseconds = 1e9;  // per second
    constexpr std::int64_t kForgets = 8;
    const std::int64_t kept = lead_ - (lead_ + kForgets - 1) / kForgets;
    counts -= lead;
    if (counts <= 0) {
        lead_ = kept;  // short frames would never find out that it is too much
        return true;
    }
    const double perCount = kNanoseconds / times.CounterFrequency;
    steps.sleep(static_cast<std::int64_t>(static_cast<double>(counts) * perCount));
    const std::int64_t late = clock.QueryPerformanceCounter() - times.WaitNow - counts;
    if (late < 0) {
        return false;
    }
    lead_ = std::min(std::max(late, kept), MostLead(times));
    return true;
}

}  // namespace scenara
