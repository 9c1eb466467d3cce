// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include "nightexpress/Pictures.h"
#include "samplemaker/Canvas.h"
#include "samplemaker/Noise.h"
#include "samplemaker/Ramp.h"

namespace scenara::samples {
namespace {

using samplemaker::Canvas;
using samplemaker::LayeredNoise;
using samplemaker::PaletteBuilder;
using samplemaker::Ramp;

constexpr int kWidth = 368;
constexpr int kHeight = 208;
constexpr int kMoonX = 112;
constexpr int kMoonY = 74;
constexpr double kMoonRadius = 21.5;

void DrawStars(Canvas& canvas, std::uint8_t faint, std::uint8_t bright) {
    samplemaker::Random random(211);
    for (int star = 0; star < 120; ++star) {
        const int x = random.Whole(0, kWidth - 1);
        const int y = static_cast<int>(130 * random.Unit() * random.Unit());
        const bool nearMoon = std::hypot(x - kMoonX, y - kMoonY) < 48;
        if (!nearMoon) {
            canvas.Set(x, y, random.Unit() < 0.2 ? bright : faint);
        }
    }
}

void DrawMoon(Canvas& canvas, const Ramp& moon) {
    samplemaker::FillEllipse(canvas, {kMoonX, kMoonY}, kMoonRadius, kMoonRadius, [&](int x, int y) {
        const double u = (x - kMoonX) / kMoonRadius;
        const double v = (y - kMoonY) / kMoonRadius;
        const double seas = LayeredNoise(x / 11.0, y / 10.0, 3, 223);
        const double shade = seas > 0.54 ? 0.26 : 0;
        return moon.At(x, y, 1.02 - 0.2 * (u * u + v * v) - 0.12 * (u + v) - shade);
    });
}

}  // namespace

IndexedPicture DrawNightSky() {
    PaletteBuilder palette;
    const Ramp sky = palette.AddRamp(24, {{0, {5, 8, 24}},
                                          {0.25, {10, 20, 48}},
                                          {0.5, {20, 44, 80}},
                                          {0.7, {40, 80, 112}},
                                          {0.86, {110, 118, 136}},
                                          {1, {214, 160, 128}}});
    const Ramp moon =
        palette.AddRamp(7, {{0, {126, 160, 166}}, {0.5, {206, 222, 206}}, {1, {255, 252, 232}}});
    const std::uint8_t faint = palette.AddColour({70, 96, 132});
    const std::uint8_t bright = palette.AddColour({208, 226, 232});
    Canvas canvas(kWidth, kHeight);
    canvas.Paint([&](int x, int y) {
        const double fall = y / 190.0;
        const double far = std::hypot(x - kMoonX, y - kMoonY);
        return sky.At(x, y, 0.98 * std::pow(fall, 1.7) + 0.46 * std::exp(-far / 34));
    });
    DrawStars(canvas, faint, bright);
    DrawMoon(canvas, moon);
    return canvas.ToPicture(palette.Colours());
}

// Torn clouds; their upper edges catch the moon.
IndexedPicture DrawNightClouds() {
    constexpr int kCloudWidth = 512;
    constexpr int kCloudHeight = 72;
    PaletteBuilder palette;
    const Ramp tones = palette.AddRamp(
        6, {{0, {14, 26, 56}}, {0.5, {32, 56, 90}}, {0.8, {84, 118, 138}}, {1, {170, 196, 190}}});
    const auto density = [](double x, double y) {
        const double middle = 2 * y / kCloudHeight - 1;
        return LayeredNoise((x - y) / 64, y / 13, 5, 227, kCloudWidth / 64) - 0.5 -
               0.3 * middle * middle;
    };
    Canvas canvas(kCloudWidth, kCloudHeight);
    canvas.Paint([&](int x, int y) -> std::uint8_t {
        const double here = density(x, y);
        if (here <= 0) {
            return 0;
        }
        const double over = here - density(x - 1, y - 2);
        return tones.At(x, y, 0.24 + 4.6 * std::max(over, -0.05));
    });
    return canvas.ToPicture(palette.Colours());
}

}  // namespace scenara::samples
