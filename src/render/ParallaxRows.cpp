// SPDX-License-Identifier: MIT
#include "render/ParallaxRows.h"

#include <algorithm>
#include <cmath>

#include "render/ElementPlacement.h"

namespace scenara {

double RowSpeed(const BackgroundElement& element, std::int64_t row, std::int64_t rows) {
    auto top = static_cast<double>(element.xscaleTop);
    const auto bottom = static_cast<double>(element.xscaleBottom);
    if (top == 0 && bottom == 0) {
        return 1;
    }
    if (top == 0) {
        top = 1;
    }
    const double t = rows > 1 ? static_cast<double>(row) / static_cast<double>(rows - 1) : 0;
    return (top + (bottom - top) * t) / top;
}

std::int64_t RowPosition(const BackgroundElement& element, Single drawX, Single cameraX,
                         std::int64_t row, std::int64_t rows, Single elementScale) {
    const double shear = static_cast<double>(cameraX) * static_cast<double>(element.deltaX) *
                         (RowSpeed(element, row, rows) - 1);
    constexpr auto kMost = static_cast<double>(kFarthest);
    return WholePixel(std::clamp(static_cast<double>(drawX) + shear, -kMost, kMost), elementScale);
}

double RowStretch(const BackgroundElement& element, Single cameraY) {
    constexpr double kMost = 16;
    const double shrunk =
        (static_cast<double>(element.yscaleStart) +
         static_cast<double>(element.yscaleDelta) * static_cast<double>(cameraY)) /
        100;
    return shrunk == 0 ? kMost : std::clamp(1 / shrunk, 1 / kMost, kMost);
}

std::int64_t SourceRow(std::int64_t row, double stretch) {
    return static_cast<std::int64_t>(std::floor(static_cast<double>(row) / stretch));
}

std::int64_t StretchedRows(std::int64_t rows, double stretch) {
    auto count = static_cast<std::int64_t>(std::ceil(static_cast<double>(rows) * stretch));
    // The division may round the other way than the product.
    while (count > 0 && SourceRow(count - 1, stretch) >= rows) {
        --count;
    }
    return count;
}

}  // namespace scenara
