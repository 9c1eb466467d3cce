// SPDX-License-Identifier: MIT
//
// StageStart: from a stage file to a stage that is ready for its first frame.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "app/CameraSteps.h"
#include "app/LoopState.h"
#include "platform/Form.h"
#include "platform/Keyboard.h"
#include "render/Camera.h"
#include "stage/LoadStage.h"
#include "stage/StageModel.h"

namespace scenara {

struct TestCharContext;

// What a start works on; all of it outlives the call.
struct StageStartContext {
    StageModel& model;
    Camera& camera;
    SavedSteps& savedSteps;
    LoopState& loop;
    ScrollBar& hscHScroll;
    Keyboard& keyboard;
    const LoadStageContext& load;
    // Where the camera stood when the same stage was shown before.
    std::optional<CameraPlace> keptCamera{};
    // Run between the loading and the first placing: the full screen again, where that is on.
    std::function<void()> loaded{};
    const TestCharContext* character = nullptr;  // the test character, where there can be one
};

// Loads the stage at `stageFile` and prepares it: camera, elements, scroll bar, the test character
// where it is on. StageRunning tells whether it can be shown; when not, that has been said. Steps
// of 0 become 1, and the saved ones with them. While it loads, LoadingStage is 1.
//
// Raises what the loading and the preparation raise; then the flags are as they were half-way.
void StartStage(std::string& stageFile, const StageStartContext& context);

}  // namespace scenara
