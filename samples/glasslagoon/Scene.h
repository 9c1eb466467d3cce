// SPDX-License-Identifier: MIT
//
// The lay of the lagoon and its light, which all pictures of Glass Lagoon share.
//
// Lengths are pixels of the view, 640 x 480. Columns count from the middle of the view, rows from
// its upper edge, with the camera at 0, 0. The light comes from above, a little from the left. The
// farther a thing is, the more of the water's own colour it has.
#pragma once

#include <algorithm>
#include <array>

#include "painting/AlphaPainting.h"
#include "painting/Light.h"
#include "painting/Shapes.h"

namespace scenara::samples::glasslagoon {

constexpr double kHorizon = 300;  // the row to which the sand's lines run
constexpr double kSandTop = 356;  // the sand's far edge
constexpr double kFeet = 424;     // where the fighters stand

// From where the shafts of light spread.
constexpr double kSunColumn = -130;
constexpr double kSunRow = -330;

constexpr Light kBright{0.86, 1.0, 0.94};  // light that comes straight through the surface
constexpr Light kHaze{0.18, 0.56, 0.65};   // what all that is far fades into, near the ground

// The water itself, at a row of the view.
inline Light WaterAt(double row) {
    struct Stop {
        double row;
        Light light;
    };
    constexpr std::array kStops = {Stop{-30, {0.53, 0.90, 0.88}}, Stop{60, {0.27, 0.75, 0.80}},
                                   Stop{170, {0.11, 0.56, 0.69}}, Stop{270, {0.07, 0.43, 0.59}},
                                   Stop{340, {0.12, 0.49, 0.61}}, Stop{430, kHaze}};
    for (std::size_t i = 1; i < kStops.size(); ++i) {
        if (row < kStops.at(i).row) {
            const Stop& from = kStops.at(i - 1);
            const Stop& to = kStops.at(i);
            const double part = std::clamp((row - from.row) / (to.row - from.row), 0.0, 1.0);
            return Mixed(from.light, to.light, part);
        }
    }
    return kHaze;
}

// How near a row of the sand is: 1 where the fighters stand, less beyond them.
constexpr double NearAt(double row) {
    return (row - kHorizon) / (kFeet - kHorizon);
}

}  // namespace scenara::samples::glasslagoon
