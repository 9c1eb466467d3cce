// SPDX-License-Identifier: MIT
//
// Pointer: where the mouse is.
#pragma once

#include "base/Integers.h"

namespace scenara {

// In pixels of the screen.
struct PointerPosition {
    Long x = 0;
    Long y = 0;
};

class Pointer {
public:
    Pointer() = default;
    Pointer(const Pointer&) = delete;
    Pointer& operator=(const Pointer&) = delete;
    virtual ~Pointer() = default;

    [[nodiscard]] virtual PointerPosition GetCursorPos() = 0;
};

}  // namespace scenara
