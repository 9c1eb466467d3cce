// SPDX-License-Identifier: MIT
#include "platform/qt/Display.h"

#include <QGuiApplication>
#include <QWindow>
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

#include <xcb/xcb.h>

#include "platform/qt/WaylandDisplay.h"
#include "platform/qt/XDisplay.h"

// The X library's names are macros; it comes last.
#include <X11/XKBlib.h>

namespace scenara {
namespace {

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

// An X display has screens, which are one display (":0.0" and ":0").
std::string DisplayName() {
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 != nullptr && x11->display() != nullptr) {
        const std::string name = XDisplayString(x11->display());
        return name.substr(0, name.find('.', std::min(name.rfind(':'), name.size())));
    }
    return QGuiApplication::platformName().toStdString() +
           qEnvironmentVariable("WAYLAND_DISPLAY").toStdString();
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
    if (XDisplay() == nullptr) {
        return false;
    }
    constexpr std::uint32_t kMostStates = 64;
    const std::vector<std::uint32_t> states =
        XProperty(static_cast<xcb_window_t>(window.winId()), XAtom("_NET_WM_STATE"), XCB_ATOM_ATOM,
                  kMostStates);
    const auto has = [&](std::string_view name) {
        return std::find(states.begin(), states.end(), XAtom(name)) != states.end();
    };
    return has("_NET_WM_STATE_MAXIMIZED_VERT") || has("_NET_WM_STATE_MAXIMIZED_HORZ");
}

}  // namespace scenara
