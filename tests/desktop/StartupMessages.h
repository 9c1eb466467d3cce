// SPDX-License-Identifier: MIT
//
// StartupMessages: what programs tell those on an X display who show that something starts, as the
// pointer with a clock does.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <xcb/xcb.h>

#include "base/NotCopied.h"

namespace scenara::test {

class StartupMessages : NotCopied {
public:
    // From now on. Throws where there is no such display.
    explicit StartupMessages(const std::string& display);

    // Those that are whole, in the order of their ends: all that was sent before this was asked.
    [[nodiscard]] const std::vector<std::string>& Heard();

private:
    [[nodiscard]] xcb_atom_t Atom(std::string_view name) const;

    struct Closer {
        void operator()(xcb_connection_t* display) const { xcb_disconnect(display); }
    };

    std::unique_ptr<xcb_connection_t, Closer> display_;
    xcb_atom_t begin_ = XCB_ATOM_NONE;
    xcb_atom_t more_ = XCB_ATOM_NONE;
    std::map<xcb_window_t, std::string> begun_;  // by who sends it
    std::vector<std::string> heard_;
};

}  // namespace scenara::test
