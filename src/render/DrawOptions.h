// SPDX-License-Identifier: MIT
//
// DrawOptions: how a frame of a stage is drawn, the same for all of its elements.
#pragma once

#include "platform/View.h"
#include "stage/Camera.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara {

// Addition: an axis of the canvas, drawn so many times as large from a line that stays.
struct Zoomed {
    double fixed = 0;  // canvas pixels
    double times = 1;

    [[nodiscard]] double Place(double place) const {
        return times == 1 ? place : fixed + (place - fixed) * times;
    }
};

struct DrawOptions {
    bool additions = false;
    View view = {};
    CameraPlace camera = {};  // that the frame is drawn with
    bool smooth = false;      // addition: pictures that are scaled are mixed from their pixels
    double zoom = 1;          // addition: the camera's
    double ground = 0;        // addition: the row that zooming leaves alone, stage units

    // What is drawn `times` as large by zooming.
    [[nodiscard]] Zoomed Across(double times) const { return {Middle(), times}; }
    [[nodiscard]] Zoomed Down(double times) const { return {ground * view.detail, times}; }

    // The view's middle column, canvas pixels.
    [[nodiscard]] double Middle() const { return view.Centre() * view.detail; }
};

// Plainly each pass sees the camera where it stands. Addition: all of a frame is drawn with the one
// that its back pass began with, and stages for older versions of MUGEN count in whole units of it.
[[nodiscard]] DrawOptions DrawOptionsOf(const StageModel& model, const Camera& camera,
                                        const View& view, const ViewOptions& options);

}  // namespace scenara
