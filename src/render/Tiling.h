// SPDX-License-Identifier: MIT
//
// Tiling: where the copies of a picture stand along one axis, in pixels of the picture, and which
// of them can be seen.
#pragma once

#include <cstdint>
#include <limits>

#include "base/Integers.h"
#include "platform/View.h"

namespace scenara {

// Pixels along one axis: from `from` up to, not including, `to`.
struct PixelRange {
    std::int64_t from = 0;
    std::int64_t to = 0;

    [[nodiscard]] constexpr bool IsEmpty() const { return from >= to; }
    [[nodiscard]] constexpr bool Has(std::int64_t pixel) const {
        return pixel >= from && pixel < to;
    }
};

// Rounded down, also below 0. `divisor` is above 0.
[[nodiscard]] constexpr std::int64_t FloorDivide(std::int64_t value, std::int64_t divisor) {
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

// Copies at first, first + step, ...; count of them, of which the last may stand nearer to the one
// before. 64 bits wide, so that no sum runs over.
struct Copies {
    std::int64_t first = 0;
    std::int64_t step = 0;
    std::int64_t count = 0;
    std::int64_t last = 0;

    [[nodiscard]] std::int64_t At(std::int64_t i) const {
        return i + 1 == count ? last : first + i * step;
    }
};

// The distance from one copy to the next: the spacing is the whole distance for animations, the gap
// for still pictures.
[[nodiscard]] std::int64_t TileStep(Long spacing, std::int64_t size, bool animated);

// What there is to tile along an axis.
struct Tiles {
    Long count = 0;         // the element's: 0 is one copy, 1 without end both ways, n are n copies
    std::int64_t step = 0;  // from one to the next
    std::int64_t size = 0;  // of the picture
    bool animated = false;
    bool additions = false;  // a negative step leaves one copy

    [[nodiscard]] bool Endless() const { return count == 1; }
};

// The distance from one copy to the next as it is drawn, 0 where there is no more than one. Endless
// animations with a step of 1 or less have been given no distance: they follow one another. With
// additions one with a step below 0 is a single copy.
[[nodiscard]] std::int64_t DrawnStep(const Tiles& tiles);

// How many copies lie upon one another, at most, where there are `copies` of them.
[[nodiscard]] std::int64_t DepthOf(const Tiles& tiles, const Copies& copies);

inline constexpr std::int64_t kAnyDepth = std::numeric_limits<std::int64_t>::max();

// Copies from `position` on. Of n only the first when the step is 0, and none when it is negative
// (with additions the first); of endless ones just one when the step is 0 or less. Of several
// copies only those that touch `visible` are named.
//
// Where more than `deepest` of them would lie upon one another, only every second, third, ... is
// named, and in any case the first and the last of a count.
[[nodiscard]] Copies CopiesAlong(const Tiles& tiles, std::int64_t position,
                                 const PixelRange& visible, std::int64_t deepest = kAnyDepth);

// How many copies may lie upon one another at one place, along both axes together: no picture is
// made of more, and no file is to make a frame take minutes. On a canvas larger than the designed
// one it is as many times fewer, but 16 in any case.
inline constexpr std::int64_t kDeepest = 4096;
[[nodiscard]] std::int64_t DeepestOn(const CanvasSize& canvas);

// The depths to which copies that are `depthX` and `depthY` deep are thinned out, `deepest`
// together.
struct Depths {
    std::int64_t x = kAnyDepth;
    std::int64_t y = kAnyDepth;
};
[[nodiscard]] Depths AllowedDepths(std::int64_t depthX, std::int64_t depthY, std::int64_t deepest);

}  // namespace scenara
