// SPDX-License-Identifier: MIT
//
// Where the character comes to stand: the first player's place, on the stage's ground line.
#pragma once

#include "character/TestCharState.h"
#include "platform/View.h"
#include "stage/StageModel.h"

namespace scenara {

// The camera that a frame's pictures are drawn with, as StageModel stores it: x negated.
struct DrawnCamera {
    Single x = 0;
    Single y = 0;
    View view = {};
};

// At its first place, standing, facing right, with no key held. The ground line is ZOffset, or,
// where that is 0 and there is one, what the linked element's posY is now.
void PlaceCharacter(TestCharState& state, const StageModel& model, const View& view);

// Addition: a character that stands on a linked element goes up and down with it, drift, swing and
// the camera's part in it included.
void FollowGround(TestCharacter& character, const StageModel& model, const DrawnCamera& camera);

}  // namespace scenara
