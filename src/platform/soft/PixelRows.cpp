// SPDX-License-Identifier: MIT
#include "platform/soft/PixelRows.h"

#include <algorithm>
#include <cstddef>

#include "platform/soft/RowPaths.h"

namespace scenara::soft {

void TintRow(std::span<std::uint32_t> texels, std::uint32_t tint) {
    if (tint == kWhite) {
        return;
    }
    for (std::size_t x = rows::TintSse2(texels, tint); x < texels.size(); ++x) {
        texels[x] = Tinted(texels[x], tint);
    }
}

void BlendRow(std::span<std::uint32_t> destination, std::span<const std::uint32_t> source,
              const PixelStates& states) {
    if (IsCopying(states)) {
        std::ranges::copy(source, destination.begin());
        return;
    }
    const std::size_t done = rows::BlendSse2(destination, source, states);
    for (std::size_t x = done; x < source.size(); ++x) {
        destination[x] = Blended(source[x], destination[x], states);
    }
}

}  // namespace scenara::soft
