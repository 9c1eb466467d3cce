// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>

#include "lanternpier/Pictures.h"
#include "samplemaker/Canvas.h"
#include "samplemaker/Noise.h"
#include "samplemaker/Ramp.h"

namespace scenara::samples {
namespace {

using samplemaker::Canvas;
using samplemaker::PaletteBuilder;
using samplemaker::Point;
using samplemaker::Ramp;

constexpr int kWidth = 84;
constexpr int kHeight = 62;
constexpr int kWaterline = 44;  // rows below are the boat's image in the water

struct Colours {
    PaletteBuilder palette;
    Ramp hull;
    Ramp glow;
    Ramp mirror;

    Colours()
        : hull(palette.AddRamp(7, {{0, {18, 10, 32}},
                                   {0.45, {48, 24, 52}},
                                   {0.75, {124, 58, 64}},
                                   {1, {246, 150, 88}}})),
          glow(palette.AddRamp(4,
                               {{0, {168, 62, 50}}, {0.6, {248, 150, 70}}, {1, {255, 238, 170}}})),
          mirror(palette.AddRamp(3, {{0, {20, 12, 42}}, {1, {40, 20, 58}}})) {}
};

// Height of the boat's rim above the water: the bow, at the right, sweeps up.
double Rim(double along) {
    const double bow = std::max(0.0, along - 0.55) / 0.45;
    const double stern = std::max(0.0, 0.2 - along) / 0.2;
    return 7 + 12 * bow * bow + 4 * stern * stern;
}

void DrawHull(Canvas& canvas, const Ramp& hull) {
    for (int x = 4; x < 80; ++x) {
        const double along = (x - 4) / 75.0;
        const int top = kWaterline - static_cast<int>(std::lround(Rim(along)));
        // The keel rises at both ends, so that bow and stern stand free of the water.
        const double bow = std::max(0.0, along - 0.8) / 0.2;
        const double stern = std::max(0.0, 0.06 - along) / 0.06;
        const int foot = kWaterline - static_cast<int>(std::lround(14 * bow * bow + 4 * stern));
        for (int y = top; y < foot; ++y) {
            const bool rim = y == top;
            const bool plank = (y - top) % 4 == 3;
            const double level = rim ? 0.62 + 0.38 * along : plank ? 0.05 : 0.22 + 0.2 * along;
            canvas.Set(x, y, hull.At(x, y, level));
        }
    }
}

// A fisher with a straw hat, seated, and the long pole over the stern.
void DrawFisher(Canvas& canvas, const Ramp& hull) {
    const std::array<Point, 6> body = {Point{25, 38}, {26, 30}, {29, 25},
                                       {34, 25},      {37, 31}, {39, 38}};
    samplemaker::FillPolygon(canvas, body,
                             [&](int x, int y) { return hull.At(x, y, 0.15 + (x - 25) * 0.02); });
    for (int row = 0; row < 5; ++row) {
        const int reach = 1 + row * 3 / 2;
        for (int dx = -reach; dx <= reach; ++dx) {
            const double level = dx > reach - 2 ? 0.95 : row == 4 ? 0.1 : 0.5;
            canvas.Set(31 + dx, 19 + row, hull.Flat(level));
        }
    }
    canvas.Line(36, 31, 38, 34, hull.Flat(0.9));
    canvas.Line(34, 33, 4, 6, hull.Flat(0.34));
    canvas.Line(35, 33, 5, 6, hull.Flat(0.05));
}

void DrawLanternPost(Canvas& canvas, const Ramp& hull) {
    canvas.FillRect(63, 6, 1, 30, hull.Flat(0.1));
    canvas.FillRect(64, 6, 1, 30, hull.Flat(0.5));
    canvas.Line(64, 6, 70, 6, hull.Flat(0.3));
}

void DrawMirror(Canvas& canvas, const Colours& colours) {
    for (int y = kWaterline; y < kHeight; ++y) {
        const int depth = y - kWaterline;
        for (int x = 0; x < kWidth; ++x) {
            const int sway = depth % 3 == 1 ? 1 + depth / 6 : -(depth / 7);
            const double gap = samplemaker::SmoothNoise(x / 8.0, y * 1.3, 107);
            if (canvas.Get(x + sway, kWaterline - 1 - depth * 2) != 0 && gap > depth * 0.05) {
                canvas.Set(x, y, colours.mirror.At(x, y, gap));
            }
        }
    }
    for (int x = 6; x < 66; ++x) {  // where the hull meets the water a line of light breaks
        if (samplemaker::SmoothNoise(x / 4.0, 0, 109) > 0.45) {
            canvas.Set(x, kWaterline, colours.hull.Flat(0.8));
        }
    }
}

}  // namespace

IndexedPicture DrawBoat() {
    const Colours colours;
    Canvas canvas(kWidth, kHeight);
    DrawFisher(canvas, colours.hull);
    DrawLanternPost(canvas, colours.hull);
    DrawHull(canvas, colours.hull);
    DrawMirror(canvas, colours);
    return canvas.ToPicture(colours.palette.Colours());
}

// The lantern at the bow and its light on the water below.
Pictures DrawBoatLight() {
    constexpr int kLightWidth = 25;
    constexpr int kLightHeight = 56;
    const Colours colours;
    const int middle = kLightWidth / 2;
    Pictures pictures;
    samplemaker::Random random(113);
    for (int frame = 0; frame < 3; ++frame) {
        Canvas canvas(kLightWidth, kLightHeight);
        samplemaker::FillEllipse(canvas, {12, 6}, 10 + frame * 0.6, 9 + frame * 0.6,
                                 [&](int x, int y) -> std::uint8_t {
                                     const double far = std::hypot(x - 12, y - 6) / 10;
                                     return 0.62 - 0.6 * far > samplemaker::DitherThreshold(x, y)
                                                ? colours.glow.Flat(0.3)
                                                : std::uint8_t{0};
                                 });
        samplemaker::FillEllipse(canvas, {12, 6}, 3.4, 4.4, [&](int x, int y) {
            return colours.glow.At(x, y, 1.1 + frame * 0.08 - 0.28 * std::hypot(x - 12, y - 6));
        });
        canvas.FillRect(middle - 1, 1, 3, 1, colours.hull.Flat(0));
        canvas.FillRect(middle - 1, 11, 3, 1, colours.hull.Flat(0));
        for (int y = 40; y < kLightHeight; y += 2) {
            const int reach = random.Whole(0, 3 + (y - 40) / 5);
            const int slip = random.Whole(-2, 2);
            canvas.FillRect(middle + slip - reach, y, 2 * reach + 1, 1,
                            colours.glow.Flat(0.9 - (y - 40) * 0.045));
        }
        pictures.push_back(canvas.ToPicture(colours.palette.Colours()));
    }
    return pictures;
}

}  // namespace scenara::samples
