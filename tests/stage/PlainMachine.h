// SPDX-License-Identifier: MIT
//
// PlainMachine: a whole machine for loading stages plainly, without additions.
#pragma once

#include <string>

#include "support/StageFixture.h"

namespace scenara::test {

class PlainMachine : public StageMachine {
public:
    PlainMachine() { view.Additions = false; }

    // A load's context with other files, messages or window than the machine's own.
    LoadStageContext Context(Files& otherFiles, Messages& otherMessages, Window& otherWindow,
                             const std::string& mugeDir = "/mugen/") {
        return {otherFiles,
                otherMessages,
                otherWindow,
                device,
                view,
                mugeDir,
                [this](const std::string& file) { music = file; },
                &png};
    }
    LoadStageContext Context(Messages& otherMessages, Window& otherWindow) {
        return Context(files, otherMessages, otherWindow);
    }
};

}  // namespace scenara::test
