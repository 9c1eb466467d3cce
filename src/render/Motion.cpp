// SPDX-License-Identifier: MIT
#include "render/Motion.h"

#include <cmath>
#include <limits>
#include <numbers>

#include "stage/ModelLookup.h"

namespace scenara {
namespace {

void SwingOn(Single amplitude, Single period, Single& time, Single& offset) {
    if (amplitude == 0 || period == 0) {
        return;
    }
    const double angle = std::numbers::pi / static_cast<double>(period) * static_cast<double>(time);
    offset = static_cast<Single>(static_cast<double>(amplitude) * std::sin(angle));
    time += 1;
    if (time == 2 * period) {
        time = 0;
    }
}

void SwingOnWhole(Single amplitude, Single period, Single phase, Long& tick, Single& offset) {
    if (amplitude == 0 || !(period > 0)) {
        return;
    }
    const double swings =
        static_cast<double>(tick) / static_cast<double>(period) + static_cast<double>(phase) / 360;
    const double place = static_cast<double>(amplitude) * std::sin(2 * std::numbers::pi * swings);
    // In the middle the sine is a little beside 0, which would move a picture by a pixel.
    constexpr double kNothing = 1.0 / 1048576;
    offset = std::fabs(place) < kNothing ? Single{0} : static_cast<Single>(place);
    tick = tick == std::numeric_limits<Long>::max() ? 0 : tick + 1;
}

}  // namespace

void NoteLinks(StageModel& model) {
    for (BackgroundElement& element : model.Elements) {
        if (element.linkParent == -1) {
            continue;
        }
        const BackgroundElement& parent = RecordAt(model.Elements, element.linkParent, "element");
        element.linkSin = parent.sinOffset;
        element.ctrlOffset = {parent.ctrlPos[0], parent.ctrlPos[1]};
    }
}

void Drift(BackgroundElement& element) {
    element.posX += element.velocityX;
    element.posY += element.velocityY;
    element.ctrlPos[0] += element.velocityX;
    element.ctrlPos[1] += element.velocityY;
}

void DriftOn(BackgroundElement& element) {
    element.motion[0] += static_cast<double>(element.velocityX);
    element.motion[1] += static_cast<double>(element.velocityY);
}

void SwingOn(BackgroundElement& element) {
    SwingOn(element.sinState[0], element.sinState[1], element.sinState[2], element.sinOffset[0]);
    SwingOn(element.sinYAmplitude, element.sinYPeriod, element.sinYPhase, element.sinOffset[1]);
}

void SwingWhole(BackgroundElement& element) {
    const auto& [amplitude, period, phase] = element.sinState;
    SwingOnWhole(amplitude, period, phase, element.swingTick[0], element.sinOffset[0]);
    SwingOnWhole(element.sinYAmplitude, element.sinYPeriod, element.sinYPhase, element.swingTick[1],
                 element.sinOffset[1]);
}

void FollowCamera(const StageModel& model, const Camera& camera, BackgroundElement& element) {
    const Single movedX = camera.previousX - model.CamX;
    if (movedX != 0) {
        const Single step = element.deltaX * camera.HCamStep;
        element.posX += movedX > 0 ? -step : step;
    }
    const Single movedY = camera.previousY - model.CamY;
    if (movedY != 0) {
        const Single step = element.deltaY * camera.VCamStep;
        element.posY += movedY > 0 ? step : -step;
    }
}

}  // namespace scenara
