// SPDX-License-Identifier: MIT
#include "render/CameraControl.h"

#include <algorithm>
#include <cmath>

#include "stage/CameraZoom.h"

namespace scenara {
namespace {

constexpr Single kStepChange = 0.5F;
constexpr Single kLeastStep = 0.5F;
constexpr Single kMostStep = 10;

CameraStep Across(const Camera& camera, const StepUnits& units) {
    return {StepLength(camera.HCamStep, units.across, units.whole), units.hair, units.beyond};
}

CameraStep Down(const Camera& camera, const StepUnits& units) {
    return {StepLength(camera.VCamStep, units.down, units.whole), units.hair};
}

void MoveSidewaysByKeys(StageModel& model, const CameraStep& step, Keyboard& keyboard) {
    if (keyboard.IsDown(VirtualKey::Right)) {
        StepRight(model, step);
    }
    if (keyboard.IsDown(VirtualKey::Left)) {
        StepLeft(model, step);
    }
}

// A figure must not walk out of the picture: the last step to a bound is as long as it can be.
void FollowLead(StageModel& model, const Camera& camera, const StepUnits& units) {
    const Single shown = -model.CamX;
    const Single length = StepLength(camera.leadStep, 1, units.whole);
    const auto right = static_cast<Single>(model.BoundRight + units.beyond);
    const auto left = static_cast<Single>(model.BoundLeft - units.beyond);
    if (camera.lead == CameraLead::Right && shown < right) {
        model.CamX = -std::min(shown + length, right);
    } else if (camera.lead == CameraLead::Left && shown > left) {
        model.CamX = -std::max(shown - length, left);
    }
}

void MoveUpAndDownByKeys(StageModel& model, const CameraStep& step, Keyboard& keyboard) {
    if (keyboard.IsDown(VirtualKey::Up)) {
        StepUp(model, step);
    }
    if (keyboard.IsDown(VirtualKey::Down)) {
        StepDown(model, step);
    }
}

void Lower(Single& step) {
    step -= kStepChange;
    if (step <= 0) {
        step = kLeastStep;
    }
}

void Raise(Single& step) {
    step += kStepChange;
    if (step >= kMostStep) {
        step = kMostStep;
    }
}

void ChangeSteps(Camera& camera, const CameraInput& input) {
    const Long now = input.clock.GetTickCount();
    if (!KeyGateIsOpen(camera, now)) {
        return;
    }
    if (input.keyboard.IsDown(VirtualKey::Z)) {
        Lower(camera.HCamStep);
        Lower(camera.VCamStep);
        camera.lastKeyTick = now;
    } else if (input.keyboard.IsDown(VirtualKey::A)) {  // one key per opening of the gate
        Raise(camera.HCamStep);
        Raise(camera.VCamStep);
        camera.lastKeyTick = now;
    }
}

// How far the pointer is from the middle of a side of the window, in pixels.
double FromMiddle(Long pointer, Long start, Long length) {
    return pointer - (static_cast<double>(start) + static_cast<double>(length) / 2) /
                         static_cast<double>(kUnitsPerPixel);
}

void MoveByPointer(StageModel& model, Camera& camera, const StepUnits& units,
                   const CameraInput& input) {
    const PointerPosition pointer = input.pointer.GetCursorPos();
    const WindowPlace place = input.window.Place();
    const double across = FromMiddle(pointer.x, place.left, place.width);
    const double down = FromMiddle(pointer.y, place.top, place.height);
    camera.HCamStep = static_cast<Single>(std::fabs(across) / 10);
    camera.VCamStep = static_cast<Single>(std::fabs(down) / 40);
    if (across > 0) {
        StepRight(model, Across(camera, units));
    } else if (across < 0) {
        StepLeft(model, Across(camera, units));
    }
    if (down < 0) {
        StepUp(model, Down(camera, units));
    } else if (down > 0) {
        StepDown(model, Down(camera, units));
    }
}

}  // namespace

StepUnits StepUnitsOf(const StageModel& model, const View& view, bool additions) {
    constexpr Single kHair = 1.0F / 256;
    return additions ? StepUnits{view.TimesAsWide(), view.TimesAsHigh(), model.MugenVersion < 1,
                                 kHair, BeyondBounds(model, view)}
                     : StepUnits();
}

Single StepLength(Single step, double unit, bool whole) {
    const double length = static_cast<double>(step) * unit;
    return static_cast<Single>(whole && step != 0 ? std::max(RoundToEven(length), 1.0) : length);
}

void StepCamera(StageModel& model, const Camera& camera, const StepUnits& units, Long across,
                Long down) {
    for (; across > 0; --across) {
        StepRight(model, Across(camera, units));
    }
    for (; across < 0; ++across) {
        StepLeft(model, Across(camera, units));
    }
    for (; down > 0; --down) {
        StepDown(model, Down(camera, units));
    }
    for (; down < 0; ++down) {
        StepUp(model, Down(camera, units));
    }
}

bool KeyGateIsOpen(const Camera& camera, Long now) {
    return TicksSince(camera.lastKeyTick, now) > kKeyGate;
}

// x is stored negated, so the tests look the other way than the moves.
void StepRight(StageModel& model, const CameraStep& step) {
    const auto bound = static_cast<Single>(model.BoundRight + step.beyond);
    const Single place = -model.CamX + step.length;
    if (place <= bound + step.hair) {
        model.CamX = place > bound ? 0 - bound : model.CamX - step.length;
    }
}

void StepLeft(StageModel& model, const CameraStep& step) {
    const auto bound = static_cast<Single>(model.BoundLeft - step.beyond);
    const Single place = -model.CamX - step.length;
    if (place >= bound - step.hair) {
        model.CamX = place < bound ? 0 - bound : model.CamX + step.length;
    }
}

void StepUp(StageModel& model, const CameraStep& step) {
    const auto bound = static_cast<Single>(model.BoundHigh);
    const Single place = model.CamY - step.length;
    if (place >= bound - step.hair) {
        model.CamY = std::max(place, bound);
    }
}

void StepDown(StageModel& model, const CameraStep& step) {
    const auto bound = static_cast<Single>(model.BoundLow);
    const Single place = model.CamY + step.length;
    if (place <= bound + step.hair) {
        model.CamY = std::min(place, bound);
    }
}

void ControlCamera(StageModel& model, Camera& camera, const StepUnits& units,
                   const ViewFlags& flags, const CameraInput& input) {
    if (camera.lead == CameraLead::Keys) {
        MoveSidewaysByKeys(model, Across(camera, units), input.keyboard);
    } else if (flags.DrawFrontLayer == 0) {
        FollowLead(model, camera, units);
    }
    MoveUpAndDownByKeys(model, Down(camera, units), input.keyboard);
    ChangeSteps(camera, input);
    if (input.more != nullptr) {
        input.more->AtEndOfPass();
    }
    if (flags.MouseScroll != 0) {
        MoveByPointer(model, camera, units, input);
    }
}

}  // namespace scenara
