// SPDX-License-Identifier: MIT
//
// Round bodies for figures: limbs and cloth, lit from the front and from above.
#pragma once

#include "samplemaker/Canvas.h"
#include "samplemaker/Ramp.h"

namespace scenara::samples {

using samplemaker::Canvas;
using samplemaker::Point;

// A limb's end: where, and how thick.
struct Joint {
    Point at;
    double radius = 1;
};

// A rounded limb from one joint to the other. `level`: how light it is in the middle, on the ramp.
void DrawLimb(Canvas& canvas, const Joint& from, const Joint& to, const samplemaker::Ramp& ramp,
              double level);

// The middle joint of a limb of two parts of these lengths, bent to the right (`bend` 1) or to the
// left (-1) of the way down.
[[nodiscard]] Point BentAt(Point from, Point to, double upper, double lower, double bend);

// Every empty pixel beside a drawn one.
void DrawOutline(Canvas& canvas, std::uint8_t colour);

}  // namespace scenara::samples
