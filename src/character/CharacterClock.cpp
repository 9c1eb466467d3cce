// SPDX-License-Identifier: MIT
#include "character/CharacterClock.h"

#include <cstddef>

namespace scenara {
namespace {

// The frame behind `frame`; true when that is behind the last one.
bool Advance(const CharAction& action, std::size_t& frame) {
    if (++frame < action.frames.size()) {
        return false;
    }
    const auto loop = static_cast<std::size_t>(action.LoopStart > 0 ? action.LoopStart : 0);
    frame = loop < action.frames.size() ? loop : 0;
    return true;
}

}  // namespace

void StartAction(TestCharacter& character) {
    const CharAction& action = character.ActionIn(character.Action);
    character.Frame = 0;
    character.FrameTime = action.frames.empty() ? Integer{0} : action.frames.front().time;
}

const CharFrame* TickCharacter(TestCharacter& character, bool& turning) {
    const CharAction& action = character.ActionIn(character.Action);
    const std::size_t count = action.frames.size();
    if (count == 0) {
        turning = false;
        return nullptr;
    }
    auto frame = static_cast<std::size_t>(character.Frame < 0 ? 0 : character.Frame);
    if (frame >= count) {
        frame = 0;
    }
    std::size_t shown = frame;
    if (character.FrameTime < 1 && action.frames[frame].time >= 0) {
        for (std::size_t tried = 0; tried < count; ++tried) {
            const bool wrapped = Advance(action, frame);
            if (turning && wrapped) {
                turning = false;
                shown = count - 1;
                break;
            }
            shown = frame;
            if (action.frames[frame].time != 0) {
                break;  // frames of no time are passed over, at most once round
            }
        }
        character.FrameTime = action.frames[frame].time;
    }
    character.Frame = static_cast<Integer>(frame);
    if (character.FrameTime > 0) {
        --character.FrameTime;
    } else if (action.frames[frame].time < 0) {
        turning = false;
    }
    return &action.frames[shown];
}

}  // namespace scenara
