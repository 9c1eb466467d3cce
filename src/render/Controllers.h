// SPDX-License-Identifier: MIT
//
// Background controllers: what acts on elements at certain times.
//
// Once per frame, before any element is drawn, groups and their controls run in file order. A
// control acts in every tick of its timer from startTime to endTime, both included; its own loop
// time sets its timer back, the group's loop time that of the group and of all its controls. The
// first frame is tick 0, and a loop of n has the ticks 0 to n - 1.
//
// A control acts on the elements that its own list of ids names, else its group's, else on all.
// Several elements may carry one id. Hidden and disabled elements are acted on, too.
#pragma once

#include "stage/StageModel.h"

namespace scenara {

// One tick of all groups. Expects ElementsById to be in order.
void RunControllers(StageModel& model);

// What one control does to one element; `actionIndex` is where the action stands that an "anim"
// control names, -1 when there is none. A value that the control was not given leaves things as
// they are; one that needs a value which is missing does nothing, and so does a type that is none
// of the known words.
void ApplyControl(const StageModel& model, const BgCtrl& control, Integer actionIndex,
                  BackgroundElement& element);

}  // namespace scenara
