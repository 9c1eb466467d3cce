// SPDX-License-Identifier: MIT
//
// Frame: the order in which the pieces of one displayed frame reach the device.
//
// Plainly the back buffer is never cleared: what no element covers keeps the pixels of earlier
// frames.
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

// A scene that nobody sees: everything moves as DrawScene moves it, and the device is left alone.
void TickScene(TileEngine& tiles, ViewFlags& flags, FigureSource* figures = nullptr);

// Addition: the scene as it stands, for a stage that is edited while it is paused: no clock ticks,
// and nothing moves.
void DrawSceneAgain(Engine& engine, TileEngine& tiles, ViewFlags& flags,
                    FigureSource* figures = nullptr);

// Shows the back buffer; a failure to show it is ignored.
void PresentFrame(Engine& engine);

// The same with the information line over it. The line does not stay in the back buffer: drawn over
// itself in each pass its half tones would add up. Addition: it may be longer. Allocates nothing.
void PresentFrame(Engine& engine, std::string_view infoLine, bool additions = false);

}  // namespace scenara
