// SPDX-License-Identifier: MIT
#include "literal/ProgramStage.h"

#include <stdexcept>
#include <utility>

#include "render/ZoomControl.h"
#include "stage/StageSpace.h"
#include "support/StageFixture.h"

namespace scenara::test {

ProgramStage::ProgramStage(std::unique_ptr<Files> files, const std::string& stageFile,
                           const ViewOptions& view, std::function<void(StageModel&)> change)
    : view_(view),
      files_(std::move(files)),
      change_(std::move(change)),
      direct3D_(KeptTextureMemory(), &shown_),
      show_({*files_, messages_, window_, keyboard_, clock_, pointer_, direct3D_}, view, *this) {
    show_.Which.shown = stageFile;
    if (!show_.Start("/mugen/")) {
        throw std::runtime_error("the stage does not load");
    }
    show_.BeginLoop();
}

void ProgramStage::SetZoom(double zoom) {
    StageModel& model = show_.Model();
    scenara::SetZoom(model, show_.CameraState(), ViewOf(model, view_), zoom);
}

void ProgramStage::RunFrame(const LiteralKeys& keys) {
    KeySet held;
    const auto hold = [&](bool isHeld, VirtualKey key) {
        if (isHeld) {
            held.Add(key);
        }
    };
    hold(keys.left, VirtualKey::Left);
    hold(keys.right, VirtualKey::Right);
    hold(keys.up, VirtualKey::Up);
    hold(keys.down, VirtualKey::Down);
    keyboard_.Hold(held);
    static_cast<void>(show_.Draw(false));
    show_.Present(false);
    clock_.Advance();
}

ShownCanvas ProgramStage::Canvas() const {
    return CanvasOf(shown_.Size(), shown_.Pixels());
}

}  // namespace scenara::test
