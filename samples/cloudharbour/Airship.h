// SPDX-License-Identifier: MIT
//
// An airship: a long body of canvas over rings, fins, and a wooden hull that hangs below it.
#pragma once

#include <cstdint>

#include "cloudharbour/Brushes.h"
#include "painting/Painting.h"

namespace scenara::samples::cloudharbour {

struct Airship {
    Point nose;           // its left end
    double length = 600;  // to the tail
    double girth = 90;    // half its height where it is thickest
    Light canvas{0.84, 0.76, 0.70};
    Light stripe{0.55, 0.20, 0.24};
    Light wood{0.45, 0.28, 0.22};
};

void PaintFins(Painting& painting, const Airship& ship);  // before the body
void PaintBody(Painting& painting, const Airship& ship);
void PaintHull(Painting& painting, const Airship& ship);
// The cars to either side that carry the propellers, at PropellerPlace.
void PaintEngine(Painting& painting, const Airship& ship);
Point PropellerPlace(const Airship& ship);

}  // namespace scenara::samples::cloudharbour
