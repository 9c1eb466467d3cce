// SPDX-License-Identifier: MIT
//
// Which stage is shown: the list and the ways through it, the dialog, the recent files, and what
// they all end in.
#include <algorithm>
#include <cstddef>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "app/RecentFiles.h"
#include "app/StageFiles.h"
#include "app/frmStage.h"
#include "base/RunTimeError.h"

namespace scenara {
namespace {

Long Count(const ListBox& list) {
    return static_cast<Long>(list.items.size());
}

}  // namespace

// Answers whether CurrentStageFile is a stage. Reports a file that is not. Addition: which one it
// is, and why, in one message.
bool frmStage::IsStageAskedFor(MessageIcon icon) {
    const std::string& path = show_.Which.CurrentStageFile;
    const bool additions = show_.Options().Additions;
    if (!machine_.files.FileExists(path)) {
        machine_.messages.MsgBox(kMessageCantFindFile, "Can't find file: \r\n" + path,
                                 {0, 0, path});
        if (additions) {
            return false;
        }
    }
    const bool isStage = IsStage(machine_.files, path);
    if (!isStage) {
        const std::string why =
            additions ? "\r\n\r\n" + path + "\r\n\r\nIt has no section [Camera]." : std::string();
        machine_.messages.Show({kMessageNotAStage, "Not a stage!" + why, {}, icon, {0, 0, path}});
    }
    return isStage;
}

void frmStage::OpenStage() {
    if (!IsStageAskedFor(MessageIcon::Exclamation)) {
        SelectShown();
        catalog_.NoteIsNone(show_.Which.CurrentStageFile);
        return;
    }
    SetCaption(show_.Which.CurrentStageFile);
    SelectAskedFor();
    LeaveStage();
    if (show_.Options().Additions) {
        isNewest_ = true;
    } else {
        RememberRecentFile(form_, show_.Which.CurrentStageFile);
    }
    RunStage();
}

void frmStage::MnuRecentFiles_Click(Long index) {
    Handle([&] {
        if (!form_[Menu::mnuStage].enabled) {
            return;  // chosen just before a load began
        }
        form_.lstStages.MoveKeys(KeyOwner::Picture);
        show_.Which.CurrentStageFile = RaiseRecentFile(form_, static_cast<std::size_t>(index));
        if (IsStageAskedFor(MessageIcon::CriticalStop)) {
            SelectAskedFor();
            LeaveStage();
            RunStage();
        }
    });
}

// The quit flag is lowered without a stage, too: it is still up after the Close command.
void frmStage::LeaveStage() {
    LeaveUnrested();
    if (show_.Loop().StageRunning != 0) {
        QuitRequested = kTrue;
        UnloadStuff();
    }
    QuitRequested = kFalse;
    show_.Which.camera.reset();
}

// Selecting an item opens it, whoever selects it. While a stage loads it is only selected;
// addition: and opened after that, unless it is the one that loads.
void frmStage::SelectStage(Long index) {
    if (index < -1 || index >= Count(form_.lstStages)) {
        throw RunTimeError(RunTimeErrorKind::InvalidPropertyValue, "ListIndex");
    }
    form_.lstStages.ListIndex = index;
    if (State() == ShowState::Loading) {
        NoteChosen();
    } else if (index >= 0) {
        OpenListed();
    }
}

void frmStage::NoteChosen() {
    WhichStage& which = show_.Which;
    which.chosen.clear();
    const Long index = form_.lstStages.ListIndex;
    if (!show_.Options().Additions || index < 0) {
        return;
    }
    which.follows.clear();
    if (show_.State() != ShowState::Loading || ListedIndexOf(which.shown) != index) {
        which.chosen = ListedFile(index);
    }
}

void frmStage::OpenListed() {
    show_.Which.CurrentStageFile = ListedFile(form_.lstStages.ListIndex);
    OpenStage();
}

std::string frmStage::ListedFile(Long index) const {
    return form_.lstStages.browses
               ? catalog_.At(index).file
               : StageFile(MugeDir, form_.lstStages.items.at(static_cast<std::size_t>(index)));
}

// -1: it is not in the list.
Long frmStage::ListedIndexOf(const std::string& path) const {
    const ListBox& list = form_.lstStages;
    if (list.browses) {
        return catalog_.IndexOf(path);
    }
    const auto item = std::ranges::find_if(
        list.items, [&](const std::string& each) { return IsStageFile(MugeDir, each, path); });
    return item == list.items.end() ? -1 : static_cast<Long>(item - list.items.begin());
}

// Addition: however a stage was chosen, the list selects it, or nothing where it is not in the
// list; so that Next and Previous go on from what is shown.
void frmStage::SelectAskedFor() {
    if (show_.Options().Additions) {
        catalog_.ForgetPassed();
        form_.lstStages.ListIndex = ListedIndexOf(show_.Which.CurrentStageFile);
    }
}

// Addition: what was selected could not be opened. The list selects what is shown all the same, or
// is about to be; steps go on from what was passed over.
void frmStage::SelectShown() {
    if (!show_.Options().Additions) {
        return;
    }
    if (form_.lstStages.ListIndex >= 0) {
        catalog_.PassOver(form_.lstStages.ListIndex);
    }
    SelectWhatShows();
    if (show_.Loop().StageRunning == 0 && !show_.Which.next) {
        // The caption of a stage that is not there, and the last frame of another one.
        form_.picLoad.visible = true;
        ShowTitle();
    }
}

void frmStage::SelectWhatShows() {
    const bool isShown = show_.Loop().StageRunning != 0;
    form_.lstStages.ListIndex =
        ListedIndexOf(show_.Which.next.value_or(isShown ? show_.Which.shown : std::string()));
}

// Addition: beyond what could not be opened, which it would come to again and again.
void frmStage::mnuStageNext_Click() {
    if (show_.Options().Additions) {
        Step(1);
    } else if (const Long selected = form_.lstStages.ListIndex;
               selected != Count(form_.lstStages) - 1) {
        SelectStage(selected + 1);
    }
}

// Deliberate: plain, with nothing selected it asks the list for item -2, which the list rejects
// (PlainOpening.PreviousWithoutASelectionIsAnError). Addition: it goes to the last one.
void frmStage::mnuStagePrev_Click() {
    if (show_.Options().Additions) {
        Step(-1);
    } else if (const Long selected = form_.lstStages.ListIndex; selected != 0) {
        SelectStage(selected - 1);
    }
}

void frmStage::mnuR_Click() {
    const Long count = Count(form_.lstStages);
    if (count == 0 && show_.Options().Additions) {
        return;
    }
    std::mt19937 random(static_cast<std::uint32_t>(machine_.clock.QueryPerformanceCounter()));
    std::uniform_int_distribution<Long> among(0, count > 0 ? count - 1 : 0);
    const Long index = among(random);
    SelectStage(form_.lstStages.browses ? catalog_.NearestStage(index) : index);
}

void frmStage::mnuOpen_Click() {
    const std::string folder = StagesFolder(MugeDir);
    const bool isThere = !MugeDir.empty() && machine_.files.FolderExists(folder);
    const std::string chosen =
        machine_.dialogs.OpenFile("Choose your stage!", isThere ? folder : std::string());
    if (!chosen.empty()) {
        form_.lstStages.MoveKeys(KeyOwner::Picture);
        show_.Which.CurrentStageFile = ChosenStage(chosen);
        OpenStage();
    }
}

// Addition: the stage that is shown, or was last, or could not be.
void frmStage::mnuReload_Click() {
    if (show_.Options().Additions && !show_.Which.shown.empty()) {
        show_.Which.CurrentStageFile = show_.Which.shown;
        OpenStage();
        return;
    }
    if (show_.Loop().StageRunning == 0) {
        mnuOpen_Click();
        return;
    }
    QuitRequested = kTrue;
    UnloadStuff();
    QuitRequested = kFalse;
}

// The same stage again, where the camera stands.
void frmStage::LoadAgain() {
    CameraStand camera{{show_.Model().CamX, show_.Model().CamY}, {}};
    if (show_.CanZoom()) {
        camera.zoom = show_.Model().CamZoom;
    }
    show_.Which.CurrentStageFile = show_.Which.shown;
    LeaveStage();
    show_.Which.camera = camera;
    RunStage();
}

void frmStage::mnuClose_Click() {
    QuitRequested = kTrue;
    show_.Which.next.reset();
    if (!show_.Which.CurrentStageFile.empty()) {
        UnloadStuff();
    }
    LeaveUnrested();
    ResetRes();  // no loop would look who is in front
    if (show_.Options().Additions) {
        form_.picLoad.visible = true;  // the last frame would look frozen
    }
    SetCaption(AppTitle);
}

}  // namespace scenara
