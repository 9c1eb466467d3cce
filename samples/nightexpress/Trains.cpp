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
using samplemaker::Point;
using samplemaker::Ramp;

constexpr int kRoofWidth = 872;
constexpr int kRoofHeight = 68;
constexpr int kRoofMiddle = kRoofWidth / 2;
constexpr int kRoofTop = 186;  // view row of the far edge
constexpr int kGround = 208;   // zoffset
constexpr int kVanishing = 100;

// As on flat ground, the ribs run towards a point far behind; there every length is 0.
double Scale(int row) {
    return (kRoofTop + row - kVanishing) / static_cast<double>(kGround - kVanishing);
}

double RoofLevel(int x, int row) {
    constexpr double kRib = 24;  // stage units
    constexpr double kPanel = 192;
    const double across = (x - kRoofMiddle) / Scale(row) + kRib / 2;
    const double fromRib = std::remainder(across, kRib) * Scale(row);
    const double fromPanel = std::remainder(across, kPanel) * Scale(row);
    double level = 0.62 * std::exp(-row / 12.0) + 0.27 - 0.0022 * row;  // the roof's curve
    level += 0.1 * (LayeredNoise(across / 9, row / 7.0, 3, 263) - 0.5);
    if (std::abs(fromPanel) < 2.2) {
        return level * (fromPanel < 0 ? 0.25 : 0.6);
    }
    if (std::abs(fromRib) < 1.6) {
        return fromRib < 0 ? level + 0.2 : level * 0.55;
    }
    return level;
}

// Snow that the wind has left in the lee of the ribs.
bool SnowLies(int x, int row) {
    const double across = (x - kRoofMiddle) / Scale(row) + 12;
    const double lee = std::fmod(across + 2400, 24) / 24;
    const double drift = LayeredNoise(across / 40, row / 9.0, 3, 269);
    return drift - 0.8 * lee + (row < 8 ? 0.06 : 0) > 0.36;
}

}  // namespace

IndexedPicture DrawRoof() {
    PaletteBuilder palette;
    const Ramp steel = palette.AddRamp(14, {{0, {6, 8, 22}},
                                            {0.3, {22, 28, 52}},
                                            {0.6, {52, 68, 98}},
                                            {0.85, {116, 144, 164}},
                                            {1, {206, 226, 228}}});
    const Ramp snow = palette.AddRamp(5, {{0, {70, 96, 132}}, {1, {214, 230, 234}}});
    Canvas canvas(kRoofWidth, kRoofHeight);
    canvas.Paint([&](int x, int y) {
        if (SnowLies(x, y)) {
            const bool edge = !SnowLies(x, y + 1) || !SnowLies(x + 1, y);
            return snow.At(x, y, edge ? 0.1 : 0.95 - 0.008 * y);
        }
        return steel.At(x, y, RoofLevel(x, y));
    });
    for (int x = 0; x < kRoofWidth; ++x) {  // the gutter along the far edge
        const double levels[] = {1.0, 0.7, 0.16};
        for (int row = 0; row < 3; ++row) {
            canvas.Set(x, row, steel.At(x, row, levels[row]));
        }
    }
    return canvas.ToPicture(palette.Colours());
}

// The current collector on its insulators; the contact strip is the picture's upper edge.
IndexedPicture DrawPantograph() {
    PaletteBuilder palette;
    const Ramp steel = palette.AddRamp(
        6, {{0, {4, 6, 18}}, {0.5, {34, 44, 70}}, {0.8, {98, 124, 146}}, {1, {214, 230, 232}}});
    const Ramp glass = palette.AddRamp(4, {{0, {40, 24, 40}}, {1, {164, 108, 96}}});
    Canvas canvas(92, 94);
    const auto tube = [&](Point from, Point to) {
        for (const int thick : {0, 1, 2}) {
            canvas.Line(static_cast<int>(from.x), static_cast<int>(from.y) + thick,
                        static_cast<int>(to.x), static_cast<int>(to.y) + thick,
                        steel.Step(thick == 0 ? 5 : 3 - thick));
        }
    };
    tube({46, 4}, {14, 42});
    tube({14, 42}, {60, 76});
    tube({52, 4}, {18, 44});
    canvas.FillRect(11, 39, 8, 8, steel.Step(2));
    canvas.FillRect(11, 39, 8, 1, steel.Step(5));
    for (int dx = -21; dx <= 21; ++dx) {  // the strip, its horns bent down
        const int drop = std::max(0, std::abs(dx) - 15);
        canvas.Set(48 + dx, drop, steel.Step(5));
        canvas.Set(48 + dx, 1 + drop, steel.Step(3));
        canvas.Set(48 + dx, 2 + drop, steel.Step(1));
    }
    canvas.FillRect(12, 76, 70, 4, steel.Step(1));
    canvas.FillRect(12, 76, 70, 1, steel.Step(4));
    for (const int x : {18, 46, 72}) {
        for (int y = 80; y < 94; ++y) {
            const int reach = y % 4 < 2 ? 3 : 2;
            for (int dx = -reach; dx <= reach; ++dx) {
                canvas.Set(x + dx, y, glass.Flat(0.5 - 0.12 * dx));
            }
        }
    }
    return canvas.ToPicture(palette.Colours());
}

// Sparks where the strip touches the wire.
Pictures DrawSparks() {
    constexpr int kSize = 47;
    constexpr int kMiddle = 23;
    PaletteBuilder palette;
    const Ramp light =
        palette.AddRamp(5, {{0, {40, 84, 150}}, {0.4, {116, 186, 236}}, {1, {255, 255, 246}}});
    Pictures pictures;
    samplemaker::Random random(271);
    for (const double power : {0.7, 1.0, 0.4}) {
        Canvas canvas(kSize, kSize);
        canvas.Paint([&](int x, int y) -> std::uint8_t {
            const double far = std::hypot(x - kMiddle, y - kMiddle) / (22 * power);
            const double glow = 0.6 * power * (1 - far);
            return glow > samplemaker::DitherThreshold(x, y) ? light.Step(far < 0.5 ? 1 : 0)
                                                             : std::uint8_t{0};
        });
        for (int spark = 0; spark < static_cast<int>(14 * power); ++spark) {
            const double angle = random.Between(-0.4, 3.5);
            const double reach = random.Between(5, 22) * power;
            canvas.Line(kMiddle, kMiddle, kMiddle + static_cast<int>(reach * std::cos(angle)),
                        kMiddle + static_cast<int>(reach * 0.7 * std::sin(angle)),
                        light.Step(random.Whole(2, 4)));
        }
        samplemaker::FillEllipse(canvas, {kMiddle, kMiddle}, 5 * power, 3 * power,
                                 [&](int, int) { return light.Step(4); });
        pictures.push_back(canvas.ToPicture(palette.Colours()));
    }
    return pictures;
}

// Three coaches of a train on the other track. It is fast: everything on it is drawn out sideways.
IndexedPicture DrawOtherTrain() {
    constexpr int kCoach = 264;
    constexpr int kWidth = 3 * kCoach;
    constexpr int kHeight = 66;
    PaletteBuilder palette;
    const Ramp body = palette.AddRamp(
        7, {{0, {8, 8, 22}}, {0.4, {38, 20, 44}}, {0.75, {112, 40, 60}}, {1, {214, 214, 220}}});
    const Ramp window =
        palette.AddRamp(5, {{0, {150, 88, 62}}, {0.5, {246, 186, 102}}, {1, {255, 246, 206}}});
    Canvas canvas(kWidth, kHeight);
    canvas.Paint([&](int x, int y) -> std::uint8_t {
        const int along = x % kCoach;
        if (along < 3 || along >= kCoach - 3 || y < 2) {
            return y > 10 && y < 54 ? body.Step(0) : std::uint8_t{0};
        }
        const double streak = LayeredNoise(x / 60.0, y, 2, 277) - 0.5;
        if (y >= 20 && y < 38) {
            const bool frame = along % 32 < 5;
            const double level = frame ? 0.12 : 0.9 - 0.02 * (y - 20) + 0.5 * streak;
            return window.At(x, y, level);
        }
        if (y >= 56) {
            return body.At(x, y, 0.06 + 0.12 * streak);
        }
        const double level = y == 2 ? 1 : y < 8 ? 0.75 - 0.06 * y : y == 44 || y == 45 ? 0.9 : 0.5;
        return body.At(x, y, level - 0.006 * y + 0.14 * streak);
    });
    return canvas.ToPicture(palette.Colours());
}

}  // namespace scenara::samples
