// SPDX-License-Identifier: MIT
//
// ElementTiles: how the copies of an element's picture stand along both axes, in
// pixels of the picture.
#pragma once

#include "render/ElementPlacement.h"
#include "render/Tiling.h"
#include "stage/StageModel.h"

namespace scenara {

struct ElementTiles {
    // Plainly frames that are mirrored left to right are shown once, whatever the tiling; parallax
    // pictures are tiled across only. Raises "Subscript out of range" when the picture's sprite is
    // not in its table.
    ElementTiles(const StageModel& model, const BackgroundElement& element,
                 const ElementPicture& picture, bool additions);

    Tiles across;
    Tiles down;
};

}  // namespace scenara
