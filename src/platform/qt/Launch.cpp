// SPDX-License-Identifier: MIT
#include "platform/qt/Launch.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

#include <xcb/xcb.h>

#include "platform/qt/Display.h"
#include "platform/qt/Environment.h"
#include "platform/qt/XDisplay.h"

namespace scenara {
namespace {

// Milliseconds until a window that has asked for the focus should have it.
constexpr int kFocusPatience = 500;

// Milliseconds; the display's time begins anew after its greatest number. A terminal may leave its
// own name to what is started in it, long after.
constexpr std::uint32_t kMostOfAStart = 30000;

constexpr const char* kToken = "XDG_ACTIVATION_TOKEN";

// A connection of its own with a window that nobody sees: what happens to that is no business of
// the toolkit's.
class HiddenWindow {
public:
    HiddenWindow() : display_(xcb_connect(DisplayName().c_str(), nullptr)) {
        if (IsOpen()) {
            constexpr std::uint32_t kEvents = XCB_EVENT_MASK_PROPERTY_CHANGE;
            window_ = xcb_generate_id(display_);
            xcb_create_window(display_, 0, window_, XRoot(), 0, 0, 1, 1, 0,
                              XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                              &kEvents);
        }
    }
    HiddenWindow(const HiddenWindow&) = delete;
    HiddenWindow& operator=(const HiddenWindow&) = delete;
    ~HiddenWindow() { xcb_disconnect(display_); }

    // The display tells the time with each change of a property.
    [[nodiscard]] std::optional<xcb_timestamp_t> Time() const {
        if (!IsOpen()) {
            return std::nullopt;
        }
        xcb_change_property(display_, XCB_PROP_MODE_REPLACE, window_, XCB_ATOM_WM_NAME,
                            XCB_ATOM_STRING, 8, 0, nullptr);
        xcb_flush(display_);
        while (true) {
            const OwnedReply<xcb_generic_event_t> event(xcb_wait_for_event(display_), &std::free);
            if (!event) {
                return std::nullopt;  // the display is gone
            }
            if ((event->response_type & 0x7FU) == XCB_PROPERTY_NOTIFY) {
                return reinterpret_cast<const xcb_property_notify_event_t*>(event.get())->time;
            }
        }
    }

    // To all who show what starts: in messages of 20 bytes, the last of which ends with a zero.
    void Broadcast(const std::string& text) const {
        constexpr std::size_t kMessage = 20;
        if (!IsOpen()) {
            return;
        }
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 8;
        message.window = window_;
        message.type = XAtom("_NET_STARTUP_INFO_BEGIN");
        for (std::size_t at = 0; at <= text.size(); at += kMessage) {
            std::fill(std::begin(message.data.data8), std::end(message.data.data8),
                      std::uint8_t{0});
            text.copy(reinterpret_cast<char*>(message.data.data8), kMessage, at);
            xcb_send_event(display_, 0, XRoot(), XCB_EVENT_MASK_PROPERTY_CHANGE,
                           reinterpret_cast<const char*>(&message));
            message.type = XAtom("_NET_STARTUP_INFO");
        }
        // With an answer: the display need not read what is left of a connection that has ended.
        const OwnedReply<xcb_get_input_focus_reply_t> answer(
            xcb_get_input_focus_reply(display_, xcb_get_input_focus(display_), nullptr),
            &std::free);
    }

private:
    [[nodiscard]] bool IsOpen() const { return xcb_connection_has_error(display_) == 0; }

    xcb_connection_t* display_;
    xcb_window_t window_ = 0;
};

// When the user asked for the start of that name, in the display's time; 0: it does not say.
std::uint32_t TimeIn(std::string_view id) {
    constexpr std::string_view kBefore = "_TIME";
    const std::size_t at = id.rfind(kBefore);
    if (at == std::string_view::npos) {
        return 0;
    }
    const std::string_view digits = id.substr(at + kBefore.size());
    std::uint32_t time = 0;
    const char* const all = digits.data() + digits.size();
    const auto [end, error] = std::from_chars(digits.data(), all, time);
    return error == std::errc() && end == all ? time : 0;
}

// As the window itself would ask for it at this time, on X.
void AskForFocus(xcb_connection_t* display, const QWindow& window, xcb_timestamp_t time) {
    const auto id = static_cast<xcb_window_t>(window.winId());
    xcb_change_property(display, XCB_PROP_MODE_REPLACE, id, XAtom("_NET_WM_USER_TIME"),
                        XCB_ATOM_CARDINAL, 32, 1, &time);
    constexpr std::uint32_t kFromProgram = 1;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = id;
    message.type = XAtom("_NET_ACTIVE_WINDOW");
    message.data.data32[0] = kFromProgram;
    message.data.data32[1] = time;
    xcb_send_event(display, 0, XRoot(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(display);
}

void Activate(QWidget& window, const std::string& mark) {
    xcb_connection_t* const display = XDisplay();
    std::uint32_t time = 0;
    const auto [end, error] = std::from_chars(mark.data(), mark.data() + mark.size(), time);
    if (display != nullptr && error == std::errc() && end == mark.data() + mark.size()) {
        AskForFocus(display, *window.windowHandle(), time);
        return;
    }
    if (IsWayland() && !mark.empty()) {
        qputenv(kToken, QByteArray::fromStdString(mark));  // where the toolkit looks for it
    }
    window.activateWindow();
}

}  // namespace

Launch::Launch() : id_(Variable("DESKTOP_STARTUP_ID")), token_(Variable(kToken)) {}

std::string Launch::Mark() const {
    if (IsWayland()) {
        return token_;
    }
    if (XDisplay() == nullptr) {
        return {};
    }
    const std::optional<xcb_timestamp_t> now = HiddenWindow().Time();
    if (!now) {
        return {};
    }
    const std::uint32_t asked = TimeIn(id_);
    return std::to_string(asked != 0 && *now - asked <= kMostOfAStart ? asked : *now);
}

void Launch::End() const {
    if (!id_.empty() && XDisplay() != nullptr) {
        std::string quoted;
        for (const char c : id_) {
            quoted.append(c == '"' || c == '\\' ? "\\" : "").push_back(c);
        }
        HiddenWindow().Broadcast("remove: ID=\"" + quoted + "\"");
    }
}

void BringToFront(QWidget& window, const std::string& mark) {
    if (window.windowHandle() == nullptr) {
        return;  // it comes up by itself
    }
    if (window.isMinimized()) {
        window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    }
    window.raise();
    Activate(window, mark);
    QTimer::singleShot(kFocusPatience, &window, [&window] {
        if (!window.isActiveWindow()) {
            QApplication::alert(&window);
        }
    });
}

}  // namespace scenara
