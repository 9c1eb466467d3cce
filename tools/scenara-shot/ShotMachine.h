// SPDX-License-Identifier: MIT
//
// ShotMachine: a stage on the headless machine, frame by frame.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/Files.h"
#include "platform/headless/HeadlessClock.h"
#include "platform/headless/HeadlessKeyboard.h"
#include "platform/headless/HeadlessMessages.h"
#include "platform/headless/HeadlessPointer.h"
#include "platform/headless/HeadlessWindow.h"
#include "platform/soft/PictureSink.h"
#include "platform/soft/SoftDirect3D.h"
#include "show/ShowEvents.h"
#include "show/StageShow.h"
#include "stage/ViewOptions.h"

namespace scenara {

// Keeps the picture that was shown last.
class ShownPicture : public PictureSink {
public:
    HRESULT Show(const CanvasSize& size, std::span<const std::uint32_t> pixels) override {
        size_ = size;
        pixels_.assign(pixels.begin(), pixels.end());
        return D3D_OK;
    }
    [[nodiscard]] const CanvasSize& Size() const { return size_; }
    [[nodiscard]] const std::vector<std::uint32_t>& Pixels() const { return pixels_; }

private:
    CanvasSize size_;
    std::vector<std::uint32_t> pixels_;
};

class ShotMachine {
public:
    // Files and what reads PNG pictures outlive it.
    ShotMachine(Files& files, const PngPictures* png, HeadlessMessages::Observer onMessage,
                const ViewOptions& view);

    // Loads and prepares the stage; False when it cannot be shown, which has been said. With a
    // character's definition that character is switched on; when it cannot be loaded, which is
    // said, too, the stage is shown without it.
    [[nodiscard]] bool Start(const std::string& stageFile, const std::string& mugeDir,
                             const std::string& charFile = {});

    // Draws and shows one frame with these keys down, and lets the clock go on by one.
    void RunFrame(const KeySet& keys, bool info);

    // The same for a frame that nobody looks at: with additions it is not drawn. Plainly a picture
    // shows what was drawn before it.
    void PassFrame(const KeySet& keys, bool info);

    // The camera's zoom from the next frame on, as far as the stage goes.
    void Zoom(double zoom) { show_.ZoomTo(zoom); }

    [[nodiscard]] const StageModel& Model() const { return show_.Model(); }
    [[nodiscard]] const TestCharState& TestChar() const { return show_.TestChar(); }
    [[nodiscard]] const std::vector<Message>& Recorded() const { return messages_.Recorded(); }
    [[nodiscard]] const CanvasSize& PictureSize() const { return shown_.Size(); }
    [[nodiscard]] const std::vector<std::uint32_t>& Picture() const { return shown_.Pixels(); }

private:
    ViewOptions view_;
    HeadlessMessages messages_;
    HeadlessWindow window_;
    HeadlessKeyboard keyboard_;
    HeadlessClock clock_;
    HeadlessPointer pointer_;
    ShownPicture shown_;
    SoftDirect3D direct3D_;
    ShowEvents events_;
    StageShow show_;
};

}  // namespace scenara
