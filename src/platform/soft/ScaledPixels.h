// SPDX-License-Identifier: MIT
//
// ScaledPixels: where a canvas is drawn at another size.
#pragma once

#include <cstddef>
#include <cstdint>

namespace scenara::soft {

struct ScaledPixels {
    std::uint32_t* pixels = nullptr;
    std::ptrdiff_t pitch = 0;  // words from one row to the next
    std::int32_t width = 0;
    std::int32_t height = 0;

    [[nodiscard]] std::uint32_t* Row(std::int32_t row) const { return pixels + row * pitch; }
};

}  // namespace scenara::soft
