// SPDX-License-Identifier: MIT
//
// The size of the window, and where its controls stand.
#include <algorithm>
#include <utility>

#include "app/frmStage.h"

namespace scenara {

// Sized and centred when the window first comes up and when it is back from the full screen: doing
// so at each change of focus would undo what the user did.
void frmStage::Form_Activate() {
    Handle([&] {
        if (!std::exchange(activated_, true)) {
            SizeForPicture();
            centres_ = true;
        }
    });
}

void frmStage::Form_Resize(Long innerWidth, Long innerHeight) {
    Handle([&] {
        LayOutControls(innerWidth, innerHeight);
        if (Browses()) {
            browser_.BoxChanged();
        }
        if (std::exchange(centres_, false)) {
            Centre();
        }
    });
}

void frmStage::LayOutControls(Long innerWidth, Long innerHeight) {
    wishedSize_ = {innerWidth, innerHeight};
    form_.innerWidth = innerWidth;
    form_.innerHeight = innerHeight;
    const Long listWidth = ListWidth();
    form_.picDraw.width = innerWidth > listWidth ? innerWidth - listWidth : 0;
    form_.picDraw.height = innerHeight;
    if (ShowStageList != 0) {
        form_.lstStages.left = form_.picDraw.width;
        form_.lstStages.height = innerHeight;
    }
    form_.lstStages.visible = ShowStageList != 0;
}

// A window that is narrower than its list would lose more than it has.
void frmStage::Size(Long width, Long height) {
    wishedSize_ = {std::max<Long>(width, 0), height};
    machine_.window.Size(wishedSize_.width, wishedSize_.height);
}

// The view at its own size, beside the list where that is shown.
void frmStage::SizeForPicture() {
    const InnerSize view = machine_.window.RoomFor(CanvasSize());
    MakeRoom(view.width, view.height);
}

void frmStage::Centre() {
    const ScreenSize screen = machine_.window.Screen();
    const WindowPlace place = machine_.window.Place();
    machine_.window.MoveTo((screen.width - place.width) / 2, (screen.height - place.height) / 2);
}

void frmStage::SetCaption(const std::string& caption) {
    noted_ = false;
    form_.Caption = caption;
    machine_.window.SetCaption(caption);
}

// A second click may come before the first one's size has.
void frmStage::mnuStageList_Click() {
    ShowStageList = static_cast<Byte>(~ShowStageList);
    const Long listWidth = form_.lstStages.width;
    Size(wishedSize_.width + (ShowStageList != 0 ? listWidth : -listWidth), wishedSize_.height);
}

}  // namespace scenara
