// SPDX-License-Identifier: MIT
//
// Panning, an addition: the picture is pulled with the middle button. What moves with the camera
// stays under the pointer, as far as the camera's bounds let it.
#pragma once

#include <optional>

#include "show/StageShow.h"
#include "stage/Camera.h"

namespace scenara {

// A point of the canvas.
struct PullPoint {
    Long x = 0;
    Long y = 0;
};

class Panning {
public:
    // It outlives this.
    explicit Panning(StageShow& show) : show_(show) {}

    // The button goes down, in the full screen or not; and the pointer moves. Another zoom, or the
    // other way to show the picture, since it went down ends it.
    void Begin(const PullPoint& at, bool fullScreen);
    void Move(const PullPoint& at, bool fullScreen);
    void End() { grip_.reset(); }

private:
    // Where the pointer was at which place of the camera.
    struct Grip {
        PullPoint at;
        CameraPlace camera;
        CameraPlace left;  // the camera, by the last move
        PullPoint last;    // the pointer, by the same
        double zoom = 1;
        bool fullScreen = false;
    };

    [[nodiscard]] CameraPlace Place() const;

    StageShow& show_;
    std::optional<Grip> grip_;
};

}  // namespace scenara
