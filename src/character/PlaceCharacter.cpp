// SPDX-License-Identifier: MIT
#include "character/PlaceCharacter.h"

#include <algorithm>

#include "character/CharacterClock.h"
#include "character/WalkLimits.h"
#include "stage/CameraZoom.h"
#include "stage/ElementStart.h"

namespace scenara {
namespace {

// Addition: a start beyond where it can walk is where that ends.
double WithinReach(double start, const StageModel& model, const View& view) {
    const WalkLimits limits = WalkLimitsOf(model, view);
    return std::max(limits.least, std::min(start, limits.most));
}

}  // namespace

void PlaceCharacter(TestCharState& state, const StageModel& model, const View& view,
                    const ViewOptions& options) {
    state.CharZoom = 1;
    if (options.Additions && !state.Characters.empty()) {
        state.CharZoom =
            static_cast<Single>(double{1} * view.width / state.Characters.front().LocalcoordWidth);
    }
    state.Turning = false;
    state.RightHeld = false;
    state.LeftHeld = false;
    state.LastAction = kStanding;
    state.LastFacing = kFacingRight;
    state.FrameFlipped = false;
    const double start = double{1} * model.P1StartX + static_cast<double>(view.Centre());
    for (TestCharacter& character : state.Characters) {
        character.X =
            static_cast<Single>(options.Additions ? WithinReach(start, model, view) : start);
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

void FollowGround(TestCharacter& character, const StageModel& model) {
    const BackgroundElement* const ground = GroundElement(model);
    if (ground == nullptr) {
        return;
    }
    character.Y = static_cast<Single>(GroundRow(model, DisplacementOf(model, *ground).y));
}

}  // namespace scenara
