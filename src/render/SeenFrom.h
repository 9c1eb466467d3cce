// SPDX-License-Identifier: MIT
//
// SeenFrom, an addition: from which places of the camera an element is seen. A stage may have
// thousands of pictures of which a few are in the view; the others are to cost next to nothing.
#pragma once

#include "platform/View.h"
#include "stage/StageModel.h"

namespace scenara {

// Notes it for every still picture that is not tiled and that nothing moves but the camera: neither
// drift, nor swing, nor link, nor controller. It holds for the view and for the camera's zoom as
// they are now. A step of the start-up, after PrepareElements, and of every change of the zoom.
void NoteWhereSeen(StageModel& model, const View& view);

// All may be seen from everywhere: for whoever changes elements.
void ForgetWhereSeen(StageModel& model);

}  // namespace scenara
