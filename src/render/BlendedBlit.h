// SPDX-License-Identifier: MIT
//
// Blending, an addition: pictures that add to what lies behind them, or take from it.
//
//   Add            the picture, source alpha and one
//   Add1           black at alpha 128 over what is there, then as Add
//   Sub            as Add, but taken from what is there
//   AddAlpha s, d  black at alpha 256 - d over what is there, then as Add at alpha s
//
// Alpha is the texture's, 0 where a picture has its colour 0, times the quad's. Parts of 256 become
// parts of 255. "Over what is there" is source alpha and inverse source alpha.
#pragma once

#include "render/Engine.h"
#include "stage/Blending.h"

namespace scenara {

// Switches blending on, for quads that follow. `blending` is not None.
void BeginBlending(Direct3DDevice8& device, const Blending& blending);

// The quad, once or twice; the style's colour counts for nothing.
void DrawBlended(Engine& engine, const Blending& blending, const SpriteEntry& sprite,
                 const SpriteQuad& quad, const BlitStyle& style);
void DrawBlendedTurned(Engine& engine, const Blending& blending, const SpriteEntry& sprite,
                       const TurnedQuad& quad, const BlitStyle& style);

// Back to no blending at all.
void EndBlending(Direct3DDevice8& device, const Blending& blending);

}  // namespace scenara
