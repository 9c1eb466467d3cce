// SPDX-License-Identifier: MIT
//
// Fire: the brazier with its flame and sparks, rockets and what they burst into, and the balloon,
// which rises by it. Pictures that the stage adds to the pixels under them are light alone.
#include <cmath>
#include <numbers>

#include "millfair/Pictures.h"
#include "millfair/Polygon.h"
#include "millfair/Scene.h"
#include "painting/Strokes.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::millfair {

AlphaPicture DrawBrazier() {
    AlphaPainting painting(64, 76);
    const Light iron{0.34, 0.28, 0.32};
    PaintOval(painting, {38, 69, 24, 4.5}, 3, [](double, double) {
        return Film{{0.10, 0.07, 0.17}, 0.5};
    });
    for (const double side : {-1.0, 0.1, 1.0}) {
        PaintStroke(painting, Knots{{32 + side * 8, 46, 1.4}, {32 + side * 15, 69, 1.3}}, 1,
                    {iron * LightOn(side) * 1.2, 1});
    }
    PaintGlow(painting, {32, 28, 30, 26}, {{1.0, 0.50, 0.20}, 0.55});
    PaintPolygon(painting, {{14, 26}, {50, 26}, {43, 48}, {21, 48}}, [](double x, double y) {
        const double hot = 0.5 + 0.5 * std::sin(x * 0.9 + 2.2 * std::sin(y * 0.7));
        return Film{Mixed(Light{0.62, 0.16, 0.10}, Light{1.0, 0.66, 0.26}, hot * hot), 1};
    });
    for (int bar = 0; bar <= 6; ++bar) {
        const double u = bar / 3.0 - 1;
        PaintStroke(painting, Knots{{32 + u * 18, 25, 1.1}, {32 + u * 11, 49, 1.1}}, 0.9,
                    {iron * LightOn(u) * 0.9, 1});
    }
    for (const double row : {26.0, 37.0, 48.0}) {
        const double half = 18 - 7 * (row - 26) / 22;
        PaintStroke(painting, Knots{{32 - half, row, 1.3}, {32 + half, row, 1.3}}, 0.9,
                    [&](const StrokePlace& at) {
                        return Film{iron * LightOn(2 * at.along - 1), 1};
                    });
    }
    return painting.ToPicture();
}

AlphaPicture DrawFlame() {
    AlphaPainting painting(44, 60);
    for (int tongue = 0; tongue < 3; ++tongue) {
        const double foot = 13 + 9.0 * tongue;
        const double height = tongue == 1 ? 46 : 32;
        PaintStroke(
            painting,
            KnotsAlong(16,
                       [&](double u) {
                           return Knot{foot + 3.4 * std::sin(u * 4 + tongue), 56 - height * u,
                                       7.5 * (1 - u) * (0.6 + 0.4 * std::sin(u * 2.6)) + 0.4};
                       }),
            3, [](const StrokePlace& at) {
                const double core = (1 - std::abs(at.across)) * (1 - at.along);
                return Film{Mixed(Light{1.0, 0.42, 0.12}, Light{1.0, 0.90, 0.56}, core), 0.8};
            });
    }
    return painting.ToPicture();
}

AlphaPicture DrawSpark() {
    AlphaPainting painting(17, 17);
    PaintGlow(painting, {8.5, 8.5, 8, 8}, {{1.0, 0.46, 0.14}, 0.7});
    PaintOval(painting, {8.5, 8.5, 2, 2}, 1, [](double, double) {
        return Film{{1.0, 0.90, 0.60}, 1};
    });
    return painting.ToPicture();
}

AlphaPicture DrawRocket() {
    AlphaPainting painting(15, 60);
    PaintStroke(painting, Knots{{7.5, 6, 1.8}, {7.5, 56, 0.3}}, 1.5, [](const StrokePlace& at) {
        return Film{Mixed(Light{1.0, 0.92, 0.70}, Light{1.0, 0.50, 0.20}, at.along),
                    (1 - at.along) * 0.9};
    });
    PaintGlow(painting, {7.5, 7, 7, 7}, {{1.0, 0.86, 0.60}, 0.9});
    return painting.ToPicture();
}

AlphaPicture DrawBurst(int which) {
    constexpr int kSide = 201;
    constexpr double kMiddle = 100.5;
    constexpr int kRays = 34;
    const Light colour = which == 0   ? Light{1.0, 0.44, 0.40}
                         : which == 1 ? Light{0.50, 0.86, 0.98}
                                      : Light{1.0, 0.82, 0.42};
    AlphaPainting painting(kSide, kSide);
    PaintGlow(painting, {kMiddle, kMiddle, 90, 90}, {colour, 0.20});
    samplemaker::Random random(static_cast<std::uint32_t>(3181 + which));
    for (int ring = 0; ring < 2; ++ring) {
        for (int ray = 0; ray < kRays; ++ray) {
            const double turn = 2 * std::numbers::pi * (ray + random.Between(-0.3, 0.3)) / kRays;
            const double reach = (ring == 0 ? 88 : 55) * random.Between(0.86, 1.04);
            const auto at = [&](double part, double half) {
                return Knot{kMiddle + reach * part * std::cos(turn),
                            kMiddle + reach * part * std::sin(turn) + 7 * part * part, half};
            };
            PaintStroke(painting, Knots{at(0.35, 0.3), at(0.7, 0.8), at(0.97, 1.2)}, 1.2,
                        [&](const StrokePlace& place) {
                            return Film{Mixed(colour, Light{1, 0.95, 0.86}, 0.7 * place.along),
                                        0.85 * place.along * place.along};
                        });
            const Knot end = at(1, 0);
            PaintGlow(painting, {end.x, end.y, 6, 6}, {colour, 0.75});
            PaintOval(painting, {end.x, end.y, 1.4, 1.4}, 1, [](double, double) {
                return Film{{1.0, 0.97, 0.90}, 1};
            });
        }
    }
    return painting.ToPicture();
}

AlphaPicture DrawBalloon() {
    constexpr double kMiddle = 40;
    AlphaPainting painting(80, 118);
    // Its skin: a ball that narrows to its mouth, in gores.
    for (int y = 2; y < 84; ++y) {
        const double v = (y + 0.5 - 40) / 38;
        const double half =
            v < 0 ? 36 * std::sqrt(std::max(0.0, 1 - v * v))
                  : 36 * std::pow(std::max(0.0, std::cos(v * 1.28)), 0.82) + 3.5 * Rise(0, 1, v);
        for (int x = 0; x < 80; ++x) {
            const double u = (x + 0.5 - kMiddle) / std::max(half, 1.0);
            const double cover = Rise(half + 0.5, half - 0.5, std::abs(x + 0.5 - kMiddle));
            if (cover <= 0 || v > 1.1) {
                continue;
            }
            const double gore = std::asin(std::clamp(u, -1.0, 1.0)) * 7 / std::numbers::pi + 0.5;
            const auto number = static_cast<int>(std::floor(gore + 20));
            const double seam = Line(std::abs(InCell(gore, 1)) - 0.5, 0.09);
            const Light own = v > -0.12 && v < 0.14 ? kGold
                              : number % 2 == 0     ? Light{0.84, 0.30, 0.28}
                                                    : kCream;
            const double lit = 0.90 * u + 0.35 * v;
            const double inner = 0.34 * Rise(0.2, 1.0, v) * Rise(1.0, 0.2, std::abs(u));
            painting.Lay(x, y,
                         {own * (LightOn(lit) + kLampLight * inner) * (1 - 0.18 * seam), cover});
        }
    }
    for (const double side : {-1.0, -0.35, 0.35, 1.0}) {
        PaintStroke(painting, Knots{{kMiddle + side * 9, 78, 0.5}, {kMiddle + side * 7, 99, 0.5}},
                    0.8, {kDarkWood, 0.9});
    }
    PaintGlow(painting, {kMiddle, 86, 10, 10}, {kLampLight, 0.8});
    PaintPolygon(painting,
                 {{kMiddle - 8, 98}, {kMiddle + 8, 98}, {kMiddle + 7, 110}, {kMiddle - 7, 110}},
                 [](double x, double y) {
                     const double weave = 0.10 * std::sin(x * 2.2) * std::sin(y * 2.2);
                     return Film{kWood * LightOn((x - kMiddle) / 8) * (1.2 + weave), 1};
                 });
    painting.TintAll([](int, int) { return Film{kHaze, 0.14}; });
    return painting.ToPicture();
}

// Flowers in a tub, too near to be sharp.
AlphaPicture DrawFlowers() {
    AlphaPainting painting(240, 150);
    samplemaker::Random random(3187);
    for (int leaf = 0; leaf < 80; ++leaf) {
        const double x = random.Between(40, 200);
        const double reach = random.Between(20, 52);
        const double lean = (x - 120) * 0.5 + random.Between(-16, 16);
        PaintStroke(
            painting,
            KnotsAlong(
                6,
                [&](double u) {
                    return Knot{x + lean * u, 104 - reach * u + 12 * u * u, 4.4 * (1 - u) + 1.2};
                }),
            5, {Light{0.16, 0.17, 0.20} * random.Between(0.7, 1.7), 0.92});
    }
    constexpr Light kBlossoms[] = {{0.74, 0.22, 0.28}, {0.86, 0.52, 0.40}, {0.70, 0.46, 0.60}};
    for (int blossom = 0; blossom < 26; ++blossom) {
        const double x = random.Between(30, 210);
        const double y = 92 - random.Between(4, 44) * (1 - std::abs(x - 120) / 130);
        const Light own = kBlossoms[random.Whole(0, 2)];
        const double size = random.Between(5, 9);
        PaintOval(painting, {x, y, size, size * 0.9}, 5, [&](double u, double v) {
            return Film{own * LightOn(u + 0.2) * (1.1 - 0.25 * v), 0.95};
        });
    }
    PaintPolygon(painting, {{62, 98}, {178, 98}, {166, 150}, {74, 150}}, [](double x, double y) {
        const double hoop = y > 108 && y < 115 ? 0.55 : 1;
        const double board = 0.90 + 0.10 * std::sin(x * 0.38);
        return Film{kDarkWood * LightOn((x - 120) / 58) * 1.5 * hoop * board, 1};
    });
    return painting.ToPicture();
}

}  // namespace scenara::samples::millfair
