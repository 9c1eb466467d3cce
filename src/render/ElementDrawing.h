// SPDX-License-Identifier: MIT
//
// One element on the screen: its picture, its copies, its rows, inside of its window.
#pragma once

#include "render/ElementPieces.h"
#include "render/Engine.h"
#include "stage/Blending.h"
#include "stage/StageModel.h"

namespace scenara {

// Draws what the element shows now. Around the draw of a masked element (mask 1), or of any that
// shows a picture without a palette, blending by the source's alpha is switched on, and back to
// none. Plainly frames of animations that are mirrored left to right are drawn once, whatever the
// tiling; parallax pictures are tiled across only. Nothing is allocated.
//
// Addition: an element, or a frame, with a blending of its own is drawn so, masked or not
// (BlendedBlit.h), and the states are put back as behind a masked one.
void DrawElement(Engine& engine, const StageModel& model, const BackgroundElement& element,
                 const DrawOptions& options);

// Addition: the blending that the element is drawn with now: its own or, where it leaves that to
// the frames, its current frame's. Without additions none. Raises "Subscript out of range" as
// DrawElement does; expects HasPictures.
[[nodiscard]] Blending BlendingInForce(const StageModel& model, const BackgroundElement& element,
                                       bool additions);

}  // namespace scenara
