// SPDX-License-Identifier: MIT
//
// StageSpace, an addition: the coordinates that a stage was made for, and at which detail.
//
// Every number of a stage stands in its own units: the view is `localcoord` of them, 320 x 240
// where the stage says nothing. Elements of a `hires` stage are laid out in halves of a unit, and
// the stage's scale is a factor on all that belongs to elements: starts, motion, pictures. The
// canvas has as many pixels to a unit as it takes for no picture to be drawn smaller than it is.
#pragma once

#include "platform/View.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara {

struct StageSpace {
    // Units to a unit of what an element counts in, below 0 where the stage is mirrored: the
    // stage's own scale, never 0, and 1024 at most.
    double scaleX = 1;
    double scaleY = 1;
    // And 1/2 in a stage of double detail.
    double hires = 1;
};

[[nodiscard]] StageSpace SpaceOf(const StageModel& model);

// What of the stage is seen, and at which detail: as many pixels to a unit as the smallest whole
// number at which pictures are drawn at no less than their own size both ways, up to 4, and as
// long as the canvas is no larger than 1920 x 1200; 1 in any case. A `localcoord` of less than
// 80 x 60 units or more than 7680 x 4320 counts as none. Plainly the view as it is designed.
[[nodiscard]] View ViewOf(const StageModel& model, const ViewOptions& options);

}  // namespace scenara
