// SPDX-License-Identifier: MIT
//
// The fast path: quads that show texels one to one on whole pixels, as nearly all of a stage's do.
//
// Such a quad is clipped once, cut where its texels wrap around the texture, and drawn as rows:
// copied, copied where it is visible, or tinted and blended. It gives what the general path of
// Triangles.h gives, pixel for pixel.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "platform/soft/Blend.h"
#include "platform/soft/Coverage.h"
#include "platform/soft/Texels.h"

namespace scenara::soft {

// A run of whole pixels along one direction of the view, and the texels that it shows.
struct WholeRun {
    std::int32_t begin = 0;  // the first pixel, in the view or not
    std::int32_t end = 0;    // behind the last
    std::int32_t texel = 0;  // the first pixel's, counted through the texture's repeats
    bool backwards = false;  // whether texels go down as pixels go up

    bool operator==(const WholeRun&) const = default;
};

struct WholeQuad {
    WholeRun columns;
    WholeRun lines;
    std::uint32_t color = 0;  // of all corners

    bool operator==(const WholeQuad&) const = default;
};

// What a strip of four corners is, if it is one of these: a rectangle whose corners come as left
// bottom, left top, right bottom, right top or as left top, right top, left bottom, right bottom.
[[nodiscard]] std::optional<WholeQuad> AsWholeQuad(std::span<const Vertex> corners,
                                                   const Texels& texture);

// Draws the strip if it is one of these and is better drawn this way; false otherwise. `coverage`
// is the texture's, or Unknown.
[[nodiscard]] bool DrawWholeQuad(View view, const PixelStates& states, const Texels& texture,
                                 const Coverage& coverage, std::span<const Vertex> corners);

}  // namespace scenara::soft
