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

constexpr int kWidth = 904;
constexpr int kHeight = 66;
constexpr int kMiddle = kWidth / 2;
constexpr int kGround = 208;             // zoffset: there one picture pixel is one stage unit
constexpr double kBoard = 26;            // stage units
constexpr int kLanternGap = 192;         // between two lanterns, in pixels of the far edge
constexpr int kLanternX = kMiddle - 39;  // where one of them hangs

Ramp AddWood(PaletteBuilder& palette) {
    return palette.AddRamp(16, {{0, {14, 8, 24}},
                                {0.3, {42, 22, 42}},
                                {0.55, {84, 44, 58}},
                                {0.75, {146, 78, 64}},
                                {0.9, {212, 130, 78}},
                                {1, {255, 196, 116}}});
}

// The boards run away from the viewer and meet at the horizon, so everything on them is measured
// in stage units: across, and how much smaller the far rows are.
double Scale(int row) {
    return (kPierTop + row - kHorizon) / static_cast<double>(kGround - kHorizon);
}

// The pools of light below the lanterns, 0 … 1.
double LanternLight(double x, int row) {
    const double atEdge = kMiddle + (x - kMiddle) / Scale(row) * Scale(0);
    const double gap = std::remainder(atEdge - kLanternX, kLanternGap);
    return std::exp(-gap * gap / 1500 - row * row / 420.0);
}

double BoardLevel(int x, int row) {
    const double scale = Scale(row);
    const double across = (x - kMiddle) / scale + 0.4 * kBoard;
    const int board = static_cast<int>(std::floor(across / kBoard));
    const double inBoard = across / kBoard - board;  // 0 … 1
    const double depth = 60 / scale;                 // grows with the distance
    const double shift = samplemaker::LatticeValue(board, 3, 131);
    const double joint = std::fmod(depth / 34 + shift, 1.0);

    double level = 0.3 + 0.14 * samplemaker::LatticeValue(board, 0, 127);
    level += 0.2 * (LayeredNoise(across / 2.6, depth / 13 + board * 7, 3, 137) - 0.5);
    level += 0.24 * std::exp(-row / 11.0);  // the far boards mirror the sky
    level -= 0.0026 * row;
    level += 0.42 * LanternLight(x, row);
    if (inBoard < 1.3 / (kBoard * scale)) {
        return level * 0.18;  // the gap between two boards
    }
    if (inBoard < 2.5 / (kBoard * scale)) {
        return level + 0.13;  // the worn edge beside it
    }
    return joint < 0.035 ? level * 0.35 : level;
}

void DrawNails(Canvas& canvas, const Ramp& wood) {
    for (int board = -18; board <= 18; ++board) {
        for (const double in : {0.22, 0.78}) {
            for (const int row : {7, 33}) {
                const int x = kMiddle + static_cast<int>(
                                            std::lround((board + in - 0.4) * kBoard * Scale(row)));
                canvas.Set(x, row, wood.Flat(0.08));
                canvas.Set(x, row - 1, wood.Flat(0.62));
            }
        }
    }
}

}  // namespace

IndexedPicture DrawBoards() {
    PaletteBuilder palette;
    const Ramp wood = AddWood(palette);
    Canvas canvas(kWidth, kHeight);
    canvas.Paint([&](int x, int y) { return wood.At(x, y, BoardLevel(x, y)); });
    DrawNails(canvas, wood);
    for (int x = 0; x < kWidth; ++x) {  // the beam along the far edge
        const double light = LanternLight(x, 0);
        const double grain = 0.16 * (LayeredNoise(x / 11.0, 0, 3, 139) - 0.5);
        const double levels[] = {0.78, 0.5, 0.44, 0.36, 0.06};
        for (int row = 0; row < 5; ++row) {
            canvas.Set(x, row, wood.At(x, row, levels[row] + grain + 0.24 * light));
        }
    }
    return canvas.ToPicture(palette.Colours());
}

// One post and the rope to the next one; it tiles without a gap.
IndexedPicture DrawRailing() {
    constexpr int kSpan = 96;
    constexpr int kPost = 26;
    PaletteBuilder palette;
    const Ramp wood = AddWood(palette);
    const Ramp rope =
        palette.AddRamp(4, {{0, {40, 22, 40}}, {0.6, {150, 92, 74}}, {1, {236, 170, 112}}});
    Canvas canvas(kSpan, 32);
    const int middle = kSpan / 2;
    for (int x = 0; x < kSpan; ++x) {
        const double out = std::remainder(x - middle, kSpan) / (kSpan / 2.0);
        const double sag = 1 - (1 - std::abs(out)) * (1 - std::abs(out));
        const int y = 7 + static_cast<int>(std::lround(9 * sag));
        canvas.Set(x, y, rope.Step((x + y) % 3 == 0 ? 1 : 3));
        canvas.Set(x, y + 1, rope.Step((x + y) % 3 == 1 ? 0 : 2));
        canvas.Set(x, y + 2, rope.Step(0));
    }
    for (int y = 2; y < 2 + kPost; ++y) {
        for (int dx = -3; dx <= 3; ++dx) {
            const double grain = 0.12 * (LayeredNoise(dx, y / 6.0, 2, 149) - 0.5);
            const double level = dx == 3 ? 0.86 : dx == -3 ? 0.12 : 0.3 + 0.05 * dx;
            canvas.Set(middle + dx, y, wood.At(middle + dx, y, level + grain - y * 0.004));
        }
    }
    canvas.FillRect(middle - 4, 0, 9, 2, wood.Flat(0.2));
    canvas.FillRect(middle - 3, 0, 6, 1, wood.Flat(0.6));
    canvas.FillRect(middle + 4, 0, 1, 3, wood.Flat(0.92));
    for (int turn = 0; turn < 2; ++turn) {  // the rope's turns round the post
        canvas.FillRect(middle - 4, 7 + 3 * turn, 9, 2, rope.Step(2));
        canvas.FillRect(middle - 4, 9 + 3 * turn, 9, 1, rope.Step(0));
        canvas.FillRect(middle + 2, 7 + 3 * turn, 2, 2, rope.Step(3));
    }
    return canvas.ToPicture(palette.Colours());
}

}  // namespace scenara::samples
