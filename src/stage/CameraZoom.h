// SPDX-License-Identifier: MIT
//
// CameraZoom, an addition: how far a stage's camera goes near and away, as in MUGEN 1.1, and where
// it may stand then.
//
// A zoom of z shows pictures z times as large. The middle column of the view and the ground row
// stay where they are.
#pragma once

#include "platform/View.h"
#include "stage/StageModel.h"

namespace scenara {

// zoomout and zoomin, kept within 1/64 to 64, the second no less than the first. Of each, 0 or less
// counts as 1, and so does what is no number. Plainly both are 1.
struct ZoomRange {
    double out = 1;
    double in = 1;

    // What is no number becomes the lower end.
    [[nodiscard]] double Kept(double zoom) const;
    [[nodiscard]] bool HasOnlyOne() const { return in == out; }
};
[[nodiscard]] ZoomRange ZoomRangeOf(const StageModel& model);

// How far beyond the file's bounds the camera goes to the left and to the right, stage units. These
// are meant for the widest view: at a zoom above zoomout the view is narrower, and the camera goes
// on until the view's edge is where it is then: width / 2 * (1 / zoomout - 1 / zoom). Below 0 it
// stays inside of them. Whole units for older versions of MUGEN, in which the camera has no others.
[[nodiscard]] double BeyondBoundsAt(const StageModel& model, const View& view, double zoom);

// With the camera's zoom as it stands.
[[nodiscard]] inline double BeyondBounds(const StageModel& model, const View& view) {
    return BeyondBoundsAt(model, view, model.CamZoom);
}

// The element of zoffsetlink, once its index has been found; none without one.
[[nodiscard]] const BackgroundElement* GroundElement(const StageModel& model);

// The ground row, stage units from the view's upper edge with the camera at 0: zoffset, and where
// there is an element of zoffsetlink, that element's place below it. `moved`: how far its motion
// has taken that one down. The indices of links must have been found.
[[nodiscard]] double GroundRow(const StageModel& model, double moved);

}  // namespace scenara
