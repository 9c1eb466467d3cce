// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>

#include "nightexpress/Pictures.h"
#include "samplemaker/Canvas.h"
#include "samplemaker/Noise.h"
#include "samplemaker/Ramp.h"

namespace scenara::samples {
namespace {

using samplemaker::Canvas;
using samplemaker::PaletteBuilder;
using samplemaker::Ramp;
using samplemaker::Random;

struct Colours {
    Ramp wall;    // roof to street: the lights of the streets brighten the mist below
    Ramp window;  // dark, dim, warm, bright
    std::uint8_t edge = 0;
    std::uint8_t snow = 0;
    std::uint8_t beacon = 0;
};

struct Block {
    int x = 0;
    int width = 0;
    int top = 0;
};

struct Quarter {
    int width = 0;
    int height = 0;
    int widest = 0;
    int narrowest = 0;
    int highest = 0;
    int lowest = 0;
    int windowWidth = 1;
    int windowHeight = 1;
    double lit = 0;  // part of the windows with light
    std::uint32_t seed = 0;
};

void DrawWindows(Canvas& canvas, Random& random, const Quarter& quarter, const Block& block,
                 const Colours& colours) {
    const int stepX = quarter.windowWidth + 2;
    const int stepY = quarter.windowHeight + 2;
    const bool office = random.Unit() < 0.3;  // whole floors are lit or dark
    const int warmth = random.Whole(2, 3);
    for (int y = block.top + 4; y < quarter.height - 6; y += stepY) {
        const bool floorLit = random.Unit() < quarter.lit;
        for (int x = block.x + 3; x + quarter.windowWidth < block.x + block.width - 1; x += stepX) {
            const bool lit =
                office ? floorLit && random.Unit() < 0.85 : random.Unit() < quarter.lit;
            const int tone = lit ? warmth - (random.Unit() < 0.3 ? 1 : 0) : 0;
            for (int i = 0; i < quarter.windowWidth * quarter.windowHeight; ++i) {
                canvas.SetWrapped(x + i % quarter.windowWidth, y + i / quarter.windowWidth,
                                  colours.window.Step(tone));
            }
        }
    }
}

void FillWrapped(Canvas& canvas, int x, int y, int width, int height, std::uint8_t index) {
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column) {
            canvas.SetWrapped(x + column, y + row, index);
        }
    }
}

void DrawRoofTop(Canvas& canvas, Random& random, const Block& block, const Colours& colours) {
    const int kind = random.Whole(0, 4);
    const int middle = block.x + random.Whole(4, std::max(4, block.width - 8));
    const std::uint8_t dark = colours.wall.Flat(0);
    if (kind == 0) {  // an aerial with a red light
        const int height = random.Whole(7, 15);
        FillWrapped(canvas, middle, block.top - height, 1, height, dark);
        FillWrapped(canvas, middle - 2, block.top - height + 4, 5, 1, dark);
        canvas.SetWrapped(middle, block.top - height - 1, colours.beacon);
    } else if (kind == 1) {  // a water tank on legs
        FillWrapped(canvas, middle - 3, block.top - 8, 7, 6, dark);
        FillWrapped(canvas, middle - 3, block.top - 8, 1, 6, colours.edge);
        FillWrapped(canvas, middle - 2, block.top - 9, 5, 1, colours.snow);
        FillWrapped(canvas, middle - 2, block.top - 2, 1, 2, dark);
        FillWrapped(canvas, middle + 2, block.top - 2, 1, 2, dark);
    } else if (kind == 2) {  // the house of the lift
        FillWrapped(canvas, middle - 4, block.top - 5, 9, 5, dark);
        FillWrapped(canvas, middle - 4, block.top - 6, 9, 1, colours.snow);
    }
}

void DrawBlock(Canvas& canvas, Random& random, const Quarter& quarter, const Block& block,
               const Colours& colours) {
    const double tint = random.Between(-0.08, 0.1);
    for (int x = block.x; x < block.x + block.width; ++x) {
        for (int y = block.top; y < quarter.height; ++y) {
            const double down =
                (y - quarter.height + quarter.highest) / static_cast<double>(quarter.highest);
            const double level = tint + 0.1 + 0.8 * std::pow(std::clamp(down, 0.0, 1.0), 2.2);
            canvas.SetWrapped(x, y, colours.wall.At(x, y, level));
        }
    }
    FillWrapped(canvas, block.x, block.top, 1, quarter.height - block.top - 20, colours.edge);
    DrawWindows(canvas, random, quarter, block, colours);
    DrawRoofTop(canvas, random, block, colours);
    FillWrapped(canvas, block.x, block.top - 1, block.width, 2, colours.snow);
    FillWrapped(canvas, block.x + block.width - 3, block.top, 3, 1, colours.edge);
}

// Two rows of houses: the lower ones in front hide the feet of the higher ones.
Canvas DrawQuarter(const Quarter& quarter, const Colours& colours) {
    Canvas canvas(quarter.width, quarter.height);
    Random random(quarter.seed);
    for (const double share : {1.0, 0.62}) {
        for (int x = 0; x < quarter.width;) {
            Block block;
            block.width =
                std::min(random.Whole(quarter.narrowest, quarter.widest), quarter.width - x);
            const int height =
                static_cast<int>(share * (quarter.lowest + (quarter.highest - quarter.lowest) *
                                                               std::pow(random.Unit(), 1.5)));
            block.x = x;
            block.top = quarter.height - height;
            if (block.width >= quarter.narrowest) {
                DrawBlock(canvas, random, quarter, block, colours);
            }
            x += block.width + (random.Unit() < 0.4 ? random.Whole(1, 6) : 0);
        }
    }
    return canvas;
}

}  // namespace

IndexedPicture DrawFarCity() {
    PaletteBuilder palette;
    const Colours colours{
        palette.AddRamp(10, {{0, {22, 46, 80}}, {0.6, {42, 80, 106}}, {1, {112, 132, 132}}}),
        palette.AddRamp(4, {{0, {26, 52, 84}}, {0.34, {96, 108, 108}}, {1, {224, 196, 128}}}),
        palette.AddColour({52, 88, 114}), palette.AddColour({96, 132, 148}),
        palette.AddColour({206, 76, 76})};
    return DrawQuarter({512, 132, 24, 9, 118, 40, 1, 1, 0.2, 233}, colours)
        .ToPicture(palette.Colours());
}

IndexedPicture DrawCity() {
    PaletteBuilder palette;
    const Colours colours{
        palette.AddRamp(10, {{0, {10, 18, 42}}, {0.6, {22, 40, 68}}, {1, {74, 88, 104}}}),
        palette.AddRamp(
            4,
            {{0, {8, 14, 34}}, {0.34, {120, 88, 74}}, {0.7, {236, 166, 84}}, {1, {255, 226, 150}}}),
        palette.AddColour({44, 74, 104}), palette.AddColour({158, 190, 200}),
        palette.AddColour({255, 70, 70})};
    return DrawQuarter({704, 128, 50, 22, 112, 34, 2, 3, 0.3, 239}, colours)
        .ToPicture(palette.Colours());
}

// An upright sign in two colours, with the glow that it throws into the mist.
Pictures DrawNeon() {
    constexpr int kWidth = 25;
    constexpr int kHeight = 52;
    constexpr std::array<const char*, 21> kSign = {
        ".#####.", ".#...#.", ".#####.", ".#...#.", ".#####.", ".......", "...#...",
        "#######", "..#.#..", ".#...#.", "#.....#", ".......", ".#.#.#.", "#######",
        "..#.#..", ".#####.", "...#...", ".......", "#######", ".#.#.#.", "#######"};
    PaletteBuilder palette;
    const std::uint8_t board = palette.AddColour({12, 10, 30});
    const std::uint8_t frame = palette.AddColour({40, 60, 90});
    const std::uint8_t pink = palette.AddColour({255, 96, 150});
    const std::uint8_t pale = palette.AddColour({255, 214, 226});
    const std::uint8_t glow = palette.AddColour({120, 44, 96});
    const std::uint8_t faint = palette.AddColour({92, 40, 76});

    Pictures pictures;
    for (const bool lit : {true, false}) {
        Canvas canvas(kWidth, kHeight);
        canvas.Paint([&](int x, int y) -> std::uint8_t {
            const double u = (x - 12) / 12.5;
            const double v = (y - 26) / 26.0;
            const double light = 0.55 * (1 - u * u * u * u - v * v * v * v);
            return lit && light > samplemaker::DitherThreshold(x, y) ? glow : std::uint8_t{0};
        });
        canvas.FillRect(6, 12, 13, 29, frame);
        canvas.FillRect(7, 13, 11, 27, board);
        for (std::size_t row = 0; row < kSign.size(); ++row) {
            for (int column = 0; column < 7; ++column) {
                if (kSign.at(row)[column] == '#') {
                    const std::uint8_t tube = row % 6 == 2 ? pale : pink;
                    canvas.Set(9 + column, 16 + static_cast<int>(row), lit ? tube : faint);
                }
            }
        }
        pictures.push_back(canvas.ToPicture(palette.Colours()));
    }
    return pictures;
}

}  // namespace scenara::samples
