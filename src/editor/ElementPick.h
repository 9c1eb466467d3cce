// SPDX-License-Identifier: MIT
//
// ElementPick: which element stands at a point of the picture, and where an element stands.
//
// Both go by the same pieces that the drawing shows: tiling, windows, the rows of parallax
// pictures, mirrored, scaled and turned frames, and scaled stages count as they are seen. Elements
// that drift are looked up where they will be drawn next, which is a step of theirs beyond the
// picture on the screen.
//
// Raise "Subscript out of range" when an element's action, frame or sprite is not in its table.
#pragma once

#include <optional>

#include "base/Integers.h"
#include "platform/View.h"
#include "render/ElementPieces.h"
#include "stage/StageModel.h"

namespace scenara {

// A pixel of the canvas; what the pointer drags may lie outside.
struct ViewPoint {
    Long x = 0;
    Long y = 0;
};

// The topmost drawn element that covers the point, -1 when there is none: the front layer goes
// before the back one, and a later element before an earlier one. Hidden and disabled elements
// cover nothing. Where an element is masked or blended, or shows a picture without a palette, so do
// the pixels of that whose alpha is 0; the others are there however faint they are.
[[nodiscard]] Integer TopmostElementAt(const StageModel& model, const DrawOptions& options,
                                       const ViewPoint& point);

// The smallest rectangle around all pictures that an element shows, as far as it lies in the view;
// nothing when it shows nothing there. Hidden elements have theirs, so that one that blinks keeps
// it.
[[nodiscard]] std::optional<ViewFrame> OutlineOf(const StageModel& model,
                                                 const DrawOptions& options, Integer index);

}  // namespace scenara
