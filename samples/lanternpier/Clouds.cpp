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
using samplemaker::LayeredNoise;
using samplemaker::PaletteBuilder;
using samplemaker::Ramp;

// A sheet of long clouds: noise drawn out sideways, thickest in the middle rows.
struct Sheet {
    int width;  // the noise repeats after it
    int height;
    int cell;      // width of the largest lumps; divides the width
    double rows;   // their height
    double cover;  // 0 … 1
    std::uint32_t seed;
};

double Density(const Sheet& sheet, double x, double y) {
    const int cells = sheet.width / sheet.cell;
    const double lean = y * 1.7;  // the wind draws the upper rows out
    const double noise =
        LayeredNoise((x + lean) / sheet.cell, y / sheet.rows, 5, sheet.seed, cells);
    const double middle = 2 * y / sheet.height - 1;
    return noise - 0.62 + 0.3 * sheet.cover - 0.34 * middle * middle;
}

// The sun is low: undersides glow, bodies stay dark.
Canvas DrawSheet(const Sheet& sheet, const Ramp& tones) {
    Canvas canvas(sheet.width, sheet.height);
    canvas.Paint([&](int x, int y) -> std::uint8_t {
        const double here = Density(sheet, x, y);
        if (here <= 0) {
            return 0;
        }
        const double under = here - Density(sheet, x, y + 2);
        const double thin = std::max(0.0, 0.05 - here) * 6;
        return tones.At(x, y, 0.3 + 5.2 * under + thin);
    });
    return canvas;
}

}  // namespace

IndexedPicture DrawHighClouds() {
    PaletteBuilder palette;
    const Ramp tones = palette.AddRamp(
        7, {{0, {46, 30, 84}}, {0.4, {88, 42, 104}}, {0.7, {162, 62, 106}}, {1, {232, 112, 104}}});
    return DrawSheet({512, 56, 128, 9, 0.62, 5}, tones).ToPicture(palette.Colours());
}

IndexedPicture DrawLowClouds() {
    PaletteBuilder palette;
    const Ramp tones = palette.AddRamp(
        7,
        {{0, {128, 46, 100}}, {0.35, {186, 66, 96}}, {0.7, {244, 132, 84}}, {1, {255, 206, 130}}});
    return DrawSheet({640, 26, 160, 4, 0.5, 77}, tones).ToPicture(palette.Colours());
}

}  // namespace scenara::samples
