// SPDX-License-Identifier: MIT
//
// ScreenPixels: where on the display something stands that a toolkit places in units of its own.
//
// Where a unit is more than a pixel, the toolkit leaves the corner of each screen where the display
// has it, and counts in units from there. So a place that is a screen's width from the display's
// corner is not that many units times as many pixels.
#pragma once

#include "platform/DisplayModes.h"

namespace scenara {

struct ScaledScreen {
    Long left = 0;  // of its corner: alike in units and in pixels
    Long top = 0;
    double pixelsPerUnit = 1;
};

// In pixels of the display, rounded; `place` is in units, of a window on that screen. Numbers that
// are too large for the display's are cut.
[[nodiscard]] ScreenRectangle InScreenPixels(const ScreenRectangle& place,
                                             const ScaledScreen& screen);

}  // namespace scenara
