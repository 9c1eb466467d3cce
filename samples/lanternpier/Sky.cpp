// SPDX-License-Identifier: MIT
#include <array>
#include <cmath>
#include <cstdlib>

#include "lanternpier/Pictures.h"
#include "lanternpier/Scene.h"
#include "samplemaker/Canvas.h"
#include "samplemaker/Noise.h"
#include "samplemaker/Ramp.h"

namespace scenara::samples {
namespace {

using samplemaker::Canvas;
using samplemaker::PaletteBuilder;
using samplemaker::Ramp;

constexpr int kSkyWidth = 368;
constexpr int kSkyMiddle = kSkyWidth / 2;
constexpr int kSkyHeight = 172;
constexpr int kSkyTop = -28;  // view row of the first row

// How warm the sky is at a place, 0 … 1: warmer towards the horizon and around the sun.
double Warmth(double viewX, double viewY) {
    const double fall = (viewY - kSkyTop) / (kHorizon - kSkyTop);
    const double far = std::hypot((viewX - kSunX) / 2.1, viewY - kSunY);
    return 0.74 * std::pow(fall, 1.25) + 0.34 * std::exp(-far / 46) + 0.1 * std::exp(-far / 14);
}

void DrawStars(Canvas& canvas, std::uint8_t faint, std::uint8_t bright) {
    samplemaker::Random random(11);
    for (int star = 0; star < 70; ++star) {
        const int x = random.Whole(0, kSkyWidth - 1);
        const int y = random.Whole(0, 84);
        const bool shown = random.Unit() > y / 90.0;
        if (!shown || std::abs(x - kSkyMiddle + kViewCentre - kSunX) < y) {
            continue;
        }
        canvas.Set(x, y, random.Unit() < 0.25 ? bright : faint);
    }
    for (const auto& [x, y] : {std::array{66, 30}, std::array{302, 22}}) {
        canvas.Set(x, y, bright);
        for (const int side : {-1, 1}) {
            canvas.Set(x + side, y, faint);
            canvas.Set(x, y + side, faint);
        }
    }
}

void DrawSun(Canvas& canvas, const Ramp& sun) {
    const double centreX = kSunX - kViewCentre + kSkyMiddle;
    const double centreY = kSunY - kSkyTop;
    samplemaker::FillEllipse(canvas, {centreX, centreY}, 18, 18, [&](int x, int y) {
        const double down = (y - centreY + 18) / 36;
        return sun.At(x, y, 1.05 - 0.9 * down);
    });
}

}  // namespace

IndexedPicture DrawSky() {
    PaletteBuilder palette;
    const Ramp sky = palette.AddRamp(26, {{0, {14, 14, 44}},
                                          {0.16, {28, 22, 70}},
                                          {0.34, {66, 34, 98}},
                                          {0.5, {122, 46, 106}},
                                          {0.64, {186, 66, 98}},
                                          {0.77, {230, 104, 82}},
                                          {0.89, {250, 160, 84}},
                                          {1, {255, 216, 136}}});
    const Ramp sun =
        palette.AddRamp(8, {{0, {250, 130, 74}}, {0.5, {255, 202, 104}}, {1, {255, 248, 206}}});
    const std::uint8_t faint = palette.AddColour({112, 92, 150});
    const std::uint8_t bright = palette.AddColour({226, 214, 240});

    Canvas canvas(kSkyWidth, kSkyHeight);
    canvas.Paint([&](int x, int y) {
        return sky.At(x, y, Warmth(x - kSkyMiddle + kViewCentre, y + kSkyTop));
    });
    DrawStars(canvas, faint, bright);
    DrawSun(canvas, sun);
    return canvas.ToPicture(palette.Colours());
}

}  // namespace scenara::samples
