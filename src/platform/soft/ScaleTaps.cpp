// SPDX-License-Identifier: MIT
#include "platform/soft/ScaleTaps.h"

#include <algorithm>

namespace scenara::soft {
namespace {

// part / whole, which is less than 1.
std::int16_t Weight(std::int64_t part, std::int64_t whole) {
    const std::int64_t rounded = (part * kWholeWeight * 2 + whole) / (whole * 2);
    return static_cast<std::int16_t>(std::min<std::int64_t>(rounded, kWholeWeight - 1));
}

}  // namespace

ScaleTap NearestTap(std::int32_t at, std::int32_t size, std::int32_t all) {
    return {static_cast<std::int32_t>((std::int64_t{at} * 2 + 1) * all / (std::int64_t{size} * 2)),
            0};
}

// In parts of which a pixel of the canvas has `size`, and one that is shown `all`.
ScaleTap AverageTap(std::int32_t at, std::int32_t size, std::int32_t all) {
    const std::int64_t begin = std::int64_t{at} * all;
    const std::int64_t first = begin / size;
    const std::int64_t ofNeighbour = begin + all - (first + 1) * size;
    return {static_cast<std::int32_t>(first),
            ofNeighbour > 0 ? Weight(ofNeighbour, all) : std::int16_t{0}};
}

// In parts of which a pixel of the canvas has twice `size`.
ScaleTap SmoothTap(std::int32_t at, std::int32_t size, std::int32_t all) {
    const std::int64_t unit = std::int64_t{size} * 2;
    const std::int64_t fromFirstCentre = (std::int64_t{at} * 2 + 1) * all - size;
    if (fromFirstCentre <= 0) {
        return {0, 0};
    }
    const std::int64_t first = fromFirstCentre / unit;
    if (first >= all - 1) {
        return {all - 1, 0};
    }
    return {static_cast<std::int32_t>(first), Weight(fromFirstCentre % unit, unit)};
}

}  // namespace scenara::soft
