// SPDX-License-Identifier: MIT
#include "desktop/StartupMessages.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <span>
#include <stdexcept>

namespace scenara::test {
namespace {

template <class Reply>
using FreeReply = std::unique_ptr<Reply, decltype(&std::free)>;

}  // namespace

StartupMessages::StartupMessages(const std::string& display)
    : display_(xcb_connect(display.c_str(), nullptr)) {
    if (xcb_connection_has_error(display_.get()) != 0) {
        throw std::runtime_error("no display " + display);
    }
    constexpr std::uint32_t kEvents = XCB_EVENT_MASK_PROPERTY_CHANGE;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(display_.get())).data->root;
    xcb_change_window_attributes(display_.get(), root, XCB_CW_EVENT_MASK, &kEvents);
    begin_ = Atom("_NET_STARTUP_INFO_BEGIN");  // answered: it listens
    more_ = Atom("_NET_STARTUP_INFO");
}

xcb_atom_t StartupMessages::Atom(std::string_view name) const {
    const FreeReply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(display_.get(),
                              xcb_intern_atom(display_.get(), 0,
                                              static_cast<std::uint16_t>(name.size()), name.data()),
                              nullptr),
        &std::free);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

// A message comes in pieces of 20 bytes; the one with a zero is the last.
const std::vector<std::string>& StartupMessages::Heard() {
    static_cast<void>(Atom("_NET_STARTUP_INFO"));  // all before the answer has come with it
    const auto next = [this] {
        return FreeReply<xcb_generic_event_t>(xcb_poll_for_event(display_.get()), &std::free);
    };
    for (auto event = next(); event; event = next()) {
        xcb_client_message_event_t message = {};
        if ((event->response_type & 0x7F) != XCB_CLIENT_MESSAGE) {
            continue;
        }
        std::memcpy(&message, event.get(), sizeof(message));
        if (message.type == begin_) {
            begun_[message.window].clear();
        } else if (message.type != more_ || !begun_.contains(message.window)) {
            continue;
        }
        std::string& text = begun_[message.window];
        const std::span bytes(message.data.data8);
        const auto end = std::ranges::find(bytes, std::uint8_t{0});
        text.append(bytes.begin(), end);
        if (end != bytes.end()) {
            heard_.push_back(text);
            begun_.erase(message.window);
        }
    }
    return heard_;
}

}  // namespace scenara::test
