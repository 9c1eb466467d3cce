// SPDX-License-Identifier: MIT
#include "render/ElementWindow.h"

#include <algorithm>
#include <cmath>

#include "render/ElementScale.h"

namespace scenara {
namespace {

PixelRange AsFarAs(double from, double to, std::int64_t end) {
    // A place that is not a number becomes the far end.
    const auto within = [end](double place) {
        return static_cast<std::int64_t>(
            std::fmax(std::fmin(place, static_cast<double>(end)), 0.0));
    };
    return {within(from), within(to)};
}

// From the smaller to the larger of two corners, both included.
PixelRange PlainlyBetween(Single a, Single b, std::int64_t end) {
    const double low = RoundToEven(static_cast<double>(std::min(a, b)));
    const double high = RoundToEven(static_cast<double>(std::max(a, b)));
    return AsFarAs(low, high + 1, end);
}

PixelRange Between(double low, double high, Long detail, std::int64_t end) {
    const auto edge = [&](double place) { return std::floor(place * detail + 0.5); };
    return AsFarAs(edge(low), edge(high), end);
}

// From the smaller to the larger of two edges that are zoomed.
PixelRange ZoomedBetween(double a, double b, const Zoomed& zoom, std::int64_t end) {
    const auto edge = [&](double place) { return std::floor(zoom.Place(place) + 0.5); };
    return AsFarAs(edge(std::min(a, b)), edge(std::max(a, b)), end);
}

PixelRange Both(const PixelRange& a, const PixelRange& b) {
    return {std::max(a.from, b.from), std::min(a.to, b.to)};
}

// How far windows have moved, stage units. The camera's x is stored negated, y is not.
struct WindowMove {
    WindowMove(const BackgroundElement& element, const CameraPlace& camera)
        : x(static_cast<double>(element.windowDeltaX) * static_cast<double>(camera.x)),
          y(-static_cast<double>(element.windowDeltaY) * static_cast<double>(camera.y)) {}
    double x;
    double y;
};

// Addition: `window`, whose far edges are those of the last pixels inside.
void CutToWindow(ElementWindow& window, const BackgroundElement& element,
                 const DrawOptions& options, const WindowMove& move) {
    const CanvasSize canvas = options.view.Canvas();
    const auto between = [&](Single a, Single b, double moved, std::int64_t end) {
        return Between(static_cast<double>(std::min(a, b)) + moved,
                       static_cast<double>(std::max(a, b)) + moved + 1, options.view.detail, end);
    };
    window.columns = between(element.windowX1, element.windowX2, move.x, canvas.width);
    window.rows = between(element.windowY1, element.windowY2, move.y, canvas.height);
}

// Addition: `maskwindow`, of MUGEN 1.1: from the middle of the view, far edges outside, zoomed.
void CutToMaskWindow(ElementWindow& window, const BackgroundElement& element,
                     const DrawOptions& options, const WindowMove& move) {
    const CanvasSize canvas = options.view.Canvas();
    const double detail = options.view.detail;
    const ElementScale zoom = ZoomOf(element, options.zoom);
    const auto& [left, top, right, bottom] = element.maskWindow;
    const auto column = [&](Single x) {
        return detail * (options.view.Centre() + static_cast<double>(x) + move.x);
    };
    const auto row = [&](Single y) { return detail * (static_cast<double>(y) + move.y); };
    window.columns = Both(window.columns, ZoomedBetween(column(left), column(right),
                                                        options.Across(zoom.x), canvas.width));
    window.rows = Both(window.rows,
                       ZoomedBetween(row(top), row(bottom), options.Down(zoom.y), canvas.height));
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
    ElementWindow window{element.windowActive != 0, {0, canvas.width}, {0, canvas.height}};
    if (!options.additions) {
        if (window.active) {
            window.columns = PlainlyBetween(element.windowX1, element.windowX2, canvas.width);
            window.rows = PlainlyBetween(element.windowY1, element.windowY2, canvas.height);
        }
        return window;
    }
    const WindowMove move(element, options.camera);
    if (window.active) {
        CutToWindow(window, element, options, move);
    }
    if (element.maskWindowActive != 0) {
        window.active = true;
        CutToMaskWindow(window, element, options, move);
    }
    return window;
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
