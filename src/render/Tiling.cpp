// SPDX-License-Identifier: MIT
#include "render/Tiling.h"

#include <algorithm>
#include <cmath>

namespace scenara {
namespace {

// Copies position + k * step, for k from `least` to `most`.
struct Run {
    std::int64_t position;
    std::int64_t step;
    std::int64_t size;
    std::int64_t least;
    std::int64_t most;

    [[nodiscard]] std::int64_t At(std::int64_t k) const { return position + k * step; }
};

Copies VisibleOf(const Run& run, const PixelRange& visible, std::int64_t deepest) {
    const std::int64_t first =
        std::max(run.least, FloorDivide(visible.from - run.size - run.position, run.step) + 1);
    const std::int64_t last =
        std::min(run.most, FloorDivide(visible.to - 1 - run.position, run.step));
    if (last < first) {
        return {run.position, 0, 0, run.position};
    }
    const std::int64_t depth = std::min(last - first + 1, (run.size - 1) / run.step + 1);
    if (depth <= deepest) {
        return {run.At(first), run.step, last - first + 1, run.At(last)};
    }
    // Every nth, counted from the first of all, so that the same ones are named wherever they are.
    const std::int64_t nth = (depth - 1) / deepest + 1;
    const std::int64_t start = -FloorDivide(-first, nth);
    const std::int64_t end = FloorDivide(last, nth);
    const std::int64_t more = last == run.most && last % nth != 0 ? 1 : 0;
    const std::int64_t count = end - start + 1 + more;
    return {run.At(start * nth), nth * run.step, count, run.At(more == 0 ? end * nth : last)};
}

}  // namespace

std::int64_t TileStep(Long spacing, std::int64_t size, bool animated) {
    return animated ? spacing : spacing + size;
}

std::int64_t DrawnStep(const Tiles& tiles) {
    if (tiles.count < 1) {
        return 0;
    }
    const bool oneCopy = tiles.additions && tiles.step < 0;
    const bool noDistance = tiles.Endless() && tiles.animated && tiles.step <= 1 && !oneCopy;
    return std::max<std::int64_t>(noDistance ? tiles.size : tiles.step, 0);
}

std::int64_t DepthOf(const Tiles& tiles, const Copies& copies) {
    const std::int64_t step = DrawnStep(tiles);
    return step == 0 ? 1 : std::min(copies.count, (tiles.size - 1) / step + 1);
}

Copies CopiesAlong(const Tiles& tiles, std::int64_t position, const PixelRange& visible,
                   std::int64_t deepest) {
    if (tiles.count > 1 && tiles.step < 0 && !tiles.additions) {
        return {position, 0, 0, position};
    }
    const std::int64_t step = DrawnStep(tiles);
    if (step == 0) {
        return {position, 0, 1, position};
    }
    constexpr std::int64_t kEndless = std::numeric_limits<Long>::max();
    const bool endless = tiles.Endless();
    return VisibleOf({position, step, tiles.size, endless ? -kEndless : 0,
                      endless ? kEndless : std::int64_t{tiles.count} - 1},
                     visible, deepest);
}

std::int64_t DeepestOn(const CanvasSize& canvas) {
    constexpr std::int64_t kLeast = 16;
    const std::int64_t pixels = std::int64_t{canvas.width} * canvas.height;
    const std::int64_t designed = std::int64_t{CanvasSize().width} * CanvasSize().height;
    return std::clamp(kDeepest * designed / pixels, kLeast, kDeepest);
}

Depths AllowedDepths(std::int64_t depthX, std::int64_t depthY, std::int64_t deepest) {
    const auto ofBoth = static_cast<std::int64_t>(std::sqrt(static_cast<double>(deepest)));
    return {std::max(ofBoth, deepest / depthY), std::max(ofBoth, deepest / depthX)};
}

}  // namespace scenara
