// SPDX-License-Identifier: MIT
//
// The mill, its wings, and the big wheel of the fair. What turns is drawn the same four ways
// around, and without light from a side, so that it may stand at any angle.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "millfair/Pictures.h"
#include "millfair/Polygon.h"
#include "millfair/Scene.h"
#include "painting/NoiseSheet.h"
#include "painting/Strokes.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::millfair {
namespace {

constexpr int kMillWidth = 130;
constexpr int kMillHeight = 190;
constexpr double kMillMiddle = 65;
constexpr double kMillFoot = 166;
constexpr double kGallery = 112;
constexpr double kCap = 46;

constexpr int kWingsSide = 181;
constexpr double kWingsMiddle = 90.5;
constexpr int kWheelSide = 173;
constexpr double kWheelMiddle = 86.5;
constexpr double kWheelRadius = 70;
constexpr int kSpokes = 12;

constexpr Light kPlaster{0.90, 0.80, 0.70};
constexpr Light kThatch{0.52, 0.40, 0.34};

// Half of the tower's width at a row.
double HalfAt(double row) {
    return 18 + 15 * std::pow(std::max(0.0, row - kCap) / (kMillFoot - kCap), 1.15);
}

void PaintTower(AlphaPainting& painting) {
    const NoiseSheet rough(3079, 16, 4);
    for (int y = static_cast<int>(kCap) - 2; y < kMillHeight; ++y) {
        const double half = HalfAt(y + 0.5);
        for (int x = 0; x < kMillWidth; ++x) {
            const double side = (x + 0.5 - kMillMiddle) / half;
            const double cover = Rise(half + 0.5, half - 0.5, std::abs(x + 0.5 - kMillMiddle));
            // Eight sides; three of them are seen.
            const double face = side < -0.42 ? -0.75 : side < 0.40 ? 0.0 : 0.75;
            const double edge =
                0.10 * Line(std::abs(side - 0.40), 0.05) - 0.10 * Line(std::abs(side + 0.42), 0.05);
            const bool low = y > kGallery;
            const double rows = low ? 0.06 * (rough.At(x * 2.0, y * 2.0) - 0.5)
                                    : 0.09 * std::sin(y * 1.9 + 0.4 * rough.At(x * 3.0, y));
            const double wear = 0.22 * (rough.At(x * 1.3 + 80, y * 0.9) - 0.5);
            const Light surface = low ? kPlaster : kThatch;
            painting.Lay(x, y,
                         {surface * LightOn(face + 0.25 * side) * (1 + rows + wear + edge), cover});
        }
    }
}

void PaintLitWindow(AlphaPainting& painting, double x, double y, double width, double height) {
    PaintGlow(painting, {x, y, width * 3.4, height * 2.4}, {kLampLight, 0.30});
    PaintBox(painting, {x - width / 2 - 1.4, y - height / 2 - 1.4},
             {x + width / 2 + 1.4, y + height / 2 + 1.8}, kDarkWood * 1.2);
    PaintBox(painting, {x - width / 2, y - height / 2}, {x + width / 2, y + height / 2},
             [&](double, double row) {
                 return Film{Mixed(kLampCore, kLampLight, (row - y) / height + 0.6), 1};
             });
    PaintBox(painting, {x - 0.5, y - height / 2}, {x + 0.5, y + height / 2}, kDarkWood);
    PaintBox(painting, {x - width / 2, y - 0.5}, {x + width / 2, y + 0.5}, kDarkWood);
}

void PaintGallery(AlphaPainting& painting) {
    const double half = HalfAt(kGallery) + 15;
    for (const double side : {-1.0, -0.5, 0.5, 1.0}) {
        PaintStroke(painting,
                    Knots{{kMillMiddle + side * half * 0.93, kGallery + 2, 1.1},
                          {kMillMiddle + side * HalfAt(kGallery + 17), kGallery + 17, 1.1}},
                    1, {kDarkWood * 1.3, 1});
    }
    PaintBox(painting, {kMillMiddle - half, kGallery}, {kMillMiddle + half, kGallery + 3.4},
             [&](double x, double y) {
                 return Film{
                     kWood * LightOn((x - kMillMiddle) / half) * (y < kGallery + 1.2 ? 1.5 : 0.9),
                     1};
             });
    for (int post = 0; post <= 10; ++post) {
        const double x = kMillMiddle - half + 1 + (2 * half - 2) * post / 10.0;
        PaintStroke(painting, Knots{{x, kGallery, 0.7}, {x, kGallery - 10, 0.7}}, 0.9,
                    {kWood * LightOn((x - kMillMiddle) / half) * 1.1, 1});
    }
    PaintStroke(
        painting,
        Knots{{kMillMiddle - half, kGallery - 10, 0.9}, {kMillMiddle + half, kGallery - 10, 0.9}},
        1, {kWood * LightOn(-0.2) * 1.2, 1});
}

void PaintCap(AlphaPainting& painting) {
    PaintPolygon(painting,
                 {{kMillMiddle - 22, kCap},
                  {kMillMiddle - 18, kCap - 15},
                  {kMillMiddle - 8, kCap - 26},
                  {kMillMiddle + 4, kCap - 28},
                  {kMillMiddle + 16, kCap - 19},
                  {kMillMiddle + 23, kCap - 2},
                  {kMillMiddle + 20, kCap + 3},
                  {kMillMiddle - 20, kCap + 3}},
                 [](double x, double y) {
                     const double line = 0.08 * std::sin(y * 2.2);
                     return Film{
                         Light{0.46, 0.27, 0.27} * LightOn((x - kMillMiddle) / 20) * (1.1 + line),
                         1};
                 });
    PaintOval(painting, {kMillMiddle - 2, kCap - 10, 5.5, 5.5}, 1, [](double u, double v) {
        return Film{kDarkWood * (1.2 - 0.4 * u - 0.3 * v), 1};
    });
}

void PaintSail(AlphaPainting& painting, double turn) {
    const double alongX = std::cos(turn);
    const double alongY = std::sin(turn);
    // So far along the spar, and so far to the side of it.
    const auto at = [&](double along, double side) {
        return Point{kWingsMiddle + alongX * along - alongY * side,
                     kWingsMiddle + alongY * along + alongX * side};
    };
    const auto knot = [&](double along, double side, double half) {
        const Point point = at(along, side);
        return Knot{point.x, point.y, half};
    };
    PaintPolygon(painting, {at(20, 1), at(86, 1), at(86, 15), at(20, 12)}, [&](double x, double y) {
        const double along = (x - kWingsMiddle) * alongX + (y - kWingsMiddle) * alongY;
        const double fold = 0.05 * std::sin(along * 0.7);
        return Film{Light{0.86, 0.66, 0.56} * (0.86 + fold + along * 0.002), 0.94};
    });
    for (int rung = 0; rung <= 9; ++rung) {
        const double along = 20 + rung * 7.33;
        PaintStroke(painting, Knots{knot(along, -4, 0.5), knot(along, 12 + rung / 3.0, 0.5)}, 0.8,
                    {kDarkWood * 1.35, 0.95});
    }
    PaintStroke(painting, Knots{knot(20, 12, 0.6), knot(86, 15, 0.6)}, 0.8, {kDarkWood * 1.35, 1});
    PaintStroke(painting, Knots{knot(20, -4, 0.6), knot(86, -4, 0.6)}, 0.8, {kDarkWood * 1.35, 1});
    PaintStroke(painting, Knots{knot(0, 0, 2.2), knot(87, 0, 1.1)}, 0.9, {kDarkWood * 1.5, 1});
}

Light LanternColour(int which) {
    constexpr Light kColours[] = {{1.0, 0.46, 0.34}, {1.0, 0.84, 0.46}, {0.56, 0.90, 0.84}};
    return kColours[which % 3];
}

}  // namespace

AlphaPicture DrawMill() {
    AlphaPainting painting(kMillWidth, kMillHeight);
    PaintTower(painting);
    PaintLitWindow(painting, kMillMiddle - 2, 80, 7, 9);
    PaintLitWindow(painting, kMillMiddle + 3, 134, 8, 10);
    PaintGallery(painting);
    PaintCap(painting);
    painting.TintAll([](int, int y) { return Film{kHaze, 0.12 + 0.12 * Rise(120, 166, y)}; });
    return painting.ToPicture();
}

AlphaPicture DrawWings() {
    AlphaPainting painting(kWingsSide, kWingsSide);
    for (int wing = 0; wing < 4; ++wing) {
        PaintSail(painting, 0.4 + wing * std::numbers::pi / 2);
    }
    PaintOval(painting, {kWingsMiddle, kWingsMiddle, 5, 5}, 1, [](double u, double v) {
        return Film{kDarkWood * (1.7 - 0.7 * std::hypot(u, v)), 1};
    });
    painting.TintAll([](int, int) { return Film{kHaze, 0.12}; });
    return painting.ToPicture();
}

AlphaPicture DrawWheel() {
    AlphaPainting painting(kWheelSide, kWheelSide);
    const auto at = [](double turn, double radius, double half) {
        return Knot{kWheelMiddle + radius * std::cos(turn), kWheelMiddle + radius * std::sin(turn),
                    half};
    };
    const Light iron{0.56, 0.42, 0.50};
    for (const double radius : {kWheelRadius, kWheelRadius - 9, 22.0}) {
        const Knots rim = KnotsAlong(97, [&](double u) {
            return at(u * 2 * std::numbers::pi, radius, radius > 60 ? 1.0 : 0.8);
        });
        PaintStroke(painting, rim, 0.9, {iron, 1});
    }
    for (int spoke = 0; spoke < kSpokes; ++spoke) {
        const double turn = 2 * std::numbers::pi * spoke / kSpokes;
        const double half = std::numbers::pi / kSpokes;
        PaintStroke(painting, Knots{at(turn, 4, 0.7), at(turn, kWheelRadius, 0.7)}, 0.9, {iron, 1});
        PaintStroke(painting,
                    Knots{at(turn, kWheelRadius - 9, 0.5), at(turn + half, kWheelRadius, 0.5)}, 0.8,
                    {iron, 0.9});
        PaintStroke(painting,
                    Knots{at(turn, kWheelRadius - 9, 0.5), at(turn - half, kWheelRadius, 0.5)}, 0.8,
                    {iron, 0.9});
        for (int bulb = 1; bulb < 5; ++bulb) {
            const Knot place = at(turn, 14.0 * bulb, 0);
            PaintGlow(painting, {place.x, place.y, 4, 4}, {kLampLight, 0.6});
            PaintOval(painting, {place.x, place.y, 1, 1}, 0.8, [](double, double) {
                return Film{kLampCore, 1};
            });
        }
    }
    for (int cabin = 0; cabin < kSpokes; ++cabin) {
        const Knot place = at(2 * std::numbers::pi * cabin / kSpokes, kWheelRadius, 0);
        const Light colour = LanternColour(cabin);
        PaintGlow(painting, {place.x, place.y, 15, 15}, {colour, 0.50});
        PaintOval(painting, {place.x, place.y, 6.2, 6.2}, 1, [&](double u, double v) {
            return Film{Mixed(kLampCore, colour * 0.92, Rise(0.1, 0.9, std::hypot(u, v))), 1};
        });
    }
    PaintOval(painting, {kWheelMiddle, kWheelMiddle, 6, 6}, 1, [&](double u, double v) {
        return Film{iron * (1.5 - 0.7 * std::hypot(u, v)), 1};
    });
    painting.TintAll([](int, int) { return Film{kHaze, 0.14}; });
    return painting.ToPicture();
}

AlphaPicture DrawWheelStand() {
    constexpr int kWidth = 100;
    constexpr int kHeight = 130;
    AlphaPainting painting(kWidth, kHeight);
    const Light iron{0.44, 0.34, 0.44};
    for (const double side : {-1.0, 1.0}) {
        const double foot = 50 + side * 34;
        PaintStroke(painting, Knots{{foot, 118, 1.6}, {50 + side * 2, 10, 1.2}}, 1,
                    {iron * (side < 0 ? 1.5 : 0.9), 1});
    }
    for (const double row : {44.0, 76.0, 104.0}) {
        const double half = 2 + 32 * (row - 10) / 108;
        PaintStroke(painting, Knots{{50 - half, row, 0.8}, {50 + half, row, 0.8}}, 0.9, {iron, 1});
    }
    PaintOval(painting, {50, 10, 4, 4}, 1, [&](double u, double) {
        return Film{iron * (1.2 - 0.5 * u), 1};
    });
    painting.TintAll([](int, int) { return Film{kHaze, 0.18}; });
    return painting.ToPicture();
}

}  // namespace scenara::samples::millfair
