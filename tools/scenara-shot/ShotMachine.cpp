// SPDX-License-Identifier: MIT
#include "scenara-shot/ShotMachine.h"

#include <utility>

#include "app/StagePass.h"
#include "app/TestChar.h"
#include "base/Path.h"
#include "platform/soft/TextureMemory.h"
#include "stage/LoadStage.h"

namespace scenara {

ShotMachine::ShotMachine(Files& files, HeadlessMessages::Observer onMessage,
                         const ViewOptions& view)
    : files_(files),
      view_(view),
      messages_(std::move(onMessage)),
      direct3D_(std::make_shared<TextureMemory>(), &shown_),
      engine_(direct3D_, window_, messages_, model_),
      tiles_(engine_, model_, camera_, flags_, view_, {keyboard_, clock_, pointer_, window_}),
      character_{testChar_, camera_, keyboard_, flags_, view_} {}

bool ShotMachine::Start(std::string stageFile, const std::string& mugeDir,
                        const std::string& charFile) {
    engine_.Engine_Init();
    if (!engine_.HasDevice()) {
        return false;
    }
    const LoadStageContext load{
        files_, messages_, window_, engine_.Device(), view_, WithSeparator(mugeDir), {}};
    testChar_.TestChar = charFile;
    testChar_.UseChar = !charFile.empty();
    form_[Menu::mnuChar].checked = testChar_.UseChar;
    const TestCharContext character{testChar_, model_,  camera_, savedSteps_, loop_, form_,
                                    flags_,    engine_, files_,  messages_,   view_, {}};
    StartStage(stageFile, {model_,
                           camera_,
                           savedSteps_,
                           loop_,
                           form_.hscHScroll,
                           keyboard_,
                           load,
                           {},
                           {},
                           &character});
    loop_.LastFpsTick = kNoFpsTick;
    return loop_.StageRunning != 0;
}

void ShotMachine::RunFrame(const KeySet& keys, bool info) {
    keyboard_.Hold(keys);
    const StagePass pass{engine_, tiles_, flags_,    loop_,     clock_,
                         model_,  info,   infoText_, character_};
    static_cast<void>(DrawAndCount(pass));
    ShowPicture(pass);
    clock_.Advance();
}

}  // namespace scenara
