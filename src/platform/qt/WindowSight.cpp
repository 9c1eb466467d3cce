// SPDX-License-Identifier: MIT
#include "platform/qt/WindowSight.h"

#include <QGuiApplication>
#include <algorithm>
#include <cstdint>
#include <vector>

#include "platform/qt/XDisplay.h"

namespace scenara {
namespace {

// Set in an event that another client has sent.
constexpr std::uint8_t kSentBit = 0x80;
// In the place of a workspace's number: on all of them.
constexpr std::uint32_t kAllWorkspaces = 0xFFFFFFFF;

}  // namespace

WindowSight::WindowSight() {
    if (XDisplay() != nullptr) {
        atomCurrentDesktop_ = XAtom("_NET_CURRENT_DESKTOP");
        atomDesktop_ = XAtom("_NET_WM_DESKTOP");
        atomState_ = XAtom("_NET_WM_STATE");
        atomHidden_ = XAtom("_NET_WM_STATE_HIDDEN");
        qApp->installNativeEventFilter(this);
    }
}

WindowSight::~WindowSight() {
    if (qApp != nullptr) {
        qApp->removeNativeEventFilter(this);
    }
}

void WindowSight::Watch(QWindow* window) {
    window_ = window;
    covered_ = false;
    putAway_ = false;
    if (window != nullptr && XDisplay() != nullptr) {
        id_ = static_cast<quint32>(window->winId());
        AskForCovering();
        putAway_ = IsPutAway();
    }
}

bool WindowSight::IsSeen() const {
    return window_ == nullptr ||
           (window_->isExposed() && !window_->windowStates().testFlag(Qt::WindowMinimized) &&
            !covered_ && !putAway_);
}

// Beside what the toolkit has asked for.
void WindowSight::AskForCovering() const {
    xcb_connection_t* const display = XDisplay();
    const OwnedReply<xcb_get_window_attributes_reply_t> reply(
        xcb_get_window_attributes_reply(display, xcb_get_window_attributes(display, id_), nullptr),
        &std::free);
    if (reply) {
        const std::uint32_t events = reply->your_event_mask | XCB_EVENT_MASK_VISIBILITY_CHANGE;
        xcb_change_window_attributes(display, id_, XCB_CW_EVENT_MASK, &events);
    }
}

bool WindowSight::IsPutAway() const {
    constexpr std::uint32_t kMostStates = 64;
    const std::vector<std::uint32_t> states =
        XProperty(id_, atomState_, XCB_ATOM_ATOM, kMostStates);
    if (std::find(states.begin(), states.end(), atomHidden_) != states.end()) {
        return true;
    }
    const std::vector<std::uint32_t> itsOwn = XProperty(id_, atomDesktop_, XCB_ATOM_CARDINAL, 1);
    const std::vector<std::uint32_t> current =
        XProperty(XRoot(), atomCurrentDesktop_, XCB_ATOM_CARDINAL, 1);
    return !itsOwn.empty() && !current.empty() && itsOwn != current &&
           itsOwn.front() != kAllWorkspaces;
}

bool WindowSight::nativeEventFilter(const QByteArray& eventType, void* message,
                                    qintptr* /*result*/) {
    if (window_ == nullptr || eventType != "xcb_generic_event_t") {
        return false;
    }
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    const int kind = event.response_type & ~kSentBit;
    if (kind == XCB_VISIBILITY_NOTIFY) {
        const auto& seen = reinterpret_cast<const xcb_visibility_notify_event_t&>(event);
        if (seen.window == id_) {
            covered_ = seen.state == XCB_VISIBILITY_FULLY_OBSCURED;
        }
    } else if (kind == XCB_PROPERTY_NOTIFY) {
        const auto& changed = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        const bool isItsOwn =
            changed.window == id_ && (changed.atom == atomState_ || changed.atom == atomDesktop_);
        if (isItsOwn || changed.atom == atomCurrentDesktop_) {
            putAway_ = IsPutAway();
        }
    }
    return false;
}

}  // namespace scenara
