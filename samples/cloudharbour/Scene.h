// SPDX-License-Identifier: MIT
//
// The lay of the harbour and its light, which all pictures of Cloud Harbour share.
//
// Lengths are pixels of the view, 1280 x 720. Columns count from the middle of the view, rows from
// its upper edge, with the camera at 0, 0. The sun stands low on the left. What faces it is warm,
// what does not has the violet of the sky; the farther a thing is, the more of the haze it has.
#pragma once

#include <cmath>

#include "painting/Light.h"
#include "painting/Shapes.h"

namespace scenara::samples::cloudharbour {

constexpr double kHorizon = 404;  // the row of the clouds' far edge, to which the floor's lines run
constexpr double kFloorTop = 560;  // the landing stage's far edge
constexpr double kFeet = 656;      // where the fighters stand
constexpr double kSunColumn = -356;
constexpr double kSunRow = 342;

constexpr Light kNight{0.085, 0.085, 0.235};  // the sky overhead
constexpr Light kViolet{0.27, 0.215, 0.46};
constexpr Light kMauve{0.60, 0.385, 0.60};
constexpr Light kRose{0.93, 0.575, 0.56};
constexpr Light kPeach{1.0, 0.76, 0.56};
constexpr Light kSunGold{1.0, 0.90, 0.64};

// What things far away fade into.
constexpr Light kHaze{0.83, 0.595, 0.655};
constexpr Light kCoolHaze{0.50, 0.50, 0.70};

// The light from the sky all around, and what the sun adds.
constexpr Light kSkylight{0.40, 0.37, 0.60};
constexpr Light kSunlight{1.12, 0.76, 0.44};

// The windows and lanterns.
constexpr Light kFlame{1.0, 0.74, 0.34};

// Which way a surface looks: x to the right, y down, z to the viewer. Of length 1.
struct Facing {
    double x = 0;
    double y = 0;
    double z = 1;
};

// How much of the sun a surface gets, -1 … 1; below 0 it looks away.
constexpr double TowardsSun(const Facing& facing) {
    return -0.82 * facing.x - 0.44 * facing.y + 0.32 * facing.z;
}

// A surface in the light of the morning.
inline Light InLight(const Light& surface, double towardsSun) {
    return surface * (kSkylight + kSunlight * Rise(-0.12, 0.95, towardsSun));
}

// Light that comes back from the clouds onto what looks down.
inline Light FromBelow(const Light& surface, double facingDown) {
    return surface * Light{0.32, 0.20, 0.26} * Rise(0, 1, facingDown);
}

inline Facing Normal(double slopeX, double slopeY) {
    const double length = std::sqrt(slopeX * slopeX + slopeY * slopeY + 1);
    return {-slopeX / length, -slopeY / length, 1 / length};
}

}  // namespace scenara::samples::cloudharbour
