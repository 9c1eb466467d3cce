// SPDX-License-Identifier: MIT
//
// The quay's paving. The picture is as wide everywhere: the stage draws it as a trapezoid, so that
// straight lines in it run towards the horizon.
#include <cmath>

#include "millfair/Pictures.h"
#include "millfair/Scene.h"
#include "painting/NoiseSheet.h"
#include "painting/Strokes.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::millfair {
namespace {

constexpr int kQuayWidth = 448;  // pixels as they are where the fighters stand; tiles sideways
constexpr int kQuayHeight = 130;
constexpr int kStones = 16;        // in a course
constexpr double kCourse = 0.052;  // how far it is to the next one, 1 at the fighters' feet
constexpr double kStone = kQuayWidth / static_cast<double>(kStones);

constexpr Light kStoneWarm{0.66, 0.53, 0.47};
constexpr Light kStoneCold{0.50, 0.44, 0.52};

struct Stone {
    double x = 0;    // from its middle, -1 … 1
    double y = 0;    // below 0 away from the viewer
    double own = 0;  // its number by chance, 0 … 1
    double tone = 0;
};

Stone StoneAt(double column, double far) {
    const double course = far / kCourse;
    const double line = std::floor(course);
    const auto number = static_cast<int>(line);
    const double shift = 0.5 * (number % 2) + 0.3 * samplemaker::LatticeValue(number, 3, 3109);
    const double across = column / kStone + shift;
    const double cell = std::floor(across);
    const int wrapped = ((static_cast<int>(cell) % kStones) + kStones) % kStones;
    return {2 * (across - cell) - 1, 1 - 2 * (course - line),
            samplemaker::LatticeValue(wrapped, number, 3119),
            samplemaker::LatticeValue(wrapped, number, 3121)};
}

}  // namespace

AlphaPicture DrawQuay() {
    const NoiseSheet grain(3137, 32, 3);
    AlphaPainting painting(kQuayWidth, kQuayHeight);
    const double scale = NoiseSheet::kSize / static_cast<double>(kQuayWidth);
    painting.Fill([&](int x, int y) {
        const double near = NearAt(kQuayEdge + y + 0.5);
        const double far = 1 / near;
        const double rough = grain.At((x + 0.5) * scale * 2, far * 900) - 0.5;
        if (y < 8) {
            // The kerb: long blocks, light on top.
            const double block = InCell(x + 0.5, kQuayWidth / 5.0);
            const double joint = 1 - 0.30 * Line(block, 5);
            const double edge = y < 2 ? 1.24 : y > 6 ? 0.62 : 1.02;
            return Film{Light{0.72, 0.60, 0.54} * ((edge + 0.16 * rough) * joint * 0.88), 1};
        }
        const Stone stone = StoneAt(x + 0.5, far);
        const double ax = std::abs(stone.x);
        const double ay = std::abs(stone.y);
        const double round = std::pow(std::pow(ax, 4.0) + std::pow(ay, 4.0), 0.25);
        const double top = Rise(1.0, 0.80, round);
        // Domed stones: what looks to the left is warm, what looks to the viewer is in the shade.
        const double dome = 0.16 * -stone.x * Rise(0.3, 1, ax) + 0.13 * -stone.y * Rise(0.3, 1, ay);
        const Light own = Mixed(kStoneCold, kStoneWarm, 0.25 + 0.6 * stone.own + dome * 1.6);
        const double bright = 0.80 + 0.26 * (stone.tone - 0.5) + dome + 0.22 * rough;
        const double lateral = Rise(0.55, 1.0, near);
        const Light lit = Mixed(Light{0.24, 0.18, 0.25}, own * bright, top);
        return Film{Mixed(lit, Light{0.24, 0.20, 0.32}, 0.40 * Rise(0.95, 1.7, near)) *
                        (1.06 - 0.10 * lateral),
                    1};
    });
    return painting.ToPicture();
}

AlphaPicture DrawBollard() {
    AlphaPainting painting(40, 34);
    PaintOval(painting, {23, 29, 16, 3.4}, 3, [](double, double) {
        return Film{{0.12, 0.09, 0.18}, 0.55};
    });
    const auto iron = [](double side, double shine) {
        return Light{0.40, 0.34, 0.40} * LightOn(side) * shine;
    };
    PaintStroke(painting, Knots{{17, 28, 6.5}, {17, 10, 5.2}}, 1, [&](const StrokePlace& at) {
        return Film{iron(-at.across * 1.0, 1.1), 1};
    });
    PaintOval(painting, {17, 8, 8.5, 4.6}, 1, [&](double u, double v) {
        return Film{iron(u * 0.9 + 0.3 * v, 1.35), 1};
    });
    // A rope around it.
    for (const double row : {17.0, 20.5, 24.0}) {
        PaintStroke(painting, Knots{{10.5, row, 1.5}, {17, row + 1.6, 1.6}, {23.5, row, 1.5}}, 0.9,
                    [&](const StrokePlace& at) {
                        return Film{Light{0.80, 0.64, 0.44} * LightOn(at.along * 2 - 1) *
                                        (0.9 + 0.2 * std::sin(at.along * 26)),
                                    1};
                    });
    }
    return painting.ToPicture();
}

// A pool of light on the ground, and a shadow: as wide as each other.
AlphaPicture DrawPool() {
    constexpr int kWidth = 300;
    constexpr int kHeight = 74;
    AlphaPainting painting(kWidth, kHeight);
    PaintOval(painting, {kWidth / 2.0, kHeight / 2.0, kWidth / 2.0 - 1, kHeight / 2.0 - 1}, 1,
              [](double u, double v) {
                  const double away = std::hypot(u, v);
                  return Film{{1.0, 0.72, 0.38}, 0.40 * Rise(1, 0, away)};
              });
    return painting.ToPicture();
}

AlphaPicture DrawShadow() {
    constexpr int kWidth = 220;
    constexpr int kHeight = 36;
    AlphaPainting painting(kWidth, kHeight);
    PaintOval(painting, {kWidth / 2.0, kHeight / 2.0, kWidth / 2.0 - 1, kHeight / 2.0 - 1}, 1,
              [](double u, double v) {
                  return Film{{0.10, 0.07, 0.17}, 0.66 * Rise(1, 0.45, std::hypot(u, v))};
              });
    return painting.ToPicture();
}

}  // namespace scenara::samples::millfair
