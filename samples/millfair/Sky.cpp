// SPDX-License-Identifier: MIT
//
// The evening sky: what does not zoom, or hardly does.
#include <cmath>

#include "millfair/Pictures.h"
#include "millfair/Scene.h"
#include "painting/NoiseSheet.h"
#include "painting/Strokes.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::millfair {
namespace {

constexpr int kSkyWidth = 656;
constexpr int kSkyHeight = 400;
constexpr int kCloudWidth = 3 * NoiseSheet::kSize;
constexpr int kCloudHeight = 120;

// From one brightness to the next by chance, so that the long slopes show no steps.
double Grain(int x, int y) {
    return (samplemaker::LatticeValue(x, y, 3001) - 0.5) * 0.012;
}

}  // namespace

AlphaPicture DrawSky() {
    AlphaPainting painting(kSkyWidth, kSkyHeight);
    painting.Fill([](int x, int y) {
        const Light light = SkyAt(x + 0.5 - kSkyWidth / 2.0, y + 0.5 - 20);
        const double grain = Grain(x, y);
        return Film{light + Light{grain, grain, grain}, 1};
    });
    samplemaker::Random random(3011);
    for (int star = 0; star < 120; ++star) {
        const double x = random.Between(2, kSkyWidth - 2);
        const double y = 2 + 150 * std::pow(random.Unit(), 1.5);
        const double bright = random.Between(0.2, 0.9) * Rise(170, 40, y);
        const double radius = star % 9 == 0 ? 1.1 : 0.7;
        PaintOval(painting, {x, y, radius, radius}, 0.8, [&](double, double) {
            return Film{Mixed(Light{1, 0.93, 0.84}, Light{0.80, 0.87, 1.0}, random.Unit()), bright};
        });
    }
    return painting.ToPicture();
}

AlphaPicture DrawMoon() {
    constexpr int kSide = 120;
    constexpr double kMiddle = 60;
    AlphaPainting painting(kSide, kSide);
    PaintGlow(painting, {kMiddle, kMiddle, 58, 58}, {{0.80, 0.74, 0.84}, 0.20});
    PaintGlow(painting, {kMiddle, kMiddle, 30, 30}, {{1.0, 0.93, 0.82}, 0.22});
    // The sun stands below on the left; the rest of the disc has a little light from the earth.
    PaintOval(painting, {kMiddle, kMiddle, 17, 17}, 1, [](double u, double v) {
        const double lit = Rise(0.02, 0.14, std::hypot(u - 0.42, v + 0.30) - 0.98);
        return Film{Mixed(Light{0.42, 0.38, 0.56}, Light{1.0, 0.97, 0.88}, lit), 0.3 + 0.7 * lit};
    });
    return painting.ToPicture();
}

AlphaPicture DrawClouds() {
    const NoiseSheet forms(3019, 8, 5);
    const NoiseSheet large(3023, 4, 2);
    AlphaPainting painting(kCloudWidth, kCloudHeight);
    const auto dense = [&](double x, double y) {
        const double band = Rise(0, 40, y) * Rise(kCloudHeight, kCloudHeight - 46, y);
        return band * Rise(0.46, 0.86,
                           0.62 * forms.At(x / 1.5, y * 3.6) + 0.38 * large.At(x / 3, y * 2.2));
    };
    painting.Fill([&](int x, int y) {
        const double here = dense(x, y);
        // Lit from below on the left: bright where there is less cloud towards that side.
        const double lit = std::clamp(0.5 + 1.9 * (here - dense(x - 7, y + 5)), 0.0, 1.0);
        const double low = Rise(10, kCloudHeight - 10, y);
        const Light dark = Mixed(Light{0.30, 0.23, 0.43}, Light{0.62, 0.37, 0.47}, low);
        const Light warm = Mixed(Light{0.80, 0.48, 0.52}, Light{1.0, 0.74, 0.52}, low);
        return Film{Mixed(dark, warm, lit), 0.82 * here};
    });
    return painting.ToPicture();
}

}  // namespace scenara::samples::millfair
