// SPDX-License-Identifier: MIT
#include "render/ElementWindow.h"

#include <algorithm>

namespace scenara {
namespace {

// From the smaller to the larger of two corners, both included, as far as the view goes.
PixelRange Between(Single a, Single b, double moved, std::int64_t end) {
    const double low = RoundToEven(static_cast<double>(std::min(a, b)) + moved);
    const double high = RoundToEven(static_cast<double>(std::max(a, b)) + moved);
    const auto most = static_cast<double>(end);
    return {static_cast<std::int64_t>(std::clamp(low, 0.0, most)),
            static_cast<std::int64_t>(std::clamp(high + 1, 0.0, most))};
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

ElementWindow ElementWindow::Of(const BackgroundElement& element, Single cameraX, Single cameraY,
                                const View& view) {
    if (element.windowActive == 0) {
        return {false, {0, view.width}, {0, view.height}};
    }
    // As elements move: x is stored negated, y is not.
    const double movedX = static_cast<double>(element.windowDeltaX) * static_cast<double>(cameraX);
    const double movedY = static_cast<double>(element.windowDeltaY) * static_cast<double>(cameraY);
    return {true, Between(element.windowX1, element.windowX2, movedX, view.width),
            Between(element.windowY1, element.windowY2, -movedY, view.height)};
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
