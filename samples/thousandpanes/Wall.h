// SPDX-License-Identifier: MIT
//
// The hall's back wall, place by place: its picture and its image in the floor are both made of it.
// x counts from the middle of a bay.
#pragma once

#include "painting/Light.h"

namespace scenara::samples {

// A bay with two lancets and a round window above them.
[[nodiscard]] Light SideBayAt(double x, double y);

// The middle bay, with a row of narrow windows, and room for the great one.
[[nodiscard]] Light MiddleBayAt(double x, double y);

}  // namespace scenara::samples
