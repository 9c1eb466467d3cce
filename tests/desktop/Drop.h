// SPDX-License-Identifier: MIT
//
// Drop: another program's files, dragged over a window of an X display and dropped there.
//
// The pointer has no part in it: what a drag is about goes from window to window in messages, and
// the files' names by a selection that is asked for.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <xcb/xcb.h>

#include "base/NotCopied.h"
#include "desktop/DesktopProgram.h"

namespace scenara::test {

class Drop : NotCopied {
public:
    enum class State : std::uint8_t {
        Offered,  // the window has not said whether it wants them
        Dropped,  // it has said so, and has not taken them yet
        Taken,
        Refused,
    };

    // Offers `uris` to the window, at that spot of the screen; one that takes no drops at all
    // refuses them. Throws where there is no such
    // display.
    Drop(const std::string& display, xcb_window_t target, const Spot& spot,
         const std::vector<std::string>& uris);
    ~Drop();

    // Answers what it has been asked since the last look; where it is now.
    State Look();

    // Of a path, whatever bytes it has.
    [[nodiscard]] static std::string UriOf(const std::string& path);

private:
    [[nodiscard]] bool TakesDrops() const;
    void Send(std::string_view type, const std::vector<std::uint32_t>& words) const;
    void Serve(const xcb_selection_request_event_t& asked) const;
    void Hear(const xcb_client_message_event_t& message);
    [[nodiscard]] xcb_atom_t Atom(std::string_view name) const;

    struct Closer {
        void operator()(xcb_connection_t* display) const { xcb_disconnect(display); }
    };

    std::unique_ptr<xcb_connection_t, Closer> display_;
    xcb_window_t window_ = XCB_WINDOW_NONE;  // where it is dragged from; nobody sees it
    xcb_window_t target_;
    std::string list_;
    State state_ = State::Offered;
    mutable std::map<std::string, xcb_atom_t, std::less<>> atoms_;
};

}  // namespace scenara::test
