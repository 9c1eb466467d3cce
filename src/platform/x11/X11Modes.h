// SPDX-License-Identifier: MIT
//
// X11Modes: a display's outputs and their modes, on one connection of its own.
//
// Every request is answered or has failed when a call returns; a failure is an answer that is
// empty or false, never an error that ends the program. A connection that cannot be made, or has
// broken, has no outputs.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <xcb/randr.h>
#include <xcb/xcb.h>

#include "platform/DisplayModes.h"

namespace scenara {

// What a screen shows: all that is needed to bring it back.
struct X11Screen {
    xcb_randr_crtc_t crtc = XCB_NONE;
    xcb_randr_mode_t mode = XCB_NONE;
    std::int16_t x = 0;
    std::int16_t y = 0;
    std::uint16_t width = 0;  // of the shown area, turned as it is
    std::uint16_t height = 0;
    std::uint16_t rotation = XCB_RANDR_ROTATION_ROTATE_0;
    std::vector<xcb_randr_output_t> outputs;
};

struct X11Mode {
    xcb_randr_mode_t id = XCB_NONE;
    DisplaySettings settings;
};

class X11Modes {
public:
    // An empty name: there is no display.
    explicit X11Modes(const std::string& display);

    // The screen on which most of the rectangle lies; where it lies on none, the primary one, else
    // the first. Nothing where there are none.
    [[nodiscard]] std::optional<X11Screen> ScreenAt(const ScreenRectangle& place) const;

    // How that screen stands now.
    [[nodiscard]] std::optional<X11Screen> ScreenOf(xcb_randr_crtc_t crtc) const;

    // Its modes in the server's order, the one in force among them.
    [[nodiscard]] std::vector<X11Mode> ModesOf(const X11Screen& screen) const;

    // Puts the screen into this state; whether it worked.
    [[nodiscard]] bool Set(const X11Screen& screen) const;

    // The whole display area, for a display without outputs.
    [[nodiscard]] DisplaySettings WholeArea() const;

    [[nodiscard]] int Descriptor() const { return xcb_get_file_descriptor(connection_.get()); }

private:
    [[nodiscard]] bool Works() const {
        return randr_ && xcb_connection_has_error(connection_.get()) == 0;
    }
    [[nodiscard]] std::vector<xcb_randr_output_t> ConnectedOutputs(
        const xcb_randr_get_screen_resources_current_reply_t& resources) const;

    std::shared_ptr<xcb_connection_t> connection_;
    xcb_screen_t* screen_ = nullptr;
    bool randr_ = false;
};

}  // namespace scenara
