// SPDX-License-Identifier: MIT
#include "platform/qt/Display.h"

#include <QGuiApplication>
#include <QWindow>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include <xcb/xcb.h>

// The X library's names are macros; it comes last.
#include <X11/XKBlib.h>

namespace scenara {

bool HasDisplay() {
    // Another platform was asked for, one without a display of its own or one that knows better.
    // NOLINTNEXTLINE(concurrency-mt-unsafe): before there is any other thread
    const char* const platform = std::getenv("QT_QPA_PLATFORM");
    if (platform != nullptr && *platform != '\0' && std::strncmp(platform, "xcb", 3) != 0) {
        return true;
    }
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const bool connected = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return connected;
}

void MakeAutoRepeatDetectable() {
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 != nullptr && x11->display() != nullptr) {
        Bool supported = False;
        XkbSetDetectableAutoRepeat(x11->display(), True, &supported);
    }
}

void BlackenBeneath(const QWindow& window) {
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 != nullptr && x11->connection() != nullptr) {
        constexpr std::uint32_t kBlack = 0xFF000000;
        xcb_change_window_attributes(x11->connection(), static_cast<xcb_window_t>(window.winId()),
                                     XCB_CW_BACK_PIXEL, &kBlack);
    }
}

}  // namespace scenara
