// SPDX-License-Identifier: MIT
//
// LiteralZoom: how near and how far a stage may be seen. At 2 all is twice as large as the stage
// says, at 1/2 half as large. Unless it is made of a stage, it is that of plain drawing.
#pragma once

#include "stage/StageModel.h"

namespace scenara::test {

struct LiteralZoom {
    // 1/64 to 64, and the first one no more than the second one.
    double out = 1;
    double in = 1;
    double start = 1;  // between them

    [[nodiscard]] static LiteralZoom Of(const StageModel& model);

    [[nodiscard]] double Within(double zoom) const;

    // How many of `width` stage units the camera may go beyond each of the bounds at its sides.
    // The bounds hold where all is seen that can be; of less it is the edges that stay the same.
    [[nodiscard]] double BeyondBounds(double zoom, int width) const;
};

}  // namespace scenara::test
