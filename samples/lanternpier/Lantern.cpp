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

struct Colours {
    PaletteBuilder palette;
    Ramp wood;
    Ramp paper;
    std::uint8_t halo;
    std::uint8_t haloEdge;

    Colours()
        : wood(palette.AddRamp(
              8,
              {{0, {14, 8, 24}}, {0.4, {48, 24, 42}}, {0.7, {118, 58, 54}}, {1, {255, 176, 96}}})),
          paper(palette.AddRamp(9, {{0, {120, 22, 34}},
                                    {0.35, {214, 62, 40}},
                                    {0.65, {252, 144, 58}},
                                    {1, {255, 244, 190}}})),
          halo(palette.AddColour({226, 100, 66})),
          haloEdge(palette.AddColour({170, 66, 84})) {}
};

constexpr int kPostWidth = 34;
constexpr int kPostHeight = 96;
constexpr int kPostX = 8;  // left edge of the upright
constexpr int kLightSize = 61;
constexpr int kLightMiddle = 30;

}  // namespace

// The post, with an arm to the right from which the lantern hangs.
IndexedPicture DrawLanternPost() {
    const Colours colours;
    Canvas canvas(kPostWidth, kPostHeight);
    for (int y = 6; y < kPostHeight; ++y) {
        const double lamp = std::exp(-(y - 26) * (y - 26) / 500.0);
        for (int dx = 0; dx < 7; ++dx) {
            const double grain = samplemaker::LayeredNoise(dx * 0.8, y / 7.0, 2, 151) - 0.5;
            const double edge = dx == 6 ? 0.42 + 0.5 * lamp : dx == 0 ? -0.1 : 0.05 * dx;
            canvas.Set(kPostX + dx, y,
                       colours.wood.At(kPostX + dx, y, 0.2 + edge + 0.2 * grain + 0.2 * lamp));
        }
    }
    canvas.FillRect(kPostX - 1, 90, 9, 6, colours.wood.Flat(0.1));  // the foot
    canvas.FillRect(kPostX - 1, 90, 9, 1, colours.wood.Flat(0.6));
    for (int x = kPostX - 4; x < 31; ++x) {  // the arm, and the brace below it
        canvas.Set(x, 10, colours.wood.Flat(0.35));
        canvas.Set(x, 11, colours.wood.Flat(0.15));
        canvas.Set(x, 12, colours.wood.Flat(x > 14 ? 0.85 : 0.4));
    }
    canvas.Line(kPostX + 7, 22, kPostX + 16, 13, colours.wood.Flat(0.2));
    canvas.Line(kPostX + 7, 23, kPostX + 17, 13, colours.wood.Flat(0.7));
    for (int row = 0; row < 6; ++row) {  // a little roof against the rain
        const int reach = 2 + row * 7 / 4;
        for (int dx = -reach; dx <= reach; ++dx) {
            const double level = row == 5 ? 0.05 : dx > reach - 2 ? 0.8 : 0.24;
            canvas.Set(kPostX + 3 + dx, row, colours.wood.Flat(level));
        }
    }
    return canvas.ToPicture(colours.palette.Colours());
}

// The burning lantern: each picture is one moment of the flame.
Pictures DrawLanternLight() {
    const Colours colours;
    Pictures pictures;
    for (const double flame : {0.0, 0.5, 1.0}) {
        Canvas canvas(kLightSize, kLightSize);
        canvas.Paint([&](int x, int y) -> std::uint8_t {
            const double far = std::hypot(x - kLightMiddle, y - kLightMiddle);
            const double light = (0.6 + 0.06 * flame) * (1 - far / (21.0 + 3 * flame));
            if (light <= samplemaker::DitherThreshold(x, y)) {
                return 0;
            }
            return light > 0.24 ? colours.halo : colours.haloEdge;
        });
        samplemaker::FillEllipse(
            canvas, {kLightMiddle, kLightMiddle}, 8.4, 10.6, [&](int x, int y) {
                const double u = (x - kLightMiddle) / 9.0;
                const double v = (y - kLightMiddle - 2) / 11.0;
                const double rib = (y - kLightMiddle) % 3 == 0 ? 0.16 : 0;
                return colours.paper.At(x, y, 0.98 + 0.1 * flame - 0.72 * (u * u + v * v) - rib);
            });
        for (const int y : {kLightMiddle - 12, kLightMiddle + 10}) {  // caps
            canvas.FillRect(kLightMiddle - 4, y, 9, 2, colours.wood.Flat(0.05));
            canvas.FillRect(kLightMiddle - 3, y, 7, 1, colours.wood.Flat(0.45));
        }
        canvas.FillRect(kLightMiddle, kLightMiddle - 16, 1, 4, colours.wood.Flat(0.05));
        canvas.FillRect(kLightMiddle, kLightMiddle + 12, 1, 5, colours.paper.Flat(0.2));
        pictures.push_back(canvas.ToPicture(colours.palette.Colours()));
    }
    return pictures;
}

}  // namespace scenara::samples
