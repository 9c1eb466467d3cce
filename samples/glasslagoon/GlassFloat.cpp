// SPDX-License-Identifier: MIT
//
// A fisherman's glass float in its net, with its rope, and the shadow that such a thing throws.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "glasslagoon/Pictures.h"
#include "glasslagoon/Scene.h"
#include "painting/Strokes.h"

namespace scenara::samples::glasslagoon {
namespace {

constexpr int kFloatWidth = 92;
constexpr int kFloatHeight = 206;
constexpr double kFloatX = 46;
constexpr double kFloatY = 46;
constexpr double kFloatRadius = 38;

constexpr Light kRope{0.84, 0.74, 0.52};

void PaintGlass(AlphaPainting& painting) {
    PaintOval(
        painting, {kFloatX, kFloatY, kFloatRadius, kFloatRadius}, 1.2, [](double u, double v) {
            const double away = std::hypot(u, v);
            const double rim = std::pow(away, 5.0);
            // The light comes in above on the left and gathers below on the right.
            const double gathered = Rise(0.75, 0.1, std::hypot(u - 0.40, v - 0.48));
            const double high = Rise(0.24, 0.10, std::hypot((u + 0.38) * 1.1, (v + 0.46) * 1.5));
            const double arc =
                Rise(0.07, 0.01, std::abs(away - 0.84)) * Rise(0.2, 0.8, -u * 0.4 - v);
            Light light = Mixed(Light{0.10, 0.56, 0.46}, Light{0.62, 1.0, 0.84}, 0.75 * gathered);
            light = Mixed(light, Light{0.04, 0.30, 0.32}, 0.45 * rim);
            light = Mixed(light, Light{1, 1, 1}, std::min(1.0, high + 0.7 * arc));
            return Film{light,
                        std::min(1.0, 0.50 + 0.36 * rim + 0.20 * gathered + high + 0.5 * arc)};
        });
}

// Two families of turns around the ball make the meshes.
void PaintNet(AlphaPainting& painting) {
    for (int strand = -4; strand <= 4; ++strand) {
        for (const double lean : {-1.0, 1.0}) {
            const Knots knots = KnotsAlong(24, [&](double u) {
                const double rise = std::numbers::pi * (u - 0.5);
                const double turn = 0.36 * strand + lean * 0.5 * std::sin(rise);
                return Knot{kFloatX + kFloatRadius * std::cos(rise) *
                                          std::sin(std::clamp(turn, -1.57, 1.57)),
                            kFloatY + kFloatRadius * std::sin(rise), 0.9};
            });
            PaintStroke(painting, knots, 1.1, {kRope * 0.72, 0.66});
        }
    }
}

void PaintLine(AlphaPainting& painting) {
    const Knots rope = KnotsAlong(24, [](double u) {
        return Knot{kFloatX + 3 * std::sin(5 * u), kFloatY + kFloatRadius + 4 + 118 * u, 1.7};
    });
    PaintStroke(painting, rope, 1.2, [](const StrokePlace& at) {
        const double strand = std::sin(150 * at.along + 1.6 * at.across);
        return Film{kRope * (0.72 + 0.16 * strand - 0.15 * at.across), 1};
    });
    for (const double y : {kFloatY - kFloatRadius, kFloatY + kFloatRadius}) {
        PaintOval(painting, {kFloatX, y, 5, 4}, 1.2, [](double u, double v) {
            return Film{kRope * (0.80 - 0.15 * u - 0.25 * v), 1};
        });
    }
}

}  // namespace

AlphaPicture DrawGlassFloat() {
    AlphaPainting painting(kFloatWidth, kFloatHeight);
    PaintGlass(painting);
    PaintNet(painting);
    PaintLine(painting);
    return painting.ToPicture();
}

AlphaPicture DrawShadow() {
    AlphaPainting painting(150, 34);
    PaintGlow(painting, {75, 17, 74, 16.5}, {{0.08, 0.26, 0.34}, 0.62});
    return painting.ToPicture();
}

}  // namespace scenara::samples::glasslagoon
