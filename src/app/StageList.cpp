// SPDX-License-Identifier: MIT
//
// The engine folder, as the user chooses it, and the list of its stages.
#include <algorithm>
#include <utility>

#include "app/MugenFolder.h"
#include "app/StageFiles.h"
#include "app/frmStage.h"
#include "base/Path.h"

namespace scenara {
namespace {

class Unsaid : public Messages {
public:
    void Show(const Message& /*message*/) override {}
};

}  // namespace

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

// A user who chooses a folder wants to see what is in it.
void frmStage::ShowFilledList() {
    const bool isHidden = ShowStageList == 0 && FullScreenState == 0;
    if (show_.Options().Additions && isHidden && !form_.lstStages.items.empty()) {
        mnuStageList_Click();
    }
}

// Addition: the window itself says that there are none, and no box does.
void frmStage::FillStageList() {
    Unsaid unsaid;
    Messages& messages = show_.Options().Additions ? unsaid : machine_.messages;
    ListBox& list = form_.lstStages;
    list.items.clear();
    list.ListIndex = -1;
    passedOver_.reset();
    ++list.filled;
    if (!MugeDir.empty()) {
        LoadFilestoList(list, StagesFolder(MugeDir), ".def", machine_.files, messages);
    }
    NoteEmptyList();
    if (show_.Loop().StageRunning == 0) {
        return;
    }
    const auto shown = std::find_if(
        list.items.begin(), list.items.end(),
        [this](const std::string& item) { return IsStageFile(MugeDir, item, show_.Which.shown); });
    if (shown != list.items.end()) {
        list.ListIndex = static_cast<Long>(shown - list.items.begin());
    }
}

// Addition: why there are no stages stands in the title picture.
void frmStage::NoteEmptyList() {
    std::string note;
    if (show_.Options().Additions && form_.lstStages.items.empty()) {
        if (MugeDir.empty()) {
            note = "No MUGEN folder is chosen.";
        } else if (!machine_.files.FolderExists(MugeDir)) {
            note = "The MUGEN folder is not there:\r\n" + MugeDir;
        } else {
            note = "No stages are there:\r\n" + StagesFolder(MugeDir);
        }
        note += "\r\nExtras > MUGEN Folder... chooses one";
    }
    form_.titleNote = std::move(note);
}

}  // namespace scenara
