// SPDX-License-Identifier: MIT
//
// How the program starts.
#include "app/Extras.h"
#include "app/GivenPaths.h"
#include "app/MenuTree.h"
#include "app/StageFiles.h"
#include "app/frmStage.h"
#include "base/NumberText.h"
#include "base/Path.h"

namespace scenara {
namespace {

// What a show asks of the machine, with these messages in place of the machine's own.
ShowMachine With(const ShowMachine& machine, Messages& messages) {
    return {machine.files, messages,        machine.window,   machine.keyboard,
            machine.clock, machine.pointer, machine.direct3D, machine.png};
}

}  // namespace

frmStage::frmStage(const Machine& machine, Form& form, const ViewOptions& options)
    : machine_(machine),
      form_(form),
      loadMessages_(machine.messages, form.problems),
      show_(With(machine, loadMessages_), options, *this),
      music_(machine.media),
      browser_(show_.Model(), show_.Options(), show_.SpriteBrowserMode, form.hscSGFX, *this),
      screen_(machine.display),
      catalog_(form.lstStages),
      search_(machine.files, machine.background) {
    DesignMenus(form_);
    form_.picLoad.width = show_.Picture().width;
    form_.picLoad.height = show_.Picture().height;
    form_.lstStages.width = kStageListWidth;
    LayOutControls(show_.Picture().width, show_.Picture().height);
}

void frmStage::Form_Load(const std::vector<std::string>& given) {
    VersionText = NumberText(std::int32_t{SCENARA_VERSION_MINOR}) + "." +
                  NumberText(std::int32_t{SCENARA_VERSION_REVISION});
    AppTitle = "Scenara " + VersionText + " DirectX 8 Experiment";
    form_.title = AppTitle;
    SetCaption(AppTitle);
    if (machine_.process.AnotherInstanceRuns()) {
        machine_.messages.MsgBox(kMessageAlreadyRunning, "Already running..");
        machine_.window.RequestEnd();
        ended_ = true;
        return;
    }
    cameUp_ = false;
    ReadCounterFrequency(times_, machine_.clock);
    show_.Loop().FpsLimit = 60;
    music_.SetWindow(static_cast<Long>(machine_.window.Handle()));
    form_[Menu::mnuFPS].caption = "FPS Limiter (" + NumberText(show_.Loop().FpsLimit) + " fps)";
    machine_.process.ChangeToProgramFolder();
    static_cast<void>(Guarded([&] {
        extras_ = LoadExtras(machine_.files);
        form_[Menu::mnuAdditions].checked = extras_.Additions;
        form_[Menu::mnuSmooth].checked = extras_.Smooth;
        form_[Menu::mnuWholeMultiples].checked = extras_.WholeMultiplesOnly;
        form_[Menu::mnuSwitchMode].checked = extras_.SwitchDisplayMode;
        if (extras_.Additions) {
            constexpr Long kWideWindow = 1280;  // it is not known yet how wide it comes up
            form_.lstStages.width = ListWidthIn(kWideWindow);
        }
    }));
    MakeExtrasText();
    extrasFile_.keeper.Hold(extrasFile_.text);
    TakeExtras();
    EnableMenus(form_, show_.State(), show_.HasShown(), show_.CanZoom());
    static_cast<void>(Guarded([&] {
        CameraSteps steps = show_.UsersSteps();
        const std::string givenFolder = MugenFolderAmong(machine_.files, given);
        const bool isFirstStart = !HasConfiguration(machine_.files);
        settingsLoaded_ = ReadSettings(steps, givenFolder);
        show_.CameraState().HCamStep = steps.HCamStep;
        show_.CameraState().VCamStep = steps.VCamStep;
        show_.Flags().DebugBG = form_[Menu::mnuDebugBG].checked ? kByteTrue : Byte{0};
        if (!settingsLoaded_) {
            ended_ = true;
            return;
        }
        MakeSettingsText();
        if (!isFirstStart) {
            // A file that says the same in other words is not written anew.
            settingsFile_.keeper.Hold(settingsFile_.text);
        } else if (SavesMeanwhile()) {
            SaveChanges(settingsFile_);  // the folder that was chosen just now
        }
        if (!givenFolder.empty()) {
            MugeDir = WithSeparator(givenFolder);
            takenAtStart_ = givenFolder;
        }
        FillStageList();
    }));
    form_.lstStages.MoveKeys(KeyOwner::List);  // nothing is shown that they could drive
    ComeUp();
}

// False: the program is to end, and there are no settings.
bool frmStage::ReadSettings(CameraSteps& steps, const std::string& givenFolder) {
    if (!HasConfiguration(machine_.files)) {
        if (show_.Options().Additions) {
            ShowStageList = kByteTrue;  // it is what the program is about
        }
        if (!givenFolder.empty()) {
            MugeDir = WithSeparator(givenFolder);
            return true;
        }
        if (show_.Options().Additions) {
            return AskAtFirstStart();
        }
    }
    // An error of the command must not cost the settings behind its line.
    const auto useCharacter = [this] { static_cast<void>(Guarded([this] { mnuChar_Click(); })); };
    const auto ended = [this] { return machine_.window.EndRequested(); };
    return LoadConfig(AllSettings(steps),
                      {machine_.files, machine_.messages, machine_.dialogs, useCharacter, ended});
}

Settings frmStage::AllSettings(CameraSteps& steps) {
    TestCharState& character = show_.TestChar();
    return {MugeDir,       steps.HCamStep, steps.VCamStep, character.TestChar, character.CharName,
            ShowStageList, form_};
}

}  // namespace scenara
