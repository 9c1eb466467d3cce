// SPDX-License-Identifier: MIT
//
// The sprite browser, as the window drives it.
#include "app/frmStage.h"

namespace scenara {

void frmStage::mnuDebug_Click() {
    if (show_.SpriteBrowserMode != 0) {
        LeaveBrowser();
        ShowTitle();
    } else {
        ResetRes();  // what covers the window would show the last picture for ever
        browser_.mnuDebug_Click();
    }
    StateChanged();
}

void frmStage::LeaveBrowser() {
    if (show_.SpriteBrowserMode != 0) {
        browser_.mnuDebug_Click();
        show_.ForgetKeys();
    }
}

void frmStage::Zoom(ZoomStep step) {
    if (Browses()) {
        browser_.Zoom(step);
    } else {
        show_.Zoom(step);
    }
}

void frmStage::Form_MouseWheel(Long notches, Long x, Long y) {
    Handle([&] {
        if (Browses()) {
            browser_.Wheel(notches, x, y);
        }
    });
}

void frmStage::MoveSpriteBar(Long value, const std::function<void()>& show) {
    Handle([&] {
        if (Browses()) {
            form_.hscSGFX.Value = value;
            show();
        }
    });
}

// The camera's bar goes first: it would count as something around the picture.
InnerSize frmStage::LargestPicture() {
    ShowEditing();
    const InnerSize most = machine_.window.LargestInnerSize();
    return {most.width - ListWidth(), most.height};
}

}  // namespace scenara
