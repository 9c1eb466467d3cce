// SPDX-License-Identifier: MIT
//
// HeadlessFullScreen: a form over a screen that nobody sees. It takes the user's attention when it
// comes up and gives it back.
#pragma once

#include "platform/FullScreenForm.h"
#include "platform/headless/HeadlessWindow.h"

namespace scenara {

class HeadlessFullScreen : public FullScreenForm {
public:
    static constexpr WindowHandle kHandle = 3;

    explicit HeadlessFullScreen(HeadlessWindow& window) : window_(window) {}

    WindowHandle Show(Beneath mainWindow) override {
        shown_ = true;
        beneath_ = mainWindow;
        window_.SetForeground(kHandle);
        return kHandle;
    }
    void Hide() override {
        shown_ = false;
        window_.SetForeground(HeadlessWindow::kHandle);
    }

    [[nodiscard]] bool Shown() const { return shown_; }
    // What became of the main window when it was shown last.
    [[nodiscard]] Beneath MainWindow() const { return beneath_; }

private:
    HeadlessWindow& window_;
    bool shown_ = false;
    Beneath beneath_ = Beneath::Stays;
};

}  // namespace scenara
