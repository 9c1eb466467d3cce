// SPDX-License-Identifier: MIT
//
// How a stage is released, and how the program ends.
#include "app/frmStage.h"

namespace scenara {

void frmStage::UnloadStuff() {
    // Addition: whatever plays, it ends with the stage that it was heard in.
    const bool silences = !show_.Model().MusicFile.empty() || show_.Options().Additions;
    show_.Release();
    ShowEditing();
    if (silences) {
        music_.StopPlaying();
    }
}

void frmStage::Form_Unload() {
    machine_.window.RequestEnd();
    QuitRequested = kTrue;
    show_.Which.next.reset();
    if (ended_) {
        return;
    }
    if (show_.State() == ShowState::Loading) {
        return;  // the load works on the tables; RunStage comes back here after it
    }
    ended_ = true;
    // Whatever goes wrong, the settings are saved.
    static_cast<void>(Guarded([&] {
        if (!show_.Which.CurrentStageFile.empty()) {
            UnloadStuff();
        }
    }));
    static_cast<void>(Guarded([&] {
        if (imageSets_.loaded) {
            ReleaseImageSurfaces(imageSets_);
        }
    }));
    if (settingsLoaded_) {
        static_cast<void>(Guarded([&] {
            MakeSettingsText();
            Write(settingsFile_);
        }));
    }
    if (show_.Options().Additions) {
        static_cast<void>(Guarded([&] {
            MakeExtrasText();
            Write(extrasFile_);
        }));
    }
}

}  // namespace scenara
