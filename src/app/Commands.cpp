// SPDX-License-Identifier: MIT
//
// What the menu items and the keys do, beyond choosing stages.
#include "app/Extras.h"
#include "app/Keys.h"
#include "app/MenuTree.h"
#include "app/frmStage.h"
#include "base/NumberText.h"
#include "base/Path.h"

namespace scenara {

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
            case Menu::mnuDeform: form_[item].Flip(); break;
            case Menu::mnuDebugBG: mnuDebugBG_Click(); break;
            case Menu::mnuDebug: mnuDebug_Click(); break;
            case Menu::mnuPause: mnuPause_Click(); break;
            case Menu::mnuStageList: mnuStageList_Click(); break;
            case Menu::mnuStagePrev: mnuStagePrev_Click(); break;
            case Menu::mnuStageNext: mnuStageNext_Click(); break;
            case Menu::mnuR: mnuR_Click(); break;
            case Menu::mnuAbout:
            case Menu::mnuAboutBox: mnuAbout_Click(); break;
            case Menu::mnuKeys: mnuKeys_Click(); break;
            case Menu::mnuFind: mnuFind_Click(); break;
            case Menu::mnuPicture100: ShowPictureTimes(1); break;
            case Menu::mnuPicture200: ShowPictureTimes(2); break;
            case Menu::mnuPicture300: ShowPictureTimes(3); break;
            case Menu::mnuPicture400: ShowPictureTimes(4); break;
            case Menu::mnuCameraStart: show_.CameraToStart(); break;
            case Menu::mnuProblems: mnuProblems_Click(); break;
            case Menu::mnuAdditions: mnuAdditions_Click(); break;
            case Menu::mnuSmooth:
            case Menu::mnuWholeMultiples:
            case Menu::mnuSwitchMode: FlipExtra(item); break;
            case Menu::mnuZoomIn: Zoom(ZoomStep::In); break;
            case Menu::mnuZoomOut: Zoom(ZoomStep::Out); break;
            case Menu::mnuZoomStart: Zoom(ZoomStep::ToStart); break;
            case Menu::mnuMugenFolder: mnuMugenFolder_Click(); break;
            default: break;
        }
    });
}

// Plain, Escape and Q release the device under the running loop. Addition: a key press must not
// kill the stage, so Escape just leaves the sprite browser, or the full screen, and Q does nothing.
void frmStage::Form_KeyDown(VirtualKey key) {
    Handle([&] {
        if (State() == ShowState::Loading) {
            givesUp_ = givesUp_ || key == VirtualKey::Escape;
            GoThroughStages(key);
            return;  // the load works with the device
        }
        if (key == VirtualKey::Escape && browser_.FillsBox()) {
            mnuDebug_Click();
            return;
        }
        if (key == VirtualKey::Escape) {
            ResetRes();
        }
        GoThroughStages(key);
        if (key == VirtualKey::Space) {
            PauseByKey();
        }
        if ((key == VirtualKey::Escape || key == VirtualKey::Q) && !show_.Options().Additions) {
            show_.TheEngine().Engine_Deinit();
        }
    });
}

// Addition: what is shown full screen has neither menus nor list.
void frmStage::GoThroughStages(VirtualKey key) {
    if (FullScreenState != 1 || !show_.Options().Additions) {
        return;
    }
    switch (key) {
        case VirtualKey::PageUp: mnuStagePrev_Click(); break;
        case VirtualKey::PageDown: mnuStageNext_Click(); break;
        default: break;
    }
}

// Addition: where nothing is shown it stops nothing.
void frmStage::PauseByKey() {
    if (show_.Options().Additions &&
        (State() == ShowState::Running || State() == ShowState::Paused)) {
        mnuPause_Click();
    }
}

// Whether or not the stage has music.
void frmStage::mnuMusic_Click() {
    if (form_[Menu::mnuMusic].Flip()) {
        if (!HasRested()) {
            return;  // then it begins by itself
        }
        music_.Play();
    } else {
        music_.StopPlaying();
    }
}

void frmStage::mnuFPS_Click() {
    MenuItem& item = form_[Menu::mnuFPS];
    if (item.checked) {
        item.checked = false;
        show_.Loop().FpsLimit = 0;
        return;
    }
    if (show_.Options().Additions) {
        AskForLimit();
        return;
    }
    item.checked = true;
    show_.Loop().FpsLimit = ToInteger(LeadingNumber(machine_.dialogs.InputBox("Max FPS?")));
    item.caption = "FPS Limiter (" + NumberText(show_.Loop().FpsLimit) + " fps)";
}

// Addition: what is no number, or none that makes sense, changes nothing.
void frmStage::AskForLimit() {
    constexpr double kMostFps = 1000;
    const double limit = LeadingNumber(machine_.dialogs.InputBox("Max FPS?"));
    if (limit >= 1 && limit <= kMostFps) {
        MenuItem& item = form_[Menu::mnuFPS];
        item.checked = true;
        show_.Loop().FpsLimit = ToInteger(limit);
        item.caption = "FPS Limiter (" + NumberText(show_.Loop().FpsLimit) + " fps)";
    }
}

void frmStage::mnuPause_Click() {
    form_[Menu::mnuPause].Flip();
    show_.Pause(show_.Loop().Paused == 0);
    ShowTitle();
}

void frmStage::ShowTitle() {
    SetCaption(Title() + TitleMark());
}

// The stage's, or the program's where there is no stage. Addition: that of the sprite that is
// shown; a stage without a name is called as its file is.
std::string frmStage::Title() {
    if (show_.Loop().StageRunning == 0) {
        return AppTitle;
    }
    if (browser_.FillsBox()) {
        return browser_.Caption();
    }
    const std::string& title = show_.Model().StageTitle;
    return title.empty() && show_.Options().Additions ? std::string(FileName(show_.Which.shown))
                                                      : title;
}

// A paused stage draws nothing, however heavy it is.
const char* frmStage::TitleMark() {
    if (show_.Loop().Paused != 0) {
        return " <<PAUSED>>";
    }
    return show_.Options().Additions && show_.TooHeavy() ? " <<TOO HEAVY>>" : "";
}

void frmStage::Tell(const std::string& caption) {
    if (!show_.Options().Additions) {
        SetCaption(caption);
        return;
    }
    SetCaption(caption + TitleMark());
    noted_ = true;
    noteSince_ = machine_.clock.GetTickCount();
}

void frmStage::EndNote() {
    constexpr std::uint32_t kLasts = 5000;  // milliseconds
    if (noted_ && TicksSince(noteSince_, machine_.clock.GetTickCount()) >= kLasts) {
        ShowTitle();
    }
}

void frmStage::mnuMScroll_Click() {
    show_.SetMouseScroll(form_[Menu::mnuMScroll].Flip());
}

void frmStage::mnuAbout_Click() {
    machine_.messages.MsgBox(kMessageAbout, "Scenara " + VersionText +
                                                " DirectX 8 Experimental Release\r\n"
                                                "A viewer for the background stages of MUGEN.\r\n"
                                                "Free software under the MIT licence.");
}

void frmStage::mnuKeys_Click() {
    machine_.dialogs.ShowKeys(PageOfKeys());
}

void frmStage::mnuFind_Click() {
    if (IsFullScreen()) {
        return;
    }
    if (ShowStageList == 0) {
        mnuStageList_Click();
    }
    form_.lstStages.MoveKeys(KeyOwner::Filter);
}

void frmStage::mnuAdditions_Click() {
    NoteStand();
    form_[Menu::mnuAdditions].Flip();
    TakeExtras();
    StateChanged();
    FillStageList();
    form_.lstStages.width = kStageListWidth;  // with additions as wide as the user has made it
    LayOutControls(form_.innerWidth, form_.innerHeight);
    GiveSizeBack();
    if (show_.Loop().StageRunning != 0) {
        keepsSize_ = true;
        LoadAgain();
    }
    SaveCheckedExtras();
}

void frmStage::FlipExtra(Menu item) {
    form_[item].Flip();
    TakeExtras();
    if (item == Menu::mnuSmooth) {
        show_.NoteEdit();  // to be seen while the stage is paused, too
    }
    SaveCheckedExtras();
}

void frmStage::TakeExtras() {
    show_.Options().Additions = form_[Menu::mnuAdditions].checked;
    show_.Options().Smooth = form_[Menu::mnuSmooth].checked;
    form_.presentation = PresentationWanted();
    form_.statusBar.visible = show_.Options().Additions;
}

// Addition: any size of the screen, and means of what is not shown pixel by pixel.
Presentation frmStage::PresentationWanted() const {
    if (!show_.Options().Additions) {
        return {};
    }
    return {form_[Menu::mnuWholeMultiples].checked ? ShownSizes::WholeMultiples : ShownSizes::Any,
            form_[Menu::mnuSmooth].checked ? Scaling::Smooth : Scaling::Average};
}

void frmStage::SaveCheckedExtras() {
    MakeExtrasText();
    Write(extrasFile_);
    extrasFile_.keeper.Hold(extrasFile_.text);
}

}  // namespace scenara
