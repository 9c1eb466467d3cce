// SPDX-License-Identifier: MIT
//
// What the wind moves: pennants and gulls.
#include <array>
#include <cmath>

#include "cloudharbour/Brushes.h"
#include "cloudharbour/Pictures.h"
#include "cloudharbour/Scene.h"

namespace scenara::samples::cloudharbour {
namespace {

constexpr double kTurn = 6.2831853;

}  // namespace

// A pennant with two tails. A wave runs along it, wider towards its end.
Pictures DrawPennant() {
    constexpr int kWidth = 104;
    constexpr int kHeight = 56;
    constexpr int kMoments = 8;
    constexpr double kLength = 98;
    std::vector<Painting> paintings;
    for (int moment = 0; moment < kMoments; ++moment) {
        Painting& painting = paintings.emplace_back(kWidth, kHeight);
        for (int x = 2; x < static_cast<int>(kLength); ++x) {
            const double t = x / kLength;
            const double phase = kTurn * (1.35 * t - moment / double{kMoments});
            const double middle = 22 + 5 * t + 9 * t * std::sin(phase);
            const double slope = std::cos(phase) * t;
            const double half = 12 * (1 - 0.42 * t);
            const double notch = Rise(0.74, 1.0, t) * half * 1.05;
            for (int y = 0; y < kHeight; ++y) {
                const double across = y + 0.5 - middle;
                const double inside = std::min(half - std::abs(across), std::abs(across) - notch);
                if (inside < -0.5) {
                    continue;
                }
                const double folds = 0.30 + 0.62 * slope;
                const bool gold = std::abs(std::abs(across) / half - 0.5) < 0.13;
                const Light cloth = gold ? Light{0.92, 0.70, 0.36} : Light{0.66, 0.16, 0.22};
                painting.Set(x, y, InLight(cloth, folds) * (0.86 + 0.2 * slope));
            }
        }
    }
    return ToPictures(paintings);
}

// A gull from the side and a little below; its wings go from high to low and back.
Pictures DrawGull() {
    constexpr int kWidth = 56;
    constexpr int kHeight = 40;
    std::vector<Painting> paintings;
    for (const double lift : {0.95, 0.55, 0.05, -0.5, -0.1, 0.5}) {
        Painting& painting = paintings.emplace_back(kWidth, kHeight);
        const Point body{28, 22};
        const auto wing = [&](int side, const Light& feathers) {
            const Point elbow{body.x + side * 9, body.y - 2 - 11 * lift};
            const Point tip{body.x + side * 23, body.y - 1 - 15 * lift + 4 * std::abs(lift)};
            const std::array inner = {Point{body.x - 3, body.y - 1}, Point{body.x + 4, body.y - 1},
                                      Point{elbow.x + 3, elbow.y + 3}, elbow};
            const std::array outer = {elbow, Point{elbow.x + 3.0, elbow.y + 3}, tip};
            PaintPolygon(painting, inner, [&](double, double) { return feathers; });
            PaintPolygon(painting, outer, [&](double x, double) {
                const double dark = Rise(14, 22, std::abs(x - body.x));
                return Mixed(feathers, Light{0.22, 0.20, 0.32}, dark);
            });
        };
        wing(1, {0.62, 0.54, 0.66});
        PaintBall(painting, body, 8.5, 3, {0.62, 0.58, 0.62});
        PaintBall(painting, {body.x - 8, body.y - 1.6}, 3, 2.6, {0.68, 0.64, 0.66});
        PaintLine(painting, {body.x - 11, body.y - 1}, {body.x - 13, body.y}, 1.6,
                  {0.9, 0.58, 0.24});
        PaintLine(painting, {body.x + 7, body.y}, {body.x + 13, body.y + 1}, 2.6,
                  {0.72, 0.62, 0.68});
        wing(-1, {1.0, 0.88, 0.80});
    }
    return ToPictures(paintings);
}

}  // namespace scenara::samples::cloudharbour
