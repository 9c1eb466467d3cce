// SPDX-License-Identifier: MIT
//
// Presentation: how the canvas comes to the box that shows it.
#pragma once

#include "base/Integers.h"
#include "platform/PictureFit.h"

namespace scenara {

// What a pixel of the screen shows of the canvas.
enum class Scaling : Byte {
    Nearest,  // the pixel under its centre
    Average,  // the mean of the area under it: at whole multiples copies
    Smooth,   // bilinear, where the canvas is made larger; else the mean
};

// At first as it is without additions.
struct Presentation {
    ShownSizes sizes = ShownSizes::WholeMultiples;
    Scaling scaling = Scaling::Nearest;

    friend bool operator==(const Presentation&, const Presentation&) = default;
};

}  // namespace scenara
