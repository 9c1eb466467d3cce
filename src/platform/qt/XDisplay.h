// SPDX-License-Identifier: MIT
//
// XDisplay: the X display that the toolkit's windows are on, and its small questions. Each answer
// is a round trip.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

#include <xcb/xcb.h>

namespace scenara {

template <class Reply>
using OwnedReply = std::unique_ptr<Reply, decltype(&std::free)>;

// None where the windows are not X's.
[[nodiscard]] xcb_connection_t* XDisplay();

// What all its windows stand in. There is a display.
[[nodiscard]] xcb_window_t XRoot();

// The atom of that name; there is one from now on. There is a display.
[[nodiscard]] xcb_atom_t XAtom(std::string_view name);

// The values of 32 bits that the window has there, at most so many; none where it has no such
// property, or one of another type. There is a display.
[[nodiscard]] std::vector<std::uint32_t> XProperty(xcb_window_t window, xcb_atom_t property,
                                                   xcb_atom_t type, std::uint32_t most);

}  // namespace scenara
