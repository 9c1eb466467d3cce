// SPDX-License-Identifier: MIT
//
// The sea of clouds, from its far edge at the horizon to the banks below the landing stage. What
// is farther is paler and warmer; the nearest has the deepest shade.
#include <algorithm>
#include <cmath>

#include "cloudharbour/CloudBank.h"
#include "cloudharbour/Pictures.h"
#include "cloudharbour/Scene.h"
#include "painting/NoiseSheet.h"
#include "painting/Painting.h"

namespace scenara::samples::cloudharbour {

// To the horizon: row after row of heaps, the smaller the farther.
IndexedPicture DrawCloudSea() {
    return DrawBank({.width = 1536,
                     .height = 170,
                     .seed = 1031,
                     .crest = 12,
                     .swell = 3,
                     .radius = 7,
                     .growth = 2.6,
                     .lines = 14,
                     .flat = 0.55,
                     .squash = 0.52,
                     .gaps = -0.3,
                     .shade = {0.60, 0.50, 0.69},
                     .middle = {0.87, 0.64, 0.67},
                     .lit = {1.0, 0.84, 0.70},
                     .far = {0.99, 0.76, 0.66},
                     .haze = 0.95,
                     .mist = {0.86, 0.64, 0.69},
                     .mistFrom = 60,
                     .mistTo = 150});
}

IndexedPicture DrawFarBank() {
    return DrawBank({.width = 1536,
                     .height = 260,
                     .seed = 1039,
                     .crest = 90,
                     .swell = 16,
                     .radius = 46,
                     .growth = 8,
                     .lines = 2,
                     .towers = 4,
                     .flat = 0.8,
                     .squash = 0.8,
                     .shade = {0.52, 0.46, 0.68},
                     .middle = {0.80, 0.61, 0.69},
                     .lit = {1.0, 0.86, 0.71},
                     .far = {0.93, 0.70, 0.68},
                     .haze = 0.3,
                     .mist = {0.84, 0.64, 0.70},
                     .mistFrom = 84,
                     .mistTo = 138});
}

IndexedPicture DrawMiddleBank() {
    return DrawBank({.width = 2048,
                     .height = 270,
                     .seed = 1049,
                     .crest = 92,
                     .swell = 26,
                     .radius = 84,
                     .growth = 10,
                     .lines = 2,
                     .towers = 2,
                     .flat = 0.8,
                     .squash = 0.8,
                     .shade = {0.40, 0.39, 0.63},
                     .middle = {0.70, 0.54, 0.67},
                     .lit = {1.0, 0.84, 0.71},
                     .far = {0.80, 0.60, 0.68},
                     .haze = 0.2,
                     .mist = {0.72, 0.57, 0.69},
                     .mistFrom = 84,
                     .mistTo = 176});
}

IndexedPicture DrawNearBank() {
    return DrawBank({.width = 2048,
                     .height = 320,
                     .seed = 1051,
                     .crest = 90,
                     .swell = 30,
                     .radius = 128,
                     .growth = 10,
                     .lines = 2,
                     .flat = 0.8,
                     .squash = 0.8,
                     .shade = {0.30, 0.31, 0.55},
                     .middle = {0.56, 0.46, 0.64},
                     .lit = {0.99, 0.80, 0.69},
                     .far = {0.60, 0.48, 0.65},
                     .haze = 0.15,
                     .mist = {0.50, 0.45, 0.65},
                     .mistFrom = 100,
                     .mistTo = 240});
}

// Thin cloud that passes before the landing stage.
IndexedPicture DrawWisps() {
    constexpr int kWidth = 1024;
    constexpr int kHeight = 240;
    const NoiseSheet broad(1061, 2, 4);
    const NoiseSheet fine(1063, 8, 4);
    Painting painting(kWidth, kHeight);
    painting.Fill([&](int x, int y) {
        const double bent = y + 40 * broad.At(x * 0.5, y * 0.5);
        const double thick = 0.7 * broad.At(x * 0.25, bent * 0.8) + 0.3 * fine.At(x * 0.5, bent);
        const double edge = Rise(0, 90, y) * Rise(kHeight, kHeight - 90, y);
        return Light{0.34, 0.26, 0.29} * (Rise(0.42, 0.86, thick) * edge);
    });
    painting.LeaveOutDarkness();
    return painting.ToPicture();
}

}  // namespace scenara::samples::cloudharbour
