// SPDX-License-Identifier: MIT
#include "render/AnimationClock.h"

#include <algorithm>

#include "stage/ModelLookup.h"

namespace scenara {

std::size_t LoopStart(const StageAction& action) {
    const bool valid =
        action.loopstart >= 0 && static_cast<std::size_t>(action.loopstart) < action.frames.size();
    return valid ? static_cast<std::size_t>(action.loopstart) : 0;
}

void ResolveFrames(StageAction& action) {
    const std::size_t count = action.frames.size();
    const std::size_t loop = LoopStart(action);
    const auto takesTime = [](const StageFrame& frame) { return frame.time != 0; };
    const auto inLoop = std::find_if(action.frames.begin() + static_cast<std::ptrdiff_t>(loop),
                                     action.frames.end(), takesTime);
    const bool endless = inLoop == action.frames.end();
    auto next = static_cast<std::size_t>(inLoop - action.frames.begin());
    for (std::size_t i = count; i > 0; --i) {
        StageFrame& frame = action.frames[i - 1];
        frame.flips = FlipOf(frame.flip);
        // Where none takes time once round is enough: as many frames as the action has.
        frame.next =
            static_cast<Integer>(next == count && endless ? loop + (i - 1) % (count - loop) : next);
        if (takesTime(frame)) {
            next = i - 1;
        }
    }
}

void TickAnimation(const StageModel& model, BackgroundElement& element) {
    if (!ShowsFrames(element) || element.enabled == 0) {
        return;
    }
    const StageAction* const action = ActionOf(model, element);
    if (action == nullptr) {
        return;
    }
    const StageFrame& frame = RecordAt(action->frames, element.frameIndex, "frame");
    if (frame.time < 0) {
        return;
    }
    if (element.frameTime < 1) {
        element.frameIndex = frame.next;
        element.frameTime = RecordAt(action->frames, frame.next, "frame").time;
        if (element.frameTime < 0) {
            return;
        }
    }
    --element.frameTime;
}

}  // namespace scenara
