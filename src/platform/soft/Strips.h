// SPDX-License-Identifier: MIT
//
// A strip of triangles by the fastest path that can draw it.
#pragma once

#include <span>

#include "platform/soft/Blend.h"
#include "platform/soft/SoftTexture.h"
#include "platform/soft/Texels.h"

namespace scenara::soft {

// No texture: white.
void DrawFastest(const Target& target, const PixelStates& states, const SoftTexture* texture,
                 std::span<const Vertex> corners);

}  // namespace scenara::soft
