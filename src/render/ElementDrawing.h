// SPDX-License-Identifier: MIT
//
// One element on the screen: its picture, its copies, its rows, inside of its window.
#pragma once

#include "render/Engine.h"
#include "stage/StageModel.h"

namespace scenara {

// Draws what the element shows now. Around the draw of a masked element (mask 1) blending by the
// source's alpha is switched on, and back to none. Mirrored frames of animations are drawn once,
// whatever the tiling; parallax pictures are tiled across only. Nothing is allocated.
void DrawElement(Engine& engine, const StageModel& model, const BackgroundElement& element);

}  // namespace scenara
