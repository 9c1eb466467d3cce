// SPDX-License-Identifier: MIT
//
// ZoomControl, an addition: the user zooms.
#pragma once

#include "platform/View.h"
#include "stage/Camera.h"
#include "stage/StageModel.h"

namespace scenara {

enum class ZoomStep : Byte {
    In,       // to the next tenth of the way from zoomout to zoomin
    Out,      // to the one before
    ToStart,  // where the stage starts
};

// Where a step goes from the camera's zoom; at an end of the way it stays.
[[nodiscard]] double ZoomAfter(const StageModel& model, ZoomStep step);

// The camera's zoom is that one from now on, as far as the stage goes, and the camera is brought
// within the bounds that it has then.
void SetZoom(StageModel& model, Camera& camera, const View& view, double zoom);

}  // namespace scenara
