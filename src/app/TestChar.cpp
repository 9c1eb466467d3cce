// SPDX-License-Identifier: MIT
#include "app/TestChar.h"

#include <cmath>
#include <utility>

#include "app/MenuTree.h"
#include "base/Path.h"
#include "character/LoadCharacter.h"
#include "character/PlaceCharacter.h"

namespace scenara {
namespace {

// Menus off, a load under way, and all of it put back, whatever happens.
class LoadingCharacter {
public:
    explicit LoadingCharacter(const TestCharContext& context)
        : context_(context), loading_(context.loop.LoadingStage) {
        context_.loop.LoadingStage = 1;
        EnableLoadingMenus(context_.form, false);
    }
    LoadingCharacter(const LoadingCharacter&) = delete;
    LoadingCharacter& operator=(const LoadingCharacter&) = delete;
    ~LoadingCharacter() {
        EnableLoadingMenus(context_.form, true);
        context_.loop.LoadingStage = loading_;
    }

private:
    const TestCharContext& context_;
    Byte loading_;
};

// The caption as it was, behind a load that says who is loading.
class KeptCaption {
public:
    explicit KeptCaption(const TestCharContext& context)
        : context_(context), caption_(context.form.Caption) {}
    KeptCaption(const KeptCaption&) = delete;
    KeptCaption& operator=(const KeptCaption&) = delete;
    ~KeptCaption() {
        if (context_.progress.setCaption) {
            context_.progress.setCaption(caption_);
        }
    }

private:
    const TestCharContext& context_;
    std::string caption_;
};

bool Load(const TestCharContext& context, TestCharacter& character) {
    const KeptCaption caption(context);
    // Handlers may run meanwhile and choose another one.
    const std::string path = context.state.TestChar;
    return LoadCharacter(path, character,
                         {context.files, context.messages, context.engine.Device(), context.options,
                          context.progress});
}

bool StageRuns(const TestCharContext& context) {
    return context.loop.StageRunning != 0;
}

// The camera steps as the character walks. Sideways only: that is the way it walks.
void TakeSteps(const TestCharContext& context) {
    SettleSteps(context.model, context.camera, context.options);
    context.savedSteps =
        UsersSteps(context.camera, context.savedSteps, context.state, context.flags);
    context.state.StepsOverridden = true;
    // A step below 0 would go through the bounds, and one of 0 counts as not set.
    const Single step = std::fabs(context.state.Characters.front().WalkSpeed);
    if (step != 0) {
        context.camera.HCamStep = step;
    }
}

void GiveStepsBack(const TestCharContext& context) {
    if (!context.state.StepsOverridden) {
        return;
    }
    context.state.StepsOverridden = false;
    SettleSteps(context.model, context.camera, context.options);
    context.camera.HCamStep = StepOrOne(context.savedSteps.HCamStep);
    context.camera.VCamStep = context.savedSteps.VCamStep;
}

void SetUse(const TestCharContext& context, bool use) {
    context.form[Menu::mnuChar].checked = use;
    context.state.UseChar = use;
}

// The name is of a character that is chosen no more; QX.CFG must not put the two together.
void ForgetName(const TestCharContext& context) {
    context.state.CharName.clear();
    UnnameCharacter(context.form);
}

void TakeStepsIfLoaded(const TestCharContext& context) {
    if (context.state.UseChar && context.state.CharLoaded) {
        TakeSteps(context);
    }
}

}  // namespace

void LoadTestChar(const TestCharContext& context) {
    const LoadingCharacter loading(context);
    TestCharState& state = context.state;
    state.CharCount = 1;
    if (!state.CharLoaded) {
        TestCharacter character;  // in no list that a handler could reach
        if (!Load(context, character)) {
            state.TestChar.clear();
            ForgetName(context);
            GiveStepsBack(context);
            SetUse(context, false);
            return;
        }
        state.Characters.clear();
        state.Characters.push_back(std::move(character));
        state.CharLoaded = true;
        state.CharName = state.Characters.front().DisplayName;
        NameCharacter(context.form, state.CharName);
    }
    PlaceCharacter(state, context.model);
}

void StartTestChar(const TestCharContext& context) {
    if (context.state.UseChar) {
        LoadTestChar(context);
        TakeStepsIfLoaded(context);
    }
}

void mnuChange_Click(const TestCharContext& context, const ChooseCharContext& choose) {
    const std::string folder = choose.mugeDir + "chars" + PathSeparator;
    const std::string chosen = choose.dialogs.OpenFile(
        "Choose test character.", context.files.FolderExists(folder) ? folder : std::string());
    if (chosen.empty()) {
        return;
    }
    if (!choose.isChar(chosen)) {
        context.messages.MsgBox(kMessageNotACharacter, "Not a Character!");
        return;
    }
    context.state.TestChar = chosen;
    ForgetName(context);
    if (StageRuns(context)) {
        ReleaseTestChar(context.state);
        LoadTestChar(context);
        TakeStepsIfLoaded(context);
    }
}

void mnuChar_Click(const TestCharContext& context, const ChooseCharContext& choose) {
    if (context.state.TestChar.empty()) {
        mnuChange_Click(context, choose);
        if (context.state.TestChar.empty()) {
            return;
        }
    }
    SetUse(context, !context.form[Menu::mnuChar].checked);
    if (!context.state.UseChar) {
        GiveStepsBack(context);
    } else if (StageRuns(context)) {
        LoadTestChar(context);
        TakeStepsIfLoaded(context);
    }
}

void TakeCharacterSteps(const TestCharContext& context) {
    TakeStepsIfLoaded(context);
}

void ReleaseTestChar(TestCharState& state) {
    state.CharLoaded = false;
    state.Characters.clear();
    state.Turning = false;
}

}  // namespace scenara
