// SPDX-License-Identifier: MIT
#include "platform/qt/Display.h"

#include <QGuiApplication>
#include <QWindow>
#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

#include <xcb/xcb.h>

#include "platform/qt/Environment.h"
#include "platform/qt/WaylandDisplay.h"
#include "platform/qt/XDisplay.h"

// The X library's names are macros; it comes last.
#include <X11/XKBlib.h>

namespace scenara {
namespace {

// An empty name: the environment's.
bool HasXDisplay(const std::string& name = {}) {
    xcb_connection_t* const connection =
        xcb_connect(name.empty() ? nullptr : name.c_str(), nullptr);
    const bool connected = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return connected;
}

// One that was asked for by name: one without a display of its own is always there.
bool ServesPlatform(std::string_view name, const std::string& display) {
    if (name.starts_with("xcb")) {
        return HasXDisplay(display);
    }
    return !name.starts_with("wayland") || HasWaylandDisplay();
}

// Of names between semicolons, which the toolkit tries one after the other.
bool ServesOneOf(std::string_view names, const std::string& display) {
    while (true) {
        const std::size_t end = names.find(';');
        if (ServesPlatform(names.substr(0, end), display)) {
            return true;
        }
        if (end == std::string_view::npos) {
            return false;
        }
        names.remove_prefix(end + 1);
    }
}

// The word that follows the toolkit's option of that name, which may have one hyphen or two. Of
// several the last one counts.
std::string ToolkitOption(const std::vector<std::string>& words, std::string_view name) {
    std::string value;
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
        const std::string_view word = words[i];
        if (word.starts_with('-') && word.substr(word.starts_with("--") ? 2 : 1) == name) {
            value = words[++i];
        }
    }
    return value;
}

}  // namespace

bool HasDisplay(const std::vector<std::string>& words) {
    const std::string display = ToolkitOption(words, "display");
    std::string platforms = ToolkitOption(words, "platform");
    if (platforms.empty()) {
        platforms = Variable("QT_QPA_PLATFORM");
    }
    if (!platforms.empty()) {
        return ServesOneOf(platforms, display);
    }
    if (HasXDisplay(display)) {
        return true;
    }
    if (!HasWaylandDisplay()) {
        return false;
    }
    qputenv("QT_QPA_PLATFORM", "wayland");
    return true;
}

bool IsWayland() {
    return QGuiApplication::platformName().startsWith("wayland");
}

// An X display has screens, which are one display (":0.0" and ":0").
std::string DisplayName() {
    if (const std::string name = XDisplayName(); !name.empty()) {
        return name.substr(0, name.find('.', std::min(name.rfind(':'), name.size())));
    }
    return QGuiApplication::platformName().toStdString() +
           qEnvironmentVariable("WAYLAND_DISPLAY").toStdString();
}

std::string XDisplayName() {
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr && x11->display() != nullptr ? XDisplayString(x11->display())
                                                       : std::string();
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
