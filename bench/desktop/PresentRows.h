// SPDX-License-Identifier: MIT
//
// What is presented, at which size, and how many times as fast as by the toolkit's own painter.
#pragma once

#include <array>

#include "platform/Presentation.h"
#include "platform/View.h"

namespace scenara::bench {

struct PresentRow {
    const char* what = "";
    CanvasSize canvas;
    CanvasSize window;
    Scaling scaling = Scaling::Nearest;
    bool smoothPeer = false;  // the painter's own way of mixing neighbours; else it repeats pixels
    double must = 0;
    double aim = 0;
};

// The painter knows no means of areas. What comes closest is its smooth way.
inline constexpr std::array<PresentRow, 6> kPresentRows = {{
    {"320x240 at 3x", {320, 240}, {960, 720}, Scaling::Nearest, false, 1.15, 1.7},
    {"640x480 at 2x", {640, 480}, {1280, 960}, Scaling::Average, false, 1.3, 2},
    {"640x480 at 2x, smooth", {640, 480}, {1280, 960}, Scaling::Smooth, true, 1.3, 2},
    {"1280x720 at 1.5x", {1280, 720}, {1920, 1080}, Scaling::Average, true, 1.3, 2},
    {"1280x720 at 1.5x, smooth", {1280, 720}, {1920, 1080}, Scaling::Smooth, true, 1.3, 2},
    {"1280x720 at 3x", {1280, 720}, {3840, 2160}, Scaling::Average, false, 1.3, 2},
}};

inline constexpr const char* kPainterRows = "Present/PainterStretch/";
inline constexpr const char* kOurRows = "Present/Ours/";

}  // namespace scenara::bench
