// SPDX-License-Identifier: MIT
#include "character/UpdateCharacter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "character/CharacterClock.h"
#include "character/WalkLimits.h"

namespace scenara {
namespace {

// The sums of the character's steps and the camera's are equal but for their last bits, which add
// up on the way through a wide stage; steps that anybody sees are larger.
constexpr double kHair = 1.0 / 16;

void Walk(TestCharacter& character, Integer facing, bool& held) {
    character.Facing = facing;
    character.Action = kWalking;
    character.Walking = true;
    held = true;
}

void Stop(TestCharacter& character, bool& held) {
    held = false;
    character.Action = kStanding;
    character.Walking = false;
}

// Deliberate: Left is looked at last, so that it wins while both are held; and letting one go stops
// the walk for a frame even while the other is held
// (UpdateCharacterTest.LettingOneOfTwoKeysGoStandsForAFrame).
void ReadKeys(TestCharState& state, TestCharacter& character, Keyboard& keyboard) {
    const bool right = keyboard.IsDown(VirtualKey::Right);
    const bool left = keyboard.IsDown(VirtualKey::Left);
    if (right) {
        Walk(character, kFacingRight, state.RightHeld);
    }
    if (left) {
        Walk(character, kFacingLeft, state.LeftHeld);
    }
    if (!right && state.RightHeld) {
        Stop(character, state.RightHeld);
    }
    if (!left && state.LeftHeld) {
        Stop(character, state.LeftHeld);
    }
}

// A key remembers that it was pressed until somebody asks: presses during a turn are not to count
// behind it.
void ForgetKeys(Keyboard& keyboard) {
    static_cast<void>(keyboard.IsDown(VirtualKey::Right));
    static_cast<void>(keyboard.IsDown(VirtualKey::Left));
}

void StartTurn(TestCharState& state, TestCharacter& character) {
    if (character.ActionIn(kTurning).frames.empty()) {
        character.Action = kWalking;
        character.Walking = true;
        return;
    }
    state.Turning = true;
    character.Action = kTurning;
    character.Walking = false;
    StartAction(character);
}

// The edge of the picture, so that its axis lies on the character's place whichever way it faces.
void PlacePicture(const TestCharState& state, TestCharacter& character, const CharFrame& frame,
                  const CameraPlace& camera) {
    const auto index = static_cast<std::size_t>(std::max(frame.texture, Integer{0}));
    if (frame.texture < 0 || index >= character.Sprites.size()) {
        character.DrawTexture = -1;
        return;
    }
    const CharSprite& sprite = character.Sprites[index];
    const auto zoom = static_cast<double>(state.CharZoom);
    const double acrossAxis =
        (double{1} * sprite.axisX - frame.offsetX) * zoom * static_cast<double>(character.XScale);
    const double downAxis =
        (double{1} * sprite.axisY - frame.offsetY) * zoom * static_cast<double>(character.YScale);
    character.DrawX =
        static_cast<Single>(static_cast<double>(character.X) - character.DrawFacing * acrossAxis);
    character.DrawY = static_cast<Single>(static_cast<double>(character.Y) - downAxis -
                                          static_cast<double>(camera.y));
    character.DrawTexture = frame.texture;
    character.DrawWidth = static_cast<Integer>(sprite.texture->Width());
    character.DrawHeight = static_cast<Integer>(sprite.texture->Height());
}

// How many of them are moved each frame.
std::size_t CountOf(const TestCharState& state) {
    return std::min(static_cast<std::size_t>(std::max(state.CharCount, Integer{0})),
                    state.Characters.size());
}

// The step that was made; 0: it could not go there, or does not go at all.
double Move(const TestCharState& state, const StageModel& model, const View& view,
            TestCharacter& character) {
    const double step = static_cast<double>(state.CharZoom) *
                        static_cast<double>(character.WalkSpeed) * character.Facing;
    const double next = static_cast<double>(character.X) + step;
    const WalkLimits limits = WalkLimitsOf(model, view);
    const bool inside = step < 0 ? next >= limits.least : next <= limits.most;
    if (inside) {
        character.X = static_cast<Single>(next);
    }
    return inside ? step : 0;
}

// How far the camera goes along with a step of the character, or with none. The place before it is
// compared with the view as it is drawn in this frame. Where the character would be beyond the
// picture's edges the camera goes as far as it must.
double AlongWith(double step, double viewX, const StageModel& model, const View& view) {
    const auto middle = static_cast<double>(view.Centre());
    const double half = middle / model.CamZoom;  // of what is seen
    const double least = middle - half + std::clamp<double>(model.ScreenLeft, 0, half);
    const double most = middle + half - std::clamp<double>(model.ScreenRight, 0, half);
    const bool leads = step > 0 ? viewX >= middle - kHair : viewX <= middle + kHair;
    const double along = leads ? step : 0;
    const double after = viewX + step;
    if (after > most) {
        return std::max(along, after - most);
    }
    return after < least ? std::min(along, after - least) : along;
}

double UpdateOne(TestCharState& state, TestCharacter& character, const StageModel& model,
                 Keyboard& keyboard, const CameraPlace& camera, const View& view) {
    FollowGround(character, model);
    if (state.Turning) {
        ForgetKeys(keyboard);
    } else {
        ReadKeys(state, character, keyboard);
    }
    if (character.Action != state.LastAction) {
        StartAction(character);
    }
    if (character.Facing != state.LastFacing && character.HasTurn) {
        StartTurn(state, character);
    }
    // The clock goes first, so that picture and place are those of one frame.
    const CharFrame* const frame = TickCharacter(character, state.Turning);
    state.FrameFlipped = frame != nullptr && frame->flip != 0;
    character.DrawFacing =
        state.FrameFlipped ? static_cast<Integer>(-character.Facing) : character.Facing;
    if (frame != nullptr) {
        PlacePicture(state, character, *frame, camera);
    } else {
        character.DrawTexture = -1;
    }
    state.FrameFlipped = false;
    const double viewX = static_cast<double>(character.X) + static_cast<double>(camera.x);
    const double step = character.Walking ? Move(state, model, view, character) : 0;
    state.LastAction = character.Action;
    state.LastFacing = character.Facing;
    return AlongWith(step, viewX, model, view);
}

}  // namespace

Single UpdateCharacter(TestCharState& state, const StageModel& model, Keyboard& keyboard,
                       const CameraPlace& camera, const View& view) {
    double along = 0;
    state.DrawnCameraY = camera.y;
    for (std::size_t i = 0; i < CountOf(state); ++i) {
        along = UpdateOne(state, state.Characters[i], model, keyboard, camera, view);
    }
    return static_cast<Single>(along);
}

void PlaceAgain(TestCharState& state, const StageModel& model, const CameraPlace& camera) {
    for (std::size_t i = 0; i < CountOf(state); ++i) {
        TestCharacter& character = state.Characters[i];
        const Single ground = character.Y;
        FollowGround(character, model);
        character.DrawY += character.Y - ground - (camera.y - state.DrawnCameraY);
    }
    state.DrawnCameraY = camera.y;
}

}  // namespace scenara
