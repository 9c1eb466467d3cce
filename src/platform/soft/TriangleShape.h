// SPDX-License-Identifier: MIT
//
// The shape of a triangle on the screen, for Triangles.cpp and TurnedQuads.cpp only: which pixels
// of a line lie in it, and what goes linearly over it. Both draw the same because they go by this.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "platform/Direct3D8.h"
#include "platform/soft/Texels.h"
#include "platform/soft/Triangles.h"

namespace scenara::soft {

struct Point {
    double x = 0;
    double y = 0;
};

inline Point PointOf(const Vertex& corner) {
    return {static_cast<double>(corner.x), static_cast<double>(corner.y)};
}

// The first pixel whose centre is at `edge` or after it, `least` to `most`.
inline std::int32_t FirstPixel(double edge, std::int32_t least, std::int32_t most) {
    return static_cast<std::int32_t>(
        std::clamp(std::ceil(edge - 0.5), double{1} * least, double{1} * most));
}

// An edge that is not horizontal, from its upper end to its lower, whichever way the triangle
// runs: so its two triangles get the same cuts.
struct Edge {
    Point top;
    Point bottom;

    [[nodiscard]] bool Meets(double y) const { return top.y <= y && y < bottom.y; }
    [[nodiscard]] double Cut(double y) const {
        return top.x + (y - top.y) * (bottom.x - top.x) / (bottom.y - top.y);
    }
};

struct PixelRun {
    std::int32_t begin = 0;
    std::int32_t end = 0;
};

// The triangle's outline on the screen. It runs clockwise, so an edge that goes up is a left one.
class Outline {
public:
    Outline(const std::array<Point, 3>& corners, const Target& target) : target_(target) {
        for (std::size_t i = 0; i < 3; ++i) {
            const Point from = corners[i];
            const Point to = corners[(i + 1) % 3];
            if (to.y < from.y) {
                left_[leftCount_++] = {to, from};
            } else if (to.y > from.y) {
                right_[rightCount_++] = {from, to};
            }
        }
        const auto [top, bottom] = std::minmax({corners[0].y, corners[1].y, corners[2].y});
        rows_ = {FirstPixel(top, target.top, target.bottom),
                 FirstPixel(bottom, target.top, target.bottom)};
    }

    [[nodiscard]] PixelRun Rows() const { return rows_; }

    // The pixels of the line whose centres have this y, one of Rows().
    [[nodiscard]] PixelRun Pixels(double y) const {
        return {FirstPixel(CutOf(left_, leftCount_, y), target_.left, target_.right),
                FirstPixel(CutOf(right_, rightCount_, y), target_.left, target_.right)};
    }

private:
    // Of the one or two edges of a side exactly one meets the line.
    static double CutOf(const std::array<Edge, 2>& edges, std::size_t count, double y) {
        return count == 2 && edges[1].Meets(y) ? edges[1].Cut(y) : edges[0].Cut(y);
    }

    std::array<Edge, 2> left_;
    std::array<Edge, 2> right_;
    std::size_t leftCount_ = 0;
    std::size_t rightCount_ = 0;
    const Target& target_;
    PixelRun rows_;
};

// A value that goes linearly over the triangle's plane.
struct Slope {
    double start = 0;  // at the plane's first corner
    double perX = 0;
    double perY = 0;
};

// The plane through the corners: makes slopes of what the corners have, and knows where its first
// corner is.
class Plane {
public:
    explicit Plane(const std::array<Point, 3>& corners)
        : origin_(corners[0]),
          second_{corners[1].x - corners[0].x, corners[1].y - corners[0].y},
          third_{corners[2].x - corners[0].x, corners[2].y - corners[0].y},
          area_(second_.x * third_.y - third_.x * second_.y) {}

    // Twice the triangle's; above 0 where it runs clockwise on the screen, whose y goes down.
    [[nodiscard]] double Area() const { return area_; }

    [[nodiscard]] Slope Through(double a, double b, double c) const {
        return {a, ((b - a) * third_.y - (c - a) * second_.y) / area_,
                ((c - a) * second_.x - (b - a) * third_.x) / area_};
    }

    [[nodiscard]] double At(const Slope& slope, Point point) const {
        return slope.start + slope.perX * (point.x - origin_.x) +
               slope.perY * (point.y - origin_.y);
    }

private:
    Point origin_;
    Point second_;
    Point third_;
    double area_;
};

// A value's course along one line of pixels.
struct Course {
    double first = 0;
    double step = 0;

    [[nodiscard]] double At(std::size_t pixel) const {
        return first + static_cast<double>(pixel) * step;
    }
    // Whether it stays among the texels that mean something; false for what is not a number.
    [[nodiscard]] bool HasTexels(std::size_t pixels) const {
        return std::abs(At(0)) <= kMostTexels && std::abs(At(pixels - 1)) <= kMostTexels;
    }
};

// Whether texels are counted mirrored along an axis: they go down to the right, or down the screen
// where that is how they mostly run.
inline bool IsMirrored(const Slope& slope) {
    return std::abs(slope.perX) >= std::abs(slope.perY) ? slope.perX < 0 : slope.perY < 0;
}

// Whether a corner can be drawn at all.
inline bool IsFinite(const Vertex& corner, bool textured) {
    const bool placed = std::isfinite(corner.x) && std::isfinite(corner.y);
    return placed && (!textured || (std::isfinite(corner.tu) && std::isfinite(corner.tv)));
}

}  // namespace scenara::soft
