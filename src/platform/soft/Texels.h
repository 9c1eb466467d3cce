// SPDX-License-Identifier: MIT
//
// What drawing sees: the pixels of a texture, and those of the view.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/Direct3D8.h"

namespace scenara::soft {

inline constexpr std::size_t kViewPixels =
    static_cast<std::size_t>(kViewWidth) * static_cast<std::size_t>(kViewHeight);

// The back buffer, line by line.
using View = std::span<std::uint32_t, kViewPixels>;

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
