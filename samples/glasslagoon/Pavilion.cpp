// SPDX-License-Identifier: MIT
//
// The sunken glasshouse: iron and stone, and panes that one sees the water through. Whatever is
// behind a pane shines through it, fish that pass included.
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "glasslagoon/Pictures.h"
#include "glasslagoon/Scene.h"
#include "painting/NoiseSheet.h"
#include "painting/Strokes.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::glasslagoon {
namespace {

constexpr int kHouseWidth = 320;
constexpr int kHouseHeight = 372;
constexpr double kHouseMiddle = 160;
constexpr double kHouseGround = 286;  // below it the foot goes on, for when the sand sinks
constexpr double kSill = 262;         // the columns' feet
constexpr double kEaves = 172;        // their heads
constexpr double kDomeFoot = 160;
constexpr double kDomeX = 100;
constexpr double kDomeY = 94;

constexpr Light kIronGreen{0.30, 0.56, 0.55};
constexpr Light kPaleStone{0.62, 0.74, 0.72};
constexpr Light kPane{0.62, 0.92, 0.95};
constexpr Light kLampLight{1.0, 0.88, 0.55};

// Round, with its light on the left.
StrokeBrush Iron(double shine) {
    return [shine](const StrokePlace& at) {
        const double lit = Rise(0.9, -0.7, at.across);
        return Film{kIronGreen * (0.52 + 0.75 * lit * shine), 1};
    };
}

// Upwards, so that its light is on the left.
Knots Upright(double x, double from, double to, double half) {
    return {{x, std::max(from, to), half}, {x, std::min(from, to), half}};
}

class Pavilion {
public:
    AlphaPicture Draw() {
        PaintGlow(painting_, {kHouseMiddle, 214, 118, 92}, {kLampLight, 0.50});
        PaintPlants();
        PaintPanes();
        PaintDomePanes();
        PaintLamp();
        PaintDomeIron();
        PaintColumns();
        PaintFoot();
        PaintWeeds();
        painting_.TintAll([](int, int y) {
            const double row = y + 80.0;
            return Film{WaterAt(row), 0.22 + 0.30 * Rise(250, 310, y)};
        });
        return painting_.ToPicture();
    }

private:
    // What still grows inside: palms and ferns.
    void PaintPlants() {
        samplemaker::Random random(2111);
        for (int plant = 0; plant < 7; ++plant) {
            const double x = kHouseMiddle - 78 + 26 * plant + random.Between(-5, 5);
            const double head =
                plant % 2 == 0 ? random.Between(150, 182) : random.Between(200, 222);
            PaintStroke(painting_, Upright(x, kSill, head, 1.6), 1, {{0.10, 0.34, 0.30}, 0.8});
            for (int leaf = 0; leaf < 9; ++leaf) {
                const double side = (leaf - 4) / 4.0;
                const double reach = random.Between(20, 30);
                const Knots knots = KnotsAlong(8, [&](double u) {
                    return Knot{x + side * reach * u,
                                head - 13 * std::sin(u * 2.2) * (1.25 - std::abs(side)) +
                                    16 * u * u * std::abs(side),
                                0.5 + 2.0 * std::sin(std::numbers::pi * std::min(1.0, u + 0.1))};
                });
                const double light = random.Between(0.7, 1.2);
                PaintStroke(painting_, knots, 1.2, {Light{0.14, 0.44, 0.33} * light, 0.75});
            }
        }
    }

    // A pane of five, in its arch. One is broken.
    void PaintPanes() {
        for (int pane = 0; pane < 5; ++pane) {
            const double middle = kHouseMiddle + (pane - 2) * 42.0;
            const double lean = 0.10 * std::sin(pane * 2.7);
            for (int y = static_cast<int>(kEaves); y < static_cast<int>(kSill); ++y) {
                for (int x = static_cast<int>(middle) - 21; x <= static_cast<int>(middle) + 21;
                     ++x) {
                    const double u = x + 0.5 - middle;
                    const double v = y + 0.5;
                    const double hole = pane == 3 ? Break(u - 4, v - 206) : 1;
                    const double sheen = Rise(9, 3, std::abs(u + (v - 215) * 0.42 - 3)) +
                                         0.6 * Rise(4, 1, std::abs(u + (v - 215) * 0.42 - 16));
                    painting_.Lay(x, y,
                                  {Mixed(kPane, Light{1, 1, 1}, 0.7 * sheen),
                                   (0.20 + lean + 0.26 * sheen) * hole});
                }
            }
        }
    }

    // A jagged hole: 0 in it, 1 around it.
    static double Break(double u, double v) {
        const double turn = std::atan2(v, u);
        const double jag = 11 + 5 * std::abs(std::sin(2.5 * turn + 0.4)) - 4 * std::sin(3 * turn);
        return Rise(jag - 0.7, jag + 0.7, std::hypot(u, v * 0.8));
    }

    void PaintDomePanes() {
        for (int y = 60; y < static_cast<int>(kDomeFoot); ++y) {
            for (int x = 50; x < kHouseWidth - 50; ++x) {
                const double u = (x + 0.5 - kHouseMiddle) / kDomeX;
                const double v = (kDomeFoot - y - 0.5) / kDomeY;
                const double away = std::hypot(u, v);
                const double cover = Rise(1.008, 0.992, away);
                if (cover <= 0) {
                    continue;
                }
                const double ring = std::sqrt(std::max(0.0, 1 - v * v));
                const double turn = std::asin(std::clamp(u / std::max(ring, 0.01), -1.0, 1.0));
                const auto column = static_cast<int>(std::floor(turn / kRibTurn + 0.5));
                const int line = v < 0.42 ? 0 : v < 0.76 ? 1 : 2;
                const double own = samplemaker::LatticeValue(column, line, 2113) - 0.5;
                const double sheen =
                    Rise(0.17, 0.02, std::abs(std::hypot(u + 0.12, v - 0.02) - 0.66)) *
                    Rise(0.05, 0.6, -u * 0.8 + v * 0.5);
                const double rim = std::pow(away, 6.0);
                const double part = 0.17 + 0.15 * own + 0.30 * rim + 0.50 * sheen;
                painting_.Lay(x, y,
                              {Mixed(kPane, Light{1, 1, 1}, std::min(1.0, 0.8 * sheen + 0.2 * own)),
                               part * cover});
            }
        }
    }

    void PaintLamp() {
        PaintStroke(painting_, Upright(kHouseMiddle, 72, 186, 0.8), 1, Iron(0.8));
        PaintGlow(painting_, {kHouseMiddle, 196, 44, 44}, {kLampLight, 0.75});
        PaintOval(painting_, {kHouseMiddle, 196, 8, 9}, 1.5, [](double u, double v) {
            return Film{Mixed(Light{1, 1, 0.90}, kLampLight, std::hypot(u, v)), 1};
        });
    }

    void PaintDomeIron() {
        for (int rib = -3; rib <= 3; ++rib) {
            const double turn = kRibTurn * rib;
            const Knots knots = KnotsAlong(30, [&](double u) {
                const double rise = u * std::numbers::pi / 2;
                return Knot{kHouseMiddle + kDomeX * std::sin(turn) * std::cos(rise),
                            kDomeFoot - kDomeY * std::sin(rise), 1.7 - 0.5 * u};
            });
            PaintStroke(painting_, knots, 1, Iron(1.0));
        }
        for (const double height : {0.42, 0.76}) {
            const double half = kDomeX * std::sqrt(1 - height * height);
            const Knots knots = KnotsAlong(24, [&](double u) {
                const double side = 2 * u - 1;
                return Knot{kHouseMiddle + half * side,
                            kDomeFoot - kDomeY * height + 5 * (1 - side * side), 1.3};
            });
            PaintStroke(painting_, knots, 1, Iron(0.9));
        }
        // The outline, the small lantern on top, and the finial.
        const Knots outline = KnotsAlong(60, [](double u) {
            const double turn = std::numbers::pi * u;
            return Knot{kHouseMiddle - kDomeX * std::cos(turn), kDomeFoot - kDomeY * std::sin(turn),
                        2.2};
        });
        PaintStroke(painting_, outline, 1, Iron(1.0));
        PaintStroke(painting_, Upright(kHouseMiddle, 70, 50, 10), 1, [](const StrokePlace& at) {
            return Film{Mixed(kPane, kLampLight, 0.4), 0.35 + 0.2 * std::abs(at.across)};
        });
        for (const double side : {-10.0, -3.5, 3.5, 10.0}) {
            PaintStroke(painting_, Upright(kHouseMiddle + side, 70, 48, 1.1), 1, Iron(0.9));
        }
        const Knots cap = {{kHouseMiddle - 13, 46, 1.6}, {kHouseMiddle + 13, 46, 1.6}};
        PaintStroke(painting_, cap, 1, Iron(1.2));
        const Knots roof = {{kHouseMiddle, 42, 9},
                            {kHouseMiddle, 36, 5},
                            {kHouseMiddle, 30, 1.6},
                            {kHouseMiddle, 12, 0.8}};
        PaintStroke(painting_, roof, 1, Iron(1.0));
        PaintOval(painting_, {kHouseMiddle, 22, 3.4, 3.4}, 1, [](double u, double v) {
            return Film{kLampLight * (0.85 - 0.25 * u - 0.25 * v), 1};
        });
    }

    void PaintColumns() {
        for (int pane = 0; pane < 5; ++pane) {
            const double middle = kHouseMiddle + (pane - 2) * 42.0;
            const Knots arch = KnotsAlong(20, [&](double u) {
                const double turn = std::numbers::pi * u;
                return Knot{middle - 19 * std::cos(turn), kEaves + 24 - 19 * std::sin(turn), 1.4};
            });
            PaintStroke(painting_, arch, 1, Iron(1.0));
            PaintStroke(painting_, Upright(middle, kEaves + 5, kSill, 0.9), 1, Iron(0.8));
            const Knots bar = {{middle - 20, kSill - 34, 0.9}, {middle + 20, kSill - 34, 0.9}};
            PaintStroke(painting_, bar, 1, Iron(0.8));
        }
        for (int column = 0; column < 6; ++column) {
            const double x = kHouseMiddle + (column - 2.5) * 42.0;
            PaintStroke(painting_, Upright(x, kEaves + 4, kSill - 2, 3), 1, Iron(1.1));
            PaintStroke(painting_, Upright(x, kEaves + 5, kEaves + 8, 5), 1, Iron(1.2));
            PaintStroke(painting_, Upright(x, kSill - 6, kSill - 3, 5), 1, Iron(1.2));
        }
    }

    void PaintSlab(double half, double top, double bottom) {
        for (int y = static_cast<int>(top); y < static_cast<int>(bottom); ++y) {
            for (int x = 0; x < kHouseWidth; ++x) {
                const double off = x + 0.5 - kHouseMiddle;
                const double cover = Rise(half + 0.5, half - 0.5, std::abs(off));
                const double wear = stone_.At(x * 1.4, y * 2.0) - 0.5;
                const double edge = y < top + 2 ? 0.30 : y > bottom - 3 ? -0.22 : 0;
                const double side = -0.20 * off / half;
                painting_.Lay(x, y, {kPaleStone * (0.80 + edge + side + 0.45 * wear), cover});
            }
        }
    }

    void PaintFoot() {
        PaintSlab(117, kEaves - 12, kEaves - 4);
        PaintSlab(112, kEaves - 4, kEaves + 3);
        PaintSlab(116, kSill - 2, kSill + 6);
        PaintSlab(128, kSill + 6, kSill + 15);
        PaintSlab(142, kSill + 15, kHouseGround);
        PaintSlab(150, kHouseGround, kHouseHeight);
    }

    void PaintWeeds() {
        samplemaker::Random random(2129);
        for (int i = 0; i < 52; ++i) {
            const bool high = i < 26;
            const double x = kHouseMiddle + random.Between(-1, 1) * (high ? 114 : 140);
            const double length = high ? random.Between(6, 26) : -random.Between(8, 26);
            const double top = high ? kEaves - 6 : kHouseGround + 2;
            const double bend = random.Between(-5, 5);
            const Knots knots = KnotsAlong(8, [&](double u) {
                return Knot{x + bend * std::sin(3 * u), top + length * u, 2.0 * (1 - u) + 0.5};
            });
            const Light green =
                Mixed(Light{0.12, 0.42, 0.34}, Light{0.40, 0.60, 0.30}, random.Unit());
            PaintStroke(painting_, knots, 1.2, {green, 0.92});
        }
    }

    static constexpr double kRibTurn = 0.46;  // from rib to rib, seen from the dome's axis
    AlphaPainting painting_{kHouseWidth, kHouseHeight};
    NoiseSheet stone_{2131, 16, 4, 0.6};
};

}  // namespace

AlphaPicture DrawPavilion() {
    return Pavilion().Draw();
}

}  // namespace scenara::samples::glasslagoon
