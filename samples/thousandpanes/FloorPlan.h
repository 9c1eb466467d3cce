// SPDX-License-Identifier: MIT
//
// The floor as it lies: from rows of its picture to places on it, and back to pixels.
#pragma once

#include "thousandpanes/Scene.h"

namespace scenara::samples {

// How near a row is: 1 where the fighters stand.
constexpr double Nearness(double row) {
    return (row - kEye) / (kFeet - kEye);
}

// A place on the floor: across from the middle, away from the viewer; both in pixels of the row
// where the fighters stand.
struct FloorPlace {
    double across = 0;
    double away = 0;
};

constexpr double kLens = 500;  // how far away the fighters' row is

constexpr FloorPlace PlaceOnFloor(double x, double row) {
    const double near = Nearness(row);
    return {x / near, kLens / near};
}

// What one unit of a direction comes to on the screen, at a row.
constexpr double PixelsAcross(double row) {
    return Nearness(row);
}
constexpr double PixelsAway(double row) {
    return (kFeet - kEye) * Nearness(row) * Nearness(row) / kLens;
}

}  // namespace scenara::samples
