// SPDX-License-Identifier: MIT
//
// The hall's bat. It flies against the light, so its pictures say how much light it takes away.
#include <array>
#include <cmath>

#include "painting/Painting.h"
#include "painting/Shapes.h"
#include "thousandpanes/Pictures.h"

namespace scenara::samples {
namespace {

constexpr int kWidth = 80;
constexpr int kHeight = 56;
constexpr double kMiddle = kWidth / 2.0;
constexpr double kBodyRow = 26;

// Whether a place is part of the bat whose wings stand `lift` high, 1 up and -1 down.
bool IsBat(double x, double y, double lift) {
    const double across = std::abs(x - kMiddle);
    const double body = std::hypot(across / 4.2, (y - kBodyRow) / 8);
    const bool ear =
        across > 1 && across < 4 && y < kBodyRow - 5 && y > kBodyRow - 13 + 1.4 * across;
    if (body < 1 || ear) {
        return true;
    }
    const double span = 37 - 7 * std::abs(lift);
    const double out = across / span;
    if (out > 1) {
        return false;
    }
    // The arm rises to the wrist and falls to the tip; the skin below it hangs between the fingers.
    const double wrist = out < 0.45 ? out / 0.45 : 1 - (out - 0.45) * 0.7;
    const double arm = kBodyRow - 3 - lift * 18 * wrist;
    const double fingers = 1 - 0.42 * std::abs(std::cos(out * 3.1416 * 2));
    const double hem = arm + 4 + (19 - 5 * std::abs(lift)) * (1 - out) * fingers;
    return y > arm && y < hem;
}

}  // namespace

Pictures DrawBat() {
    constexpr std::array kLifts = {1.0, 0.45, -0.3, -0.9};
    std::vector<Painting> paintings;
    for (const double lift : kLifts) {
        Painting& painting = paintings.emplace_back(kWidth, kHeight);
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                if (IsBat(x + 0.5, y + 0.5, lift)) {
                    painting.Set(x, y, {0.96, 0.96, 0.92});
                }
            }
        }
    }
    return ToPictures(paintings);
}

}  // namespace scenara::samples
