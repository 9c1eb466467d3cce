// SPDX-License-Identifier: MIT
#include "render/CameraControl.h"

#include <algorithm>
#include <cmath>

namespace scenara {
namespace {

constexpr Single kStepChange = 0.5F;
constexpr Single kLeastStep = 0.5F;
constexpr Single kMostStep = 10;

void MoveSidewaysByKeys(StageModel& model, const Camera& camera, Keyboard& keyboard) {
    if (keyboard.IsDown(VirtualKey::Right)) {
        StepRight(model, camera.HCamStep);
    }
    if (keyboard.IsDown(VirtualKey::Left)) {
        StepLeft(model, camera.HCamStep);
    }
}

// A figure must not walk out of the picture: the last step to a bound is as long as it can be.
void FollowLead(StageModel& model, const Camera& camera) {
    const Single shown = -model.CamX;
    const auto right = static_cast<Single>(model.BoundRight);
    const auto left = static_cast<Single>(model.BoundLeft);
    if (camera.lead == CameraLead::Right && shown < right) {
        model.CamX = -std::min(shown + camera.leadStep, right);
    } else if (camera.lead == CameraLead::Left && shown > left) {
        model.CamX = -std::max(shown - camera.leadStep, left);
    }
}

void MoveUpAndDownByKeys(StageModel& model, const Camera& camera, Keyboard& keyboard) {
    if (keyboard.IsDown(VirtualKey::Up)) {
        StepUp(model, camera.VCamStep);
    }
    if (keyboard.IsDown(VirtualKey::Down)) {
        StepDown(model, camera.VCamStep);
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

void MoveByPointer(StageModel& model, Camera& camera, const CameraInput& input) {
    const PointerPosition pointer = input.pointer.GetCursorPos();
    const WindowPlace place = input.window.Place();
    const double across = FromMiddle(pointer.x, place.left, place.width);
    const double down = FromMiddle(pointer.y, place.top, place.height);
    camera.HCamStep = static_cast<Single>(std::fabs(across) / 10);
    camera.VCamStep = static_cast<Single>(std::fabs(down) / 40);
    if (across > 0) {
        StepRight(model, camera.HCamStep);
    } else if (across < 0) {
        StepLeft(model, camera.HCamStep);
    }
    if (down < 0) {
        StepUp(model, camera.VCamStep);
    } else if (down > 0) {
        StepDown(model, camera.VCamStep);
    }
}

}  // namespace

bool KeyGateIsOpen(const Camera& camera, Long now) {
    return TicksSince(camera.lastKeyTick, now) > kKeyGate;
}

// x is stored negated, so the tests look the other way than the moves.
void StepRight(StageModel& model, Single step) {
    if (-model.CamX + step <= static_cast<Single>(model.BoundRight)) {
        model.CamX -= step;
    }
}

void StepLeft(StageModel& model, Single step) {
    if (-model.CamX - step >= static_cast<Single>(model.BoundLeft)) {
        model.CamX += step;
    }
}

void StepUp(StageModel& model, Single step) {
    if (model.CamY - step >= static_cast<Single>(model.BoundHigh)) {
        model.CamY -= step;
    }
}

void StepDown(StageModel& model, Single step) {
    if (model.CamY + step <= static_cast<Single>(model.BoundLow)) {
        model.CamY += step;
    }
}

void ControlCamera(StageModel& model, Camera& camera, const ViewFlags& flags,
                   const CameraInput& input) {
    if (camera.lead == CameraLead::Keys) {
        MoveSidewaysByKeys(model, camera, input.keyboard);
    } else if (flags.DrawFrontLayer == 0) {
        FollowLead(model, camera);
    }
    MoveUpAndDownByKeys(model, camera, input.keyboard);
    ChangeSteps(camera, input);
    if (input.more != nullptr) {
        input.more->AtEndOfPass();
    }
    if (flags.MouseScroll != 0) {
        MoveByPointer(model, camera, input);
    }
}

}  // namespace scenara
