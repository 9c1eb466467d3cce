// SPDX-License-Identifier: MIT
//
// The row of columns before the wall, with the arches that carry the vault. The picture is a column
// with half an arch to either side; its copies make the row.
#include <cmath>

#include "painting/Painting.h"
#include "painting/Shapes.h"
#include "samplemaker/Noise.h"
#include "thousandpanes/Glass.h"
#include "thousandpanes/Pictures.h"
#include "thousandpanes/Scene.h"
#include "thousandpanes/Stone.h"

namespace scenara::samples {
namespace {

constexpr int kTop = -78;
constexpr int kHeight = 512;
constexpr double kSpring = 84;   // where the arches begin, on the capitals
constexpr double kShaft = 17;    // half a column's width
constexpr double kCapital = 22;  // half a capital's width
constexpr int kCapitalFoot = 108;
constexpr double kRib = 22;  // an arch's width, seen from the front

// Gold stars on the blue web of the vault.
Light WebAt(double x, double y) {
    const bool between = static_cast<int>(std::floor(y / 22)) % 2 == 0;
    const double column = InCell(x + (between ? 16 : 0), 32);
    const double row = InCell(y - 11, 22);
    const double turn = std::atan2(column, row);
    const double star = std::hypot(column, row) - 2.2 - 1.7 * std::cos(5 * turn);
    const double grain = samplemaker::LayeredNoise(x / 9, y / 9, 2, 479, 0);
    const Light blue = Light{0.03, 0.045, 0.14} * (0.7 + 0.6 * grain);
    return Mixed(blue, kGold * 0.55, Rise(0.8, -0.8, star));
}

// Three rolls and a gilded fillet along the arch; the glass behind lights the inner edge.
Light RibAt(double distance, double y) {
    const double across = distance / kRib;
    if (distance < 2) {
        return Stone(0.5) + Light{0.05, 0.09, 0.2};
    }
    if (distance > kRib - 3) {
        return kGold * (0.34 + 0.2 * Round(InCell(distance, 3) / 1.5, 0));
    }
    const double roll = Round(InCell(across * 3, 1) * 2, -0.5);
    return Stone(0.14 + 0.42 * roll) + CandleGlow(y) + Light{0.02, 0.03, 0.07};
}

// A bundle of shafts: one in front, one to either side, which the glass behind lights.
Light ShaftAt(double x, double y) {
    const bool front = std::abs(x) < 8;
    const double across = front ? x / 8 : (std::abs(x) - 12.5) / 4.5;
    const double lit = front ? Round(across, 0) : Round(across, 0.9);
    const double grain = samplemaker::LayeredNoise(x / 5 + 60, y / 14, 2, 487) - 0.5;
    const Light edge = Light{0.07, 0.13, 0.32} * (front ? 0 : Rise(-0.2, 1, across));
    return Stone(0.16 + 0.6 * lit * lit + 0.1 * grain) + edge + CandleGlow(y) * (0.4 + 0.9 * lit);
}

// Carved leaves under a moulded slab.
Light CapitalAt(double x, double y) {
    const double down = (y - kSpring) / (kCapitalFoot - kSpring);
    if (down < 0.22) {
        return Stone(0.66 - down) + CandleGlow(y);
    }
    const double leaf = std::abs(InCell(x + (down > 0.6 ? 4 : 0), 9)) / 4.5;
    const double level =
        0.3 + 0.4 * (1 - leaf) - 0.25 * Rise(0.5, 0.62, down) * Rise(0.7, 0.62, down);
    return Mixed(Stone(level), kGold * (0.18 + 0.55 * (1 - leaf)), 0.55);
}

}  // namespace

IndexedPicture DrawArches() {
    constexpr PointedArch kOpening{kBay / 2.0 - kShaft - 3, kSpring, 158};
    Painting painting(kBay, kHeight);
    for (int row = 0; row < kHeight; ++row) {
        for (int column = 0; column < kBay; ++column) {
            const double x = column + 0.5 - kBay / 2.0;
            const double y = row + 0.5 + kTop;
            const double arch = kOpening.Distance(kBay / 2.0 - std::abs(x), y);
            const double reach = kShaft + (kCapital - kShaft) * Rise(kCapitalFoot, kSpring, y);
            if (y < kSpring && arch > 0) {
                const double stars = kBay / 2.0 - std::abs(x);
                painting.Set(column, row, arch < kRib ? RibAt(arch, y) : WebAt(stars, y));
            } else if (y >= kSpring && y < kCapitalFoot && std::abs(x) < reach) {
                painting.Set(column, row, CapitalAt(x, y));
            } else if (y >= kCapitalFoot && std::abs(x) < kShaft) {
                painting.Set(column, row, ShaftAt(x, y));
            }
        }
    }
    return painting.ToPicture();
}

}  // namespace scenara::samples
