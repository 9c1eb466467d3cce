// SPDX-License-Identifier: MIT
//
// SpriteQuad: a piece of a picture on its way to the screen, pixel for pixel, and how it is drawn.
#pragma once

#include <cstdint>

namespace scenara {

// A rectangle of the view, and where in the picture its upper left corner is. Beyond its edges the
// picture repeats. 64 bits wide, so that no sum runs over on the way.
struct SpriteQuad {
    std::int64_t x = 0;
    std::int64_t y = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::int64_t sourceX = 0;  // of a mirrored quad: in the mirrored picture
    std::int64_t sourceY = 0;
};

struct BlitStyle {
    bool mirrored = false;  // left to right
    bool flipped = false;   // top to bottom
    std::uint32_t color = 0xFFFFFFFF;
};

}  // namespace scenara
