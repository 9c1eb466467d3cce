// SPDX-License-Identifier: MIT
#include "app/KeyStates.h"

#include <initializer_list>

namespace scenara {

void DiscardKeyStates(Keyboard& keyboard) {
    for (const VirtualKey key :
         {VirtualKey::RightButton, VirtualKey::Left, VirtualKey::Up, VirtualKey::Right,
          VirtualKey::Down, VirtualKey::Pause, VirtualKey::Escape, VirtualKey::Z, VirtualKey::A}) {
        static_cast<void>(keyboard.GetAsyncKeyState(key));
    }
}

}  // namespace scenara
