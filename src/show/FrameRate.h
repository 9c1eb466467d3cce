// SPDX-License-Identifier: MIT
//
// FrameRate: frames are counted, and once a second the information line is made from the count.
#pragma once

#include <optional>
#include <string>

#include "platform/Clock.h"
#include "show/LoopState.h"

namespace scenara {

// One frame more. When more than a second, and not just one, has passed since the last update: the
// frames since then, at most the limit, where there is one, even when the clock lets a few more
// into a second. Then the next second begins, with a fresh tick and no frames yet. Raises
// "Overflow" at the end of a counter's range.
[[nodiscard]] std::optional<Integer> CountFrame(LoopState& loop, Clock& clock);

// The second begins anew, without a frame yet: after a time in which none was counted.
void BeginSecond(LoopState& loop, Clock& clock);

// "Cam 12.5,0  60 FPS": the shown camera, rounded to two decimals, and the frames of the last
// second. CamX is the stored one, negated. Addition: "Cam 12.5,0  Zoom 0.8  60 FPS".
[[nodiscard]] std::string InfoLine(Single CamX, Single CamY, Integer FrameCount,
                                   std::optional<double> zoom = std::nullopt);

}  // namespace scenara
