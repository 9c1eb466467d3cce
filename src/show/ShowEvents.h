// SPDX-License-Identifier: MIT
//
// ShowEvents: what a StageShow tells whoever shows it. Each may be left out.
#pragma once

#include <string>

#include "base/NotCopied.h"

namespace scenara {

class ShowEvents : NotCopied {
public:
    virtual ~ShowEvents() = default;

    // State() answers something else now, before anything happens in that state. Raises nothing.
    virtual void StateChanged() {}

    // How far the camera goes: of a stage that was loaded, or at another zoom.
    virtual void CameraRangeChanged() {}

    // Asked while a stage loads, after each of its sprites: whether it is not wanted any more. The
    // start ends then, and answers that there is no stage.
    [[nodiscard]] virtual bool LoadGivenUp() { return false; }
    // The stage's files are read; nothing of it is placed yet.
    virtual void StageLoaded() {}
    // The stage is ready but for its character, which is read next.
    virtual void CharacterFollows() {}
    // The path of the stage's music, while it loads.
    virtual void MusicNamed(const std::string& /*path*/) {}

    // A caption while a character loads, and the end of it: the caption from before comes back.
    virtual void ShowProgress(const std::string& /*caption*/) {}
    virtual void EndProgress() {}

    // The debug editor has something to tell in the caption, or wants the dump to be written.
    virtual void Tell(const std::string& /*caption*/) {}
    virtual void WriteDump() {}

    // The frame at hand shows that the stage is too heavy. More events may be called in it.
    virtual void TooHeavy() {}
};

}  // namespace scenara
