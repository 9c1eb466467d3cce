// SPDX-License-Identifier: MIT
//
// ElementWindow: the rectangle of the canvas that an element is drawn inside of, and quads cut to
// it.
#pragma once

#include <optional>

#include "render/DrawOptions.h"
#include "render/SpriteQuad.h"
#include "render/Tiling.h"
#include "stage/StageModel.h"

namespace scenara {

struct ElementWindow {
    bool active = false;  // without one, quads are left whole
    PixelRange columns;   // what can be seen at all: the window's part of the canvas
    PixelRange rows;

    // Of the element. Corners may come in any order, and both lie inside. Plainly its values are
    // rounded to whole numbers. Additions: it counts in units of the stage, fractions and all,
    // moves with the camera by its delta, and is rounded on the canvas; and a second one,
    // maskwindow, which is zoomed with the element, leaves what lies inside of both.
    [[nodiscard]] static ElementWindow Of(const BackgroundElement& element,
                                          const DrawOptions& options);

    // Without one: all that can be seen.
    [[nodiscard]] bool Has(std::int64_t x, std::int64_t y) const {
        return columns.Has(x) && rows.Has(y);
    }
};

// The part of the quad inside of the window, the whole quad when there is none active; nothing when
// it is outside.
[[nodiscard]] std::optional<SpriteQuad> CutTo(const ElementWindow& window, SpriteQuad quad);

}  // namespace scenara
