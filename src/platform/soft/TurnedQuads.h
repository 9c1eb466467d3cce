// SPDX-License-Identifier: MIT
//
// The fast path for quads of four free corners and one colour, in which the texture ends at its
// edges: pictures that are turned.
//
// The shape, and which texel is where, are those of the general path (TriangleShape.h), triangle by
// triangle; texels are looked up and drawn several at a time. So it gives what the general path of
// Triangles.h gives, pixel for pixel. Processors without the instructions have the general path
// alone.
#pragma once

#include <span>

#include "platform/soft/Blend.h"
#include "platform/soft/Coverage.h"
#include "platform/soft/Texels.h"

namespace scenara::soft {

// Draws the strip if it is one of these; false otherwise. `coverage` is the texture's, or Unknown.
[[nodiscard]] bool DrawTurnedQuad(const Target& target, const PixelStates& states,
                                  const Texels& texture, const Coverage& coverage,
                                  std::span<const Vertex> corners);

}  // namespace scenara::soft
