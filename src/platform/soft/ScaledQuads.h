// SPDX-License-Identifier: MIT
//
// The fast path for quads on whole pixels that show whole texels at another size: enlarged,
// reduced, mirrored, repeated or clamped.
//
// Such a quad is clipped once and written out line by line (ScaledLines.h); the lines are drawn as
// those of a quad that is not scaled. It gives what the general path of Triangles.h gives, pixel
// for pixel, and costs what is visible of it.
#pragma once

#include <optional>
#include <span>

#include "platform/soft/Blend.h"
#include "platform/soft/Coverage.h"
#include "platform/soft/ScaledLines.h"
#include "platform/soft/Texels.h"

namespace scenara::soft {

struct ScaledQuad {
    ScaledRun columns;
    ScaledRun lines;
    std::uint32_t color = 0;  // of all corners

    bool operator==(const ScaledQuad&) const = default;
};

// What a strip of four corners is, if it is one of these.
[[nodiscard]] std::optional<ScaledQuad> AsScaledQuad(std::span<const Vertex> corners,
                                                     const Texels& texture);

// Draws the strip if it is one of these; false otherwise. `coverage` is the texture's, or Unknown.
[[nodiscard]] bool DrawScaledQuad(const Target& target, const PixelStates& states,
                                  const Texels& texture, const Coverage& coverage,
                                  std::span<const Vertex> corners);

}  // namespace scenara::soft
