// SPDX-License-Identifier: MIT
//
// StageScale, an addition: stages that were made for another view than the program's.
//
// "hires" lays the elements out in pixels of 640 x 480, while camera, bounds and players keep
// counting in those of the view. "localcoord" gives a view of its own, in which everything counts:
// all is scaled to the view's height, and its middle columns are shown. Both may come together.
// Starts count from the middle and need nothing for that; windows count from the left edge.
#pragma once

#include "platform/View.h"
#include "stage/StageModel.h"

namespace scenara {

// View pixels per unit of what the file counts in.
struct StageScale {
    double elements = 1;  // starts, axes, offsets, spacings, velocities, swings, windows, pictures
    double deltas = 1;    // what a unit of the camera comes to, per unit of delta
    double stage = 1;     // camera, bounds, ground line, players
    double columnsBefore = 0;  // view pixels between the stage's left edge and the view's
};

// A height that no stage was made for, below 120 or above 7680, counts as not given.
[[nodiscard]] StageScale ScaleOf(const StageModel& model, const View& view);

// Brings a loaded stage into view pixels. Whole numbers that would lose too much by rounding stay
// in the file's units, and the drawing takes them times ElementScale: start, sprite axis, frame
// offset, tile spacing, and what controls set.
void ApplyStageScale(StageModel& model, const View& view);

}  // namespace scenara
