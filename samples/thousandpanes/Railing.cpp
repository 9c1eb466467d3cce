// SPDX-License-Identifier: MIT
//
// The iron railing at the floor's far edge, and the candle stands on it.
#include <cmath>

#include "painting/Painting.h"
#include "painting/Shapes.h"
#include "thousandpanes/Candles.h"
#include "thousandpanes/Glass.h"
#include "thousandpanes/Pictures.h"
#include "thousandpanes/Stone.h"

namespace scenara::samples {
namespace {

constexpr int kWidth = 128;
constexpr int kHeight = 64;
constexpr int kRail = 14;  // the upper rail's row

Light Iron(double lit) {
    return Mixed(Light{0.018, 0.014, 0.03}, Light{0.5, 0.34, 0.17}, std::clamp(lit, 0.0, 1.0));
}

}  // namespace

IndexedPicture DrawIronRailing() {
    constexpr double kField = 32;
    constexpr PointedArch kArch{14, 40, 26};
    Painting painting(kWidth, kHeight);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const double row = y + 0.5;
            const double across = InCell(x + 0.5 - kField / 2, kField);
            const double post = InCell(x + 0.5, kField * 2);
            const double arch = kArch.Distance(across, row);
            if (std::abs(row - kRail - 3) < 3.2) {
                painting.Set(x, y, Iron(0.9 * Round((row - kRail - 3) / 3.2, -0.7) - 0.15));
            } else if (row > kHeight - 7) {
                painting.Set(x, y, Iron(0.75 * Round((row - kHeight + 3.5) / 3.5, -0.8) - 0.15));
            } else if (row > kRail && std::abs(post) < 3.4) {
                painting.Set(x, y, Iron(0.8 * Round(post / 3.4, 0) - 0.2));
            } else if (row <= kRail && std::hypot(post, (row - 7) * 0.8) < 4.6) {
                painting.Set(x, y, kGold * (0.2 + 0.6 * Round(post / 4.6, -0.4)));
            } else if (row > kRail && arch > -2.2) {
                painting.Set(x, y, Iron(arch < 0 ? 0.42 : 0.04));
            } else if (row > kRail && std::abs(across) < 1.3) {
                painting.Set(x, y, Iron(0.3));
            }
        }
    }
    return painting.ToPicture();
}

// Three candles on a stand, the middle one highest.
IndexedPicture DrawCandleStand() {
    constexpr int kStandWidth = 76;
    constexpr int kStandHeight = 116;
    constexpr double kMiddle = kStandWidth / 2.0;
    Painting painting(kStandWidth, kStandHeight);
    PaintIron(painting, kMiddle, 44, kMiddle, 112, 3);
    PaintIron(painting, kMiddle - 12, 113, kMiddle + 12, 113, 3);
    for (const int side : {-1, 1}) {
        PaintIron(painting, kMiddle, 74, kMiddle + side * 16, 68, 1.8);
        PaintIron(painting, kMiddle + side * 16, 68, kMiddle + side * 26, 54, 1.8);
        PaintIron(painting, kMiddle + side * 26 - 7, 53, kMiddle + side * 26 + 7, 53, 2);
        PaintCandle(painting, kMiddle + side * 26, 26, 26, 3);
    }
    PaintIron(painting, kMiddle - 8, 43, kMiddle + 8, 43, 2.4);
    PaintIron(painting, kMiddle, 78, kMiddle, 79, 5);
    PaintCandle(painting, kMiddle, 12, 30, 3);
    return painting.ToPicture();
}

}  // namespace scenara::samples
