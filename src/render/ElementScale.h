// SPDX-License-Identifier: MIT
//
// ElementScale, an addition: how large an element's picture is drawn, beside the detail and the
// scale of its stage: by a scale of its own, and by how much of the camera's zoom it takes.
#pragma once

#include "stage/StageModel.h"
#include "stage/StageSpace.h"

namespace scenara {

// Along each axis, of which below 0 mirrors the picture about its axis point and 0 hides it.
struct ElementScale {
    double x = 1;
    double y = 1;
};

// The scale, kept within -1024 to 1024; 0 where it is not a number.
[[nodiscard]] double KeptScale(double scale);

// scalestart + scaledelta * camera * delta / the stage's own scale, along each axis, kept within
// -1024 to 1024; of MUGEN 1.1, and in newer engines with the delta as a factor. `cameraX` and
// `cameraY` in stage units, as they are multiplied with delta.
[[nodiscard]] ElementScale ScaleOf(const BackgroundElement& element, const StageSpace& space,
                                   double cameraX, double cameraY);

// 1 - zoomdelta * (1 - zoom), along each axis, of MUGEN 1.1, at most 1024; 0 where that is below 0:
// then nothing of the element is seen.
[[nodiscard]] ElementScale ZoomOf(const BackgroundElement& element, double zoom);

// Whether it changes with the camera.
[[nodiscard]] inline bool ScalesWithCamera(const BackgroundElement& element) {
    return element.scaleDelta[0] != 0 || element.scaleDelta[1] != 0;
}

}  // namespace scenara
