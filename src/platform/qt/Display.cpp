// SPDX-License-Identifier: MIT
#include "platform/qt/Display.h"

#include <QGuiApplication>
#include <QWindow>
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <string_view>

#include <xcb/xcb.h>

#include "platform/qt/WaylandDisplay.h"

// The X library's names are macros; it comes last.
#include <X11/XKBlib.h>

namespace scenara {
namespace {

template <class Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

// None where the windows are not X's.
xcb_connection_t* XDisplay() {
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->connection() : nullptr;
}

xcb_atom_t Atom(xcb_connection_t* display, std::string_view name) {
    const Owned<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(
            display,
            xcb_intern_atom(display, 1, static_cast<std::uint16_t>(name.size()), name.data()),
            nullptr),
        &std::free);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

bool HasXDisplay() {
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const bool connected = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return connected;
}

// One that was asked for by name: one without a display of its own is always there.
bool ServesPlatform(std::string_view name) {
    if (name.starts_with("xcb")) {
        return HasXDisplay();
    }
    return !name.starts_with("wayland") || HasWaylandDisplay();
}

// Of names between semicolons, which the toolkit tries one after the other.
bool ServesOneOf(std::string_view names) {
    while (true) {
        const std::size_t end = names.find(';');
        if (ServesPlatform(names.substr(0, end))) {
            return true;
        }
        if (end == std::string_view::npos) {
            return false;
        }
        names.remove_prefix(end + 1);
    }
}

}  // namespace

bool HasDisplay() {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): before there is any other thread
    const char* const asked = std::getenv("QT_QPA_PLATFORM");
    if (asked != nullptr && *asked != '\0') {
        return ServesOneOf(asked);
    }
    if (HasXDisplay()) {
        return true;
    }
    if (!HasWaylandDisplay()) {
        return false;
    }
    qputenv("QT_QPA_PLATFORM", "wayland");
    return true;
}

void MakeAutoRepeatDetectable() {
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 != nullptr && x11->display() != nullptr) {
        Bool supported = False;
        XkbSetDetectableAutoRepeat(x11->display(), True, &supported);
    }
}

void BlackenBeneath(const QWindow& window) {
    if (xcb_connection_t* const display = XDisplay()) {
        constexpr std::uint32_t kBlack = 0xFF000000;
        xcb_change_window_attributes(display, static_cast<xcb_window_t>(window.winId()),
                                     XCB_CW_BACK_PIXEL, &kBlack);
    }
}

bool IsTiled(const QWindow& window) {
    xcb_connection_t* const display = XDisplay();
    if (display == nullptr) {
        return false;
    }
    constexpr std::uint32_t kMostStates = 64;
    const Owned<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(
            display,
            xcb_get_property(display, 0, static_cast<xcb_window_t>(window.winId()),
                             Atom(display, "_NET_WM_STATE"), XCB_ATOM_ATOM, 0, kMostStates),
            nullptr),
        &std::free);
    if (!reply) {
        return false;
    }
    const std::span states(
        static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get())),
        static_cast<std::size_t>(xcb_get_property_value_length(reply.get())) / sizeof(xcb_atom_t));
    const auto has = [&](std::string_view name) {
        return std::find(states.begin(), states.end(), Atom(display, name)) != states.end();
    };
    return has("_NET_WM_STATE_MAXIMIZED_VERT") || has("_NET_WM_STATE_MAXIMIZED_HORZ");
}

}  // namespace scenara
