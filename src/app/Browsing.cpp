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
}

void frmStage::LeaveBrowser() {
    if (show_.SpriteBrowserMode != 0) {
        browser_.mnuDebug_Click();
        show_.ForgetKeys();
    }
}

void frmStage::hscSGFX_Change(Long value) {
    MoveSpriteBar(value, [this] { browser_.hscSGFX_Change(); });
}

void frmStage::hscSGFX_Scroll(Long value) {
    MoveSpriteBar(value, [this] { browser_.hscSGFX_Scroll(); });
}

void frmStage::MoveSpriteBar(Long value, const std::function<void()>& show) {
    Handle([&] {
        if (show_.State() == ShowState::Browsing) {
            form_.hscSGFX.Value = value;
            show();
        }
    });
}

// The list beside the picture keeps its room.
void frmStage::BrowserView::Size(Long width, Long height) {
    program_.Size(width + program_.ListWidth(), height);
}

void frmStage::BrowserView::ShowPicture(const BrowserPicture& picture) {
    program_.machine_.window.ShowPicture(picture.width, picture.height, picture.pixels);
}

// The camera's bar goes first: it would count as something around the picture.
BrowserWindow::Extent frmStage::BrowserView::LargestPicture() const {
    program_.ShowEditing();
    const InnerSize most = program_.machine_.window.LargestInnerSize();
    return {most.width - program_.ListWidth(), most.height};
}

}  // namespace scenara
