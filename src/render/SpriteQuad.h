// SPDX-License-Identifier: MIT
//
// SpriteQuad: a piece of a picture on its way to the screen, and how it is drawn.
#pragma once

#include <cstdint>

namespace scenara {

// A rectangle of the canvas, and the rectangle of the picture that it shows. Beyond its edges the
// picture repeats. 64 bits wide, so that no sum runs over on the way.
struct SpriteQuad {
    std::int64_t x = 0;
    std::int64_t y = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::int64_t sourceX = 0;  // of a mirrored quad: in the mirrored picture
    std::int64_t sourceY = 0;
    // 0: as wide and as high as it is drawn.
    std::int64_t sourceWidth = 0;
    std::int64_t sourceHeight = 0;

    [[nodiscard]] std::int64_t ShownWidth() const { return sourceWidth == 0 ? width : sourceWidth; }
    [[nodiscard]] std::int64_t ShownHeight() const {
        return sourceHeight == 0 ? height : sourceHeight;
    }
};

struct BlitStyle {
    bool mirrored = false;  // left to right
    bool flipped = false;   // top to bottom
    std::uint32_t color = 0xFFFFFFFF;
};

}  // namespace scenara
