// SPDX-License-Identifier: MIT
//
// The wall's image in the polished floor: upside down, and the more drawn out the farther from the
// wall's foot, since the stone is not quite even.
#include <cmath>

#include "painting/Painting.h"
#include "painting/Shapes.h"
#include "samplemaker/Noise.h"
#include "thousandpanes/Pictures.h"
#include "thousandpanes/Rose.h"
#include "thousandpanes/Scene.h"
#include "thousandpanes/Wall.h"

namespace scenara::samples {
namespace {

// When the camera rises the image sinks faster than the floor's edge, so there is more of it above
// that edge.
constexpr int kTop = 254;
constexpr int kHeight = 226;

Light MiddleBayWithRose(double x, double y) {
    const bool rose = std::hypot(x, y - kRoseRow) < kRoseRadius;
    return rose ? RoseAt(x, y - kRoseRow) : MiddleBayAt(x, y);
}

Light ImageAt(Light (*bayAt)(double, double), double x, double row) {
    constexpr int kSamples = 9;
    const double below = row - kFloorTop;
    const double drawnOut = 3 + 0.14 * std::max(below, 0.0);
    const double sway = (samplemaker::SmoothNoise(x / 60, row / 5, 467, 0) - 0.5) *
                        (2 + 0.05 * std::max(below, 0.0));
    Light sum;
    for (int i = 0; i < kSamples; ++i) {
        const double off = (2.0 * i / (kSamples - 1) - 1) * drawnOut;
        sum = sum + bayAt(x + sway, 2 * kFloorTop - row + off);
    }
    const double strength = 1 - 0.35 * Rise(0, 136, below);
    return sum * (strength / kSamples);
}

IndexedPicture DrawImage(Light (*bayAt)(double, double)) {
    Painting painting(kBay, kHeight);
    painting.Fill(
        [bayAt](int x, int y) { return ImageAt(bayAt, x + 0.5 - kBay / 2.0, y + 0.5 + kTop); });
    painting.LeaveOutDarkness();
    return painting.ToPicture();
}

}  // namespace

IndexedPicture DrawSideBayImage() {
    return DrawImage(SideBayAt);
}

IndexedPicture DrawMiddleBayImage() {
    return DrawImage(MiddleBayWithRose);
}

}  // namespace scenara::samples
