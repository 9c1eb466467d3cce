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

#include "render/PassWatch.h"
#include "stage/StageModel.h"

namespace scenara {

// What the words and numbers of all controls come to, so that no tick has to search: what they do,
// and the action that an "anim" control names.
void ResolveControls(StageModel& model, bool additions);

// On which elements they act. Expects ElementsById to be in order, and is called again after it has
// changed; only the first time anything is allocated, as long as lists of ids stay as they are.
void ResolveTargets(StageModel& model);

// One tick of all groups, whose controls and targets are resolved. A value that a control was not
// given leaves things as they are; one that needs a value which is missing does nothing, and so
// does a type that is none of the known words. Once `watch` has given the frame up the tick ends;
// what did not come to its turn acts a tick later.
void RunControllers(StageModel& model, PassWatch* watch = nullptr);

}  // namespace scenara
