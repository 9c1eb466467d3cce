// SPDX-License-Identifier: MIT
#include "millfair/Polygon.h"

#include <algorithm>
#include <cmath>

namespace scenara::samples::millfair {
namespace {

constexpr int kParts = 4;  // a pixel is looked at in so many places each way

bool IsInside(const Points& points, double x, double y) {
    bool inside = false;
    for (std::size_t i = 0, last = points.size() - 1; i < points.size(); last = i++) {
        const Point& a = points[i];
        const Point& b = points[last];
        if ((a.y > y) != (b.y > y) && x < a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y)) {
            inside = !inside;
        }
    }
    return inside;
}

double Cover(const Points& points, int x, int y) {
    int inside = 0;
    for (int down = 0; down < kParts; ++down) {
        for (int across = 0; across < kParts; ++across) {
            inside += IsInside(points, x + (across + 0.5) / kParts, y + (down + 0.5) / kParts);
        }
    }
    return inside / static_cast<double>(kParts * kParts);
}

}  // namespace

void PaintPolygon(AlphaPainting& painting, const Points& points, const PolygonBrush& brush) {
    const auto [left, right] = std::ranges::minmax(points, {}, &Point::x);
    const auto [top, bottom] = std::ranges::minmax(points, {}, &Point::y);
    const int endX = std::min(painting.Width(), static_cast<int>(std::ceil(right.x)));
    const int endY = std::min(painting.Height(), static_cast<int>(std::ceil(bottom.y)));
    for (int y = std::max(0, static_cast<int>(std::floor(top.y))); y < endY; ++y) {
        for (int x = std::max(0, static_cast<int>(std::floor(left.x))); x < endX; ++x) {
            const double cover = Cover(points, x, y);
            if (cover > 0) {
                const Film film = brush(x + 0.5, y + 0.5);
                painting.Lay(x, y, {film.light, film.part * cover});
            }
        }
    }
}

void PaintPolygon(AlphaPainting& painting, const Points& points, const Light& light) {
    PaintPolygon(painting, points, [&](double, double) { return Film{light, 1}; });
}

void PaintBox(AlphaPainting& painting, const Point& from, const Point& to,
              const PolygonBrush& brush) {
    PaintPolygon(painting, {from, {to.x, from.y}, to, {from.x, to.y}}, brush);
}

void PaintBox(AlphaPainting& painting, const Point& from, const Point& to, const Light& light) {
    PaintBox(painting, from, to, [&](double, double) { return Film{light, 1}; });
}

}  // namespace scenara::samples::millfair
