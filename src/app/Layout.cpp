// SPDX-License-Identifier: MIT
//
// The size of the window, and where its controls stand.
#include <algorithm>

#include "app/frmStage.h"

namespace scenara {

// Sized and centred when the window first comes up and when it is back from the full screen: doing
// so at each change of focus would undo what the user did.
void frmStage::Form_Activate() {
    Handle([&] {
        if (activated_) {
            return;
        }
        activated_ = true;
        if (ShowStageList == 0) {
            Size(kViewWidth, kViewHeight);
        } else {
            ShowStageList = 0;
            mnuStageList_Click();
            Size(form_.lstStages.width + kViewWidth, kViewHeight);
        }
        Centre();
    });
}

void frmStage::Form_Resize(Long innerWidth, Long innerHeight) {
    Handle([&] { LayOutControls(innerWidth, innerHeight); });
}

void frmStage::LayOutControls(Long innerWidth, Long innerHeight) {
    form_.innerWidth = innerWidth;
    form_.innerHeight = innerHeight;
    const Long listWidth = ShowStageList != 0 ? form_.lstStages.width : 0;
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
    const Long innerWidth = std::max<Long>(width, 0);
    machine_.window.Size(innerWidth, height);
    LayOutControls(innerWidth, height);
}

void frmStage::Centre() {
    const ScreenSize screen = machine_.window.Screen();
    const WindowPlace place = machine_.window.Place();
    machine_.window.MoveTo((screen.width - place.width) / 2, (screen.height - place.height) / 2);
}

void frmStage::SetCaption(const std::string& caption) {
    form_.Caption = caption;
    machine_.window.SetCaption(caption);
}

void frmStage::mnuStageList_Click() {
    ShowStageList = static_cast<Byte>(~ShowStageList);
    const Long height = form_.innerHeight;
    if (ShowStageList != 0) {
        form_.lstStages.top = 0;
        form_.lstStages.height = form_.picDraw.height;
        Size(form_.innerWidth + form_.lstStages.width, height);
    } else {
        Size(form_.innerWidth - form_.lstStages.width, height);
        form_.lstStages.height = form_.picDraw.height;
    }
}

}  // namespace scenara
