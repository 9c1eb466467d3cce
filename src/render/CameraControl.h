// SPDX-License-Identifier: MIT
//
// CameraControl: the user moves the camera.
//
// Called at the end of each pass of drawing, so a held key acts twice per frame. A step is made
// whole or, where it would pass the stage's bound (with zoom, what that comes to), not at all;
// standing on the bound is allowed. Bounds are in shown coordinates. The arrow keys move, Z and A
// lower and raise both steps by 0.5 (from 0.5 to 10, at most once every 150 ms), then others' keys
// follow, and while MouseScroll is on the pointer's distance from the middle of the window sets the
// steps and moves. While a figure leads the camera, Left and Right do nothing, and it makes at most
// one step of its own sideways a frame, after the back pass.
#pragma once

#include <cstdint>

#include "base/NotCopied.h"
#include "platform/Clock.h"
#include "platform/Keyboard.h"
#include "platform/Pointer.h"
#include "platform/View.h"
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

// Units of the stage to a step of 1, as the user counts steps. Addition: steps grow with the view,
// and in stages for older versions of MUGEN each is a whole number of units, 1 or more.
struct StepUnits {
    double across = 1;
    double down = 1;
    bool whole = false;
    Single hair = 0;    // of a CameraStep
    double beyond = 0;  // the same
};
[[nodiscard]] StepUnits StepUnitsOf(const StageModel& model, const View& view, bool additions);

// What the camera moves by in a step of this size; 0 stays 0.
[[nodiscard]] Single StepLength(Single step, double unit, bool whole);

// Addition: so many steps to the right and down.
void StepCamera(StageModel& model, const Camera& camera, const StepUnits& units, Long across,
                Long down);

// Whether a key that acts at most every 150 ms would be accepted now. Whoever accepts one sets
// lastKeyTick to `now`.
[[nodiscard]] bool KeyGateIsOpen(const Camera& camera, Long now);

// Additions: one that ends a hair beyond a bound ends on it, for steps of a fraction add up to a
// little more or less than they should; and with zoom the camera goes beyond the file's bounds to
// the left and to the right (stage/CameraZoom.h).
struct CameraStep {
    Single length = 0;
    Single hair = 0;
    double beyond = 0;
};

// One step each, within the bounds.
void StepRight(StageModel& model, const CameraStep& step);
void StepLeft(StageModel& model, const CameraStep& step);
void StepUp(StageModel& model, const CameraStep& step);
void StepDown(StageModel& model, const CameraStep& step);

void ControlCamera(StageModel& model, Camera& camera, const StepUnits& units,
                   const ViewFlags& flags, const CameraInput& input);

}  // namespace scenara
