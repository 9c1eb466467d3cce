// SPDX-License-Identifier: MIT
#include "thousandpanes/Rose.h"

#include <cmath>
#include <numbers>

#include "painting/Painting.h"
#include "painting/Shapes.h"
#include "samplemaker/Noise.h"
#include "thousandpanes/Glass.h"
#include "thousandpanes/Pictures.h"
#include "thousandpanes/Scene.h"
#include "thousandpanes/Stone.h"

namespace scenara::samples {
namespace {

constexpr int kQuarter = 120;
constexpr double kPi = std::numbers::pi;

// One of the window's sectors: where a place lies across it, in pixels, and whether it is an even
// one.
struct Sector {
    double across;
    bool even;
    int number;
};

Sector SectorOf(double turn, double far, int count) {
    const double width = 2 * kPi / count;
    const int number = static_cast<int>(std::lround(turn / width));
    return {InCell(turn, width) * far, number % 2 == 0, number};
}

struct Glass {
    Light light;
    double edge = 1000;  // distance from the lead around it, below 0 inside
};

void Put(Glass& glass, double distance, const Light& light) {
    if (distance < glass.edge) {
        glass = {light, distance};
    }
}

// A petal that swells from its root to `widest` and closes in a point.
double PetalDistance(double across, double far, double root, double tip, double widest) {
    const double along = (far - root) / (tip - root);
    if (along <= 0 || along >= 1) {
        return std::max(root - far, far - tip) + 0.5;
    }
    const double half = widest * std::sin(kPi * std::pow(along, 1.35));
    return std::abs(across) - half;
}

Glass GlassAt(double turn, double far) {
    Glass glass;
    const Sector twelve = SectorOf(turn, far, 12);
    const Sector between = SectorOf(turn + kPi / 12, far, 12);
    const Sector fine = SectorOf(turn, far, 24);

    Put(glass, far - 9, kGold * 1.2);
    Put(glass, std::abs(far - 14.5) - 3.5, kRuby);
    Put(glass, PetalDistance(twelve.across, far, 21, 62, 8.5), twelve.even ? kRuby : kAmber);
    Put(glass, PetalDistance(between.across, far, 32, 68, 6), kCobalt);

    // Arches between the petals and the rim, each with a roundel in it.
    const double roundel = std::hypot(twelve.across, far - 76) - 7.5;
    const double arch = std::max({std::abs(twelve.across) - 0.235 * far, 65 - far,
                                  std::hypot(twelve.across, far - 70) - 19});
    Put(glass, roundel, twelve.even ? kEmerald : kGold);
    Put(glass, std::max(arch, 2 - roundel), twelve.even ? kAzure : kCobalt);
    Put(glass, std::hypot(between.across, far - 85) - 5.5, kViolet);

    Put(glass, std::hypot(fine.across, far - 97) - 5.5, fine.even ? kPale : kRuby);
    const Sector gap = SectorOf(turn + kPi / 24, far, 24);
    Put(glass, std::max(std::abs(gap.across) - 5, std::abs(far - 99) - 3.5), kCobalt * 0.8);
    return glass;
}

// The ring of stone around the glass, with gilded bosses.
Light RingAt(double turn, double far) {
    const double out = (far - kRoseRadius) / 14;
    const Sector boss = SectorOf(turn, far, 36);
    const double level = out < 0.3 ? Round(out / 0.15 - 1, -0.5) : 0.2 + 0.3 * Round(out, 0.3);
    const Light stone = Stone(level) + Light{0.05, 0.04, 0.08};
    const double gilt = std::hypot(boss.across, far - kRoseRadius - 8) - 2.6;
    return Mixed(stone, kGold * 0.7, Rise(0.8, -0.8, gilt));
}

}  // namespace

Light RoseAt(double x, double y) {
    const double far = std::hypot(x, y);
    const double turn = std::atan2(std::abs(x), std::abs(y));
    if (far >= kRoseRadius) {
        return RingAt(turn, far);
    }
    const Glass glass = GlassAt(turn, far);
    const double cloudy =
        0.72 + 0.5 * samplemaker::LayeredNoise(std::abs(x) / 6, std::abs(y) / 6, 2, 449);
    const double middle = 1.12 - 0.3 * far / kRoseRadius;
    const Light tracery = Stone(0.2 + 0.4 * Rise(6, 1, glass.edge)) + kPale * 0.03;
    const Light lit = glass.light * (cloudy * middle);
    return Mixed(lit, Mixed(kLead, tracery, Rise(0.6, 2, glass.edge)), Rise(-1.2, 0.2, glass.edge));
}

IndexedPicture DrawRoseQuarter() {
    Painting painting(kQuarter, kQuarter);
    for (int y = 0; y < kQuarter; ++y) {
        for (int x = 0; x < kQuarter; ++x) {
            const double right = x + 0.5;
            const double up = kQuarter - y - 0.5;
            if (std::hypot(right, up) < kRoseRadius + 14) {
                painting.Set(x, y, RoseAt(right, up));
            }
        }
    }
    return painting.ToPicture();
}

}  // namespace scenara::samples
