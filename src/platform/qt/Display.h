// SPDX-License-Identifier: MIT
//
// Display: what must be settled with the display itself, and what only it knows.
#pragma once

#include <string>
#include <vector>

class QWindow;

namespace scenara {

// Whether there is a display to show a window on: X's, or Wayland's where there is none of X. (The
// toolkit would end the program without one.) The toolkit's own options among the words of the
// command line, or its variable, may name a platform, which may need no display; and a display of
// X. To be asked once, before the toolkit starts, which is told where Wayland's is the only one: it
// would look for X.
[[nodiscard]] bool HasDisplay(const std::vector<std::string>& words);

// Whether the windows are Wayland's, with the application object there.
[[nodiscard]] bool IsWayland();

// What tells this display from others of the user, with the application object there.
[[nodiscard]] std::string DisplayName();

// The X display that the windows are on, and its screen, with the application object there: perhaps
// another one than the environment's. Empty: they are on none.
[[nodiscard]] std::string XDisplayName();

// A key that is held repeats as presses only, without releases in between.
void MakeAutoRepeatDetectable();

// Makes the part of a window that the toolkit does not paint black; it would keep what was on the
// screen before. At a fractional scale the toolkit measures a window up to a pixel too small.
void BlackenBeneath(const QWindow& window);

// Whether the window manager says that the window stands beside others, at a size that is not its
// own to choose: on X11 such windows are maximised in one direction only, which the toolkit does
// not tell. One that tiles all its windows says nothing.
[[nodiscard]] bool IsTiled(const QWindow& window);

}  // namespace scenara
