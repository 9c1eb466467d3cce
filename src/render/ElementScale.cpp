// SPDX-License-Identifier: MIT
#include "render/ElementScale.h"

#include <algorithm>
#include <cstddef>

namespace scenara {
namespace {

constexpr double kMostScale = 1024;

}  // namespace

double KeptScale(double scale) {
    // A scale that is not a number hides the picture.
    return scale == scale ? std::clamp(scale, -kMostScale, kMostScale) : 0;
}

ElementScale ScaleOf(const BackgroundElement& element, const StageSpace& space, double cameraX,
                     double cameraY) {
    const auto at = [&](std::size_t axis, double camera, Single delta, double stage) {
        const auto start = static_cast<double>(element.scaleStart[axis]);
        const auto perUnit = static_cast<double>(element.scaleDelta[axis]);
        return KeptScale(
            perUnit == 0 ? start : start + perUnit * camera * static_cast<double>(delta) / stage);
    };
    return {at(0, cameraX, element.deltaX, space.scaleX),
            at(1, cameraY, element.deltaY, space.scaleY)};
}

ElementScale ZoomOf(const BackgroundElement& element, double zoom) {
    const auto at = [zoom](Single delta) {
        return std::max(KeptScale(1 - static_cast<double>(delta) * (1 - zoom)), 0.0);
    };
    return zoom == 1 ? ElementScale()
                     : ElementScale{at(element.zoomDelta[0]), at(element.zoomDelta[1])};
}

}  // namespace scenara
