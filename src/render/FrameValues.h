// SPDX-License-Identifier: MIT
//
// FrameValues, an addition: what the frame that an element shows has beside its picture, in this
// tick.
//
// By the Interpolate lines of MUGEN 1.1 a frame goes over into the next one of the file's order,
// which after the last one is the loopstart, tick by tick: of a frame of time T the tick k, from 0
// to T - 1, shows v = v0 + (v1 - v0) * k / T. So the last tick is a step before the next frame's
// values. A frame that is held for ever goes nowhere. Angles are not brought within a circle, so 0
// to 720 is two turns.
#pragma once

#include "stage/Blending.h"
#include "stage/StageModel.h"

namespace scenara {

struct FrameValues {
    double offsetX = 0;  // pixels of the picture, from the element's axis point
    double offsetY = 0;
    double scaleX = 1;  // within -1024 to 1024
    double scaleY = 1;
    double angle = 0;  // degrees, counter-clockwise
};

// Of the element's current frame. Both raise "Subscript out of range" when that is not in the
// action. Without `additions` the frame's offset alone counts.
[[nodiscard]] FrameValues FrameValuesOf(const StageAction& action, const BackgroundElement& element,
                                        bool additions);

// How that frame is blended. Of two frames that go over into each other one that is not blended
// counts as all of itself and nothing of what lies behind, Add as all of both, Add1 as half of what
// lies behind; parts of 256 are rounded to the nearest. Nothing goes over where both are not
// blended, nor from or to Sub.
[[nodiscard]] Blending FrameBlendingOf(const StageAction& action, const BackgroundElement& element);

}  // namespace scenara
