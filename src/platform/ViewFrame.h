// SPDX-License-Identifier: MIT
#pragma once

#include "base/Integers.h"

namespace scenara {

// A frame around a part of the view, in its pixels; right and bottom lie outside.
struct ViewFrame {
    Long left = 0;
    Long top = 0;
    Long right = 0;
    Long bottom = 0;

    friend bool operator==(const ViewFrame&, const ViewFrame&) = default;
};

}  // namespace scenara
