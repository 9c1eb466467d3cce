// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

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

constexpr int kWidth = 640;  // the range repeats after two views
constexpr int kHeight = 96;
constexpr int kFoot = 88;  // row of the waterline; a few rows more hide the seam with the water
constexpr int kSun = kSunX - kViewCentre + kWidth / 2;

struct Peak {
    int x = 0;
    int height = 0;
    int spread = 1;  // half the width of its foot
    std::uint32_t seed = 0;
    double snow = 0;  // part of its height
};

struct Colours {
    Ramp shade;  // top to foot: the haze at the foot swallows both sides
    Ramp light;
    Ramp snowShade;
    Ramp snowLight;
};

// Signed distance from a peak, the short way round the repeating picture.
int Across(int x, int peakX) {
    const int gap = ((x - peakX) % kWidth + kWidth) % kWidth;
    return gap < kWidth / 2 ? gap : gap - kWidth;
}

double HeightAt(const Peak& peak, int across) {
    const double out = std::abs(across) / static_cast<double>(peak.spread);
    if (out >= 1) {
        return 0;
    }
    const double jag = LayeredNoise(across / 7.0, 0, 3, peak.seed) - 0.5;
    const double cone = peak.height * std::pow(1 - out, 1.35);
    return std::max(0.0, cone + jag * std::min(9.0, 2 + out * 18));
}

// Above 0 on the side that the sun sees: a ragged spine runs down from the summit, spurs off it.
double Facing(const Peak& peak, int across, double below) {
    const double side = peak.x < kSun ? 1 : -1;
    const double spine = 15 * (LayeredNoise(0.5, below / 11, 3, peak.seed + 7) - 0.5) * below / 20;
    const double lean = across - side * below * 0.45;
    const double spurs = LayeredNoise(lean / 10.0, below / 30, 3, peak.seed + 3) - 0.5;
    return side * (across - spine) / (4 + below * 0.42) + 4.6 * spurs * std::min(1.0, below / 12);
}

// Snow lies down to a ragged line and runs lower in the gullies.
bool HasSnow(const Peak& peak, int across, double below) {
    const double tongue = LayeredNoise(across / 3.2, 1, 2, peak.seed + 9) - 0.5;
    const double gully =
        LayeredNoise(across / 9.0 + below / 14, below / 40, 2, peak.seed + 5) - 0.5;
    return below + 16 * tongue + 34 * gully < peak.height * peak.snow;
}

void DrawPeak(Canvas& canvas, const Peak& peak, const Colours& colours) {
    for (int x = 0; x < kWidth; ++x) {
        const int across = Across(x, peak.x);
        const int top = kFoot - static_cast<int>(std::lround(HeightAt(peak, across)));
        for (int y = std::max(top, 0); y < kFoot; ++y) {
            const double below = y - (kFoot - peak.height);
            const double facing = Facing(peak, across, below);
            const double haze = std::pow(std::clamp((y - 14) / 74.0, 0.0, 1.0), 1.3);
            const bool snow = HasSnow(peak, across, below);
            if (facing > 0) {
                const Ramp& side = snow ? colours.snowLight : colours.light;
                canvas.Set(x, y, side.At(x, y, haze + (facing < 0.5 ? 0.14 : 0)));
            } else {
                const Ramp& side = snow ? colours.snowShade : colours.shade;
                canvas.Set(x, y, side.At(x, y, haze - (facing < -1.6 ? 0.12 : 0)));
            }
        }
    }
}

}  // namespace

IndexedPicture DrawMountains() {
    PaletteBuilder palette;
    const Colours colours{
        palette.AddRamp(12, {{0, {62, 38, 96}}, {0.5, {112, 54, 108}}, {1, {206, 92, 96}}}),
        palette.AddRamp(12, {{0, {132, 66, 112}}, {0.5, {176, 80, 104}}, {1, {226, 112, 94}}}),
        palette.AddRamp(8, {{0, {108, 84, 146}}, {1, {130, 76, 130}}}),
        palette.AddRamp(8, {{0, {252, 190, 160}}, {1, {226, 132, 120}}})};
    const Peak peaks[] = {
        {214, 80, 150, 21, 0.42},                      // the one with snow
        {478, 44, 96, 35},        {590, 50, 110, 42},  // right of the sun
        {90, 46, 100, 23},        {12, 34, 84, 29},    // left of the great peak
        {292, 30, 62, 31},        {540, 28, 70, 37},   // foothills
        {150, 25, 66, 43},        {432, 18, 46, 47},
    };
    Canvas canvas(kWidth, kHeight);
    for (const Peak& peak : peaks) {
        DrawPeak(canvas, peak, colours);
    }
    canvas.FillRect(0, kFoot, kWidth, kHeight - kFoot, colours.shade.Flat(1));
    return canvas.ToPicture(palette.Colours());
}

}  // namespace scenara::samples
