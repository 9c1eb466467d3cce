// SPDX-License-Identifier: MIT
#include "render/Figure.h"

#include <algorithm>
#include <cmath>

#include "render/BlendStates.h"

namespace scenara {
namespace {

// Beyond this nothing is near the view.
constexpr Single kFarthestEdge = 1000000;

// The place and the camera are sums of many steps. A sum that is meant to end on a half must not
// fall to either side of it by its last bits, or a figure that the camera follows would tremble.
constexpr double kPartsOfPixel = 256;

Single WholePixels(Single position) {
    const double part = std::round(static_cast<double>(position) * kPartsOfPixel) / kPartsOfPixel;
    return static_cast<Single>(RoundToEven(part));
}

// Written so that what is no number is not near.
bool IsNear(Single edge) {
    return std::fabs(edge) <= kFarthestEdge;
}

bool HasSize(Single size) {
    return size > 0 && size <= kFarthestEdge;
}

}  // namespace

void DrawFigure(Engine& engine, const Figure& figure) {
    if (figure.texture == nullptr || !IsNear(figure.x) || !IsNear(figure.y) ||
        !HasSize(figure.width) || !HasSize(figure.height)) {
        return;
    }
    const Single width = std::max(WholePixels(figure.width), 1.0F);
    const Single height = std::max(WholePixels(figure.height), 1.0F);
    const Single edge = WholePixels(figure.x);
    Direct3DDevice8& device = engine.Device();
    BlendByAlpha(device, D3DBLEND_INVSRCALPHA);
    engine.BlitWhole(*figure.texture, figure.mirrored ? edge - width : edge, WholePixels(figure.y),
                     width, height, figure.mirrored);
    BlendNoMore(device);
}

}  // namespace scenara
