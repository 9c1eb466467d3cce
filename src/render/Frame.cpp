// SPDX-License-Identifier: MIT
#include "render/Frame.h"

#include "render/Require.h"

namespace scenara {

void DrawScene(Engine& engine, TileEngine& tiles, ViewFlags& flags, FigureSource* figures) {
    Require(engine.Device().BeginScene(), "BeginScene");
    tiles.ClearPicture();
    flags.DrawFrontLayer = 0;
    tiles.TickStage();
    const Figure figure = figures != nullptr ? figures->Next() : Figure();
    tiles.DrawBackground();
    DrawFigure(engine, figure);
    flags.DrawFrontLayer = kByteTrue;
    tiles.DrawBackground();
    Require(engine.Device().EndScene(), "EndScene");
}

void TickScene(TileEngine& tiles, ViewFlags& flags, FigureSource* figures) {
    flags.DrawFrontLayer = 0;
    tiles.TickStage();
    if (figures != nullptr) {
        static_cast<void>(figures->Next());
    }
    tiles.MoveBackground();
    flags.DrawFrontLayer = kByteTrue;
    tiles.MoveBackground();
}

void DrawSceneAgain(Engine& engine, TileEngine& tiles, ViewFlags& flags, FigureSource* figures) {
    Require(engine.Device().BeginScene(), "BeginScene");
    tiles.ClearPicture();
    flags.DrawFrontLayer = 0;
    tiles.DrawAgain();
    DrawFigure(engine, figures != nullptr ? figures->Again() : Figure());
    flags.DrawFrontLayer = kByteTrue;
    tiles.DrawAgain();
    Require(engine.Device().EndScene(), "EndScene");
}

void PresentFrame(Engine& engine) {
    static_cast<void>(engine.Device().Present());
}

void PresentFrame(Engine& engine, std::string_view infoLine) {
    constexpr Integer kLeft = 5;
    constexpr Integer kTop = 5;
    constexpr Integer kWidth = 200;
    constexpr Integer kHeight = 20;
    engine.Keep({kLeft, kTop, kLeft + kWidth, kTop + kHeight});
    engine.Draw_Text(kLeft, kTop, kWidth, kHeight, infoLine, kOpaqueWhite, 0);
    PresentFrame(engine);
    engine.PutBack();
}

}  // namespace scenara
