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
using samplemaker::Random;

struct HouseColours {
    Ramp wall;
    Ramp snow;
    Ramp window;
    Ramp fir;
};

// A low house with a gable roof under snow.
void DrawHouse(Canvas& canvas, Random& random, int x, int width, const HouseColours& colours) {
    const int eaves = canvas.Height() - random.Whole(13, 19);
    const int rise = width / 4 + random.Whole(0, 3);
    for (int column = -3; column < width + 3; ++column) {
        const double out = std::abs(2.0 * column / (width - 1) - 1);
        const int top = eaves - static_cast<int>(std::lround(rise * std::max(0.0, 1.12 - out)));
        for (int y = top; y < eaves; ++y) {
            const bool shaded = 2 * column > width;
            const double level = (shaded ? 0.36 : 0.8) - 0.012 * (y - top) * (y - top);
            canvas.SetWrapped(x + column, y, colours.snow.At(x + column, y, level));
        }
    }
    for (int column = 0; column < width; ++column) {
        for (int y = eaves; y < canvas.Height(); ++y) {
            const double level = (y == eaves ? 0 : 0.35) + (column == 0 ? 0.4 : 0);
            canvas.SetWrapped(x + column, y, colours.wall.At(x + column, y, level));
        }
    }
    for (int column = 4; column + 4 < width - 2; column += 8) {
        const bool lit = random.Unit() < 0.6;
        for (int i = 0; i < 20; ++i) {
            const bool bar = i % 4 == 2 || i / 4 == 2;
            canvas.SetWrapped(
                x + column + i % 4, eaves + 4 + i / 4,
                lit && !bar ? colours.window.Step(i < 12 ? 2 : 1) : colours.wall.Flat(0));
        }
    }
}

void DrawFir(Canvas& canvas, Random& random, int x, const HouseColours& colours) {
    const int height = random.Whole(18, 32);
    for (int row = 0; row < height; ++row) {
        const int reach = static_cast<int>(row * 0.26 + (row % 5) * 0.5);
        for (int dx = -reach; dx <= reach; ++dx) {
            const bool snow = row % 5 >= 3 && dx < reach / 2;
            const int y = canvas.Height() - height + row;
            canvas.SetWrapped(x + dx, y,
                              snow ? colours.snow.At(x + dx, y, 0.75 - 0.06 * dx)
                                   : colours.fir.At(x + dx, y, 0.4 - 0.08 * dx));
        }
    }
}

void DrawLamp(Canvas& canvas, int x, const HouseColours& colours) {
    const int top = canvas.Height() - 36;
    canvas.FillRect(x, top, 1, 36, colours.wall.Flat(0));
    canvas.FillRect(x - 1, top, 1, 36, colours.wall.Flat(0.8));
    canvas.FillRect(x - 5, top - 1, 6, 1, colours.wall.Flat(0.5));
    for (int y = 0; y < 16; ++y) {  // the cone of light, falling snow in it
        for (int dx = -2 - y / 3; dx <= 2 + y / 3; ++dx) {
            if (0.4 - y * 0.024 > samplemaker::DitherThreshold(x + dx, y)) {
                canvas.SetWrapped(x - 5 + dx, top + 1 + y, colours.window.Step(0));
            }
        }
    }
    canvas.FillRect(x - 7, top, 5, 2, colours.window.Step(3));
}

}  // namespace

IndexedPicture DrawHouses() {
    constexpr int kWidth = 832;
    constexpr int kHeight = 62;
    PaletteBuilder palette;
    const HouseColours colours{
        palette.AddRamp(5, {{0, {8, 10, 26}}, {0.5, {26, 28, 50}}, {1, {66, 76, 100}}}),
        palette.AddRamp(8, {{0, {32, 50, 86}}, {0.5, {92, 124, 156}}, {1, {206, 226, 232}}}),
        palette.AddRamp(4, {{0, {128, 100, 92}}, {0.4, {228, 148, 76}}, {1, {255, 232, 164}}}),
        palette.AddRamp(4, {{0, {6, 12, 28}}, {1, {34, 60, 74}}})};
    Canvas canvas(kWidth, kHeight);
    Random random(251);
    for (int x = 0; x < kWidth; x += random.Whole(9, 21)) {
        DrawFir(canvas, random, x, colours);
    }
    for (int x = 14; x < kWidth - 60; x += random.Whole(58, 124)) {
        DrawHouse(canvas, random, x, random.Whole(36, 54), colours);
    }
    for (int x = 60; x < kWidth; x += 208) {
        DrawLamp(canvas, x, colours);
    }
    return canvas.ToPicture(palette.Colours());
}

// The bank of the railway: snow, a fence, ballast and the rails of the other track.
IndexedPicture DrawTrack() {
    constexpr int kWidth = 256;
    constexpr int kHeight = 96;
    PaletteBuilder palette;
    const Ramp snow = palette.AddRamp(
        10, {{0, {10, 16, 38}}, {0.4, {32, 50, 84}}, {0.75, {92, 124, 154}}, {1, {188, 212, 222}}});
    const Ramp rail = palette.AddRamp(3, {{0, {20, 22, 40}}, {1, {236, 240, 236}}});
    Canvas canvas(kWidth, kHeight);
    canvas.Paint([&](int x, int y) {
        const double drift = LayeredNoise(x / 32.0, y / 3.0, 4, 257, kWidth / 32);
        const double level = y < 12 ? 0.7 - 0.02 * y : 0.46 - 0.005 * (y - 12);
        return snow.At(x, y, level + 0.5 * (drift - 0.5) + (y < 2 ? 0.25 : 0));
    });
    for (int x = 6; x < kWidth; x += 32) {  // the fence's posts, each with its cap of snow
        canvas.FillRect(x, 3, 2, 9, rail.Step(0));
        canvas.FillRect(x, 2, 2, 1, snow.Flat(1));
    }
    for (int x = 0; x < kWidth; ++x) {
        for (const int y : {24, 40}) {
            const int sleeper = x % 16;
            if (sleeper < 7) {
                canvas.FillRect(x, y + 2, 1, 3, snow.Flat(sleeper == 0 ? 0.3 : 0.05));
            }
            canvas.Set(x, y, rail.Step(2));
            canvas.Set(x, y + 1, rail.Step(1));
            canvas.Set(x, y + 2, rail.Step(0));
        }
    }
    return canvas.ToPicture(palette.Colours());
}

// A mast and the wires to the next one: the carrier sags from mast to mast, the contact wire below
// it hangs level.
IndexedPicture DrawMast() {
    constexpr int kSpan = 384;
    constexpr int kHeight = 186;
    constexpr int kMast = 60;
    PaletteBuilder palette;
    const Ramp steel =
        palette.AddRamp(5, {{0, {4, 6, 18}}, {0.5, {24, 34, 58}}, {1, {140, 170, 184}}});
    const std::uint8_t glass = palette.AddColour({126, 92, 84});
    Canvas canvas(kSpan, kHeight);
    for (int x = 0; x < kSpan; ++x) {
        const double out = std::remainder(x - (kMast + 34), kSpan) / (kSpan / 2.0);
        const double sag = 1 - (1 - std::abs(out)) * (1 - std::abs(out));
        const int carrier = 22 + static_cast<int>(std::lround(24 * sag));
        canvas.Set(x, carrier, steel.Step(1));
        canvas.Set(x, 54, steel.Step(2));
        if (x % 48 == 10) {
            canvas.FillRect(x, carrier, 1, 54 - carrier, steel.Step(1));
        }
    }
    for (int y = 4; y < kHeight; ++y) {  // two uprights and the lattice between them
        const int phase = y % 16;
        canvas.FillRect(kMast - 5, y, 2, 1, steel.Step(3));
        canvas.Set(kMast - 5, y, steel.Step(4));
        canvas.FillRect(kMast + 4, y, 2, 1, steel.Step(0));
        canvas.Set(kMast - 4 + (phase < 8 ? phase : 15 - phase), y, steel.Step(2));
    }
    canvas.Line(kMast + 4, 14, kMast + 34, 22, steel.Step(1));
    canvas.Line(kMast + 4, 44, kMast + 34, 22, steel.Step(1));
    canvas.Line(kMast + 4, 48, kMast + 34, 54, steel.Step(1));
    for (const int y : {16, 44, 49}) {
        canvas.FillRect(kMast + 7, y, 4, 3, glass);
    }
    canvas.FillRect(kMast - 6, 2, 12, 2, steel.Step(4));
    return canvas.ToPicture(palette.Colours());
}

}  // namespace scenara::samples
