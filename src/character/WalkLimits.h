// SPDX-License-Identifier: MIT
//
// WalkLimits: how far a character may go: up to what the camera shows from its bounds at the widest
// zoom, less the stage's own margins.
#pragma once

#include "platform/View.h"
#include "stage/CameraZoom.h"
#include "stage/StageModel.h"

namespace scenara {

// Values of TestCharacter::X, in stage units from the left edge of the view at camera 0. Bounds
// that stand the wrong way round give a `most` below `least`.
struct WalkLimits {
    double least = 0;
    double most = 0;
};

[[nodiscard]] inline WalkLimits WalkLimitsOf(const StageModel& model, const View& view) {
    // From the edge of a view at a zoom of 1, which Centre is half of, to that of the widest one.
    const double beyond = BeyondBoundsAt(model, view, 1);
    return {model.BoundLeft - beyond + model.ScreenLeft,
            model.BoundRight + beyond + 2 * view.Centre() - model.ScreenRight};
}

}  // namespace scenara
