// SPDX-License-Identifier: MIT
//
// Tiling: where the copies of a picture stand along one axis, and which of them can be seen.
#pragma once

#include <cstdint>

#include "base/Integers.h"

namespace scenara {

// Pixels along one axis: from `from` up to, not including, `to`.
struct PixelRange {
    std::int64_t from = 0;
    std::int64_t to = 0;
};

// Copies at first, first + step, ... ; count of them. 64 bits wide, so that no sum runs over.
struct Copies {
    std::int64_t first = 0;
    std::int64_t step = 0;
    std::int64_t count = 0;
};

// The distance from one copy to the next: the spacing is the whole distance for animations, the gap
// for still pictures.
[[nodiscard]] std::int64_t TileStep(Long spacing, std::int64_t size, bool animated);

// Addition: a step of a stage that was made for another view, in whole view pixels. One of an
// animation that is 1 or less, and so was not given, stays as it is, and a larger one stays larger;
// one of a still picture that is above 0 stays so.
[[nodiscard]] std::int64_t ScaledStep(std::int64_t step, Single scale, bool animated);

// How many copies may lie upon one another at any pixel, along one axis: a step that would pile up
// more is taken as a multiple of itself, so that no file makes a frame take minutes. No picture is
// made that way; kDeepest is for one axis that is tiled, kDeepestOfBoth for each of two.
inline constexpr std::int64_t kDeepest = 1024;
inline constexpr std::int64_t kDeepestOfBoth = 32;

// What there is to tile along an axis.
struct Tiles {
    Long count = 0;         // the element's: 0 is one copy, 1 without end both ways, n are n copies
    std::int64_t step = 0;  // from one to the next
    std::int64_t size = 0;  // of the picture
    bool animated = false;
    bool additions = false;  // a negative step leaves one copy
};

// Copies from `position` on. Of n only the first when the step is 0, and none when it is negative
// (with additions the first); of endless ones just one when the step is 0 or less. Endless
// animations with a step of 1 or less have been given no distance: they follow one another. Of
// several copies only those that touch `visible` are named.
[[nodiscard]] Copies CopiesAlong(const Tiles& tiles, std::int64_t position,
                                 const PixelRange& visible, std::int64_t deepest = kDeepest);

}  // namespace scenara
