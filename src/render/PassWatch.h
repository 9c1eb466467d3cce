// SPDX-License-Identifier: MIT
//
// PassWatch: is asked while a frame is drawn whether the drawing goes on, so that one that takes
// long can be given up.
#pragma once

#include "base/NotCopied.h"

namespace scenara {

class PassWatch : NotCopied {
public:
    virtual ~PassWatch() = default;

    // False once the frame has been given up; it then stays so for the rest of the frame. Cheap
    // enough to be asked after each element that was drawn.
    [[nodiscard]] virtual bool GoesOn() = 0;
};

}  // namespace scenara
