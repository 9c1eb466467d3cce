// SPDX-License-Identifier: MIT
//
// What the menu items do.
#include "app/frmStage.h"

namespace scenara {

void frmStage::Menu_Click(Menu item) {
    static_cast<void>(Guarded([&] {
        switch (item) {
            case Menu::mnuPause: mnuPause_Click(); break;
            case Menu::mnuInfo: mnuInfo_Click(); break;
            case Menu::mnuExit: Form_Unload(); break;
            default: break;
        }
    }));
}

void frmStage::mnuPause_Click() {
    MenuItem& item = form_[Menu::mnuPause];
    item.checked = !item.checked;
    Paused = static_cast<Byte>(~Paused);
    SetCaption(Paused != 0 ? model_.StageTitle + " <<PAUSED>>" : model_.StageTitle);
}

void frmStage::mnuInfo_Click() {
    MenuItem& item = form_[Menu::mnuInfo];
    item.checked = !item.checked;
}

}  // namespace scenara
