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

}  // namespace scenara
