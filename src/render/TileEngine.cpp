// SPDX-License-Identifier: MIT
#include "render/TileEngine.h"

#include "render/AnimationClock.h"
#include "render/Controllers.h"
#include "render/ElementDrawing.h"
#include "render/ElementPieces.h"
#include "render/ElementPlacement.h"
#include "render/Motion.h"

namespace scenara {

bool BelongsToPass(Integer layerno, bool frontLayer) {
    return frontLayer ? layerno != 0 : layerno < 1;
}

void TileEngine::DrawBackground() {
    const bool follow = HasMoved(model_, camera_);
    for (BackgroundElement& element : model_.Elements) {
        if (TakesPart(element)) {
            Draw(element);
            if (Moves(element)) {
                MoveDrawn(element);
            }
        }
        if (follow) {
            FollowCamera(model_, camera_, element);
        }
    }
    camera_.previousX = model_.CamX;
    camera_.previousY = model_.CamY;
    ControlCamera(model_, camera_, flags_, input_);
}

void TileEngine::DrawAgain() {
    if (flags_.DrawFrontLayer == 0) {
        NoteLinks(model_);  // their parents have moved on since
    }
    for (const BackgroundElement& element : model_.Elements) {
        if (TakesPart(element)) {
            Draw(element);
        }
    }
}

void TileEngine::TickStage() {
    RunControllers(model_, watch_);
    for (BackgroundElement& element : model_.Elements) {
        if (element.kind == ElementKind::Animated) {
            TickAnimation(model_, element);
        }
    }
    NoteLinks(model_);
}

// A dummy takes part without a picture: it moves, and what is linked to it with it.
bool TileEngine::TakesPart(const BackgroundElement& element) const {
    return BelongsToPass(element.layerno, flags_.DrawFrontLayer != 0) && element.visible != 0 &&
           element.enabled != 0 &&
           (element.kind == ElementKind::Dummy || HasPictures(model_, element));
}

void TileEngine::Draw(const BackgroundElement& element) {
    if (MayBeSeen(model_, element, view_) && GoesOn()) {
        DrawElement(engine_, model_, element, {options_.Additions, flags_.Deform != 0, view_});
    }
}

}  // namespace scenara
