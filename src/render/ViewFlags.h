// SPDX-License-Identifier: MIT
//
// ViewFlags: the main window's flags that the drawing and the debug editor read. Each is False (0)
// or True (255).
#pragma once

#include "base/Integers.h"

namespace scenara {

inline constexpr Byte kByteTrue = 255;

struct ViewFlags {
    Byte DrawFrontLayer = 0;  // which pass is drawn: False the back, True the front
    Byte MouseScroll = 0;     // the pointer moves the camera
    Byte DebugBG = 0;         // the debug editor works
    Byte Unframed = 0;        // nothing shows what is selected: the editor's keys do nothing
};

}  // namespace scenara
