// SPDX-License-Identifier: MIT
//
// SoftSurface: pixels that a soft device copies from and to: its back buffer, or an image.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/Direct3D8.h"

namespace scenara {

class SoftSurface final : public Direct3DSurface8 {
public:
    // An image. The sizes are above 0.
    SoftSurface(std::int32_t width, std::int32_t height)
        : image_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)),
          pixels_(image_),
          width_(width),
          height_(height) {}

    // Somebody else's pixels, line by line, which outlive it.
    SoftSurface(std::span<std::uint32_t> pixels, std::int32_t width, std::int32_t height)
        : pixels_(pixels), width_(width), height_(height) {}

    [[nodiscard]] std::int32_t Width() const { return width_; }
    [[nodiscard]] std::int32_t Height() const { return height_; }

    // `count` pixels of line `y` from `x` on; all of them are there.
    [[nodiscard]] std::span<std::uint32_t> Pixels(std::int32_t x, std::int32_t y,
                                                  std::int32_t count) const {
        const auto first = static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                           static_cast<std::size_t>(x);
        return pixels_.subspan(first, static_cast<std::size_t>(count));
    }

private:
    std::vector<std::uint32_t> image_;
    std::span<std::uint32_t> pixels_;
    std::int32_t width_;
    std::int32_t height_;
};

}  // namespace scenara
