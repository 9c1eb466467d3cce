// SPDX-License-Identifier: MIT
//
// The full screen: the picture on a form of its own. Plain, the display is in a mode as large as
// the canvas. Addition: it stays as it is, unless the user wants it to be switched.
#include <cstddef>

#include "app/frmStage.h"

namespace scenara {

void frmStage::mnuFS_Click() {
    if (!form_[Menu::mnuFS].Flip()) {
        // The flag alone would leave the form standing over everything, with no way back.
        ResetRes();
        return;
    }
    if (show_.Loop().StageRunning == 0) {
        return;
    }
    if (show_.SpriteBrowserMode != 0) {
        mnuDebug_Click();  // the full screen shows the stage and nothing else
    }
    screen_.Enumerate();
    const Integer mode = ModeOfFullScreen();
    if (mode == kNoMode && !show_.Options().Additions) {
        return;  // the item stays checked
    }
    if (FullScreenState == 0) {
        savedMode_ = screen_.CurrentMode();
        savedSettings_ = machine_.display.Current();
    }
    // Addition: where the display stays as it is, so does the window.
    const bool stays =
        show_.Options().Additions &&
        (mode == kNoMode || screen_.Modes()[static_cast<std::size_t>(mode)].emulated);
    FullScreenWindow = machine_.fullScreen.Show(stays ? FullScreenForm::Beneath::Stays
                                                      : FullScreenForm::Beneath::Hides);
    const WindowPlace size = machine_.window.Screen();
    ScreenWidth = size.width / kUnitsPerPixel;
    ScreenHeight = size.height / kUnitsPerPixel;
    if (mode != kNoMode) {
        static_cast<void>(screen_.SwitchTo(mode));
    } else if (FullScreenState == 1) {
        BringModeBack();  // a smaller canvas had one
    }
    FullScreenState = 1;
    show_.Flags().Unframed = kByteTrue;
}

// kNoMode: the display stays as it is.
Integer frmStage::ModeOfFullScreen() const {
    const CanvasSize canvas = show_.Picture().Canvas();
    if (!show_.Options().Additions) {
        return screen_.Find(FullScreenMode(canvas));
    }
    return form_[Menu::mnuSwitchMode].checked ? screen_.FindRoomFor(canvas) : kNoMode;
}

void frmStage::BringModeBack() {
    if (screen_.CurrentMode() != savedMode_ && !screen_.SwitchTo(savedMode_)) {
        static_cast<void>(machine_.display.ChangeDisplaySettings(savedSettings_));
    }
}

void frmStage::ResetRes() {
    if (FullScreenState != 1) {
        return;
    }
    BringModeBack();
    machine_.fullScreen.Hide();
    machine_.window.Show();
    SizeForPicture();
    form_[Menu::mnuFS].checked = false;
    FullScreenState = 0;
    show_.Flags().Unframed = 0;
    if (!show_.Options().Additions) {
        activated_ = false;  // the window is sized and centred anew when it is back
    }
}

bool frmStage::IsFormLoaded(std::string_view name) const {
    return name == "frmStage" ? !ended_ : name == "frmFS" && FullScreenState == 1;
}

// Another program has the user's attention.
void frmStage::LeaveFullScreenWithFocus() {
    if (FullScreenState == 1 && machine_.window.Foreground() != FullScreenWindow) {
        ResetRes();
    }
}

}  // namespace scenara
