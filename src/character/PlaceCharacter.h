// SPDX-License-Identifier: MIT
//
// Where the character comes to stand: the first player's place, on the stage's ground line.
#pragma once

#include "character/TestCharState.h"
#include "platform/View.h"
#include "stage/Camera.h"
#include "stage/StageModel.h"

namespace scenara {

// At its first place, standing, facing right, with no key held. The ground line is ZOffset, or,
// where that is 0 and there is one, what the linked element's posY is now.
void PlaceCharacter(TestCharState& state, const StageModel& model, const View& view);

// Addition: a character that stands on a linked element goes up and down with it, drift, swing and
// the camera's part in it included. `camera`: the one that the elements were placed with.
void FollowGround(TestCharacter& character, const StageModel& model, const CameraPlace& camera);

}  // namespace scenara
