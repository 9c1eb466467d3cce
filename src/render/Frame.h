// SPDX-License-Identifier: MIT
//
// Frame: the order in which the pieces of one displayed frame reach the device.
//
// The back buffer is never cleared: what no element covers keeps the pixels of earlier frames.
#pragma once

#include <string_view>

#include "render/Engine.h"
#include "render/Figure.h"
#include "render/TileEngine.h"
#include "render/ViewFlags.h"

namespace scenara {

// The scene: begin, the back layer, the figure where there is one (an addition), the front layer,
// end. Leaves DrawFrontLayer True.
void DrawScene(Engine& engine, TileEngine& tiles, ViewFlags& flags,
               FigureSource* figures = nullptr);

// The information line, over the finished scene.
void DrawInfoLine(Engine& engine, std::string_view text);

// Shows the back buffer; a failure is ignored.
void PresentFrame(Engine& engine);

}  // namespace scenara
