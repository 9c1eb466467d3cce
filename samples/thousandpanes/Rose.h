// SPDX-License-Identifier: MIT
//
// The great window. It is the same in all four quarters, so only one of them is in the archive; the
// stage shows it four times, mirrored.
#pragma once

#include "painting/Light.h"

namespace scenara::samples {

// The light at a place, counted from the window's middle; beyond its radius the ring of stone.
[[nodiscard]] Light RoseAt(double x, double y);

}  // namespace scenara::samples
