// SPDX-License-Identifier: MIT
//
// How the program starts.
#include "app/Extras.h"
#include "app/MenuTree.h"
#include "app/StageFiles.h"
#include "app/frmStage.h"
#include "base/NumberText.h"

namespace scenara {
namespace {

// The stage list as the window is designed, in pixels.
constexpr Long kStageListWidth = 160;

}  // namespace

frmStage::frmStage(const Machine& machine, Form& form, const ViewOptions& options)
    : machine_(machine),
      form_(form),
      options_(options),
      engine_(machine.direct3D, machine.window, machine.messages, model_),
      tiles_(engine_, model_, camera_, flags_, options_,
             {machine.keyboard, machine.clock, machine.pointer, machine.window}),
      screen_(machine.display) {
    DesignMenus(form_);
    form_.picLoad.width = kViewWidth;
    form_.picLoad.height = kViewHeight;
    form_.lstStages.width = kStageListWidth;
    LayOutControls(kViewWidth, kViewHeight);
}

void frmStage::Form_Load() {
    VersionText = NumberText(std::int32_t{SCENARA_VERSION_MINOR}) + "." +
                  NumberText(std::int32_t{SCENARA_VERSION_REVISION});
    AppTitle = "Scenara " + VersionText + " DirectX 8 Experiment";
    SetCaption(AppTitle);
    if (machine_.process.AnotherInstanceRuns()) {
        machine_.messages.MsgBox(kMessageAlreadyRunning, "Already running..");
        machine_.window.RequestEnd();
        ended_ = true;
        return;
    }
    ReadCounterFrequency(times_, machine_.clock);
    loop_.FpsLimit = 60;
    form_[Menu::mnuFPS].caption = "FPS Limiter (" + NumberText(loop_.FpsLimit) + " fps)";
    machine_.process.ChangeToProgramFolder();
    static_cast<void>(Guarded([&] {
        options_.Additions = LoadAdditions(machine_.files);
        form_[Menu::mnuAdditions].checked = options_.Additions;
    }));
    static_cast<void>(Guarded([&] {
        settingsLoaded_ = LoadConfig(AllSettings(),
                                     {machine_.files, machine_.messages, machine_.dialogs, {}, [&] {
                                          return machine_.window.EndRequested();
                                      }});
        if (!settingsLoaded_) {
            ended_ = true;
            return;
        }
        LoadFilestoList(form_.lstStages, StagesFolder(MugeDir), ".def", machine_.files,
                        machine_.messages);
    }));
}

Settings frmStage::AllSettings() {
    // While something else sets the steps, the user's own are the saved ones.
    const bool saved = StepsAreOverridden();
    return {MugeDir,
            saved ? savedSteps_.HCamStep : camera_.HCamStep,
            saved ? savedSteps_.VCamStep : camera_.VCamStep,
            TestChar,
            CharName,
            ShowStageList,
            form_};
}

bool frmStage::StepsAreOverridden() const {
    return flags_.MouseScroll != 0;
}

}  // namespace scenara
