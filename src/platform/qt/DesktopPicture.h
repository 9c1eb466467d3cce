// SPDX-License-Identifier: MIT
//
// DesktopPicture: where pictures go: to the full screen while that is shown, else to the window.
#pragma once

#include <cstdint>
#include <span>

#include "platform/View.h"
#include "platform/qt/FullScreenWindow.h"
#include "platform/qt/MainWindow.h"
#include "platform/qt/PictureWidget.h"
#include "platform/soft/PictureSink.h"

namespace scenara {

class DesktopPicture : public PictureSink {
public:
    DesktopPicture(MainWindow& window, FullScreenWindow& fullScreen)
        : window_(window), fullScreen_(fullScreen) {}

    HRESULT Show(const CanvasSize& size, std::span<const std::uint32_t> pixels) override {
        return fullScreen_.isVisible() ? fullScreen_.Picture().Show(size, pixels)
                                       : window_.Present(size, pixels);
    }

private:
    MainWindow& window_;
    FullScreenWindow& fullScreen_;
};

}  // namespace scenara
