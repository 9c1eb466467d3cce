// SPDX-License-Identifier: MIT
//
// The coloured light that falls on the floor, and the shadows across it. They are parallax pictures
// as the floor is, since their rows must move as the floor's do.
#include <algorithm>
#include <cmath>

#include "painting/Painting.h"
#include "painting/Shapes.h"
#include "thousandpanes/FloorPlan.h"
#include "thousandpanes/Glass.h"
#include "thousandpanes/Pictures.h"
#include "thousandpanes/Rose.h"

namespace scenara::samples {
namespace {

constexpr int kPoolWidth = 1040;
constexpr int kPoolTop = 356;
constexpr int kPoolHeight = 92;
constexpr int kShadowWidth = 1160;
constexpr int kShadowHeight = 140;

// The great window's light: its own picture, laid out on the floor and blurred by the way there.
Light RosePoolAt(const FloorPlace& place) {
    constexpr double kAway = 545;
    constexpr double kAcrossRadius = 128;
    constexpr double kAwayRadius = 92;
    constexpr int kBlur = 2;
    const double u = place.across / kAcrossRadius;
    const double v = (place.away - kAway) / kAwayRadius;
    const double far = std::hypot(u, v);
    if (far > 1.1) {
        return {};
    }
    Light sum;
    for (int i = -kBlur; i <= kBlur; ++i) {
        for (int j = -kBlur; j <= kBlur; ++j) {
            sum = sum + RoseAt((u + i * 0.025) * kRoseRadius, (v + j * 0.025) * kRoseRadius);
        }
    }
    return sum * (0.62 / ((2 * kBlur + 1) * (2 * kBlur + 1)) * Rise(1.08, 0.8, far));
}

// A lancet's light, slanting away from the middle.
Light LancetPoolAt(const FloorPlace& place, double middle) {
    constexpr int kBlur = 2;
    const double lean = (place.away - 545) * -0.22 * (middle < 0 ? -1 : 1);
    const double u = place.across - middle - lean;
    const double v = kLancetTop + (place.away - 440) * 1.05;
    const double edge = std::max({kLancet.Distance(u, v), v - kLancetFoot, kLancetTop - v});
    if (edge > 4) {
        return {};
    }
    Light sum;
    for (int i = -kBlur; i <= kBlur; ++i) {
        for (int j = -kBlur; j <= kBlur; ++j) {
            sum = sum + LancetGlass(u + i * 1.5, v + j * 3.5, 419);
        }
    }
    return sum * (1.05 / ((2 * kBlur + 1) * (2 * kBlur + 1)) * Rise(4, -10, edge));
}

Light PoolAt(double x, double row) {
    const FloorPlace place = PlaceOnFloor(x, row);
    Light light = RosePoolAt(place);
    for (const double middle : {-432.0, -330.0, 330.0, 432.0}) {
        light = light + LancetPoolAt(place, middle);
    }
    return light;
}

// How dark a column's shadow makes a place. The light stands behind the wall, so that shadows run
// away from its foot and become wider and softer.
double ShadowAt(const FloorPlace& place, double column) {
    constexpr double kLightAway = 1100;
    constexpr double kColumnAway = 750;
    const double on = (kLightAway - place.away) / (kLightAway - kColumnAway);
    const double width = 17 * on;
    const double soft = 5 + 16 * (on - 1);
    return Rise(width + soft, width - soft, std::abs(place.across - column * on)) *
           Rise(2.15, 1.1, on);
}

}  // namespace

IndexedPicture DrawFloorLight() {
    Painting painting(kPoolWidth, kPoolHeight);
    painting.Fill(
        [](int x, int y) { return PoolAt(x + 0.5 - kPoolWidth / 2.0, y + 0.5 + kPoolTop); });
    painting.LeaveOutDarkness();
    return painting.ToPicture();
}

IndexedPicture DrawFloorShadows() {
    Painting painting(kShadowWidth, kShadowHeight);
    painting.Fill([](int x, int y) {
        const FloorPlace place = PlaceOnFloor(x + 0.5 - kShadowWidth / 2.0, y + 0.5 + kFloorTop);
        double dark = 0;
        for (const double column : {-192.0, 192.0}) {
            dark = std::max(dark, ShadowAt(place, column));
        }
        return Light{0.1, 0.085, 0.11} * (y < 8 ? 0 : dark);
    });
    painting.LeaveOutDarkness();
    return painting.ToPicture();
}

}  // namespace scenara::samples
