// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include "lanternpier/Pictures.h"
#include "samplemaker/Canvas.h"
#include "samplemaker/Noise.h"
#include "samplemaker/Ramp.h"

namespace scenara::samples {
namespace {

using samplemaker::Canvas;
using samplemaker::PaletteBuilder;
using samplemaker::Ramp;
using samplemaker::Random;

constexpr int kWidth = 512;
constexpr int kHeight = 112;

// A wave is a long lens; `near` is 0 at the horizon and 1 at the viewer's feet.
void DrawWave(Canvas& canvas, Random& random, const Ramp& water, double lift) {
    const double near = std::pow(random.Unit(), 1.35);
    const int row = static_cast<int>(near * kHeight);
    const double half = 3 + near * random.Between(8, 26);
    const int rows = 1 + static_cast<int>(near * random.Between(0, 2.6));
    const int centre = random.Whole(0, kWidth - 1);
    const double sink = random.Between(0.5, 1);
    for (int i = 0; i < rows; ++i) {
        const double reach = half * (1 - std::abs(2 * i + 1 - rows) / (rows + 1.0));
        const int slip = i * random.Whole(-3, 3);
        for (int dx = static_cast<int>(-reach); dx <= static_cast<int>(reach); ++dx) {
            const double base = 1 - std::pow((row + i) / (kHeight - 1.0), 0.62);
            const double fade = 1 - std::abs(dx) / (reach + 1);
            canvas.SetWrapped(centre + dx + slip, row + i,
                              water.Flat(base * 0.9 + lift * sink * (0.5 + fade / 2)));
        }
    }
}

}  // namespace

IndexedPicture DrawWater() {
    PaletteBuilder palette;
    const Ramp water = palette.AddRamp(18, {{0, {16, 14, 46}},
                                            {0.22, {34, 24, 72}},
                                            {0.42, {72, 36, 96}},
                                            {0.62, {132, 52, 104}},
                                            {0.8, {196, 82, 96}},
                                            {1, {246, 150, 92}}});
    Canvas canvas(kWidth, kHeight);
    canvas.Paint([&](int x, int y) {
        const double fall = std::pow(y / (kHeight - 1.0), 0.62);
        return water.At(x, y, (1 - fall) * 0.9);
    });
    Random random(83);
    for (int wave = 0; wave < 900; ++wave) {
        DrawWave(canvas, random, water, wave % 2 == 0 ? 0.16 : -0.15);
    }
    return canvas.ToPicture(palette.Colours());
}

// The sun's road on the water: glints that come and go, each at its own time.
Pictures DrawGlitter() {
    constexpr int kRoadWidth = 120;
    constexpr int kRoadHeight = 104;
    constexpr int kFrames = 6;
    PaletteBuilder palette;
    const Ramp gold = palette.AddRamp(
        6,
        {{0, {214, 88, 84}}, {0.4, {250, 146, 82}}, {0.75, {255, 206, 116}}, {1, {255, 248, 206}}});

    std::vector<Canvas> frames(kFrames, Canvas(kRoadWidth, kRoadHeight));
    Random random(89);
    for (int glint = 0; glint < 430; ++glint) {
        const double near = std::pow(random.Unit(), 1.25);
        const int row = static_cast<int>(near * kRoadHeight);
        const double spread = 15 + near * 22;
        const double side = random.Between(-1, 1);
        const double off = side * random.Unit();
        const int centre = static_cast<int>(std::lround(kRoadWidth / 2.0 + off * spread));
        const int half =
            static_cast<int>((1.5 + near * random.Between(1, 9)) * (1 - 0.6 * std::abs(off)));
        const int begin = random.Whole(0, kFrames - 1);
        const int shown = random.Whole(2, 4);
        const double tone = 1.05 - 0.55 * near - 0.6 * std::abs(off) + random.Between(-0.15, 0.15);
        for (int i = 0; i < shown; ++i) {
            // Shorter and darker while it comes and goes.
            const bool edge = i == 0 || i == shown - 1;
            const int reach = edge ? half / 2 : half;
            Canvas& frame = frames[static_cast<std::size_t>((begin + i) % kFrames)];
            for (int dx = -reach; dx <= reach; ++dx) {
                const double level = tone - (edge ? 0.2 : 0) - 0.25 * std::abs(dx) / (reach + 1);
                frame.Set(centre + dx, row, gold.Flat(level));
            }
        }
    }
    Pictures pictures;
    pictures.reserve(kFrames);
    for (const Canvas& frame : frames) {
        pictures.push_back(frame.ToPicture(palette.Colours()));
    }
    return pictures;
}

}  // namespace scenara::samples
