// SPDX-License-Identifier: MIT
//
// Along one axis: of which pixels of the canvas a pixel that is shown is made. Where the canvas is
// made larger that is one, or a mixture of two neighbours.
//
// `at` is the pixel that is shown, of `size` ones; the canvas has `all`, from 1 to kMostScaled, and
// no more than `size`.
#pragma once

#include <cstdint>

namespace scenara::soft {

// No side of a canvas, or of what is made of it, is longer: so that sums of products fit.
inline constexpr std::int32_t kMostScaled = 1 << 16;

// The unit of weights: a mixture has less of its second pixel.
inline constexpr std::int32_t kWholeWeight = 1 << 15;

struct ScaleTap {
    std::int32_t first = 0;   // its neighbour, `first` + 1, is there if it has a weight
    std::int16_t weight = 0;  // of the neighbour

    friend bool operator==(const ScaleTap&, const ScaleTap&) = default;
};

// The pixel under the centre. As the only one it is also right for a canvas that is made smaller.
[[nodiscard]] ScaleTap NearestTap(std::int32_t at, std::int32_t size, std::int32_t all);

// The mean of what lies under it.
[[nodiscard]] ScaleTap AverageTap(std::int32_t at, std::int32_t size, std::int32_t all);

// By how far its centre is from the centres of the two on either side.
[[nodiscard]] ScaleTap SmoothTap(std::int32_t at, std::int32_t size, std::int32_t all);

}  // namespace scenara::soft
