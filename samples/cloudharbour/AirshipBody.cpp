// SPDX-License-Identifier: MIT
//
// The body of an airship: canvas over rings and stringers, with a stripe along it and a sun on its
// side.
#include <algorithm>
#include <array>
#include <cmath>

#include "cloudharbour/Airship.h"
#include "painting/NoiseSheet.h"

namespace scenara::samples::cloudharbour {
namespace {

constexpr double kHalfTurn = 3.14159265;

// Half the body's height at a part of its length.
double RadiusAt(const Airship& ship, double t) {
    const double inside = std::clamp(t, 0.0, 1.0);
    const double nose = std::sqrt(1 - std::pow(1 - std::min(inside / 0.42, 1.0), 2));
    const double tail = inside < 0.42 ? 1 : 1 - std::pow((inside - 0.42) / 0.58, 2.1) * 0.93;
    return ship.girth * nose * tail;
}

struct Skin {
    double t = 0;       // along, 0 … 1
    double around = 0;  // -1 the top, 1 the bottom
};

// A sun with eight rays, on the thick part of the body.
double EmblemDistance(const Airship& ship, const Skin& skin) {
    const double x = (skin.t - 0.335) * ship.length;
    const double y = (skin.around + 0.02) * ship.girth * 1.1;
    const double away = std::hypot(x, y);
    const double turn = std::atan2(y, x);
    const double size = ship.girth * 0.40;
    const double ray = size * (0.74 + 0.26 * std::cos(turn * 12));
    const double ring = std::abs(away - size * 0.44) - size * 0.05;
    return std::min({away - size * 0.33, std::max(away - ray, size * 0.56 - away), ring});
}

Light CanvasAt(const Airship& ship, const Skin& skin, const NoiseSheet& wear) {
    const double scale = ship.girth / 100;
    const double stain = wear.At(skin.t * 700, skin.around * 60 + 128) - 0.5;
    Light canvas = ship.canvas * (1 + 0.16 * stain);
    const bool band = std::abs(skin.around - 0.36) < 0.075 || std::abs(skin.around + 0.42) < 0.03;
    const bool tip =
        skin.t < 0.055 || (skin.t > 0.20 && skin.t < 0.216) || (skin.t > 0.60 && skin.t < 0.616);
    if (band || tip) {
        canvas = ship.stripe * (1 + 0.2 * stain);
    }
    canvas = Mixed(canvas, Light{0.86, 0.58, 0.26}, Rise(0.8, -0.8, EmblemDistance(ship, skin)));
    // Panels between rings and stringers, each sewn a little differently.
    const double ring = InCell(skin.t * 14, 1);
    const double stringer = InCell(skin.around * 5, 1);
    const double seam = std::max(Line(ring, 0.022 / std::max(0.3, scale)),
                                 0.7 * Line(stringer, 0.034 / std::max(0.3, scale)));
    const double belly = 1 + 0.07 * std::cos(ring * 2 * kHalfTurn);
    return canvas * (belly * (1 - 0.2 * std::min(1.0, scale) * seam));
}

}  // namespace

void PaintBody(Painting& painting, const Airship& ship) {
    const NoiseSheet wear(1129, 8, 4);
    const double middle = ship.nose.y;
    for (int x = static_cast<int>(ship.nose.x); x <= ship.nose.x + ship.length; ++x) {
        const double t = (x + 0.5 - ship.nose.x) / ship.length;
        const double radius = RadiusAt(ship, t);
        const double step = 0.004;
        const double slope =
            (RadiusAt(ship, t + step) - RadiusAt(ship, t - step)) / (2 * step * ship.length);
        for (int y = static_cast<int>(middle - radius - 1); y <= middle + radius + 1; ++y) {
            const double v = (y + 0.5 - middle) / std::max(radius, 0.5);
            const double part = (1 - std::abs(v)) * radius + 0.5;
            if (part <= 0) {
                continue;
            }
            const double turn = std::clamp(v, -1.0, 1.0);
            const double front = std::sqrt(1 - turn * turn);
            const double length = std::sqrt(1 + slope * slope);
            const Facing facing{-slope / length, turn / length, front / length};
            const Skin skin{t, std::asin(turn) / (kHalfTurn / 2)};
            const Light canvas = CanvasAt(ship, skin, wear);
            // A low sun: the upper left is warm, the belly has the light of the clouds.
            const double sun = TowardsSun(facing) - 0.20 * Rise(0.1, 0.9, t) + 0.10;
            const double sheen = std::pow(std::max(0.0, TowardsSun(facing)), 14) * 0.18;
            const double rim = Rise(0.26, 0.0, front) * Rise(0.1, -0.6, turn) * Rise(0.9, 0.1, t);
            Cover(painting, x, y,
                  InLight(canvas, sun) * (0.80 + 0.20 * Rise(1.0, 0.2, turn)) +
                      FromBelow(canvas, turn) + kSunGold * sheen + kSunlight * (0.42 * rim),
                  part);
        }
    }
}

void PaintFins(Painting& painting, const Airship& ship) {
    const double tail = ship.nose.x + ship.length;
    const double middle = ship.nose.y;
    const double unit = ship.girth / 100;
    for (const int side : {-1, 1}) {
        const std::array fin = {Point{tail - 150 * unit, middle + side * 40 * unit},
                                Point{tail - 70 * unit, middle + side * 104 * unit},
                                Point{tail + 8 * unit, middle + side * 108 * unit},
                                Point{tail - 4 * unit, middle + side * 12 * unit}};
        PaintPolygon(painting, fin, [&](double x, double y) {
            const double rib = Line(InCell(x + 0.5 * side * y, 18 * unit), 1.6);
            const double out = side * (y - middle) / (108 * unit);  // 0 at the body, 1 outside
            const bool rudder = x > tail - 34 * unit;
            const bool band = std::abs(out - 0.72) < 0.07;
            const Light cloth = rudder || band ? ship.stripe : ship.canvas;
            const double leading = Rise(60 * unit, 0, x - tail + 150 * unit - 80 * unit * out);
            return InLight(cloth, (side < 0 ? 0.14 : 0.0) + 0.5 * leading + 0.2 * (out - 0.5)) *
                       (0.94 - 0.2 * rib) +
                   FromBelow(cloth, side > 0 ? 0.7 : 0);
        });
    }
}

}  // namespace scenara::samples::cloudharbour
