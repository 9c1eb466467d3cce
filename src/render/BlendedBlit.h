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

// One or two quads of a sprite on their way to the screen.
struct BlendedPiece {
    Integer slot = -1;
    Long x = 0;
    Long y = 0;
    Long width = 0;
    Long height = 0;
    Long sourceX = 0;
    Long sourceY = 0;
    bool mirrored = false;
    bool flipped = false;
};

// Switches blending on, for pieces that follow. `blending` is not None.
void BeginBlending(Direct3DDevice8& device, const Blending& blending);

void DrawBlended(Engine& engine, const Blending& blending, const BlendedPiece& piece);

// Back to no blending at all.
void EndBlending(Direct3DDevice8& device, const Blending& blending);

}  // namespace scenara
