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
    // Above 0 from the start. Raises RunTimeError "Overflow" after 24 days.
    [[nodiscard]] Long GetTickCount() override {
        return ToLong(static_cast<double>(Since<std::chrono::milliseconds>() + kFirstTick));
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

    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace scenara
