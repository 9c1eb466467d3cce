// SPDX-License-Identifier: MIT
//
// Light in the air: the rays of the great window, the clouds that pass outside, and dust.
#include <cmath>

#include "painting/Painting.h"
#include "painting/Shapes.h"
#include "samplemaker/Noise.h"
#include "thousandpanes/Glass.h"
#include "thousandpanes/Pictures.h"
#include "thousandpanes/Scene.h"

namespace scenara::samples {
namespace {

// The right half of the fan; the left one is its mirror image.
constexpr int kRayWidth = 300;
constexpr int kRayTop = 60;
constexpr int kRayHeight = 350;

Light RayAt(double x, double y) {
    constexpr double kSource = -40;  // the row that all rays come from, behind the wall
    const double angle = std::atan2(x, y - kSource);
    const double near = std::hypot(x, y - kRoseRow);
    const double streak = samplemaker::SmoothNoise(angle * 13, 0, 491);
    const double fine = samplemaker::SmoothNoise(angle * 41, 0, 499);
    const double strength = std::pow(0.75 * streak + 0.25 * fine, 2.2);
    const double hue = samplemaker::SmoothNoise(angle * 7, 3, 503);
    const Light tint =
        hue < 0.5 ? Mixed(kAzure, kViolet, 2 * hue) : Mixed(kViolet, kAmber, 2 * hue - 1);
    const double fade = Rise(360, 60, near) * Rise(0.72, 0.25, angle) * Rise(90, 230, y);
    return (tint + Light{0.3, 0.3, 0.3}) * (0.95 * strength * fade);
}

}  // namespace

IndexedPicture DrawRays() {
    Painting painting(kRayWidth, kRayHeight);
    painting.Fill([](int x, int y) { return RayAt(x + 0.5, y + 0.5 + kRayTop); });
    painting.LeaveOutDarkness();
    return painting.ToPicture();
}

// What the clouds outside take from the windows' light. It tiles sideways.
IndexedPicture DrawClouds() {
    constexpr int kWidth = 512;
    constexpr int kHeight = 320;
    Painting painting(kWidth, kHeight);
    painting.Fill([](int x, int y) {
        const double thick = samplemaker::LayeredNoise(x / 128.0, y / 110.0, 3, 509, 4);
        const double edge = Rise(0, 70, y) * Rise(kHeight, kHeight - 80, y);
        return Light{0.42, 0.36, 0.3} * (Rise(0.5, 0.78, thick) * edge);
    });
    painting.LeaveOutDarkness();
    return painting.ToPicture();
}

// Grains of dust, sharp and blurred. It tiles sideways.
IndexedPicture DrawDust() {
    constexpr int kWidth = 320;
    constexpr int kHeight = 300;
    constexpr int kGrains = 34;
    Painting painting(kWidth, kHeight);
    samplemaker::Random random(521);
    for (int grain = 0; grain < kGrains; ++grain) {
        const double size = random.Between(2, 5);
        const double x = random.Between(8, kWidth - 8);
        const double y = random.Between(8, kHeight - 8);
        const double bright = random.Between(0.25, 0.6) * 3 / size;
        const Light tint = Mixed(kGold, kPale, random.Unit());
        for (int dy = -6; dy <= 6; ++dy) {
            for (int dx = -6; dx <= 6; ++dx) {
                const double light = bright * Rise(size, size / 4, std::hypot(dx, dy));
                if (light > 0) {
                    painting.Add(static_cast<int>(x) + dx, static_cast<int>(y) + dy, tint * light);
                }
            }
        }
    }
    painting.LeaveOutDarkness();
    return painting.ToPicture();
}

}  // namespace scenara::samples
