// SPDX-License-Identifier: MIT
//
// The ruby lamps on the columns: a gilded bracket, and a bowl of glass that one can see through.
#include <cmath>

#include "painting/Painting.h"
#include "painting/Shapes.h"
#include "thousandpanes/Candles.h"
#include "thousandpanes/Glass.h"
#include "thousandpanes/Pictures.h"
#include "thousandpanes/Stone.h"

namespace scenara::samples {

IndexedPicture DrawLamp() {
    constexpr int kWidth = 40;
    constexpr int kHeight = 84;
    constexpr double kMiddle = kWidth / 2.0;
    Painting painting(kWidth, kHeight);
    PaintIron(painting, kMiddle, 6, kMiddle, 10, 4);
    for (const int side : {-1, 1}) {
        PaintIron(painting, kMiddle, 10, kMiddle + side * 15, 40, 0.9);
    }
    for (int y = 38; y < 46; ++y) {  // the rim that holds the bowl
        for (int x = 2; x < kWidth - 2; ++x) {
            const double across = (x + 0.5 - kMiddle) / 18;
            const double down = (y - 42) / 4.0;
            painting.Set(x, y,
                         kGold * (0.15 + 0.5 * Round(across, -0.2) * (1 - 0.6 * down * down)));
        }
    }
    PaintIron(painting, kMiddle, 74, kMiddle, 78, 3.2);
    return painting.ToPicture();
}

IndexedPicture DrawLampGlass() {
    constexpr int kWidth = 32;
    constexpr int kHeight = 30;
    Painting painting(kWidth, kHeight);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const double u = (x + 0.5 - kWidth / 2.0) / (kWidth / 2.0);
            const double v = (y + 0.5) / kHeight;
            if (u * u + v * v * v > 1) {
                continue;
            }
            const double heart = std::exp(-(u * u * 3 + (v - 0.25) * (v - 0.25) * 7));
            const double gleam =
                std::exp(-((u + 0.55) * (u + 0.55) * 40 + (v - 0.3) * (v - 0.3) * 9));
            painting.Set(x, y,
                         Light{0.34, 0.02, 0.05} + Light{0.6, 0.3, 0.06} * heart +
                             Light{0.3, 0.26, 0.26} * gleam);
        }
    }
    return painting.ToPicture();
}

}  // namespace scenara::samples
