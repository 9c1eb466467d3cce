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
        return;
    }
    SetCaption(show_.Which.CurrentStageFile);
    SelectAskedFor();
    LeaveStage();
    RememberRecentFile(form_, show_.Which.CurrentStageFile);
    RunStage();
}

void frmStage::MnuRecentFiles_Click(Long index) {
    Handle([&] {
        if (!form_[Menu::mnuStage].enabled) {
            return;  // chosen just before a load began
        }
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
    const std::string& item = form_.lstStages.items.at(static_cast<std::size_t>(index));
    which.follows.clear();
    const bool loads =
        show_.State() == ShowState::Loading && IsStageFile(MugeDir, item, which.shown);
    if (!loads) {
        which.chosen = StageFile(MugeDir, item);
    }
}

void frmStage::OpenListed() {
    const auto index = static_cast<std::size_t>(form_.lstStages.ListIndex);
    show_.Which.CurrentStageFile = StageFile(MugeDir, form_.lstStages.items.at(index));
    OpenStage();
}

// Addition: however a stage was chosen, the list selects it, or nothing where it is not in the
// list; so that Next and Previous go on from what is shown.
void frmStage::SelectAskedFor() {
    if (show_.Options().Additions) {
        passedOver_.reset();
        SelectFile(show_.Which.CurrentStageFile);
    }
}

// Addition: what was selected could not be opened. The list selects what is shown all the same, or
// is about to be.
void frmStage::SelectShown() {
    if (!show_.Options().Additions) {
        return;
    }
    passedOver_ = form_.lstStages.ListIndex;
    const bool isShown = show_.Loop().StageRunning != 0;
    SelectFile(show_.Which.next.value_or(isShown ? show_.Which.shown : std::string()));
}

void frmStage::SelectFile(const std::string& path) {
    const std::vector<std::string>& items = form_.lstStages.items;
    const auto item = std::ranges::find_if(
        items, [&](const std::string& each) { return IsStageFile(MugeDir, each, path); });
    form_.lstStages.ListIndex = item == items.end() ? -1 : static_cast<Long>(item - items.begin());
}

// Where Next and Previous begin. Addition: beyond what could not be opened, which they would come
// to again and again.
Long frmStage::FirstPassed(bool forwards) const {
    const Long selected = form_.lstStages.ListIndex;
    if (!show_.Options().Additions || !passedOver_) {
        return selected;
    }
    return forwards || selected < 0 ? std::max(selected, *passedOver_)
                                    : std::min(selected, *passedOver_);
}

void frmStage::mnuStageNext_Click() {
    if (const Long from = FirstPassed(true); from != Count(form_.lstStages) - 1) {
        SelectStage(from + 1);
    }
}

// Deliberate: plain, with nothing selected it asks the list for item -2, which the list rejects
// (PlainOpening.PreviousWithoutASelectionIsAnError). Addition: it goes to the last one.
void frmStage::mnuStagePrev_Click() {
    const Long from = FirstPassed(false);
    if (show_.Options().Additions && from < 0) {
        SelectStage(Count(form_.lstStages) - 1);
    } else if (from != 0) {
        SelectStage(from - 1);
    }
}

void frmStage::mnuR_Click() {
    const Long count = Count(form_.lstStages);
    if (count == 0 && show_.Options().Additions) {
        return;
    }
    std::mt19937 random(static_cast<std::uint32_t>(machine_.clock.QueryPerformanceCounter()));
    std::uniform_int_distribution<Long> index(0, count > 0 ? count - 1 : 0);
    SelectStage(index(random));
}

void frmStage::mnuOpen_Click() {
    const std::string folder = StagesFolder(MugeDir);
    const bool isThere = !MugeDir.empty() && machine_.files.FolderExists(folder);
    const std::string chosen =
        machine_.dialogs.OpenFile("Choose your stage!", isThere ? folder : std::string());
    if (!chosen.empty()) {
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
    ResetRes();  // no loop would look who is in front
    if (show_.Options().Additions) {
        form_.picLoad.visible = true;  // the last frame would look frozen
    }
    SetCaption(AppTitle);
}

}  // namespace scenara
