// SPDX-License-Identifier: MIT
//
// X11DisplayModes: the modes of the screen on which the main window stands, on an X display.
//
// The plain full screen wants a mode of 320 x 240, 24 bits and 60 Hz, which screens of today do not
// have. Then one such mode is listed after the screen's own. Switching to it changes nothing on the
// display. It counts as the one in force until another is asked for, and the window then shows
// itself over the whole screen.
//
// A mode that was switched to is taken back by Restore(), by the destructor, and when the program
// dies.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/DisplayModes.h"
#include "platform/View.h"
#include "platform/x11/ModeGuard.h"
#include "platform/x11/X11Modes.h"

namespace scenara {

class X11DisplayModes : public DisplayModes {
public:
    // The listed mode where there is none of the kind.
    static constexpr DisplaySettings kEmulated{CanvasSize().width, CanvasSize().height, 24, 60,
                                               true};

    // `windowPlace`: where the main window stands. `display`: the one that it is on; empty: none.
    X11DisplayModes(std::function<ScreenRectangle()> windowPlace, std::string display);
    ~X11DisplayModes() override { Restore(); }

    [[nodiscard]] std::optional<DisplaySettings> EnumDisplaySettings(Long index) override;
    [[nodiscard]] DisplaySettings Current() override {
        return emulatedInForce_ ? kEmulated : ShownMode();
    }
    bool ChangeDisplaySettings(const DisplaySettings& mode) override;

    // The mode that was in force before the first switch.
    void Restore();

private:
    void ReadModes();
    [[nodiscard]] std::optional<xcb_randr_mode_t> ModeWith(const DisplaySettings& settings) const;
    [[nodiscard]] DisplaySettings ShownMode() const;

    std::function<ScreenRectangle()> windowPlace_;
    std::string display_;
    X11Modes connection_;
    std::optional<X11Screen> screen_;  // as it was when the modes were read, and not switched
    std::vector<X11Mode> modes_;
    bool emulates_ = false;
    bool emulatedInForce_ = false;
    std::unique_ptr<ModeGuard> guard_;  // while a mode is switched
};

}  // namespace scenara
