// SPDX-License-Identifier: MIT
//
// The lay of the fair and its light, which all pictures of Mill Fair share.
//
// Lengths are pixels of the view, 640 x 360. Columns count from the middle of the view, rows from
// its upper edge, with the camera at 0, 0 and a zoom of 1. The sun has just gone down on the left:
// what looks there is still warm, all else has the colour of the evening. The farther a thing is,
// the more of the haze above the water it has.
#pragma once

#include <algorithm>
#include <array>

#include "painting/AlphaPainting.h"
#include "painting/Light.h"
#include "painting/Shapes.h"

namespace scenara::samples::millfair {

constexpr double kHorizon = 190;   // the row to which the lines of quay and water run
constexpr double kShore = 232;     // the water's far edge
constexpr double kQuayEdge = 270;  // where the quay begins
constexpr double kFeet = 310;      // where the fighters stand

constexpr double kSunColumn = -190;

constexpr Light kHaze{0.70, 0.47, 0.50};
constexpr Light kAfterglow{1.08, 0.80, 0.60};  // what still comes from the left
constexpr Light kEvening{0.40, 0.36, 0.56};    // what comes from everywhere
constexpr Light kLampLight{1.0, 0.80, 0.44};
constexpr Light kLampCore{1.0, 0.95, 0.78};
constexpr Light kWood{0.50, 0.34, 0.26};
constexpr Light kDarkWood{0.25, 0.17, 0.18};
constexpr Light kRed{0.78, 0.22, 0.20};
constexpr Light kCream{0.96, 0.88, 0.72};
constexpr Light kGold{0.92, 0.70, 0.32};

// How near a row of the ground is: 1 where the fighters stand, less beyond them. Things there are
// as many times as large, and move as many times as far.
constexpr double NearAt(double row) {
    return (row - kHorizon) / (kFeet - kHorizon);
}

// The light on a surface that looks to the left (-1), to the viewer (0) or to the right (1).
inline Light LightOn(double side) {
    return Mixed(kAfterglow, kEvening, Rise(-1.0, 0.75, side));
}

inline Light SkyAt(double column, double row) {
    struct Stop {
        double row;
        Light light;
    };
    constexpr std::array kStops = {Stop{-20, {0.09, 0.11, 0.28}}, Stop{40, {0.17, 0.17, 0.38}},
                                   Stop{95, {0.36, 0.26, 0.48}},  Stop{145, {0.68, 0.41, 0.51}},
                                   Stop{190, {0.93, 0.58, 0.46}}, Stop{230, {1.0, 0.76, 0.48}}};
    Light light = kStops.back().light;
    for (std::size_t i = 1; i < kStops.size(); ++i) {
        if (row < kStops.at(i).row) {
            const Stop& from = kStops.at(i - 1);
            const Stop& to = kStops.at(i);
            const double part = std::clamp((row - from.row) / (to.row - from.row), 0.0, 1.0);
            light = Mixed(from.light, to.light, part);
            break;
        }
    }
    const double away = std::hypot((column - kSunColumn) / 350, (row - 215) / 165);
    const double colder = Rise(-120, 420, column) * Rise(60, 230, row);
    return Mixed(Mixed(light, Light{0.55, 0.38, 0.53}, 0.38 * colder), Light{1.0, 0.80, 0.50},
                 0.75 * Rise(1, 0, away));
}

}  // namespace scenara::samples::millfair
