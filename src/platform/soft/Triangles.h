// SPDX-License-Identifier: MIT
//
// The general path: any triangle, in double precision, right before fast.
//
// A line of pixels at a time: where the two edges that it meets cut it, what colours and texels lie
// between them, tinted and blended as rows. Two triangles that share an edge compute the same cut,
// so that every pixel between them is drawn by one of them exactly. Texels (Sampling.h) and colours
// are those at the pixel's centre; an interpolated colour is rounded to whole channels before it
// tints.
//
// Hostile corners: a triangle with a coordinate that is not a finite number, or with a texture
// coordinate beyond kMostTexels texels, draws nothing. Any other costs what is visible of it.
#pragma once

#include <span>

#include "platform/soft/Blend.h"
#include "platform/soft/Texels.h"

namespace scenara::soft {

// A double has a thousandth of a texel left there.
inline constexpr double kMostTexels = 1099511627776.0;  // 2^40

// Draws the triangle unless it runs counter-clockwise. No texture: white.
void DrawTriangle(const Target& target, const PixelStates& states, const Texels* texture,
                  const Vertex& a, const Vertex& b, const Vertex& c);

// All triangles of a strip, every second one taken the other way round.
void DrawStrip(const Target& target, const PixelStates& states, const Texels* texture,
               std::span<const Vertex> corners);

}  // namespace scenara::soft
