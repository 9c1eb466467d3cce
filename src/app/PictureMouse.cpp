// SPDX-License-Identifier: MIT
//
// The mouse over the picture, beyond the left button's drags; additions.
#include "app/MenuTree.h"
#include "app/frmStage.h"

namespace scenara {

// Not where the button picks elements, or sprites.
void frmStage::Form_DblClick() {
    Handle([this] {
        if (show_.CanMoveCamera() && !form_[Menu::mnuDebugBG].checked &&
            CanBeChosen(form_, Menu::mnuFS)) {
            mnuFS_Click();
        }
    });
}

void frmStage::Form_MouseScroll(Long across, Long down) {
    Handle([&] { show_.StepCamera(across, down); });
}

void frmStage::Form_MiddleDown(Long x, Long y) {
    Handle([&] { panning_.Begin({x, y}, IsFullScreen()); });
}

void frmStage::Form_MiddleMove(Long x, Long y) {
    Handle([&] { panning_.Move({x, y}, IsFullScreen()); });
}

void frmStage::Form_MiddleUp() {
    Handle([this] { panning_.End(); });
}

}  // namespace scenara
