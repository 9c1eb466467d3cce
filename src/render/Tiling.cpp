// SPDX-License-Identifier: MIT
#include "render/Tiling.h"

#include <algorithm>
#include <limits>

namespace scenara {
namespace {

// Rounded down, also below 0. `divisor` is above 0.
std::int64_t FloorDivide(std::int64_t value, std::int64_t divisor) {
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

// A run of copies position + k * step, of which k = anchor is never left out.
struct Run {
    std::int64_t position;
    std::int64_t step;
    std::int64_t size;
    std::int64_t least;  // the smallest and the largest k
    std::int64_t most;
    std::int64_t anchor;
};

Copies VisibleOf(const Run& run, const PixelRange& visible, std::int64_t deepest) {
    const std::int64_t first =
        std::max(run.least, FloorDivide(visible.from - run.size - run.position, run.step) + 1);
    const std::int64_t last =
        std::min(run.most, FloorDivide(visible.to - 1 - run.position, run.step));
    if (last < first) {
        return {run.position, 0, 0};
    }
    const std::int64_t depth = std::min(last - first + 1, (run.size - 1) / run.step + 1);
    const std::int64_t nth = std::max<std::int64_t>(1, (depth - 1) / deepest + 1);
    // The first k from `first` on that is the anchor or some n-ths away from it.
    const std::int64_t start = run.anchor - FloorDivide(run.anchor - first, nth) * nth;
    return {run.position + start * run.step, nth * run.step, FloorDivide(last - start, nth) + 1};
}

}  // namespace

std::int64_t TileStep(Long spacing, std::int64_t size, bool animated) {
    return animated ? spacing : spacing + size;
}

std::int64_t ScaledStep(std::int64_t step, Single scale, bool animated) {
    const std::int64_t least = animated ? 2 : 1;
    if (step < least) {
        return step;
    }
    const double scaled = RoundToEven(static_cast<double>(step) * static_cast<double>(scale));
    return std::max(least, static_cast<std::int64_t>(scaled));
}

Copies CopiesAlong(const Tiles& tiles, std::int64_t position, const PixelRange& visible,
                   std::int64_t deepest) {
    const Copies one{position, 0, 1};
    if (tiles.count == 1) {
        const std::int64_t step = tiles.animated && tiles.step <= 1 ? tiles.size : tiles.step;
        constexpr std::int64_t kEndless = std::numeric_limits<Long>::max();
        return step <= 0 ? one
                         : VisibleOf({position, step, tiles.size, -kEndless, kEndless, 0}, visible,
                                     deepest);
    }
    if (tiles.count < 1 || tiles.step == 0) {
        return one;
    }
    if (tiles.step < 0) {
        return tiles.additions ? one : Copies{position, 0, 0};
    }
    const std::int64_t last = std::int64_t{tiles.count} - 1;
    return VisibleOf({position, tiles.step, tiles.size, 0, last, last}, visible, deepest);
}

}  // namespace scenara
