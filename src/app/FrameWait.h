// SPDX-License-Identifier: MIT
//
// FrameWait: a frame lasts at least as long as the frame limit says, from the end of one frame's
// wait to the end of the next; the time that drawing took counts.
//
// It is a busy wait on the counter of high resolution, with one check for messages in each of its
// passes, and at least one per frame. The first wait of a program run finds LastFrameEnd at 0 and
// does not wait.
#pragma once

#include <cstdint>
#include <functional>

#include "base/Integers.h"
#include "platform/Clock.h"

namespace scenara {

// All counts are raw ones of the counter.
struct FrameTimes {
    double CounterFrequency = 0;  // counts per second
    Integer HasPerfCounter = kFalse;
    std::int64_t FrameMark = 0;     // when the pacing of this frame began
    std::int64_t LastFrameEnd = 0;  // when the last one's wait ended
    std::int64_t WaitNow = 0;       // read in each pass of the wait
    std::int64_t WaitTarget = 0;    // counts still to wait for this frame
};

// Reads the counter's frequency; without a counter it is 0, and no frame waits.
void ReadCounterFrequency(FrameTimes& times, Clock& clock);

// Counts that a frame lasts: the frequency times (1000 / limit) / 10,000,000, in ten-thousandths,
// rounded to a whole count. `limit` is not 0.
[[nodiscard]] std::int64_t CountsPerFrame(double frequency, Integer limit);

// Waits for this frame's end; `doEvents` is called in each pass.
void WaitForFrame(FrameTimes& times, Clock& clock, Integer limit,
                  const std::function<void()>& doEvents);

}  // namespace scenara
