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
using samplemaker::Point;
using samplemaker::Ramp;

constexpr int kWidth = 121;
constexpr int kHeight = 112;
constexpr int kMiddle = 60;
constexpr int kMirrorHeight = 62;

struct Colours {
    PaletteBuilder palette;
    Ramp wood;  // lacquered red, from the shade to the sunlit edge
    Ramp roof;  // the dark cap
    Ramp gold;
    Ramp mirror;

    Colours()
        : wood(palette.AddRamp(9, {{0, {30, 10, 34}},
                                   {0.3, {70, 16, 42}},
                                   {0.55, {128, 30, 44}},
                                   {0.78, {214, 66, 46}},
                                   {1, {255, 176, 92}}})),
          roof(palette.AddRamp(4, {{0, {18, 12, 34}}, {1, {74, 36, 62}}})),
          gold(palette.AddRamp(3, {{0, {96, 44, 40}}, {1, {246, 176, 84}}})),
          mirror(palette.AddRamp(5, {{0, {26, 14, 44}}, {1, {122, 38, 62}}})) {}
};

// The top beam swings up towards its ends.
int Swing(int dx) {
    const double out = dx / 58.0;
    return static_cast<int>(std::lround(7 * (1 - out * out * (0.55 + 0.45 * out * out))));
}

// A round upright whose sunlit edge looks at the middle of the gate, where the sun stands.
void DrawPillar(Canvas& canvas, const Ramp& wood, Point top, Point foot, double width) {
    const int side = top.x < kMiddle ? 1 : -1;
    for (int y = static_cast<int>(top.y); y <= static_cast<int>(foot.y); ++y) {
        const double down = (y - top.y) / (foot.y - top.y);
        const double centre = top.x + (foot.x - top.x) * down;
        const double half = width / 2 * (0.9 + 0.2 * down);
        const int first = static_cast<int>(std::lround(centre - half));
        const int last = static_cast<int>(std::lround(centre + half)) - 1;
        for (int x = first; x <= last; ++x) {
            const double round = side * (x + 0.5 - centre) / half;
            const bool edge = x == (side > 0 ? last : first);
            const double level = edge ? 0.98 - 0.25 * down : 0.3 + 0.28 * round;
            canvas.Set(x, y, wood.At(x, y, level));
        }
    }
}

// A straight beam; the sun stands lower than it and lights its lower edge.
void DrawBeam(Canvas& canvas, const Ramp& wood, int y, int height, int half) {
    for (int row = 0; row < height; ++row) {
        for (int dx = -half; dx <= half; ++dx) {
            const double towardsSun = 1 - std::abs(dx) / 62.0;
            const bool edge = row == height - 1;
            const double level = edge ? 0.5 + 0.45 * towardsSun : 0.2 + 0.22 * towardsSun;
            canvas.Set(kMiddle + dx, y + row, wood.At(kMiddle + dx, y + row, level));
        }
    }
}

void DrawTopBeams(Canvas& canvas, const Colours& colours) {
    constexpr int kRoofRows = 3;
    constexpr int kRows = 12;
    for (int dx = -58; dx <= 58; ++dx) {
        for (int row = 0; row < kRows; ++row) {
            const bool lower = row >= 7;  // the second beam is shorter, its ends cut aslant
            if (std::abs(dx) > (lower ? 52 - (row - 7) / 2 : 58 - row / 2)) {
                continue;
            }
            const int x = kMiddle + dx;
            const int y = 1 + Swing(dx) + row;
            const double towardsSun = 1 - std::abs(dx) / 62.0;
            if (row < kRoofRows) {
                canvas.Set(x, y, colours.roof.Step(row == 0 ? 3 : row == 1 ? 1 : 0));
            } else {
                const bool edge = row == 6 || row == kRows - 1;
                const double level = edge ? 0.42 + 0.4 * towardsSun : 0.16 + 0.2 * towardsSun;
                canvas.Set(x, y, colours.wood.At(x, y, level));
            }
        }
    }
}

void DrawTablet(Canvas& canvas, const Colours& colours) {
    canvas.FillRect(kMiddle - 5, 18, 11, 16, colours.gold.Step(1));
    canvas.FillRect(kMiddle - 4, 19, 9, 14, colours.roof.Step(0));
    for (int y = 21; y < 31; y += 3) {
        canvas.FillRect(kMiddle - 1, y, 3, 2, colours.gold.Step(2));
    }
}

// The short legs beside each pillar, tied to it by two thin beams.
void DrawSideLegs(Canvas& canvas, const Colours& colours) {
    for (const int side : {-1, 1}) {
        const double x = kMiddle + side * 52.0;
        DrawPillar(canvas, colours.wood, {x, 62}, {x + side * 2, kHeight - 1}, 5);
        for (int dx = -5; dx <= 5; ++dx) {
            const int rise = std::abs(dx) / 2;
            canvas.Set(static_cast<int>(x) + dx, 59 + rise, colours.roof.Step(3));
            canvas.Set(static_cast<int>(x) + dx, 60 + rise, colours.roof.Step(0));
        }
        for (const int y : {70, 90}) {
            for (int dx = 34; dx <= 50; ++dx) {
                const int column = kMiddle + side * dx;
                canvas.Set(column, y, colours.wood.Flat(0.2));
                canvas.Set(column, y + 1, colours.wood.Flat(0.2));
                canvas.Set(column, y + 2, colours.wood.Flat(0.62));
            }
        }
    }
}

Canvas DrawGate(const Colours& colours) {
    Canvas canvas(kWidth, kHeight);
    DrawSideLegs(canvas, colours);
    for (const int side : {-1, 1}) {
        DrawPillar(canvas, colours.wood, {kMiddle + side * 35.0, 14},
                   {kMiddle + side * 39.0, kHeight - 1}, 9);
    }
    DrawBeam(canvas, colours.wood, 34, 6, 47);
    for (const int side : {-1, 1}) {  // wedges where the beam goes through the pillars
        canvas.FillRect(kMiddle + side * 43 - 2, 32, 4, 3, colours.wood.Flat(0.12));
        canvas.FillRect(kMiddle + side * 29 - 2, 32, 4, 3, colours.wood.Flat(0.5));
    }
    DrawTopBeams(canvas, colours);
    DrawTablet(canvas, colours);
    return canvas;
}

// One moment of the gate's image in the water: upside down, shortened, swaying row by row.
Canvas DrawMirror(const Canvas& gate, const Colours& colours, double moment) {
    Canvas canvas(kWidth, kMirrorHeight);
    for (int y = 0; y < kMirrorHeight; ++y) {
        const double swing = 0.6 + y * 0.06;
        const int sway =
            static_cast<int>(std::lround(swing * std::sin(y * 0.75 - 6.2831853 * moment)));
        for (int x = 0; x < kWidth; ++x) {
            const bool something = gate.Get(x + sway, kHeight - 1 - y * 7 / 4) != 0;
            const double gap = samplemaker::SmoothNoise(x / 9.0, y * 1.1 - 2 * moment, 101);
            if (something && gap > 0.16 + y * 0.007) {
                canvas.Set(x, y, colours.mirror.At(x, y, 0.75 - y * 0.012 + 0.5 * (gap - 0.5)));
            }
        }
    }
    return canvas;
}

}  // namespace

IndexedPicture DrawTorii() {
    const Colours colours;
    return DrawGate(colours).ToPicture(colours.palette.Colours());
}

Pictures DrawToriiMirror() {
    constexpr int kFrames = 4;
    const Colours colours;
    const Canvas gate = DrawGate(colours);
    Pictures pictures;
    pictures.reserve(kFrames);
    for (int frame = 0; frame < kFrames; ++frame) {
        pictures.push_back(DrawMirror(gate, colours, frame / static_cast<double>(kFrames))
                               .ToPicture(colours.palette.Colours()));
    }
    return pictures;
}

}  // namespace scenara::samples
