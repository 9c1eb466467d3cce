// SPDX-License-Identifier: MIT
//
// UpdateCharacter: the test character's next frame: keys, turning, animation, walking, and where
// its picture is drawn.
//
// Standing -> walking while Right or Left is held -> standing. A change of direction plays the
// pictures of turning first, where there are any; keys wait until they are through. Each picture is
// shown for its time in frames; one of time -1 stays, one of time 0 is passed over.
//
// It never walks out of the stage: within the camera's bounds and half a view beyond, less what
// ScreenLeft and ScreenRight keep free. A step is made whole or not at all.
#pragma once

#include "character/PlaceCharacter.h"
#include "character/TestCharState.h"
#include "platform/Keyboard.h"
#include "stage/StageModel.h"

namespace scenara {

// Called once per frame, before it is drawn; `camera` is the one that its back elements are drawn
// with. How far the camera is to go along, to the right above 0, to the left below: by the
// character's step from the middle of the view on, and so far that the character is in the picture.
// Allocates nothing.
[[nodiscard]] Single UpdateCharacter(TestCharState& state, const StageModel& model,
                                     Keyboard& keyboard, const CameraPlace& camera,
                                     const View& view);

// The picture of the last frame where the ground and the camera have been moved to since, without a
// step of the character's.
void PlaceAgain(TestCharState& state, const StageModel& model, const CameraPlace& camera);

}  // namespace scenara
