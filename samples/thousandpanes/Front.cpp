// SPDX-License-Identifier: MIT
//
// What stands between the viewer and the fighters: a tall candelabrum, dark against the hall.
#include <cmath>

#include "painting/Painting.h"
#include "painting/Shapes.h"
#include "thousandpanes/Candles.h"
#include "thousandpanes/Glass.h"
#include "thousandpanes/Pictures.h"
#include "thousandpanes/Stone.h"

namespace scenara::samples {

IndexedPicture DrawCandelabrum() {
    constexpr int kWidth = 152;
    constexpr int kHeight = 250;
    constexpr double kMiddle = kWidth / 2.0;
    Painting painting(kWidth, kHeight);
    PaintIron(painting, kMiddle, 60, kMiddle, kHeight, 5);
    for (const double knot : {70.0, 118.0, 180.0}) {
        PaintIron(painting, kMiddle - 2, knot, kMiddle + 2, knot, 9);
    }
    for (const int side : {-1, 1}) {
        for (const double reach : {30.0, 60.0}) {
            const double low = reach < 40 ? 104 : 126;
            const double high = reach < 40 ? 70 : 84;
            PaintIron(painting, kMiddle, low, kMiddle + side * reach * 0.6, low - 6, 3);
            PaintIron(painting, kMiddle + side * reach * 0.6, low - 6, kMiddle + side * reach,
                      high + 8, 3);
            PaintIron(painting, kMiddle + side * reach, high + 8, kMiddle + side * reach, high, 3);
            PaintIron(painting, kMiddle + side * reach - 9, high, kMiddle + side * reach + 9, high,
                      2.6);
            PaintCandle(painting, kMiddle + side * reach, high - 32, 30, 4);
        }
    }
    PaintIron(painting, kMiddle - 10, 59, kMiddle + 10, 59, 3);
    PaintCandle(painting, kMiddle, 22, 36, 4);
    return painting.ToPicture();
}

}  // namespace scenara::samples
