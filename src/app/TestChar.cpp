// SPDX-License-Identifier: MIT
//
// The test character, as the window chooses it and switches it on and off.
#include "app/MenuTree.h"
#include "app/StageFiles.h"
#include "app/frmStage.h"
#include "base/Path.h"

namespace scenara {

void frmStage::mnuChange_Click() {
    const std::string folder = MugeDir + "chars" + PathSeparator;
    const std::string chosen = machine_.dialogs.OpenFile(
        "Choose test character.", machine_.files.FolderExists(folder) ? folder : std::string());
    if (chosen.empty()) {
        return;
    }
    if (!IsChar(machine_.files, chosen)) {
        machine_.messages.MsgBox(kMessageNotACharacter, "Not a Character!", {0, 0, chosen});
        return;
    }
    LoadingCharacter([&] { show_.ChooseCharacter(chosen); });
}

// `opensStage`: one is opened next, and shows it.
void frmStage::PutOnStage(const std::string& character, bool opensStage) {
    const bool isSeen = opensStage || show_.Loop().StageRunning != 0;
    LoadingCharacter([&] {
        show_.ChooseCharacter(character);
        if (!show_.TestChar().TestChar.empty() && !show_.TestChar().UseChar) {
            show_.UseCharacter(true);
        }
    });
    if (!isSeen) {
        machine_.messages.MsgBox(kMessageCharacterWaits,
                                 "This is a character. The next stage that you open shows it.",
                                 {0, 0, character});
    }
}

void frmStage::mnuChar_Click() {
    if (show_.TestChar().TestChar.empty()) {
        mnuChange_Click();
        if (show_.TestChar().TestChar.empty()) {
            return;
        }
    }
    const bool use = form_[Menu::mnuChar].Flip();
    LoadingCharacter([&] { show_.UseCharacter(use); }, use && show_.TestChar().CharLoaded);
}

// While a character loads the window is in use: the stage may have been paused, keys tapped and a
// file dropped. Without a stage it is only chosen.
void frmStage::LoadingCharacter(const std::function<void()>& load, bool isLoaded) {
    if (show_.Loop().StageRunning != 0) {
        loadMessages_.BeginCharacter(show_.Which.shown, show_.Options().Additions, isLoaded);
    }
    const bool cameThrough = Guarded(load);
    ShowCharacterItem();
    loadMessages_.End(machine_.window.EndRequested());
    if (!cameThrough) {
        return;
    }
    show_.ForgetKeys();
    OpenFollowing();
}

void frmStage::ShowCharacterItem() {
    const TestCharState& character = show_.TestChar();
    form_[Menu::mnuChar].checked = character.UseChar;
    const bool isNamed = !character.CharName.empty() && !character.TestChar.empty();
    if (isNamed || character.CharLoaded) {
        NameCharacter(form_, character.CharName);
    } else {
        UnnameCharacter(form_);
    }
}

}  // namespace scenara
