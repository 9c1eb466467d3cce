// SPDX-License-Identifier: MIT
#include <array>
#include <cstdlib>

#include "lanternpier/Pictures.h"
#include "samplemaker/Canvas.h"
#include "samplemaker/Ramp.h"

namespace scenara::samples {
namespace {

using samplemaker::Canvas;
using samplemaker::PaletteBuilder;

// Rows of the wing at 1, 2, 3, 4 pixels from the body, above (-) or below it, in the three poses.
constexpr int kWings[3][4] = {{-1, -2, -3, -3}, {-1, -1, -1, 0}, {0, 1, 2, 2}};

void DrawBird(Canvas& canvas, int x, int y, int pose, std::uint8_t body, std::uint8_t edge) {
    canvas.FillRect(x - 2, y, 5, 1, body);
    canvas.Set(x - 3, y, edge);
    for (int out = 1; out <= 4; ++out) {
        const int row = y + kWings[pose][out - 1];
        canvas.Set(x + out - 1, row, body);
        canvas.Set(x - out / 2, row, out == 4 ? edge : body);
    }
}

}  // namespace

// Five geese; image 0 wings up, 1 level, 2 down.
Pictures DrawBirds() {
    PaletteBuilder palette;
    const std::uint8_t body = palette.AddColour({30, 18, 48});
    const std::uint8_t edge = palette.AddColour({136, 58, 84});
    const std::array<std::array<int, 3>, 5> flock = {
        {{8, 14, 0}, {20, 9, 2}, {21, 20, 0}, {33, 5, 2}, {36, 25, 0}}};
    Pictures pictures;
    for (int frame = 0; frame < 3; ++frame) {
        Canvas canvas(46, 31);
        for (const auto& [x, y, delay] : flock) {
            constexpr int kCycle[4] = {0, 1, 2, 1};
            DrawBird(canvas, x, y, kCycle[(frame + delay) % 4], body, edge);
        }
        pictures.push_back(canvas.ToPicture(palette.Colours()));
    }
    return pictures;
}

}  // namespace scenara::samples
