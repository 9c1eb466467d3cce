// SPDX-License-Identifier: MIT
#include "render/Frame.h"

namespace scenara {

void DrawScene(Engine& engine, TileEngine& tiles, ViewFlags& flags, FigureSource* figures) {
    Require(engine.Device().BeginScene(), "BeginScene");
    flags.DrawFrontLayer = 0;
    tiles.TickStage();
    const Figure figure = figures != nullptr ? figures->Next() : Figure();
    tiles.DrawBackground();
    DrawFigure(engine, figure);
    flags.DrawFrontLayer = kByteTrue;
    tiles.DrawBackground();
    Require(engine.Device().EndScene(), "EndScene");
}

void DrawInfoLine(Engine& engine, std::string_view text) {
    engine.Draw_Text(5, 5, 200, 20, text, kOpaqueWhite, 0);
}

void PresentFrame(Engine& engine) {
    static_cast<void>(engine.Device().Present());
}

}  // namespace scenara
