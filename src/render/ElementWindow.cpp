// SPDX-License-Identifier: MIT
#include "render/ElementWindow.h"

#include <algorithm>
#include <cmath>

namespace scenara {
namespace {

PixelRange AsFarAs(double from, double to, std::int64_t end) {
    const auto most = static_cast<double>(end);
    return {static_cast<std::int64_t>(std::clamp(from, 0.0, most)),
            static_cast<std::int64_t>(std::clamp(to, 0.0, most))};
}

// From the smaller to the larger of two corners, both included.
PixelRange PlainlyBetween(Single a, Single b, std::int64_t end) {
    const double low = RoundToEven(static_cast<double>(std::min(a, b)));
    const double high = RoundToEven(static_cast<double>(std::max(a, b)));
    return AsFarAs(low, high + 1, end);
}

PixelRange Between(Single a, Single b, double moved, Long detail, std::int64_t end) {
    const auto edge = [&](double place) { return std::floor(place * detail + 0.5); };
    const double low = static_cast<double>(std::min(a, b)) + moved;
    const double high = static_cast<double>(std::max(a, b)) + moved;
    return AsFarAs(edge(low), edge(high + 1), end);
}

void Cut(const PixelRange& range, std::int64_t& position, std::int64_t& size,
         std::int64_t& source) {
    const std::int64_t from = std::max(position, range.from);
    const std::int64_t to = std::min(position + size, range.to);
    source += from - position;
    size = to - from;
    position = from;
}

}  // namespace

ElementWindow ElementWindow::Of(const BackgroundElement& element, const DrawOptions& options) {
    const CanvasSize canvas = options.view.Canvas();
    if (element.windowActive == 0) {
        return {false, {0, canvas.width}, {0, canvas.height}};
    }
    if (!options.additions) {
        return {true, PlainlyBetween(element.windowX1, element.windowX2, canvas.width),
                PlainlyBetween(element.windowY1, element.windowY2, canvas.height)};
    }
    // Addition: as elements move; the camera's x is stored negated, y is not.
    const double windowDelta[] = {static_cast<double>(element.windowDeltaX),
                                  -static_cast<double>(element.windowDeltaY)};
    return {true,
            Between(element.windowX1, element.windowX2,
                    windowDelta[0] * static_cast<double>(options.camera.x), options.view.detail,
                    canvas.width),
            Between(element.windowY1, element.windowY2,
                    windowDelta[1] * static_cast<double>(options.camera.y), options.view.detail,
                    canvas.height)};
}

std::optional<SpriteQuad> CutTo(const ElementWindow& window, SpriteQuad quad) {
    if (!window.active) {
        return quad;
    }
    Cut(window.columns, quad.x, quad.width, quad.sourceX);
    Cut(window.rows, quad.y, quad.height, quad.sourceY);
    if (quad.width <= 0 || quad.height <= 0) {
        return std::nullopt;
    }
    return quad;
}

}  // namespace scenara
