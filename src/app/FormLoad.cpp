// SPDX-License-Identifier: MIT
//
// How the program starts, and how its window first comes up.
#include "app/MenuTree.h"
#include "app/frmStage.h"
#include "base/NumberText.h"

namespace scenara {

frmStage::frmStage(const Machine& machine, Form& form, const ViewOptions& options)
    : machine_(machine),
      form_(form),
      options_(options),
      engine_(machine.direct3D, machine.window, machine.messages, model_),
      tiles_(engine_, model_, camera_, flags_, options_,
             {machine.keyboard, machine.clock, machine.pointer, machine.window}) {
    DesignMenus(form_);
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
    LayOutControls(kViewWidth, kViewHeight);
}

// Sized and centred once: doing so at each change of focus would undo what the user did.
void frmStage::Form_Activate() {
    if (activated_) {
        return;
    }
    activated_ = true;
    Size(kViewWidth, kViewHeight);
    Centre();
}

void frmStage::Form_Resize(Long innerWidth, Long innerHeight) {
    LayOutControls(innerWidth, innerHeight);
}

void frmStage::LayOutControls(Long innerWidth, Long innerHeight) {
    const Long listWidth = ShowStageList != 0 ? form_.lstStages.width : 0;
    form_.picDraw.width = innerWidth > listWidth ? innerWidth - listWidth : 0;
    form_.picDraw.height = innerHeight;
    form_.lstStages.left = form_.picDraw.width;
    form_.lstStages.height = innerHeight;
    form_.lstStages.visible = ShowStageList != 0;
}

void frmStage::Size(Long width, Long height) {
    machine_.window.Size(width, height);
}

void frmStage::Centre() {
    const ScreenSize screen = machine_.window.Screen();
    const WindowPlace place = machine_.window.Place();
    machine_.window.MoveTo((screen.width - place.width) / 2, (screen.height - place.height) / 2);
}

void frmStage::SetCaption(const std::string& caption) {
    form_.Caption = caption;
    machine_.window.SetCaption(caption);
}

}  // namespace scenara
