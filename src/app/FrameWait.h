// SPDX-License-Identifier: MIT
//
// FrameWait: a frame lasts at least as long as the frame limit says, from the end of one frame's
// wait to the end of the next; the time that drawing took counts.
//
// Plain, it is a busy wait on the counter of high resolution, with one check for messages in each
// of its passes, and at least one per frame. The first wait of a program run finds LastFrameEnd at
// 0 and does not wait.
//
// Addition: it sleeps until shortly before the frame's moment and spins the rest.
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
    std::int64_t LastFrameEnd = 0;  // when the last one's wait ended, or was to end
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

// How often, and how exactly, the loop is to go round.
struct Pace {
    Integer limit = 0;  // frames a second; 0: the wait is over
    bool exact = true;  // else the wait ends when the sleep does: nobody sees the difference
};

// What a sleeping wait is made of.
struct WaitSteps {
    // Lets messages through: at least once per frame, and after each sleep.
    std::function<void()> doEvents;
    // Asked after each doEvents, which may have changed it.
    std::function<Pace()> pace;
    // Sleeps at most so many nanoseconds, as Window::SleepUntilMessage does.
    std::function<void(std::int64_t)> sleep;
};

// The wait that leaves the processor to others. Sleeps end late: by how much is measured each time,
// and the next sleep ends so much earlier. A frame whose wait ends late all the same does not make
// the next one late: that is to end when it would have ended anyway.
class SleepingWait {
public:
    void Wait(FrameTimes& times, Clock& clock, const WaitSteps& steps);

    // How many counts before its moment a sleep is to end. A late one counts whole at once, up to
    // 1 ms: one that was so late by chance must not cost more than that. It is forgotten by an
    // eighth with each sleep that is less late, and with each frame that leaves no time for one.
    [[nodiscard]] std::int64_t Lead() const { return lead_; }

private:
    bool Sleep(std::int64_t counts, std::int64_t lead, const FrameTimes& times, Clock& clock,
               const WaitSteps& steps);

    std::int64_t lead_ = 0;
};

}  // namespace scenara
