// SPDX-License-Identifier: MIT
//
// Where an element stands apart from the camera, in what elements count in (StageSpace.h). Both
// raise "Subscript out of range" for a parent outside of the table.
#pragma once

#include "stage/StageModel.h"

namespace scenara {

struct StartPlace {
    double x;
    double y;
};

// Where it starts, from the middle of the view: a linked one counts from its parent's.
[[nodiscard]] StartPlace StartOf(const StageModel& model, const BackgroundElement& element);

// Addition: how far an element stands from its start, in what it counts in: its motion and its
// swing, and of a linked one motion and swing of its parent.
[[nodiscard]] StartPlace DisplacementOf(const StageModel& model, const BackgroundElement& element);

}  // namespace scenara
