// SPDX-License-Identifier: MIT
#include "cloudharbour/Brushes.h"

#include <algorithm>
#include <cmath>

namespace scenara::samples::cloudharbour {
namespace {

int Down(double value) {
    return static_cast<int>(std::floor(value));
}

int Up(double value) {
    return static_cast<int>(std::ceil(value));
}

double CoverOf(std::span<const Point> corners, int x, int y) {
    constexpr int kSteps = 3;
    int inside = 0;
    for (int row = 0; row < kSteps; ++row) {
        for (int column = 0; column < kSteps; ++column) {
            const Point point{x + (column + 0.5) / kSteps, y + (row + 0.5) / kSteps};
            inside += samplemaker::InPolygon(corners, point) ? 1 : 0;
        }
    }
    return inside / static_cast<double>(kSteps * kSteps);
}

}  // namespace

void Cover(Painting& painting, int x, int y, const Light& light, double part) {
    if (part <= 0) {
        return;
    }
    if (painting.IsPainted(x, y)) {
        painting.Lay(x, y, light, std::min(part, 1.0));
    } else if (part >= 0.4) {
        painting.Set(x, y, light);
    }
}

void PaintBeam(Painting& painting, const Beam& beam, const Light& surface) {
    const double alongX = beam.to.x - beam.from.x;
    const double alongY = beam.to.y - beam.from.y;
    const double length = std::max(0.001, std::hypot(alongX, alongY));
    const double widest = std::max(beam.thickFrom, beam.thickTo) / 2 + 1;
    const double sideX = -alongY / length;  // across the beam
    const double sideY = alongX / length;
    for (int y = Down(std::min(beam.from.y, beam.to.y) - widest);
         y <= Up(std::max(beam.from.y, beam.to.y) + widest); ++y) {
        for (int x = Down(std::min(beam.from.x, beam.to.x) - widest);
             x <= Up(std::max(beam.from.x, beam.to.x) + widest); ++x) {
            const double fromX = x + 0.5 - beam.from.x;
            const double fromY = y + 0.5 - beam.from.y;
            const double along = (fromX * alongX + fromY * alongY) / (length * length);
            const double part = std::clamp(along, 0.0, 1.0);
            const double half = (beam.thickFrom + (beam.thickTo - beam.thickFrom) * part) / 2;
            const double across = fromX * sideX + fromY * sideY;
            const double past = std::max(std::abs(along - part) * length, 0.0);
            const double cover = std::min(half - std::abs(across), 0.5 - past) + 0.5;
            if (cover > 0) {
                const double turn = std::clamp(across / std::max(half, 0.5), -1.0, 1.0);
                const Facing facing{turn * sideX, turn * sideY, std::sqrt(1 - turn * turn)};
                const Light light =
                    InLight(surface, TowardsSun(facing)) + FromBelow(surface, facing.y);
                Cover(painting, x, y, light, cover);
            }
        }
    }
}

void PaintLine(Painting& painting, Point from, Point to, double thick, const Light& light) {
    const double length = std::max(0.001, std::hypot(to.x - from.x, to.y - from.y));
    for (int y = Down(std::min(from.y, to.y) - thick); y <= Up(std::max(from.y, to.y) + thick);
         ++y) {
        for (int x = Down(std::min(from.x, to.x) - thick); x <= Up(std::max(from.x, to.x) + thick);
             ++x) {
            const double fromX = x + 0.5 - from.x;
            const double fromY = y + 0.5 - from.y;
            const double along = std::clamp(
                (fromX * (to.x - from.x) + fromY * (to.y - from.y)) / length, 0.0, length);
            const double away = std::hypot(fromX - (to.x - from.x) * along / length,
                                           fromY - (to.y - from.y) * along / length);
            Cover(painting, x, y, light, thick / 2 + 0.5 - away);
        }
    }
}

void PaintRope(Painting& painting, Point from, Point to, double sag, double thick,
               const Light& surface) {
    constexpr int kPieces = 14;
    Point last = from;
    for (int piece = 1; piece <= kPieces; ++piece) {
        const double t = piece / static_cast<double>(kPieces);
        const Point next{from.x + (to.x - from.x) * t,
                         from.y + (to.y - from.y) * t + sag * 4 * t * (1 - t)};
        PaintBeam(painting, {last, next, thick, thick}, surface);
        last = next;
    }
}

void PaintPolygon(Painting& painting, std::span<const Point> corners, const Brush& brush) {
    const auto [left, right] = std::minmax_element(
        corners.begin(), corners.end(), [](const Point& a, const Point& b) { return a.x < b.x; });
    const auto [top, bottom] = std::minmax_element(
        corners.begin(), corners.end(), [](const Point& a, const Point& b) { return a.y < b.y; });
    for (int y = Down(top->y); y <= Up(bottom->y); ++y) {
        for (int x = Down(left->x); x <= Up(right->x); ++x) {
            const double part = CoverOf(corners, x, y);
            if (part > 0) {
                Cover(painting, x, y, brush(x + 0.5, y + 0.5), part);
            }
        }
    }
}

void PaintBall(Painting& painting, Point centre, double radiusX, double radiusY,
               const Light& surface) {
    for (int y = Down(centre.y - radiusY - 1); y <= Up(centre.y + radiusY + 1); ++y) {
        for (int x = Down(centre.x - radiusX - 1); x <= Up(centre.x + radiusX + 1); ++x) {
            const double u = (x + 0.5 - centre.x) / radiusX;
            const double v = (y + 0.5 - centre.y) / radiusY;
            const double flat = u * u + v * v;
            const double part = (1 - std::sqrt(flat)) * std::min(radiusX, radiusY) + 0.5;
            const Facing facing{u, v, std::sqrt(std::max(0.0, 1 - flat))};
            Cover(painting, x, y, InLight(surface, TowardsSun(facing)) + FromBelow(surface, v),
                  part);
        }
    }
}

void AddGlow(Painting& painting, Point centre, double radius, const Light& light) {
    for (int y = Down(centre.y - radius); y <= Up(centre.y + radius); ++y) {
        for (int x = Down(centre.x - radius); x <= Up(centre.x + radius); ++x) {
            const double away = std::hypot(x + 0.5 - centre.x, y + 0.5 - centre.y) / radius;
            if (away < 1 && painting.IsPainted(x, y)) {
                painting.Add(x, y, light * ((1 - away) * (1 - away)));
            }
        }
    }
}

}  // namespace scenara::samples::cloudharbour
