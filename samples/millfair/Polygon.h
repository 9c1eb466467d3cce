// SPDX-License-Identifier: MIT
//
// Polygon: flat shapes with smooth edges, for all that is built of boards, cloth and stone.
#pragma once

#include <functional>
#include <vector>

#include "painting/AlphaPainting.h"

namespace scenara::samples::millfair {

struct Point {
    double x = 0;
    double y = 0;
};
using Points = std::vector<Point>;

// The film at the middle of a pixel.
using PolygonBrush = std::function<Film(double x, double y)>;

// Three corners at least; they may turn inwards.
void PaintPolygon(AlphaPainting& painting, const Points& points, const PolygonBrush& brush);
void PaintPolygon(AlphaPainting& painting, const Points& points, const Light& light);

// From its left and upper edge to the right and lower one.
void PaintBox(AlphaPainting& painting, const Point& from, const Point& to,
              const PolygonBrush& brush);
void PaintBox(AlphaPainting& painting, const Point& from, const Point& to, const Light& light);

}  // namespace scenara::samples::millfair
