// SPDX-License-Identifier: MIT
//
// Which texels of a picture a pixel shows, along each axis, and what becomes of several.
#pragma once

#include <array>
#include <cstdint>

namespace scenara::test {

// The centre of the pixel that stands `at` pixels into `size` of them, which show `count` texels
// from the texel `first` on.
struct TexelPlace {
    std::int64_t at;
    std::int64_t size;
    std::int64_t first;
    std::int64_t count;
};

[[nodiscard]] std::int64_t NearestTexel(const TexelPlace& place);

// Neighbours, and how many of 256 parts each has in a mean of them.
struct TwoTexels {
    std::array<std::int64_t, 2> texels;
    std::array<std::int64_t, 2> parts;
};

// Of a picture of `size` texels. Beyond it its last texels go on.
[[nodiscard]] TwoTexels TexelsAround(const TexelPlace& place, std::int64_t size);

// The same for a place that is known in 256ths of a texel, from the centre of the first one on.
[[nodiscard]] TwoTexels TexelsAt(std::int64_t part, std::int64_t size);

// A texel and its weight in a mean.
struct WeighedTexel {
    std::uint32_t texel;
    std::int64_t weight;
};

// To the nearest, a half upwards. Where alpha counts a texel lends its colour by that, too, unless
// none has any.
[[nodiscard]] std::uint32_t MeanOf(const std::array<WeighedTexel, 4>& four, bool alphaCounts);

}  // namespace scenara::test
