// SPDX-License-Identifier: MIT
#include "render/ZoomControl.h"

#include <cmath>

#include "render/PrepareStage.h"
#include "render/SeenFrom.h"
#include "stage/CameraZoom.h"

namespace scenara {

double ZoomAfter(const StageModel& model, ZoomStep step) {
    constexpr double kSteps = 10;
    constexpr double kHair = 1.0 / 1024;  // of a step: a tenth is seldom exact
    const ZoomRange range = ZoomRangeOf(model);
    if (step == ZoomStep::ToStart) {
        return range.Kept(static_cast<double>(model.StartZoom));
    }
    if (range.HasOnlyOne()) {
        return range.out;
    }
    const double perStep = (range.in - range.out) / kSteps;
    const double at = (model.CamZoom - range.out) / perStep;
    const double next =
        step == ZoomStep::In ? std::floor(at + kHair) + 1 : std::ceil(at - kHair) - 1;
    return next >= kSteps ? range.in : range.Kept(range.out + next * perStep);
}

void SetZoom(StageModel& model, Camera& camera, const View& view, double zoom) {
    model.CamZoom = ZoomRangeOf(model).Kept(zoom);
    PlaceCamera(model, camera, view, {model.CamX, model.CamY});
    NoteWhereSeen(model, view);
}

}  // namespace scenara
