// SPDX-License-Identifier: MIT
//
// SteadyClock: the time since the program began, which no change of the system's clock touches.
#pragma once

#include <chrono>
#include <cstdint>

#include "base/Integers.h"
#include "platform/Clock.h"

namespace scenara {

class SteadyClock : public Clock {
public:
    using Time = std::chrono::steady_clock::time_point;

    // `start`: for tests; by itself the moment in which it is made.
    explicit SteadyClock(Time start = std::chrono::steady_clock::now()) : start_(start) {}

    // Above 0 at the start.
    [[nodiscard]] Long GetTickCount() override {
        return TickOf(Since<std::chrono::milliseconds>() + kFirstTick);
    }
    [[nodiscard]] std::int64_t QueryPerformanceCounter() override {
        return Since<std::chrono::nanoseconds>();
    }
    [[nodiscard]] std::int64_t QueryPerformanceFrequency() override { return std::nano::den; }

private:
    static constexpr std::int64_t kFirstTick = 1000;

    template <typename Unit>
    [[nodiscard]] std::int64_t Since() const {
        return std::chrono::duration_cast<Unit>(std::chrono::steady_clock::now() - start_).count() +
               1;
    }

    Time start_;
};

}  // namespace scenara
