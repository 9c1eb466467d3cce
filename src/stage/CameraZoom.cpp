// SPDX-License-Identifier: MIT
#include "stage/CameraZoom.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "stage/ElementStart.h"
#include "stage/StageSpace.h"

namespace scenara {
namespace {

constexpr double kMostZoom = 64;

double KeptZoom(Single zoom) {
    // Written so that what is no number is not above 0.
    return zoom > 0 ? std::clamp(static_cast<double>(zoom), 1 / kMostZoom, kMostZoom) : 1;
}

}  // namespace

double ZoomRange::Kept(double zoom) const {
    return std::isnan(zoom) ? out : std::clamp(zoom, out, in);
}

ZoomRange ZoomRangeOf(const StageModel& model) {
    const double out = KeptZoom(model.ZoomOut);
    return {out, std::max(KeptZoom(model.ZoomIn), out)};
}

double BeyondBoundsAt(const StageModel& model, const View& view, double zoom) {
    const double beyond = view.width / 2.0 * (1 / ZoomRangeOf(model).out - 1 / zoom);
    return model.MugenVersion < 1 ? std::floor(beyond) : beyond;
}

const BackgroundElement* GroundElement(const StageModel& model) {
    const Integer index = model.ZOffsetLink;
    const bool there = index >= 0 && static_cast<std::size_t>(index) < model.Elements.size();
    return there ? &model.Elements[static_cast<std::size_t>(index)] : nullptr;
}

double GroundRow(const StageModel& model, double moved) {
    const BackgroundElement* const linked = GroundElement(model);
    if (linked == nullptr) {
        return model.ZOffset;
    }
    const StageSpace space = SpaceOf(model);
    return model.ZOffset + space.hires * space.scaleY * (StartOf(model, *linked).y + moved);
}

}  // namespace scenara
