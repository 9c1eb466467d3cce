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
using samplemaker::PaletteBuilder;
using samplemaker::Ramp;
using samplemaker::Rgb;

struct Flakes {
    int size = 0;  // of the picture, which tiles both ways
    int count = 0;
    int length = 1;  // the wind draws them out
    double slope = 0;
    std::uint32_t seed = 0;
};

IndexedPicture DrawFlakes(const Flakes& flakes, Rgb dark, Rgb light) {
    PaletteBuilder palette;
    const Ramp tones = palette.AddRamp(3, {{0, dark}, {1, light}});
    Canvas canvas(flakes.size, flakes.size);
    samplemaker::Random random(flakes.seed);
    for (int flake = 0; flake < flakes.count; ++flake) {
        const int x = random.Whole(0, flakes.size - 1);
        const int y = random.Whole(0, flakes.size - 1);
        const int tone = random.Whole(0, 2);
        const int length = random.Whole(1, flakes.length);
        for (int i = 0; i < length; ++i) {
            const int row = y + flakes.size - static_cast<int>(std::lround(i * flakes.slope));
            canvas.SetWrapped(x + i, row % flakes.size, tones.Step(tone));
        }
    }
    return canvas.ToPicture(palette.Colours());
}

}  // namespace

IndexedPicture DrawFarSnow() {
    return DrawFlakes({128, 44, 2, 0.3, 281}, {60, 84, 120}, {138, 166, 186});
}

IndexedPicture DrawNearSnow() {
    return DrawFlakes({192, 26, 7, 0.34, 283}, {130, 156, 182}, {244, 250, 252});
}

// A pole so near that the speed blurs it.
IndexedPicture DrawFrontPole() {
    constexpr int kWidth = 44;
    constexpr int kHeight = 320;
    PaletteBuilder palette;
    const Ramp steel =
        palette.AddRamp(5, {{0, {2, 3, 12}}, {0.6, {14, 20, 40}}, {1, {70, 92, 118}}});
    Canvas canvas(kWidth, kHeight);
    canvas.Paint([&](int x, int y) -> std::uint8_t {
        const double u = (x - kWidth / 2.0 + 0.5) / (kWidth / 2.0);
        const double solid = 2.1 * (1 - std::abs(u));
        if (solid <= samplemaker::DitherThreshold(x, y)) {
            return 0;
        }
        return steel.At(x, y, 0.3 - 0.5 * u - 0.4 * u * u);
    });
    return canvas.ToPicture(palette.Colours());
}

}  // namespace scenara::samples
