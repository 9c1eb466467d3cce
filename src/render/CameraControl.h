// SPDX-License-Identifier: MIT
//
// CameraControl: the user moves the camera.
//
// Called at the end of each pass of drawing, so a held key acts twice per frame. A step is made
// whole or, where it would pass the stage's bound, not at all; standing on the bound is allowed.
// Bounds are in shown coordinates. The arrow keys move, Z and A lower and raise both steps by 0.5
// (from 0.5 to 10, at most once every 150 ms), then others' keys follow, and while MouseScroll is
// on the pointer's distance from the middle of the window sets the steps and moves. While a figure
// leads the camera, Left and Right do nothing, and it makes at most one step of its own sideways a
// frame, after the back pass.
#pragma once

#include <cstdint>

#include "base/NotCopied.h"
#include "platform/Clock.h"
#include "platform/Keyboard.h"
#include "platform/Pointer.h"
#include "platform/Window.h"
#include "render/ViewFlags.h"
#include "stage/Camera.h"
#include "stage/StageModel.h"

namespace scenara {

// Milliseconds that must have passed, and one more, between two accepted keys.
inline constexpr std::uint32_t kKeyGate = 150;

// Further key handlers that share the gate: called once per pass, after the camera's own keys.
// Errors end the pass.
class GatedKeys : NotCopied {
public:
    virtual ~GatedKeys() = default;

    virtual void AtEndOfPass() = 0;
};

// What the camera is moved with; all of it outlives the call.
struct CameraInput {
    Keyboard& keyboard;
    Clock& clock;
    Pointer& pointer;
    Window& window;
    GatedKeys* more = nullptr;
};

// Whether a key that acts at most every 150 ms would be accepted now. Whoever accepts one sets
// lastKeyTick to `now`.
[[nodiscard]] bool KeyGateIsOpen(const Camera& camera, Long now);

// One step of this size each, within the bounds.
void StepRight(StageModel& model, Single step);
void StepLeft(StageModel& model, Single step);
void StepUp(StageModel& model, Single step);
void StepDown(StageModel& model, Single step);

void ControlCamera(StageModel& model, Camera& camera, const ViewFlags& flags,
                   const CameraInput& input);

}  // namespace scenara
