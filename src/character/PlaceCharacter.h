// SPDX-License-Identifier: MIT
//
// Where the character comes to stand: the first player's place, on the stage's ground line.
#pragma once

#include "character/TestCharState.h"
#include "platform/View.h"
#include "stage/Camera.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara {

// At its first place, standing, facing right, with no key held. The ground line is ZOffset, or,
// where that is 0 and there is one, what the linked element's posY is now.
//
// Addition: it is as large, and walks as far, as it would be on a view that is as wide as its
// localcoord says (CharZoom).
void PlaceCharacter(TestCharState& state, const StageModel& model, const View& view,
                    const ViewOptions& options = kPlainView);

// Addition: the ground is ZOffset below where the axis of the linked element is at the ground view,
// and goes up and down with the element's drift and swing. The camera moves it as a delta of 1
// does, whatever the element's is.
void FollowGround(TestCharacter& character, const StageModel& model);

}  // namespace scenara
