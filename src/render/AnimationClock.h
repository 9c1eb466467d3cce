// SPDX-License-Identifier: MIT
//
// The clock of animated elements, a tick per frame drawn.
//
// A frame of time t is on screen for t ticks, the first one included. A negative time holds it for
// ever; a frame of time 0 is passed over. After the last frame comes the action's loopstart, or the
// first where that is no frame. Disabled elements stand still, hidden ones run on.
#pragma once

#include <cstddef>

#include "stage/StageModel.h"

namespace scenara {

// The frame that comes after the last one.
[[nodiscard]] std::size_t LoopStart(const StageAction& action);

// What the frames' words and times come to, so that no tick has to look for the next frame: which
// way each is turned round, and which one follows it.
void ResolveFrames(StageAction& action);

// One tick of one element, whose actions' frames are resolved; without effect when it is not
// animated or has no frames. Raises "Subscript out of range" when its action or frame is not in its
// table.
void TickAnimation(const StageModel& model, BackgroundElement& element);

}  // namespace scenara
