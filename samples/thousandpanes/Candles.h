// SPDX-License-Identifier: MIT
//
// Candles, as many as a stand needs.
#pragma once

#include "painting/Painting.h"

namespace scenara::samples {

// A candle whose wick ends at (x, y).
void PaintCandle(Painting& painting, double x, double y, double height, double width);

// A bar of dark iron with a gilded edge between two points.
void PaintIron(Painting& painting, double x0, double y0, double x1, double y1, double width);

}  // namespace scenara::samples
