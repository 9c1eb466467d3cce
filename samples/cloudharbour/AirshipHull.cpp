// SPDX-License-Identifier: MIT
//
// What hangs below an airship: a hull of planks like a boat's, with lit windows, and an engine.
#include <algorithm>
#include <array>
#include <cmath>

#include "cloudharbour/Airship.h"
#include "painting/NoiseSheet.h"

namespace scenara::samples::cloudharbour {
namespace {

struct HullLines {
    double left;
    double right;
    double deck;  // the row of the deck amidships
    double depth;
    double unit;

    explicit HullLines(const Airship& ship)
        : left(ship.nose.x + ship.length * 0.20),
          right(ship.nose.x + ship.length * 0.70),
          deck(ship.nose.y + ship.girth * 1.30),
          depth(ship.girth * 0.46),
          unit(ship.girth / 100) {}

    // The rail rises to both ends, more to the bow.
    [[nodiscard]] double Rail(double x) const {
        const double t = (x - left) / (right - left);
        return deck - unit * (34 * std::pow(1 - t, 3) + 22 * std::pow(t, 3));
    }
    [[nodiscard]] double Keel(double x) const {
        const double t = std::clamp((x - left) / (right - left), 0.0, 1.0);
        const double bow = std::pow(std::min(1.0, t / 0.34), 0.55);
        const double stern = std::pow(std::min(1.0, (1 - t) / 0.12), 0.6);
        return Rail(x) + (deck + depth - Rail(x)) * bow * (0.55 + 0.45 * stern);
    }
};

void PaintRigging(Painting& painting, const Airship& ship, const HullLines& hull) {
    const Light rope{0.20, 0.14, 0.22};
    for (int i = 0; i <= 8; ++i) {
        const double t = i / 8.0;
        const double foot = hull.left + (hull.right - hull.left) * (0.04 + 0.92 * t);
        for (const double spread : {-22.0, 22.0}) {
            PaintLine(painting, {foot, hull.Rail(foot)},
                      {foot + (spread + 40 * (t - 0.5)) * hull.unit, ship.nose.y + 66 * hull.unit},
                      1.1, rope);
        }
    }
}

void PaintPlanks(Painting& painting, const Airship& ship, const HullLines& hull) {
    const NoiseSheet grain(1151, 16, 4);
    for (int x = static_cast<int>(hull.left); x <= hull.right; ++x) {
        const double rail = hull.Rail(x);
        const double keel = hull.Keel(x);
        for (int y = static_cast<int>(rail); y <= keel; ++y) {
            const double down = (y + 0.5 - rail) / std::max(1.0, keel - rail);
            const double along = (x - hull.left) / (hull.right - hull.left);
            const Facing facing{-0.75 * Rise(0.3, 0.0, along) + 0.2 * along, -0.25 + 0.85 * down,
                                0.8 - 0.4 * down};
            const double strake = down * 7;
            const double seam = Line(InCell(strake, 1), 0.16);
            const double wear = grain.At(x * 0.7 + 40 * std::floor(strake + 0.5), y * 2.0) - 0.5;
            const Light wood = ship.wood * (1 + 0.42 * wear);
            Light light =
                InLight(wood, TowardsSun(facing)) * (1 - 0.42 * seam) + FromBelow(wood, down);
            if (down < 0.12) {  // the gilded rail
                light = InLight({0.62, 0.44, 0.28}, 0.44 - 0.3 * along);
            } else if (std::abs(down - 0.5) < 0.05) {
                light = InLight(ship.stripe, 0.15) * 0.9;
            }
            painting.Set(x, y, light);
        }
    }
}

void PaintCabin(Painting& painting, const Airship& ship, const HullLines& hull) {
    const double left = hull.left + (hull.right - hull.left) * 0.52;
    const double right = hull.left + (hull.right - hull.left) * 0.94;
    const double top = hull.deck - 46 * hull.unit;
    const std::array walls = {Point{left, hull.deck + 4}, Point{left, top}, Point{right, top - 4},
                              Point{right, hull.deck + 2}};
    PaintPolygon(painting, walls, [&](double x, double) {
        const double board = Line(InCell(x, 9 * hull.unit), 1.4);
        return InLight(ship.wood * 1.15, Rise(left + 20, left, x) * 0.7 + 0.05) * (1 - 0.3 * board);
    });
    PaintLine(painting, {left - 6, top}, {right + 8, top - 5}, 5 * hull.unit,
              InLight(ship.stripe, 0.3));
}

void PaintWindows(Painting& painting, const HullLines& hull) {
    for (int i = 0; i < 7; ++i) {  // ports in the hull
        const double x = hull.left + (hull.right - hull.left) * (0.22 + 0.105 * i);
        const Point middle{x, hull.deck + hull.depth * 0.26};
        PaintBall(painting, middle, 5.4 * hull.unit, 5.4 * hull.unit, {0.70, 0.48, 0.26});
        for (int dy = -4; dy <= 4; ++dy) {
            for (int dx = -4; dx <= 4; ++dx) {
                const double away = std::hypot(dx, dy);
                Cover(painting, static_cast<int>(middle.x) + dx, static_cast<int>(middle.y) + dy,
                      Mixed(Light{1, 0.92, 0.62}, kFlame, away / 4), 3.9 * hull.unit - away + 0.5);
            }
        }
        AddGlow(painting, middle, 20 * hull.unit, kFlame * 0.24);
    }
    for (int i = 0; i < 6; ++i) {  // and in the cabin
        const double x = hull.left + (hull.right - hull.left) * (0.555 + 0.064 * i);
        const double y = hull.deck - 26 * hull.unit;
        const std::array pane = {Point{x - 5 * hull.unit, y - 9 * hull.unit},
                                 Point{x + 5 * hull.unit, y - 9 * hull.unit},
                                 Point{x + 5 * hull.unit, y + 9 * hull.unit},
                                 Point{x - 5 * hull.unit, y + 9 * hull.unit}};
        PaintPolygon(painting, pane, [&](double, double row) {
            return Mixed(Light{1, 0.93, 0.66}, Light{1.0, 0.64, 0.26},
                         Rise(y - 9 * hull.unit, y + 9 * hull.unit, row));
        });
        PaintLine(painting, {x, y - 9 * hull.unit}, {x, y + 9 * hull.unit}, 1, {0.34, 0.20, 0.18});
        AddGlow(painting, {x, y}, 26 * hull.unit, kFlame * 0.20);
    }
}

}  // namespace

void PaintHull(Painting& painting, const Airship& ship) {
    const HullLines hull(ship);
    PaintRigging(painting, ship, hull);
    PaintCabin(painting, ship, hull);
    PaintPlanks(painting, ship, hull);
    PaintWindows(painting, hull);
    // The keel lamp and the bowsprit.
    const double bow = hull.left + 4;
    PaintBeam(
        painting,
        {{bow, hull.Rail(bow) + 4}, {bow - 44 * hull.unit, hull.Rail(bow) - 14}, 5 * hull.unit, 2},
        ship.wood);
}

Point PropellerPlace(const Airship& ship) {
    return {ship.nose.x + ship.length * 0.775, ship.nose.y + ship.girth * 0.98};
}

void PaintEngine(Painting& painting, const Airship& ship) {
    const Point hub = PropellerPlace(ship);
    const double unit = ship.girth / 100;
    const Light metal{0.58, 0.46, 0.42};
    for (const double along : {-52.0, -18.0}) {
        PaintBeam(painting,
                  {{hub.x + along * unit, hub.y},
                   {hub.x + (along - 8) * unit, hub.y - 52 * unit},
                   4 * unit,
                   4 * unit},
                  {0.40, 0.30, 0.30});
    }
    PaintBeam(painting,
              {{hub.x - 64 * unit, hub.y}, {hub.x - 6 * unit, hub.y}, 30 * unit, 24 * unit}, metal);
    PaintBall(painting, {hub.x - 64 * unit, hub.y}, 9 * unit, 15 * unit, metal);
    PaintBeam(painting,
              {{hub.x - 40 * unit, hub.y - 14 * unit},
               {hub.x - 40 * unit, hub.y + 14 * unit},
               4 * unit,
               4 * unit},
              ship.stripe);
    PaintBall(painting, {hub.x - 4 * unit, hub.y}, 7 * unit, 10 * unit, {0.80, 0.56, 0.30});
}

}  // namespace scenara::samples::cloudharbour
