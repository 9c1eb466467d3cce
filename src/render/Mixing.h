// SPDX-License-Identifier: MIT
//
// Mixing: how an element is drawn over the pixels that are there already. Those may be of its own
// other copies.
#pragma once

#include "stage/Blending.h"
#include "stage/StageModel.h"

namespace scenara {

enum class Mixing : Byte {
    Solid,    // nothing
    Masked,   // what its transparent pixels do not hide
    Blended,  // some of all
};

// `blending` is the one in force.
[[nodiscard]] inline Mixing MixingOf(const BackgroundElement& element, const Blending& blending) {
    if (blending.kind != BlendKind::None) {
        return Mixing::Blended;
    }
    return element.mask == 1 ? Mixing::Masked : Mixing::Solid;
}

}  // namespace scenara
