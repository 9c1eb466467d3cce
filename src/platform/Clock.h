// SPDX-License-Identifier: MIT
//
// Clock: the time, in the two forms that the program reads it in. Neither ever stops the program,
// however long it runs.
#pragma once

#include <cstdint>

#include "base/Integers.h"
#include "base/NotCopied.h"

namespace scenara {

// The tick of a count of milliseconds.
[[nodiscard]] constexpr Long TickOf(std::int64_t milliseconds) {
    return static_cast<Long>(static_cast<std::uint32_t>(milliseconds));
}

// The milliseconds from one tick to a later one, at most 49.7 days.
[[nodiscard]] constexpr std::uint32_t TicksSince(Long then, Long now) {
    return static_cast<std::uint32_t>(now) - static_cast<std::uint32_t>(then);
}

class Clock : NotCopied {
public:
    virtual ~Clock() = default;

    // Milliseconds since a moment of the machine's own, modulo 2^32: after 24.8 days the tick above
    // the largest Long is the smallest one. So one tick alone says nothing; TicksSince compares
    // two.
    [[nodiscard]] virtual Long GetTickCount() = 0;

    // A counter of high resolution that never goes back, and how often it counts in a second (0:
    // there is none).
    [[nodiscard]] virtual std::int64_t QueryPerformanceCounter() = 0;
    [[nodiscard]] virtual std::int64_t QueryPerformanceFrequency() = 0;
};

}  // namespace scenara
