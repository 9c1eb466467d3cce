// SPDX-License-Identifier: MIT
//
// Camera: what the drawing knows of the camera beyond its position, which is StageModel's CamX and
// CamY. There x is stored negated: the camera *shown* to the user stands at (-CamX, CamY), grows to
// the right, and is 0 at the ground view and negative above it. Units of the stage.
#pragma once

#include "base/Integers.h"

namespace scenara {

// Who moves the camera sideways: the Left and Right keys, in both passes of a frame; or a figure
// that walks over the stage, once per frame, after the back pass.
enum class CameraLead : Byte { Keys, Stand, Left, Right };

// How far one pass moves the camera while a key is held.
struct CameraSteps {
    Single HCamStep = 0;
    Single VCamStep = 0;
};

// A step of 0 is one that was never set.
[[nodiscard]] inline Single StepOrOne(Single step) {
    return step == 0 ? Single{1} : step;
}

struct Camera {
    // Where the last pass of drawing saw it.
    Single previousX = 0;
    Single previousY = 0;

    // The steps in force: a setting of the user's, which stays from stage to stage; 0 until it has
    // been set.
    Single HCamStep = 0;
    Single VCamStep = 0;
    // The user's own, while the pointer or a character sets those in force.
    CameraSteps users;

    // Set anew for each frame while there is a figure, and how far that takes the camera along,
    // whatever the user has made of HCamStep.
    CameraLead lead = CameraLead::Keys;
    Single leadStep = 0;

    // The tick of the last accepted key that acts at most every 150 ms.
    Long lastKeyTick = 0;
};

// A position, as StageModel has it.
struct CameraPlace {
    Single x = 0;  // stored, so negated
    Single y = 0;
};

}  // namespace scenara
