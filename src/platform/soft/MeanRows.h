// SPDX-License-Identifier: MIT
//
// The loops that make means of a canvas, over the channels of a row.
#pragma once

#include <cstdint>
#include <span>

namespace scenara::soft {

// Adds each channel of a row's pixels, times `part`, to its sum. There are four sums to a pixel.
void AddChannels(const std::uint32_t* row, float part, std::span<float> sums);

// Four sums to a pixel, times `share`: from 0 to 255, to the nearest whole number.
void RoundChannels(std::span<const float> sums, float share, std::uint32_t* shown);

}  // namespace scenara::soft
