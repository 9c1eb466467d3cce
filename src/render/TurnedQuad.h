// SPDX-License-Identifier: MIT
//
// TurnedQuad, an addition: a picture that is turned on its way to the screen.
//
// It is turned after it was mirrored and scaled, about its own axis, counter-clockwise as it is
// seen. Its corners stay between pixels: a pixel of the canvas is drawn when its centre lies
// inside, and shows the pixel of the picture under it (platform/Direct3D8.h has the rules).
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "base/Integers.h"
#include "render/SpriteQuad.h"

namespace scenara {

// By an angle about some point.
struct Turn {
    double cosine = 1;
    double sine = 0;

    // Degrees, counter-clockwise. A multiple of 360 turns nothing, and one of 90 is exact. What is
    // no finite number is no angle.
    [[nodiscard]] static Turn By(double angle);

    [[nodiscard]] bool Turns() const { return cosine != 1 || sine != 0; }

    // Where a place goes, seen from that point; y grows downwards.
    [[nodiscard]] double X(double x, double y) const { return x * cosine + y * sine; }
    [[nodiscard]] double Y(double x, double y) const { return y * cosine - x * sine; }
};

struct TurnedQuad {
    struct Corner {
        Single x = 0;  // canvas pixels
        Single y = 0;
    };
    // Of the picture before it is turned: left bottom, left top, right bottom, right top.
    std::array<Corner, 4> corners;
};

// A pixel of a picture.
struct ShownTexel {
    std::int64_t x;
    std::int64_t y;
};

// The pixel of a picture of this size that is seen at a pixel of the canvas; nothing where the quad
// does not cover that. The style's colour counts for nothing.
[[nodiscard]] std::optional<ShownTexel> TexelAt(const TurnedQuad& quad, Integer width,
                                                Integer height, const BlitStyle& style,
                                                std::int64_t x, std::int64_t y);

}  // namespace scenara
