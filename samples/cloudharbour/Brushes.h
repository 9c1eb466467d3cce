// SPDX-License-Identifier: MIT
//
// Brushes for things that people build: beams, ropes and flat faces, all with smooth edges.
//
// A pixel that is covered in part is mixed with what is painted there. Where nothing is, it is
// painted when at least 0.4 of it is covered.
#pragma once

#include <array>
#include <functional>
#include <span>
#include <vector>

#include "cloudharbour/Scene.h"
#include "painting/Painting.h"
#include "samplemaker/Canvas.h"

namespace scenara::samples::cloudharbour {

using samplemaker::Point;
using Brush = std::function<Light(double x, double y)>;

void Cover(Painting& painting, int x, int y, const Light& light, double part);

// A round beam from one point to another in the morning's light, `thick` pixels at its ends.
struct Beam {
    Point from;
    Point to;
    double thickFrom = 4;
    double thickTo = 4;
};
void PaintBeam(Painting& painting, const Beam& beam, const Light& surface);

// A thread of one colour.
void PaintLine(Painting& painting, Point from, Point to, double thick, const Light& light);

// A rope that hangs `sag` pixels deep in its middle.
void PaintRope(Painting& painting, Point from, Point to, double sag, double thick,
               const Light& surface);

void PaintPolygon(Painting& painting, std::span<const Point> corners, const Brush& brush);

// A ball in the morning's light; an ellipse where the radii differ.
void PaintBall(Painting& painting, Point centre, double radiusX, double radiusY,
               const Light& surface);

// Adds a glow about a point, brightest in the middle, on what is painted.
void AddGlow(Painting& painting, Point centre, double radius, const Light& light);

}  // namespace scenara::samples::cloudharbour
