// SPDX-License-Identifier: MIT
//
// Steps: places side by side.
#pragma once

namespace scenara::samples {

// Calls `paint` for from, from + step, ... as far as these are below `end`. `step` is above 0.
template <typename Paint>
void ForEachStep(double from, double end, double step, Paint paint) {
    for (int i = 0; from + i * step < end; ++i) {
        paint(from + i * step);
    }
}

}  // namespace scenara::samples
