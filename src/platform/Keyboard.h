// SPDX-License-Identifier: MIT
//
// Keyboard: whether keys are down at this moment, whoever has the focus of the window.
#pragma once

#include <cstdint>

#include "base/Integers.h"
#include "base/NotCopied.h"

namespace scenara {

// Virtual keys that are asked for; the numbers are those of the window system the program grew up
// on.
enum class VirtualKey : std::uint8_t {
    RightButton = 2,
    Pause = 19,
    Escape = 27,
    Space = 32,
    PageUp = 33,
    PageDown = 34,
    Left = 37,
    Up = 38,
    Right = 39,
    Down = 40,
    Insert = 45,
    Delete = 46,
    A = 65,
    D = 68,
    Q = 81,
    Z = 90,
    NumpadPlus = 107,
    NumpadMinus = 109,
};

// What GetAsyncKeyState answers is made of.
inline constexpr Integer kKeyIsDown = -32768;  // the highest of 16 bits
inline constexpr Integer kKeyWasPressed = 1;   // since the last call for it

class Keyboard : NotCopied {
public:
    virtual ~Keyboard() = default;

    // Not 0 while the key is down, and once more when it has been pressed and let go since the last
    // call for it. Its lowest bit says that it was pressed since then; repetitions are no presses.
    // Below 0 it is down now.
    virtual Integer GetAsyncKeyState(VirtualKey key) = 0;

    // Whether it is down or was pressed since the last call.
    [[nodiscard]] bool IsDown(VirtualKey key) { return GetAsyncKeyState(key) != 0; }
};

}  // namespace scenara
