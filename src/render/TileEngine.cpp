// SPDX-License-Identifier: MIT
#include "render/TileEngine.h"

#include "render/AnimationClock.h"
#include "render/Controllers.h"
#include "render/ElementDrawing.h"
#include "render/ElementPlacement.h"
#include "render/Motion.h"

namespace scenara {

bool BelongsToPass(Integer layerno, bool frontLayer) {
    return frontLayer ? layerno != 0 : layerno < 1;
}

void TileEngine::DrawBackground() {
    const bool front = flags_.DrawFrontLayer != 0;
    for (BackgroundElement& element : model_.Elements) {
        if (BelongsToPass(element.layerno, front)) {
            DrawSelected(element);
        }
        FollowCamera(model_, camera_, element);
    }
    camera_.previousX = model_.CamX;
    camera_.previousY = model_.CamY;
    ControlCamera(model_, camera_, flags_, input_);
}

void TileEngine::TickStage() {
    RunControllers(model_);
    for (BackgroundElement& element : model_.Elements) {
        TickAnimation(model_, element);
    }
    NoteLinks(model_);
}

void TileEngine::DrawSelected(BackgroundElement& element) {
    // A dummy takes part without a picture: it moves, and what is linked to it with it.
    if (element.visible == 0 || element.enabled == 0 ||
        (element.kind != ElementKind::Dummy && !HasPictures(model_, element))) {
        return;
    }
    if (GoesOn()) {
        DrawElement(engine_, model_, element, {options_.Additions, flags_.Deform != 0});
    }
    MoveDrawn(element);
}

}  // namespace scenara
