// SPDX-License-Identifier: MIT
//
// What the user does in the list of stages, with additions.
#include <algorithm>

#include "app/StageFiles.h"
#include "app/frmStage.h"
#include "base/Path.h"

namespace scenara {
namespace {

// A list that is narrower shows no names, and a picture that is narrower shows nothing either.
constexpr Long kLeastListWidth = 80;
constexpr Long kLeastPictureWidth = 160;

}  // namespace

// The picture keeps some room, as far as there is any.
Long frmStage::ListWidthIn(Long innerWidth) const {
    const Long most = std::max(kLeastListWidth, innerWidth - kLeastPictureWidth);
    return std::clamp(extras_.ListWidth.value_or(kStageListWidth), kLeastListWidth, most);
}

void frmStage::lstStages_Resize(Long width) {
    Handle([&] {
        if (ShowStageList != 0 && form_.lstStages.browses) {
            extras_.ListWidth = width;
            extras_.ListWidth = ListWidthIn(form_.innerWidth);
            LayOutControls(form_.innerWidth, form_.innerHeight);
            FollowBox();
        }
    });
}

void frmStage::lstStages_Step(Long steps) {
    Handle([&] { Step(steps); });
}

// What turns out to be no stage is passed over without a word: a box would stop who leafs.
void frmStage::Step(Long steps) {
    Long index = catalog_.After(steps);
    while (index >= 0 && !MayBeStage(catalog_.At(index))) {
        catalog_.NoteIsNone(catalog_.At(index).file);
        index = catalog_.After(steps);
    }
    if (index >= 0 && index != form_.lstStages.ListIndex) {
        SelectStage(index);
    }
}

bool frmStage::MayBeStage(const StageEntry& stage) {
    return stage.isRead || IsStage(machine_.files, stage.file);
}

void frmStage::lstStages_Mark(Long index) {
    if (index >= 0 && static_cast<std::size_t>(index) < form_.lstStages.items.size()) {
        catalog_.ForgetPassed();
        form_.lstStages.ListIndex = index;
    }
}

void frmStage::lstStages_Leave() {
    SelectWhatShows();
}

void frmStage::txtFilter_Change(const std::string& words) {
    if (form_.lstStages.browses) {
        form_.lstStages.filter = words;
        catalog_.Filter(words);
        if (form_.lstStages.ListIndex < 0) {
            SelectWhatShows();
        }
    }
}

// Of what the filter has found the first one, unless one of them is shown already.
void frmStage::txtFilter_Enter() {
    Handle([&] {
        ListBox& list = form_.lstStages;
        list.MoveKeys(KeyOwner::Picture);
        if (list.ListIndex < 0 && !list.items.empty()) {
            catalog_.ForgetPassed();
            Step(1);
        }
    });
}

void frmStage::lstStages_OpenFolder(const std::string& file) {
    Handle([&] {
        if (const std::string folder = GetPath(file); !machine_.dialogs.OpenFolder(folder)) {
            machine_.messages.Show({kMessageCannotOpenFolder,
                                    "The desktop has no program that shows the folder\r\n" + folder,
                                    {},
                                    MessageIcon::Exclamation,
                                    {0, 0, folder}});
        }
    });
}

void frmStage::lstStages_CopyPath(const std::string& file) {
    machine_.dialogs.CopyText(file);
}

}  // namespace scenara
