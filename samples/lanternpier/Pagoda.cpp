// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstdlib>

#include "lanternpier/Pictures.h"
#include "samplemaker/Canvas.h"
#include "samplemaker/Ramp.h"

namespace scenara::samples {
namespace {

using samplemaker::Canvas;
using samplemaker::PaletteBuilder;
using samplemaker::Ramp;

constexpr int kMiddle = 18;

// A roof whose eaves turn up; the sun, right of it, catches the right slope.
void DrawRoof(Canvas& canvas, int y, int half, const Ramp& stone) {
    for (int row = 0; row < 4; ++row) {
        const int reach = half * (row + 2) / 5;
        for (int dx = -reach; dx <= reach; ++dx) {
            const bool slope = row == 0 || dx > reach - 2;
            canvas.Set(kMiddle + dx, y + row, stone.Flat(slope && dx > 0 ? 0.85 : 0.1));
        }
    }
    for (const int side : {-1, 1}) {
        const std::uint8_t eave = stone.Flat(side > 0 ? 1 : 0.2);
        canvas.Set(kMiddle + side * (half - 1), y + 3, stone.Flat(0.1));
        canvas.Set(kMiddle + side * half, y + 2, eave);
        canvas.Set(kMiddle + side * (half + 1), y + 1, eave);
    }
}

}  // namespace

IndexedPicture DrawPagoda() {
    PaletteBuilder palette;
    const Ramp stone = palette.AddRamp(
        6, {{0, {30, 16, 50}}, {0.5, {74, 34, 78}}, {0.8, {186, 84, 88}}, {1, {252, 158, 98}}});
    const std::uint8_t window = palette.AddColour({255, 196, 96});

    Canvas canvas(37, 60);
    for (int y = 0; y < 11; ++y) {  // the spire with its rings
        canvas.Set(kMiddle, y, stone.Flat(0.6));
        if (y > 3 && y % 2 == 0) {
            canvas.FillRect(kMiddle - 1, y, 3, 1, stone.Flat(0.3));
        }
    }
    for (int storey = 0; storey < 5; ++storey) {
        const int y = 10 + storey * 9;
        const int half = 3 + storey;
        canvas.FillRect(kMiddle - half, y + 4, 2 * half + 1, 6, stone.Flat(0.24));
        canvas.FillRect(kMiddle + half, y + 4, 1, 6, stone.Flat(0.72));
        for (int dx = -half + 2; dx < half - 1; dx += 3) {
            canvas.FillRect(kMiddle + dx, y + 5, 1, 3, stone.Flat(0));
        }
        if (storey % 2 == 0) {
            canvas.FillRect(kMiddle - 1, y + 6, 3, 2, window);
        }
        DrawRoof(canvas, y, half + 6, stone);
    }
    return canvas.ToPicture(palette.Colours());
}

}  // namespace scenara::samples
