// SPDX-License-Identifier: MIT
//
// Addition: the settings are saved while the program goes on, and not only at its end. The end of a
// session, a display that is lost or a crash would cost them.
#include <utility>

#include "app/frmStage.h"

namespace scenara {
namespace {

// Milliseconds between two looks whether anything has changed.
constexpr std::uint32_t kLookEvery = 100;

}  // namespace

bool frmStage::Form_Idle() {
    bool again = false;
    static_cast<void>(Guarded([&] { ShowStatus(); }));
    static_cast<void>(Guarded([&] { again = KeepSettings(); }));
    static_cast<void>(Guarded([&] { again = FollowFolder() || again; }));
    if (!handles_) {
        // Not while something is asked, over which a box would come up. The loop calls it by
        // itself.
        static_cast<void>(Guarded([&] { again = Rest() || again; }));
    }
    return again;
}

void frmStage::SaveNow() {
    if (!SavesMeanwhile()) {
        return;
    }
    MakeSettingsText();
    MakeExtrasText();
    if (settingsLoaded_) {
        SaveNow(settingsFile_);
    }
    SaveNow(extrasFile_);
}

// A failure is reported by the next look that tries, if there is one. A box would hold up whoever
// waits for this.
void frmStage::SaveNow(KeptFile& file) {
    static_cast<void>(FailureOf([&] {
        if (file.keeper.IsNew(file.text) || file.savingFailed) {
            Write(file);
            file.keeper.Hold(file.text);
            file.savingFailed = false;
        }
    }));
}

void frmStage::Write(const KeptFile& file) {
    if (&file == &settingsFile_) {
        WriteConfigText(machine_.files, file.text);
    } else {
        SaveExtras(machine_.files, extras_);
    }
}

// The settings as they are now.
void frmStage::MakeSettingsText() {
    CameraSteps steps = show_.UsersSteps();
    MakeConfigText(AllSettings(steps), VersionText, settingsFile_.text);
}

void frmStage::MakeExtrasText() {
    scenara::MakeExtrasText(AllExtras(), extrasFile_.text);
}

const Extras& frmStage::AllExtras() {
    extras_.Additions = form_[Menu::mnuAdditions].checked;
    extras_.Smooth = form_[Menu::mnuSmooth].checked;
    extras_.WholeMultiplesOnly = form_[Menu::mnuWholeMultiples].checked;
    extras_.SwitchDisplayMode = form_[Menu::mnuSwitchMode].checked;
    NoteStand();
    return extras_;
}

// With additions, once the window is there, and while nothing covers it.
void frmStage::NoteStand() {
    if (show_.Options().Additions && activated_ && !centres_ && FullScreenState == 0) {
        PutStand(extras_, machine_.window.Stand());
    }
}

// Whether another look is due though nothing happens until then.
bool frmStage::KeepSettings() {
    if (!SavesMeanwhile()) {
        return false;
    }
    const Long now = machine_.clock.GetTickCount();
    if (TicksSince(lastLook_, now) < kLookEvery) {
        return true;
    }
    lastLook_ = now;
    MakeSettingsText();
    MakeExtrasText();
    bool waits = false;
    for (KeptFile* const file : {&settingsFile_, &extrasFile_}) {
        if (file == &settingsFile_ && !settingsLoaded_) {
            continue;
        }
        if (file->keeper.IsDue(file->text, now)) {
            SaveChanges(*file);
        }
        waits = waits || file->keeper.Waits();
    }
    return waits;
}

// What cannot be saved is reported once, until something could be; it is tried again with the next
// change, and at the end.
void frmStage::SaveChanges(KeptFile& file) {
    const std::optional<std::string> failure = FailureOf([&] { Write(file); });
    file.keeper.Hold(file.text);
    const bool reported = std::exchange(file.savingFailed, failure.has_value());
    if (failure && !reported) {
        SayRunTimeError(*failure);
    }
}

}  // namespace scenara
