// SPDX-License-Identifier: MIT
//
// ProgramStage: a stage in the program, on the headless machine, whose pictures may be changed once
// they are loaded and before anything is made of them.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "literal/LiteralStage.h"
#include "literal/ProgramCanvas.h"
#include "platform/headless/HeadlessClock.h"
#include "platform/headless/HeadlessKeyboard.h"
#include "platform/headless/HeadlessMessages.h"
#include "platform/headless/HeadlessPointer.h"
#include "platform/headless/HeadlessWindow.h"
#include "platform/soft/SoftDirect3D.h"
#include "scenara-shot/ShotMachine.h"
#include "show/StageShow.h"
#include "stage/ViewOptions.h"

namespace scenara::test {

class ProgramStage : private ShowEvents {
public:
    // Raises what a test fails by when the stage does not load.
    ProgramStage(std::unique_ptr<Files> files, const std::string& stageFile,
                 const ViewOptions& view, std::function<void(StageModel&)> change);

    // As far as the stage goes.
    void SetZoom(double zoom);
    void RunFrame(const LiteralKeys& keys);
    [[nodiscard]] ShownCanvas Canvas() const;

private:
    void StageLoaded() override { change_(show_.Model()); }

    ViewOptions view_;
    std::unique_ptr<Files> files_;
    std::function<void(StageModel&)> change_;
    HeadlessMessages messages_;
    HeadlessWindow window_;
    HeadlessKeyboard keyboard_;
    HeadlessClock clock_;
    HeadlessPointer pointer_;
    ShownPicture shown_;
    SoftDirect3D direct3D_;
    StageShow show_;
};

}  // namespace scenara::test
