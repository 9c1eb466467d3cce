// SPDX-License-Identifier: MIT
//
// The engine folder, as the user chooses it, and the list of its stages.
#include <chrono>
#include <utility>

#include "app/MugenFolder.h"
#include "app/StageFiles.h"
#include "app/frmStage.h"
#include "base/Path.h"
#include "platform/Clock.h"

namespace scenara {

// Addition: the question at the first start stands over the window, which shows what it is about,
// and can be left; the window then tells of the other way to the folder. False when the program is
// to end.
bool frmStage::AskAtFirstStart() {
    ComeUp();
    machine_.window.Show();
    Form_Activate();  // the question stands over a window in its place
    SayFirstStart(machine_.messages);
    MugeDir = WithSeparator(AskForFolder());
    return !MugeDir.empty() || !machine_.window.EndRequested();
}

std::string frmStage::AskForFolder() {
    const bool isThere = !MugeDir.empty() && machine_.files.FolderExists(MugeDir);
    return AskForMugenFolder(machine_.files, machine_.dialogs, isThere ? MugeDir : std::string(),
                             [this] { return machine_.window.EndRequested(); });
}

void frmStage::mnuMugenFolder_Click() {
    if (const std::string folder = AskForFolder(); !folder.empty()) {
        TakeMugenFolder(folder);
    }
}

// For good. A stage that is shown goes on, and is selected where the new list has it.
void frmStage::TakeMugenFolder(const std::string& folder) {
    MugeDir = WithSeparator(folder);
    FillStageList();
    ShowFilledList();
}

// A user who chooses a folder wants to see what is in it, as soon as that is known.
void frmStage::ShowFilledList() {
    const bool isHidden = ShowStageList == 0 && FullScreenState == 0;
    showsFilledList_ = false;
    if (!show_.Options().Additions || !isHidden) {
        return;
    }
    if (!form_.lstStages.items.empty()) {
        mnuStageList_Click();
    } else {
        showsFilledList_ = !searched_;
    }
}

void frmStage::FillStageList() {
    constexpr std::chrono::milliseconds kAtOnce{150};
    ListBox& list = form_.lstStages;
    catalog_.Leave();
    list.browses = show_.Options().Additions;
    list.filter.clear();
    searched_ = MugeDir.empty();
    if (machine_.folders != nullptr) {
        static_cast<void>(machine_.folders->Watch({}));
        static_cast<void>(machine_.folders->TakeChange());
    }
    if (!list.browses) {
        FillPlainList();
    } else if (!MugeDir.empty()) {
        folderChanged_ = false;
        lastSearch_ = machine_.clock.GetTickCount();
        search_.Begin(MugeDir);
        search_.AwaitNews(kAtOnce);
        TakeFoundStages();
    }
    NoteEmptyList();
    if (show_.Loop().StageRunning != 0) {
        list.ListIndex = ListedIndexOf(show_.Which.shown);
    }
}

void frmStage::FillPlainList() {
    ++form_.lstStages.filled;
    if (!MugeDir.empty()) {
        LoadFilestoList(form_.lstStages, StagesFolder(MugeDir), ".def", machine_.files,
                        machine_.messages);
    }
}

// Addition: the list follows what happens in its folders. True: it is to be asked again soon.
bool frmStage::FollowFolder() {
    constexpr std::uint32_t kSearchEvery = 300;  // milliseconds; files mostly come in numbers
    if (!form_.lstStages.browses || MugeDir.empty()) {
        return false;
    }
    FolderWatch* const folders = machine_.folders;
    folderChanged_ = (folders != nullptr && folders->TakeChange()) || folderChanged_;
    const Long now = machine_.clock.GetTickCount();
    if (folderChanged_ && !search_.Runs() && TicksSince(lastSearch_, now) >= kSearchEvery) {
        folderChanged_ = false;
        lastSearch_ = now;
        search_.Begin(MugeDir);
    }
    TakeFoundStages();
    return folderChanged_ || (folders != nullptr && folders->MustBeAsked());
}

void frmStage::TakeFoundStages() {
    std::optional<FoundStages> found = search_.TakeNews();
    if (!found) {
        return;
    }
    searched_ = true;
    catalog_.Take(std::move(found->stages));
    form_.lstStages.isCut = found->isCut;
    if (machine_.folders != nullptr && machine_.folders->Watch(found->folders)) {
        folderChanged_ = true;  // perhaps before it was watched
    }
    if (form_.lstStages.ListIndex < 0 && show_.Loop().StageRunning != 0) {
        form_.lstStages.ListIndex = catalog_.IndexOf(show_.Which.shown);
    }
    NoteEmptyList();
    if (showsFilledList_) {
        ShowFilledList();
    }
}

// Addition: why there are no stages stands in the title picture.
void frmStage::NoteEmptyList() {
    const bool hasNone = form_.lstStages.browses && catalog_.Count() == 0;
    form_.titleNote = hasNone ? NoteOfEmptyList() : std::string();
}

std::string frmStage::NoteOfEmptyList() const {
    const std::string how = "\r\nExtras > MUGEN Folder... chooses one";
    if (MugeDir.empty()) {
        return "No MUGEN folder is chosen." + how;
    }
    if (!searched_) {
        return "Looking for stages in\r\n" + StagesFolder(MugeDir);
    }
    if (!machine_.files.FolderExists(MugeDir)) {
        return "The MUGEN folder is not there:\r\n" + MugeDir + how;
    }
    return "No stages are there:\r\n" + StagesFolder(MugeDir) + how;
}

}  // namespace scenara
