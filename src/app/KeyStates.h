// SPDX-License-Identifier: MIT
//
// KeyStates: what the keyboard says all at once.
#pragma once

#include "platform/Keyboard.h"
#include "platform/Window.h"

namespace scenara {

// Whether any of the 256 virtual keys is down; asks no further than the first.
[[nodiscard]] bool AnyKeyDown(Keyboard& keyboard);

// A diagnostic: writes the code of every key that is down into the window's caption, again and
// again, and lets messages through in between, until the program is to end.
void TellKeyCodes(Keyboard& keyboard, Window& window);

}  // namespace scenara
