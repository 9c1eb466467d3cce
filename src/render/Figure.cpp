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

double WholePixels(double position) {
    const double part = std::round(position * kPartsOfPixel) / kPartsOfPixel;
    return std::floor(part + 0.5);
}

struct PixelEdges {
    Single begin;
    Single length;
};
PixelEdges EdgesOf(double begin, double length) {
    const double first = WholePixels(begin);
    const double end = std::max(WholePixels(begin + length), first + 1);
    return {static_cast<Single>(first), static_cast<Single>(end - first)};
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
    const auto width = static_cast<double>(figure.width);
    const double left = static_cast<double>(figure.x) - (figure.mirrored ? width : 0);
    const auto top = static_cast<double>(figure.y);
    const PixelEdges across = EdgesOf(left, width);
    const PixelEdges down = EdgesOf(top, static_cast<double>(figure.height));
    Direct3DDevice8& device = engine.Device();
    BlendByAlpha(device, D3DBLEND_INVSRCALPHA);
    engine.BlitWhole(*figure.texture, across.begin, down.begin, across.length, down.length,
                     figure.mirrored);
    BlendNoMore(device);
}

}  // namespace scenara
