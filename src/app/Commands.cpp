// SPDX-License-Identifier: MIT
//
// What the menu items and the keys do, beyond choosing stages.
#include "app/Extras.h"
#include "app/MenuTree.h"
#include "app/frmStage.h"
#include "base/NumberText.h"

namespace scenara {
namespace {

void Flip(MenuItem& item) {
    item.checked = !item.checked;
}

}  // namespace

void frmStage::Menu_Click(Menu item) {
    if (!CanBeChosen(form_, item)) {
        return;  // chosen just before it was disabled
    }
    Handle([&] {
        switch (item) {
            case Menu::mnuOpen: mnuOpen_Click(); break;
            case Menu::mnuClose: mnuClose_Click(); break;
            case Menu::mnuReload: mnuReload_Click(); break;
            case Menu::mnuExit: Form_Unload(); break;
            case Menu::mnuFS: mnuFS_Click(); break;
            case Menu::mnuMusic: mnuMusic_Click(); break;
            case Menu::mnuChar: mnuChar_Click(); break;
            case Menu::mnuChange: mnuChange_Click(); break;
            case Menu::mnuFPS: mnuFPS_Click(); break;
            case Menu::mnuMScroll: mnuMScroll_Click(); break;
            case Menu::mnuInfo:
            case Menu::mnuDeform: Flip(form_[item]); break;
            case Menu::mnuDebugBG: mnuDebugBG_Click(); break;
            case Menu::mnuDebug: mnuDebug_Click(); break;
            case Menu::mnuPause: mnuPause_Click(); break;
            case Menu::mnuStageList: mnuStageList_Click(); break;
            case Menu::mnuStagePrev: mnuStagePrev_Click(); break;
            case Menu::mnuStageNext: mnuStageNext_Click(); break;
            case Menu::mnuR: mnuR_Click(); break;
            case Menu::mnuAbout: mnuAbout_Click(); break;
            case Menu::mnuAdditions: mnuAdditions_Click(); break;
            default: break;
        }
    });
}

// Plain, Escape and Q release the device under the running loop. Addition: a key press must not
// kill the stage, so Escape just leaves the full screen and Q does nothing.
void frmStage::Form_KeyDown(VirtualKey key) {
    if (loop_.LoadingStage != 0) {
        return;  // the load works with the device
    }
    Handle([&] {
        if (key == VirtualKey::Escape) {
            ResetRes();
        }
        if ((key == VirtualKey::Escape || key == VirtualKey::Q) && !options_.Additions) {
            engine_.Engine_Deinit();
        }
    });
}

// Whether or not the stage has music.
void frmStage::mnuMusic_Click() {
    MenuItem& item = form_[Menu::mnuMusic];
    Flip(item);
    if (item.checked) {
        music_.Play();
    } else {
        music_.StopPlaying();
    }
}

void frmStage::mnuFPS_Click() {
    MenuItem& item = form_[Menu::mnuFPS];
    Flip(item);
    if (!item.checked) {
        loop_.FpsLimit = 0;
        return;
    }
    loop_.FpsLimit = ToInteger(LeadingNumber(machine_.dialogs.InputBox("Max FPS?")));
    item.caption = "FPS Limiter (" + NumberText(loop_.FpsLimit) + " fps)";
}

void frmStage::mnuPause_Click() {
    Flip(form_[Menu::mnuPause]);
    Paused = static_cast<Byte>(~Paused);
    if (Paused == 0) {
        ForgetKeys();
    } else {
        editor_.ForgetPresses();  // those from before
    }
    ShowTitle();
}

// The stage's, or the program's where there is no stage.
void frmStage::ShowTitle() {
    const std::string& title = loop_.StageRunning != 0 ? model_.StageTitle : AppTitle;
    // A paused stage draws nothing, however heavy it is.
    const char* const mark = Paused != 0                                  ? " <<PAUSED>>"
                             : options_.Additions && longPass_.TooHeavy() ? " <<TOO HEAVY>>"
                                                                          : "";
    SetCaption(title + mark);
}

void frmStage::mnuMScroll_Click() {
    savedSteps_ = UsersSteps(camera_, savedSteps_, testChar_, flags_);
    MenuItem& item = form_[Menu::mnuMScroll];
    Flip(item);
    flags_.MouseScroll = item.checked ? kByteTrue : Byte{0};
    if (!item.checked) {
        SettleSteps(model_, camera_, options_);
        camera_.HCamStep = StepOrOne(savedSteps_.HCamStep);
        camera_.VCamStep = StepOrOne(savedSteps_.VCamStep);
        TakeCharacterSteps(CharacterPieces());
    }
}

void frmStage::mnuAbout_Click() {
    machine_.messages.MsgBox(kMessageAbout, "Scenara " + VersionText +
                                                " DirectX 8 Experimental Release\r\n"
                                                "A viewer for the background stages of MUGEN.\r\n"
                                                "Free software under the MIT licence.");
}

void frmStage::mnuAdditions_Click() {
    MenuItem& item = form_[Menu::mnuAdditions];
    Flip(item);
    options_.Additions = item.checked;
    if (loop_.StageRunning != 0) {
        LoadAgain();
    }
    SaveAdditions(machine_.files, options_.Additions);
}

}  // namespace scenara
