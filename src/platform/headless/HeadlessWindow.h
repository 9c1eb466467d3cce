// SPDX-License-Identifier: MIT
//
// HeadlessWindow: a main window that nobody sees. It records its captions, and each DoEvents runs
// a script in the place of the user, so that what happens between two images can be tested.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Window.h"

namespace scenara {

class HeadlessWindow : public Window {
public:
    using Script = std::function<void(HeadlessWindow&)>;

    HeadlessWindow() = default;
    explicit HeadlessWindow(Script script) : script_(std::move(script)) {}

    void SetCaption(const std::string& caption) override;
    void DoEvents() override;
    [[nodiscard]] bool EndRequested() const override { return endRequested_; }

    // What closing the window does.
    void RequestEnd() { endRequested_ = true; }

    // Every caption that was set, oldest first.
    [[nodiscard]] const std::vector<std::string>& Captions() const { return captions_; }
    [[nodiscard]] std::size_t DoEventsCount() const { return doEventsCount_; }

private:
    Script script_;
    std::vector<std::string> captions_;
    std::size_t doEventsCount_ = 0;
    bool endRequested_ = false;
};

}  // namespace scenara
