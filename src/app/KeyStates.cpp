// SPDX-License-Identifier: MIT
#include "app/KeyStates.h"

#include <cstdint>
#include <initializer_list>

#include "base/NumberText.h"

namespace scenara {

void DiscardKeyStates(Keyboard& keyboard) {
    for (const VirtualKey key :
         {VirtualKey::RightButton, VirtualKey::Left, VirtualKey::Up, VirtualKey::Right,
          VirtualKey::Down, VirtualKey::Pause, VirtualKey::Escape, VirtualKey::Z, VirtualKey::A}) {
        static_cast<void>(keyboard.GetAsyncKeyState(key));
    }
}

namespace {

constexpr int kVirtualKeyCount = 256;

}  // namespace

bool AnyKeyDown(Keyboard& keyboard) {
    for (int code = 0; code < kVirtualKeyCount; ++code) {
        if (keyboard.IsDown(static_cast<VirtualKey>(code))) {
            return true;
        }
    }
    return false;
}

void TellKeyCodes(Keyboard& keyboard, Window& window) {
    while (!window.EndRequested()) {
        for (int code = 0; code < kVirtualKeyCount; ++code) {
            if (keyboard.IsDown(static_cast<VirtualKey>(code))) {
                window.SetCaption(NumberText(std::int32_t{code}));
            }
        }
        window.DoEvents();
    }
}

}  // namespace scenara
