// SPDX-License-Identifier: MIT
//
// Key states that were left over.
#pragma once

#include "platform/Keyboard.h"

namespace scenara {

// Asks once for every key that the loop looks at and forgets the answers, so that presses made
// before do not count.
void DiscardKeyStates(Keyboard& keyboard);

}  // namespace scenara
