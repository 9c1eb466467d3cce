// SPDX-License-Identifier: MIT
//
// Clock: the time, in the two forms that the program reads it in. Neither ever goes back.
#pragma once

#include <cstdint>

#include "base/Integers.h"

namespace scenara {

class Clock {
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    // Milliseconds, above 0.
    [[nodiscard]] virtual Long GetTickCount() = 0;

    // A counter of high resolution, and how often it counts in a second (0: there is none).
    [[nodiscard]] virtual std::int64_t QueryPerformanceCounter() = 0;
    [[nodiscard]] virtual std::int64_t QueryPerformanceFrequency() = 0;
};

}  // namespace scenara
