// SPDX-License-Identifier: MIT
//
// StageInView: a stage on a device without a window, for measuring its frames.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "platform/View.h"
#include "platform/headless/HeadlessClock.h"
#include "platform/headless/HeadlessKeyboard.h"
#include "platform/headless/HeadlessMessages.h"
#include "platform/headless/HeadlessPointer.h"
#include "platform/headless/HeadlessWindow.h"
#include "platform/soft/SoftDirect3D.h"
#include "render/CopyStrip.h"
#include "render/Frame.h"
#include "render/PrepareStage.h"
#include "render/SeenFrom.h"
#include "render/TilePatterns.h"
#include "stage/StageModel.h"
#include "stage/StageSpace.h"
#include "stage/ViewOptions.h"

namespace scenara::bench {

class StageInView {
public:
    // `fill` gets the model, the device and where messages go, and makes the stage.
    template <typename Fill>
    explicit StageInView(const ViewOptions& view, Fill fill)
        : view_(view),
          machine_(std::make_shared<TextureMemory>()),
          engine_(machine_, window_, messages_, model_, picture_),
          tiles_(engine_, model_, camera_, picture_, flags_, view_,
                 {keyboard_, clock_, pointer_, window_}) {
        engine_.Engine_Init();
        if (!engine_.HasDevice()) {
            throw std::runtime_error(messages_.Recorded().back().text);
        }
        fill(model_, engine_.Device(), messages_);
        picture_ = ViewOf(model_, view_);
        PlaceCamera(model_, camera_, picture_);
        engine_.FitView();
        PrepareElements(model_, view_, picture_);
        MakeTilePatterns(model_, view_, picture_, engine_.Device());
        NoteWhereSeen(model_, picture_);
        engine_.MakeStrip(StripLines(model_, view_, picture_));
    }

    void Draw() {
        DrawScene(engine_, tiles_, flags_);
        clock_.Advance();
    }

    [[nodiscard]] std::size_t ElementCount() const { return model_.Elements.size(); }

private:
    ViewOptions view_;
    SoftDirect3D machine_;
    HeadlessWindow window_;
    HeadlessMessages messages_;
    HeadlessKeyboard keyboard_;
    HeadlessClock clock_;
    HeadlessPointer pointer_;
    StageModel model_;
    Camera camera_;
    ViewFlags flags_;
    View picture_;
    Engine engine_;
    TileEngine tiles_;
};

}  // namespace scenara::bench
