// SPDX-License-Identifier: MIT
#include <cmath>

#include "painting/Painting.h"
#include "painting/Shapes.h"
#include "samplemaker/Noise.h"
#include "thousandpanes/FloorPlan.h"
#include "thousandpanes/Glass.h"
#include "thousandpanes/Pictures.h"

namespace scenara::samples {
namespace {

constexpr int kWidth = 1424;
constexpr int kHeight = 140;
constexpr double kSlab = 96;

// Distance in pixels from the nearest seam between slabs that lie corner towards the viewer.
double SeamDistance(const FloorPlace& place, double row) {
    const double across = place.across / kSlab;
    const double away = place.away / kSlab;
    const double slope = std::hypot(PixelsAcross(row), PixelsAway(row)) * kSlab / 2;
    return std::min(std::abs(InCell(across + away, 1)), std::abs(InCell(across - away, 1))) * slope;
}

// Veins wander through the stone, bright and thin.
double Vein(const FloorPlace& place, std::uint32_t seed) {
    const double bend = samplemaker::LayeredNoise(place.across / 40, place.away / 40, 3, seed);
    const double line = std::abs(
        samplemaker::SmoothNoise(place.across / 90 + 2 * bend, place.away / 90, seed + 5) - 0.5);
    return Rise(0.05, 0, line) * bend;
}

Light SlabAt(const FloorPlace& place) {
    constexpr Light kDark{0.035, 0.03, 0.075};
    constexpr Light kPlum{0.105, 0.05, 0.115};
    const int column = static_cast<int>(std::floor((place.across + place.away) / kSlab + 0.5));
    const int row = static_cast<int>(std::floor((place.across - place.away) / kSlab + 0.5));
    const bool plum = ((column + row) & 1) != 0;
    const double own = 0.85 + 0.3 * samplemaker::LatticeValue(column, row, 457);
    const double vein = Vein(place, plum ? 461 : 463);
    return (plum ? kPlum : kDark) * own + Light{0.1, 0.09, 0.16} * vein;
}

// A golden diamond where four slabs meet.
double DiamondDistance(const FloorPlace& place, double row) {
    const double across = InCell(place.across, kSlab) * PixelsAcross(row);
    const double away = InCell(place.away, kSlab) * PixelsAway(row);
    const double other = InCell(place.across - kSlab / 2, kSlab) * PixelsAcross(row);
    const double otherAway = InCell(place.away - kSlab / 2, kSlab) * PixelsAway(row);
    const double near = Nearness(row);
    const auto diamond = [near](double x, double y) {
        return std::abs(x) + std::abs(y) * 2.6 - 9 * near;
    };
    return std::min(diamond(across, away), diamond(other, otherAway));
}

Light FloorAt(double x, double row) {
    if (row < kFloorTop + 3) {
        return Light{0.55, 0.42, 0.26};  // the gilded edge
    }
    if (row < kFloorTop + 7) {
        return Light{0.06, 0.03, 0.06};
    }
    const FloorPlace place = PlaceOnFloor(x, row);
    // At a flat angle polished stone shows more of the bright wall.
    const double sheen = Rise(kFloorTop + 70, kFloorTop, row);
    const Light stone = SlabAt(place) + Light{0.1, 0.075, 0.14} * sheen;
    const Light seamed =
        Mixed(stone, Light{0.34, 0.25, 0.16}, 0.5 * Line(SeamDistance(place, row), 1.6));
    return Mixed(seamed, kGold * 0.42, Rise(0.8, -0.8, DiamondDistance(place, row)));
}

}  // namespace

IndexedPicture DrawFloor() {
    Painting painting(kWidth, kHeight);
    painting.Fill(
        [](int x, int y) { return FloorAt(x + 0.5 - kWidth / 2.0, y + 0.5 + kFloorTop); });
    return painting.ToPicture();
}

}  // namespace scenara::samples
