// SPDX-License-Identifier: MIT
//
// LoopKeys: the keys that the loop looks at in every pass.
#pragma once

#include <initializer_list>

#include "platform/Keyboard.h"

namespace scenara {

// Asks once for each of them and forgets the answers, so that presses made before do not count.
inline void DiscardKeyStates(Keyboard& keyboard) {
    for (const VirtualKey key :
         {VirtualKey::RightButton, VirtualKey::Left, VirtualKey::Up, VirtualKey::Right,
          VirtualKey::Down, VirtualKey::Pause, VirtualKey::Escape, VirtualKey::Z, VirtualKey::A}) {
        static_cast<void>(keyboard.GetAsyncKeyState(key));
    }
}

}  // namespace scenara
