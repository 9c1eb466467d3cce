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

void PresentFrame(Engine& engine, std::string_view infoLine, bool additions) {
    const auto length = [&](Long designed) {
        return static_cast<Integer>(engine.InText(designed));
    };
    const Integer left = length(5);
    const Integer top = length(5);
    const Integer width = length(additions ? kMostKept.x : kPlainInfoWidth);
    const Integer height = length(kMostKept.y);
    engine.Keep({left, top, left + width, top + height});
    engine.Draw_Text(left, top, width, height, infoLine, kOpaqueWhite, 0);
    PresentFrame(engine);
    engine.PutBack();
}

}  // namespace scenara
