// SPDX-License-Identifier: MIT
//
// WaylandDisplay: whether there is a Wayland session to show a window in.
#pragma once

namespace scenara {

// Whether a compositor listens where its programs look for it (WAYLAND_SOCKET, WAYLAND_DISPLAY,
// else wayland-0 in the user's run-time folder), and the toolkit's part for Wayland is installed.
// To be asked before there is any other thread.
[[nodiscard]] bool HasWaylandDisplay();

}  // namespace scenara
