// SPDX-License-Identifier: MIT
//
// Shapes as signed distances, in pixels: below 0 inside, above 0 outside. Light and lead lines are
// drawn by how far a pixel is from an edge, so that edges come out smooth.
#pragma once

#include <algorithm>
#include <cmath>

namespace scenara::samples {

// 0 up to `from`, 1 from `to` on, eased in between. `from` may be the larger one.
inline double Rise(double from, double to, double value) {
    const double t = std::clamp((value - from) / (to - from), 0.0, 1.0);
    return t * t * (3 - 2 * t);
}

// 1 where the distance is 0, falling to 0 at `width`.
inline double Line(double distance, double width) {
    return Rise(width, width / 2, std::abs(distance));
}

// The place within a row of cells, -size / 2 up to size / 2.
inline double InCell(double value, double size) {
    return value - size * std::floor(value / size + 0.5);
}

inline double Circle(double x, double y, double radius) {
    return std::hypot(x, y) - radius;
}

inline double Box(double x, double y, double halfWidth, double halfHeight) {
    return std::max(std::abs(x) - halfWidth, std::abs(y) - halfHeight);
}

// A window's opening about column 0: straight sides up to row `spring`, then two arcs that meet in
// a point; the larger their radius, the steeper. Without a lower end.
struct PointedArch {
    double halfWidth = 1;
    double spring = 0;
    double radius = 2;

    [[nodiscard]] double Distance(double x, double y) const {
        const double side = std::abs(x);
        return y >= spring ? side - halfWidth
                           : std::hypot(side + radius - halfWidth, y - spring) - radius;
    }
};

}  // namespace scenara::samples
