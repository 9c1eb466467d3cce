// SPDX-License-Identifier: MIT
//
// Ramps: rows of palette entries from dark to light (or cold to warm), and ordered dithering.
//
// Sprites are drawn as levels on a ramp, not as colours: level 0 is a ramp's first entry, level 1
// its last, and what lies between two entries becomes a fixed 4 x 4 pattern of both. The pattern
// depends on the pixel's place alone, so flat areas stay calm and a tiled picture whose width is a
// multiple of 4 has no seam.
#pragma once

#include <cstdint>
#include <initializer_list>

#include "samplemaker/Picture.h"

namespace scenara::samplemaker {

struct Ramp {
    int first = 0;
    int count = 1;

    // The entry nearest to the level; levels outside 0 … 1 count as the nearer end.
    [[nodiscard]] std::uint8_t Flat(double level) const;
    // The entry for this pixel's place in the pattern.
    [[nodiscard]] std::uint8_t At(int x, int y, double level) const;
    // Entry `step` from the first, kept inside the ramp.
    [[nodiscard]] std::uint8_t Step(int step) const;
};

// The pattern's threshold at a pixel, 0 < value < 1; for dithered edges and mist.
double DitherThreshold(int x, int y);

struct ColourStop {
    double level = 0;  // 0 … 1, rising from stop to stop
    Rgb colour;
};

// Fills a palette ramp by ramp. Entry 0 is the colour that masked pictures leave out.
class PaletteBuilder {
public:
    explicit PaletteBuilder(Rgb leftOut = {255, 0, 255});

    // `count` entries along the stops, colours between two stops mixed evenly. Raises
    // std::invalid_argument without stops, for a count below 1, and when the palette is full.
    Ramp AddRamp(int count, std::initializer_list<ColourStop> stops);
    std::uint8_t AddColour(Rgb colour);

    [[nodiscard]] const Palette& Colours() const { return palette_; }

private:
    Palette palette_{};
    int used_ = 1;
};

}  // namespace scenara::samplemaker
