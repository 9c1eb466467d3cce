// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "lanternpier/Pictures.h"
#include "lanternpier/Scene.h"
#include "samplemaker/Canvas.h"
#include "samplemaker/Noise.h"
#include "samplemaker/Ramp.h"

namespace scenara::samples {
namespace {

using samplemaker::Canvas;
using samplemaker::LayeredNoise;
using samplemaker::PaletteBuilder;
using samplemaker::Ramp;

constexpr int kWidth = 768;
constexpr int kHeight = 92;
constexpr int kShore = 64;  // row of the waterline; below it the hills stand on their heads
constexpr int kSun = kSunX - kViewCentre + kWidth / 2;

struct Colours {
    Ramp forest;  // ridge to shore: the mist of the evening lies on the shore
    std::uint8_t rim = 0;
    std::uint8_t rimFar = 0;
    Ramp mirror;
};

// 0 in the bay where the sun meets the water, 1 on land; a low island lies right of the sun.
double Land(int x) {
    const double off = x - kSun;
    const double left = std::clamp((-off - 34) / 120, 0.0, 1.0);
    const double right = std::clamp((off - 70) / 110, 0.0, 1.0);
    return std::max(std::sqrt(left), 0.78 * std::sqrt(right));
}

int RidgeAt(int x) {
    const double swell = LayeredNoise(x / 96.0, 0, 3, 61, kWidth / 96);
    const double land = Land(x);
    return land <= 0 ? 0 : static_cast<int>(std::lround(land * (8 + 40 * swell)));
}

// Boughs in tiers of three rows, each tier wider than the one above it.
int Reach(int row) {
    return static_cast<int>(row * 0.3 + (row % 3) * 0.5);
}

void DrawPine(Canvas& canvas, int x, int foot, int height, double tone, const Colours& colours) {
    const int top = foot - height;
    for (int row = 0; row < height; ++row) {
        for (int dx = -Reach(row); dx <= Reach(row); ++dx) {
            canvas.SetWrapped(x + dx, top + row, colours.forest.At(x + dx, top + row, tone));
        }
    }
}

// The sunlit edge of a pine on the ridge: the outermost pixel of each tier.
void DrawRim(Canvas& canvas, int x, int foot, int height, const Colours& colours) {
    const int distance = std::abs(x - kSun);
    if (distance >= 230) {
        return;
    }
    const int side = x < kSun ? 1 : -1;
    for (int row = 2; row < height - 2; row += 3) {
        canvas.SetWrapped(x + side * Reach(row), foot - height + row,
                          distance < 130 ? colours.rim : colours.rimFar);
    }
}

void DrawLand(Canvas& canvas, const Colours& colours) {
    for (int x = 0; x < kWidth; ++x) {
        const int ridge = kShore - RidgeAt(x);
        for (int y = ridge; y < kShore; ++y) {
            const double mist = std::pow(std::clamp((y - 20) / 44.0, 0.0, 1.0), 2);
            canvas.Set(x, y, colours.forest.At(x, y, 0.62 * mist));
        }
    }
}

// Rows of pines from the ridge down to the shore; the lower, the deeper in the mist.
void DrawForest(Canvas& canvas, const Colours& colours) {
    samplemaker::Random random(71);
    for (int below = 0; below < 44; below += 5) {
        for (int x = 0; x < kWidth; x += random.Whole(3, 6)) {
            const int foot = kShore - RidgeAt(x) + below + random.Whole(0, 3);
            const bool tall = random.Unit() < 0.15;
            const int height = random.Whole(6, 10) + (tall ? 3 : 0);
            if (RidgeAt(x) <= 4 || foot > kShore) {
                continue;
            }
            const double mist = std::pow(std::clamp((foot - 20) / 44.0, 0.0, 1.0), 2);
            const double tone = below == 0 ? 0.02 : 0.55 * mist + random.Between(0, 0.16);
            DrawPine(canvas, x, foot, height, tone, colours);
            if (below == 0) {
                DrawRim(canvas, x, foot, height, colours);
            }
        }
    }
}

// The hills upside down in the water, torn by waves that grow towards the viewer.
void DrawMirror(Canvas& canvas, const Colours& colours) {
    for (int y = kShore; y < kHeight; ++y) {
        const int depth = y - kShore;
        for (int x = 0; x < kWidth; ++x) {
            const int sway = static_cast<int>(std::lround(
                (LayeredNoise(x / 24.0, y * 1.3, 2, 73, kWidth / 24) - 0.5) * depth * 0.5));
            const int source = kShore - 1 - depth * 3 / 2;
            const int fromX = ((x + sway) % kWidth + kWidth) % kWidth;
            const double gap = LayeredNoise(x / 12.0, y * 0.9, 2, 79, kWidth / 12);
            if (canvas.Get(fromX, source) != 0 && gap > 0.2 + depth * 0.011) {
                canvas.Set(x, y, colours.mirror.At(x, y, depth / 24.0));
            }
        }
    }
}

}  // namespace

IndexedPicture DrawHills() {
    PaletteBuilder palette;
    const Colours colours{
        palette.AddRamp(9, {{0, {26, 16, 50}}, {0.5, {52, 26, 72}}, {1, {128, 52, 92}}}),
        palette.AddColour({236, 122, 84}), palette.AddColour({124, 50, 88}),
        palette.AddRamp(5, {{0, {66, 28, 76}}, {1, {38, 22, 70}}})};
    Canvas canvas(kWidth, kHeight);
    DrawLand(canvas, colours);
    DrawForest(canvas, colours);
    DrawMirror(canvas, colours);
    return canvas.ToPicture(palette.Colours());
}

}  // namespace scenara::samples
