// SPDX-License-Identifier: MIT
#include "stage/StageScale.h"

#include <algorithm>
#include <limits>
#include <type_traits>

#include "platform/Direct3D8.h"

namespace scenara {
namespace {

constexpr Long kLowestHeight = 120;
constexpr Long kGreatestHeight = 7680;

// A product that is too large for its field is as near as the field comes to it.
template <typename Number>
Number Nearest(double product) {
    constexpr auto kLeast = static_cast<double>(std::numeric_limits<Number>::lowest());
    constexpr auto kMost = static_cast<double>(std::numeric_limits<Number>::max());
    const double within = std::clamp(product, kLeast, kMost);
    return static_cast<Number>(std::is_integral_v<Number> ? RoundToEven(within) : within);
}

template <typename Number>
void Scale(Number& number, double factor) {
    number = Nearest<Number>(static_cast<double>(number) * factor);
}

// A window's corners along one axis: the nearer one first, and both inside, so that it is the edge
// behind the farther one that is scaled. `before`: view pixels of the stage that are not shown.
void ScaleWindow(Single& a, Single& b, double factor, double before) {
    const auto nearer = static_cast<double>(std::min(a, b));
    const auto farther = static_cast<double>(std::max(a, b));
    a = Nearest<Single>(nearer * factor - before);
    b = Nearest<Single>((farther + 1) * factor - 1 - before);
}

void ScaleElement(BackgroundElement& element, const StageScale& scale) {
    for (Single* const length : {&element.velocityX, &element.velocityY, element.sinState.data(),
                                 &element.sinYAmplitude}) {
        Scale(*length, scale.elements);
    }
    ScaleWindow(element.windowX1, element.windowX2, scale.elements, scale.columnsBefore);
    ScaleWindow(element.windowY1, element.windowY2, scale.elements, 0);
    for (Single* const perCamera :
         {&element.deltaX, &element.deltaY, &element.windowDeltaX, &element.windowDeltaY}) {
        Scale(*perCamera, scale.deltas);
    }
    Scale(element.yscaleDelta, 1 / scale.stage);
}

void ScaleSettings(StageModel& model, double factor) {
    Scale(model.CamStartX, factor);
    for (Long* const bound : {&model.BoundLeft, &model.BoundRight}) {
        Scale(*bound, factor);
    }
    for (Integer* const length :
         {&model.CamStartY, &model.BoundHigh, &model.BoundLow, &model.ZOffset, &model.P1StartX,
          &model.Tension, &model.ScreenLeft, &model.ScreenRight}) {
        Scale(*length, factor);
    }
}

}  // namespace

StageScale ScaleOf(const StageModel& model, const View& view) {
    StageScale scale;
    const Long height = model.localcoordHeight;
    if (height >= kLowestHeight && height <= kGreatestHeight) {
        scale.stage = static_cast<double>(view.height) / height;
        if (model.localcoordWidth > 0) {
            scale.columnsBefore = (model.localcoordWidth * scale.stage - view.width) / 2;
        }
    }
    scale.deltas = model.hires != 0 ? 0.5 : 1;
    scale.elements = scale.stage * scale.deltas;
    return scale;
}

void ApplyStageScale(StageModel& model, const View& view) {
    const StageScale scale = ScaleOf(model, view);
    if (scale.elements == 1 && scale.stage == 1 && scale.columnsBefore == 0) {
        return;
    }
    model.ElementScale = static_cast<Single>(scale.elements);
    for (BackgroundElement& element : model.Elements) {
        ScaleElement(element, scale);
    }
    ScaleSettings(model, scale.stage);
}

}  // namespace scenara
