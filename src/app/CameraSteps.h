// SPDX-License-Identifier: MIT
//
// CameraSteps: the user's own steps of the camera, while mouse scrolling or the test character sets
// them. Both share the save slots: whoever comes first saves, and QX.CFG gets what is saved.
#pragma once

#include "character/TestCharState.h"
#include "render/Camera.h"
#include "render/ViewFlags.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara {

// The steps as they are kept meanwhile.
struct SavedSteps {
    Single HCamStep = 0;
    Single VCamStep = 0;
};

// Whether something else than the user sets the camera's steps; the user's are saved then.
[[nodiscard]] bool StepsAreOverridden(const TestCharState& state, const ViewFlags& flags);

// The user's own.
[[nodiscard]] SavedSteps UsersSteps(const Camera& camera, const SavedSteps& saved,
                                    const TestCharState& state, const ViewFlags& flags);

// A step of 0 is one that was never set.
[[nodiscard]] inline Single StepOrOne(Single step) {
    return step == 0 ? Single{1} : step;
}

// Before the steps change. Addition: plain, the elements follow the camera's last move by the step
// that is new then.
void SettleSteps(StageModel& model, Camera& camera, const ViewOptions& options);

}  // namespace scenara
