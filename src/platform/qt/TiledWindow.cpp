// SPDX-License-Identifier: MIT
#include "platform/qt/TiledWindow.h"

#include <QGuiApplication>
#include <QWindow>
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <string_view>

#include <xcb/xcb.h>

namespace scenara {
namespace {

template <class Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

xcb_atom_t Atom(xcb_connection_t* display, std::string_view name) {
    const Owned<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(
            display,
            xcb_intern_atom(display, 1, static_cast<std::uint16_t>(name.size()), name.data()),
            nullptr),
        &std::free);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}  // namespace

bool IsTiled(const QWindow& window) {
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr || x11->connection() == nullptr) {
        return false;
    }
    xcb_connection_t* const display = x11->connection();
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
