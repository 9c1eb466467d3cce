// SPDX-License-Identifier: MIT
#include "desktop/Drop.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace scenara::test {
namespace {

constexpr std::uint32_t kVersion = 5;  // of the messages
constexpr const char* kSelection = "XdndSelection";
constexpr const char* kUris = "text/uri-list";

template <class Reply>
using Freed = std::unique_ptr<Reply, decltype(&std::free)>;

template <class Message>
Message As(const xcb_generic_event_t& event) {
    Message message = {};
    std::memcpy(&message, &event, sizeof(message));
    return message;
}

}  // namespace

Drop::Drop(const std::string& display, xcb_window_t target, const Spot& spot,
           const std::vector<std::string>& uris)
    : display_(xcb_connect(display.c_str(), nullptr)), target_(target) {
    if (xcb_connection_has_error(display_.get()) != 0) {
        throw std::runtime_error("no display " + display);
    }
    for (const std::string& uri : uris) {
        list_ += uri + "\r\n";
    }
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(display_.get())).data->root;
    window_ = xcb_generate_id(display_.get());
    xcb_create_window(display_.get(), 0, window_, root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    if (!TakesDrops()) {
        state_ = State::Refused;
        return;
    }
    xcb_set_selection_owner(display_.get(), window_, Atom(kSelection), XCB_CURRENT_TIME);
    Send("XdndEnter", {kVersion << 24U, Atom(kUris)});
    Send("XdndPosition",
         {0, static_cast<std::uint32_t>(spot.x) << 16U | static_cast<std::uint32_t>(spot.y),
          XCB_CURRENT_TIME, Atom("XdndActionCopy")});
}

// With an answer: a server need not read what is left of a connection that has ended, and the
// target would go on with this drag when the next one comes.
Drop::~Drop() {
    const Freed<xcb_get_input_focus_reply_t> answer(
        xcb_get_input_focus_reply(display_.get(), xcb_get_input_focus(display_.get()), nullptr),
        &std::free);
}

Drop::State Drop::Look() {
    const auto next = [this] {
        return Freed<xcb_generic_event_t>(xcb_poll_for_event(display_.get()), &std::free);
    };
    for (auto event = next(); event; event = next()) {
        const int kind = event->response_type & 0x7F;
        if (kind == XCB_SELECTION_REQUEST) {
            Serve(As<xcb_selection_request_event_t>(*event));
        } else if (kind == XCB_CLIENT_MESSAGE) {
            Hear(As<xcb_client_message_event_t>(*event));
        }
    }
    return state_;
}

bool Drop::TakesDrops() const {
    const Freed<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(
            display_.get(),
            xcb_get_property(display_.get(), 0, target_, Atom("XdndAware"), XCB_ATOM_ATOM, 0, 1),
            nullptr),
        &std::free);
    return reply && reply->value_len == 1;
}

// The second word's lowest bit says yes, in both of the target's messages.
void Drop::Hear(const xcb_client_message_event_t& message) {
    const bool agrees = (message.data.data32[1] & 1U) != 0;
    if (message.type == Atom("XdndStatus") && state_ == State::Offered) {
        if (agrees) {
            Send("XdndDrop", {0, XCB_CURRENT_TIME});
        } else {
            Send("XdndLeave", {});
        }
        state_ = agrees ? State::Dropped : State::Refused;
    } else if (message.type == Atom("XdndFinished") && state_ == State::Dropped) {
        state_ = agrees ? State::Taken : State::Refused;
    }
}

void Drop::Serve(const xcb_selection_request_event_t& asked) const {
    const bool has = asked.target == Atom(kUris) && asked.property != XCB_ATOM_NONE;
    if (has) {
        xcb_change_property(display_.get(), XCB_PROP_MODE_REPLACE, asked.requestor, asked.property,
                            asked.target, 8, static_cast<std::uint32_t>(list_.size()),
                            list_.data());
    }
    xcb_selection_notify_event_t answer = {};
    answer.response_type = XCB_SELECTION_NOTIFY;
    answer.time = asked.time;
    answer.requestor = asked.requestor;
    answer.selection = asked.selection;
    answer.target = asked.target;
    answer.property = has ? asked.property : xcb_atom_t{XCB_ATOM_NONE};
    xcb_send_event(display_.get(), 0, asked.requestor, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&answer));
    xcb_flush(display_.get());
}

// Each message begins with the window that the files come from.
void Drop::Send(std::string_view type, const std::vector<std::uint32_t>& words) const {
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = target_;
    message.type = Atom(type);
    message.data.data32[0] = window_;
    std::ranges::copy(words, message.data.data32 + 1);
    xcb_send_event(display_.get(), 0, target_, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(display_.get());
}

xcb_atom_t Drop::Atom(std::string_view name) const {
    if (const auto known = atoms_.find(name); known != atoms_.end()) {
        return known->second;
    }
    const Freed<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(display_.get(),
                              xcb_intern_atom(display_.get(), 0,
                                              static_cast<std::uint16_t>(name.size()), name.data()),
                              nullptr),
        &std::free);
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    atoms_.emplace(name, atom);
    return atom;
}

std::string Drop::UriOf(const std::string& path) {
    constexpr std::string_view kPlain =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~/";
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string uri = "file://";
    for (const char sign : path) {
        if (kPlain.find(sign) != std::string_view::npos) {
            uri += sign;
        } else {
            const auto byte = static_cast<unsigned char>(sign);
            uri += {'%', kDigits[byte >> 4U], kDigits[byte & 15U]};
        }
    }
    return uri;
}

}  // namespace scenara::test
