// SPDX-License-Identifier: MIT
//
// Rows of pixels through the arithmetic of Blend.h, several at a time where the processor can, for
// whatever is no plain copy.
#pragma once

#include <cstdint>
#include <span>

#include "platform/soft/Blend.h"

namespace scenara::soft {

// Tints every one of `texels` in place.
void TintRow(std::span<std::uint32_t> texels, std::uint32_t tint);

// Draws `source` over the first pixels of `destination`, which has at least as many.
void BlendRow(std::span<std::uint32_t> destination, std::span<const std::uint32_t> source,
              const PixelStates& states);

}  // namespace scenara::soft
