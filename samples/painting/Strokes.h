// SPDX-License-Identifier: MIT
//
// Strokes: soft lines that bend and swell, for all that grows, floats or is built of bars.
//
// A stroke runs through knots, from each to the next in a straight line. However it bends, no pixel
// gets its film twice, so a thin film shows no joints.
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "painting/AlphaPainting.h"

namespace scenara::samples {

struct Knot {
    double x = 0;
    double y = 0;
    double half = 1;  // half of the stroke's width there
};
using Knots = std::vector<Knot>;

struct StrokePlace {
    double along = 0;   // 0 at the first knot, 1 at the last
    double across = 0;  // -1 … 1, 0 in the middle; below 0 on the left of the way along
};
using StrokeBrush = std::function<Film(const StrokePlace& place)>;

// `count` knots, those of `at(0)` to `at(1)`.
template <typename At>
Knots KnotsAlong(int count, At at) {
    Knots knots;
    for (int i = 0; i < count; ++i) {
        knots.push_back(at(i / static_cast<double>(count - 1)));
    }
    return knots;
}

// Two knots at least. The edge is as wide as `soft`, in pixels; 1 is just smooth.
void PaintStroke(AlphaPainting& painting, std::span<const Knot> knots, double soft,
                 const StrokeBrush& brush);
void PaintStroke(AlphaPainting& painting, std::span<const Knot> knots, double soft,
                 const Film& film);

struct Oval {
    double x = 0;
    double y = 0;
    double radiusX = 1;
    double radiusY = 1;
};

// The brush gets the place within the oval, each -1 … 1.
using OvalBrush = std::function<Film(double u, double v)>;
void PaintOval(AlphaPainting& painting, const Oval& oval, double soft, const OvalBrush& brush);

// Densest in the middle, nothing at the oval's edge.
void PaintGlow(AlphaPainting& painting, const Oval& oval, const Film& film);

}  // namespace scenara::samples
