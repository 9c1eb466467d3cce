// SPDX-License-Identifier: MIT
//
// The gingerbread stall: what is under its awning, the counter's top and side, and its front.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "millfair/Pictures.h"
#include "millfair/Polygon.h"
#include "millfair/Scene.h"
#include "painting/Strokes.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::millfair {
namespace {

constexpr int kStallWidth = 200;
constexpr int kStallHeight = 190;
constexpr double kMiddle = 100;
constexpr double kLeft = 20;
constexpr double kRight = 180;
constexpr double kFoot = 176;
constexpr double kCounter = 130;  // the front edge of its top

constexpr Light kTeal{0.20, 0.50, 0.50};
constexpr Light kGinger{0.62, 0.34, 0.18};

void PaintHeart(AlphaPainting& painting, double x, double y, double size, const Light& light) {
    Points heart;
    for (int i = 0; i < 24; ++i) {
        const double t = 2 * std::numbers::pi * i / 24;
        const double side = std::pow(std::sin(t), 3.0);
        const double up =
            (13 * std::cos(t) - 5 * std::cos(2 * t) - 2 * std::cos(3 * t) - std::cos(4 * t)) / 16;
        heart.push_back({x + size * side, y - size * up});
    }
    PaintPolygon(painting, heart, [&](double px, double py) {
        return Film{light * (1.05 - 0.16 * (px - x) / size - 0.12 * (py - y) / size), 1};
    });
}

// Icing along the edge, and a flower in the middle.
void PaintGingerbread(AlphaPainting& painting, double x, double y, double size,
                      const Light& icing) {
    PaintHeart(painting, x, y, size, kGinger * 1.25);
    PaintHeart(painting, x, y, size * 0.82, icing);
    PaintHeart(painting, x, y, size * 0.68, kGinger * 1.25);
    PaintOval(painting, {x, y - size * 0.1, size * 0.24, size * 0.24}, 0.8,
              [&](double u, double v) {
                  return Film{std::hypot(u, v) < 0.5 ? kGold : icing, 1};
              });
}

Light Icing(int which) {
    constexpr Light kColours[] = {
        {0.98, 0.92, 0.86}, {0.95, 0.55, 0.60}, {0.98, 0.82, 0.46}, {0.60, 0.84, 0.80}};
    return kColours[which % 4];
}

void PaintPost(AlphaPainting& painting, double x, double from, double to) {
    PaintBox(painting, {x - 3, from}, {x + 3, to}, [&](double px, double y) {
        return Film{kWood * LightOn((px - x) / 3) * (1.1 + 0.06 * std::sin(y * 0.9)), 1};
    });
}

}  // namespace

AlphaPicture DrawStallInside() {
    AlphaPainting painting(kStallWidth, kStallHeight);
    PaintBox(painting, {kLeft + 4, 44}, {kRight - 4, kFoot}, [](double x, double y) {
        const double away = std::hypot((x - kMiddle) / 92, (y - 84) / 60);
        const double board = std::abs(InCell(x, 14)) < 0.6 ? 0.8 : 1;
        return Film{
            Mixed(Light{0.64, 0.40, 0.22}, Light{0.20, 0.13, 0.17}, Rise(0.1, 1.1, away)) * board,
            1};
    });
    samplemaker::Random random(3163);
    for (const double shelf : {90.0, 114.0}) {
        for (double x = kLeft + 14; x < kRight - 16;) {
            const double width = random.Between(6, 11);
            const double height = random.Between(8, 15);
            const Light icing = Icing(random.Whole(0, 3));
            const Light jar = Mixed(icing, kGinger, random.Between(0.1, 0.7));
            PaintBox(painting, {x, shelf - height}, {x + width, shelf}, [&](double px, double) {
                const double side = (px - x) / width * 2 - 1;
                return Film{jar * (0.66 - 0.22 * side * side + 0.12 * (side < -0.2)), 1};
            });
            PaintBox(painting, {x + 0.6, shelf - height - 1.6},
                     {x + width - 0.6, shelf - height + 0.6}, kDarkWood * 1.8);
            x += width + random.Between(1.5, 5);
        }
        PaintBox(painting, {kLeft + 6, shelf}, {kRight - 6, shelf + 2.4}, [](double x, double) {
            return Film{kWood * (1.1 - 0.5 * std::abs(x - kMiddle) / 80), 1};
        });
    }
    // The lamp in the middle.
    PaintGlow(painting, {kMiddle, 74, 78, 56}, {kLampLight, 0.42});
    PaintOval(painting, {kMiddle, 76, 5, 6}, 1.2, [](double u, double v) {
        return Film{Mixed(kLampCore, kLampLight, std::hypot(u, v)), 1};
    });
    PaintPost(painting, kLeft + 5, 40, kFoot);
    PaintPost(painting, kRight - 5, 40, kFoot);
    return painting.ToPicture();
}

// As it would be seen from far above: the stage makes it flatter.
AlphaPicture DrawCounterTop() {
    constexpr int kWidth = 168;
    constexpr int kHeight = 24;
    AlphaPainting painting(kWidth, kHeight);
    PaintPolygon(painting, {{14, 0}, {154, 0}, {168, 24}, {0, 24}}, [](double x, double y) {
        const double line = std::abs(InCell(y, 8)) < 0.6 ? 0.82 : 1;
        return Film{
            Mixed(Light{0.86, 0.56, 0.32}, Light{0.60, 0.40, 0.30}, std::abs(x - 84) / 84) * line,
            1};
    });
    return painting.ToPicture();
}

AlphaPicture DrawCounterSide() {
    constexpr int kWidth = 60;
    constexpr int kHeight = 50;
    AlphaPainting painting(kWidth, kHeight);
    // From the near corner on the right to the far one.
    PaintPolygon(painting, {{60, 0}, {0, 0}, {0, 36}, {60, 46}}, [](double x, double y) {
        const double board = std::abs(InCell(x, 15)) < 0.8 ? 0.7 : 1;
        return Film{kTeal * LightOn(-0.75) * (1.05 - 0.25 * Rise(15, 46, y)) * board, 1};
    });
    return painting.ToPicture();
}

AlphaPicture DrawStallFront() {
    AlphaPainting painting(kStallWidth, kStallHeight);
    // The front of the counter.
    PaintBox(painting, {kLeft, kCounter}, {kRight, kFoot}, [](double x, double y) {
        const double board = std::abs(InCell(x - kLeft, 16)) < 0.7 ? 0.66 : 1;
        const double low = 1 - 0.35 * Rise(150, kFoot, y);
        return Film{kTeal * LightOn((x - kMiddle) / 90 + 0.1) * 1.1 * board * low, 1};
    });
    PaintBox(painting, {kLeft - 4, kCounter - 1}, {kRight + 4, kCounter + 4},
             [](double x, double y) {
                 return Film{Light{0.86, 0.60, 0.38} * LightOn((x - kMiddle) / 100) *
                                 (y < kCounter + 1 ? 1.25 : 0.8),
                             1};
             });
    for (int heart = 0; heart < 5; ++heart) {
        PaintGingerbread(painting, kLeft + 16 + heart * 32.0, 153, 10.5, Icing(heart));
    }
    // What stands on it: a row of small hearts, and a bowl.
    for (int i = 0; i < 4; ++i) {
        PaintGingerbread(painting, kLeft + 18 + i * 17.0, kCounter - 9, 7, Icing(i + 2));
    }
    PaintOval(painting, {kRight - 36, kCounter - 6, 20, 8}, 1, [](double u, double v) {
        return Film{Light{0.60, 0.62, 0.80} * LightOn(u) * (1.15 - 0.3 * v), Rise(-0.2, -0.1, v)};
    });
    samplemaker::Random random(3167);
    for (int apple = 0; apple < 13; ++apple) {
        const int layer = apple / 5;
        const double x =
            kRight - 36 + (apple % 5 - 2) * 6.6 + random.Between(-1, 1) + layer % 2 * 3;
        const double y = kCounter - 8 - 4.5 * layer;
        PaintOval(painting, {x, y, 4, 4}, 0.9, [&](double u, double v) {
            const double shine = Rise(0.4, 0.1, std::hypot(u + 0.4, v + 0.4));
            return Film{Mixed(Light{0.86, 0.24, 0.16} * (0.9 - 0.25 * u - 0.2 * v),
                              Light{1, 0.85, 0.7}, 0.6 * shine),
                        1};
        });
    }
    // The awning: stripes that spread towards the viewer.
    PaintPolygon(
        painting, {{kLeft + 6, 18}, {kRight - 6, 18}, {kRight + 12, 54}, {kLeft - 12, 54}},
        [](double x, double y) {
            const double spread = 74 + 18 * (y - 18) / 36;
            const double u = (x - kMiddle) / spread;
            const bool cream = std::fmod((u + 1) * 5.5, 1.0) < 0.5;
            const double sag = Rise(18, 54, y);
            return Film{
                (cream ? kCream : kTeal * 1.1) * LightOn(0.9 * u - 0.15) * (1.12 - 0.26 * sag), 1};
        });
    for (int flap = 0; flap < 11; ++flap) {
        const double width = 184 / 11.0;
        const double x = kLeft - 12 + flap * width;
        PaintOval(painting, {x + width / 2, 54, width / 2, 10}, 1, [&](double u, double v) {
            const Light own = flap % 2 == 0 ? kCream : kTeal * 1.1;
            const bool trim = std::hypot(u, v) > 0.82;
            return Film{(trim ? kGold : own) * LightOn(flap / 5.5 - 1.1 + 0.3 * u) * 0.86,
                        Rise(-0.06, 0.04, v)};
        });
    }
    return painting.ToPicture();
}

// Three of them, for the ends of the quay.
AlphaPicture DrawBarrels() {
    AlphaPainting painting(130, 110);
    const auto barrel = [&](double x, double foot) {
        const auto half = [](double v) { return 20 - 4.5 * v * v; };
        Points staves;
        for (int i = -6; i <= 6; ++i) {
            staves.push_back({x - half(i / 6.0), foot - 27 - 4.5 * i});
        }
        for (int i = 6; i >= -6; --i) {
            staves.push_back({x + half(i / 6.0), foot - 27 - 4.5 * i});
        }
        PaintOval(painting, {x + 8, foot, 27, 5}, 3, [](double, double) {
            return Film{{0.10, 0.07, 0.17}, 0.5};
        });
        PaintOval(painting, {x, foot, 15.5, 3.6}, 1, [](double u, double) {
            return Film{kWood * LightOn(u) * 0.6, 1};
        });
        PaintPolygon(painting, staves, [&](double px, double py) {
            const double v = (foot - 27 - py) / 27;
            const double side = std::clamp((px - x) / half(v), -1.0, 1.0);
            // Hoops curve around the barrel.
            const double around = v - 0.12 * (std::sqrt(1 - side * side) - 1);
            const double hoop = std::abs(std::abs(around) - 0.58) < 0.09 ? 0.5 : 1;
            const double stave = 0.93 + 0.07 * std::cos(std::asin(side) * 15);
            return Film{kWood * LightOn(0.9 * side) * (1.3 + 0.12 * v) * hoop * stave, 1};
        });
        PaintOval(painting, {x, foot - 54, 15.5, 4.2}, 1, [](double u, double v) {
            const double rim = std::hypot(u, v) > 0.84 ? 1.5 : 0.95;
            return Film{kWood * LightOn(0.6 * u) * rim, 1};
        });
    };
    barrel(66, 84);
    barrel(36, 96);
    barrel(86, 100);
    return painting.ToPicture();
}

AlphaPicture DrawSign() {
    AlphaPainting painting(60, 64);
    for (const double x : {20.0, 40.0}) {
        PaintStroke(painting, Knots{{x, 1, 0.7}, {x, 16, 0.7}}, 0.9, {kDarkWood * 1.6, 1});
    }
    PaintGingerbread(painting, 30, 36, 22, Icing(0));
    PaintHeart(painting, 30, 35, 9, kRed * 1.1);
    return painting.ToPicture();
}

}  // namespace scenara::samples::millfair
