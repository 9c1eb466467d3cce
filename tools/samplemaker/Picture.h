// SPDX-License-Identifier: MIT
//
// The kinds of picture that the writers take.
//
// All are `width` x `height` pixels, row by row from the top, without gaps between rows. They are
// plain values: whoever fills them keeps `pixels` at width * height, and the writers raise
// std::invalid_argument when it is not, or when a side is below 1.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace scenara::samplemaker {

struct Rgb {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const Rgb&, const Rgb&) = default;
};

struct Rgba {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 0;

    friend bool operator==(const Rgba&, const Rgba&) = default;
};

using Palette = std::array<Rgb, 256>;

// Each pixel is an index into the palette; MUGEN takes index 0 as nothing where a picture is
// masked.
struct IndexedPicture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;
    Palette palette{};
};

struct TrueColourPicture {
    int width = 0;
    int height = 0;
    std::vector<Rgb> pixels;
};

// Not premultiplied: a colour keeps its value whatever its alpha.
struct AlphaPicture {
    int width = 0;
    int height = 0;
    std::vector<Rgba> pixels;
};

}  // namespace scenara::samplemaker
