// SPDX-License-Identifier: MIT
//
// Figure, an addition: a picture that stands on the stage between its two layers, such as a test
// character: mirrored and scaled, and each of its pixels as much as its alpha says.
#pragma once

#include <memory>

#include "base/Integers.h"
#include "base/NotCopied.h"
#include "platform/Direct3D8.h"
#include "render/Engine.h"

namespace scenara {

struct Figure {
    const std::shared_ptr<Direct3DTexture8>* texture = nullptr;  // none: nothing is drawn
    Single x = 0;      // canvas pixels: the left edge, of a mirrored figure the right one
    Single y = 0;      // the upper edge
    Single width = 0;  // as drawn
    Single height = 0;
    bool mirrored = false;
};

// Who knows the figure of a frame. Asked once per picture, when the stage's own clocks have ticked
// and nothing of it is drawn yet, so that a figure can stand on what they move.
class FigureSource : NotCopied {
public:
    virtual ~FigureSource() = default;

    [[nodiscard]] virtual Figure Next() = 0;
    // The one of the last frame, for a picture in which nothing goes on: it stands where the camera
    // and the stage have been moved to since.
    [[nodiscard]] virtual Figure Again() = 0;
};

// A figure's edges are brought to whole pixels, ties to the right and down, but never to less than
// one pixel. One without a size, or far outside of the view, is not drawn. Allocates nothing.
void DrawFigure(Engine& engine, const Figure& figure);

}  // namespace scenara
