// SPDX-License-Identifier: MIT
//
// How a stage is released, and how the program ends.
#include "app/frmStage.h"

namespace scenara {

void frmStage::UnloadStuff() {
    loop_.StageRunning = 0;
    editor_.Clear();
    ShowEditing();
    // Addition: whatever plays, it ends with the stage that it was heard in.
    if (!model_.MusicFile.empty() || options_.Additions) {
        music_.StopPlaying();
    }
    ReleaseTestChar(testChar_);
    for (SpriteEntry& sprite : model_.Sprites) {
        sprite.texture.reset();
    }
    engine_.Engine_Deinit();
    model_.Clear();
    loop_.TotalFrames = 0;
}

void frmStage::Form_Unload() {
    machine_.window.RequestEnd();
    QuitRequested = kTrue;
    restart_ = false;
    if (ended_) {
        return;
    }
    if (loop_.LoadingStage != 0) {
        return;  // the load works on the tables; RunStage comes back here behind it
    }
    ended_ = true;
    // Whatever goes wrong, the settings are saved.
    static_cast<void>(Guarded([&] {
        if (!CurrentStageFile.empty()) {
            UnloadStuff();
        }
    }));
    static_cast<void>(Guarded([&] {
        if (imageSets_.loaded) {
            ReleaseImageSurfaces(imageSets_);
        }
    }));
    if (settingsLoaded_) {
        SavedSteps steps = UsersSteps(camera_, savedSteps_, testChar_, flags_);
        static_cast<void>(
            Guarded([&] { SaveConfig(AllSettings(steps), VersionText, machine_.files); }));
    }
}

}  // namespace scenara
