// SPDX-License-Identifier: MIT
//
// HeadlessWindow: a main window that nobody sees. It records its captions and how often it was
// shown, stands where it is told to, and each DoEvents runs a script in the place of the user, so
// that what happens between two images can be tested.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Window.h"

namespace scenara {

class HeadlessWindow : public Window {
public:
    using Script = std::function<void(HeadlessWindow&)>;

    // Nobody's, and yet not 0, which would be no control at all.
    static constexpr WindowHandle kPictureHandle = 1;

    HeadlessWindow() = default;
    explicit HeadlessWindow(Script script) : script_(std::move(script)) {}

    void Show() override { ++showCount_; }
    void SetCaption(const std::string& caption) override;
    void DoEvents() override;
    [[nodiscard]] WindowPlace Place() const override { return place_; }
    [[nodiscard]] WindowHandle PictureHandle() const override { return kPictureHandle; }
    [[nodiscard]] bool EndRequested() const override { return endRequested_; }

    // What moving and sizing the window does. At first it is as large as the view, in the screen's
    // upper left corner.
    void MoveTo(const WindowPlace& place) { place_ = place; }

    // What closing the window does.
    void RequestEnd() { endRequested_ = true; }

    // Every caption that was set, oldest first.
    [[nodiscard]] const std::vector<std::string>& Captions() const { return captions_; }
    [[nodiscard]] std::size_t DoEventsCount() const { return doEventsCount_; }
    [[nodiscard]] std::size_t ShowCount() const { return showCount_; }

private:
    Script script_;
    std::vector<std::string> captions_;
    WindowPlace place_{0, 0, kViewWidth* kUnitsPerPixel, kViewHeight* kUnitsPerPixel};
    std::size_t doEventsCount_ = 0;
    std::size_t showCount_ = 0;
    bool endRequested_ = false;
};

}  // namespace scenara
