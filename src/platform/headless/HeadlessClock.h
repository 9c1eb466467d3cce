// SPDX-License-Identifier: MIT
//
// HeadlessClock: a clock that stands still until it is told to go on, by whole frames of 1000/60 ms
// each. It begins at 1000 ms. Nothing is lost to rounding: after n frames the milliseconds are
// 1000 + floor(n * 1000 / 60), and the counter of high resolution is exact at every frame.
#pragma once

#include <cstdint>

#include "platform/Clock.h"

namespace scenara {

class HeadlessClock : public Clock {
public:
    // A counter in which a millisecond and a frame both are whole.
    static constexpr std::int64_t kCountsPerMillisecond = 60;
    static constexpr std::int64_t kCountsPerFrame = 1000;
    static constexpr std::int64_t kFrequency = 1000 * kCountsPerMillisecond;
    static constexpr std::int64_t kStart = 1000 * kCountsPerMillisecond;

    [[nodiscard]] Long GetTickCount() override { return TickOf(counter_ / kCountsPerMillisecond); }
    [[nodiscard]] std::int64_t QueryPerformanceCounter() override {
        counter_ += countsPerLook_;
        return counter_;
    }
    [[nodiscard]] std::int64_t QueryPerformanceFrequency() override { return kFrequency; }

    void Advance(std::uint32_t frames = 1) { counter_ += kCountsPerFrame * frames; }

    // The program sleeps: it wakes with the first count that is not too early.
    void Sleep(std::int64_t nanoseconds) {
        constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
        const std::int64_t seconds = nanoseconds / kNanosecondsPerSecond;
        const std::int64_t rest = nanoseconds % kNanosecondsPerSecond * kFrequency;
        counter_ +=
            seconds * kFrequency + (rest + kNanosecondsPerSecond - 1) / kNanosecondsPerSecond;
    }

    // From now on each look at the counter takes so long: the machine is slow.
    void SetCountsPerLook(std::int64_t counts) { countsPerLook_ = counts; }

private:
    std::int64_t countsPerLook_ = 0;
    std::int64_t counter_ = kStart;
};

}  // namespace scenara
