// SPDX-License-Identifier: MIT
//
// HeadlessPointer: a mouse that stands where it is put, at first in the screen's upper left corner.
#pragma once

#include "platform/Pointer.h"

namespace scenara {

class HeadlessPointer : public Pointer {
public:
    [[nodiscard]] PointerPosition GetCursorPos() override { return position_; }

    void MoveTo(const PointerPosition& position) { position_ = position; }

private:
    PointerPosition position_;
};

}  // namespace scenara
