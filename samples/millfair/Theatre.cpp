// SPDX-License-Identifier: MIT
//
// The puppet theatre: its front with an opening, what is seen through that, and its side.
#include <cmath>
#include <numbers>

#include "millfair/Pictures.h"
#include "millfair/Polygon.h"
#include "millfair/Scene.h"
#include "painting/NoiseSheet.h"
#include "painting/Steps.h"
#include "painting/Strokes.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::millfair {
namespace {

constexpr int kTheatreWidth = 150;
constexpr int kTheatreHeight = 200;
constexpr double kMiddle = 75;
constexpr double kLeft = 10;
constexpr double kRight = 140;
constexpr double kTop = 34;
constexpr double kFoot = 186;

// The opening.
constexpr double kInLeft = 32;
constexpr double kInRight = 118;
constexpr double kInTop = 62;
constexpr double kInBottom = 118;

constexpr int kSideWidth = 60;
constexpr int kSideHeight = 160;

// Cloth in stripes and folds.
Light Cloth(double x, double y, double width) {
    const bool red = std::fmod(x + 10 * width, 2 * width) < width;
    const double fold = std::sin(x * 2 * std::numbers::pi / width + 0.6 * std::sin(y * 0.05));
    const Light own = red ? kRed : kCream;
    return own * LightOn(-0.15 - 0.28 * fold) * (0.98 + 0.08 * fold);
}

void PaintBackdrop(AlphaPainting& painting) {
    PaintBox(painting, {kInLeft, kInTop}, {kInRight, kInBottom}, [](double x, double y) {
        const double u = (x - kMiddle) / (kInRight - kInLeft) * 2;
        const double v = (y - kInTop) / (kInBottom - kInTop);
        const Light night = Mixed(Light{0.20, 0.26, 0.52}, Light{0.46, 0.44, 0.62}, v);
        const double lit = 0.75 + 0.5 * Rise(0.3, 1.0, v) - 0.35 * std::abs(u);
        return Film{night * lit, 1};
    });
    PaintOval(painting, {56, 78, 8, 8}, 1, [](double u, double v) {
        return Film{Light{0.98, 0.86, 0.52} * (0.98 - 0.12 * u - 0.1 * v), 1};
    });
    // Painted hills, and a castle on one of them.
    const auto hill = [](double x) {
        return 103 - 6 * std::sin(x * 0.075) - 3 * std::sin(x * 0.2);
    };
    PaintBox(painting, {92, 80}, {104, 102}, Light{0.36, 0.30, 0.46});
    for (const double x : {90.0, 101.0}) {
        PaintBox(painting, {x, 74}, {x + 6, 102}, Light{0.42, 0.34, 0.48});
        PaintPolygon(painting, {{x - 1, 75}, {x + 3, 66}, {x + 7, 75}}, Light{0.62, 0.26, 0.30});
    }
    PaintBox(painting, {96, 92}, {99.5, 98}, kLampLight);
    Points land = {{kInRight, kInBottom}, {kInLeft, kInBottom}};
    ForEachStep(kInLeft, kInRight + 1, 2, [&](double x) { land.push_back({x, hill(x)}); });
    PaintPolygon(painting, land, [&](double x, double y) {
        return Film{
            Mixed(Light{0.38, 0.52, 0.38}, Light{0.24, 0.34, 0.34}, Rise(0, 12, y - hill(x))), 1};
    });
}

void PaintScallops(AlphaPainting& painting, double left, double right, double top, double step) {
    ForEachStep(left, right - 0.5, step, [&](double x) {
        const bool red = static_cast<int>(std::lround((x - left) / step)) % 2 == 0;
        const Light own = red ? kRed : kCream;
        PaintOval(painting, {x + step / 2, top, step / 2, step * 0.72}, 1, [&](double u, double v) {
            const bool trim = std::hypot(u, v) > 0.78;
            return Film{(trim ? kGold : own) * LightOn(0.5 * u - 0.2) * (1.05 - 0.12 * v),
                        Rise(-0.05, 0.05, v)};
        });
    });
}

void PaintCurtain(AlphaPainting& painting, double outer, double inner) {
    const double way = inner - outer;
    Points cloth;
    for (int i = 0; i <= 20; ++i) {
        const double v = i / 20.0;
        // Drawn aside: widest on top, tied at three fifths.
        const double reach = 0.42 + 0.58 * std::pow(std::abs(v - 0.66) / 0.66, 1.5);
        cloth.push_back({outer + way * reach, kInTop + v * (kInBottom - kInTop)});
    }
    cloth.push_back({outer, kInBottom});
    cloth.push_back({outer, kInTop});
    PaintPolygon(painting, cloth, [&](double x, double y) {
        const double fold = std::sin((x - outer) / way * 17 + 0.03 * y);
        return Film{kRed * LightOn(-0.1 - 0.45 * fold) * (0.86 + 0.12 * fold), 1};
    });
    PaintOval(painting, {outer + way * 0.22, kInTop + 37, 6, 2.2}, 1, [](double u, double) {
        return Film{kGold * LightOn(u), 1};
    });
}

}  // namespace

AlphaPicture DrawTheatre() {
    AlphaPainting painting(kTheatreWidth, kTheatreHeight);
    PaintBox(painting, {kLeft, kTop}, {kRight, kFoot}, [](double x, double y) {
        const double low = 1 - 0.30 * Rise(140, kFoot, y);
        return Film{Cloth(x - kLeft, y, 13) * low, 1};
    });
    PaintBackdrop(painting);
    // The lamps at the foot of the opening shine up.
    PaintGlow(painting, {kMiddle, kInBottom, 46, 40}, {kLampLight, 0.35});
    return painting.ToPicture();
}

// What hides the edges of the opening, and the puppets' feet.
AlphaPicture DrawTheatreFrame() {
    AlphaPainting painting(kTheatreWidth, kTheatreHeight);
    PaintCurtain(painting, kInLeft - 3, kInLeft + 22);
    PaintCurtain(painting, kInRight + 3, kInRight - 22);
    const auto wood = [](double shine) {
        return [shine](double x, double y) {
            return Film{kGold * LightOn((x - kMiddle) / 70 - 0.2) *
                            (shine + 0.05 * std::sin(y * 1.3 + x * 0.2)),
                        1};
        };
    };
    PaintBox(painting, {kInLeft - 5, kInTop - 4}, {kInLeft, kInBottom + 2}, wood(0.95));
    PaintBox(painting, {kInRight, kInTop - 4}, {kInRight + 5, kInBottom + 2}, wood(0.70));
    // The shelf, with cups for the footlights.
    PaintBox(
        painting, {kInLeft - 9, kInBottom}, {kInRight + 9, kInBottom + 7}, [](double x, double y) {
            return Film{kWood * LightOn((x - kMiddle) / 70) * (y < kInBottom + 2 ? 1.9 : 1.15), 1};
        });
    ForEachStep(kInLeft + 8, kInRight, 17.5, [&](double x) {
        PaintGlow(painting, {x, kInBottom - 1, 9, 9}, {kLampLight, 0.55});
        PaintOval(painting, {x, kInBottom, 3.2, 3.2}, 1, [](double u, double v) {
            return Film{Mixed(kLampCore, kGold, Rise(-0.4, 0.6, v + 0.2 * u)), 1};
        });
    });
    // The pelmet, and the gable with a star on it.
    PaintBox(painting, {kLeft - 4, kTop - 2}, {kRight + 4, kTop + 24}, [](double x, double y) {
        return Film{kRed * LightOn((x - kMiddle) / 75) * (1.05 - 0.012 * (y - kTop)), 1};
    });
    PaintScallops(painting, kLeft - 4, kRight + 4, kTop + 24, 11.5);
    PaintPolygon(
        painting, {{kLeft - 6, kTop}, {kMiddle, 4}, {kRight + 6, kTop}}, [](double x, double y) {
            const double edge = std::abs(y - (4 + std::abs(x - kMiddle) * (kTop - 4) / 71));
            return Film{(edge < 3.4 ? kGold : kRed * 0.85) * LightOn((x - kMiddle) / 75 - 0.1), 1};
        });
    PaintBox(painting, {kLeft - 6, kTop - 3}, {kRight + 6, kTop + 1}, wood(0.95));
    Points star;
    for (int i = 0; i < 10; ++i) {
        const double turn = std::numbers::pi * (i / 5.0 - 0.5);
        const double radius = i % 2 == 0 ? 8.5 : 3.8;
        star.push_back({kMiddle + radius * std::cos(turn), 20 + radius * std::sin(turn)});
    }
    PaintPolygon(painting, star, kCream * 0.98);
    ForEachStep(kLeft + 2, kRight, 14, [&](double x) {
        const double y = kTop + 12;
        PaintOval(painting, {x + 7, y, 2.4, 2.4}, 1, [](double u, double v) {
            return Film{kGold * LightOn(u) * (1.05 - 0.2 * v), 1};
        });
    });
    // A wooden foot.
    PaintBox(painting, {kLeft - 2, kFoot - 9}, {kRight + 2, kFoot + 1}, [](double x, double y) {
        const double board = std::abs(InCell(x, 22)) < 0.7 ? 0.7 : 1;
        return Film{kWood * LightOn((x - kMiddle) / 75) * (y < kFoot - 7 ? 1.3 : 0.85) * board, 1};
    });
    return painting.ToPicture();
}

AlphaPicture DrawTheatreSide() {
    AlphaPainting painting(kSideWidth, kSideHeight);
    // From the near corner on the left to the far one, which looks smaller: nearer to the horizon.
    PaintPolygon(painting, {{0, 2}, {60, 8.5}, {60, 141}, {0, 153}}, [](double x, double y) {
        return Film{Cloth(x, y, 12) * (0.62 - 0.15 * Rise(100, 150, y)), 1};
    });
    PaintPolygon(painting, {{0, 144}, {60, 133}, {60, 142}, {0, 154}}, [](double, double) {
        return Film{kWood * LightOn(0.8), 1};
    });
    PaintPolygon(painting, {{0, 0}, {60, 6.5}, {60, 22}, {0, 18}}, [](double, double) {
        return Film{kRed * LightOn(0.7) * 0.8, 1};
    });
    return painting.ToPicture();
}

AlphaPicture DrawKnight() {
    AlphaPainting painting(56, 84);
    const Light steel{0.74, 0.78, 0.88};
    // The robe that hides the hand.
    PaintPolygon(painting, {{20, 34}, {36, 34}, {44, 84}, {10, 84}}, [](double x, double y) {
        const double fold = std::sin(x * 0.8 + y * 0.02);
        const bool cross = std::abs(x - 27.5) < 2.4 || std::abs(y - 54) < 2.4;
        return Film{(cross ? kCream : Light{0.28, 0.36, 0.66}) * (0.95 + 0.13 * fold), 1};
    });
    PaintStroke(painting, Knots{{34, 40, 4}, {44, 46, 3.6}}, 1, {Light{0.30, 0.38, 0.68}, 1});
    // Sword, hand, shield.
    PaintStroke(painting, Knots{{45, 48, 1.2}, {50, 14, 1.5}, {51, 8, 0.4}}, 0.9, {steel * 1.2, 1});
    PaintStroke(painting, Knots{{40, 42, 1.2}, {51, 44, 1.2}}, 0.9, {kGold, 1});
    PaintOval(painting, {45, 47, 3, 3}, 1, [](double u, double) {
        return Film{Light{0.92, 0.70, 0.56} * (1 - 0.15 * u), 1};
    });
    PaintPolygon(painting, {{4, 42}, {22, 42}, {22, 56}, {13, 68}, {4, 56}},
                 [](double x, double y) {
                     const bool edge = x < 6 || x > 20 || y < 44;
                     return Film{(edge ? kGold : x < 13 ? kRed : kCream) * 0.98, 1};
                 });
    // The helmet, with a plume.
    PaintStroke(painting, Knots{{28, 8, 2.6}, {20, 4, 3.2}, {12, 8, 2.6}, {9, 16, 0.8}}, 1,
                [](const StrokePlace& at) {
                    return Film{kRed * (1.1 - 0.25 * at.across), 1};
                });
    PaintOval(painting, {28, 23, 11.5, 13}, 1, [&](double u, double v) {
        return Film{steel * (0.92 - 0.28 * u - 0.22 * v), 1};
    });
    PaintBox(painting, {22, 20}, {39, 24}, Light{0.10, 0.10, 0.18});
    PaintStroke(painting, Knots{{31, 11, 1}, {32, 36, 1}}, 0.9, {kGold, 1});
    return painting.ToPicture();
}

AlphaPicture DrawDragon() {
    AlphaPainting painting(74, 84);
    const Light green{0.34, 0.60, 0.34};
    PaintStroke(
        painting, Knots{{50, 84, 13}, {50, 60, 11}, {46, 42, 10}, {40, 30, 10}}, 1,
        [&](const StrokePlace& at) {
            const bool belly = at.across < -0.35;
            const double ring = 0.07 * std::sin(at.along * 60);
            return Film{
                (belly ? Light{0.90, 0.80, 0.48} : green) * (0.96 - 0.18 * at.across + ring), 1};
        });
    for (int spike = 0; spike < 5; ++spike) {
        const double y = 34 + spike * 11.0;
        const double x = 54 + spike * 2.2;
        PaintPolygon(painting, {{x, y - 5}, {x + 9, y}, {x, y + 6}}, Light{0.84, 0.42, 0.26});
    }
    // The lower and the upper jaw, open, with teeth; the tongue is a flame.
    PaintStroke(painting, Knots{{38, 38, 4.2}, {22, 43, 3.8}, {8, 41, 2.2}}, 1, {green * 0.85, 1});
    PaintStroke(painting, Knots{{34, 36, 2}, {20, 37, 2}, {12, 35, 1}, {6, 37, 0.4}}, 0.9,
                {Light{0.98, 0.48, 0.24}, 1});
    for (int tooth = 0; tooth < 4; ++tooth) {
        const double x = 11 + tooth * 5.5;
        PaintPolygon(painting, {{x, 40}, {x + 2, 35.5}, {x + 4, 40}}, kCream);
        PaintPolygon(painting, {{x, 29}, {x + 2, 34}, {x + 4, 29}}, kCream);
    }
    PaintStroke(painting, Knots{{46, 26, 9.5}, {30, 24, 7}, {12, 26, 4.6}, {7, 26, 4}}, 1,
                [&](const StrokePlace& at) {
                    return Film{green * (1.05 + 0.16 * at.across), 1};
                });
    PaintOval(painting, {38, 16, 5.4, 5.4}, 1, [](double u, double v) {
        return Film{std::hypot(u + 0.3, v) < 0.42 ? Light{0.1, 0.06, 0.1} : kCream, 1};
    });
    PaintOval(painting, {8, 23, 1.4, 1.2}, 0.8, [](double, double) {
        return Film{{0.12, 0.2, 0.12}, 1};
    });
    PaintStroke(painting, Knots{{48, 18, 2.4}, {56, 8, 0.6}}, 0.9, {kCream * 0.95, 1});
    return painting.ToPicture();
}

}  // namespace scenara::samples::millfair
