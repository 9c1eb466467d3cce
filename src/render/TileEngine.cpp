// SPDX-License-Identifier: MIT
#include "render/TileEngine.h"

#include <algorithm>
#include <cstdint>

#include "render/AnimationClock.h"
#include "render/Controllers.h"
#include "render/ElementDrawing.h"
#include "render/ElementPieces.h"
#include "render/ElementPlacement.h"
#include "render/Motion.h"

namespace scenara {
namespace {

std::uint32_t ClearColorOf(const StageModel& model) {
    constexpr std::uint32_t kMagenta = 0xFFFF00FF;
    if (model.debugbg == 1) {
        return kMagenta;
    }
    std::uint32_t color = 0xFF;
    for (const Integer channel : model.bgclearcolor) {
        color = color << 8U | static_cast<std::uint32_t>(std::clamp<Integer>(channel, 0, 255));
    }
    return color;
}

// A dummy moves without a picture, and what is linked to it with it. Nothing else does.
bool MayMove(const StageModel& model, const BackgroundElement& element) {
    return element.kind == ElementKind::Dummy || HasPictures(model, element);
}

}  // namespace

bool BelongsToPass(Integer layerno, bool frontLayer) {
    return frontLayer ? layerno != 0 : layerno < 1;
}

void TileEngine::DrawBackground() {
    Pass(true);
}

void TileEngine::MoveBackground() {
    Pass(false);
}

void TileEngine::Pass(bool draws) {
    if (options_.Additions) {
        PassOnCanvas(draws);
    } else {
        PassPlainly(draws);
    }
    ControlCamera(model_, camera_, StepUnitsOf(model_, view_, options_.Additions), flags_, input_);
}

void TileEngine::PassPlainly(bool draws) {
    const bool follow = HasMoved(model_, camera_);
    const DrawOptions options = OptionsOfPass();
    for (BackgroundElement& element : model_.Elements) {
        if (TakesPart(element)) {
            if (draws) {
                Draw(element, options);
            }
            MovePlainly(element);
        }
        if (follow) {
            FollowCamera(model_, camera_, element);
        }
    }
    camera_.previousX = model_.CamX;
    camera_.previousY = model_.CamY;
}

// Addition: nothing moves until both passes are drawn, what is hidden moves on with the rest, and
// what belongs to both passes moves once.
void TileEngine::PassOnCanvas(bool draws) {
    const DrawOptions options = OptionsOfPass();
    for (const BackgroundElement& element : model_.Elements) {
        if (draws && TakesPart(element)) {
            Draw(element, options);
        }
    }
    if (flags_.DrawFrontLayer == 0) {
        return;
    }
    for (BackgroundElement& element : model_.Elements) {
        if (Drifts(element) && element.enabled != 0 && MayMove(model_, element)) {
            DriftOn(element);
        }
    }
}

void TileEngine::DrawAgain() {
    if (flags_.DrawFrontLayer == 0 && !options_.Additions) {
        NoteLinks(model_);  // their parents have moved on since
    }
    const DrawOptions options = OptionsOfPass();
    for (const BackgroundElement& element : model_.Elements) {
        if (TakesPart(element)) {
            Draw(element, options);
        }
    }
}

void TileEngine::ClearPicture() {
    if (options_.Additions) {
        engine_.Clear(ClearColorOf(model_));
    }
}

void TileEngine::TickStage() {
    if (options_.Additions) {
        camera_.previousX = model_.CamX;
        camera_.previousY = model_.CamY;
    }
    RunControllers(model_, watch_);
    for (BackgroundElement& element : model_.Elements) {
        if (ShowsFrames(element)) {
            TickAnimation(model_, element);
        }
        if (options_.Additions && Swings(element) && element.enabled != 0 &&
            MayMove(model_, element)) {
            SwingWhole(element);
        }
    }
    if (!options_.Additions) {
        NoteLinks(model_);
    }
}

bool TileEngine::TakesPart(const BackgroundElement& element) const {
    return BelongsToPass(element.layerno, flags_.DrawFrontLayer != 0) && element.enabled != 0 &&
           MayMove(model_, element);
}

void TileEngine::Draw(const BackgroundElement& element, const DrawOptions& options) {
    if (element.visible != 0 && MayBeSeen(model_, element, options) && GoesOn()) {
        DrawElement(engine_, model_, element, options);
    }
}

void TileEngine::MovePlainly(BackgroundElement& element) {
    if (element.visible == 0) {
        return;
    }
    if (Drifts(element)) {
        Drift(element);
    }
    if (Swings(element)) {
        SwingOn(element);
    }
}

}  // namespace scenara
