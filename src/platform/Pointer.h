// SPDX-License-Identifier: MIT
//
// Pointer: where the mouse is.
#pragma once

#include "base/Integers.h"
#include "base/NotCopied.h"

namespace scenara {

// In pixels of the screen.
struct PointerPosition {
    Long x = 0;
    Long y = 0;
};

class Pointer : NotCopied {
public:
    virtual ~Pointer() = default;

    [[nodiscard]] virtual PointerPosition GetCursorPos() = 0;
};

}  // namespace scenara
