// SPDX-License-Identifier: MIT
//
// WindowOnScreens: whether a window can come up where the user had it. Screens come and go, and a
// window whose upper edge is on none of them cannot be moved back by its title bar.
#pragma once

#include <span>

#include "platform/DisplayModes.h"
#include "platform/Window.h"

namespace scenara {

// How much of a window's upper edge has to be seen, in pixels: enough to take hold of it.
inline constexpr Long kLeastSeenWidth = 96;
inline constexpr Long kLeastSeenHeight = 24;

// The same stand, as far as the screens have room for it. `workAreas`: what each screen leaves to
// windows. The spot is gone where the upper edge would not be seen. The size is at most that of the
// screen that shows most of the window; without a spot the window may come up on any of them, so it
// is at most that of the screen that has most room for it. Without screens nothing changes.
[[nodiscard]] WindowStand OnScreens(const WindowStand& stand,
                                    std::span<const ScreenRectangle> workAreas);

}  // namespace scenara
