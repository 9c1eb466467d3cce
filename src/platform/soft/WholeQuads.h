// SPDX-License-Identifier: MIT
//
// The fast path: quads that show texels one to one on whole pixels, as nearly all of a stage's do.
//
// Such a quad is clipped once, cut where its texels wrap around the texture (RepeatedTexels.h), and
// drawn as rows: copied, copied where it is visible, or tinted and blended. It gives what the
// general path of Triangles.h gives, pixel for pixel.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "platform/soft/Blend.h"
#include "platform/soft/Coverage.h"
#include "platform/soft/RepeatedTexels.h"
#include "platform/soft/Texels.h"

namespace scenara::soft {

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

// Draws the strip if it is one of these; false otherwise. `coverage` is the texture's, or Unknown.
[[nodiscard]] bool DrawWholeQuad(const Target& target, const PixelStates& states,
                                 const Texels& texture, const Coverage& coverage,
                                 std::span<const Vertex> corners);

}  // namespace scenara::soft
