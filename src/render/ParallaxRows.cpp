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

std::int64_t RowPosition(const BackgroundElement& element, Single drawX, double shear,
                         std::int64_t row, std::int64_t rows, Single elementScale) {
    const double x = static_cast<double>(drawX) + shear * (RowSpeed(element, row, rows) - 1);
    constexpr auto kMost = static_cast<double>(kFarthest);
    return WholePixel(std::clamp(x, -kMost, kMost), elementScale);
}

double RowStretch(const BackgroundElement& element, Single cameraY) {
    constexpr double kMost = 16;
    const double shrunk =
        (static_cast<double>(element.yscaleStart) +
         static_cast<double>(element.yscaleDelta) * static_cast<double>(cameraY)) /
        100;
    return shrunk == 0 ? kMost : std::clamp(1 / shrunk, 1 / kMost, kMost);
}

std::int64_t StretchedRows::From(std::int64_t row) const {
    return static_cast<std::int64_t>(std::floor(top + static_cast<double>(row) * stretch + 0.5));
}

std::int64_t StretchedRows::Before(std::int64_t line) const {
    const double row = std::floor((static_cast<double>(line) - top) / stretch) - 1;
    return static_cast<std::int64_t>(std::max(row, 0.0));
}

}  // namespace scenara
