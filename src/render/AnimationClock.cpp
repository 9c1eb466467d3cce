// SPDX-License-Identifier: MIT
#include "render/AnimationClock.h"

#include "render/ModelLookup.h"

namespace scenara {
namespace {

Integer FrameAfter(const StageAction& action, Integer frameIndex) {
    const std::size_t next = static_cast<std::size_t>(frameIndex) + 1;
    if (next < action.frames.size()) {
        return static_cast<Integer>(next);
    }
    const bool valid =
        action.loopstart >= 0 && static_cast<std::size_t>(action.loopstart) < action.frames.size();
    return valid ? action.loopstart : Integer{0};
}

}  // namespace

void TickAnimation(const StageModel& model, BackgroundElement& element) {
    if (element.kind != ElementKind::Animated || element.enabled == 0) {
        return;
    }
    const StageAction* const action = ActionOf(model, element);
    if (action == nullptr || RecordAt(action->frames, element.frameIndex, "frame").time < 0) {
        return;
    }
    if (element.frameTime < 1) {
        // Once round at most, should all of them have time 0.
        for (std::size_t tries = 0; tries < action->frames.size(); ++tries) {
            element.frameIndex = FrameAfter(*action, element.frameIndex);
            element.frameTime = action->frames[static_cast<std::size_t>(element.frameIndex)].time;
            if (element.frameTime != 0) {
                break;
            }
        }
        if (element.frameTime < 0) {
            return;
        }
    }
    --element.frameTime;
}

}  // namespace scenara
