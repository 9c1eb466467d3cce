// SPDX-License-Identifier: MIT
//
// Mixing: how an element is drawn over the pixels that are there already. Those may be of its own
// other copies.
#pragma once

#include "stage/Blending.h"
#include "stage/StageModel.h"

namespace scenara {

enum class Mixing : Byte {
    Solid,    // every pixel in its colour, whatever its alpha
    Masked,   // each pixel as much as its alpha says
    Blended,  // the same, and something of what is there stays under it
};

// `blending` is the one in force, `sprite` the picture that the element shows now.
[[nodiscard]] inline Mixing MixingOf(const BackgroundElement& element, const Blending& blending,
                                     const SpriteEntry& sprite) {
    if (blending.kind != BlendKind::None) {
        return Mixing::Blended;
    }
    // Addition: a picture without a palette has no colour 0 that a mask could leave out.
    const bool byAlpha = element.mask == 1 || sprite.trueColor == 1;
    return byAlpha ? Mixing::Masked : Mixing::Solid;
}

}  // namespace scenara
