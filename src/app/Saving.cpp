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
    static_cast<void>(Guarded([&] { again = KeepSettings(); }));
    return again;
}

void frmStage::SaveNow() {
    if (!SavesMeanwhile()) {
        return;
    }
    // A failure is reported by the next look that tries, if there is one. A box would hold up
    // whoever waits for this.
    static_cast<void>(FailureOf([this] {
        MakeSettingsText();
        if (keeper_.IsNew(settingsText_) || savingFailed_) {
            WriteConfigText(machine_.files, settingsText_);
            keeper_.Hold(settingsText_);
            savingFailed_ = false;
        }
    }));
}

// The settings as they are now, in settingsText_.
void frmStage::MakeSettingsText() {
    CameraSteps steps = show_.UsersSteps();
    MakeConfigText(AllSettings(steps), VersionText, settingsText_);
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
    if (keeper_.IsDue(settingsText_, now)) {
        SaveChanges();
    }
    return keeper_.Waits();
}

// What cannot be saved is reported once, until something could be; it is tried again with the next
// change, and at the end.
void frmStage::SaveChanges() {
    const std::optional<std::string> failure =
        FailureOf([this] { WriteConfigText(machine_.files, settingsText_); });
    keeper_.Hold(settingsText_);
    const bool reported = std::exchange(savingFailed_, failure.has_value());
    if (failure && !reported) {
        SayRunTimeError(*failure);
    }
}

}  // namespace scenara
