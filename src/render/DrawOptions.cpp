// SPDX-License-Identifier: MIT
#include "render/DrawOptions.h"

#include <cmath>

#include "stage/CameraZoom.h"

namespace scenara {

DrawOptions DrawOptionsOf(const StageModel& model, const Camera& camera, const View& view,
                          const ViewOptions& options) {
    if (!options.Additions) {
        return {.view = view, .camera = {model.CamX, model.CamY}};
    }
    CameraPlace drawn{camera.previousX, camera.previousY};
    if (model.MugenVersion < 1) {
        // Downwards as shown; x is stored negated.
        drawn = {std::ceil(drawn.x), std::floor(drawn.y)};
    }
    return {true, view, drawn, options.Smooth, model.CamZoom, GroundRow(model, 0)};
}

}  // namespace scenara
