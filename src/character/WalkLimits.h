// SPDX-License-Identifier: MIT
//
// WalkLimits: how far a character may go, up to half a view beyond the camera's bounds less the
// stage's own margins.
#pragma once

#include "stage/StageModel.h"
#include "stage/StageSpace.h"

namespace scenara {

// Values of TestCharacter::X, in stage units from the left edge of the view at camera 0. Bounds
// that stand the wrong way round give a `most` below `least`.
struct WalkLimits {
    double least = 0;
    double most = 0;
};

[[nodiscard]] inline WalkLimits WalkLimitsOf(const StageModel& model, const View& view) {
    return {
        double{1} * model.BoundLeft + model.ScreenLeft,
        double{1} * model.BoundRight + 2 * static_cast<double>(view.Centre()) - model.ScreenRight};
}

}  // namespace scenara
