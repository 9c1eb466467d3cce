// SPDX-License-Identifier: MIT
//
// Display: what must be settled before and right after the toolkit starts.
#pragma once

namespace scenara {

// Whether there is a display to show a window on. (The toolkit would end the program without one.)
[[nodiscard]] bool HasDisplay();

// A key that is held repeats as presses only, without releases in between.
void MakeAutoRepeatDetectable();

}  // namespace scenara
