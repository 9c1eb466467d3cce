// SPDX-License-Identifier: MIT
#include "character/PlaceCharacter.h"

#include <cstddef>

#include "character/CharacterClock.h"

namespace scenara {
namespace {

const BackgroundElement* ElementAt(const StageModel& model, Integer index) {
    const bool there = index >= 0 && static_cast<std::size_t>(index) < model.Elements.size();
    return there ? &model.Elements[static_cast<std::size_t>(index)] : nullptr;
}

// The element that the ground line follows; none where the stage has a line of its own.
const BackgroundElement* GroundElement(const StageModel& model) {
    return model.ZOffset == 0 ? ElementAt(model, model.ZOffsetLink) : nullptr;
}

}  // namespace

void PlaceCharacter(TestCharState& state, const StageModel& model, const View& view) {
    state.CharZoom = 1;
    state.Turning = false;
    state.RightHeld = false;
    state.LeftHeld = false;
    state.LastAction = kStanding;
    state.LastFacing = kFacingRight;
    state.FrameFlipped = false;
    for (TestCharacter& character : state.Characters) {
        character.X = static_cast<Single>(model.P1StartX + view.Centre());
        if (model.ZOffset != 0) {
            character.Y = model.ZOffset;
        } else if (const BackgroundElement* const ground = GroundElement(model)) {
            character.Y = ground->posY;
        }
        character.Action = kStanding;
        character.Facing = kFacingRight;
        StartAction(character);
        character.Walking = false;
        character.DrawTexture = -1;
    }
}

void FollowGround(TestCharacter& character, const StageModel& model, const CameraPlace& camera) {
    const BackgroundElement* const ground = GroundElement(model);
    if (ground == nullptr) {
        return;
    }
    // A linked element is shown with its parent's swing and motion.
    const BackgroundElement* const parent = ElementAt(model, ground->linkParent);
    const Single swing = parent != nullptr ? parent->sinOffset[1] + parent->ctrlPos[1]
                                           : ground->sinOffset[1] + ground->ctrlOffset[1];
    // The element's place is on the screen, the character's on the stage.
    character.Y = ground->posY + swing + camera.y;
}

}  // namespace scenara
