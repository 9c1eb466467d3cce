// SPDX-License-Identifier: MIT
//
// What drawing sees: the pixels of a texture, and those of the back buffer.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace scenara::soft {

// The back buffer, line by line without a gap, and the part of it that is drawn to.
struct Target {
    std::span<std::uint32_t> pixels;
    std::int32_t width = 0;
    std::int32_t height = 0;

    // Lies in the back buffer; right and bottom lie outside of the part.
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = width;
    std::int32_t bottom = height;

    [[nodiscard]] std::uint32_t* PixelAt(std::int32_t x, std::int32_t y) const {
        return pixels.data() + (std::ptrdiff_t{y} * width + x);
    }
};

// Fills the part that is drawn to with one colour.
inline void Fill(const Target& target, std::uint32_t color) {
    for (std::int32_t y = target.top; y < target.bottom; ++y) {
        std::fill(target.PixelAt(target.left, y), target.PixelAt(target.right, y), color);
    }
}

// The longest stretch of a line that is drawn at a time; what is wider is drawn in several.
inline constexpr std::int32_t kMostRun = 448;

// Line y starts at word y * pitch; what lies behind `width` is never looked at.
struct Texels {
    std::span<const std::uint32_t> words;
    std::int32_t width = 0;   // 1 to 32767
    std::int32_t height = 0;  // 1 to 32767
    std::int32_t pitch = 0;   // at least the width

    [[nodiscard]] const std::uint32_t* Line(std::int32_t y) const {
        return words.data() + static_cast<std::ptrdiff_t>(y) * pitch;
    }
};

}  // namespace scenara::soft
