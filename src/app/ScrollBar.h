// SPDX-License-Identifier: MIT
//
// ScrollBar: a scroll bar of the main window as plain state; a machine shows it.
#pragma once

#include "base/Integers.h"

namespace scenara {

struct ScrollBar {
    Long Min = 0;
    Long Max = 0;
    Long Value = 0;
    bool Visible = false;
};

}  // namespace scenara
