// SPDX-License-Identifier: MIT
#include "app/KeyStates.h"

#include <cstdint>

#include "base/NumberText.h"

namespace scenara {

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
