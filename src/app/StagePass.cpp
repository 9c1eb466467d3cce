// SPDX-License-Identifier: MIT
#include "app/StagePass.h"

#include "app/FrameRate.h"
#include "render/Frame.h"

namespace scenara {

bool DrawAndCount(const StagePass& pass) {
    CharacterFigures figures(pass.character, pass.model);
    DrawScene(pass.engine, pass.tiles, pass.flags, &figures);
    CountFrame(pass.loop);
    if (!SecondIsOver(pass.loop, pass.clock)) {
        return false;
    }
    LimitFrameCount(pass.loop);
    if (pass.info) {
        pass.InfoText = InfoLine(pass.model.CamX, pass.model.CamY, pass.loop.FrameCount);
    }
    BeginSecond(pass.loop, pass.clock);
    return true;
}

void DrawAgain(const StagePass& pass) {
    CharacterFigures figures(pass.character, pass.model);
    DrawSceneAgain(pass.engine, pass.tiles, pass.flags, &figures);
}

void ShowPicture(const StagePass& pass) {
    if (pass.info) {
        PresentFrame(pass.engine, pass.InfoText);
    } else {
        PresentFrame(pass.engine);
    }
}

}  // namespace scenara
