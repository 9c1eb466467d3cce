// SPDX-License-Identifier: MIT
//
// How the program starts.
#include "app/Extras.h"
#include "app/MenuTree.h"
#include "app/StageFiles.h"
#include "app/frmStage.h"
#include "base/NumberText.h"
#include "editor/DataCheck.h"

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
      music_(machine.media),
      editor_({model_, camera_, flags_, options_, machine.keyboard, machine.clock,
               form[Menu::mnuDebugBG], &FullScreenState},
              {[this](const std::string& caption) { SetCaption(caption); }, [this] { Dump(); },
               [this] { edited_ = true; }}),
      longPass_(machine.clock, machine.window, [this] { ShowTitle(); }),
      browserView_(*this),
      browser_(model_, SpriteBrowserMode, form.hscSGFX, browserView_),
      tiles_(engine_, model_, camera_, flags_, options_,
             {machine.keyboard, machine.clock, machine.pointer, machine.window, &editor_},
             &longPass_),
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
    form_.title = AppTitle;
    SetCaption(AppTitle);
    if (machine_.process.AnotherInstanceRuns()) {
        machine_.messages.MsgBox(kMessageAlreadyRunning, "Already running..");
        machine_.window.RequestEnd();
        ended_ = true;
        return;
    }
    ReadCounterFrequency(times_, machine_.clock);
    loop_.FpsLimit = 60;
    music_.SetWindow(static_cast<Long>(machine_.window.Handle()));
    form_[Menu::mnuFPS].caption = "FPS Limiter (" + NumberText(loop_.FpsLimit) + " fps)";
    machine_.process.ChangeToProgramFolder();
    static_cast<void>(Guarded([&] {
        options_.Additions = LoadAdditions(machine_.files);
        form_[Menu::mnuAdditions].checked = options_.Additions;
    }));
    static_cast<void>(Guarded([&] {
        SavedSteps steps{camera_.HCamStep, camera_.VCamStep};
        // An error of the command must not cost the settings behind its line.
        const auto useCharacter = [this] {
            static_cast<void>(Guarded([this] { mnuChar_Click(); }));
        };
        const auto ended = [this] { return machine_.window.EndRequested(); };
        const bool isFirstStart = !HasConfiguration(machine_.files);
        settingsLoaded_ = LoadConfig(AllSettings(steps), {machine_.files, machine_.messages,
                                                          machine_.dialogs, useCharacter, ended});
        camera_.HCamStep = steps.HCamStep;
        camera_.VCamStep = steps.VCamStep;
        if (!settingsLoaded_) {
            ended_ = true;
            return;
        }
        MakeSettingsText();
        if (!isFirstStart) {
            // A file that says the same in other words is not written anew.
            keeper_.Hold(settingsText_);
        } else if (SavesMeanwhile()) {
            SaveChanges();  // the folder that was chosen just now
        }
        LoadFilestoList(form_.lstStages, StagesFolder(MugeDir), ".def", machine_.files,
                        machine_.messages);
    }));
}

// A disk that is full must not cost the stage that was to be written down.
void frmStage::Dump() {
    static_cast<void>(
        Guarded([this] { SetCaption(DataCheckCaption(DataCheck(model_, machine_.files))); }));
}

Settings frmStage::AllSettings(SavedSteps& steps) {
    return {MugeDir,       steps.HCamStep, steps.VCamStep, testChar_.TestChar, testChar_.CharName,
            ShowStageList, form_};
}

}  // namespace scenara
