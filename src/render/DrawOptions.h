// SPDX-License-Identifier: MIT
//
// DrawOptions: how a frame of a stage is drawn, the same for all of its elements.
#pragma once

#include "platform/View.h"
#include "stage/Camera.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara {

struct DrawOptions {
    bool additions = false;
    View view = {};
    CameraPlace camera = {};  // that the frame is drawn with
    bool smooth = false;      // addition: pictures that are scaled are mixed from their pixels
};

// Plainly each pass sees the camera where it stands. Addition: all of a frame is drawn with the one
// that its back pass began with, and stages for older versions of MUGEN count in whole units of it.
[[nodiscard]] DrawOptions DrawOptionsOf(const StageModel& model, const Camera& camera,
                                        const View& view, const ViewOptions& options);

}  // namespace scenara
