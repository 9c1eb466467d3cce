// SPDX-License-Identifier: MIT
//
// LoopState: the counters and flags of the loop that shows a stage.
#pragma once

#include "base/Integers.h"

namespace scenara {

struct LoopState {
    Byte StageRunning = 0;   // a stage is loaded and its loop may run
    Byte LoadingStage = 0;   // a stage, or a character, is being loaded
    Byte Paused = 0;         // 255: nothing goes on
    Integer FpsLimit = 60;   // frames per second; 0 = as many as there are
    Integer FrameCount = 0;  // frames drawn since the last once-a-second update
    Long TotalFrames = 0;    // frames drawn since the stage was opened
    Long LastFpsTick = 0;    // the tick of that update
};

// Where LastFpsTick stands when a loop begins: the first pass updates already.
inline constexpr Long kNoFpsTick = -1000;

}  // namespace scenara
