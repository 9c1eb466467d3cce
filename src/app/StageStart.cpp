// SPDX-License-Identifier: MIT
#include "app/StageStart.h"

#include "app/KeyStates.h"
#include "app/TestChar.h"
#include "render/PrepareStage.h"
#include "render/TilePatterns.h"

namespace scenara {
namespace {

constexpr Single kFirstStep = 1;

void EnsureStep(Single& step, Single& saved) {
    if (step == 0) {
        step = kFirstStep;
        saved = kFirstStep;
    }
}

}  // namespace

void StartStage(std::string& stageFile, const StageStartContext& context) {
    EnsureStep(context.camera.HCamStep, context.savedSteps.HCamStep);
    EnsureStep(context.camera.VCamStep, context.savedSteps.VCamStep);

    context.loop.LoadingStage = 1;
    context.loop.StageRunning = 1;
    if (!LoadStage(context.model, stageFile, context.load)) {
        context.loop.StageRunning = 0;
        return;
    }
    context.hscHScroll.Max = context.model.BoundRight;
    context.hscHScroll.Min = context.model.BoundLeft;

    if (context.loaded) {
        context.loaded();
    }
    DiscardKeyStates(context.keyboard);
    if (context.keptCamera) {
        PlaceCamera(context.model, context.camera, *context.keptCamera);
    } else {
        PlaceCamera(context.model, context.camera);
    }
    PrepareElements(context.model, context.load.options);
    MakeTilePatterns(context.model, context.load.options, context.load.device);
    if (context.character != nullptr) {
        StartTestChar(*context.character);
    }
    context.loop.LoadingStage = 0;
}

}  // namespace scenara
