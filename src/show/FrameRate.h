// SPDX-License-Identifier: MIT
//
// FrameRate: frames are counted, and once a second the information line is made from the count.
#pragma once

#include <string>

#include "platform/Clock.h"
#include "show/LoopState.h"

namespace scenara {

// One frame more. Raises "Overflow" at the end of a counter's range.
void CountFrame(LoopState& loop);

// Whether more than a second, and not just one, has passed since the last update.
[[nodiscard]] bool SecondIsOver(const LoopState& loop, Clock& clock);

// The count is at most the limit, where there is one: the shown rate does not exceed it even when
// the clock lets a few frames more into a second.
void LimitFrameCount(LoopState& loop);

// The next second begins: a fresh tick, and no frames yet.
void BeginSecond(LoopState& loop, Clock& clock);

// "Cam 12.5,0  60 FPS": the shown camera, rounded to two decimals, and the frames of the last
// second. CamX is the stored one, negated.
[[nodiscard]] std::string InfoLine(Single CamX, Single CamY, Integer FrameCount);

}  // namespace scenara
