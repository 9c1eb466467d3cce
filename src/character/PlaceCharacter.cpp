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

double StartOf(const BackgroundElement& element) {
    return element.startY + static_cast<double>(element.startFraction[1]);
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
        } else if (const BackgroundElement* const ground = ElementAt(model, model.ZOffsetLink)) {
            character.Y = ground->posY;
        }
        character.Action = kStanding;
        character.Facing = kFacingRight;
        StartAction(character);
        character.Walking = false;
        character.DrawTexture = -1;
    }
}

void FollowGround(TestCharacter& character, const StageModel& model) {
    const BackgroundElement* const ground = ElementAt(model, model.ZOffsetLink);
    if (ground == nullptr) {
        return;
    }
    const BackgroundElement* const parent = ElementAt(model, ground->linkParent);
    const double start = StartOf(*ground) + (parent != nullptr ? StartOf(*parent) : 0);
    // A linked element is shown with its parent's swing and motion, beside its own motion.
    const Single swing = parent != nullptr ? ground->linkSin[1] : ground->sinOffset[1];
    const double motion = static_cast<double>(ground->ctrlPos[1]) +
                          static_cast<double>(ground->ctrlOffset[1]) + static_cast<double>(swing);
    character.Y = static_cast<Single>(model.ZOffset +
                                      start * static_cast<double>(model.ElementScale) + motion);
}

}  // namespace scenara
