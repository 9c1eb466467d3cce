// SPDX-License-Identifier: MIT
//
// Display: what must be settled with the display itself.
#pragma once

class QWindow;

namespace scenara {

// Whether there is a display to show a window on. (The toolkit would end the program without one.)
[[nodiscard]] bool HasDisplay();

// A key that is held repeats as presses only, without releases in between.
void MakeAutoRepeatDetectable();

// What the toolkit does not paint of the window is black, and not what was on the screen before. At
// a scale that is no whole number it takes a window for up to a pixel smaller than it is.
void BlackenBeneath(const QWindow& window);

}  // namespace scenara
