// SPDX-License-Identifier: MIT
#include "desktop/Hands.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <utility>

#include <X11/keysym.h>
#include <xcb/xtest.h>

namespace scenara::test {
namespace {

template <class Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

template <class Reply>
Owned<Reply> Own(Reply* reply) {
    return {reply, &std::free};
}

constexpr std::uint32_t kPager = 2;  // who asks

const std::map<std::string_view, xcb_keysym_t>& NamedKeys() {
    static const std::map<std::string_view, xcb_keysym_t> keys = {
        {"ctrl", XK_Control_L},
        {"alt", XK_Alt_L},
        {"shift", XK_Shift_L},
        {"Left", XK_Left},
        {"Right", XK_Right},
        {"Up", XK_Up},
        {"Down", XK_Down},
        {"Page_Up", XK_Page_Up},
        {"Page_Down", XK_Page_Down},
        {"Home", XK_Home},
        {"End", XK_End},
        {"Insert", XK_Insert},
        {"Delete", XK_Delete},
        {"BackSpace", XK_BackSpace},
        {"Escape", XK_Escape},
        {"Return", XK_Return},
        {"KP_Enter", XK_KP_Enter},
        {"KP_Add", XK_KP_Add},
        {"KP_Subtract", XK_KP_Subtract},
        {"Tab", XK_Tab},
        {"Pause", XK_Pause},
        {"Menu", XK_Menu},
        {"space", XK_space},
        {"plus", XK_plus},
        {"minus", XK_minus},
        {"equal", XK_equal},
        {"F1", XK_F1},
        {"F2", XK_F2},
        {"F3", XK_F3},
        {"F4", XK_F4},
        {"F5", XK_F5},
        {"F6", XK_F6},
        {"F7", XK_F7},
        {"F8", XK_F8},
        {"F9", XK_F9},
        {"F10", XK_F10},
        {"F11", XK_F11},
        {"F12", XK_F12},
    };
    return keys;
}

// At most so many words of four bytes.
auto PropertyOf(xcb_connection_t* display, xcb_window_t window, xcb_atom_t name,
                std::uint32_t most) {
    return Own(xcb_get_property_reply(
        display, xcb_get_property(display, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, most),
        nullptr));
}

}  // namespace

Hands::Hands(const std::string& display) : display_(xcb_connect(display.c_str(), nullptr)) {
    if (xcb_connection_has_error(display_.get()) != 0) {
        throw std::runtime_error("no display " + display);
    }
    const xcb_setup_t* const setup = xcb_get_setup(display_.get());
    screen_ = xcb_setup_roots_iterator(setup).data;
    const auto version = Own(xcb_test_get_version_reply(
        display_.get(), xcb_test_get_version(display_.get(), 2, 2), nullptr));
    firstCode_ = setup->min_keycode;
    const auto map = Own(xcb_get_keyboard_mapping_reply(
        display_.get(),
        xcb_get_keyboard_mapping(
            display_.get(), setup->min_keycode,
            static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1)),
        nullptr));
    if (!version || !map) {
        throw std::runtime_error("a display without keys to press");
    }
    symbolsPerCode_ = map->keysyms_per_keycode;
    const xcb_keysym_t* const symbols = xcb_get_keyboard_mapping_keysyms(map.get());
    symbols_.assign(symbols, symbols + xcb_get_keyboard_mapping_keysyms_length(map.get()));
    // Answers to pings go to the root window; Qt's to those who ask for events of the second kind.
    constexpr std::uint32_t kEvents =
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(display_.get(), screen_->root, XCB_CW_EVENT_MASK, &kEvents);
    xcb_flush(display_.get());
}

Hands::~Hands() = default;

// --- keys and pointer ---

Hands::KeyCode Hands::CodeOfSymbol(xcb_keysym_t symbol) const {
    for (const std::size_t level : {0U, 1U}) {
        for (std::size_t at = level; level < symbolsPerCode_ && at < symbols_.size();
             at += symbolsPerCode_) {
            if (symbols_[at] == symbol) {
                return {static_cast<xcb_keycode_t>(firstCode_ + at / symbolsPerCode_), level == 1};
            }
        }
    }
    return {};
}

Hands::KeyCode Hands::CodeOf(std::string_view key) const {
    const auto named = NamedKeys().find(key);
    KeyCode code;
    if (named != NamedKeys().end()) {
        code = CodeOfSymbol(named->second);
    } else if (key.size() == 1) {
        code = CodeOfSymbol(static_cast<unsigned char>(key[0]));  // as Latin-1 has it
    }
    if (code.code == 0) {
        throw std::invalid_argument("no key " + std::string(key));
    }
    return code;
}

void Hands::Fake(std::uint8_t type, std::uint8_t detail, const Spot& spot) const {
    xcb_test_fake_input(display_.get(), type, detail, XCB_CURRENT_TIME, screen_->root,
                        static_cast<std::int16_t>(spot.x), static_cast<std::int16_t>(spot.y), 0);
    xcb_flush(display_.get());
}

void Hands::Press(std::string_view keys) const {
    std::vector<xcb_keycode_t> codes;
    for (bool more = true; more;) {
        const std::size_t end = keys.find('+');
        const KeyCode code = CodeOf(keys.substr(0, end));
        if (code.shifted) {
            codes.push_back(CodeOf("shift").code);
        }
        codes.push_back(code.code);
        more = end != std::string_view::npos;
        keys.remove_prefix(more ? end + 1 : keys.size());
    }
    for (const xcb_keycode_t code : codes) {
        Fake(XCB_KEY_PRESS, code);
    }
    std::ranges::reverse(codes);
    for (const xcb_keycode_t code : codes) {
        Fake(XCB_KEY_RELEASE, code);
    }
}

void Hands::Hold(std::string_view key, bool down) const {
    Fake(down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, CodeOf(key).code);
}

void Hands::Type(std::string_view text) const {
    const xcb_keycode_t shift = CodeOf("shift").code;
    for (const char letter : text) {
        const KeyCode code = CodeOfSymbol(static_cast<unsigned char>(letter));
        if (code.code == 0) {
            continue;
        }
        if (code.shifted) {
            Fake(XCB_KEY_PRESS, shift);
        }
        Fake(XCB_KEY_PRESS, code.code);
        Fake(XCB_KEY_RELEASE, code.code);
        if (code.shifted) {
            Fake(XCB_KEY_RELEASE, shift);
        }
    }
}

void Hands::MoveTo(const Spot& spot) const {
    Fake(XCB_MOTION_NOTIFY, 0, spot);
}

void Hands::Button(int button, bool down) const {
    Fake(down ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(button));
}

void Hands::Click(int button, int times) const {
    for (int i = 0; i < times; ++i) {
        Button(button, true);
        Button(button, false);
    }
}

// --- windows ---

xcb_atom_t Hands::Atom(std::string_view name) const {
    if (const auto known = atoms_.find(name); known != atoms_.end()) {
        return known->second;
    }
    const auto reply = Own(xcb_intern_atom_reply(
        display_.get(),
        xcb_intern_atom(display_.get(), 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    const xcb_atom_t atom = reply && !name.empty() ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    atoms_.emplace(name, atom);
    return atom;
}

std::vector<std::uint32_t> Hands::Property(xcb_window_t window, std::string_view name) const {
    constexpr std::uint32_t kMost = 1024;
    const auto reply = PropertyOf(display_.get(), window, Atom(name), kMost);
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto* const words =
        static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {words, words + reply->value_len};
}

std::string Hands::TextProperty(xcb_window_t window, std::string_view name) const {
    constexpr std::uint32_t kMost = 256;
    const auto reply = PropertyOf(display_.get(), window, Atom(name), kMost);
    if (!reply || reply->format != 8) {
        return {};
    }
    return {static_cast<const char*>(xcb_get_property_value(reply.get())), reply->value_len};
}

Place Hands::PlaceOf(xcb_window_t window) const {
    const auto size = Own(
        xcb_get_geometry_reply(display_.get(), xcb_get_geometry(display_.get(), window), nullptr));
    const auto corner = Own(xcb_translate_coordinates_reply(
        display_.get(), xcb_translate_coordinates(display_.get(), window, screen_->root, 0, 0),
        nullptr));
    if (!size || !corner) {
        return {};
    }
    return {corner->dst_x, corner->dst_y, size->width, size->height};
}

bool Hands::IsViewable(xcb_window_t window) const {
    const auto reply = Own(xcb_get_window_attributes_reply(
        display_.get(), xcb_get_window_attributes(display_.get(), window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

std::vector<ProgramWindow> Hands::WindowsOf(pid_t program) const {
    const auto isOurs = [&](xcb_window_t window) {
        return Property(window, "_NET_WM_PID") == std::vector{static_cast<std::uint32_t>(program)};
    };
    std::vector<ProgramWindow> windows;
    const auto add = [&](xcb_window_t window, ProgramWindow::Kind kind) {
        windows.push_back({window, kind, IsViewable(window), PlaceOf(window),
                           TextProperty(window, "_NET_WM_NAME")});
    };
    for (const xcb_window_t window : Property(screen_->root, "_NET_CLIENT_LIST_STACKING")) {
        if (isOurs(window)) {
            add(window, Property(window, "WM_TRANSIENT_FOR").empty() ? ProgramWindow::Kind::Main
                                                                     : ProgramWindow::Kind::Dialog);
        }
    }
    const auto tree = Own(xcb_query_tree_reply(
        display_.get(), xcb_query_tree(display_.get(), screen_->root), nullptr));
    if (!tree) {
        return windows;
    }
    const xcb_window_t* const children = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        const bool isManaged = std::ranges::any_of(
            windows, [&](const ProgramWindow& window) { return window.id == children[i]; });
        if (!isManaged && isOurs(children[i]) && IsViewable(children[i])) {
            add(children[i], ProgramWindow::Kind::Popup);
        }
    }
    return windows;
}

xcb_window_t Hands::ActiveWindow() const {
    const std::vector<std::uint32_t> active = Property(screen_->root, "_NET_ACTIVE_WINDOW");
    return active.empty() ? xcb_window_t{XCB_WINDOW_NONE} : active[0];
}

xcb_window_t Hands::TopWindow() const {
    const std::vector<std::uint32_t> all = Property(screen_->root, "_NET_CLIENT_LIST_STACKING");
    return all.empty() ? xcb_window_t{XCB_WINDOW_NONE} : all.back();
}

// --- requests ---

void Hands::Ask(xcb_window_t window, std::string_view what,
                const std::vector<std::uint32_t>& words) const {
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = Atom(what);
    std::ranges::copy(words, message.data.data32);
    xcb_send_event(display_.get(), 0, screen_->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(display_.get());
}

void Hands::Activate(xcb_window_t window) const {
    Ask(window, "_NET_ACTIVE_WINDOW", {kPager, XCB_CURRENT_TIME});
}

void Hands::Close(xcb_window_t window) const {
    Ask(window, "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, kPager});
}

void Hands::Minimise(xcb_window_t window) const {
    constexpr std::uint32_t kIconic = 3;
    Ask(window, "WM_CHANGE_STATE", {kIconic});
}

void Hands::MoveAndSize(xcb_window_t window, const Place& place) const {
    constexpr std::uint32_t kAllFour = 0xF00;
    const auto word = [](int number) { return static_cast<std::uint32_t>(number); };
    Ask(window, "_NET_MOVERESIZE_WINDOW",
        {kAllFour | kPager << 12U, word(place.left), word(place.top), word(place.width),
         word(place.height)});
}

void Hands::ChangeState(xcb_window_t window, Change change, std::string_view state,
                        std::string_view other) const {
    Ask(window, "_NET_WM_STATE",
        {static_cast<std::uint32_t>(change), Atom(state), Atom(other), kPager});
}

void Hands::SendToWorkspace(xcb_window_t window, std::uint32_t workspace) const {
    Ask(window, "_NET_WM_DESKTOP", {workspace, kPager});
}

void Hands::MakeWorkspaces(std::uint32_t count) const {
    Ask(screen_->root, "_NET_NUMBER_OF_DESKTOPS", {count});
}

void Hands::GoToWorkspace(std::uint32_t workspace) const {
    Ask(screen_->root, "_NET_CURRENT_DESKTOP", {workspace, XCB_CURRENT_TIME});
}

std::uint32_t Hands::Ping(xcb_window_t window) {
    ++pings_;
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = Atom("WM_PROTOCOLS");
    message.data.data32[0] = Atom("_NET_WM_PING");
    message.data.data32[1] = pings_;  // comes back
    message.data.data32[2] = window;
    xcb_send_event(display_.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(display_.get());
    return pings_;
}

std::uint32_t Hands::LastAnswer() {
    const xcb_atom_t ping = Atom("_NET_WM_PING");
    for (auto event = Own(xcb_poll_for_event(display_.get())); event;
         event = Own(xcb_poll_for_event(display_.get()))) {
        xcb_client_message_event_t message = {};
        if ((event->response_type & 0x7FU) != XCB_CLIENT_MESSAGE) {
            continue;
        }
        std::memcpy(&message, event.get(), sizeof(message));
        if (message.data.data32[0] == ping) {
            answered_ = message.data.data32[1];
        }
    }
    return answered_;
}

// --- what is beside the program ---

void Hands::ShowOther(const Place& place) {
    if (other_ == XCB_WINDOW_NONE) {
        other_ = xcb_generate_id(display_.get());
        xcb_create_window(
            display_.get(), XCB_COPY_FROM_PARENT, other_, screen_->root,
            static_cast<std::int16_t>(place.left), static_cast<std::int16_t>(place.top),
            static_cast<std::uint16_t>(place.width), static_cast<std::uint16_t>(place.height), 0,
            XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL, &kBackground);
        xcb_map_window(display_.get(), other_);
        xcb_flush(display_.get());
        return;
    }
    Activate(other_);
}

void Hands::CloseOther() {
    if (other_ != XCB_WINDOW_NONE) {
        xcb_destroy_window(display_.get(), other_);
        xcb_flush(display_.get());
        other_ = XCB_WINDOW_NONE;
    }
}

Place Hands::Screen() const {
    return PlaceOf(screen_->root);
}

Screenshot Hands::Look(const Place& place) const {
    const auto image = Own(xcb_get_image_reply(
        display_.get(),
        xcb_get_image(display_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, screen_->root,
                      static_cast<std::int16_t>(place.left), static_cast<std::int16_t>(place.top),
                      static_cast<std::uint16_t>(place.width),
                      static_cast<std::uint16_t>(place.height), 0xFFFFFFFFU),
        nullptr));
    Screenshot shot;
    const std::size_t pixels =
        static_cast<std::size_t>(place.width) * static_cast<std::size_t>(place.height);
    if (!image || static_cast<std::size_t>(xcb_get_image_data_length(image.get())) < pixels * 4) {
        return shot;
    }
    shot.width = place.width;
    shot.height = place.height;
    shot.rgb.resize(pixels);
    std::memcpy(shot.rgb.data(), xcb_get_image_data(image.get()), pixels * 4);
    for (std::uint32_t& pixel : shot.rgb) {
        pixel &= 0xFFFFFFU;
    }
    return shot;
}

}  // namespace scenara::test
