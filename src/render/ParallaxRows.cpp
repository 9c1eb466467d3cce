// SPDX-License-Identifier: MIT
#include "render/ParallaxRows.h"

#include <algorithm>

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
                         std::int64_t row, std::int64_t rows) {
    const double shear = static_cast<double>(cameraX) * static_cast<double>(element.deltaX) *
                         (RowSpeed(element, row, rows) - 1);
    constexpr auto kMost = static_cast<double>(kFarthest);
    const double position =
        std::clamp(RoundToEven(static_cast<double>(drawX) + shear), -kMost, kMost);
    return static_cast<std::int64_t>(position);
}

}  // namespace scenara
