// SPDX-License-Identifier: MIT
//
// A pixel with its colours multiplied by its alpha, as peers want it that have no other form.
#pragma once

#include <cstdint>

namespace scenara::bench {

[[nodiscard]] constexpr std::uint32_t Premultiplied(std::uint32_t pixel) {
    const std::uint32_t alpha = pixel >> 24U;
    const auto times = [&](unsigned shift) {
        return (((pixel >> shift) & 0xFFU) * alpha + 127) / 255 << shift;
    };
    return alpha << 24U | times(16) | times(8) | times(0);
}

}  // namespace scenara::bench
