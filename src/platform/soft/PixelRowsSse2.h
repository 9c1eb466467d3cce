// SPDX-License-Identifier: MIT
//
// The vector path behind PixelRows.h, for PixelRows*.cpp only. On processors without SSE2 it does
// nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/soft/Blend.h"

namespace scenara::soft::rows {

// As PixelRows.h has them, save up to three pixels at the end. How many were done.
[[nodiscard]] std::size_t TintSse2(std::span<std::uint32_t> texels, std::uint32_t tint);
[[nodiscard]] std::size_t BlendSse2(std::span<std::uint32_t> destination,
                                    std::span<const std::uint32_t> source,
                                    const PixelStates& states);

}  // namespace scenara::soft::rows
