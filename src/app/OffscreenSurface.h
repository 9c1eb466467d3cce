// SPDX-License-Identifier: MIT
//
// OffscreenSurface: a drawing surface in memory, of the screen's own pixels (32 bits).
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/Integers.h"

namespace scenara {

class OffscreenSurface {
public:
    // A surface of this size, black; the one before is released first.
    void Create(Long width, Long height) {
        Release();
        width_ = width;
        height_ = height;
        pixels_.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    }
    void Release() {
        pixels_ = {};
        width_ = height_ = 0;
    }

    [[nodiscard]] Long Width() const { return width_; }
    [[nodiscard]] Long Height() const { return height_; }

private:
    Long width_ = 0;
    Long height_ = 0;
    std::vector<std::uint32_t> pixels_;
};

}  // namespace scenara
