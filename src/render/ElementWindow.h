// SPDX-License-Identifier: MIT
//
// ElementWindow: the rectangle of the view that an element is drawn inside of, and quads cut to it.
#pragma once

#include <optional>

#include "platform/View.h"
#include "render/SpriteQuad.h"
#include "render/Tiling.h"
#include "stage/StageModel.h"

namespace scenara {

struct ElementWindow {
    bool active = false;  // without one, quads are left whole
    PixelRange columns;   // what can be seen at all: the window's part of the view
    PixelRange rows;

    // Of the element. Its values are rounded to whole numbers, corners may come in any order, and
    // both corners lie inside. (Addition: it moves with the stored camera by its delta, which is 0
    // in a plain stage.)
    [[nodiscard]] static ElementWindow Of(const BackgroundElement& element, Single cameraX,
                                          Single cameraY, const View& view);
};

// The part of the quad inside of the window, the whole quad when there is none active; nothing when
// it is outside.
[[nodiscard]] std::optional<SpriteQuad> CutTo(const ElementWindow& window, SpriteQuad quad);

}  // namespace scenara
