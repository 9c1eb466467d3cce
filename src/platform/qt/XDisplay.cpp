// SPDX-License-Identifier: MIT
#include "platform/qt/XDisplay.h"

#include <QGuiApplication>
#include <cstddef>

namespace scenara {

xcb_connection_t* XDisplay() {
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 != nullptr ? x11->connection() : nullptr;
}

xcb_window_t XRoot() {
    return xcb_setup_roots_iterator(xcb_get_setup(XDisplay())).data->root;
}

xcb_atom_t XAtom(std::string_view name) {
    xcb_connection_t* const display = XDisplay();
    const OwnedReply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(
            display,
            xcb_intern_atom(display, 0, static_cast<std::uint16_t>(name.size()), name.data()),
            nullptr),
        &std::free);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

std::vector<std::uint32_t> XProperty(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                                     std::uint32_t most) {
    xcb_connection_t* const display = XDisplay();
    const OwnedReply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(
            display, xcb_get_property(display, 0, window, property, type, 0, most), nullptr),
        &std::free);
    constexpr std::uint8_t kBits = 32;
    if (!reply || reply->format != kBits) {
        return {};
    }
    const auto* const values =
        static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    const auto bytes = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
    return {values, values + bytes / sizeof(std::uint32_t)};
}

}  // namespace scenara
