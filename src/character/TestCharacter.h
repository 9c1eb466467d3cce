// SPDX-License-Identifier: MIT
//
// TestCharacter: one fighting-game character in memory, as far as a figure that stands, turns and
// walks needs it.
//
// Filled by LoadCharacter (LoadCharacter.h), placed on the stage when it is switched on, advanced
// every frame by UpdateCharacter (UpdateCharacter.h). Its place is in units of the stage; all other
// lengths are the character's own pixels, times are ticks of one frame. Texts are bytes as the
// files have them.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "base/Integers.h"
#include "platform/Direct3D8.h"
#include "platform/View.h"

namespace scenara {

// One line of an action.
struct CharFrame {
    Integer group = 0;  // the picture, by its numbers in the archive
    Integer image = 0;
    Integer offsetX = 0;  // from the character's place
    Integer offsetY = 0;
    Integer time = 0;      // ticks; negative = for ever
    Integer flip = 0;      // 1 = mirrored left to right
    Integer texture = -1;  // into TestCharacter::Sprites; -1 = shows nothing
};

// One of the animations that are kept.
struct CharAction {
    Long actionNo = 0;      // as the file has it
    Integer LoopStart = 0;  // the frame that follows the last one
    std::vector<CharFrame> frames;
};

// A picture of the archive that a kept frame shows.
struct CharSprite {
    Integer axisX = 0;  // the pixel that is laid on the character's place
    Integer axisY = 0;
    std::shared_ptr<Direct3DTexture8> texture;  // several sprites may share one
};

// Slots of TestCharacter::Actions.
inline constexpr Integer kStanding = 0;  // action 0
inline constexpr Integer kTurning = 1;   // action 5
inline constexpr Integer kWalking = 2;   // action 20
inline constexpr std::array<Long, 3> kKeptActions = {0, 5, 20};

inline constexpr Integer kFacingRight = 1;
inline constexpr Integer kFacingLeft = -1;

struct TestCharacter {
    std::string DisplayName;
    std::array<CharAction, kKeptActions.size()> Actions;
    std::vector<CharSprite> Sprites;
    // The place on the stage, in the stage's units: that in the view with the camera at 0.
    Single X = 0;
    Single Y = 0;  // the ground line
    Single XScale = 1;
    Single YScale = 1;
    Single WalkSpeed = 1;                 // its own pixels a frame
    Long LocalcoordWidth = View().width;  // of the view, in its own pixels
    Integer Frame = 0;                    // of the current action
    Integer FrameTime = 0;                // ticks that are left of it
    Integer Facing = kFacingRight;
    Integer Action = kStanding;
    bool Walking = false;
    bool HasTurn = false;  // there are pictures of turning
    Long ColorKey = 0;     // the transparent colour, red in the lowest byte
    Integer flag = 0;      // cleared by the loader, read by nobody

    // What the renderer reads: the picture's edge, in units of the stage, across without the camera
    // and down with it. It is the left edge where DrawFacing is 1 and the right one where it is -1.
    Single DrawX = 0;
    Single DrawY = 0;
    Integer DrawTexture = -1;  // into Sprites; -1 = nothing is shown
    Integer DrawWidth = 0;     // of the picture, not scaled
    Integer DrawHeight = 0;
    Integer DrawFacing = kFacingRight;

    [[nodiscard]] const CharAction& ActionIn(Integer slot) const {
        return Actions.at(static_cast<std::size_t>(slot));
    }
};

}  // namespace scenara
