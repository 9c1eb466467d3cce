// SPDX-License-Identifier: MIT
//
// The planks of the landing stage. They run away from the viewer, the railing's posts throw their
// shadows over them, and below the sun the worn wood shines.
#include <algorithm>
#include <cmath>

#include "cloudharbour/Pictures.h"
#include "cloudharbour/Scene.h"
#include "painting/NoiseSheet.h"
#include "painting/Painting.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::cloudharbour {
namespace {

constexpr int kWidth = 2168;
constexpr int kHeight = 170;
constexpr double kTop = kFloorTop - 4;
constexpr double kPlank = 58;  // a plank's width where the fighters stand
constexpr double kLens = 640;  // how far away they stand
constexpr double kLength = 330;
constexpr double kPostGap = 160;  // between the railing's posts, at the far edge
constexpr int kLampColumn = 430;

double Nearness(double row) {
    return (row - kHorizon) / (kFeet - kHorizon);
}

// The light that gets past the railing, 0 … 1. A shadow runs from the post's foot away from the
// place on the horizon below the sun.
double Sunshine(double x, double row) {
    const double far = (kFloorTop - kHorizon) / (row - kHorizon);
    const double foot =
        kSunColumn + (x - kSunColumn) * far;  // where its shadow line meets the edge
    const double blur = 1 + 0.05 * (row - kFloorTop);
    const double post = 6 - std::abs(InCell(foot - kPostGap / 2, kPostGap));
    const double lamp = 8 - std::min(std::abs(foot - kLampColumn), std::abs(foot + kLampColumn));
    // The ropes' shadows lie across, where the sun is low.
    const double rope =
        2.2 -
        std::abs(InCell(row - kFloorTop - 47 + 8 * std::cos(foot / kPostGap * 6.2831853), 90));
    const double shade =
        std::max(Rise(-blur, blur, std::max(post, lamp)), 0.5 * Rise(-1.5, 1.5, rope));
    return 1 - shade;
}

class Planks {
public:
    [[nodiscard]] Light At(double x, double row) const {
        const double near = Nearness(row);
        const double across = x / near;
        const double away = kLens / near;
        const double plank = std::floor(across / kPlank);
        const auto number = static_cast<int>(plank);
        const double inPlank = across - plank * kPlank;  // 0 … kPlank
        const double shift = kLength * samplemaker::LatticeValue(number, 3, 1171);
        const double board = std::floor((away + shift) / kLength);
        const double inBoard = away + shift - board * kLength;
        const double own = samplemaker::LatticeValue(number, static_cast<int>(board), 1181);
        const double hue = samplemaker::LatticeValue(number, static_cast<int>(board), 1187);

        const double bow = 10 * (grain_.At(away * 0.16 + 60 * own, plank * 31) - 0.5);
        const double fibre = grain_.At((inPlank + bow) * 4.2 + 90 * own, away * 0.22 + 140 * hue);
        const double ring = std::abs(InCell((inPlank + 2.2 * bow) * 0.16 + 3 * own, 1)) * 2;
        Light wood = Mixed(Light{0.34, 0.255, 0.27}, Light{0.50, 0.345, 0.275}, hue);
        wood = wood * (0.74 + 0.34 * own + 0.42 * (fibre - 0.5) + 0.12 * (ring - 0.5));

        // How far the nearest seam is, in pixels across it: far to the side they run flat.
        const double steep = 1 / std::hypot(1.0, across / (kFeet - kHorizon));
        const double gap = std::min(inPlank, kPlank - inPlank) * near * steep;
        const double joint = std::min(inBoard, kLength - inBoard) * near * near * 0.36;
        const double groove =
            std::max(Rise(0.5 + 1.1 * near, 0.2, gap), 0.8 * Rise(1.2, 0.3, joint));
        const double bevel = Rise(5, 1.5, inPlank) * (1 - groove);
        const double nail = NailAt(inPlank, inBoard, near);

        const double sun = Sunshine(x, row);
        // At a flat angle worn wood mirrors the sky: most below the sun, and at the far edge.
        const double below =
            std::exp(-std::pow((x - kSunColumn * (0.72 + 0.28 * near)) / (250 + 130 * near), 2));
        const double gloss = (0.34 + 0.66 * fibre) * (0.65 + 0.7 * own) * (1 - groove);
        const double flat = Rise(kFeet + 90, kFloorTop - 10, row);
        Light light = wood * (kSkylight * 1.05 + kSunlight * (0.42 * sun)) * (1 - 0.78 * groove);
        light = light + wood * kSunlight * (0.5 * bevel * sun);
        light = light + Light{0.20, 0.135, 0.15} * (flat * gloss * (0.45 + 0.55 * sun));
        light = light + Light{0.62, 0.36, 0.15} * (below * gloss * sun * (0.42 + 0.5 * flat));
        return Mixed(light, Light{0.05, 0.04, 0.09}, 0.8 * nail) *
               (1 - 0.30 * Rise(kFeet - 10, kTop + kHeight, row));
    }

private:
    // Two nails to either side of each joint.
    static double NailAt(double inPlank, double inBoard, double near) {
        const double side =
            std::min(std::abs(inPlank - kPlank * 0.22), std::abs(inPlank - kPlank * 0.78));
        const double along = std::min(std::abs(inBoard - 9), std::abs(inBoard - kLength + 9));
        return Rise(2.3, 1.2, std::hypot(side * near, along * near * near * 0.36)) *
               Rise(0.62, 0.80, near);
    }

    NoiseSheet grain_{1193, 16, 4, 0.6};
};

// The beam along the far edge, on which the railing stands.
Light EdgeAt(double x, double down) {
    const double sun = 0.55 + 0.45 * Rise(420, 60, std::abs(x - kSunColumn));
    if (down < 2) {
        return Light{0.96, 0.70, 0.50} * (0.62 + 0.36 * sun);
    }
    const Light wood{0.36, 0.25, 0.26};
    return wood * (kSkylight + kSunlight * 0.16) * (down < 8 ? 0.9 : 0.45);
}

}  // namespace

IndexedPicture DrawFloor() {
    const Planks planks;
    Painting painting(kWidth, kHeight);
    painting.Fill([&](int column, int line) {
        const double x = column + 0.5 - kWidth / 2.0;
        return line < 10 ? EdgeAt(x, line) : planks.At(x, line + 0.5 + kTop);
    });
    return painting.ToPicture();
}

}  // namespace scenara::samples::cloudharbour
