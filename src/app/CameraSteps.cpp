// SPDX-License-Identifier: MIT
#include "app/CameraSteps.h"

#include "render/Motion.h"

namespace scenara {

bool StepsAreOverridden(const TestCharState& state, const ViewFlags& flags) {
    return state.StepsOverridden || flags.MouseScroll != 0;
}

SavedSteps UsersSteps(const Camera& camera, const SavedSteps& saved, const TestCharState& state,
                      const ViewFlags& flags) {
    return StepsAreOverridden(state, flags) ? saved : SavedSteps{camera.HCamStep, camera.VCamStep};
}

void SettleSteps(StageModel& model, Camera& camera, const ViewOptions& options) {
    if (options.Additions) {
        SettleCamera(model, camera);
    }
}

}  // namespace scenara
